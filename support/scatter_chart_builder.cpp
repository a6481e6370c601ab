#include "support/scatter_chart_builder.h"

#include <algorithm>
#include <utility>

#include "frame/chart.h"
#include "frame/errors.h"
#include "frame/host.h"
#include "frame/procedure.h"
#include "support/chart_style.h"
#include "support/host_constants.h"
#include "support/host_session.h"

namespace orv {
namespace {

constexpr Procedures kProc("ScatterChartBuilder");

// The unit circle with a little room: sines and cosines never leave -1..1.
constexpr double kScaleLimit = 1.0;
constexpr double kScaleStep = 0.5;
constexpr std::int32_t kMarkerSize = 5;

void formatAxis(Axis& axis) {
  axis.SetHasTitle(false);
  axis.SetHasMajorGridlines(false);
  axis.SetHasMinorGridlines(false);
  axis.SetMinimumScale(-kScaleLimit);
  axis.SetMaximumScale(kScaleLimit);
  axis.SetMajorUnit(kScaleStep);
  axis.SetMajorTickMark(HostConstants::TickMarksOutside());
  // The axes cross at the centre; their labels stand at the plot's left and bottom edges, where
  // no point and no other axis covers them (a 0 at the crossing would sit on both axes).
  axis.SetTickLabelPosition(host::TickLabelPosition::Low);
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

ScatterChartBuilder::ScatterChartBuilder() : PlotFrame(kProc) {
  kProc("Class_Initialize", [] {});
}

void ScatterChartBuilder::OutputRange(const Range& cell) {
  kProc("SetOutputRange", [&] { output_ = cell; });
}
void ScatterChartBuilder::XValuesRange(const Range& cells) {
  kProc("SetXValuesRange", [&] { x_ = cells; });
}
void ScatterChartBuilder::YValuesRange(const Range& cells) {
  kProc("SetYValuesRange", [&] { y_ = cells; });
}

void ScatterChartBuilder::CreatePlot() {
  kProc("CreatePlot", [&] {
    const Range& output = required(output_);
    const Range& x = required(x_);
    const Range& y = required(y_);
    const auto [left, top] = placeChart(output, verticalOffset_, horizontalOffset_);
    ChartObject& object = output.Parent().chartObjects().Add(left, top, chartWidth_, chartHeight_);
    Chart& chart = object.Chart();

    chart.SetChartType(host::ChartType::XYScatter);
    Series& points = chart.SeriesCollection().NewSeries();
    points.SetXValues(x);
    points.SetValues(y);
    points.SetMarkerStyle(host::MarkerStyle::Circle);
    // Small enough that nearby angles stay apart on a 200-point chart.
    points.SetMarkerSize(kMarkerSize);
    // Points only: the order of the angles means nothing.
    points.Border().SetLineStyle(HostConstants::NoLine());

    chart.ChartArea().SetAutoScaleFont(false);
    chart.ChartArea().Interior().SetColorIndex(settings_.ChartAreaColorIndex());
    setChartTitle(chart, chartTitle_);
    chart.SetHasLegend(false);
    chart.PlotArea().Fill().SetVisible(HostConstants::FillHidden());
    chart.PlotArea().Border().SetLineStyle(HostConstants::NoLine());
    squarePlotArea(chart);
    formatAxis(chart.Axes(HostConstants::CategoryAxis(), HostConstants::PrimaryGroup()));
    formatAxis(chart.Axes(HostConstants::ValueAxis(), HostConstants::PrimaryGroup()));
  });
}

}  // namespace orv
