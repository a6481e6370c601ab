#pragma once
// Chart measures every host shares, in points.
//
// standardPlotArea: the plot area a chart lays out by itself until a builder sets it, as the
// component's chart arithmetic expects it (the builders move it from there): 10 % of the chart's
// width in from the left and 85 % wide; 12 % of its height down and 75 % high, or 20 % down and
// 67 % high below a chart title. Points from the chart area's top-left corner.

#include <cstdint>

#include "frame/chart.h"

namespace orv {

struct ChartRectangle {
  double left = 0, top = 0, width = 0, height = 0;
};

ChartRectangle standardPlotArea(double chartWidth, double chartHeight, bool hasTitle);

// The marker a host draws for a series that has error bars and an automatic marker: a 4-point
// circle in the palette's mid blue (index 41). The bars are drawn in black over their points, and a
// large dark marker would hide bars shorter than itself, caps included.
inline constexpr std::int32_t kErrorBarsMarkerSize = 4;
inline constexpr std::int32_t kErrorBarsMarkerColorIndex = 41;

// The width of a border of the host's weight: hairline 0.25, thin 0.75, medium 1.5, thick 2.25.
double borderWeightPoints(host::BorderWeight weight);

// Font sizes the host takes: 1 to 409 points.
bool isFontSize(double points);

}  // namespace orv
