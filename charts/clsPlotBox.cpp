#include "charts/clsPlotBox.h"

#include "charts/plot_steps.h"
#include "frame/chart.h"
#include "frame/procedure.h"
#include "support/host_constants.h"

namespace orv {
namespace {

const Procedures kProc{"clsPlotBox"};

}  // namespace

clsPlotBox::clsPlotBox() : PlotFrame(kProc) {
  kProc("Class_Initialize", [] {});
}

void clsPlotBox::OutputRange(const Range& cell) {
  kProc("SetOutputRange", [&] { output_ = cell; });
}
void clsPlotBox::HeadersRange(const Range& cells) {
  kProc("SetHeadersRange", [&] { headers_ = cells; });
}
void clsPlotBox::MedianRange(const Range& cells) {
  kProc("SetMedianRange", [&] { median_ = cells; });
}
void clsPlotBox::LPRange(const Range& cells) {
  kProc("SetLPRange", [&] { lowerPercentile_ = cells; });
}
void clsPlotBox::UPRange(const Range& cells) {
  kProc("SetUPRange", [&] { upperPercentile_ = cells; });
}
void clsPlotBox::MinRange(const Range& cells) {
  kProc("SetMinRange", [&] { minimum_ = cells; });
}
void clsPlotBox::MaxRange(const Range& cells) {
  kProc("SetMaxRange", [&] { maximum_ = cells; });
}

void clsPlotBox::CreatePlot() {
  kProc("CreatePlot", [&] {
    const Range& output = plot_steps::required(output_);
    const plot_steps::Placement at = plot_steps::placeChart(output, verticalOffset_, horizontalOffset_);
    ChartObject& object = plot_steps::addEmptyChart(output, at, chartWidth_, chartHeight_);
    Chart& chart = object.Chart();

    // Lower percentile (open), minimum, maximum, upper percentile (close): the stock type turns
    // open and close into the box and the extremes into the whiskers.
    SeriesCollection& series = chart.SeriesCollection();
    series.Add(Union(plot_steps::required(headers_), plot_steps::required(lowerPercentile_)),
               HostConstants::SeriesInColumns(), false, true, false);
    series.Add(plot_steps::required(minimum_));
    series.Add(plot_steps::required(maximum_));
    series.Add(plot_steps::required(upperPercentile_));
    chart.SetChartType(HostConstants::StockOHLC());
    // The median twice, on the secondary group: a stock group takes no further series.
    series.Add(plot_steps::required(median_));
    series.Add(plot_steps::required(median_));
    series.Item(5).SetAxisGroup(HostConstants::SecondaryGroup());
    series.Item(6).SetAxisGroup(HostConstants::SecondaryGroup());
    // Without their own value axis the medians are drawn on the primary scale.
    chart.Axes(HostConstants::ValueAxis(), HostConstants::SecondaryGroup()).Delete();

    const std::int16_t color = settings_.BoxFillColorIndex();
    ChartGroup& boxes = chart.ChartGroups(1);
    boxes.SetHasUpDownBars(true);
    boxes.UpBars().Border().SetWeight(HostConstants::ThinBorder());
    boxes.UpBars().Interior().SetColorIndex(color);

    plot_steps::formatChart(chart, color, chartTitle_, yAxisTitle_);
    plot_steps::settleChart(object, output, verticalOffset_, horizontalOffset_);
  });
}

}  // namespace orv
