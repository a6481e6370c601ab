#pragma once
// ResultsCursor: where a results writer stands on the scratch sheet ("Results" of "Orvella.xla")
// while it writes, shared by the descriptive and the frequency writers. It holds the sheet row for
// the next line and the widest column written so far, and hands out cells of the sheet by their
// one-based coordinates.

#include <cstdint>

#include "frame/numerics.h"
#include "frame/range.h"

namespace orv {

class Worksheet;

class ResultsCursor {
 public:
  // Not yet on a sheet: start() comes first, inside the writer's own error trap.
  ResultsCursor() = default;

  // Clears the scratch sheet, fills it with the background colour, and stands at row 1 with a
  // block one column wide.
  void start(std::int32_t backgroundColorIndex);

  // The sheet row where the next line goes, and moving it down, in 32 bits: leaving the range is
  // an overflow (6).
  Int32 row() const { return row_; }
  void advance(Int32 lines) { row_ += lines; }
  // The block now reaches at least `columns` columns wide.
  void widen(std::int32_t columns);

  // The block from (top, left) to (bottom, right); outside the sheet is a host failure.
  Range cells(std::int32_t top, std::int32_t left, std::int32_t bottom, std::int32_t right) const;
  Range cell(std::int32_t row, std::int32_t column) const { return cells(row, column, row, column); }

  // The written block, from A1 to the current row and the widest column. A block still one
  // column wide is widened to six first.
  Range block();

 private:
  Worksheet* sheet_ = nullptr;
  Int32 row_ = 1;
  Int32 lastColumn_ = 1;
};

}  // namespace orv
