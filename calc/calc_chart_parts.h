#pragma once
// The small parts of a live chart (fonts, borders, interiors, fills, titles, tick labels): each
// writes what is set into a field of the chart's ChartPlan (chart_plan.h), reached through a
// function every time, so that no part holds a reference the plan's vectors could move. Every
// change marks the chart for drawing again.
//
// A setting the plan has no field for (a weight where none is kept) is a host failure (1004),
// as in the in-memory host.

#include <functional>
#include <optional>
#include <string>

#include "calc/chart_plan.h"
#include "frame/chart.h"

namespace orv::calc {

template <class T>
using PlanField = std::function<T&()>;

class PlanChartFont final : public ChartFont {
 public:
  explicit PlanChartFont(PlanField<PlanFont> font) : font_(std::move(font)) {}
  // 1 to 409 points.
  void SetSize(double points) override;
  void SetBold(bool bold) override { font_().bold = bold; }

 private:
  PlanField<PlanFont> font_;
};

class PlanBorder final : public ChartBorder {
 public:
  // Fields the plan lacks are empty functions: setting them is a host failure.
  PlanBorder(PlanField<bool> drawn, PlanField<double> weight, PlanField<std::int32_t> colorIndex = {})
      : drawn_(std::move(drawn)), weight_(std::move(weight)), colorIndex_(std::move(colorIndex)) {}
  void SetLineStyle(host::LineStyle style) override;
  void SetWeight(host::BorderWeight weight) override;
  void SetColorIndex(std::int32_t index) override;

 private:
  PlanField<bool> drawn_;
  PlanField<double> weight_;
  PlanField<std::int32_t> colorIndex_;
};

class PlanInterior final : public ChartInterior {
 public:
  explicit PlanInterior(PlanField<std::int32_t> colorIndex) : colorIndex_(std::move(colorIndex)) {}
  // Palette indices 1 to 56, automatic or none.
  void SetColorIndex(std::int32_t index) override;

 private:
  PlanField<std::int32_t> colorIndex_;
};

class PlanFill final : public ChartFill {
 public:
  explicit PlanFill(PlanField<bool> filled) : filled_(std::move(filled)) {}
  void SetVisible(host::TriState visible) override { filled_() = visible == host::TriState::True; }

 private:
  PlanField<bool> filled_;
};

// A chart or axis title; its owner hands it out only while the title exists.
class PlanChartTitle final : public ChartTitle {
 public:
  explicit PlanChartTitle(PlanField<std::optional<PlanTitle>> title)
      : title_(std::move(title)), font_([this]() -> PlanFont& { return title_()->font; }) {}
  PlanChartTitle(const PlanChartTitle&) = delete;  // the font reaches back into this
  PlanChartTitle& operator=(const PlanChartTitle&) = delete;
  void SetText(const std::string& text) override { title_()->text = text; }
  ChartFont& Font() override { return font_; }

 private:
  PlanField<std::optional<PlanTitle>> title_;
  PlanChartFont font_;
};

class PlanTickLabels final : public TickLabels {
 public:
  explicit PlanTickLabels(PlanField<PlanAxis> axis)
      : axis_(std::move(axis)), font_([this]() -> PlanFont& { return axis_().tickLabelFont; }) {}
  PlanTickLabels(const PlanTickLabels&) = delete;
  PlanTickLabels& operator=(const PlanTickLabels&) = delete;
  ChartFont& Font() override { return font_; }
  std::string NumberFormat() const override { return axis_().numberFormat; }
  void SetNumberFormat(const std::string& format) override { axis_().numberFormat = format; }

 private:
  PlanField<PlanAxis> axis_;
  PlanChartFont font_;
};

}  // namespace orv::calc
