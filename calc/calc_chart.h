#pragma once
// A chart of the live host: what the builders set is kept in a ChartPlan (chart_plan.h) with the
// in-memory host's rules for it (which axes exist, how series are added, what a stock type does
// to its series), and drawn into the office's chart document (chart_drawing.h) when the office
// must answer (the automatic scale of a value axis) and when the sheet is
// flushed.
//
// A new chart is a clustered column chart without series and axes. The primary category and
// value axes exist once the chart has a series; a secondary value axis exists while a series is
// on the secondary group (the secondary category axis is never shown and cannot be had). A
// series added to a stock chart that already has all its price series is drawn as a short mark
// without a line.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "calc/calc_chart_parts.h"
#include "calc/calc_series.h"
#include "calc/chart_drawing.h"
#include "calc/chart_plan.h"
#include "frame/chart.h"
#include "frame/chart_layout.h"

namespace orv::calc {

class CalcChart;
class CalcChartObject;

class CalcAxis final : public Axis {
 public:
  CalcAxis(CalcChart& chart, host::AxisType type, host::AxisGroup group);
  CalcAxis(const CalcAxis&) = delete;
  CalcAxis& operator=(const CalcAxis&) = delete;

  host::AxisType type() const { return type_; }
  host::AxisGroup group() const { return group_; }

  void Delete() override { plan().shown = false; }
  void SetHasTitle(bool on) override;
  ChartTitle& AxisTitle() override;
  orv::TickLabels& TickLabels() override { return tickLabels_; }
  void SetHasMajorGridlines(bool on) override { plan().majorGridlines = on; }
  void SetHasMinorGridlines(bool on) override { plan().minorGridlines = on; }
  ChartBorder& Border() override { return border_; }
  void SetMajorTickMark(host::TickMark mark) override { plan().majorTickMark = mark; }
  void SetTickLabelPosition(host::TickLabelPosition position) override { plan().tickLabels = position; }
  void SetMinimumScale(double value) override { scaleField("MinimumScale", value).minimum = value; }
  void SetMaximumScale(double value) override { scaleField("MaximumScale", value).maximum = value; }
  void SetMajorUnit(double value) override;
  // The maximum set, or the office's automatic maximum for what the axis shows now.
  double MaximumScale() const override;

  // The axis in the plan, marked changed; a host failure when the chart does not have it now.
  PlanAxis& plan() const;

 private:
  PlanAxis& scaleField(std::string_view property, double value);
  CalcChart* chart_;
  host::AxisType type_;
  host::AxisGroup group_;
  PlanChartTitle title_;
  PlanTickLabels tickLabels_;
  PlanBorder border_;
};

class CalcUpDownBars final : public UpDownBars {
 public:
  explicit CalcUpDownBars(CalcChart& chart);
  ChartBorder& Border() override { return border_; }
  ChartInterior& Interior() override { return interior_; }

 private:
  PlanBorder border_;
  PlanInterior interior_;
};

class CalcChartGroup final : public ChartGroup {
 public:
  CalcChartGroup(CalcChart& chart, host::AxisGroup group) : chart_(&chart), group_(group), upBars_(chart) {}
  CalcChartGroup(const CalcChartGroup&) = delete;
  CalcChartGroup& operator=(const CalcChartGroup&) = delete;
  // Up-down bars and the gap width belong to the primary group; up-down bars to line and stock
  // groups only.
  void SetHasUpDownBars(bool on) override;
  UpDownBars& UpBars() override;
  void SetGapWidth(std::int32_t percent) override;

 private:
  CalcChart* chart_;
  host::AxisGroup group_;
  CalcUpDownBars upBars_;
};

class CalcChartArea final : public ChartArea {
 public:
  explicit CalcChartArea(CalcChart& chart);
  void SetAutoScaleFont(bool on) override;
  ChartInterior& Interior() override { return interior_; }
  double Width() const override;

