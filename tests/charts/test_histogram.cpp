// The histogram of clsFreq.Results: one chart per variable, its series and their sources, the
// normal curve, and the histogram data below the table (or literals when that area is taken).

#include <cmath>

#include "chart_fixture.h"
#include "frequency/clsFreq.h"

namespace orv::test {
namespace {

using Labels = std::vector<std::string>;

double phi(double z) { return 0.5 * std::erfc(-z / std::sqrt(2.0)); }

const std::vector<double> kLength = {5, 12, 15, 18, 22, 25, 27, 33, 38, 45};
const std::vector<double> kWidth = {11, 13, 21, 23, 24, 26, 28, 29, 31, 35};

class HistogramTest : public ChartTest {
 protected:
  HistogramTest() {
    row(1, 1, {"Length", "Width", {}, "Bins"});
    for (std::size_t i = 0; i < kLength.size(); ++i) {
      row(static_cast<std::int32_t>(i) + 2, 1, {kLength[i], kWidth[i]});
    }
    for (std::int32_t b = 0; b < 3; ++b) row(b + 2, 4, {10.0 * (b + 1)});
  }

  // Both columns against the bins 10, 20, 30, pasted at Data!F1.
  void analyse(clsFreq& freq) {
    freq.Headers(true);
    freq.PlotHistogram(true);
    freq.InputRange("Data!A1:B11");
    freq.BinRange("Data!D1:D4");
    freq.OutputRange("Data!F1");
    freq.Results(true);
  }

  // The pasted cells of variable v's column c (1..5) in the histogram's table.
  SheetRef column(const clsFreq& freq, std::size_t v, std::int32_t c) {
    const FrequencyTablePlace& t = freq.tables().back();
    const std::int32_t left = 6 + static_cast<std::int32_t>(v) * 5 + c - 1;
    return ref(t.headingRow + 1, left, t.lastRows[v], left);
  }

  // The plotted numbers, from the cells' cache or the literal values.
  static std::vector<double> numbers(const ChartData& d) {
    std::vector<double> out;
    for (const std::optional<double>& v : d.cells ? d.cached : d.literal) out.push_back(v.value_or(NAN));
    return out;
  }

