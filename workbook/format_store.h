#pragma once
// The cell formats of one worksheet. Distinct formats live once in a small table; cells refer
// to them by id at three levels, the most specific winning: single cells, whole columns, and the
// sheet default. Changing or clearing the whole sheet therefore touches the default and the few
// cells and columns that carry formats of their own, never the 17 billion cells of the grid.
//
// Coordinates are 1-based and must lie on the sheet (the worksheet checks them).

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <vector>

#include "frame/cell_format.h"
#include "frame/reference.h"

namespace orv {

class FormatStore {
 public:
  FormatStore();

  const CellFormat& format(std::int32_t row, std::int32_t column) const;
  void set(std::int32_t row, std::int32_t column, const CellFormat& format);
  // Changes the given fields of every cell of the block. Whole-sheet and whole-column blocks
  // change the sheet or column default; other blocks cost one step per cell.
  void apply(const CellBlock& block, const FormatPatch& patch);
  // Gives every cell of the block the plain format.
  void clear(const CellBlock& block);

  // For writers of the sheet: the default, the columns with a format of their own, and the cells
  // with a format of their own (column by column, rows ascending).
  const CellFormat& sheetDefault() const { return styles_[sheetDefault_]; }
  void forEachColumnFormat(const std::function<void(std::int32_t, const CellFormat&)>& visit) const;
  void forEachCellFormat(
      const std::function<void(std::int32_t row, std::int32_t column, const CellFormat&)>& visit) const;

 private:
  using StyleId = std::uint32_t;
  static constexpr StyleId kPlain = 0;  // CellFormat{}

  struct Column {
    std::optional<StyleId> whole;     // the format of the column as a whole
    std::map<std::int32_t, StyleId> cells;  // row -> format of that cell
  };

  StyleId intern(const CellFormat& format);
  StyleId fallback(std::int32_t column) const;  // the format of a cell without one of its own
  Column& column(std::int32_t column);

  std::vector<CellFormat> styles_;
  StyleId sheetDefault_ = kPlain;
  std::vector<Column> columns_;  // index column - 1; grown to the highest formatted column
};

}  // namespace orv
