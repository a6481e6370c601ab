#pragma once
// The data columns of an input range that may have several areas, as the drivers walk them:
// area by area, left to right, each column's data below an optional header cell.

#include <cstdint>
#include <string>
#include <vector>

#include "frame/range.h"

namespace orv {

struct InputColumn {
  std::int32_t area;    // 1-based area of the input
  std::int32_t column;  // 1-based column within that area
};

std::vector<InputColumn> inputColumns(const Range& input);

// The column's cells from `firstRow` of its area (2 when row 1 holds headers) to its last row.
Range columnData(const Range& input, InputColumn at, std::int32_t firstRow);

// The text of the column's first cell with headers; without, "Column B" after its letters.
std::string columnName(const Range& input, InputColumn at, bool headers);

}  // namespace orv
