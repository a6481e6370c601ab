// clsFreq: the histogram, drawn from the pasted block.

#include <optional>
#include <string>
#include <vector>

#include "charts/histogram_builder.h"
#include "frame/conversions.h"
#include "frame/host.h"
#include "frequency/clsFreq.h"
#include "frequency/clsFreq_internal.h"
#include "frequency/histogram_data_block.h"
#include "support/column_fit.h"
#include "support/host_session.h"
#include "support/results_below.h"

namespace orv {

using detail::kFreq;

namespace {

using Kind = FrequencyTablePlace::Kind;

// One variable's five columns in a table: category, N, Cum. N, %, Cum. %.
constexpr std::int32_t kVariableWidth = 5;
constexpr std::int32_t kCountColumn = 2;
constexpr std::int32_t kCumPercentColumn = 5;
// The charts: 200 points high, stacked with a gap of 10.
constexpr std::int32_t kChartHeight = 200;
constexpr std::int32_t kChartStep = 210;

// The table the histogram shows: the binned one when there is one.
const FrequencyTablePlace* histogramTable(const std::vector<FrequencyTablePlace>& tables) {
  const FrequencyTablePlace* chosen = nullptr;
  for (const FrequencyTablePlace& t : tables) {
    if (t.kind != Kind::Raw) return &t;
    if (!chosen) chosen = &t;
  }
  return chosen;
}

// The numbers of one column of cells (texts that read as numbers count); nothing when any cell
// holds something else, as the categories of nominal data do.
std::optional<std::vector<double>> numbersOf(const Range& column) {
  const ValueArray2D cells = column.Values();
  std::vector<double> numbers;
  for (std::int32_t r = 1; r <= cells.rows(); ++r) {
    const CellValue& v = cells(r, 1);
    std::optional<double> x;
    if (v.isNumber()) x = v.number();
    if (v.isText()) x = parsePlainNumber(v.text());
    if (!x) return std::nullopt;
    numbers.push_back(*x);
  }
  return numbers;
}

ValueArray1D textsOf(const std::vector<std::string>& texts) {
  std::vector<CellValue> cells(texts.begin(), texts.end());
  return ValueArray1D(std::move(cells));
}

ValueArray1D numbersAsCells(const std::vector<double>& numbers) {
  std::vector<CellValue> cells(numbers.begin(), numbers.end());
  return ValueArray1D(std::move(cells));
}

}  // namespace

// The table the histograms are drawn from, as pasted: its cells on the output sheet.
struct clsFreq::PastedTable {
  const Range& origin;  // the output place, the pasted block's top-left cell
  const FrequencyTablePlace& place;
  std::int32_t first;  // the first category row

