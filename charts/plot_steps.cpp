#include "charts/plot_steps.h"

#include "frame/errors.h"
#include "frame/host.h"
#include "support/host_constants.h"
#include "support/host_session.h"

namespace orv::plot_steps {
namespace {

// Runs one statement and carries on past whatever it raised.
template <class Statement>
void ignoringErrors(Statement&& statement) {
  try {
    statement();
  } catch (const ComponentError&) {
  }
}

// 1-based position of the first blank, 0 when there is none.
std::size_t firstBlank(const std::string& text) {
  const std::size_t at = text.find(' ');
  return at == std::string::npos ? 0 : at + 1;
}

// The first fixed place of the shape, overwritten at once by the computed one. It has always
// been there and is kept so the shape passes through the same states as it always has.
constexpr double kFirstLeft = 426;
constexpr double kFirstTop = 1315.8;

}  // namespace

ChartObject& addEmptyChart(const Range& output, const Placement& at, std::int32_t width, std::int32_t height) {
  ChartObject& object = output.Parent().chartObjects().Add(at.left, at.top, width, height);
  object.SetHeight(height);
  object.SetWidth(width);
  HostSession::Application().SetScreenUpdating(false);
  object.Select();
  // A new chart may already hold series taken from the selection.
  ignoringErrors([&] {
    SeriesCollection& series = object.Chart().SeriesCollection();
    for (std::int32_t i = series.Count(); i >= 1; --i) series.Item(i).Delete();
  });
  return object;
}

void formatChart(Chart& chart, std::int16_t colorIndex, const std::string& title, const std::string& valueAxisTitle) {
  chart.ChartArea().SetAutoScaleFont(false);
  chart.ChartArea().Interior().SetColorIndex(colorIndex);

  setChartTitle(chart, title);

  PlotArea& plot = chart.PlotArea();
  plot.Fill().SetVisible(HostConstants::FillHidden());
  plot.Border().SetLineStyle(HostConstants::NoLine());
  // Half the space above the plot goes to the plot, and the plot reaches as far right as it
  // starts from the left.
  plot.SetTop(plot.Top() / 2);
  plot.SetHeight(plot.Height() + plot.Top());
  plot.SetWidth(chart.ChartArea().Width() - 2 * plot.Left());

  chart.SetHasLegend(false);

  Axis& categories = chart.Axes(HostConstants::CategoryAxis(), HostConstants::PrimaryGroup());
  categories.SetHasTitle(false);
  categories.TickLabels().Font().SetSize(8);
  categories.SetHasMajorGridlines(false);
  categories.SetHasMinorGridlines(false);
  categories.Border().SetLineStyle(HostConstants::NoLine());

  Axis& values = chart.Axes(HostConstants::ValueAxis(), HostConstants::PrimaryGroup());
  setAxisTitle(values, valueAxisTitle);
  values.TickLabels().Font().SetSize(8);
  values.SetHasMajorGridlines(false);
  values.SetHasMinorGridlines(false);
  values.SetMajorTickMark(HostConstants::TickMarksOutside());
  // From 10 up the axis labels are whole numbers; below, the host's general format shows the
  // decimals the steps need.
  if (values.MaximumScale() >= 10) values.TickLabels().SetNumberFormat("0");
}

std::string shortChartName(const std::string& chartName) {
  std::string name = chartName.size() > 10 ? chartName.substr(chartName.size() - 10) : chartName;
  for (std::size_t blank = firstBlank(name); blank < 4; blank = firstBlank(name)) {
    name.erase(0, blank);
  }
  return name;
}

void settleChart(ChartObject& object, const Range& output, std::int32_t verticalOffset, std::int32_t horizontalOffset) {
  const std::string name = shortChartName(object.Chart().Name());
  Application& app = HostSession::Application();
  app.ActiveSheet().chartObjects().Item(name);

  ignoringErrors([&] { app.ActiveSheet().shapes(name).SetLeft(kFirstLeft); });
  ignoringErrors([&] { app.ActiveSheet().shapes(name).SetTop(kFirstTop); });
  Placement at;
  ignoringErrors([&] { at = placeChart(output, verticalOffset, horizontalOffset); });
  ignoringErrors([&] { app.ActiveSheet().shapes(name).SetLeft(at.left); });
  ignoringErrors([&] { app.ActiveSheet().shapes(name).SetTop(at.top); });
}

}  // namespace orv::plot_steps
