#pragma once
// The histogram's own numbers, written as cells below the pasted frequency block.
//
// The "from - to" category labels and the counts a normal curve expects are in no table cell.
// Chart series that hold literal values are dropped by some readers (LibreOffice draws neither a
// literal line nor literal labels), and literal numbers cannot be checked or edited by the user.
// So they are written under the block, one empty row below it:
//
//   Data for Histogram
//   <name of variable 1>          <name of variable 2> ...    (each over its own five columns)
//   Category   Normal             Category   Normal
//   10 - 20    2.41               ...
//
// and the charts refer to those cells. Nothing is written, and the caller keeps the literal
// values, when any cell of that area already holds something (results pasted into a user's sheet
// above their data) or the area would pass the sheet's last row (support/results_below.h).

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "frame/range.h"

namespace orv {

struct HistogramExtras {
  std::int32_t left = 1;  // the variable's first column, relative to the block's origin
  CellValue name;         // the variable's heading
  std::optional<std::vector<std::string>> labels;
  std::optional<std::vector<double>> normal;
};

struct HistogramExtraCells {
  std::optional<Range> labels;
  std::optional<Range> normal;
};

struct HistogramDataCells {
  std::vector<HistogramExtraCells> variables;  // one entry per element of `extras`, in order
  Range area;                                  // from the heading to the last value
};

// Nothing when the area is not free (support/results_below.h).
std::optional<HistogramDataCells> writeHistogramData(const Range& origin, std::int32_t blockRows,
                                                     const std::vector<HistogramExtras>& extras);

}  // namespace orv
