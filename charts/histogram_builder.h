#pragma once
// HistogramBuilder: the histogram of one variable of a frequency table already on a sheet.
//
// Columns of the counts with no gap between them (series "Frequency"); optionally a smooth line
// "Normal" of expected counts on the same axes, and a line "Cumulative %" of cumulative
// percentages (percent numbers) on a secondary axis from 0 to 100. Counts and cumulative
// percentages come from cells, so the chart follows edits of the table; the category labels and
// the expected counts come from cells or are literal values. The normal curve is red and the
// cumulative line black: the host's automatic colours for a second and third series (magenta,
// yellow) are hard to see on white.
// The cumulative line runs straight from point to point, and so does the normal curve when the
// cumulative line is drawn (some readers smooth all lines of a chart alike, and a smoothed
// cumulative line would swing above 100 %); the percent axis shows labels without an axis line.
// A legend is shown below the plot, in 8-point type, when there is more than one series; the
// plot area (tick labels included) leaves room for the titles and the legend. Placement as the
// other builders: the output cell's corner moved by the offsets (points), a vertical offset that
// reaches the sheet's last row dropped. Titles: 10-point, the chart's bold; empty means none.
// Every call draws a new chart.
//
// Errors leave as ComponentError with the source "Line 0 in ORVDescriptives.HistogramBuilder.
// <member>"; the output cell, counts or labels used before they are set raise 91; what the host
// refuses (labels and counts of different lengths are not checked here) is a host failure.

#include <cstdint>
#include <optional>
#include <string>

#include "frame/chart.h"
#include "frame/range.h"
#include "frame/value_array.h"
#include "support/chart_settings.h"
#include "support/plot_frame.h"

namespace orv {

// Placement, size and titles as the other plot builders (PlotFrame); 300 points wide by default.
class HistogramBuilder : public PlotFrame {
 public:
  HistogramBuilder();

  void OutputRange(const Range& cell);
  void XAxisTitle(const std::string& title);

  // One cell per category each, top to bottom.
  void CategoryLabels(const SeriesSource& labels);
  void CountsRange(const Range& cells);
  void NormalCounts(const SeriesSource& expected);   // not set: no normal curve
  void CumulativePercentsRange(const Range& cells);  // not set: no cumulative line

  void CreatePlot();

 private:
  std::optional<Range> output_, counts_, cumulative_;
  std::optional<SeriesSource> labels_;
  std::optional<SeriesSource> normal_;
  std::string xAxisTitle_;
  ChartSettings settings_;
};

}  // namespace orv
