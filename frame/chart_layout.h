#pragma once
// Chart measures every host shares, in points.
//
// standardPlotArea: the plot area a chart lays out by itself until a builder sets it, as the
// component's chart arithmetic expects it (the builders move it from there): 10 % of the chart's
// width in from the left and 85 % wide; 12 % of its height down and 75 % high, or 20 % down and
// 67 % high below a chart title. Points from the chart area's top-left corner.

#include "frame/chart.h"

namespace orv {

struct ChartRectangle {
  double left = 0, top = 0, width = 0, height = 0;
};

ChartRectangle standardPlotArea(double chartWidth, double chartHeight, bool hasTitle);

// The width of a border of the host's weight: hairline 0.25, thin 0.75, medium 1.5, thick 2.25.
double borderWeightPoints(host::BorderWeight weight);

// Font sizes the host takes: 1 to 409 points.
bool isFontSize(double points);

}  // namespace orv
