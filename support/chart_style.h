#pragma once
// What every chart builder of the component shares: where the chart goes, how its titles look,
// and the error for a range property that was never set.

#include <cstdint>
#include <optional>
#include <string>

#include "frame/chart.h"
#include "frame/range.h"

namespace orv {

// Top-left corner of a chart, in points from the sheet's top-left corner.
struct ChartPlacement {
  double left = 0;
  double top = 0;
};

// The output cell's corner moved by the offsets. A vertical offset that would put the chart's
// top at or below the top of the sheet's last row is dropped; the horizontal one always counts.
ChartPlacement placeChart(const Range& output, std::int32_t verticalOffset, std::int32_t horizontalOffset);

// The chart title in 10-point bold; an empty title means none.
void setChartTitle(Chart& chart, const std::string& title);
// An axis title in 10-point plain type; an empty title means none.
void setAxisTitle(Axis& axis, const std::string& title);

// "Object variable or With block variable not set" (91): a builder's range property used before
// it was set.
[[noreturn]] void raiseUnsetRange();

template <class T>
const T& required(const std::optional<T>& value) {
  if (!value) raiseUnsetRange();
  return *value;
}

}  // namespace orv
