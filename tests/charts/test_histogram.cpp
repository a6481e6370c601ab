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
    EXPECT_EQ(normal.values.cells, extra(freq, v, 1, n));
    ASSERT_EQ(normal.values.cached.size(), edges[v].size());
    for (std::size_t i = 0; i < edges[v].size(); ++i) {
      const double expected = 10 * (below(edges[v][i].second, 1) - below(edges[v][i].first, 0));
      EXPECT_NEAR(normal.values.cached[i].value_or(NAN), expected, 1e-7) << i;
    }
    EXPECT_EQ(axis(c, AxisKind::Category, AxisGroup::Primary)->title, std::optional<std::string>("mm"));
    EXPECT_EQ(axis(c, AxisKind::Value, AxisGroup::Primary)->title, std::optional<std::string>("Count"));
  }
  // The data below the pasted block, headed and named per variable.
  const std::int32_t heading = freq.tables().back().lastRows.front() + 2;
  EXPECT_EQ(cells(heading, 6, heading, 6).Value(), CellValue(std::string("Data for Histogram")));
  EXPECT_EQ(cells(heading + 1, 11, heading + 1, 11).Value(), CellValue(std::string("Width")));
  EXPECT_EQ(cells(heading + 2, 6, heading + 2, 6).Value(), CellValue(std::string("Category")));
  EXPECT_EQ(cells(heading + 2, 7, heading + 2, 7).Value(), CellValue(std::string("Normal")));
  EXPECT_EQ(cells(heading + 3, 7, heading + 3, 7).NumberFormat(), "0.00");
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
  EXPECT_EQ(c.series[1].values.literal.size(), 3U);
}

TEST_F(HistogramTest, TheLegendStandsBelowThePlotAndTheCumulativeLineRunsStraight) {
  const struct {
    const char* what;
    bool cumulative;
    bool titles;
  } cases[] = {{"the normal curve alone, no titles", false, false}, {"both lines and every title", true, true}};
  for (const auto& k : cases) {
    SCOPED_TRACE(k.what);
    clsFreq freq;
    freq.PlotCumulative(k.cumulative);
    if (k.titles) {
      freq.HistogramTitle("Sizes");
      freq.HistogramXTitle("mm");
      freq.HistogramYTitle("Count");
    }
    analyse(freq);
    const ChartModel& c = data.charts().back();
    ASSERT_EQ(c.series.size(), k.cumulative ? 3U : 2U);
    EXPECT_EQ(c.legendPlace, LegendPlace::Bottom);
    EXPECT_EQ(c.legendFont.size, 8);
    // A reader that smooths all of a chart's lines alike must not bend the cumulative line.
    EXPECT_EQ(c.series[1].smooth, !k.cumulative);
    if (k.cumulative) {
      EXPECT_EQ(c.series[2].name, "Cumulative %");
      EXPECT_FALSE(c.series[2].smooth);
      EXPECT_FALSE(axis(c, AxisKind::Value, AxisGroup::Secondary)->line);
    }
    // The plot area, labels included, inside the chart with room above for the title and below
    // for the axis title and the legend.
    const PlotAreaModel& p = c.plotArea;
    EXPECT_TRUE(p.manual);
    EXPECT_GE(p.top, k.titles ? 20.0 : 5.0);
    EXPECT_LE(p.top + p.height, c.height - (k.titles ? 30.0 : 16.0));
    EXPECT_GT(p.height, c.height / 2);
    EXPECT_LE(p.left + p.width, c.width);
  }
}

}  // namespace
}  // namespace orv::test
