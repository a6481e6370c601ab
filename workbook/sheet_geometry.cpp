#include "workbook/sheet_geometry.h"

#include <cmath>

#include "frame/errors.h"

namespace orv {
namespace {

double sizeOf(const std::map<std::int32_t, double>& custom, std::int32_t index, double standard) {
  const auto found = custom.find(index);
  return found == custom.end() ? standard : found->second;
}

// Edge of `index`: the standard sizes of every line before it, corrected by the custom ones.
double edge(const std::map<std::int32_t, double>& custom, std::int32_t index, double standard) {
  double position = static_cast<double>(index - 1) * standard;
  for (auto it = custom.begin(); it != custom.end() && it->first < index; ++it) {
    position += it->second - standard;
  }
  return position;
}

void checkSize(double points, double largest, const char* what) {
  if (!std::isfinite(points) || points < 0.0 || points > largest) {
    raiseHost(std::string("Unable to set the ") + what + " property of the Range class");
  }
}

}  // namespace

double SheetGeometry::rowHeight(std::int32_t row) const { return sizeOf(rowHeights_, row, defaultRowHeight_); }

double SheetGeometry::columnWidth(std::int32_t column) const {
  return sizeOf(columnWidths_, column, defaultColumnWidth_);
}

double SheetGeometry::rowTop(std::int32_t row) const { return edge(rowHeights_, row, defaultRowHeight_); }

double SheetGeometry::columnLeft(std::int32_t column) const { return edge(columnWidths_, column, defaultColumnWidth_); }

void SheetGeometry::setRowHeight(std::int32_t row, double points) {
  checkSize(points, kMaxRowHeight, "RowHeight");
  rowHeights_[row] = points;
}

void SheetGeometry::setColumnWidth(std::int32_t column, double points) {
  checkSize(points, HUGE_VAL, "ColumnWidth");
  columnWidths_[column] = points;
}

void SheetGeometry::setDefaultRowHeight(double points) {
  checkSize(points, kMaxRowHeight, "StandardHeight");
  defaultRowHeight_ = points;
}

void SheetGeometry::setDefaultColumnWidth(double points) {
  checkSize(points, HUGE_VAL, "StandardWidth");
  defaultColumnWidth_ = points;
}

}  // namespace orv
