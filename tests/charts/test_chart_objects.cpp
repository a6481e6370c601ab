// The in-memory host's chart objects: cached series values, and the scale shared once a secondary
// axis is deleted (which the box plot's tick labels depend on).

#include "chart_fixture.h"
#include "frame/chart.h"

namespace orv::test {
namespace {

class ChartObjectsTest : public ChartTest {
 protected:
  ChartObjectsTest() {
    row(1, 2, {"Ann", "Bob", 7.0});        // B1:D1 names (a number among them)
    row(2, 2, {1.5, CellValue(), "n/a"});  // B2:D2: empty and text cells have no value
    row(3, 2, {8.0, 9.0, 9.2});
  }
  Chart& newChart() { return data.chartObjects().Add(10, 20, 300, 150).Chart(); }
};

TEST_F(ChartObjectsTest, SeriesFromAreasWithTheirCachedValues) {
  SeriesCollection& series = newChart().SeriesCollection();
  series.Add(Union(cells(1, 2, 1, 4), cells(2, 2, 2, 4)), host::RowCol::Columns, false, true, false);
  series.Add(cells(3, 2, 3, 4));
  series.Add(Range(data, CellBlock{1, 3, 3, 3}), host::RowCol::Columns, true);  // named by B1
  const ChartModel& model = data.charts().front();
  ASSERT_EQ(model.series.size(), 3U);
  EXPECT_EQ(model.series[0].categories.cached, (std::vector<std::string>{"Ann", "Bob", "7"}));
  EXPECT_EQ(model.series[0].values.cached, (Cached{1.5, std::nullopt, std::nullopt}));
  EXPECT_EQ(model.series[1].categories.cells, ref(1, 2, 1, 4));  // borrowed from the first series
  EXPECT_EQ(model.series[2].name, "Bob");
  EXPECT_EQ(model.series[2].values.cells, ref(2, 3, 3, 3));
  EXPECT_EQ(errorOf([&] { series.Add(cells(1, 2, 2, 3)); }).number(), err::kHostFailure);  // a block
}

TEST_F(ChartObjectsTest, TheSecondaryScaleJoinsThePrimaryOnceItsAxisIsDeleted) {
  Chart& chart = newChart();
  chart.SeriesCollection().Add(cells(3, 2, 3, 4));                                           // 8 .. 9.2
  chart.SeriesCollection().Add(cells(2, 2, 2, 2)).SetAxisGroup(host::AxisGroup::Secondary);  // 1.5
  Axis& primary = chart.Axes(host::AxisType::Value);
  Axis& secondary = chart.Axes(host::AxisType::Value, host::AxisGroup::Secondary);
  EXPECT_DOUBLE_EQ(primary.MaximumScale(), 9.4);
  EXPECT_DOUBLE_EQ(secondary.MaximumScale(), 1.6);
  secondary.Delete();
  EXPECT_DOUBLE_EQ(primary.MaximumScale(), 10);
  EXPECT_EQ(errorOf([&] { secondary.TickLabels().NumberFormat(); }).number(), err::kHostFailure);
}

}  // namespace
}  // namespace orv::test