  // Rows first..last of the block's column `left`.
  Range column(std::int32_t left, std::int32_t last) const {
    return Range::Span(origin.Cells(first, left), origin.Cells(last, left));
  }
};

void clsFreq::DrawHistogram() {
  kFreq("DrawHistogram", [&] {
    const FrequencyTablePlace* place = histogramTable(tables_);
    if (place == nullptr) {
      fitColumns(nullptr);
      return;
    }
    const PastedTable table{*output_.range, *place, place->headingRow + 1};

    // First what each chart shows that no table cell holds: the range labels and the normal
    // curve, written below the block where there is room. No chart for a variable without
    // categories.
    std::vector<std::size_t> drawn;
    std::vector<HistogramExtras> extras;
    for (std::size_t v = 0; v < place->lastRows.size(); ++v) {
      if (place->lastRows[v] < table.first) continue;
      drawn.push_back(v);
      extras.push_back(histogramExtras(table, v));
    }
    const std::optional<HistogramDataCells> written = writeHistogramData(table.origin, lastUsedRow(*pasted_), extras);
    fitColumns(written ? &written->area : nullptr);

    const Range anchor = table.origin.Cells(1, pasted_->ColumnsCount() + 2);
    for (std::size_t i = 0; i < drawn.size(); ++i) {
      drawOneHistogram(table, drawn[i], extras[i], written ? &written->variables[i] : nullptr, anchor);
    }
  });
}

// The pasted block's columns, and the histogram's data below it if there are any, fitted to what
// they show before any chart is placed beside them.
void clsFreq::fitColumns(const Range* histogramData) const {
  std::vector<Range> areas{*pasted_};
  if (histogramData != nullptr) areas.push_back(*histogramData);
  fitColumnWidths(areas, pastedOnOwnSheet_);
}

HistogramExtras clsFreq::histogramExtras(const PastedTable& table, std::size_t v) const {
  const std::int32_t last = table.place.lastRows[v];
  HistogramExtras e;
  e.left = static_cast<std::int32_t>(v) * kVariableWidth + 1;
  e.name = table.origin.Cells(table.place.headingRow, e.left).Value();
  // Numerical bins have edges: they give the "from - to" labels and the normal curve.
  const bool binned = table.place.kind != Kind::Raw;
  const std::optional<std::vector<double>> values = binned ? numbersOf(table.column(e.left, last)) : std::nullopt;
  if (!values) return e;
  const CategoryFlags flags = v < table.place.flags.size() ? table.place.flags[v] : CategoryFlags{};
  const std::vector<CategoryEdges> edges = binnedCategoryEdges(*values, flags);
  if (!histogram_.categoryStartPoints) e.labels = rangeLabels(edges);
  if (dataType_ == ORVDescriptivesFreqNumerical && histogram_.normal) {
    e.normal = normalCounts(table, v, edges);
  }
  return e;
}

// The counts a normal distribution expects per category: of the data's own mean and deviation,
// or for pre-counted data of the table's; nothing where the data do not vary.
std::optional<std::vector<double>> clsFreq::normalCounts(const PastedTable& table, std::size_t v,
                                                         const std::vector<CategoryEdges>& edges) const {
  const std::int32_t left = static_cast<std::int32_t>(v) * kVariableWidth + kCountColumn;
  const std::vector<double> observed =
      numbersOf(table.column(left, table.place.lastRows[v])).value_or(std::vector<double>{});
  double total = 0;
  for (double n : observed) total += n;
  const std::optional<SampleMoments> moments =
      input_.range ? (v < moments_.size() ? moments_[v] : std::nullopt) : groupedMoments(edges, observed);
  if (!moments) return std::nullopt;
  return expectedNormalCounts(edges, total, *moments, HostSession::Application().worksheetFunction());
}

// One chart, `v` places down the stack: the counts, categories labelled by the cells written
// for them (else literal labels, else the table's own category cells), the normal curve and the
// cumulative percentages as asked for.
void clsFreq::drawOneHistogram(const PastedTable& table, std::size_t v, const HistogramExtras& extras,
                               const HistogramExtraCells* written, const Range& anchor) const {
  const std::int32_t last = table.place.lastRows[v];
  HistogramBuilder builder;
  builder.VerticalOffset(static_cast<std::int32_t>(v) * kChartStep);
  builder.HorizontalOffset(0);
  builder.OutputRange(anchor);
  builder.ChartHeight(kChartHeight);
  builder.ChartTitle(histogram_.title);
  builder.XAxisTitle(histogram_.xTitle);
  builder.YAxisTitle(histogram_.yTitle);
  builder.CountsRange(table.column(extras.left + kCountColumn - 1, last));
  if (written != nullptr && written->labels) {
    builder.CategoryLabels(*written->labels);
  } else if (extras.labels) {
    builder.CategoryLabels(textsOf(*extras.labels));
  } else {
    builder.CategoryLabels(table.column(extras.left, last));
  }
  if (written != nullptr && written->normal) {
    builder.NormalCounts(*written->normal);
  } else if (extras.normal) {
    builder.NormalCounts(numbersAsCells(*extras.normal));
  }
  if (histogram_.cumulative) {
    builder.CumulativePercentsRange(table.column(extras.left + kCumPercentColumn - 1, last));
  }
  builder.CreatePlot();
}

}  // namespace orv
