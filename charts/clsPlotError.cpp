#include "charts/clsPlotError.h"

#include "charts/plot_steps.h"
#include "frame/procedure.h"
#include "support/host_constants.h"

namespace orv {
namespace {

const Procedures kProc{"clsPlotError"};

}  // namespace

clsPlotError::clsPlotError() : PlotFrame(kProc) {
  kProc("Class_Initialize", [] {});
}

void clsPlotError::OutputRange(const Range& cell) {
  kProc("SetOutputRange", [&] { output_ = cell; });
}
// Reports under the OutputRange setter's name, as it always has.
void clsPlotError::HeadersRange(const Range& cells) {
  kProc("SetOutputRange", [&] { headers_ = cells; });
}
void clsPlotError::CentreRange(const Range& cells) {
  kProc("SetCentreRange", [&] { centre_ = cells; });
}
void clsPlotError::ErrorPosRange(const Range& cells) {
  kProc("SetErrorPosRange", [&] { plus_ = cells; });
}
void clsPlotError::ErrorNegRange(const Range& cells) {
  kProc("SetErrorNegRange", [&] { minus_ = cells; });
}
void clsPlotError::ErrorPosArray(const AmountList& distances) {
  kProc("SetErrorPosArray", [&] { plus_ = distances; });
}
void clsPlotError::ErrorNegArray(const AmountList& distances) {
  kProc("SetErrorNegArray", [&] { minus_ = distances; });
}

void clsPlotError::CreatePlot() {
  kProc("CreatePlot", [&] {
    const Range& output = plot_steps::required(output_);
    const plot_steps::Placement at = plot_steps::placeChart(output, verticalOffset_, horizontalOffset_);
    ChartObject& object = plot_steps::addEmptyChart(output, at, chartWidth_, chartHeight_);
    Chart& chart = object.Chart();

    SeriesCollection& series = chart.SeriesCollection();
    series.Add(Union(plot_steps::required(headers_), plot_steps::required(centre_)), HostConstants::SeriesInColumns(),
               false, true, false);
    chart.SetChartType(HostConstants::LineMarkers());

    // The host's default bars go first; the custom ones replace them.
    Series& centre = series.Item(1);
    centre.SetHasErrorBars(true);
    centre.ErrorBars().Delete();
    centre.ErrorBar(HostConstants::VerticalBars(), HostConstants::BarsBothWays(), HostConstants::CustomAmounts(), plus_,
                    minus_);
    centre.ErrorBars().SetEndStyle(HostConstants::CappedEnds());
    // Points only: the columns are separate samples, not a course.
    centre.Border().SetLineStyle(HostConstants::NoLine());

    plot_steps::formatChart(chart, settings_.BoxFillColorIndex(), chartTitle_, yAxisTitle_);
    plot_steps::settleChart(object, output, verticalOffset_, horizontalOffset_);
  });
}

}  // namespace orv
