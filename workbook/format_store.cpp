#include "workbook/format_store.h"

#include <algorithm>
#include <unordered_map>

namespace orv {
namespace {

std::size_t toIndex(std::int32_t i) { return static_cast<std::size_t>(i); }

bool wholeSheet(const CellBlock& b) { return b.wholeColumns() && b.wholeRows(); }

}  // namespace

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
    const Column& col = columns_[toIndex(column - 1)];
    const auto found = col.cells.find(row);
    if (found != col.cells.end()) return styles_[found->second];
  }
  return styles_[fallback(column)];
}

void FormatStore::set(std::int32_t row, std::int32_t column, const CellFormat& format) {
  const StyleId id = intern(format);
  this->column(column).cells[row] = id;
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
    const StyleId base = fallback(c);
    auto& cells = column(c).cells;
    for (std::int32_t r = block.top; r <= block.bottom; ++r) {
      auto [it, inserted] = cells.try_emplace(r, base);
      it->second = patchedId(it->second);
    }
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
        col.cells.erase(col.cells.lower_bound(block.top), col.cells.upper_bound(block.bottom));
      }
    }
    // A cleared cell takes the plain format even where its column or the sheet has another.
    if (fallback(c) == kPlain) continue;
    if (block.wholeColumns()) {
      column(c).whole = kPlain;
    } else {
      auto& cells = column(c).cells;
      for (std::int32_t r = block.top; r <= block.bottom; ++r) cells[r] = kPlain;
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
