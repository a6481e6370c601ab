// Storing the scanned cells: within the workbook's memory limits, and in an order that keeps
// the load linear when a file lists cells out of order.

#include <algorithm>
#include <string>
#include <utility>

#include "frame/reference.h"
#include "workbook/in_memory_worksheet.h"
#include "xlsx/reader_errors.h"
#include "xlsx/reader_sheet_scanner.h"

namespace orv::detail {

void SheetScanner::store(CellValue value) {
  stored_ = true;
  const auto index = static_cast<std::size_t>(column_ - 1);
  if (spans_.size() <= index) spans_.resize(index + 1);
  Span& span = spans_[index];
  const std::uint64_t before = span.first == 0 ? 0 : static_cast<std::uint64_t>(span.last - span.first + 1);
  if (span.first == 0) {
    span = {row_, row_};
  } else {
    // A cell above the stored ones would shift its whole column; from here on the cells are
    // collected and stored in order at the end, which keeps the load linear.
    if (row_ < span.first) deferring_ = true;
    span.first = std::min(span.first, row_);
    span.last = std::max(span.last, row_);
  }
  localCells_ += static_cast<std::uint64_t>(span.last - span.first + 1) - before;
  const std::uint64_t earlier = options_.usedCells == nullptr ? 0 : *options_.usedCells;
  if (earlier + localCells_ > options_.maxStoredCells) {
    raiseDamaged("is refused: its sheet \"" + sheet_.Name() + "\" spreads its cells over more than " +
                 std::to_string(options_.maxStoredCells) +
                 " cell slots, more than this program holds in memory (the cell count limit)");
  }
  if (value.isText()) {
    const std::uint64_t bytes = value.text().size();
    if (bytes > options_.maxStringBytes) {
      raiseDamaged("is refused: the cell " + columnLetters(column_) + std::to_string(row_) + " of the sheet \"" +
                   sheet_.Name() + "\" holds a text longer than " + std::to_string(options_.maxStringBytes) +
                   " bytes (the text length limit)");
    }
    localTextBytes_ += bytes;
    const std::uint64_t earlierText = options_.usedTextBytes == nullptr ? 0 : *options_.usedTextBytes;
    if (earlierText + localTextBytes_ > options_.maxTextBytes) {
      raiseDamaged("is refused: its cells hold more than " + std::to_string(options_.maxTextBytes) +
                   " bytes of text in all, counting each shared string once per cell (the total text limit)");
    }
  }
  if (deferring_) {
    deferred_.push_back({row_, column_, std::move(value)});
  } else {
    sheet_.storeRaw(row_, column_, std::move(value));
  }
}

void SheetScanner::flushDeferred() {
  // Stable, so that of two cells at one place the later in the file wins, as when stored directly.
  std::stable_sort(deferred_.begin(), deferred_.end(), [](const Deferred& a, const Deferred& b) {
    return a.column != b.column ? a.column < b.column : a.row < b.row;
  });
  for (Deferred& d : deferred_) sheet_.storeRaw(d.row, d.column, std::move(d.value));
  deferred_.clear();
}

}  // namespace orv::detail
