#pragma once
// The plot area a chart lays out by itself until a builder sets it, as the component's chart
// arithmetic expects it (the builders move it from there): 10 % of the chart's width in from the
// left and 85 % wide; 12 % of its height down and 75 % high, or 20 % down and 67 % high below a
// chart title. Points from the chart area's top-left corner.

namespace orv {

struct ChartRectangle {
  double left = 0, top = 0, width = 0, height = 0;
};

ChartRectangle standardPlotArea(double chartWidth, double chartHeight, bool hasTitle);

}  // namespace orv
