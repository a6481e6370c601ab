#include "descriptive/error_amounts_block.h"

#include <string>
#include <string_view>

#include "frame/conversions.h"
#include "support/cell_formatter.h"
#include "support/results_below.h"

namespace orv {
namespace {

constexpr std::string_view kHeading = "Data for Error Bars";
constexpr std::string_view kAbove = "Above ";
constexpr std::string_view kBelow = "Below ";

// Rows below the block's last used one: a free row, then the heading.
constexpr std::int32_t kGap = 2;

Range rowOf(const Range& origin, std::int32_t row, std::int32_t columns) {
  return Range::Span(origin.Cells(row, 2), origin.Cells(row, std::int64_t{columns} + 1));
}

}  // namespace

std::optional<ErrorAmountCells> writeErrorAmounts(const Range& pasted, std::int32_t namesRow, std::int32_t centreRow,
                                                  const ValueArray1D& above, const ValueArray1D& below) {
  const std::int32_t columns = above.size();
  const Range origin = pasted.Cells(1, 1);
  const std::int32_t heading = lastUsedRow(pasted) + kGap;
  const std::optional<Range> area = freeCellsBelow(origin, heading, 1, std::int64_t{heading} + 3, columns + 1);
  if (!area) return std::nullopt;

  const CellFormatter formatter;
  origin.Cells(heading, 1).SetValue(CellValue(std::string(kHeading)));
  formatter.EmphasisFormat(origin.Cells(heading, 1), true);

  const Range names = rowOf(origin, heading + 1, columns);
  names.SetValues(rowOf(origin, namesRow, columns).Values());
  formatter.LabelFormat(names, false);

  const std::string centre = toText(origin.Cells(centreRow, 1).Value());
  const Range labels = Range::Span(origin.Cells(heading + 2, 1), origin.Cells(heading + 3, 1));
  ValueArray2D labelCells(2, 1);
  labelCells(1, 1) = CellValue(std::string(kAbove) + centre);
  labelCells(2, 1) = CellValue(std::string(kBelow) + centre);
  labels.SetValues(labelCells);
  formatter.LabelFormat(labels, true);

  ErrorAmountCells cells{rowOf(origin, heading + 2, columns), rowOf(origin, heading + 3, columns), *area};
  for (const auto& [row, distances] : {std::pair{&cells.above, &above}, std::pair{&cells.below, &below}}) {
    ValueArray2D values(1, columns);
    for (std::int32_t i = 1; i <= columns; ++i) values(1, i) = (*distances)(i);
    row->SetValues(values);
  }
  formatter.ValueFormat(Range::Span(cells.above, cells.below), true);
  return cells;
}

}  // namespace orv
