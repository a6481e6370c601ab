#pragma once
// The axes of a chart: <c:catAx> for the categories of line, stock and column groups,
// <c:valAx> for values and for both axes of a scatter group.
//
// Where an axis sits and what it crosses is fixed by its place in the chart (AxisPlacement);
// the rest comes from the recorded AxisModel. The model's crossesAtCentre belongs to the axis
// being crossed, so the caller passes it in as `partnerCrossesAtCentre` of the crossing axis.
// Tick labels use the model's number format, never the source cells' (sourceLinked="0").

#include <cstdint>
#include <string>

#include "workbook/chart_model.h"

namespace orv::chartxml {

enum class Crossing : std::uint8_t { AutoZero, Min, Max };

struct AxisPlacement {
  std::uint32_t id = 0;
  std::uint32_t crossesAxis = 0;
  char position = 'b';  // b, l, r, t
  Crossing crosses = Crossing::AutoZero;
  bool betweenCategories = true;  // value axes: points between category ticks (false: on them)
};

std::string categoryAxis(const AxisModel& axis, const AxisPlacement& place);
std::string valueAxis(const AxisModel& axis, const AxisPlacement& place);

}  // namespace orv::chartxml
