#include "charts/histogram_builder.h"

#include "charts/plot_steps.h"
#include "frame/procedure.h"
#include "support/chart_style.h"
#include "support/host_constants.h"

namespace orv {
namespace {

const Procedures kProc{"HistogramBuilder"};

constexpr std::string_view kFrequency = "Frequency";
constexpr std::string_view kNormal = "Normal";
constexpr std::string_view kCumulativePrefix = "Cumulative ";
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

// A line over the columns, on the columns' categories.
Series& addLine(Chart& chart, const SeriesSource& values, const SeriesSource& labels,
                const std::string& name) {
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

void HistogramBuilder::OutputRange(const Range& cell) { kProc("SetOutputRange", [&] { output_ = cell; }); }
void HistogramBuilder::XAxisTitle(const std::string& title) { kProc("LetXAxisTitle", [&] { xAxisTitle_ = title; }); }
void HistogramBuilder::CategoryLabels(const SeriesSource& labels) { kProc("SetCategoryLabels", [&] { labels_ = labels; }); }
void HistogramBuilder::CountsRange(const Range& cells) { kProc("SetCountsRange", [&] { counts_ = cells; }); }
void HistogramBuilder::NormalCounts(const SeriesSource& expected) { kProc("SetNormalCounts", [&] { normal_ = expected; }); }
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
      normal.SetSmooth(true);
      normal.Border().SetColorIndex(kNormalColorIndex);
    }
    if (cumulative_) {
      Series& cumulative =
          addLine(chart, *cumulative_, labels, std::string(kCumulativePrefix) + std::string(kFrequency));
      cumulative.SetAxisGroup(HostConstants::SecondaryGroup());
      cumulative.Border().SetColorIndex(kCumulativeColorIndex);
      Axis& percents = chart.Axes(HostConstants::ValueAxis(), HostConstants::SecondaryGroup());
      plainAxis(percents, "");
      percents.SetMinimumScale(0);
      percents.SetMaximumScale(kPercentTop);
      percents.TickLabels().SetNumberFormat(std::string(kPercentFormat));
    }

    chart.ChartArea().SetAutoScaleFont(false);
    chart.ChartArea().Interior().SetColorIndex(settings_.ChartAreaColorIndex());
    setChartTitle(chart, chartTitle_);
    chart.SetHasLegend(chart.SeriesCollection().Count() > 1);
    chart.PlotArea().Fill().SetVisible(HostConstants::FillHidden());
    chart.PlotArea().Border().SetLineStyle(HostConstants::NoLine());
    plainAxis(chart.Axes(HostConstants::CategoryAxis(), HostConstants::PrimaryGroup()), xAxisTitle_);
    Axis& counts = chart.Axes(HostConstants::ValueAxis(), HostConstants::PrimaryGroup());
    plainAxis(counts, yAxisTitle_);
    // Counts are whole numbers: from 10 up the labels need no decimals.
    if (counts.MaximumScale() >= 10) counts.TickLabels().SetNumberFormat("0");
  });
}

}  // namespace orv
