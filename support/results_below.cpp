#include "support/results_below.h"

#include "frame/reference.h"
#include "frame/value_array.h"

namespace orv {

std::int32_t lastUsedRow(const Range& block) {
  const ValueArray2D cells = block.Values();
  for (std::int32_t r = cells.rows(); r >= 1; --r) {
    for (std::int32_t c = 1; c <= cells.columns(); ++c) {
      if (!cells(r, c).isEmpty()) return r;
    }
  }
  return 0;
}

std::optional<Range> freeCellsBelow(const Range& origin, std::int64_t top, std::int32_t left, std::int64_t bottom,
                                    std::int32_t right) {
  const CellBlock& at = origin.block();
  if (at.top + bottom - 1 > kMaxRows || at.left + std::int64_t{right} - 1 > kMaxColumns) return std::nullopt;
  const Range area = Range::Span(origin.Cells(top, left), origin.Cells(bottom, right));
  const ValueArray2D cells = area.Values();
  for (const CellValue& v : cells.cells()) {
    if (!v.isEmpty()) return std::nullopt;
  }
  return area;
}

}  // namespace orv
