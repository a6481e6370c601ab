#include "workbook/chart_parts.h"

#include <cmath>

#include "frame/cell_format.h"
#include "frame/chart_layout.h"
#include "frame/errors.h"

namespace orv {

void RecordedFont::SetSize(double points) {
  if (!isFontSize(points)) raiseHost("Unable to set the Size property of the Font class");
  font_().size = points;
}

void RecordedBorder::SetLineStyle(host::LineStyle style) {
  if (!drawn_) raiseHost("Unable to set the LineStyle property of the Border class in this host");
  // The recorded model knows drawn or not drawn; dashes and dots are drawn lines.
  drawn_() = style != host::LineStyle::None;
}

void RecordedBorder::SetWeight(host::BorderWeight weight) {
  if (!weight_) raiseHost("Unable to set the Weight property of the Border class in this host");
  weight_() = borderWeightPoints(weight);
}

void RecordedBorder::SetColorIndex(std::int32_t index) {
  if (!colorIndex_ || index < 1 || index > 56) {
    raiseHost("Unable to set the ColorIndex property of the Border class");
  }
  colorIndex_() = index;
}

void RecordedInterior::SetColorIndex(std::int32_t index) {
  const bool palette = index >= 1 && index <= 56;
  if (!palette && index != kColorIndexAutomatic && index != kColorIndexNone) {
    raiseHost("Unable to set the ColorIndex property of the Interior class");
  }
  colorIndex_() = index;
}

RecordedTickLabels::RecordedTickLabels(FieldOf<AxisModel> axis)
    : axis_(std::move(axis)), font_([this]() -> FontModel& { return axis_().tickLabelFont; }) {}

}  // namespace orv
