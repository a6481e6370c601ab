#pragma once
// clsPlotError: one centre value per data column (a mean, say) with error bars above and below
// it, drawn beside results already written to a sheet. The plus and minus amounts are distances
// from the centre, one per column, given either as a range of cells or as an array of numbers;
// the range and array setters of one side write the same field, so the later call wins.
//
// CreatePlot draws a line chart with markers whose single series has no joining line and
// custom, capped vertical error bars; placement, size and formatting follow clsPlotBox (offsets
// and sizes in points; a vertical offset that reaches the sheet's last row is dropped). Every
// call draws a new chart.
//
// Errors leave as ComponentError with the source of the member ("... clsPlotError.CreatePlot").
// The HeadersRange setter reports itself as "SetOutputRange", like the OutputRange setter. A range
// used before it is set raises 91; amounts that were never set make the host's ErrorBar fail
// (1004). A chart already added stays on the sheet when a later step fails.

#include <cstdint>
#include <optional>
#include <string>

#include "frame/chart.h"
#include "frame/range.h"
#include "frame/value_array.h"
#include "support/chart_settings.h"
#include "support/plot_frame.h"

namespace orv {

class clsPlotError : public PlotFrame {
 public:
  clsPlotError();

  void OutputRange(const Range& cell);
  void HeadersRange(const Range& cells);
  void CentreRange(const Range& cells);
  void ErrorPosRange(const Range& cells);
  void ErrorNegRange(const Range& cells);
  // Stored as given; the host accepts arrays of numbers only. An array that also stands in
  // cells (frame/chart.h, AmountList) is handed on with them.
  void ErrorPosArray(const AmountList& distances);
  void ErrorNegArray(const AmountList& distances);

  void CreatePlot();

 private:
  std::optional<Range> output_, headers_, centre_;
  ErrorAmount plus_, minus_;
  ChartSettings settings_;
};

}  // namespace orv
