#include "support/scatter_chart_builder.h"

#include <algorithm>
#include <utility>

#include "frame/chart.h"
#include "frame/errors.h"
#include "frame/host.h"
#include "frame/procedure.h"
#include "support/host_constants.h"
#include "support/host_session.h"

namespace orv {
namespace {

constexpr Procedures kProc("ScatterChartBuilder");

// The unit circle with a little room: sines and cosines never leave -1..1.
constexpr double kScaleLimit = 1.0;
constexpr double kScaleStep = 0.5;

const Range& set(const std::optional<Range>& range) {
  if (!range) raise(91, "Object variable or With block variable not set");
  return *range;
}

// Top-left corner of the chart: the output cell moved by the offsets, the vertical one dropped
// when it would put the chart at or below the top of the sheet's last row.
std::pair<double, double> placement(const Range& output, std::int32_t vertical, std::int32_t horizontal) {
  const Range cell = output.Cells(1, 1);
  const Range sheet = Range::AllCells(output.Parent());
  const double lastRowTop = sheet.Cells(sheet.RowsCount(), 1).Top();
  const double top = cell.Top() + vertical;
  return {cell.Left() + horizontal, top < lastRowTop ? top : cell.Top()};
}

void formatAxis(Axis& axis) {
  axis.SetHasTitle(false);
  axis.SetHasMajorGridlines(false);
  axis.SetHasMinorGridlines(false);
  axis.SetMinimumScale(-kScaleLimit);
  axis.SetMaximumScale(kScaleLimit);
  axis.SetMajorUnit(kScaleStep);
  axis.SetMajorTickMark(HostConstants::TickMarksOutside());
  axis.TickLabels().Font().SetSize(8);
}

// A square plot area, so that the circle is round: a quarter of the room above the plot goes to
// the plot (the tick label at the top of the Y axis must stay clear of the title), and the square
// is centred across the chart.
void squarePlotArea(Chart& chart) {
  PlotArea& plot = chart.PlotArea();
  const double top = plot.Top() * 3 / 4;
  const double height = plot.Height() + top;
  const double width = chart.ChartArea().Width() - 2 * plot.Left();
  const double side = std::max(0.0, std::min(height, width));
  plot.SetTop(top);
  plot.SetHeight(side);
  plot.SetWidth(side);
  plot.SetLeft(std::max(0.0, (chart.ChartArea().Width() - side) / 2));
}

}  // namespace

ScatterChartBuilder::ScatterChartBuilder() {
  kProc("Class_Initialize", [] {});
}

void ScatterChartBuilder::VerticalOffset(std::int32_t points) { kProc("LetVerticalOffset", [&] { verticalOffset_ = points; }); }
void ScatterChartBuilder::HorizontalOffset(std::int32_t points) { kProc("LetHorizontalOffset", [&] { horizontalOffset_ = points; }); }
void ScatterChartBuilder::OutputRange(const Range& cell) { kProc("SetOutputRange", [&] { output_ = cell; }); }
void ScatterChartBuilder::XValuesRange(const Range& cells) { kProc("SetXValuesRange", [&] { x_ = cells; }); }
void ScatterChartBuilder::YValuesRange(const Range& cells) { kProc("SetYValuesRange", [&] { y_ = cells; }); }
void ScatterChartBuilder::ChartTitle(const std::string& title) { kProc("LetChartTitle", [&] { chartTitle_ = title; }); }
void ScatterChartBuilder::ChartHeight(std::int32_t points) { kProc("LetChartHeight", [&] { chartHeight_ = points; }); }
void ScatterChartBuilder::ChartWidth(std::int32_t points) { kProc("LetChartWidth", [&] { chartWidth_ = points; }); }

void ScatterChartBuilder::CreatePlot() {
  kProc("CreatePlot", [&] {
    const Range& output = set(output_);
    const Range& x = set(x_);
    const Range& y = set(y_);
    const auto [left, top] = placement(output, verticalOffset_, horizontalOffset_);
    ChartObject& object = output.Parent().chartObjects().Add(left, top, chartWidth_, chartHeight_);
    Chart& chart = object.Chart();

    chart.SetChartType(host::ChartType::XYScatter);
    Series& points = chart.SeriesCollection().NewSeries();
    points.SetXValues(x);
    points.SetValues(y);
    points.SetMarkerStyle(host::MarkerStyle::Circle);
    // Points only: the order of the angles means nothing.
    points.Border().SetLineStyle(HostConstants::NoLine());

    chart.ChartArea().SetAutoScaleFont(false);
    chart.ChartArea().Interior().SetColorIndex(settings_.ChartAreaColorIndex());
    if (chartTitle_.empty()) {
      chart.SetHasTitle(false);
    } else {
      chart.SetHasTitle(true);
      chart.ChartTitle().SetText(chartTitle_);
      chart.ChartTitle().Font().SetSize(10);
      chart.ChartTitle().Font().SetBold(true);
    }
    chart.SetHasLegend(false);
    chart.PlotArea().Fill().SetVisible(HostConstants::FillHidden());
    chart.PlotArea().Border().SetLineStyle(HostConstants::NoLine());
    squarePlotArea(chart);
    formatAxis(chart.Axes(HostConstants::CategoryAxis(), HostConstants::PrimaryGroup()));
    formatAxis(chart.Axes(HostConstants::ValueAxis(), HostConstants::PrimaryGroup()));
  });
}

}  // namespace orv
