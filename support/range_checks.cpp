#include "support/range_checks.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <string>

#include "frame/errors.h"
#include "frame/host.h"
#include "frame/procedure.h"

namespace orv {
namespace {

constexpr Procedures kProc("RangeChecks");

std::optional<CellBlock> intersect(const CellBlock& a, const CellBlock& b) {
  const CellBlock c{std::max(a.top, b.top), std::max(a.left, b.left), std::min(a.bottom, b.bottom),
                    std::min(a.right, b.right)};
  if (c.top > c.bottom || c.left > c.right) return std::nullopt;
  return c;
}

CellBlock singleCell(std::int32_t row, std::int32_t column) { return CellBlock{row, column, row, column}; }

// The part of `block` that can hold anything: cells outside the sheet's used block are empty.
// This keeps a whole-column range (1,048,576 rows) as cheap as the data it really holds.
std::optional<CellBlock> occupiedPart(const Worksheet& sheet, const CellBlock& block) {
  const std::optional<CellBlock> used = sheet.usedBlock();
  if (!used) return std::nullopt;
  return intersect(block, *used);
}

bool analysable(const CellValue& v) { return v.isNumber() || v.isEmpty(); }

// Scans one area column by column, top to bottom, so that the cell named is the first one a
// reader meets going down the column.
void checkArea(Worksheet& sheet, const CellBlock& area, bool headers) {
  CellBlock data = area;
  if (headers) ++data.top;
  if (data.top > data.bottom) return;
  const std::optional<CellBlock> part = occupiedPart(sheet, data);
  if (!part) return;

  // One block read; the scan then walks the row-major cells without per-cell host calls.
  const ValueArray2D values = Range(sheet, *part).Values();
  const std::vector<CellValue>& cells = values.cells();
  const auto width = static_cast<std::size_t>(values.columns());
  for (std::size_t c = 0; c < width; ++c) {
    for (std::size_t i = c; i < cells.size(); i += width) {
      if (analysable(cells[i])) continue;
      const auto row = part->top + static_cast<std::int32_t>(i / width);
      const auto column = part->left + static_cast<std::int32_t>(c);
      raise(err::kInputColumnNotNumeric, "Cell " + Range(sheet, singleCell(row, column)).AddressWithSheet() +
                                             " holds " + describe(cells[i]) +
                                             "; only numbers and empty cells can be analysed.");
    }
  }
}

}  // namespace

void RangeChecks::CheckInputColumn(const Range& column, bool headers) {
  kProc("CheckInputColumn", [&] {
    for (const CellBlock& area : column.areas()) checkArea(column.Parent(), area, headers);
  });
}

Range RangeChecks::CheckOutputArea(const Range& output, std::int32_t columns, std::int32_t rows, bool overWrite) {
  return kProc("CheckOutputArea", [&] {
    if (overWrite || columns < 1 || rows < 1) return output;

    // The block is cut at the sheet's edge: a results block that does not fit fails when it
    // is pasted, with the host's own message.
    const CellBlock& anchor = output.block();
    const CellBlock target{
        anchor.top, anchor.left,
        static_cast<std::int32_t>(std::min<std::int64_t>(std::int64_t{anchor.top} + rows - 1, kMaxRows)),
        static_cast<std::int32_t>(std::min<std::int64_t>(std::int64_t{anchor.left} + columns - 1, kMaxColumns))};
    Worksheet& sheet = output.Parent();
    const std::optional<CellBlock> part = occupiedPart(sheet, target);
    if (!part) return output;

    // Reading order (row by row) finds the cell a reader sees first in the area.
    const ValueArray2D values = Range(sheet, *part).Values();
    const std::vector<CellValue>& cells = values.cells();
    const auto width = static_cast<std::size_t>(values.columns());
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (cells[i].isEmpty()) continue;
      const auto row = part->top + static_cast<std::int32_t>(i / width);
      const auto column = part->left + static_cast<std::int32_t>(i % width);
      raise(err::kOutputAreaOccupied, "The output area " + Range(sheet, target).AddressWithSheet() +
                                          " already holds data (first at " + absoluteAddress(singleCell(row, column)) +
                                          "); choose another place or allow overwriting.");
    }
    return output;
  });
}

std::int32_t RangeChecks::CountVariables(const Range& range, bool headers, bool dataInRows) {
  // The header cell heads its variable; it adds no variable of its own.
  static_cast<void>(headers);
  return kProc("CountVariables", [&] {
    std::int64_t count = 0;
    for (const CellBlock& area : range.areas()) count += dataInRows ? area.rows() : area.columns();
    // At most 16384 areas of at most 1,048,576 rows each could exceed 32 bits.
    if (count > std::numeric_limits<std::int32_t>::max()) raise(err::kOverflow);
    return static_cast<std::int32_t>(count);
  });
}

}  // namespace orv
