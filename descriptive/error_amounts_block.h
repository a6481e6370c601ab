#pragma once
// The error plot's bar lengths, written as cells below the pasted table.
//
// For the error bars "Range", "Interpercentile Range" and "Confidence Limits" the table holds the
// limits, not the distances the bars reach from the centre, so no table cell holds what the chart
// draws, and readers that take a chart's numbers from cells only would show the points without
// bars. So the distances go below the table, under a heading one empty row below its last row,
// in the table's own columns:
//
//   Data for Error Bars
//                 Control  Fertiliser  Shade
//   Above Mean       2.66       3.225  2.008
//   Below Mean       2.74       2.875   2.09
//
// and the bars refer to those cells. Nothing is written when any of those cells already holds
// something or they would pass the sheet's edge (support/results_below.h): the chart then keeps
// the distances as a list.

#include <optional>

#include "frame/range.h"
#include "frame/value_array.h"

namespace orv {

struct ErrorAmountCells {
  Range above;  // one row: a cell per data column
  Range below;
  Range area;  // from the heading to the last distance
};

// `pasted`: the pasted block. `namesRow` and `centreRow` are rows of it: the table's column names
// stand in columns 2..C+1 of the first, the centre's label ("Mean", "Median") in column 1 of the
// second. `above` and `below` hold the distances, one per data column (C of each).
std::optional<ErrorAmountCells> writeErrorAmounts(const Range& pasted, std::int32_t namesRow, std::int32_t centreRow,
                                                  const ValueArray1D& above, const ValueArray1D& below);

}  // namespace orv
