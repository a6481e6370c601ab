#pragma once
// The cell formats of one worksheet. Distinct formats live once in a small table; cells refer
// to them by id at three levels, the most specific winning: single cells, whole columns, and the
// sheet default. Changing or clearing the whole sheet therefore touches the default and the few
// cells and columns that carry formats of their own, never the 17 billion cells of the grid.
//
// Coordinates are 1-based and must lie on the sheet (the worksheet checks them).

#include <cstdint>
#include <functional>
#include <optional>
#include <utility>
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

  // The cells of a column with a format of their own, as (row, format) sorted by row. A sorted
  // vector rather than a tree: eight bytes a cell, and results are formatted top to bottom, so
  // new rows nearly always go at the end.
  struct Column {
    using Entry = std::pair<std::int32_t, StyleId>;
    std::optional<StyleId> whole;  // the format of the column as a whole
    std::vector<Entry> cells;

    const StyleId* find(std::int32_t row) const;
    // Rows top..bottom get change(their format, or `base` for rows without one); one pass over
    // the column however the block lies.
    template <class Change>
    void update(std::int32_t top, std::int32_t bottom, StyleId base, Change&& change);
    void erase(std::int32_t top, std::int32_t bottom);
  };

  StyleId intern(const CellFormat& format);
  StyleId fallback(std::int32_t column) const;  // the format of a cell without one of its own
  Column& column(std::int32_t column);

  std::vector<CellFormat> styles_;
  StyleId sheetDefault_ = kPlain;
  std::vector<Column> columns_;  // index column - 1; grown to the highest formatted column
};

}  // namespace orv
