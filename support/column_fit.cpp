#include "support/column_fit.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "frame/host.h"
#include "support/displayed_text.h"
#include "support/text_width.h"

namespace orv {
namespace {

// Room the sheet keeps around a cell's text, and its gridline.
constexpr double kMarginPixels = 8;
constexpr double kPixelsPerPoint = 96.0 / 72.0;

// A text that the sheet lets run on into the empty cell to its right.
bool runsOn(Worksheet& sheet, const CellValue& value, const CellFormat& format, std::int32_t row, std::int32_t column) {
  if (!value.isText()) return false;
  if (format.horizontalAlignment == HAlign::Center || format.horizontalAlignment == HAlign::Right) return false;
  return column < kMaxColumns && sheet.cellValue(row, column + 1).isEmpty();
}

// What each column's widest cell needs, in points of text.
std::map<std::int32_t, double> textWidths(Worksheet& sheet, const std::vector<Range>& areas) {
  std::map<std::int32_t, double> widest;
  for (const Range& range : areas) {
    for (const CellBlock& block : range.areas()) {
      const ValueArray2D values = Range(sheet, block).Values();
      for (std::int32_t r = 1; r <= values.rows(); ++r) {
        for (std::int32_t c = 1; c <= values.columns(); ++c) {
          const CellValue& value = values(r, c);
          if (value.isEmpty()) continue;
          const std::int32_t row = block.top + r - 1, column = block.left + c - 1;
          const CellFormat format = sheet.cellFormat(row, column);
          if (runsOn(sheet, value, format, row, column)) continue;
          const double width = textWidthPoints(displayedText(value, format.numberFormat), format.fontSize, format.bold);
          double& needed = widest[column];
          needed = std::max(needed, width);
        }
      }
    }
  }
  return widest;
}

}  // namespace

double fittedColumnWidth(double textPoints) {
  // A hair below a whole pixel counts as that pixel: sums of widths carry rounding noise.
  const double pixels = std::ceil(textPoints * kPixelsPerPoint - 1e-9) + kMarginPixels;
  return std::clamp(pixels / kPixelsPerPoint, kFittedColumnMinimum, kFittedColumnMaximum);
}

void fitColumnWidths(const std::vector<Range>& areas, bool ownSheet) {
  if (areas.empty()) return;
  Worksheet& sheet = areas.front().Parent();
  for (const auto& [column, text] : textWidths(sheet, areas)) {
    const double width = fittedColumnWidth(text);
    const double current = sheet.columnWidth(column);
    const bool fits = ownSheet ? width != current : !sheet.columnWidthSet(column) && width > current;
    if (fits) sheet.setColumnWidth(column, width);
  }
}

}  // namespace orv
