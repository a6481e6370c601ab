#pragma once
// The data columns of an input range that may have several areas, as the drivers walk them:
// area by area, left to right, each column's data below an optional header cell.

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "frame/range.h"
#include "frame/value_array.h"

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

// A column's data cells as the host reads them: one value for a single cell (Range.Value), an
// array for any other block (Range.Value of a block). Plain values, free of the host, so that
// any thread may take them.
struct ColumnValues {
  std::optional<CellValue> single;
  ValueArray2D cells;
};

// Reads columnData(input, at, firstRow) on the calling thread.
ColumnValues readColumn(const Range& input, InputColumn at, std::int32_t firstRow);

// Hands a column to a calculation object's Data as the host's value would be handed to it.
template <class Engine>
void giveData(Engine& engine, ColumnValues column) {
  if (column.single) {
    engine.Data(*column.single);
  } else {
    engine.Data(std::move(column.cells));
  }
}

}  // namespace orv
