#include "support/results_cursor.h"

#include "support/results_sheet.h"

namespace orv {

void ResultsCursor::start(std::int32_t backgroundColorIndex) {
  sheet_ = &clearedResultsSheet(backgroundColorIndex);
  row_ = 1;
  lastColumn_ = 1;
}

void ResultsCursor::widen(std::int32_t columns) {
  if (columns > lastColumn_.value()) lastColumn_ = columns;
}

Range ResultsCursor::cells(std::int32_t top, std::int32_t left, std::int32_t bottom, std::int32_t right) const {
  return sheetCells(*sheet_, top, left, bottom, right);
}

Range ResultsCursor::block() {
  if (lastColumn_ == 1) lastColumn_ = 6;
  return cells(1, 1, row_.value(), lastColumn_.value());
}

}  // namespace orv
