#pragma once
// TileGrid<T>: what the host knows of a sheet's cells, kept in tiles of 256 rows by 16 columns
// that are made on first touch, so that a large sheet costs memory only where it was read or
// written.
//
// Every cell is unknown (the office has it, we have not read it), known (read from the office,
// or written and sent) or dirty (written here, not yet sent). Reading from the office fills
// unknown cells only: a dirty cell is newer than what the office holds.

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "frame/reference.h"

namespace orv::calc {

template <class T>
class TileGrid {
 public:
  static constexpr std::int32_t kTileRows = 256;
  static constexpr std::int32_t kTileColumns = 16;
  static constexpr std::size_t kTileCells = std::size_t{kTileRows} * kTileColumns;

  enum class State : std::uint8_t { Unknown, Known, Dirty };

  // The value of a known or dirty cell; nullptr for an unknown one.
  const T* find(std::int32_t row, std::int32_t column) const {
    const Tile* t = tileAt(row, column);
    if (t == nullptr) return nullptr;
    const std::size_t i = indexIn(row, column);
    return t->state[i] == State::Unknown ? nullptr : &t->cells[i];
  }

  // A value read from the office; a dirty cell keeps its own.
  void learn(std::int32_t row, std::int32_t column, T value) {
    Tile& t = tileFor(row, column);
    const std::size_t i = indexIn(row, column);
    if (t.state[i] == State::Dirty) return;
    if (t.state[i] == State::Unknown) --t.unknown;
    t.state[i] = State::Known;
    t.cells[i] = std::move(value);
  }

  // A value written here, to be sent.
  void write(std::int32_t row, std::int32_t column, T value) {
    Tile& t = tileFor(row, column);
    const std::size_t i = indexIn(row, column);
    if (t.state[i] == State::Unknown) --t.unknown;
    if (t.state[i] != State::Dirty) ++dirty_;
    t.state[i] = State::Dirty;
    t.cells[i] = std::move(value);
  }

  // Whether every cell of the tile holding (row, column) is known or dirty.
  bool tileComplete(std::int32_t row, std::int32_t column) const {
    const Tile* t = tileAt(row, column);
    return t != nullptr && t->unknown == 0;
  }

  std::size_t dirtyCount() const { return dirty_; }

  // Calls visit(row, column, value) for every dirty cell, in no particular order.
  template <class Visit>
  void forEachDirty(Visit&& visit) const {
    if (dirty_ == 0) return;
    for (const auto& [key, t] : tiles_) {
      const std::int32_t top = static_cast<std::int32_t>(key >> 32) * kTileRows + 1;
      const std::int32_t left = static_cast<std::int32_t>(key & 0xffffffffu) * kTileColumns + 1;
      for (std::size_t i = 0; i < kTileCells; ++i) {
        if (t->state[i] != State::Dirty) continue;
        visit(top + static_cast<std::int32_t>(i / kTileColumns), left + static_cast<std::int32_t>(i % kTileColumns),
              t->cells[i]);
      }
    }
  }

  // After sending: every dirty cell becomes known.
  void markSent() {
    if (dirty_ == 0) return;
    for (auto& [key, t] : tiles_) {
      for (State& s : t->state) {
        if (s == State::Dirty) s = State::Known;
      }
    }
    dirty_ = 0;
  }

  // The cells of the block become unknown; tiles left without a known cell are dropped.
  void forget(const CellBlock& block) {
    if (block.wholeRows() && block.wholeColumns()) {
      tiles_.clear();
      dirty_ = 0;
      return;
    }
    for (auto it = tiles_.begin(); it != tiles_.end();) {
      Tile& t = *it->second;
      const std::int32_t top = static_cast<std::int32_t>(it->first >> 32) * kTileRows + 1;
      const std::int32_t left = static_cast<std::int32_t>(it->first & 0xffffffffu) * kTileColumns + 1;
      for (std::int32_t r = std::max(top, block.top); r <= std::min(top + kTileRows - 1, block.bottom); ++r) {
        for (std::int32_t c = std::max(left, block.left); c <= std::min(left + kTileColumns - 1, block.right); ++c) {
          const std::size_t i = indexIn(r, c);
          if (t.state[i] == State::Dirty) --dirty_;
          if (t.state[i] != State::Unknown) ++t.unknown;
          t.state[i] = State::Unknown;
        }
      }
      it = t.unknown == static_cast<std::int32_t>(kTileCells) ? tiles_.erase(it) : std::next(it);
    }
  }

  // Calls visit(value) for every known or dirty cell of the block that has a tile.
  template <class Visit>
  void forEachKnownIn(const CellBlock& block, Visit&& visit) {
    for (auto& [key, t] : tiles_) {
      const std::int32_t top = static_cast<std::int32_t>(key >> 32) * kTileRows + 1;
      const std::int32_t left = static_cast<std::int32_t>(key & 0xffffffffu) * kTileColumns + 1;
      for (std::int32_t r = std::max(top, block.top); r <= std::min(top + kTileRows - 1, block.bottom); ++r) {
        for (std::int32_t c = std::max(left, block.left); c <= std::min(left + kTileColumns - 1, block.right); ++c) {
          const std::size_t i = indexIn(r, c);
          if (t->state[i] != State::Unknown) visit(t->cells[i]);
        }
      }
    }
  }

 private:
  struct Tile {
    std::vector<T> cells = std::vector<T>(kTileCells);
    std::vector<State> state = std::vector<State>(kTileCells, State::Unknown);
    std::int32_t unknown = static_cast<std::int32_t>(kTileCells);
  };

  static std::uint64_t keyOf(std::int32_t row, std::int32_t column) {
    return (static_cast<std::uint64_t>((row - 1) / kTileRows) << 32) |
           static_cast<std::uint64_t>((column - 1) / kTileColumns);
  }
  static std::size_t indexIn(std::int32_t row, std::int32_t column) {
    return static_cast<std::size_t>((row - 1) % kTileRows) * kTileColumns +
           static_cast<std::size_t>((column - 1) % kTileColumns);
  }
  const Tile* tileAt(std::int32_t row, std::int32_t column) const {
    const auto it = tiles_.find(keyOf(row, column));
    return it == tiles_.end() ? nullptr : it->second.get();
  }
  Tile& tileFor(std::int32_t row, std::int32_t column) {
    std::unique_ptr<Tile>& t = tiles_[keyOf(row, column)];
    if (!t) t = std::make_unique<Tile>();
    return *t;
  }

  std::unordered_map<std::uint64_t, std::unique_ptr<Tile>> tiles_;
  std::size_t dirty_ = 0;
};

// Rectangles that cover exactly the given cells, so that each can be sent in one call: runs of
// adjacent cells in a row, stacked with runs of the same columns in the rows below. Cells are
// (row, column) pairs in any order, without repeats. A block written whole comes back as itself.
std::vector<CellBlock> coveringBlocks(std::vector<std::pair<std::int32_t, std::int32_t>> cells);

}  // namespace orv::calc
