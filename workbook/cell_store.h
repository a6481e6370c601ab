#pragma once
// The values of one worksheet, stored column by column. Each column keeps one contiguous vector
// of cells from its first to its last non-empty row, so reading a column block is a single copy
// and a 32767-row column costs no lookup per cell.
//
// Coordinates are 1-based and must lie on the sheet (the worksheet checks them). Values are
// stored as given: any conversion of assigned texts happens before they get here.

#include <cstdint>
#include <optional>
#include <vector>

#include "frame/cell_value.h"
#include "frame/reference.h"
#include "frame/value_array.h"

namespace orv {

class CellStore {
 public:
  // The cell's value; empty for a cell never written.
  const CellValue& get(std::int32_t row, std::int32_t column) const;
  // Storing an empty value frees the cell.
  void set(std::int32_t row, std::int32_t column, CellValue value);
  // `out` becomes block.rows() x block.columns(), cells outside the stored ones empty.
  void read(const CellBlock& block, ValueArray2D& out) const;
  void clear(const CellBlock& block);
  void clearAll() { columns_.clear(); }
  // The smallest block holding every non-empty cell; none when there is none.
  std::optional<CellBlock> usedBlock() const;

 private:
  struct Column {
    std::int32_t first = 1;  // sheet row of cells.front()
    std::vector<CellValue> cells;

    std::int32_t last() const { return first + static_cast<std::int32_t>(cells.size()) - 1; }
    // Drops empty cells at both ends so that first and last stay tight.
    void trim();
  };

  std::vector<Column> columns_;  // index column - 1; grown to the highest written column
};

}  // namespace orv
