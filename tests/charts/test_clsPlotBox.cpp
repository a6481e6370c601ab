// The box plot builder on the in-memory host: the recorded chart after CreatePlot.

#include "chart_fixture.h"
#include "charts/clsPlotBox.h"
#include "support/chart_settings.h"

namespace orv::test {
namespace {

constexpr std::int32_t kLastRow = 1048576;

class PlotBoxTest : public ChartTest {
 protected:
  PlotBoxTest() {
    row(1, 2, {"Alpha", "Beta", "Gamma"});
    row(2, 2, {3.0, 4.0, 5.0});  // medians
    row(3, 2, {2.0, 3.0, 4.0});  // lower percentiles
    row(4, 2, {4.0, 5.0, 6.0});  // upper percentiles
    row(5, 2, {1.0, 1.0, 2.0});  // minima
    row(6, 2, {5.0, 7.0, 7.5});  // maxima
  }

  void configure(clsPlotBox& plot, const Range& output) {
    plot.OutputRange(output);
    plot.HeadersRange(cells(1, 2, 1, 4));
    plot.MedianRange(cells(2, 2, 2, 4));
    plot.LPRange(cells(3, 2, 3, 4));
    plot.UPRange(cells(4, 2, 4, 4));
    plot.MinRange(cells(5, 2, 5, 4));
    plot.MaxRange(cells(6, 2, 6, 4));
  }
};

TEST_F(PlotBoxTest, AStockChartOfSixSeriesWithTheMediansOnTheDeletedSecondaryAxis) {
  clsPlotBox plot;
  configure(plot, cells(2, 6, 2, 6));
  plot.CreatePlot();
  const ChartModel& chart = onlyChart(data);
  EXPECT_EQ(chart.name, "Chart 1");
  EXPECT_DOUBLE_EQ(chart.left, 5 * 48);
  EXPECT_DOUBLE_EQ(chart.top, 15);
  EXPECT_DOUBLE_EQ(chart.width, 200);
  EXPECT_DOUBLE_EQ(chart.height, 200);
  EXPECT_EQ(chart.kind, ChartKind::StockOHLC);
  // Lower percentile, minimum, maximum, upper percentile, then the median twice.
  const std::vector<std::int32_t> sourceRows = {3, 5, 6, 4, 2, 2};
  ASSERT_EQ(chart.series.size(), sourceRows.size());
  for (std::size_t i = 0; i < sourceRows.size(); ++i) {
    SCOPED_TRACE(i + 1);
    const SeriesModel& s = chart.series[i];
    EXPECT_EQ(s.values.cells, ref(sourceRows[i], 2, sourceRows[i], 4));
    EXPECT_EQ(s.categories.cells, ref(1, 2, 1, 4));
    EXPECT_EQ(s.axisGroup, i < 4 ? AxisGroup::Primary : AxisGroup::Secondary);
    EXPECT_EQ(s.marker, i < 4 ? MarkerSymbol::None : MarkerSymbol::Dash);
  }
  EXPECT_EQ(chart.series[0].categories.cached, (std::vector<std::string>{"Alpha", "Beta", "Gamma"}));
  EXPECT_TRUE(chart.upDownBars && chart.highLowLines);
  EXPECT_EQ(chart.upBarsColorIndex, ChartSettings().BoxFillColorIndex());
  EXPECT_FALSE(chart.legend);
  // The automatic plot area (20, 24, 170 x 150) moved up by half its top, grown by as much, and
  // as wide as the chart less twice its left margin.
  EXPECT_TRUE(chart.plotArea.manual);
  EXPECT_DOUBLE_EQ(chart.plotArea.left, 20);
  EXPECT_DOUBLE_EQ(chart.plotArea.top, 12);
  EXPECT_DOUBLE_EQ(chart.plotArea.height, 162);
  EXPECT_DOUBLE_EQ(chart.plotArea.width, 160);
  EXPECT_TRUE(axis(chart, AxisKind::Value, AxisGroup::Secondary)->deleted);
  EXPECT_FALSE(axis(chart, AxisKind::Value, AxisGroup::Primary)->deleted);
}

TEST_F(PlotBoxTest, WholeNumberTickLabelsFromAnAxisMaximumOfTen) {
  struct Case {
    std::string name;
    std::vector<CellValue> maxima;
    std::string format;
  };
  const std::vector<Case> cases = {
      {"axis to 8", {5.0, 7.6, 6.0}, "General"},
      {"axis to exactly 10", {5.0, 9.5, 6.0}, "0"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    row(6, 2, c.maxima);
    clsPlotBox plot;
    configure(plot, cells(2, 6, 2, 6));
    plot.CreatePlot();
    EXPECT_EQ(axis(data.charts().back(), AxisKind::Value, AxisGroup::Primary)->tickLabelNumberFormat, c.format);
  }
}

TEST_F(PlotBoxTest, AVerticalOffsetThatReachesTheLastRowIsDropped) {
  struct Case {
    std::int32_t anchorRow, verticalOffset, horizontalOffset;
    double top, left;
  };
  const double lastRowTop = (kLastRow - 1) * 15.0;
  const std::vector<Case> cases = {
      {kLastRow - 6, 60, 0, lastRowTop - 30, 5 * 48},      // ends 30 points above the last row
      {kLastRow - 6, 90, 7, lastRowTop - 90, 5 * 48 + 7},  // would start at the last row
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << "row " << c.anchorRow << " offset " << c.verticalOffset);
    clsPlotBox plot;
    configure(plot, cells(c.anchorRow, 6, c.anchorRow, 6));
    plot.VerticalOffset(c.verticalOffset);
    plot.HorizontalOffset(c.horizontalOffset);
    plot.CreatePlot();
    EXPECT_DOUBLE_EQ(data.charts().back().top, c.top);
    EXPECT_DOUBLE_EQ(data.charts().back().left, c.left);
  }
}

TEST_F(PlotBoxTest, FailuresReportCreatePlotAndLeaveTheChartAdded) {
  InMemoryWorksheet& other = book.addSheet("Other");
  expectPlotFailures<clsPlotBox>("Line 0 in ORVDescriptives.clsPlotBox.CreatePlot",
                                 {{"no output range", [](clsPlotBox&) {}, 91, 0},
                                  {"headers on another sheet than the percentiles",
                                   [&](clsPlotBox& p) {
                                     configure(p, cells(2, 6, 2, 6));
                                     p.HeadersRange(Range(other, CellBlock{1, 2, 1, 4}));
                                   },
                                   err::kHostFailure, 1}});
}

}  // namespace
}  // namespace orv::test
