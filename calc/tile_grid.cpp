#include "calc/tile_grid.h"

#include <algorithm>
#include <map>

namespace orv::calc {

std::vector<CellBlock> coveringBlocks(std::vector<std::pair<std::int32_t, std::int32_t>> cells) {
  std::sort(cells.begin(), cells.end());
  std::vector<CellBlock> blocks;
  // Rectangles that reached the previous row, by their columns; they may grow by one row.
  std::map<std::pair<std::int32_t, std::int32_t>, std::size_t> open, next;
  std::int32_t row = 0;
  for (std::size_t i = 0; i < cells.size();) {
    if (cells[i].first != row) {
      if (cells[i].first != row + 1) open.clear();
      else open.swap(next);
      next.clear();
      row = cells[i].first;
    }
    // One run: adjacent columns of this row.
    const std::int32_t left = cells[i].second;
    std::int32_t right = left;
    ++i;
    while (i < cells.size() && cells[i].first == row && cells[i].second == right + 1) {
      ++right;
      ++i;
    }
    const auto found = open.find({left, right});
    if (found != open.end()) {
      blocks[found->second].bottom = row;
      next[{left, right}] = found->second;
    } else {
      next[{left, right}] = blocks.size();
      blocks.push_back(CellBlock{row, left, row, right});
    }
  }
  return blocks;
}

}  // namespace orv::calc
