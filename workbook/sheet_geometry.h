#pragma once
// Row heights and column widths of one worksheet, in points. Rows are 15 pt and columns 48 pt
// unless a default or a single row or column says otherwise, and the edges of any row or column
// are known at a cost that grows with the number of custom sizes, not with the row number.
//
// Rows 1..kMaxRows, columns 1..kMaxColumns (the worksheet checks them); the edge functions also
// take kMaxRows + 1 and kMaxColumns + 1, the bottom and right edges of the sheet.

#include <cstdint>
#include <map>

namespace orv {

inline constexpr double kDefaultRowHeight = 15.0;
inline constexpr double kDefaultColumnWidth = 48.0;
// The host's largest row height.
inline constexpr double kMaxRowHeight = 409.5;

class SheetGeometry {
 public:
  double rowHeight(std::int32_t row) const;
  double columnWidth(std::int32_t column) const;
  // Distance from the top edge of row 1 to the top edge of `row`; likewise for columns.
  double rowTop(std::int32_t row) const;
  double columnLeft(std::int32_t column) const;

  // Sizes must be finite and not negative (0 hides the row or column), row heights at most
  // 409.5; anything else is a host failure (1004).
  void setRowHeight(std::int32_t row, double points);
  void setColumnWidth(std::int32_t column, double points);
  void setDefaultRowHeight(double points);
  void setDefaultColumnWidth(double points);

  double defaultRowHeight() const { return defaultRowHeight_; }
  double defaultColumnWidth() const { return defaultColumnWidth_; }
  const std::map<std::int32_t, double>& customRowHeights() const { return rowHeights_; }
  const std::map<std::int32_t, double>& customColumnWidths() const { return columnWidths_; }

 private:
  double defaultRowHeight_ = kDefaultRowHeight;
  double defaultColumnWidth_ = kDefaultColumnWidth;
  std::map<std::int32_t, double> rowHeights_;
  std::map<std::int32_t, double> columnWidths_;
};

}  // namespace orv
