#pragma once
// The small parts of a live chart (fonts, borders, interiors, fills, titles, tick labels): each
// writes what is set into a field of the chart's ChartSpec (chart_spec.h), reached through a
// function every time, so that no part holds a reference the spec's vectors could move. Every
// change marks the chart for drawing again.
//
// A setting the spec has no field for (a weight where none is kept) is a host failure (1004),
// as in the in-memory host.

#include <functional>
#include <optional>
#include <string>

#include "calc/chart_spec.h"
#include "frame/chart.h"

namespace orv::calc {

template <class T>
using SpecField = std::function<T&()>;

class SpecChartFont final : public ChartFont {
 public:
  explicit SpecChartFont(SpecField<SpecFont> font) : font_(std::move(font)) {}
  // 1 to 409 points.
  void SetSize(double points) override;
  void SetBold(bool bold) override { font_().bold = bold; }

 private:
  SpecField<SpecFont> font_;
};

class SpecBorder final : public ChartBorder {
 public:
  // Fields the spec lacks are empty functions: setting them is a host failure.
  SpecBorder(SpecField<bool> drawn, SpecField<double> weight, SpecField<std::int32_t> colorIndex = {})
      : drawn_(std::move(drawn)), weight_(std::move(weight)), colorIndex_(std::move(colorIndex)) {}
  void SetLineStyle(host::LineStyle style) override;
  void SetWeight(host::BorderWeight weight) override;
  void SetColorIndex(std::int32_t index) override;

 private:
  SpecField<bool> drawn_;
  SpecField<double> weight_;
  SpecField<std::int32_t> colorIndex_;
};

class SpecInterior final : public ChartInterior {
 public:
  explicit SpecInterior(SpecField<std::int32_t> colorIndex) : colorIndex_(std::move(colorIndex)) {}
  // Palette indices 1 to 56, automatic or none.
  void SetColorIndex(std::int32_t index) override;

 private:
  SpecField<std::int32_t> colorIndex_;
};

class SpecFill final : public ChartFill {
 public:
  explicit SpecFill(SpecField<bool> filled) : filled_(std::move(filled)) {}
  void SetVisible(host::TriState visible) override { filled_() = visible == host::TriState::True; }

 private:
  SpecField<bool> filled_;
};

// A chart or axis title; its owner hands it out only while the title exists.
class SpecChartTitle final : public ChartTitle {
 public:
  explicit SpecChartTitle(SpecField<std::optional<SpecTitle>> title)
      : title_(std::move(title)), font_([this]() -> SpecFont& { return title_()->font; }) {}
  SpecChartTitle(const SpecChartTitle&) = delete;  // the font reaches back into this
  SpecChartTitle& operator=(const SpecChartTitle&) = delete;
  void SetText(const std::string& text) override { title_()->text = text; }
  ChartFont& Font() override { return font_; }

 private:
  SpecField<std::optional<SpecTitle>> title_;
  SpecChartFont font_;
};

class SpecTickLabels final : public TickLabels {
 public:
  explicit SpecTickLabels(SpecField<SpecAxis> axis)
      : axis_(std::move(axis)), font_([this]() -> SpecFont& { return axis_().tickLabelFont; }) {}
  SpecTickLabels(const SpecTickLabels&) = delete;
  SpecTickLabels& operator=(const SpecTickLabels&) = delete;
  ChartFont& Font() override { return font_; }
  std::string NumberFormat() const override { return axis_().numberFormat; }
  void SetNumberFormat(const std::string& format) override { axis_().numberFormat = format; }

 private:
  SpecField<SpecAxis> axis_;
  SpecChartFont font_;
};

}  // namespace orv::calc
