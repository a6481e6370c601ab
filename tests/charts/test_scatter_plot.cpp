// The circular scatter plots: DoScatterPlot through clsDSCirc.Results.

#include "chart_fixture.h"
#include "circular/clsDSCirc.h"

namespace orv::test {
namespace {

TEST_F(ChartTest, ThreeColumnsOfAnglesGiveThreeSquareChartsStackedBesideTheBlock) {
  row(1, 1, {"North", "East", "South"});
  const double angles[][3] = {{350, 80, 170}, {10, 90, 180}, {20, 100, 190},
                              {355, 85, 175}, {5, 95, 185},  {0, 92, 181}};
  for (std::int32_t r = 0; r < 6; ++r) row(r + 2, 1, {angles[r][0], angles[r][1], angles[r][2]});
  clsDSCirc circ;
  circ.Headers(true);
  circ.Plot(true);
  circ.InputRange("Data!A1:C7");
  circ.OutputRange("Data!F2");
  circ.Results(true);
  ASSERT_EQ(circ.pastedBlock()->ColumnsCount(), 6);  // the plot data: two columns per data column
  const Range& source = circ.scatterSources()->data;
  const std::vector<ChartModel>& charts = data.charts();
  ASSERT_EQ(charts.size(), 3U);
  const char* names[] = {"North", "East", "South"};
  for (std::size_t k = 0; k < charts.size(); ++k) {
    SCOPED_TRACE(names[k]);
    const ChartModel& c = charts[k];
    // Column F + 6 + 1 = M, the column after the empty one right of the block; row 2's top.
    EXPECT_DOUBLE_EQ(c.left, data.columnLeft(13));
    EXPECT_DOUBLE_EQ(c.top, 15 + 210.0 * static_cast<double>(k));
    EXPECT_DOUBLE_EQ(c.width, 200);
    EXPECT_DOUBLE_EQ(c.height, 200);
    EXPECT_EQ(c.kind, ChartKind::XYScatter);
    EXPECT_EQ(c.title, std::optional<std::string>(names[k]));
    ASSERT_EQ(c.series.size(), 1U);
    const SeriesModel& s = c.series[0];
    EXPECT_EQ(s.xValues.cells, (SheetRef{"Data", source.Columns(2 * static_cast<std::int32_t>(k) + 1).block()}));
    EXPECT_EQ(s.values.cells, (SheetRef{"Data", source.Columns(2 * static_cast<std::int32_t>(k) + 2).block()}));
    EXPECT_EQ(s.xValues.cached.size(), 6U);
    EXPECT_EQ(s.marker, MarkerSymbol::Circle);
    EXPECT_EQ(s.markerSize, 5);
    ASSERT_EQ(c.axes.size(), 2U);
    for (const AxisModel& a : c.axes) {
      EXPECT_EQ(a.minimumScale, -1.0);
      EXPECT_EQ(a.maximumScale, 1.0);
      EXPECT_TRUE(a.crossesAtCentre);
      EXPECT_EQ(a.tickLabels, TickLabelPlace::Low) << "labels at the plot's edges, not on the crossing";
    }
    EXPECT_DOUBLE_EQ(c.plotArea.width, c.plotArea.height);
    EXPECT_GT(c.plotArea.width, 100);
    EXPECT_LE(c.plotArea.left + c.plotArea.width, 200);
    EXPECT_LE(c.plotArea.top + c.plotArea.height, 200);
  }
}

}  // namespace
}  // namespace orv::test
