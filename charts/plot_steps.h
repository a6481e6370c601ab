#pragma once
// The steps that the box plot and error plot builders share, in the order they run them: where
// the chart goes, a new empty chart there, the house formatting, and the final placement of the
// chart's shape. Each step raises what the host raises; the caller's procedure trap names it.

#include <cstdint>
#include <string>

#include "frame/chart.h"
#include "frame/range.h"
#include "support/chart_style.h"

namespace orv::plot_steps {

// Where a chart goes: see support/chart_style.h.
using Placement = ChartPlacement;
using orv::placeChart;

// A chart object of the given size at the placement on the output cell's sheet, selected, with
// screen updating turned off and any series the host put into it removed (failures of that
// removal ignored). Returns the chart object.
ChartObject& addEmptyChart(const Range& output, const Placement& at, std::int32_t width, std::int32_t height);

// Chart area, title, plot area, legend and both primary axes in the house style: fonts of 10
// (titles) and 8 (tick labels) points, no gridlines, no legend, no category axis line, the plot
// area widened into the space the host leaves around it, whole-number value labels from an
// axis maximum of 10 up. An empty title or axis title means none.
void formatChart(Chart& chart, std::int16_t colorIndex, const std::string& title, const std::string& valueAxisTitle);

// "Chart 3" from "Sheet1 Chart 3": the last ten characters, then whatever stands before and at a
// blank found among the first three characters, as often as there is one. A name without any
// blank never leaves the loop; the host always names charts with one.
std::string shortChartName(const std::string& chartName);

// Looks the chart object up again on the active sheet by its short name, then (ignoring every
// failure from here on) moves its shape to a fixed first place and at once to the placement that
// `placeChart` computes again.
void settleChart(ChartObject& object, const Range& output, std::int32_t verticalOffset, std::int32_t horizontalOffset);

// Unset range properties raise 91: see support/chart_style.h.
using orv::raiseUnsetRange;
using orv::required;

}  // namespace orv::plot_steps
