#include "support/statistics_table.h"

#include "frame/host.h"

namespace orv {

Int16 countColumns(const Range& input) {
  Int16 columns = 0;
  for (std::int32_t a = 1; a <= input.AreasCount(); ++a) {
    columns += Int16::from(input.Areas(a).ColumnsCount());
  }
  return columns;
}

StatisticsTable::StatisticsTable(Int16 rows, Int16 columns) : matrix(rows, columns + 1), names(columns) {}

std::string sheetAddress(const Range& range) { return range.Parent().Name() + "!" + range.Address(); }

}  // namespace orv
