#include "calc/sheet_formats.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <string>

namespace orv::calc {
namespace {

using Grid = TileGrid<std::uint32_t>;

// Materialising the default format into a patched block costs a tile entry a cell; beyond this
// many cells the host forgets the default instead and reads the cells when it needs them.
constexpr std::int64_t kMaxMaterialisedCells = std::int64_t{1} << 20;

std::string keyOf(const CellFormat& f) {
  std::string key = f.numberFormat;
  char buffer[64];
  const auto add = [&](auto value) {
    key += '\x1f';
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    key.append(buffer, end);
  };
  add(f.bold ? 1 : 0);
  add(f.fontSize);
  add(f.fontColorIndex);
  add(f.interiorColorIndex);
  add(static_cast<int>(f.horizontalAlignment));
  return key;
}

bool wholeSheet(const CellBlock& b) { return b.wholeRows() && b.wholeColumns(); }

}  // namespace

std::uint32_t SheetFormats::intern(const CellFormat& format) {
  const auto [it, added] = numbers_.try_emplace(keyOf(format), static_cast<std::uint32_t>(formats_.size()));
  if (added) formats_.push_back(format);
  return it->second;
}

CellFormat SheetFormats::get(std::int32_t row, std::int32_t column) {
  if (const std::uint32_t* id = grid_.find(row, column)) return formats_[*id];
  if (base_) return formats_[*base_];
  sendPatches();
  const std::int32_t top = (row - 1) / Grid::kTileRows * Grid::kTileRows + 1;
  const std::int32_t left = (column - 1) / Grid::kTileColumns * Grid::kTileColumns + 1;
  const CellBlock tile{top, left, std::min(top + Grid::kTileRows - 1, kMaxRows),
                       std::min(left + Grid::kTileColumns - 1, kMaxColumns)};
  const std::vector<CellFormat> read = source_->read(tile);
  std::size_t i = 0;
  for (std::int32_t r = tile.top; r <= tile.bottom; ++r) {
    for (std::int32_t c = tile.left; c <= tile.right; ++c) grid_.learn(r, c, intern(read.at(i++)));
  }
  return formats_[*grid_.find(row, column)];
}

void SheetFormats::set(std::int32_t row, std::int32_t column, const CellFormat& format) {
  grid_.write(row, column, intern(format));
}

void SheetFormats::patch(const CellBlock& block, const FormatPatch& patch) {
  std::map<std::uint32_t, std::uint32_t> patched;
  const auto patchedId = [&](std::uint32_t id) {
    const auto found = patched.find(id);
    if (found != patched.end()) return found->second;
    CellFormat f = formats_[id];
    patch.applyTo(f);
    const std::uint32_t to = intern(f);
    patched.emplace(id, to);
    return to;
  };
  grid_.forEachKnownIn(block, [&](std::uint32_t& id) { id = patchedId(id); });
  if (base_) {
    if (wholeSheet(block)) {
      base_ = patchedId(*base_);
    } else if (std::int64_t{block.rows()} * block.columns() <= kMaxMaterialisedCells) {
      const std::uint32_t to = patchedId(*base_);
      for (std::int32_t r = block.top; r <= block.bottom; ++r) {
        for (std::int32_t c = block.left; c <= block.right; ++c) {
          if (grid_.find(r, c) == nullptr) grid_.learn(r, c, to);
        }
      }
    } else {
      base_.reset();
    }
  }
  patches_.emplace_back(block, patch);
}

void SheetFormats::sendPatches() {
  for (const auto& [block, patch] : patches_) source_->patch(block, patch);
  patches_.clear();
}

void SheetFormats::flush() {
  sendPatches();
  if (grid_.dirtyCount() == 0) return;
  std::map<std::uint32_t, std::vector<std::pair<std::int32_t, std::int32_t>>> cellsByFormat;
  grid_.forEachDirty([&](std::int32_t r, std::int32_t c, std::uint32_t id) { cellsByFormat[id].emplace_back(r, c); });
  for (auto& [id, cells] : cellsByFormat) source_->set(coveringBlocks(std::move(cells)), formats_[id]);
  grid_.markSent();
}

void SheetFormats::cleared(const CellBlock& block, std::optional<CellFormat> whole) {
  grid_.forget(block);
  if (wholeSheet(block) && whole) {
    base_ = intern(*whole);
  } else {
    base_.reset();
  }
}

}  // namespace orv::calc
