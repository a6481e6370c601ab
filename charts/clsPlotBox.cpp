#include "charts/clsPlotBox.h"

#include "charts/plot_steps.h"
#include "frame/chart.h"
#include "frame/procedure.h"
#include "support/host_constants.h"

namespace orv {
namespace {

const Procedures kProc{"clsPlotBox"};

const Range& set(const std::optional<Range>& range) {
  if (!range) plot_steps::raiseUnsetRange();
  return *range;
}

}  // namespace

clsPlotBox::clsPlotBox() {
  kProc("Class_Initialize", [] {});
}

void clsPlotBox::VerticalOffset(std::int32_t points) { kProc("LetVerticalOffset", [&] { verticalOffset_ = points; }); }
std::int32_t clsPlotBox::VerticalOffset() const { return kProc("GetVerticalOffset", [&] { return verticalOffset_; }); }
void clsPlotBox::HorizontalOffset(std::int32_t points) { kProc("LetHorizontalOffset", [&] { horizontalOffset_ = points; }); }
std::int32_t clsPlotBox::HorizontalOffset() const { return kProc("GetHorizontalOffset", [&] { return horizontalOffset_; }); }
void clsPlotBox::ChartTitle(const std::string& title) { kProc("LetChartTitle", [&] { chartTitle_ = title; }); }
std::string clsPlotBox::ChartTitle() const { return kProc("GetChartTitle", [&] { return chartTitle_; }); }
void clsPlotBox::YAxisTitle(const std::string& title) { kProc("LetYAxisTitle", [&] { yAxisTitle_ = title; }); }
std::string clsPlotBox::YAxisTitle() const { return kProc("GetYAxisTitle", [&] { return yAxisTitle_; }); }
void clsPlotBox::ChartHeight(std::int32_t points) { kProc("LetChartHeight", [&] { chartHeight_ = points; }); }
std::int32_t clsPlotBox::ChartHeight() const { return kProc("GetChartHeight", [&] { return chartHeight_; }); }
void clsPlotBox::ChartWidth(std::int32_t points) { kProc("LetChartWidth", [&] { chartWidth_ = points; }); }
std::int32_t clsPlotBox::ChartWidth() const { return kProc("GetChartWidth", [&] { return chartWidth_; }); }

void clsPlotBox::OutputRange(const Range& cell) { kProc("SetOutputRange", [&] { output_ = cell; }); }
void clsPlotBox::HeadersRange(const Range& cells) { kProc("SetHeadersRange", [&] { headers_ = cells; }); }
void clsPlotBox::MedianRange(const Range& cells) { kProc("SetMedianRange", [&] { median_ = cells; }); }
void clsPlotBox::LPRange(const Range& cells) { kProc("SetLPRange", [&] { lowerPercentile_ = cells; }); }
void clsPlotBox::UPRange(const Range& cells) { kProc("SetUPRange", [&] { upperPercentile_ = cells; }); }
void clsPlotBox::MinRange(const Range& cells) { kProc("SetMinRange", [&] { minimum_ = cells; }); }
void clsPlotBox::MaxRange(const Range& cells) { kProc("SetMaxRange", [&] { maximum_ = cells; }); }

void clsPlotBox::CreatePlot() {
  kProc("CreatePlot", [&] {
    const Range& output = set(output_);
    const plot_steps::Placement at =
        plot_steps::placeChart(output, verticalOffset_, horizontalOffset_);
    ChartObject& object = plot_steps::addEmptyChart(output, at, chartWidth_, chartHeight_);
    Chart& chart = object.Chart();

    // Lower percentile (open), minimum, maximum, upper percentile (close): the stock type turns
    // open and close into the box and the extremes into the whiskers.
    SeriesCollection& series = chart.SeriesCollection();
    series.Add(Union(set(headers_), set(lowerPercentile_)), HostConstants::SeriesInColumns(), false,
               true, false);
    series.Add(set(minimum_));
    series.Add(set(maximum_));
    series.Add(set(upperPercentile_));
    chart.SetChartType(HostConstants::StockOHLC());
    // The median twice, on the secondary group: a stock group takes no further series.
    series.Add(set(median_));
    series.Add(set(median_));
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
