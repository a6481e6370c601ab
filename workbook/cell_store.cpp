#include "workbook/cell_store.h"

#include <algorithm>
#include <iterator>

namespace orv {
namespace {

const CellValue kEmpty{};

std::size_t toIndex(std::int64_t i) { return static_cast<std::size_t>(i); }

}  // namespace

void CellStore::Column::trim() {
  while (!cells.empty() && cells.back().isEmpty()) cells.pop_back();
  auto firstFull = std::find_if(cells.begin(), cells.end(), [](const CellValue& v) { return !v.isEmpty(); });
  const auto dropped = std::distance(cells.begin(), firstFull);
  if (dropped > 0) {
    cells.erase(cells.begin(), firstFull);
    first += static_cast<std::int32_t>(dropped);
  }
  if (cells.empty()) first = 1;
}

const CellValue& CellStore::get(std::int32_t row, std::int32_t column) const {
  if (toIndex(column) > columns_.size()) return kEmpty;
  const Column& col = columns_[toIndex(column - 1)];
  if (col.cells.empty() || row < col.first || row > col.last()) return kEmpty;
  return col.cells[toIndex(row - col.first)];
}

void CellStore::set(std::int32_t row, std::int32_t column, CellValue value) {
  if (value.isEmpty()) {
    if (toIndex(column) > columns_.size()) return;
    Column& col = columns_[toIndex(column - 1)];
    if (col.cells.empty() || row < col.first || row > col.last()) return;
    col.cells[toIndex(row - col.first)] = CellValue{};
    if (row == col.first || row == col.last()) col.trim();
    return;
  }
  if (toIndex(column) > columns_.size()) columns_.resize(toIndex(column));
  Column& col = columns_[toIndex(column - 1)];
  if (col.cells.empty()) {
    col.first = row;
  } else if (row < col.first) {
    // Writing above the stored cells moves them down once; readers write top to bottom.
    col.cells.insert(col.cells.begin(), toIndex(col.first - row), CellValue{});
    col.first = row;
  }
  if (row > col.last()) col.cells.resize(toIndex(row - col.first + 1));
  col.cells[toIndex(row - col.first)] = std::move(value);
}

void CellStore::read(const CellBlock& block, ValueArray2D& out) const {
  // Range::Values hands in an array of the right shape already; reuse it rather than allocate.
  if (out.rows() == block.rows() && out.columns() == block.columns()) {
    std::fill(out.cells().begin(), out.cells().end(), CellValue{});
  } else {
    out = ValueArray2D(block.rows(), block.columns());
  }
  const std::int32_t lastColumn = std::min<std::int32_t>(block.right, static_cast<std::int32_t>(columns_.size()));
  const auto width = toIndex(block.columns());
  for (std::int32_t c = block.left; c <= lastColumn; ++c) {
    const Column& col = columns_[toIndex(c - 1)];
    if (col.cells.empty()) continue;
    const std::int32_t from = std::max(block.top, col.first);
    const std::int32_t to = std::min(block.bottom, col.last());
    if (from > to) continue;
    auto src = col.cells.begin() + (from - col.first);
    const auto count = toIndex(to - from + 1);
    auto& cells = out.cells();
    const std::size_t start = toIndex(from - block.top) * width + toIndex(c - block.left);
    if (width == 1) {
      std::copy_n(src, count, cells.begin() + static_cast<std::ptrdiff_t>(start));
    } else {
      for (std::size_t i = 0; i < count; ++i) cells[start + i * width] = *src++;
    }
  }
}

void CellStore::clear(const CellBlock& block) {
  const std::int32_t lastColumn = std::min<std::int32_t>(block.right, static_cast<std::int32_t>(columns_.size()));
  for (std::int32_t c = block.left; c <= lastColumn; ++c) {
    Column& col = columns_[toIndex(c - 1)];
    if (col.cells.empty()) continue;
    const std::int32_t from = std::max(block.top, col.first);
    const std::int32_t to = std::min(block.bottom, col.last());
    if (from > to) continue;
    std::fill(col.cells.begin() + (from - col.first), col.cells.begin() + (to - col.first + 1), CellValue{});
    col.trim();
  }
  while (!columns_.empty() && columns_.back().cells.empty()) columns_.pop_back();
}

std::optional<CellBlock> CellStore::usedBlock() const {
  std::optional<CellBlock> used;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const Column& col = columns_[i];
    if (col.cells.empty()) continue;
    const auto c = static_cast<std::int32_t>(i + 1);
    if (!used) {
      used = CellBlock{col.first, c, col.last(), c};
    } else {
      used->top = std::min(used->top, col.first);
      used->bottom = std::max(used->bottom, col.last());
      used->right = c;
    }
  }
  return used;
}

}  // namespace orv
