#pragma once
// A results sheet with the four kinds of chart the component draws (box plot, error plot,
// circular scatter plot, histogram), built by hand as the chart builders record them.

#include <string>
#include <tuple>
#include <vector>

#include "test_packages.h"
#include "workbook/chart_model.h"
#include "workbook/in_memory_application.h"
#include "workbook/in_memory_chart_objects.h"
#include "xlsx/writer_workbook.h"

namespace orv::test {

inline constexpr const char* kResults = "Results & O'Neil";

inline SheetRef cells(std::int32_t top, std::int32_t left, std::int32_t bottom, std::int32_t right) {
  return {kResults, CellBlock{top, left, bottom, right}};
}

// Rows 1..9 of columns A..D: headers, LP, Min, Max, UP, Median, Mean, SE, cumulative percentages;
// rows 14..19: X, Y.
inline void fillResults(InMemoryWorksheet& sheet) {
  const char* labels[] = {"", "LP", "Min", "Max", "UP", "Median", "Mean", "SE", "Cum %"};
  const double values[][3] = {{3, 4, 2}, {1, 2, 0.5},     {9.1, 8, 6},     {7, 6.5, 4},
                              {5, 5, 3}, {5.2, 5.1, 3.1}, {0.8, 0.6, 0.4}, {30, 70, 100}};
  const char* names[] = {"Alpha", "Beta", "Gamma"};
  for (int r = 1; r < 9; ++r) sheet.storeRaw(r + 1, 1, CellValue(labels[r]));
  for (int c = 0; c < 3; ++c) {
    sheet.storeRaw(1, c + 2, CellValue(names[c]));
    for (int r = 0; r < 8; ++r) sheet.storeRaw(r + 2, c + 2, CellValue(values[r][c]));
  }
  const double xy[][2] = {{1, 0}, {0.5, 0.866}, {-0.5, 0.866}, {-1, 0}, {-0.5, -0.866}, {0.5, -0.866}};
  for (int r = 0; r < 6; ++r) {
    sheet.storeRaw(14 + r, 1, CellValue(xy[r][0]));
    sheet.storeRaw(14 + r, 2, CellValue(xy[r][1]));
  }
}

inline ChartData rowData(const InMemoryWorksheet& sheet, std::int32_t row) {
  ChartData d;
  d.cells = cells(row, 2, row, 4);
  for (int c = 2; c <= 4; ++c) d.cached.push_back(sheet.cellValue(row, c).number());
  return d;
}

inline AxisModel axis(AxisKind kind, AxisGroup group = AxisGroup::Primary) {
  AxisModel a;
  a.kind = kind;
  a.group = group;
  return a;
}

inline ChartModel chart(const char* name, const char* title, ChartKind kind, double left, double top, double width) {
  ChartModel c;
  c.name = name;
  c.title = title;
  c.kind = kind;
  std::tie(c.left, c.top, c.width, c.height) = std::tuple(left, top, width, 200.0);
  c.legend = false;
  return c;
}

// A series of the values in `row` over the header labels.
inline SeriesModel series(const InMemoryWorksheet& sheet, std::int32_t row, ChartKind kind = ChartKind::LineMarkers,
                          const char* name = "") {
  SeriesModel s;
  s.kind = kind;
  s.name = name;
  s.categories = {cells(1, 2, 1, 4), {"Alpha", "Beta", "Gamma"}};
  s.values = rowData(sheet, row);
  return s;
}

inline ChartModel boxPlot(const InMemoryWorksheet& sheet, double left, double top) {
  ChartModel c = chart("Chart 1", "Box plot", ChartKind::StockOHLC, left, top, 200);
  c.height = 180;
  for (std::int32_t row : {2, 3, 4, 5}) c.series.push_back(series(sheet, row, ChartKind::StockOHLC));
  SeriesModel median = series(sheet, 6, ChartKind::StockOHLC);  // twice, on the secondary axes
  median.axisGroup = AxisGroup::Secondary;
  median.line = false;
  median.marker = MarkerSymbol::Dash;
  median.markerSize = 12;
  c.series.insert(c.series.end(), 2, median);
  c.upDownBars = c.highLowLines = true;
  c.upBarsColorIndex = 15;
  c.chartAreaColorIndex = 2;
  c.plotArea = {20, 25, 170, 145, true, false, false};
  AxisModel cat = axis(AxisKind::Category);
  cat.line = false;
  cat.tickLabelFont = {8, false};
  AxisModel val = axis(AxisKind::Value);
  val.title = "Value";
  val.tickLabelNumberFormat = "0";
  AxisModel secondary = axis(AxisKind::Value, AxisGroup::Secondary);
  secondary.deleted = true;
  c.axes = {cat, val, secondary};
  return c;
}

// Plus amounts from the SE row; minus amounts from cells too, or as literal distances.
inline ChartModel errorPlot(const InMemoryWorksheet& sheet, double left, double top, bool literalMinus) {
  ChartModel c =
      chart(literalMinus ? "Chart 3" : "Chart 2", "Mean with standard error", ChartKind::LineMarkers, left, top, 200);
  SeriesModel s = series(sheet, 7);
  s.line = false;
  s.marker = MarkerSymbol::Diamond;
  ErrorBarsModel bars;
  bars.plusAmounts = rowData(sheet, 8);
  if (literalMinus) bars.minusAmounts.literal = {1.6, 1.1, 1.2};
  else bars.minusAmounts = rowData(sheet, 8);
  s.errorBars = bars;
  c.series.push_back(s);
  c.axes = {axis(AxisKind::Category), axis(AxisKind::Value)};
  return c;
}

inline ChartModel scatterPlot(const InMemoryWorksheet& sheet, double left, double top) {
  ChartModel c = chart("Chart 4", "Direction", ChartKind::XYScatter, left, top, 200);
  SeriesModel s;
  s.kind = ChartKind::XYScatter;
  s.xValues.cells = cells(14, 1, 19, 1);
  s.values.cells = cells(14, 2, 19, 2);
  for (int r = 14; r <= 19; ++r) {
    s.xValues.cached.push_back(sheet.cellValue(r, 1).number());
    s.values.cached.push_back(sheet.cellValue(r, 2).number());
  }
  s.line = false;
  s.marker = MarkerSymbol::Circle;
  s.markerSize = 5;
  c.series.push_back(s);
  for (AxisKind kind : {AxisKind::Category, AxisKind::Value}) {
    AxisModel a = axis(kind);
    std::tie(a.minimumScale, a.maximumScale, a.majorUnit) = std::tuple(-1.0, 1.0, 0.5);
    c.axes.push_back(a);
  }
  c.plotArea = {25, 25, 160, 160, true, false, true};
  return c;
}

inline ChartModel histogram(const InMemoryWorksheet& sheet, double left, double top) {
  ChartModel c = chart("Chart 5", "Histogram", ChartKind::ColumnClustered, left, top, 300);
  c.legend = true;
  c.gapWidth = 0;
  SeriesModel normal = series(sheet, 7, ChartKind::LineMarkers, "Normal");
  normal.marker = MarkerSymbol::None;
  normal.smooth = true;
  SeriesModel cumulative = series(sheet, 9, ChartKind::LineMarkers, "Cumulative Frequency");
  cumulative.axisGroup = AxisGroup::Secondary;
  c.series = {series(sheet, 2, ChartKind::ColumnClustered, "Frequency"), normal, cumulative};
  AxisModel percent = axis(AxisKind::Value, AxisGroup::Secondary);
  std::tie(percent.minimumScale, percent.maximumScale) = std::tuple(0.0, 100.0);
  percent.tickLabelNumberFormat = "0\"%\"";
  AxisModel xAxis = axis(AxisKind::Category);
  xAxis.title = "Class";
  AxisModel yAxis = axis(AxisKind::Value);
  yAxis.title = "Count";
  c.axes = {xAxis, yAxis, percent};
  return c;
}

// Columns F on: the box plot, the error plots 198 pt and 396 pt below, the scatter plot and
// the histogram in column L.
inline std::vector<ChartModel> allCharts(const InMemoryWorksheet& sheet) {
  const double f = sheet.geometry().columnLeft(6);
  const double l = sheet.geometry().columnLeft(12);
  return {boxPlot(sheet, f, 0), errorPlot(sheet, f, 198, false), errorPlot(sheet, f, 396, true),
          scatterPlot(sheet, l, 0), histogram(sheet, l, 210)};
}

// Records `model` through the sheet's chart objects, as a chart builder does (the object keeps its name).
inline void record(InMemoryWorksheet& sheet, const ChartModel& model) {
  auto& object =
      dynamic_cast<InMemoryChartObject&>(sheet.chartObjects().Add(model.left, model.top, model.width, model.height));
  const std::string name = object.model().name;
  object.model() = model;
  object.model().name = name;
}

}  // namespace orv::test
