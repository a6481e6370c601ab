#pragma once
// The layout the host chooses for a chart by itself: the automatic scale of a value axis and the
// automatic plot area. Builders read these values and compute their own layout from them, so
// they follow the spreadsheet's rules closely rather than exactly.

#include <vector>

#include "workbook/chart_model.h"

namespace orv {

struct AxisScale {
  double minimum = 0;
  double maximum = 1;
  double majorUnit = 0.2;
};

// The scale of a value axis over the given values (any order; empty means no data, 0 to 1).
// Non-negative data whose minimum is below 5/6 of the maximum start at 0, non-positive data whose
// maximum is above 5/6 of the minimum end at 0; otherwise the data's range is widened by a 20th
// at that end. The major unit is the smallest step of 1, 2 or 5 times a power of ten that covers
// the widened range in at most 10 intervals, and both ends are multiples of it: data 0..7.6 give
// a maximum of 8, 0..9.5 give 10, 0..11 give 12. A single value v > 0 scales as 0..v.
AxisScale automaticValueScale(const std::vector<double>& values);

// The plot area the host lays out in a chart area of the given size (points): the standard one
// (frame/chart_layout.h).
PlotAreaModel automaticPlotArea(double chartWidth, double chartHeight, bool hasTitle);

}  // namespace orv
