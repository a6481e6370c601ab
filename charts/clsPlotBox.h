#pragma once
// clsPlotBox: a box-and-whisker chart of several data columns, drawn beside results already
// written to a sheet. Each range holds one cell per data column: the names (categories), medians,
// lower and upper percentiles (box bottoms and tops), minima and maxima (whisker ends).
//
// The host has no box plot, so CreatePlot builds an open-high-low-close stock chart of the series
// lower percentile, minimum, maximum and upper percentile (the up bars are the boxes, the
// high-low lines the whiskers) and adds the medians twice on the secondary group, whose value
// axis it deletes so that they share the primary scale. Offsets and sizes are in points; the
// chart is anchored at the output cell's top-left corner plus the offsets (a vertical offset that
// reaches the sheet's last row is dropped). Every CreatePlot call draws a new chart.
//
// Errors leave as ComponentError with the source of the member ("... clsPlotBox.CreatePlot",
// "... clsPlotBox.SetOutputRange"). A range used before it is set raises 91; a chart already
// added stays on the sheet when a later step fails.

#include <cstdint>
#include <optional>
#include <string>

#include "frame/range.h"
#include "support/chart_settings.h"
#include "support/plot_frame.h"

namespace orv {

class clsPlotBox : public PlotFrame {
 public:
  clsPlotBox();

  void OutputRange(const Range& cell);
  void HeadersRange(const Range& cells);
  void MedianRange(const Range& cells);
  void LPRange(const Range& cells);
  void UPRange(const Range& cells);
  void MinRange(const Range& cells);
  void MaxRange(const Range& cells);

  void CreatePlot();

 private:
  std::optional<Range> output_, headers_, median_, lowerPercentile_, upperPercentile_, minimum_, maximum_;
  ChartSettings settings_;
};

}  // namespace orv
