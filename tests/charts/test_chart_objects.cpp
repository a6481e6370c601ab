// The in-memory host's chart object model: what it records that the builders do not show, and
// what it refuses (1004).

#include <functional>
#include <variant>

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

TEST_F(ChartObjectsTest, ChartsAreNamedPerSheetAndFoundByName) {
  InMemoryWorksheet& other = book.addSheet("Other sheet");
  data.chartObjects().Add(0, 0, 100, 100);
  ChartObject& second = data.chartObjects().Add(5, 6, 70, 80);
  ChartObject& elsewhere = other.chartObjects().Add(0, 0, 100, 100);
  EXPECT_EQ(second.Chart().Name(), "Data Chart 2");
  EXPECT_EQ(elsewhere.Chart().Name(), "Other sheet Chart 1");
  EXPECT_EQ(&data.chartObjects().Item("chart 2"), &second);

  data.shapes("Chart 2").SetTop(40);
  EXPECT_DOUBLE_EQ(data.charts()[1].top, 40);
  EXPECT_EQ(data.charts()[1].kind, ChartKind::ColumnClustered);

  for (auto call : std::vector<std::function<void()>>{
           [&] { data.shapes("Chart 3"); },
           [&] { data.chartObjects().Add(0, 0, -1, 10); },
           [&] { elsewhere.Select(); },  // not the active sheet
       }) {
    EXPECT_EQ(errorOf(call).number(), err::kHostFailure);
  }
}

TEST_F(ChartObjectsTest, SeriesFromAreasWithTheirCachedValues) {
  SeriesCollection& series = newChart().SeriesCollection();
  series.Add(Union(cells(1, 2, 1, 4), cells(2, 2, 2, 4)), host::RowCol::Columns, false, true, false);
  series.Add(cells(3, 2, 3, 4));
  series.Add(Range(data, CellBlock{1, 3, 3, 3}), host::RowCol::Columns, true);  // named by B1

  const ChartModel& model = data.charts().front();
  ASSERT_EQ(model.series.size(), 3U);
  EXPECT_EQ(model.series[0].categories.cached, (std::vector<std::string>{"Ann", "Bob", "7"}));
  EXPECT_EQ(model.series[0].values.cached, (Cached{1.5, std::nullopt, std::nullopt}));
  // Later series borrow the first one's categories.
  EXPECT_EQ(model.series[1].categories.cells, ref(1, 2, 1, 4));
  EXPECT_EQ(model.series[2].name, "Bob");
  EXPECT_EQ(model.series[2].values.cells, ref(2, 3, 3, 3));
  EXPECT_EQ(model.axes.size(), 2U);  // the primary pair
  // A block is neither a row nor a column.
  EXPECT_EQ(errorOf([&] { series.Add(cells(1, 2, 2, 3)); }).number(), err::kHostFailure);
}

TEST_F(ChartObjectsTest, TheSecondaryScaleJoinsThePrimaryOnceItsAxisIsDeleted) {
  Chart& chart = newChart();
  chart.SeriesCollection().Add(cells(3, 2, 3, 4));                                    // 8 .. 9.2
  chart.SeriesCollection().Add(cells(2, 2, 2, 2)).SetAxisGroup(host::AxisGroup::Secondary);  // 1.5
  Axis& primary = chart.Axes(host::AxisType::Value);
  Axis& secondary = chart.Axes(host::AxisType::Value, host::AxisGroup::Secondary);
  EXPECT_DOUBLE_EQ(primary.MaximumScale(), 9.4);
  EXPECT_DOUBLE_EQ(secondary.MaximumScale(), 1.6);
  EXPECT_TRUE(axis(data.charts().front(), AxisKind::Category, AxisGroup::Secondary)->deleted);
  secondary.Delete();
  EXPECT_DOUBLE_EQ(primary.MaximumScale(), 10);
  EXPECT_EQ(errorOf([&] { secondary.TickLabels().NumberFormat(); }).number(), err::kHostFailure);
}

TEST_F(ChartObjectsTest, WhatTheHostRefuses) {
  Chart& chart = newChart();
  Series& first = chart.SeriesCollection().Add(cells(3, 2, 3, 4));
  chart.SeriesCollection().Add(cells(3, 2, 3, 4));
  const auto bars = [&](host::ErrorBarDirection direction, host::ErrorBarType type, ErrorAmount plus) {
    return [&first, direction, type, plus] {
      first.ErrorBar(direction, host::ErrorBarInclude::Both, type, plus,
                     ValueArray1D(std::vector<CellValue>{1.0}));
    };
  };
  const auto y = host::ErrorBarDirection::Y;
  const auto custom = host::ErrorBarType::Custom;
  const std::vector<std::pair<std::string, std::function<void()>>> calls = {
      {"open-high-low-close of two series", [&] { chart.SetChartType(host::ChartType::StockOHLC); }},
      {"up-down bars of a column group", [&] { chart.ChartGroups(1).SetHasUpDownBars(true); }},
      {"a secondary group that is not there", [&] { chart.ChartGroups(2); }},
      {"a title that is not there", [&] { chart.ChartTitle(); }},
      {"the maximum of a category axis", [&] { chart.Axes(host::AxisType::Category).MaximumScale(); }},
      {"a negative plot area", [&] { chart.PlotArea().SetTop(-1); }},
      {"colour 57", [&] { chart.ChartArea().Interior().SetColorIndex(57); }},
      {"error bars that are not there", [&] { first.ErrorBars(); }},
      {"no amounts", bars(y, custom, std::monostate{})},
      {"a text among the amounts", bars(y, custom, ValueArray1D(std::vector<CellValue>{1.0, "x"}))},
      {"amounts from a block", bars(y, custom, cells(1, 2, 2, 3))},
      {"horizontal bars", bars(host::ErrorBarDirection::X, custom, cells(2, 2, 2, 4))},
      {"standard error bars", bars(y, host::ErrorBarType::StError, cells(2, 2, 2, 4))},
      {"a deleted series", [&] { first.Delete(); first.SetAxisGroup(host::AxisGroup::Primary); }},
  };
  for (const auto& [name, call] : calls) {
    SCOPED_TRACE(name);
    EXPECT_EQ(errorOf(call).number(), err::kHostFailure);
  }
  EXPECT_EQ(data.charts().front().series.size(), 1U);
}

TEST_F(ChartObjectsTest, ThePlotAreaIsAutomaticUntilSet) {
  Chart& chart = newChart();  // 300 x 150
  PlotArea& plot = chart.PlotArea();
  EXPECT_DOUBLE_EQ(plot.Top(), 18);
  chart.SetHasTitle(true);
  EXPECT_DOUBLE_EQ(plot.Top(), 30);
  plot.SetTop(plot.Top() / 2);
  const PlotAreaModel& model = data.charts().front().plotArea;
  EXPECT_TRUE(model.manual);
  EXPECT_DOUBLE_EQ(model.top, 15);
  EXPECT_DOUBLE_EQ(model.height, 100.5);
  // Fixed now: the title going away no longer moves it.
  chart.SetHasTitle(false);
  EXPECT_DOUBLE_EQ(plot.Top(), 15);
}

}  // namespace
}  // namespace orv::test
