#include "workbook/format_store.h"

#include <algorithm>
#include <unordered_map>

namespace orv {
namespace {

std::size_t toIndex(std::int32_t i) { return static_cast<std::size_t>(i); }

bool wholeSheet(const CellBlock& b) { return b.wholeColumns() && b.wholeRows(); }

bool rowBefore(const std::pair<std::int32_t, std::uint32_t>& entry, std::int32_t row) { return entry.first < row; }

}  // namespace

const FormatStore::StyleId* FormatStore::Column::find(std::int32_t row) const {
  const auto at = std::lower_bound(cells.begin(), cells.end(), row, rowBefore);
  return at != cells.end() && at->first == row ? &at->second : nullptr;
}

template <class Change>
void FormatStore::Column::update(std::int32_t top, std::int32_t bottom, StyleId base, Change&& change) {
  if (cells.empty() || cells.back().first < top) {
    // Below every stored row: appended in order.
    // Grown geometrically: cell-by-cell pastes append one row at a time.
    const std::size_t needed = cells.size() + toIndex(bottom - top + 1);
    if (needed > cells.capacity()) cells.reserve(std::max(needed, 2 * cells.capacity()));
    for (std::int32_t r = top; r <= bottom; ++r) cells.emplace_back(r, change(base));
    return;
  }
  const auto first = std::lower_bound(cells.begin(), cells.end(), top, rowBefore);
  const auto last = std::lower_bound(first, cells.end(), bottom + 1, rowBefore);
  if (last - first == bottom - top + 1) {
    // Every row of the block has a format already: changed in place.
    for (auto it = first; it != last; ++it) it->second = change(it->second);
    return;
  }
  std::vector<Entry> merged;
  merged.reserve(cells.size() + toIndex(bottom - top + 1));
  merged.insert(merged.end(), cells.begin(), first);
  auto it = first;
  for (std::int32_t r = top; r <= bottom; ++r) {
    if (it != last && it->first == r) {
      merged.emplace_back(r, change(it->second));
      ++it;
    } else {
      merged.emplace_back(r, change(base));
    }
  }
  merged.insert(merged.end(), last, cells.end());
  cells = std::move(merged);
}

void FormatStore::Column::erase(std::int32_t top, std::int32_t bottom) {
  const auto first = std::lower_bound(cells.begin(), cells.end(), top, rowBefore);
  const auto last = std::lower_bound(first, cells.end(), bottom + 1, rowBefore);
  cells.erase(first, last);
}

FormatStore::FormatStore() : styles_{CellFormat{}} {}

FormatStore::StyleId FormatStore::intern(const CellFormat& format) {
  // The table stays small (a results sheet uses a handful of formats), so a scan is enough.
  const auto found = std::find(styles_.begin(), styles_.end(), format);
  if (found != styles_.end()) return static_cast<StyleId>(found - styles_.begin());
  styles_.push_back(format);
  return static_cast<StyleId>(styles_.size() - 1);
}

FormatStore::StyleId FormatStore::fallback(std::int32_t column) const {
  if (toIndex(column) <= columns_.size()) {
    const auto& whole = columns_[toIndex(column - 1)].whole;
    if (whole) return *whole;
  }
  return sheetDefault_;
}

FormatStore::Column& FormatStore::column(std::int32_t column) {
  if (toIndex(column) > columns_.size()) columns_.resize(toIndex(column));
  return columns_[toIndex(column - 1)];
}

const CellFormat& FormatStore::format(std::int32_t row, std::int32_t column) const {
  if (toIndex(column) <= columns_.size()) {
    if (const StyleId* own = columns_[toIndex(column - 1)].find(row)) return styles_[*own];
  }
  return styles_[fallback(column)];
}

void FormatStore::set(std::int32_t row, std::int32_t column, const CellFormat& format) {
  const StyleId id = intern(format);
  this->column(column).update(row, row, id, [id](StyleId) { return id; });
}

void FormatStore::apply(const CellBlock& block, const FormatPatch& patch) {
  // Many cells share few formats: patch each distinct format once.
  std::unordered_map<StyleId, StyleId> patched;
  auto patchedId = [&](StyleId id) {
    const auto known = patched.find(id);
    if (known != patched.end()) return known->second;
    CellFormat f = styles_[id];
    patch.applyTo(f);
    const StyleId result = intern(f);
    patched.emplace(id, result);
    return result;
  };

  if (block.wholeColumns()) {
    const bool sheet = wholeSheet(block);
    if (sheet) sheetDefault_ = patchedId(sheetDefault_);
    const std::int32_t last = sheet ? static_cast<std::int32_t>(columns_.size()) : block.right;
    for (std::int32_t c = block.left; c <= last; ++c) {
      Column& col = column(c);
      if (col.whole || !sheet) col.whole = patchedId(col.whole.value_or(sheetDefault_));
      for (auto& [row, id] : col.cells) id = patchedId(id);
    }
    return;
  }
  for (std::int32_t c = block.left; c <= block.right; ++c) {
    column(c).update(block.top, block.bottom, fallback(c), patchedId);
  }
}

void FormatStore::clear(const CellBlock& block) {
  if (wholeSheet(block)) {
    styles_.assign(1, CellFormat{});
    sheetDefault_ = kPlain;
    columns_.clear();
    return;
  }
  const std::int32_t stored = static_cast<std::int32_t>(columns_.size());
  for (std::int32_t c = block.left; c <= block.right; ++c) {
    if (c <= stored) {
      Column& col = columns_[toIndex(c - 1)];
      if (block.wholeColumns()) {
        col.cells.clear();
        col.whole.reset();
      } else {
        col.erase(block.top, block.bottom);
      }
    }
    // A cleared cell takes the plain format even where its column or the sheet has another.
    if (fallback(c) == kPlain) continue;
    if (block.wholeColumns()) {
      column(c).whole = kPlain;
    } else {
      column(c).update(block.top, block.bottom, kPlain, [](StyleId) { return kPlain; });
    }
  }
}

void FormatStore::forEachColumnFormat(const std::function<void(std::int32_t, const CellFormat&)>& visit) const {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (columns_[i].whole) visit(static_cast<std::int32_t>(i + 1), styles_[*columns_[i].whole]);
  }
}

void FormatStore::forEachCellFormat(
    const std::function<void(std::int32_t, std::int32_t, const CellFormat&)>& visit) const {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    for (const auto& [row, id] : columns_[i].cells) visit(row, static_cast<std::int32_t>(i + 1), styles_[id]);
  }
}

}  // namespace orv
