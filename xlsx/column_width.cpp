#include "xlsx/column_width.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "frame/reference.h"
#include "workbook/sheet_geometry.h"

namespace orv {
namespace {

constexpr double kMaxDigitWidthPx = 7.0;

}  // namespace

double columnWidthPoints(double characters) {
  const double w = std::clamp(characters, 0.0, 255.0);
  const double pixels = std::trunc((256.0 * w + std::trunc(128.0 / 7.0)) / 256.0 * 7.0);
  return pixels * 0.75;
}

double columnWidthCharacters(double points) {
  const double pixels = std::round(points * 96.0 / 72.0);
  return std::floor(pixels / kMaxDigitWidthPx * 256.0) / 256.0;
}

void applyColumnWidths(SheetGeometry& geometry, const std::vector<ColumnWidth>& widths) {
  if (widths.empty()) return;
  // Walking the elements backwards and skipping columns already set costs each column once;
  // `next` links each set column to the next one that may still be unset.
  std::vector<std::int32_t> next(static_cast<std::size_t>(kMaxColumns) + 2);
  std::iota(next.begin(), next.end(), 0);
  auto find = [&next](std::int32_t c) {
    std::int32_t root = c;
    while (next[static_cast<std::size_t>(root)] != root) root = next[static_cast<std::size_t>(root)];
    while (next[static_cast<std::size_t>(c)] != root) {
      const std::int32_t up = next[static_cast<std::size_t>(c)];
      next[static_cast<std::size_t>(c)] = root;
      c = up;
    }
    return root;
  };
  for (auto width = widths.rbegin(); width != widths.rend(); ++width) {
    for (std::int32_t c = find(width->first); c <= width->last; c = find(c + 1)) {
      if (width->points != geometry.defaultColumnWidth()) geometry.setColumnWidth(c, width->points);
      next[static_cast<std::size_t>(c)] = c + 1;
    }
  }
}

}  // namespace orv
