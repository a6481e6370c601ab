// What every host must do with the charts the builders make, run against the in-memory host and
// the live one: the charts are read back (chart_probe.h) from the host's record or the office's
// chart documents, and must show the same things.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../frame/raised_number.h"
#include "frame/errors.h"
#include "frame/range.h"
#include "host_under_test.h"

namespace orv::test {
namespace {

using host::AxisGroup;
using host::AxisType;

class HostCharts : public HostTest {
 protected:
  void SetUp() override {
    host = GetParam()({"Data"});
    // A results block as the descriptive driver pastes it: names, then a statistic per row.
    const std::vector<std::vector<CellValue>> rows = {
        {"", "Control", "Treated"}, {"25th", 1.0, 2.0},   {"Min", 0.0, 1.0}, {"Max", 9.0, 12.0},
        {"75th", 5.0, 6.0},         {"Median", 3.0, 4.0}, {"SE", 0.5, 0.25}};
    for (std::size_t r = 0; r < rows.size(); ++r)
      for (std::size_t c = 0; c < rows[r].size(); ++c)
        data().pasteValue(static_cast<std::int32_t>(r + 1), static_cast<std::int32_t>(c + 1), rows[r][c]);
  }
  Worksheet& data() { return host->book().Worksheets("Data"); }
  ProbedChart only() {
    const std::vector<ProbedChart> charts = host->charts(data());
    EXPECT_EQ(charts.size(), 1u);
    return charts.empty() ? ProbedChart{} : charts.front();
  }
  static ProbedAxis axis(const char* which, bool shown, double ticks, std::string format, bool grid) {
    ProbedAxis a;
    a.which = which;
    a.shown = shown;
    a.tickLabelSize = ticks;
    a.numberFormat = std::move(format);
    a.majorGridlines = grid;
    return a;
  }
};

// The box plot: four price series, the stock type, the median twice on a deleted secondary axis.
TEST_P(HostCharts, AStockChartWithTheMediansOnAHiddenSecondaryAxis) {
  ChartObject& object = data().chartObjects().Add(250, 15, 200, 180);
  object.SetHeight(180);
  host->app().SetScreenUpdating(false);
  object.Select();
  Chart& chart = object.Chart();
  SeriesCollection& series = chart.SeriesCollection();
  series.Add(Union(range("B1:C1"), range("B2:C2")), host::RowCol::Columns, false, true, false);
  series.Add(range("B3:C3"));
  series.Add(range("B4:C4"));
  series.Add(range("B5:C5"));
  chart.SetChartType(host::ChartType::StockOHLC);
  series.Add(range("B6:C6"));
  series.Add(range("B6:C6"));
  series.Item(5).SetAxisGroup(AxisGroup::Secondary);
  series.Item(6).SetAxisGroup(AxisGroup::Secondary);
  chart.Axes(AxisType::Value, AxisGroup::Secondary).Delete();
  chart.ChartGroups(1).SetHasUpDownBars(true);
  chart.ChartGroups(1).UpBars().Interior().SetColorIndex(15);
  chart.SetHasTitle(true);
  chart.ChartTitle().SetText("Heights");
  chart.SetHasLegend(false);
  Axis& values = chart.Axes(AxisType::Value, AxisGroup::Primary);
  values.SetHasTitle(true);
  values.AxisTitle().SetText("cm");
  values.TickLabels().Font().SetSize(8);
  values.SetHasMajorGridlines(false);
  // The automatic scale covers the largest value plotted.
  EXPECT_GE(values.MaximumScale(), 12.0);
  EXPECT_LT(values.MaximumScale(), 20.0);
  values.TickLabels().SetNumberFormat("0");
  host->app().ActiveSheet().shapes("chart 1").SetTop(30);

  ProbedChart expected{.name = "Chart 1",
                       .left = 250,
                       .top = 30,
                       .width = 200,
                       .height = 180,
                       .title = "Heights",
                       .titleSize = 10,
                       .titleBold = true,
                       .upDownBars = true};
  for (const char* cells : {"Data!$B$2:$C$2", "Data!$B$3:$C$3", "Data!$B$4:$C$4", "Data!$B$5:$C$5"}) {
    expected.series.push_back({"stock", cells, "Data!$B$1:$C$1", "", false, false, "", ""});
  }
  for (int i = 0; i < 2; ++i)
    expected.series.push_back({"line", "Data!$B$6:$C$6", "Data!$B$1:$C$1", "", true, false, "", "", 12});
  expected.axes = {axis("category", true, 10, "General", false),
                   {.which = "value", .title = "cm", .titleSize = 10, .tickLabelSize = 8, .numberFormat = "0"},
                   axis("secondary value", false, 10, "General", false)};
  expectSameChart(expected, only());
  EXPECT_EQ(chart.Name(), "Data Chart 1");
}

// The error plot: one series of centres, bars from cells above and from a literal list below.
TEST_P(HostCharts, ErrorBarsFromCellsAndFromLiteralAmounts) {
  ChartObject& object = data().chartObjects().Add(0, 200, 150, 200);
  Chart& chart = object.Chart();
  chart.SeriesCollection().Add(Union(range("B1:C1"), range("B6:C6")), host::RowCol::Columns, false, true, false);
  chart.SetChartType(host::ChartType::LineMarkers);
  Series& centre = chart.SeriesCollection().Item(1);
  centre.SetHasErrorBars(true);
  centre.ErrorBars().Delete();
  EXPECT_EQ(raisedNumber([&] { centre.ErrorBars(); }), 1004);
  // Custom amounts above and below, in the direction of the values unless told.
  const auto customBars = [&](const ErrorAmount& plus, const ErrorAmount& minus,
                              host::ErrorBarDirection direction = host::ErrorBarDirection::Y) {
    centre.ErrorBar(direction, host::ErrorBarInclude::Both, host::ErrorBarType::Custom, plus, minus);
  };
  customBars(range("B7:C7"), ValueArray1D(std::vector<CellValue>{2.0, 3.5}));
  centre.ErrorBars().SetEndStyle(host::EndStyle::Cap);
  centre.Border().SetLineStyle(host::LineStyle::None);
  chart.SetHasLegend(false);

  ProbedChart expected{.name = "Chart 1", .top = 200, .width = 150, .height = 200};
  // The automatic marker of points with error bars is drawn small (frame/chart_layout.h).
  expected.series = {{"line", "Data!$B$6:$C$6", "Data!$B$1:$C$1", "", false, false, "Data!$B$7:$C$7", "=2;3.5", 4}};
  expected.axes = {axis("category", true, 10, "General", false), axis("value", true, 10, "General", true)};
  expectSameChart(expected, only());

  // A list that also stands in cells is tied to them; one whose cells do not match it is not.
  range("B8:C8").SetValues(ValueArray2D(1, 2));
  range("B8").SetValue(CellValue(2.0));
  range("C8").SetValue(CellValue(3.5));
  const ValueArray1D distances(std::vector<CellValue>{2.0, 3.5});
  customBars(AmountList(distances, range("B8:C8")), AmountList(distances, range("B8:D8")));
  expected.series.front().plusErrors = "Data!$B$8:$C$8";
  expected.series.front().minusErrors = "=2;3.5";
  expectSameChart(expected, only());

  const ErrorAmount nothing;
  EXPECT_EQ(raisedNumber([&] { customBars(nothing, nothing); }), 1004);
  EXPECT_EQ(raisedNumber([&] { customBars(range("B7:C7"), range("B7:C7"), host::ErrorBarDirection::X); }), 1004);
}

// The histogram: columns from cells with literal labels, a smooth curve of literal values, and
// a cumulative line on a secondary axis of its own scale.
TEST_P(HostCharts, ColumnsWithLinesOfLiteralValuesAndASecondaryScale) {
  Chart& chart = data().chartObjects().Add(10, 10, 300, 200).Chart();
  chart.SetChartType(host::ChartType::ColumnClustered);
  const ValueArray1D labels(std::vector<CellValue>{"0 - 10", "10 - 20"});
  Series& bars = chart.SeriesCollection().NewSeries();
  bars.SetValues(range("B2:C2"));
  bars.SetXValues(labels);
  bars.SetName("Frequency");
  chart.ChartGroups(1).SetGapWidth(0);
  Series& normal = chart.SeriesCollection().NewSeries();
  normal.SetChartType(host::ChartType::Line);
  normal.SetValues(ValueArray1D(std::vector<CellValue>{1.25, CellValue{}}));
  normal.SetXValues(labels);
  normal.SetName("Normal");
  normal.SetSmooth(true);
  normal.Border().SetColorIndex(3);
  Series& cumulative = chart.SeriesCollection().NewSeries();
  cumulative.SetChartType(host::ChartType::Line);
  cumulative.SetValues(range("B5:C5"));
  cumulative.SetXValues(labels);
  cumulative.SetName("Cumulative Frequency");
  cumulative.SetAxisGroup(AxisGroup::Secondary);
  Axis& percents = chart.Axes(AxisType::Value, AxisGroup::Secondary);
  percents.SetMinimumScale(0);
  percents.SetMaximumScale(100);
  percents.SetHasMajorGridlines(false);
  percents.TickLabels().SetNumberFormat("0\"%\"");
  percents.Border().SetLineStyle(host::LineStyle::None);
  chart.Legend().SetPosition(host::LegendPosition::Bottom);
  chart.Legend().Font().SetSize(8);
  EXPECT_EQ(percents.MaximumScale(), 100);
  EXPECT_EQ(chart.SeriesCollection().Count(), 3);

  ProbedChart expected{.name = "Chart 1",
                       .left = 10,
                       .top = 10,
                       .width = 300,
                       .height = 200,
                       .legend = true,
                       .legendAt = "bottom",
                       .legendSize = 8};
  expected.series = {{"column", "Data!$B$2:$C$2", "=0 - 10;10 - 20", "Frequency", false, true, "", "", 7},
                     {"line", "=1.25;", "=0 - 10;10 - 20", "Normal", false, true, "", "", 0},
                     {"line", "Data!$B$5:$C$5", "=0 - 10;10 - 20", "Cumulative Frequency", true, true, "", "", 0}};
  expected.axes = {axis("category", true, 10, "General", false),
                   axis("value", true, 10, "General", true),
                   {.which = "secondary value",
                    .tickLabelSize = 10,
                    .numberFormat = "0\"%\"",
                    .line = false,
                    .minimum = 0,
                    .maximum = 100}};
  expectSameChart(expected, only());
}

TEST_P(HostCharts, AScatterChartOnFixedScales) {
  Chart& chart = data().chartObjects().Add(0, 0, 200, 200).Chart();
  chart.SetChartType(host::ChartType::XYScatter);
  Series& points = chart.SeriesCollection().NewSeries();
  points.SetXValues(range("B2:B6"));
  points.SetValues(range("C2:C6"));
  points.SetMarkerStyle(host::MarkerStyle::Circle);
  points.SetMarkerSize(5);
  points.Border().SetLineStyle(host::LineStyle::None);
  for (AxisType type : {AxisType::Category, AxisType::Value}) {
    Axis& a = chart.Axes(type, AxisGroup::Primary);
    a.SetTickLabelPosition(host::TickLabelPosition::Low);
    a.SetMinimumScale(-1);
    a.SetMaximumScale(1);
    a.SetMajorUnit(0.5);
    a.SetHasMajorGridlines(false);
  }
  chart.SetHasLegend(false);
  chart.PlotArea().SetLeft(20);
  EXPECT_EQ(chart.PlotArea().Left(), 20);
  EXPECT_GT(chart.PlotArea().Width(), 0);

  ProbedChart expected{.name = "Chart 1", .width = 200, .height = 200};
  expected.series = {{"scatter", "Data!$C$2:$C$6", "Data!$B$2:$B$6", "", false, false, "", "", 5}};
  for (const char* which : {"category", "value"}) {
    expected.axes.push_back({.which = which,
                             .tickLabelSize = 10,
                             .numberFormat = "General",
                             .labelsLow = true,
                             .minimum = -1,
                             .maximum = 1});
  }
  expectSameChart(expected, only());
}

TEST_P(HostCharts, WhatAChartDoesNotHaveIsAHostFailure) {
  ChartObjects& objects = data().chartObjects();
  Chart& chart = objects.Add(0, 0, 100, 100).Chart();
  EXPECT_EQ(objects.Add(0, 0, 100, 100).Name(), "Chart 2");
  EXPECT_EQ(objects.Count(), 2);
  EXPECT_EQ(raisedNumber([&] { objects.Item("Chart 9"); }), 1004);
  EXPECT_EQ(raisedNumber([&] { objects.Add(0, 0, -1, 100); }), 1004);
  EXPECT_EQ(raisedNumber([&] { chart.Axes(AxisType::Value, AxisGroup::Primary); }), 1004);  // no series yet
  EXPECT_EQ(raisedNumber([&] { chart.ChartGroups(1); }), 1004);
  SeriesCollection& series = chart.SeriesCollection();
  series.Add(range("B2:C2"));
  series.Add(range("B3:C3"));
  EXPECT_EQ(raisedNumber([&] { chart.SetChartType(host::ChartType::StockOHLC); }), 1004);
  EXPECT_EQ(raisedNumber([&] { chart.Axes(AxisType::Value, AxisGroup::Secondary); }), 1004);
  EXPECT_EQ(raisedNumber([&] { chart.Axes(AxisType::Category, AxisGroup::Secondary); }), 1004);
  EXPECT_EQ(raisedNumber([&] { chart.ChartGroups(1).UpBars(); }), 1004);
  EXPECT_EQ(raisedNumber([&] { chart.ChartTitle(); }), 1004);
  chart.SetHasLegend(false);
  EXPECT_EQ(raisedNumber([&] { chart.Legend(); }), 1004);
  for (const std::int32_t size : {1, 73}) EXPECT_EQ(raisedNumber([&] { series.Item(1).SetMarkerSize(size); }), 1004);
  EXPECT_EQ(raisedNumber([&] { series.Add(range("B2:C3")); }), 1004);
  Series& second = series.Item(2);
  second.Delete();
  EXPECT_EQ(series.Count(), 1);
  EXPECT_EQ(raisedNumber([&] { second.SetName("gone"); }), 1004);
  EXPECT_EQ(raisedNumber([&] { series.Item(2); }), 1004);
  EXPECT_EQ(raisedNumber([&] { series.Item(1).SetValues(ValueArray1D(std::vector<CellValue>{"x"})); }), 1004);
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Hosts, HostCharts, bothHosts(), hostName);

}  // namespace orv::test