 private:
  CalcChart* chart_;
  PlanInterior interior_;
};

class CalcPlotArea final : public PlotArea {
 public:
  explicit CalcPlotArea(CalcChart& chart);
  CalcPlotArea(const CalcPlotArea&) = delete;
  CalcPlotArea& operator=(const CalcPlotArea&) = delete;
  ChartFill& Fill() override { return fill_; }
  ChartBorder& Border() override { return border_; }
  // Until a builder sets it, the plot area reads as the standard layout (frame/chart_layout.h),
  // not as the office would lay it out: the builders compute their rectangle from it with
  // arithmetic made for that layout, and the office's own automatic plot area reaches nearly to
  // the chart's edges, which that arithmetic would push past the chart's bottom.
  double Left() const override { return current().left; }
  double Top() const override { return current().top; }
  double Width() const override { return current().width; }
  double Height() const override { return current().height; }
  // Setting any side fixes the whole rectangle as it stands, then changes that side. Values must
  // be finite and not negative.
  void SetLeft(double points) override { *fixed(points).left = points; }
  void SetTop(double points) override { *fixed(points).top = points; }
  void SetWidth(double points) override { *fixed(points).width = points; }
  void SetHeight(double points) override { *fixed(points).height = points; }

 private:
  ChartRectangle current() const;
  PlanPlotArea& fixed(double points);
  CalcChart* chart_;
  PlanFill fill_;
  PlanBorder border_;
};

class CalcLegend final : public Legend {
 public:
  explicit CalcLegend(CalcChart& chart);
  CalcLegend(const CalcLegend&) = delete;
  CalcLegend& operator=(const CalcLegend&) = delete;
  void SetPosition(host::LegendPosition position) override;
  ChartFont& Font() override { return font_; }

 private:
  CalcChart* chart_;
  PlanChartFont font_;
};

class CalcChart final : public Chart {
 public:
  CalcChart(CalcChartObject& object, std::unique_ptr<ChartDrawing> drawing);
  CalcChart(const CalcChart&) = delete;
  CalcChart& operator=(const CalcChart&) = delete;

  std::string Name() const override;
  orv::SeriesCollection& SeriesCollection() override { return series_; }
  void SetChartType(host::ChartType type) override;
  ChartGroup& ChartGroups(std::int32_t index) override;
  Axis& Axes(host::AxisType type, host::AxisGroup group) override;
  void SetHasTitle(bool on) override;
  orv::ChartTitle& ChartTitle() override;
  void SetHasLegend(bool on) override { edit().legend = on; }
  orv::Legend& Legend() override;
  orv::ChartArea& ChartArea() override { return chartArea_; }
  orv::PlotArea& PlotArea() override { return plotArea_; }

  // The plan as it stands, and for changing it (which marks the chart to be drawn again).
  const ChartPlan& plan() const { return plan_; }
  ChartPlan& edit() {
    changed_ = true;
    return plan_;
  }
  CalcChartObject& object() const { return *object_; }
  CalcSeriesCollection& series() { return series_; }
  // Brings the plan's axes in line with the series: the primary pair with any series, the
  // secondary value axis with a series on the secondary group. Axes that stay keep their settings.
  void syncAxes();

  // Draws the chart into the office when it changed since the last drawing.
  void draw();
  // The maximum of a value axis' automatic scale as the office draws it, after drawing what
  // changed.
  double automaticMaximum(host::AxisGroup group);
  const ChartDrawing& drawing() const { return *drawing_; }

 private:
  CalcChartObject* object_;
  std::unique_ptr<ChartDrawing> drawing_;
  ChartPlan plan_;
  bool changed_ = true;
  CalcSeriesCollection series_;
  std::vector<std::unique_ptr<CalcAxis>> axes_;
  std::unique_ptr<CalcChartGroup> primaryGroup_, secondaryGroup_;
  PlanChartTitle title_;
  CalcChartArea chartArea_;
  CalcPlotArea plotArea_;
  CalcLegend legend_;
};

// The plan's kind for a host chart type; a type the live host does not draw is a host failure.
PlanKind planKindOf(host::ChartType type);

}  // namespace orv::calc
