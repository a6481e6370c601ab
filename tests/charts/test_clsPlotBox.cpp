// The box plot builder on the in-memory host: the recorded chart after CreatePlot.

#include <functional>

#include "chart_fixture.h"
#include "charts/clsPlotBox.h"
#include "charts/plot_steps.h"
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
  EXPECT_FALSE(app.ScreenUpdating());
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
  const std::int32_t grey = ChartSettings().BoxFillColorIndex();
  EXPECT_TRUE(chart.upDownBars);
  EXPECT_TRUE(chart.highLowLines);
  EXPECT_EQ(chart.upBarsColorIndex, grey);
  EXPECT_DOUBLE_EQ(chart.upBarsBorderWeight, 0.75);
  EXPECT_EQ(chart.chartAreaColorIndex, grey);
  EXPECT_FALSE(chart.autoScaleFont);
  EXPECT_FALSE(chart.title.has_value());
  EXPECT_FALSE(chart.legend);
  // The automatic plot area (20, 24, 170 x 150) moved up by half its top, grown by as much, and
  // as wide as the chart less twice its left margin.
  EXPECT_TRUE(chart.plotArea.manual);
  EXPECT_FALSE(chart.plotArea.filled);
  EXPECT_FALSE(chart.plotArea.border);
  EXPECT_DOUBLE_EQ(chart.plotArea.left, 20);
  EXPECT_DOUBLE_EQ(chart.plotArea.top, 12);
  EXPECT_DOUBLE_EQ(chart.plotArea.height, 162);
  EXPECT_DOUBLE_EQ(chart.plotArea.width, 160);
  ASSERT_EQ(chart.axes.size(), 4U);
  const AxisModel* categories = axis(chart, AxisKind::Category, AxisGroup::Primary);
  const AxisModel* values = axis(chart, AxisKind::Value, AxisGroup::Primary);
  ASSERT_TRUE(categories && values);
  EXPECT_TRUE(axis(chart, AxisKind::Value, AxisGroup::Secondary)->deleted);
  EXPECT_TRUE(axis(chart, AxisKind::Category, AxisGroup::Secondary)->deleted);
  for (const AxisModel* a : {categories, values}) {
    EXPECT_FALSE(a->deleted);
    EXPECT_FALSE(a->title.has_value());
    EXPECT_DOUBLE_EQ(a->tickLabelFont.size, 8);
    EXPECT_FALSE(a->majorGridlines);
    EXPECT_FALSE(a->minorGridlines);
  }
  EXPECT_FALSE(categories->line);
  EXPECT_TRUE(values->line);
  EXPECT_EQ(values->majorTickMark, TickMark::Outside);
  EXPECT_EQ(values->tickLabelNumberFormat, "General");  // maximum 7.5: an axis up to 8
}

TEST_F(PlotBoxTest, WholeNumberTickLabelsFromAnAxisMaximumOfTen) {
  struct Case {
    std::string name;
    std::vector<CellValue> maxima, minima;
    std::string format;
  };
  const std::vector<Case> cases = {
      {"axis to 8", {5.0, 7.6, 6.0}, {1.0, 1.0, 2.0}, "General"},
      {"axis to exactly 10", {5.0, 9.5, 6.0}, {1.0, 1.0, 2.0}, "0"},
      {"axis to 12", {5.0, 11.0, 6.0}, {1.0, 1.0, 2.0}, "0"},
      {"8.2 to 9.1 (axis 8 to 9.2)", {9.0, 9.1, 8.9}, {8.2, 8.3, 8.4}, "General"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    row(6, 2, c.maxima);
    row(5, 2, c.minima);
    if (c.minima.front().number() > 8) {
      for (std::int32_t r = 2; r <= 4; ++r) row(r, 2, {8.5, 8.6, 8.7});
    }
    clsPlotBox plot;
    configure(plot, cells(2, 6, 2, 6));
    plot.CreatePlot();
    EXPECT_EQ(axis(data.charts().back(), AxisKind::Value, AxisGroup::Primary)->tickLabelNumberFormat,
              c.format);
  }
}

TEST_F(PlotBoxTest, AVerticalOffsetThatReachesTheLastRowIsDropped) {
  struct Case {
    std::int32_t anchorRow, verticalOffset, horizontalOffset;
    double top, left;
  };
  const double lastRowTop = (kLastRow - 1) * 15.0;
  const std::vector<Case> cases = {
      {2, 198, 0, 15 + 198, 5 * 48},
      {2, 0, 30, 15, 5 * 48 + 30},
      {kLastRow - 6, 60, 0, lastRowTop - 30, 5 * 48},      // ends 30 points above the last row
      {kLastRow - 6, 90, 7, lastRowTop - 90, 5 * 48 + 7},  // would start at the last row
      {kLastRow, 0, 0, lastRowTop, 5 * 48},
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
  const std::string source = "Line 0 in ORVDescriptives.clsPlotBox.CreatePlot";
  InMemoryWorksheet& other = book.addSheet("Other");
  struct Case {
    std::string name;
    std::function<void(clsPlotBox&)> setUp;
    std::int32_t number;
    std::size_t chartsLeft;
  };
  const std::vector<Case> cases = {
      {"no output range", [](clsPlotBox&) {}, 91, 0},
      {"no headers", [&](clsPlotBox& p) { p.OutputRange(cells(2, 6, 2, 6)); }, 91, 1},
      {"headers on another sheet than the percentiles",
       [&](clsPlotBox& p) { configure(p, cells(2, 6, 2, 6)); p.HeadersRange(Range(other, CellBlock{1, 2, 1, 4})); },
       err::kHostFailure, 1},
      // Selecting a chart on a sheet that is not the active one fails.
      {"output on an inactive sheet",
       [&](clsPlotBox& p) { configure(p, Range(other, CellBlock{2, 6, 2, 6})); }, err::kHostFailure, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    InMemoryWorksheet& target = c.name == "output on an inactive sheet" ? other : data;
    const std::size_t before = target.charts().size();
    clsPlotBox plot;
    c.setUp(plot);
    const ComponentError e = errorOf([&] { plot.CreatePlot(); });
    EXPECT_EQ(e.number(), c.number);
    EXPECT_EQ(e.source(), source);
    EXPECT_EQ(target.charts().size(), before + c.chartsLeft);
  }
}

TEST(ShortChartName, DropsTheSheetNameBeforeTheBlank) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"Sheet1 Chart 3", "Chart 3"},
      {"X Chart 100", "Chart 100"},
      {"Chart 1", "Chart 1"},
      // Ten characters leave no room for the blank in the first three: the name stays cut.
      {"S Chart 10000", "hart 10000"},
  };
  for (const auto& [name, expected] : cases) {
    SCOPED_TRACE(name);
    EXPECT_EQ(plot_steps::shortChartName(name), expected);
  }
}

}  // namespace
}  // namespace orv::test
