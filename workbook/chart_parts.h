#pragma once
// The small parts of the in-memory chart model (fonts, borders, interiors, fills, titles, tick
// labels): each writes what is set into a field of the recorded chart, which it reaches through
// a function each time, so that it never holds a reference the model's vectors could move.
//
// A setting the recorded model has no field for (a border weight where none is kept) is a host
// failure (1004) rather than silently dropped.

#include <functional>
#include <optional>
#include <string>

#include "frame/chart.h"
#include "workbook/chart_model.h"

namespace orv {

template <class T>
using FieldOf = std::function<T&()>;

class RecordedFont final : public ChartFont {
 public:
  explicit RecordedFont(FieldOf<FontModel> font) : font_(std::move(font)) {}
  // 1 to 409 points, as the host allows.
  void SetSize(double points) override;
  void SetBold(bool bold) override { font_().bold = bold; }

 private:
  FieldOf<FontModel> font_;
};

// A line that is either drawn or not, and its weight in points; either is kept only where the
// model has a field for it (an empty function: none).
class RecordedBorder final : public ChartBorder {
 public:
  // Fields the recorded model lacks are empty: setting them is a host failure.
  RecordedBorder(FieldOf<bool> drawn, FieldOf<double> weight, FieldOf<std::int32_t> colorIndex = {})
      : drawn_(std::move(drawn)), weight_(std::move(weight)), colorIndex_(std::move(colorIndex)) {}
  void SetLineStyle(host::LineStyle style) override;
  void SetWeight(host::BorderWeight weight) override;
  void SetColorIndex(std::int32_t index) override;

 private:
  FieldOf<bool> drawn_;
  FieldOf<double> weight_;
  FieldOf<std::int32_t> colorIndex_;
};

class RecordedInterior final : public ChartInterior {
 public:
  explicit RecordedInterior(FieldOf<std::int32_t> colorIndex) : colorIndex_(std::move(colorIndex)) {}
  // Palette indices 1 to 56, or automatic or none.
  void SetColorIndex(std::int32_t index) override;

 private:
  FieldOf<std::int32_t> colorIndex_;
};

class RecordedFill final : public ChartFill {
 public:
  explicit RecordedFill(FieldOf<bool> filled) : filled_(std::move(filled)) {}
  void SetVisible(host::TriState visible) override { filled_() = visible == host::TriState::True; }

 private:
  FieldOf<bool> filled_;
};

// A chart or axis title; the owner hands it out only while the title exists.
class RecordedTitle final : public ChartTitle {
 public:
  RecordedTitle(FieldOf<std::optional<std::string>> text, FieldOf<FontModel> font)
      : text_(std::move(text)), font_(std::move(font)) {}
  void SetText(const std::string& text) override { text_() = text; }
  ChartFont& Font() override { return font_; }

 private:
  FieldOf<std::optional<std::string>> text_;
  RecordedFont font_;
};

class RecordedTickLabels final : public TickLabels {
 public:
  explicit RecordedTickLabels(FieldOf<AxisModel> axis);
  RecordedTickLabels(const RecordedTickLabels&) = delete;  // the font reaches back into this
  RecordedTickLabels& operator=(const RecordedTickLabels&) = delete;
  ChartFont& Font() override { return font_; }
  std::string NumberFormat() const override { return axis_().tickLabelNumberFormat; }
  void SetNumberFormat(const std::string& format) override { axis_().tickLabelNumberFormat = format; }

 private:
  FieldOf<AxisModel> axis_;
  RecordedFont font_;
};

}  // namespace orv
