#include "charts/histogram_builder.h"

#include <algorithm>

#include "charts/plot_steps.h"
#include "frame/procedure.h"
#include "support/chart_style.h"
#include "support/host_constants.h"

namespace orv {
namespace {

const Procedures kProc{"HistogramBuilder"};

constexpr std::string_view kFrequency = "Frequency";
constexpr std::string_view kNormal = "Normal";
constexpr std::string_view kCumulative = "Cumulative %";
// Cumulative percentages are percent numbers (40 for 40 %), shown with the sign.
constexpr std::string_view kPercentFormat = "0\"%\"";
constexpr double kPercentTop = 100;
// Palette indices: red and black.
constexpr std::int32_t kNormalColorIndex = 3;
constexpr std::int32_t kCumulativeColorIndex = 1;

void plainAxis(Axis& axis, const std::string& title) {
  setAxisTitle(axis, title);
  axis.TickLabels().Font().SetSize(8);
  axis.SetHasMajorGridlines(false);
  axis.SetHasMinorGridlines(false);
  axis.SetMajorTickMark(HostConstants::TickMarksOutside());
}

// Room in points around the plot area (tick labels included, which the office's own layout of a
// chart without a title pushes out at the top): above for the title, left for the value axis'
// title, below for the category axis' title and the legend.
constexpr double kMargin = 6;
constexpr double kAbove = 8, kAboveTitle = 26;
constexpr double kAxisTitleRoom = 14;
constexpr double kLegendRoom = 16;
constexpr double kLegendFontSize = 8;

void layOutPlotArea(Chart& chart, double height, bool title, bool xTitle, bool yTitle, bool legend) {
  const double width = chart.ChartArea().Width();
  const double left = kMargin + (yTitle ? kAxisTitleRoom : 0);
  const double top = title ? kAboveTitle : kAbove;
  const double below = kMargin + (xTitle ? kAxisTitleRoom : 0) + (legend ? kLegendRoom : 0);
  PlotArea& plot = chart.PlotArea();
  plot.SetLeft(left);
  plot.SetTop(top);
  plot.SetWidth(std::max(0.0, width - left - kMargin));
  plot.SetHeight(std::max(0.0, height - top - below));
}

// A line over the columns, on the columns' categories.
Series& addLine(Chart& chart, const SeriesSource& values, const SeriesSource& labels, const std::string& name) {
  Series& line = chart.SeriesCollection().NewSeries();
  line.SetChartType(host::ChartType::Line);
  line.SetValues(values);
  line.SetXValues(labels);
  line.SetName(name);
  return line;
}

}  // namespace

HistogramBuilder::HistogramBuilder() : PlotFrame(kProc) {
  kProc("Class_Initialize", [&] { chartWidth_ = 300; });
}

void HistogramBuilder::OutputRange(const Range& cell) {
  kProc("SetOutputRange", [&] { output_ = cell; });
}
void HistogramBuilder::XAxisTitle(const std::string& title) {
  kProc("LetXAxisTitle", [&] { xAxisTitle_ = title; });
}
void HistogramBuilder::CategoryLabels(const SeriesSource& labels) {
  kProc("SetCategoryLabels", [&] { labels_ = labels; });
}
void HistogramBuilder::CountsRange(const Range& cells) {
  kProc("SetCountsRange", [&] { counts_ = cells; });
}
void HistogramBuilder::NormalCounts(const SeriesSource& expected) {
  kProc("SetNormalCounts", [&] { normal_ = expected; });
}
void HistogramBuilder::CumulativePercentsRange(const Range& cells) {
  kProc("SetCumulativePercentsRange", [&] { cumulative_ = cells; });
}

void HistogramBuilder::CreatePlot() {
  kProc("CreatePlot", [&] {
    const Range& output = plot_steps::required(output_);
    const SeriesSource& labels = plot_steps::required(labels_);
    const plot_steps::Placement at = plot_steps::placeChart(output, verticalOffset_, horizontalOffset_);
    ChartObject& object = plot_steps::addEmptyChart(output, at, chartWidth_, chartHeight_);
    Chart& chart = object.Chart();

    chart.SetChartType(host::ChartType::ColumnClustered);
    Series& bars = chart.SeriesCollection().NewSeries();
    bars.SetValues(plot_steps::required(counts_));
    bars.SetXValues(labels);
    bars.SetName(std::string(kFrequency));
    // Touching columns: the categories are adjacent stretches of one scale.
    chart.ChartGroups(1).SetGapWidth(0);

    if (normal_) {
      Series& normal = addLine(chart, *normal_, labels, std::string(kNormal));
      // Smooth, unless the cumulative line is drawn too: some readers smooth every line of a
      // chart alike, and a smoothed cumulative line would swing above 100 % and fall back.
      normal.SetSmooth(!cumulative_);
      normal.Border().SetColorIndex(kNormalColorIndex);
    }
    if (cumulative_) {
      Series& cumulative = addLine(chart, *cumulative_, labels, std::string(kCumulative));
      cumulative.SetAxisGroup(HostConstants::SecondaryGroup());
      cumulative.Border().SetColorIndex(kCumulativeColorIndex);
      Axis& percents = chart.Axes(HostConstants::ValueAxis(), HostConstants::SecondaryGroup());
      plainAxis(percents, "");
      // Labels only: some readers draw this axis' line across the columns instead of at the right.
      percents.Border().SetLineStyle(HostConstants::NoLine());
      percents.SetMinimumScale(0);
      percents.SetMaximumScale(kPercentTop);
      percents.TickLabels().SetNumberFormat(std::string(kPercentFormat));
    }

    chart.ChartArea().SetAutoScaleFont(false);
    chart.ChartArea().Interior().SetColorIndex(settings_.ChartAreaColorIndex());
    setChartTitle(chart, chartTitle_);
    const bool legend = chart.SeriesCollection().Count() > 1;
    chart.SetHasLegend(legend);
    if (legend) {
      // Below the plot, in the tick labels' size: at the side it would take the room that the
      // category labels need to be shown all.
      chart.Legend().SetPosition(host::LegendPosition::Bottom);
      chart.Legend().Font().SetSize(kLegendFontSize);
    }
    chart.PlotArea().Fill().SetVisible(HostConstants::FillHidden());
    chart.PlotArea().Border().SetLineStyle(HostConstants::NoLine());
    plainAxis(chart.Axes(HostConstants::CategoryAxis(), HostConstants::PrimaryGroup()), xAxisTitle_);
    Axis& counts = chart.Axes(HostConstants::ValueAxis(), HostConstants::PrimaryGroup());
    plainAxis(counts, yAxisTitle_);
    // Counts are whole numbers: from 10 up the labels need no decimals.
    if (counts.MaximumScale() >= 10) counts.TickLabels().SetNumberFormat("0");
    layOutPlotArea(chart, chartHeight_, !chartTitle_.empty(), !xAxisTitle_.empty(), !yAxisTitle_.empty(), legend);
  });
}

}  // namespace orv
