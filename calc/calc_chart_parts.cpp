#include "calc/calc_chart_parts.h"

#include "frame/chart_layout.h"
#include "frame/errors.h"
#include "frame/palette.h"

namespace orv::calc {

void PlanChartFont::SetSize(double points) {
  if (!isFontSize(points)) raiseHost("Unable to set the Size property of the Font class");
  font_().size = points;
}

void PlanBorder::SetLineStyle(host::LineStyle style) {
  if (!drawn_) raiseHost("Unable to set the LineStyle property of the Border class in this host");
  // Dashes and dots are drawn lines; the plan knows drawn or not drawn.
  drawn_() = style != host::LineStyle::None;
}

void PlanBorder::SetWeight(host::BorderWeight weight) {
  if (!weight_) raiseHost("Unable to set the Weight property of the Border class in this host");
  weight_() = borderWeightPoints(weight);
}

void PlanBorder::SetColorIndex(std::int32_t index) {
  if (!colorIndex_ || !paletteColor(index)) raiseHost("Unable to set the ColorIndex property of the Border class");
  colorIndex_() = index;
}

void PlanInterior::SetColorIndex(std::int32_t index) {
  if (!paletteColor(index) && index != kColorIndexAutomatic && index != kColorIndexNone) {
    raiseHost("Unable to set the ColorIndex property of the Interior class");
  }
  colorIndex_() = index;
}

}  // namespace orv::calc
