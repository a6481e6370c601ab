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
#include "support/host_session.h"

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

// The last row of the block that holds anything: the written block ends with empty rows.
std::int32_t lastUsedRow(const Range& block) {
  const ValueArray2D cells = block.Values();
  for (std::int32_t r = cells.rows(); r >= 1; --r) {
    for (std::int32_t c = 1; c <= cells.columns(); ++c) {
      if (!cells(r, c).isEmpty()) return r;
    }
  }
  return 0;
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

void clsFreq::DrawHistogram() {
  kFreq("DrawHistogram", [&] {
    const FrequencyTablePlace* table = histogramTable(tables_);
    if (table == nullptr) return;
    const bool binned = table->kind != Kind::Raw;
    const bool numerical = dataType_ == ORVDescriptivesFreqNumerical;
    const Range& origin = *output_.range;
    const auto cells = [&](std::int32_t top, std::int32_t left, std::int32_t bottom) {
      return Range::Span(origin.Cells(top, left), origin.Cells(bottom, left));
    };
    const std::int32_t first = table->headingRow + 1;

    // First what each chart shows that no table cell holds: the range labels and the normal curve.
    std::vector<std::size_t> drawn;
    std::vector<HistogramExtras> extras;
    for (std::size_t v = 0; v < table->lastRows.size(); ++v) {
      const std::int32_t last = table->lastRows[v];
      if (last < first) continue;
      HistogramExtras e;
      e.left = static_cast<std::int32_t>(v) * kVariableWidth + 1;
      e.name = origin.Cells(table->headingRow, e.left).Value();
      const Range categories = cells(first, e.left, last);
      const Range counts = cells(first, e.left + kCountColumn - 1, last);
      // Numerical bins have edges: they give the "from - to" labels and the normal curve.
      const std::optional<std::vector<double>> values = binned ? numbersOf(categories) : std::nullopt;
      const CategoryFlags flags = v < table->flags.size() ? table->flags[v] : CategoryFlags{};
      const std::vector<CategoryEdges> edges =
          values ? binnedCategoryEdges(*values, flags) : std::vector<CategoryEdges>{};
      if (values && !histogram_.categoryStartPoints) e.labels = rangeLabels(edges);
      if (values && numerical && histogram_.normal) {
        const std::vector<double> observed = numbersOf(counts).value_or(std::vector<double>{});
        double total = 0;
        for (double n : observed) total += n;
        const std::optional<SampleMoments> moments =
            input_.range ? (v < moments_.size() ? moments_[v] : std::nullopt)
                         : groupedMoments(edges, observed);
        if (moments) {
          e.normal = expectedNormalCounts(edges, total, *moments,
                                          HostSession::Application().worksheetFunction());
        }
      }
      drawn.push_back(v);
      extras.push_back(std::move(e));
    }
    const std::optional<std::vector<HistogramExtraCells>> written =
        writeHistogramData(origin, lastUsedRow(*pasted_), extras);

    const Range anchor = origin.Cells(1, pasted_->ColumnsCount() + 2);
    for (std::size_t i = 0; i < drawn.size(); ++i) {
      const std::size_t v = drawn[i];
      const HistogramExtras& e = extras[i];
      const std::int32_t last = table->lastRows[v];
      HistogramBuilder builder;
      builder.VerticalOffset(static_cast<std::int32_t>(v) * kChartStep);
      builder.HorizontalOffset(0);
      builder.OutputRange(anchor);
      builder.ChartHeight(kChartHeight);
      builder.ChartTitle(histogram_.title);
      builder.XAxisTitle(histogram_.xTitle);
      builder.YAxisTitle(histogram_.yTitle);
      builder.CountsRange(cells(first, e.left + kCountColumn - 1, last));
      if (written && (*written)[i].labels) {
        builder.CategoryLabels(*(*written)[i].labels);
      } else if (e.labels) {
        builder.CategoryLabels(textsOf(*e.labels));
      } else {
        builder.CategoryLabels(cells(first, e.left, last));
      }
      if (written && (*written)[i].normal) {
        builder.NormalCounts(*(*written)[i].normal);
      } else if (e.normal) {
        builder.NormalCounts(numbersAsCells(*e.normal));
      }
      if (histogram_.cumulative) {
        builder.CumulativePercentsRange(cells(first, e.left + kCumPercentColumn - 1, last));
      }
      builder.CreatePlot();
    }
  });
}

}  // namespace orv
