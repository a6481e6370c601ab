#pragma once
// ScatterChartBuilder: one XY chart of points, drawn beside results already on a sheet; the
// circular analysis draws one per data column, its points on the unit circle.
//
// Set the offsets (points from the output cell's top-left corner), the output cell, the X and Y
// ranges (one column each, the same length; an empty Y column gives a chart without points), the
// title and the size in points, then call CreatePlot. The chart is square in its plot area, both
// axes run from -1 to 1 in steps of 0.5 and cross at the centre, there are no gridlines and no
// legend, the title is 10-point bold (none when empty) and tick labels are 8-point. A vertical
// offset that reaches the sheet's last row is dropped. Every call draws a new chart.
//
// Errors leave as ComponentError with the source "Line 0 in ORVDescriptives.ScatterChartBuilder.
// <member>"; a range used before it is set raises 91 (object variable not set); what the host
// refuses is a host failure (1004).

#include <cstdint>
#include <optional>
#include <string>

#include "frame/range.h"
#include "support/chart_settings.h"
#include "support/plot_frame.h"

namespace orv {

// Placement, size and title as PlotFrame (its axis title goes unused).
class ScatterChartBuilder : public PlotFrame {
 public:
  ScatterChartBuilder();

  void OutputRange(const Range& cell);
  void XValuesRange(const Range& cells);
  void YValuesRange(const Range& cells);

  void CreatePlot();

 private:
  std::optional<Range> output_, x_, y_;
  ChartSettings settings_;
};

}  // namespace orv
