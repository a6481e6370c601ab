#include "support/input_columns.h"

#include "frame/conversions.h"

namespace orv {
namespace {

// "$B$7" -> "B": the text between the leading "$" and the next one.
std::string columnLettersOf(const std::string& address) {
  const std::size_t second = address.find('$', 1);
  return address.substr(1, second == std::string::npos ? std::string::npos : second - 1);
}

}  // namespace

std::vector<InputColumn> inputColumns(const Range& input) {
  std::vector<InputColumn> columns;
  for (std::int32_t a = 1; a <= input.AreasCount(); ++a) {
    for (std::int32_t c = 1; c <= input.Areas(a).ColumnsCount(); ++c) columns.push_back({a, c});
  }
  return columns;
}

Range columnData(const Range& input, InputColumn at, std::int32_t firstRow) {
  const Range column = input.Areas(at.area).Columns(at.column);
  return Range::Span(column.Cells(firstRow, 1), column.Cells(column.RowsCount(), 1));
}

ColumnValues readColumn(const Range& input, InputColumn at, std::int32_t firstRow) {
  const Range data = columnData(input, at, firstRow);
  if (data.CellCount() == 1) return ColumnValues{data.Value(), {}};
  return ColumnValues{std::nullopt, data.Values()};
}

std::string columnName(const Range& input, InputColumn at, bool headers) {
  const Range nameCell = input.Areas(at.area).Cells(1, at.column);
  return headers ? toText(nameCell.Value()) : "Column " + columnLettersOf(nameCell.AddressLocal());
}

}  // namespace orv