  // Variable v's column c (0 labels, 1 normal) of the histogram data below the pasted block.
  SheetRef extra(const clsFreq& freq, std::size_t v, std::int32_t c, std::int32_t n) {
    const std::int32_t first = freq.tables().back().lastRows.front() + 5;
    const std::int32_t col = 6 + static_cast<std::int32_t>(v) * 5 + c;
    return ref(first, col, first + n - 1, col);
  }
};

TEST_F(HistogramTest, OneChartPerVariableWithTouchingColumnsAndTheNormalCurve) {
  clsFreq freq;
  freq.HistogramTitle("Sizes");
  freq.HistogramXTitle("mm");
  freq.HistogramYTitle("Count");
  analyse(freq);

  const std::vector<ChartModel>& charts = data.charts();
  ASSERT_EQ(charts.size(), 2U);
  ASSERT_EQ(freq.pastedBlock()->ColumnsCount(), 10);
  const std::vector<std::vector<double>> samples = {kLength, kWidth};
  const std::vector<Labels> labels = {{"<10", "10 - 20", "20 - 30", "30 - 40", ">=40"},
                                      {"10 - 20", "20 - 30", "30 - 40"}};
  // Category edges per variable: lower, upper (NAN = open).
  const std::vector<std::vector<std::pair<double, double>>> edges = {
      {{NAN, 10}, {10, 20}, {20, 30}, {30, 40}, {40, NAN}}, {{10, 20}, {20, 30}, {30, 40}}};
  for (std::size_t v = 0; v < charts.size(); ++v) {
    SCOPED_TRACE(v);
    const ChartModel& c = charts[v];
    EXPECT_DOUBLE_EQ(c.left, (6 + 10 + 1 - 1) * 48.0);  // F + 10 columns + one empty: column Q
    EXPECT_DOUBLE_EQ(c.top, 210.0 * static_cast<double>(v));
    EXPECT_DOUBLE_EQ(c.height, 200);
    EXPECT_EQ(c.kind, ChartKind::ColumnClustered);
    EXPECT_EQ(c.gapWidth, 0);
    EXPECT_EQ(c.title, std::optional<std::string>("Sizes"));
    EXPECT_TRUE(c.legend);
    ASSERT_EQ(c.series.size(), 2U);

    const SeriesModel& bars = c.series[0];
    EXPECT_EQ(bars.name, "Frequency");
    EXPECT_EQ(bars.kind, ChartKind::ColumnClustered);
    EXPECT_EQ(bars.values.cells, column(freq, v, 2));
    const auto n = static_cast<std::int32_t>(labels[v].size());
    EXPECT_EQ(bars.categories.cells, extra(freq, v, 0, n));
    EXPECT_EQ(bars.categories.cached, labels[v]);

    // The normal curve, against the data's own mean and sample deviation.
    const std::vector<double>& x = samples[v];
    double mean = 0;
    for (double d : x) mean += d / 10;
    double ss = 0;
    for (double d : x) ss += (d - mean) * (d - mean);
    const double sd = std::sqrt(ss / 9);
    const auto below = [&](double edge, double open) { return std::isnan(edge) ? open : phi((edge - mean) / sd); };
    const SeriesModel& normal = c.series[1];
    EXPECT_EQ(normal.name, "Normal");
    EXPECT_EQ(normal.kind, ChartKind::LineMarkers);
    EXPECT_EQ(normal.marker, MarkerSymbol::None);
    EXPECT_TRUE(normal.smooth);
    EXPECT_EQ(normal.axisGroup, AxisGroup::Primary);
    EXPECT_EQ(normal.values.cells, extra(freq, v, 1, n));
    const std::vector<double> expected = numbers(normal.values);
    ASSERT_EQ(expected.size(), edges[v].size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
      EXPECT_NEAR(expected[i], 10 * (below(edges[v][i].second, 1) - below(edges[v][i].first, 0)), 1e-7) << i;
    }

    const AxisModel* x_axis = axis(c, AxisKind::Category, AxisGroup::Primary);
    const AxisModel* y_axis = axis(c, AxisKind::Value, AxisGroup::Primary);
    ASSERT_TRUE(x_axis && y_axis);
    EXPECT_EQ(x_axis->title, std::optional<std::string>("mm"));
    EXPECT_EQ(y_axis->title, std::optional<std::string>("Count"));
    EXPECT_FALSE(y_axis->majorGridlines);
    EXPECT_EQ(axis(c, AxisKind::Value, AxisGroup::Secondary), nullptr);
  }
  // The data below the pasted block, headed and named per variable.
  const std::int32_t heading = freq.tables().back().lastRows.front() + 2;
  EXPECT_EQ(cells(heading, 6, heading, 6).Value(), CellValue(std::string("Data for Histogram")));
  EXPECT_TRUE(cells(heading, 6, heading, 6).Format().bold);
  EXPECT_EQ(cells(heading + 1, 6, heading + 1, 6).Value(), CellValue(std::string("Length")));
  EXPECT_EQ(cells(heading + 1, 11, heading + 1, 11).Value(), CellValue(std::string("Width")));
  EXPECT_EQ(cells(heading + 2, 6, heading + 2, 6).Value(), CellValue(std::string("Category")));
  EXPECT_EQ(cells(heading + 2, 7, heading + 2, 7).Value(), CellValue(std::string("Normal")));
  EXPECT_EQ(cells(heading + 3, 6, heading + 3, 6).Value(), CellValue(std::string("<10")));
  EXPECT_EQ(cells(heading + 3, 7, heading + 3, 7).NumberFormat(), "0.00");
}

TEST_F(HistogramTest, TheCumulativeLineUsesThePastedPercentagesOnASecondAxis) {
  clsFreq freq;
  freq.PlotNormal(false);
  freq.PlotCumulative(true);
  analyse(freq);
  const ChartModel& c = data.charts().front();
  ASSERT_EQ(c.series.size(), 2U);
  const SeriesModel& cumulative = c.series[1];
  EXPECT_EQ(c.series[0].name, "Frequency");
  EXPECT_EQ(cumulative.name, "Cumulative Frequency");
  EXPECT_EQ(cumulative.values.cells, column(freq, 0, 5));
  EXPECT_EQ(cumulative.values.cached, (Cached{10, 40, 70, 90, 100}));
  EXPECT_EQ(cumulative.axisGroup, AxisGroup::Secondary);
  const AxisModel* percents = axis(c, AxisKind::Value, AxisGroup::Secondary);
  ASSERT_NE(percents, nullptr);
  EXPECT_FALSE(percents->deleted);
  EXPECT_EQ(percents->minimumScale, 0.0);
  EXPECT_EQ(percents->maximumScale, 100.0);
  EXPECT_FALSE(c.title.has_value());
}

TEST_F(HistogramTest, StartPointsLabelTheCategoriesWithTheTablesOwnCells) {
  clsFreq freq;
  freq.CategoryStartPoint(true);
  freq.PlotNormal(false);
  analyse(freq);
  for (std::size_t v = 0; v < 2; ++v) {
    SCOPED_TRACE(v);
    const ChartModel& c = data.charts()[v];
    ASSERT_EQ(c.series.size(), 1U);
    EXPECT_EQ(c.series[0].categories.cells, column(freq, v, 1));
    EXPECT_FALSE(c.legend);
  }
  EXPECT_EQ(data.charts()[0].series[0].categories.cached, (Labels{"10", "10", "20", "30", "40"}));
}

TEST_F(HistogramTest, NominalDataGetColumnsOfTheRawTableAndNoNormalCurve) {
  row(1, 8, {"Colour"});
  const char* items[] = {"Red", "Blue", "Red", "Green", "Red"};
  for (std::int32_t i = 0; i < 5; ++i) row(i + 2, 8, {items[i]});
  clsFreq freq;
  freq.Headers(true);
  freq.DataType(ORVDescriptivesFreqNominal);
  freq.PlotHistogram(true);
  freq.InputRange("Data!H1:H6");
  freq.OutputRange("Data!J1");
  freq.Results(true);
  const ChartModel& c = onlyChart(data);
  ASSERT_EQ(c.series.size(), 1U);
  EXPECT_EQ(c.series[0].categories.cached, (Labels{"Red", "Blue", "Green"}));
  EXPECT_EQ(c.series[0].values.cached, (Cached{3, 1, 1}));
  EXPECT_TRUE(c.series[0].categories.cells.has_value());
}

TEST_F(HistogramTest, PreCountedBinsFitTheCurveToTheTable) {
  // Bins 10, 20, 30 with counts 2, 5, 3: one variable, no data.
  for (std::int32_t b = 0; b < 3; ++b) row(b + 2, 5, {std::vector<double>{2, 5, 3}[static_cast<std::size_t>(b)]});
  row(1, 5, {"Counts"});
  clsFreq freq;
  freq.Headers(true);
  freq.PlotHistogram(true);
  freq.BinRange("Data!D1:D4");
  freq.FrequencyRange("Data!E1:E4");
  freq.OutputRange("Data!H1");
  freq.Results(true);
  const ChartModel& c = onlyChart(data);
  ASSERT_EQ(c.series.size(), 2U);
  // Observations at the middles 15, 25, 35 (the last bin closed one width up).
  const double mean = (2 * 15 + 5 * 25 + 3 * 35) / 10.0;
  const double sd = std::sqrt((2 * std::pow(15 - mean, 2) + 5 * std::pow(25 - mean, 2) + 3 * std::pow(35 - mean, 2)) / 9);
  const std::vector<double> expected = numbers(c.series[1].values);
  ASSERT_EQ(expected.size(), 3U);
  EXPECT_NEAR(expected[1], 10 * (phi((30 - mean) / sd) - phi((20 - mean) / sd)), 1e-7);
}

TEST_F(HistogramTest, AnOccupiedAreaBelowTheBlockKeepsItsCellsAndTheChartsUseLiterals) {
  clsFreq probe;
  analyse(probe);
  const std::int32_t heading = probe.tables().back().lastRows.front() + 2;
  cells(1, 6, heading + 10, 20).Clear();
  row(heading + 4, 12, {"keep"});

  clsFreq freq;
  analyse(freq);
  EXPECT_EQ(cells(heading + 4, 12, heading + 4, 12).Value(), CellValue(std::string("keep")));
  EXPECT_TRUE(cells(heading, 6, heading, 6).Value().isEmpty());
  const ChartModel& c = data.charts().back();
  ASSERT_EQ(c.series.size(), 2U);
  EXPECT_FALSE(c.series[0].categories.cells.has_value());
  EXPECT_EQ(c.series[0].categories.cached, (Labels{"10 - 20", "20 - 30", "30 - 40"}));
  EXPECT_FALSE(c.series[1].values.cells.has_value());
  EXPECT_EQ(numbers(c.series[1].values).size(), 3U);
}

}  // namespace
}  // namespace orv::test
