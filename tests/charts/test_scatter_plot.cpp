// The circular scatter plots: DoScatterPlot through clsDSCirc.Results, and the builder's own
// failures.

#include "chart_fixture.h"
#include "circular/clsDSCirc.h"
#include "frame/conversions.h"
#include "support/scatter_chart_builder.h"

namespace orv::test {
namespace {

class ScatterPlotTest : public ChartTest {
 protected:
  // Angles of three columns (headers North, East, South) in Data!A1:C7, analysed with Plot into
  // an output cell.
  void analyse(clsDSCirc& circ, const std::string& output) {
    row(1, 1, {"North", "East", "South"});
    const double angles[][3] = {{350, 80, 170}, {10, 90, 180}, {20, 100, 190},
                                {355, 85, 175}, {5, 95, 185},  {0, 92, 181}};
    for (std::int32_t r = 0; r < 6; ++r) row(r + 2, 1, {angles[r][0], angles[r][1], angles[r][2]});
    circ.Headers(true);
    circ.Plot(true);
    circ.InputRange("Data!A1:C7");
    circ.OutputRange(output);
    circ.Results(true);
  }
};

TEST_F(ScatterPlotTest, ThreeColumnsGiveThreeSquareChartsStackedBesideTheBlock) {
  clsDSCirc circ;
  analyse(circ, "Data!F2");
  ASSERT_EQ(circ.pastedBlock()->ColumnsCount(), 6);  // the plot data: two columns per data column
  const Range& source = circ.scatterSources()->data;
  const Range& titles = circ.scatterSources()->titles;
  const std::vector<ChartModel>& charts = data.charts();
  ASSERT_EQ(charts.size(), 3U);
  const char* names[] = {"North", "East", "South"};
  for (std::size_t k = 0; k < charts.size(); ++k) {
    SCOPED_TRACE(names[k]);
    const ChartModel& c = charts[k];
    // Column F + 6 + 1 = M, the column after the empty one right of the block; row 2's top.
    EXPECT_DOUBLE_EQ(c.left, 12 * 48);
    EXPECT_DOUBLE_EQ(c.top, 15 + 210.0 * static_cast<double>(k));
    EXPECT_DOUBLE_EQ(c.width, 200);
    EXPECT_DOUBLE_EQ(c.height, 200);
    EXPECT_EQ(c.kind, ChartKind::XYScatter);
    EXPECT_EQ(c.title, std::optional<std::string>(names[k]));
    EXPECT_EQ(toText(titles.Cells(1, 2 * static_cast<std::int32_t>(k) + 1).Value()), names[k]);
    EXPECT_FALSE(c.legend);

    ASSERT_EQ(c.series.size(), 1U);
    const SeriesModel& s = c.series[0];
    const Range x = source.Columns(2 * static_cast<std::int32_t>(k) + 1);
    const Range y = source.Columns(2 * static_cast<std::int32_t>(k) + 2);
    EXPECT_EQ(s.xValues.cells, (SheetRef{"Data", x.block()}));
    EXPECT_EQ(s.values.cells, (SheetRef{"Data", y.block()}));
    EXPECT_EQ(s.xValues.cached.size(), 6U);
    EXPECT_FALSE(s.line);
    EXPECT_EQ(s.marker, MarkerSymbol::Circle);

    ASSERT_EQ(c.axes.size(), 2U);
    for (const AxisModel& a : c.axes) {
      SCOPED_TRACE(static_cast<int>(a.kind));
      EXPECT_EQ(a.minimumScale, -1.0);
      EXPECT_EQ(a.maximumScale, 1.0);
      EXPECT_EQ(a.majorUnit, 0.5);
      EXPECT_FALSE(a.majorGridlines);
      EXPECT_FALSE(a.minorGridlines);
      EXPECT_TRUE(a.crossesAtCentre);
    }
    EXPECT_TRUE(c.plotArea.manual);
    EXPECT_DOUBLE_EQ(c.plotArea.width, c.plotArea.height);
    EXPECT_GT(c.plotArea.width, 100);
    EXPECT_LE(c.plotArea.left + c.plotArea.width, 200);
    EXPECT_LE(c.plotArea.top + c.plotArea.height, 200);
  }
}

TEST_F(ScatterPlotTest, TheBuilderNeedsItsRangesAndLeavesAnEmptyTitleOut) {
  row(1, 1, {0.5, -0.5});
  {
    ScatterChartBuilder builder;
    builder.OutputRange(cells(1, 4, 1, 4));
    builder.XValuesRange(cells(1, 1, 1, 1));
    const ComponentError e = errorOf([&] { builder.CreatePlot(); });
    EXPECT_EQ(e.number(), 91);
    EXPECT_EQ(e.source(), "Line 0 in ORVDescriptives.ScatterChartBuilder.CreatePlot");
    EXPECT_TRUE(data.charts().empty());
  }
  ScatterChartBuilder builder;
  builder.VerticalOffset(30);
  builder.OutputRange(cells(2, 4, 2, 4));
  builder.XValuesRange(cells(1, 1, 1, 1));
  builder.YValuesRange(cells(1, 2, 1, 2));
  builder.ChartTitle("");
  builder.ChartWidth(150);
  builder.CreatePlot();
  const ChartModel& c = onlyChart(data);
  EXPECT_FALSE(c.title.has_value());
  EXPECT_DOUBLE_EQ(c.top, 15 + 30);
  EXPECT_DOUBLE_EQ(c.left, 3 * 48);
  EXPECT_DOUBLE_EQ(c.width, 150);
  EXPECT_EQ(c.series[0].values.cached, (Cached{-0.5}));
}

}  // namespace
}  // namespace orv::test
