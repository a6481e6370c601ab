// The error bar plot builder on the in-memory host: the recorded chart after CreatePlot.

#include "chart_fixture.h"
#include "charts/clsPlotError.h"

namespace orv::test {
namespace {

class PlotErrorTest : public ChartTest {
 protected:
  PlotErrorTest() {
    row(1, 2, {"Alpha", "Beta"});
    row(2, 2, {5.0, 12.0});  // centres
    row(3, 2, {1.0, 2.0});   // plus distances
    row(4, 2, {0.5, 1.5});   // minus distances
  }
  void configure(clsPlotError& plot) {
    plot.OutputRange(cells(3, 5, 3, 5));
    plot.HeadersRange(cells(1, 2, 1, 3));
    plot.CentreRange(cells(2, 2, 2, 3));
  }
};

TEST_F(PlotErrorTest, OneSeriesOfPointsWithCappedCustomBars) {
  clsPlotError plot;
  configure(plot);
  plot.ErrorPosRange(cells(3, 2, 3, 3));
  plot.ErrorNegRange(cells(4, 2, 4, 3));
  plot.ChartTitle("Means");
  plot.YAxisTitle("cm");
  plot.ChartWidth(150);
  plot.VerticalOffset(30);
  plot.CreatePlot();
  const ChartModel& chart = onlyChart(data);
  EXPECT_DOUBLE_EQ(chart.left, 4 * 48);
  EXPECT_DOUBLE_EQ(chart.top, 2 * 15 + 30);
  EXPECT_DOUBLE_EQ(chart.width, 150);
  EXPECT_EQ(chart.kind, ChartKind::LineMarkers);
  ASSERT_EQ(chart.series.size(), 1U);
  const SeriesModel& s = chart.series.front();
  EXPECT_EQ(s.categories.cells, ref(1, 2, 1, 3));
  EXPECT_EQ(s.values.cells, ref(2, 2, 2, 3));
  EXPECT_FALSE(s.line);
  ASSERT_TRUE(s.errorBars.has_value());
  EXPECT_TRUE(s.errorBars->plus && s.errorBars->minus && s.errorBars->endCaps);
  EXPECT_EQ(s.errorBars->plusAmounts.cells, ref(3, 2, 3, 3));
  EXPECT_EQ(s.errorBars->minusAmounts.cells, ref(4, 2, 4, 3));
  EXPECT_EQ(s.errorBars->minusAmounts.cached, (Cached{0.5, 1.5}));
  EXPECT_FALSE(chart.legend);
  EXPECT_EQ(chart.title, "Means");
  const AxisModel* values = axis(chart, AxisKind::Value, AxisGroup::Primary);
  EXPECT_EQ(values->title, "cm");
  // Centre 12 is plotted; the bars do not widen the automatic scale (0 to 14).
  EXPECT_EQ(values->tickLabelNumberFormat, "0");
}

TEST_F(PlotErrorTest, FailuresReportCreatePlotAndLeaveTheChartAdded) {
  expectPlotFailures<clsPlotError>("Line 0 in ORVDescriptives.clsPlotError.CreatePlot",
                                   {{"no output range", [](clsPlotError&) {}, 91, 0},
                                    {"a text among the distances",
                                     [&](clsPlotError& p) {
                                       configure(p);
                                       p.ErrorPosArray(ValueArray1D(std::vector<CellValue>{1.0, "-"}));
                                       p.ErrorNegArray(ValueArray1D(std::vector<CellValue>{1.0, 1.0}));
                                     },
                                     err::kHostFailure, 1}});
}

}  // namespace
}  // namespace orv::test
