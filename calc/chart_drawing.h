#pragma once
// ChartDrawing: draws a ChartPlan (chart_plan.h) into the office's document of one embedded
// chart with the chart2 API, and reads back what the office laid out by itself.
//
// Each draw builds the diagram anew from the plan: one Cartesian coordinate system; a chart type
// per kind of series (a candlestick type that takes the stock chart's three or four price
// series as one series of the roles values-first, -max, -min and -last; column, line and
// scatter types, smoothed lines apart); primary X and Y axes, and a second Y axis while a series
// is on the secondary group; error bars from cells (ErrorBarStyle FROM_DATA); titles, legend,
// wall and page fills. The old chart API (com.sun.star.chart) reads the automatic maximum of a
// value axis, which the office computes when it lays the chart out.
//
// Positions are in points here and 1/100 mm in the office (points x 2540 / 72).

#include <com/sun/star/chart2/XChartDocument.hpp>
#include <com/sun/star/chart2/data/XDataProvider.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>

#include "calc/cell_format_properties.h"
#include "calc/chart_plan.h"

namespace orv::calc {

class ChartDrawing {
 public:
  // `document` is the spreadsheet document that holds the chart and provides its data.
  ChartDrawing(Reference<css::uno::XComponentContext> context, Reference<css::chart2::XChartDocument> chart,
               const Reference<css::lang::XMultiServiceFactory>& document);

  // `width` and `height` are the chart's size in points.
  void draw(const ChartPlan& plan, double width, double height);

  // After a draw: the maximum of a value axis' automatic scale.
  double automaticMaximum(host::AxisGroup group);

  const Reference<css::chart2::XChartDocument>& chart() const { return chart_; }

 private:
  Reference<css::uno::XInterface> make(const char* service) const;
  Reference<css::uno::XInterface> sequence(const std::string& range, const char* role) const;
  // One series; the price series of a stock chart together as one. `index` is the (first)
  // series' place in the plan, which picks its automatic colour.
  Reference<css::uno::XInterface> series(const std::vector<const PlanSeries*>& members, bool prices,
                                         std::size_t index) const;
  Reference<css::uno::XInterface> axis(const ChartPlan& plan, const PlanAxis& axis, bool categories) const;
  Reference<css::uno::XInterface> title(const PlanTitle& title) const;
  void drawAxes(const ChartPlan& plan, const Reference<css::uno::XInterface>& system) const;
  void drawFills(const ChartPlan& plan, const Reference<css::uno::XInterface>& diagram, double width,
                 double height) const;

  Reference<css::uno::XComponentContext> context_;
  Reference<css::chart2::XChartDocument> chart_;
  Reference<css::chart2::data::XDataProvider> data_;
  mutable NumberFormatTable numbers_;
};

}  // namespace orv::calc
