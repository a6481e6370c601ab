#include "frequency/histogram_data_block.h"

#include <algorithm>

#include "frame/reference.h"
#include "frame/value_array.h"
#include "support/cell_formatter.h"
#include "support/results_below.h"

namespace orv {
namespace {

constexpr std::string_view kHeading = "Data for Histogram";
constexpr std::string_view kLabelsName = "Category";
constexpr std::string_view kNormalName = "Normal";
constexpr std::string_view kNormalFormat = "0.00";

// Rows below the block's last one: a free row, the heading, the names, the column names.
constexpr std::int32_t kGap = 2;
constexpr std::int32_t kValuesBelowHeading = 3;

std::size_t lengthOf(const HistogramExtras& e) {
  return std::max(e.labels ? e.labels->size() : 0, e.normal ? e.normal->size() : 0);
}

Range span(const Range& origin, std::int32_t top, std::int32_t left, std::int32_t bottom, std::int32_t right) {
  return Range::Span(origin.Cells(top, left), origin.Cells(bottom, right));
}

template <class T>
Range writeColumn(const Range& origin, std::int32_t top, std::int32_t column, const std::vector<T>& values) {
  const Range cells = span(origin, top, column, top + static_cast<std::int32_t>(values.size()) - 1, column);
  ValueArray2D array(static_cast<std::int32_t>(values.size()), 1);
  for (std::size_t i = 0; i < values.size(); ++i) array(static_cast<std::int32_t>(i) + 1, 1) = CellValue(values[i]);
  cells.SetValues(array);
  return cells;
}

}  // namespace

std::optional<HistogramDataCells> writeHistogramData(const Range& origin, std::int32_t blockRows,
                                                     const std::vector<HistogramExtras>& extras) {
  std::size_t longest = 0;
  std::int32_t right = 1;
  for (const HistogramExtras& e : extras) {
    longest = std::max(longest, lengthOf(e));
    right = std::max(right, e.left + 1);
  }
  if (longest == 0) return std::nullopt;

  const std::int32_t heading = blockRows + kGap;
  const std::int32_t first = heading + kValuesBelowHeading;
  const std::int64_t last = first + static_cast<std::int64_t>(longest) - 1;
  const std::optional<Range> area = freeCellsBelow(origin, heading, 1, last, right);
  if (!area) return std::nullopt;

  const CellFormatter formatter;
  origin.Cells(heading, 1).SetValue(CellValue(std::string(kHeading)));
  formatter.EmphasisFormat(origin.Cells(heading, 1), true);

  HistogramDataCells written{{}, *area};
  for (const HistogramExtras& e : extras) {
    HistogramExtraCells cells;
    if (lengthOf(e) > 0) {
      origin.Cells(heading + 1, e.left).SetValue(e.name);
      formatter.LabelFormat(origin.Cells(heading + 1, e.left), true);
    }
    if (e.labels && !e.labels->empty()) {
      origin.Cells(heading + 2, e.left).SetValue(CellValue(std::string(kLabelsName)));
      formatter.LabelFormat(origin.Cells(heading + 2, e.left), false);
      cells.labels = writeColumn(origin, first, e.left, *e.labels);
      formatter.ValueFormat(*cells.labels, false);
    }
    if (e.normal && !e.normal->empty()) {
      origin.Cells(heading + 2, e.left + 1).SetValue(CellValue(std::string(kNormalName)));
      formatter.LabelFormat(origin.Cells(heading + 2, e.left + 1), false);
      cells.normal = writeColumn(origin, first, e.left + 1, *e.normal);
      cells.normal->SetNumberFormat(std::string(kNormalFormat));
      formatter.ValueFormat(*cells.normal, false);
    }
    written.variables.push_back(std::move(cells));
  }
  return written;
}

}  // namespace orv
