#include "calc/sheet_values.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace orv::calc {
namespace {

using Grid = TileGrid<CellValue>;

std::optional<CellBlock> unite(const std::optional<CellBlock>& a, const std::optional<CellBlock>& b) {
  if (!a) return b;
  if (!b) return a;
  return CellBlock{std::min(a->top, b->top), std::min(a->left, b->left), std::max(a->bottom, b->bottom),
                   std::max(a->right, b->right)};
}

std::optional<CellBlock> intersect(const CellBlock& a, const CellBlock& b) {
  const CellBlock c{std::max(a.top, b.top), std::max(a.left, b.left), std::min(a.bottom, b.bottom),
                    std::min(a.right, b.right)};
  if (c.top > c.bottom || c.left > c.right) return std::nullopt;
  return c;
}

std::int32_t tileTop(std::int32_t row) { return (row - 1) / Grid::kTileRows * Grid::kTileRows + 1; }
std::int32_t tileLeft(std::int32_t column) { return (column - 1) / Grid::kTileColumns * Grid::kTileColumns + 1; }

}  // namespace

std::optional<CellBlock> SheetValues::outerUsedBlock() {
  if (!officeUsed_) officeUsed_ = source_->usedBlock();
  return unite(*officeUsed_, writtenUsed_);
}

std::optional<CellBlock> SheetValues::usedBlock() {
  if (mayHaveShrunk_) {
    flush();
    officeUsed_.reset();
    writtenUsed_.reset();
    mayHaveShrunk_ = false;
  }
  return outerUsedBlock();
}

CellValue SheetValues::get(std::int32_t row, std::int32_t column) {
  if (const CellValue* v = grid_.find(row, column)) return *v;
  load(CellBlock{row, column, row, column});
  const CellValue* v = grid_.find(row, column);
  return v ? *v : CellValue{};
}

void SheetValues::read(const CellBlock& block, ValueArray2D& out) {
  load(block);
  for (CellValue& v : out.cells()) v = CellValue{};
  // Only the used part can hold anything: a whole column costs what its data cost.
  const std::optional<CellBlock> used = outerUsedBlock();
  const std::optional<CellBlock> part = used ? intersect(block, *used) : std::nullopt;
  if (!part) return;
  for (std::int32_t r = part->top; r <= part->bottom; ++r) {
    for (std::int32_t c = part->left; c <= part->right; ++c) {
      if (const CellValue* v = grid_.find(r, c)) out(r - block.top + 1, c - block.left + 1) = *v;
    }
  }
}

void SheetValues::set(std::int32_t row, std::int32_t column, CellValue value) {
  if (value.isEmpty()) {
    mayHaveShrunk_ = true;
  } else {
    writtenUsed_ = unite(writtenUsed_, CellBlock{row, column, row, column});
  }
  grid_.write(row, column, std::move(value));
}

// Cells outside the used block stay unknown in the grid and read as empty; inside it, every
// tile that is not complete is read, band by band, in runs of adjacent tiles.
void SheetValues::load(const CellBlock& block) {
  const std::optional<CellBlock> used = outerUsedBlock();
  if (!used) return;
  const std::optional<CellBlock> part = intersect(block, *used);
  if (!part) return;
  for (std::int32_t left = tileLeft(part->left); left <= part->right; left += Grid::kTileColumns) {
    std::optional<std::int32_t> runTop;
    for (std::int32_t top = tileTop(part->top); top <= part->bottom; top += Grid::kTileRows) {
      const bool missing = !grid_.tileComplete(top, left);
      if (missing && !runTop) runTop = top;
      if (!missing && runTop) {
        loadBand(left, left + Grid::kTileColumns - 1, *runTop, top - 1);
        runTop.reset();
      }
    }
    if (runTop) loadBand(left, left + Grid::kTileColumns - 1, *runTop, tileTop(part->bottom) + Grid::kTileRows - 1);
  }
}

void SheetValues::loadBand(std::int32_t left, std::int32_t right, std::int32_t top, std::int32_t bottom) {
  const CellBlock band{top, left, std::min(bottom, kMaxRows), std::min(right, kMaxColumns)};
  const std::optional<CellBlock> part = intersect(band, *outerUsedBlock());
  if (part) {
    ValueArray2D values(part->rows(), part->columns());
    source_->read(*part, values);
    for (std::int32_t r = part->top; r <= part->bottom; ++r) {
      for (std::int32_t c = part->left; c <= part->right; ++c) {
        grid_.learn(r, c, std::move(values(r - part->top + 1, c - part->left + 1)));
      }
    }
  }
  // The rest of the band's tiles lies outside the used block: empty.
  for (std::int32_t r = band.top; r <= band.bottom; ++r) {
    for (std::int32_t c = band.left; c <= band.right; ++c) {
      if (!part || !part->contains(r, c)) grid_.learn(r, c, CellValue{});
    }
  }
}

void SheetValues::flush() {
  if (!pending()) return;
  std::vector<std::pair<std::int32_t, std::int32_t>> cells;
  cells.reserve(grid_.dirtyCount());
  grid_.forEachDirty([&](std::int32_t r, std::int32_t c, const CellValue&) { cells.emplace_back(r, c); });
  for (const CellBlock& block : coveringBlocks(std::move(cells))) {
    ValueArray2D values(block.rows(), block.columns());
    for (std::int32_t r = block.top; r <= block.bottom; ++r) {
      for (std::int32_t c = block.left; c <= block.right; ++c) {
        values(r - block.top + 1, c - block.left + 1) = *grid_.find(r, c);
      }
    }
    source_->write(block, values);
  }
  grid_.markSent();
}

void SheetValues::cleared(const CellBlock& block) {
  grid_.forget(block);
  if (block.wholeRows() && block.wholeColumns()) {
    officeUsed_ = std::optional<CellBlock>{};
    writtenUsed_.reset();
    mayHaveShrunk_ = false;
  } else {
    mayHaveShrunk_ = true;
  }
}

}  // namespace orv::calc
