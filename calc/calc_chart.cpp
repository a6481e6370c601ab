#include "calc/calc_chart.h"

#include <algorithm>
#include <cmath>

#include "calc/calc_chart_objects.h"
#include "calc/calc_workbook.h"
#include "calc/calc_worksheet.h"
#include "frame/errors.h"

namespace orv::calc {

PlanKind planKindOf(host::ChartType type) {
  switch (type) {
    case host::ChartType::Line:  // a line without markers: the series' marker says so
    case host::ChartType::LineMarkers: return PlanKind::Line;
    case host::ChartType::ColumnClustered: return PlanKind::Column;
    case host::ChartType::StockHLC: return PlanKind::StockHLC;
    case host::ChartType::StockOHLC: return PlanKind::StockOHLC;
    case host::ChartType::XYScatter: return PlanKind::Scatter;
  }
  raiseHost("Unable to set the ChartType property of the Chart class: type " +
            std::to_string(static_cast<std::int32_t>(type)) + " is not drawn by this host");
}

// --- axes -----------------------------------------------------------------------------------

CalcAxis::CalcAxis(CalcChart& chart, host::AxisType type, host::AxisGroup group)
    : chart_(&chart),
      type_(type),
      group_(group),
      title_([this]() -> std::optional<PlanTitle>& { return plan().title; }),
      tickLabels_([this]() -> PlanAxis& { return plan(); }),
      border_([this]() -> bool& { return plan().line; }, {}) {}

PlanAxis& CalcAxis::plan() const {
  for (PlanAxis& axis : chart_->edit().axes) {
    if (axis.type == type_ && axis.group == group_ && axis.shown) return axis;
  }
  raiseHost("Unable to get the Axes property of the Chart class");
}

void CalcAxis::SetHasTitle(bool on) {
  PlanAxis& axis = plan();
  if (!on) {
    axis.title.reset();
  } else if (!axis.title) {
    axis.title = PlanTitle{"Axis Title", PlanFont{10, false}};
  }
}

ChartTitle& CalcAxis::AxisTitle() {
  if (!plan().title) raiseHost("Unable to get the AxisTitle property of the Axis class");
  return title_;
}

void CalcAxis::SetMajorUnit(double value) {
  if (!(value > 0)) raiseHost("Unable to set the MajorUnit property of the Axis class");
  scaleField("MajorUnit", value).majorUnit = value;
}

// Scale settings belong to value axes, and to both axes of a scatter chart, whose X axis is a
// value axis too.
PlanAxis& CalcAxis::scaleField(std::string_view property, double value) {
  PlanAxis& axis = plan();
  const bool scatter = chart_->plan().kind == PlanKind::Scatter;
  if (!std::isfinite(value) || (axis.type != host::AxisType::Value && !scatter)) {
    raiseHost("Unable to set the " + std::string(property) + " property of the Axis class");
  }
  return axis;
}

double CalcAxis::MaximumScale() const {
  const PlanAxis& axis = plan();
  if (axis.type != host::AxisType::Value) raiseHost("Unable to get the MaximumScale property of the Axis class");
  if (axis.maximum) return *axis.maximum;
  return chart_->automaticMaximum(group_);
}

// --- chart groups, chart area, plot area ------------------------------------------------------

CalcUpDownBars::CalcUpDownBars(CalcChart& chart)
    // The boxes are always outlined; only the outline's weight is kept.
    : border_({}, [&chart]() -> double& { return chart.edit().upBarsBorderWeight; }),
      interior_([&chart]() -> std::int32_t& { return chart.edit().upBarsColorIndex; }) {}

void CalcChartGroup::SetHasUpDownBars(bool on) {
  const ChartPlan& plan = chart_->plan();
  const bool lineOrStock = plan.kind == PlanKind::Line || priceSeries(plan.kind) > 0;
  if (group_ != host::AxisGroup::Primary || !lineOrStock) {
    raiseHost("Unable to set the HasUpDownBars property of the ChartGroup class");
  }
  chart_->edit().upDownBars = on;
}

UpDownBars& CalcChartGroup::UpBars() {
  if (group_ != host::AxisGroup::Primary || !chart_->plan().upDownBars) {
    raiseHost("Unable to get the UpBars property of the ChartGroup class");
  }
  return upBars_;
}

void CalcChartGroup::SetGapWidth(std::int32_t percent) {
  if (group_ != host::AxisGroup::Primary || percent < 0 || percent > 500) {
    raiseHost("Unable to set the GapWidth property of the ChartGroup class");
  }
  chart_->edit().gapWidth = percent;
}

CalcChartArea::CalcChartArea(CalcChart& chart)
    : chart_(&chart), interior_([&chart]() -> std::int32_t& { return chart.edit().chartAreaColorIndex; }) {}

void CalcChartArea::SetAutoScaleFont(bool on) { chart_->edit().autoScaleFont = on; }

double CalcChartArea::Width() const { return chart_->object().Width(); }

CalcPlotArea::CalcPlotArea(CalcChart& chart)
    : chart_(&chart),
      fill_([&chart]() -> bool& { return chart.edit().plotArea.filled; }),
      border_([&chart]() -> bool& { return chart.edit().plotArea.border; }, {}) {}

ChartRectangle CalcPlotArea::current() const {
  const PlanPlotArea& plot = chart_->plan().plotArea;
  if (plot.left && plot.top && plot.width && plot.height)
    return ChartRectangle{*plot.left, *plot.top, *plot.width, *plot.height};
  const CalcChartObject& object = chart_->object();
  return standardPlotArea(object.Width(), object.Height(), chart_->plan().title.has_value());
}

PlanPlotArea& CalcPlotArea::fixed(double points) {
  if (!std::isfinite(points) || points < 0) {
    raiseHost("Unable to set a size of the PlotArea class to " + std::to_string(points));
  }
  const ChartRectangle now = current();
  PlanPlotArea& plot = chart_->edit().plotArea;
  plot.left = now.left;
  plot.top = now.top;
  plot.width = now.width;
  plot.height = now.height;
  return plot;
}

// --- chart ----------------------------------------------------------------------------------

CalcChart::CalcChart(CalcChartObject& object, std::unique_ptr<ChartDrawing> drawing)
    : object_(&object),
      drawing_(std::move(drawing)),
      series_(*this),
      title_([this]() -> std::optional<PlanTitle>& { return edit().title; }),
      chartArea_(*this),
      plotArea_(*this),
      legend_(*this) {}

std::string CalcChart::Name() const { return object_->sheet().Name() + " " + object_->Name(); }

void CalcChart::SetChartType(host::ChartType type) {
  const PlanKind kind = planKindOf(type);
  ChartPlan& chart = edit();
  const std::size_t prices = priceSeries(kind);
  if (prices > 0 && chart.series.size() != prices) {
    raiseHost("Unable to set the ChartType property of the Chart class: a stock chart of this type needs " +
              std::to_string(prices) + " series, the chart has " + std::to_string(chart.series.size()));
  }
  chart.kind = kind;
  // Stock charts draw their prices as whiskers and boxes, not as lines or markers.
  chart.highLowLines = prices > 0;
  chart.upDownBars = kind == PlanKind::StockOHLC;
  for (PlanSeries& s : chart.series) {
    s.kind = kind;
    s.line = prices == 0 && kind != PlanKind::Scatter;
    s.marker = prices > 0 || type == host::ChartType::Line ? PlanMarker::None : PlanMarker::Automatic;
  }
}

ChartGroup& CalcChart::ChartGroups(std::int32_t index) {
  const bool secondary =
      std::any_of(plan_.series.begin(), plan_.series.end(), [](const PlanSeries& s) { return s.secondary; });
  if (index == 1 && !plan_.series.empty()) {
    if (!primaryGroup_) primaryGroup_ = std::make_unique<CalcChartGroup>(*this, host::AxisGroup::Primary);
    return *primaryGroup_;
  }
  if (index == 2 && secondary) {
    if (!secondaryGroup_) secondaryGroup_ = std::make_unique<CalcChartGroup>(*this, host::AxisGroup::Secondary);
    return *secondaryGroup_;
  }
  raiseHost("Unable to get the ChartGroups property of the Chart class");
}

Axis& CalcChart::Axes(host::AxisType type, host::AxisGroup group) {
  for (const auto& axis : axes_) {
    if (axis->type() == type && axis->group() == group) {
      axis->plan();  // fails when the chart has no such axis now
      return *axis;
    }
  }
  axes_.push_back(std::make_unique<CalcAxis>(*this, type, group));
  axes_.back()->plan();
  return *axes_.back();
}

void CalcChart::SetHasTitle(bool on) {
  ChartPlan& chart = edit();
  if (!on) {
    chart.title.reset();
  } else if (!chart.title) {
    chart.title = PlanTitle{"Chart Title", PlanFont{10, true}};
  }
}

orv::ChartTitle& CalcChart::ChartTitle() {
  if (!plan_.title) raiseHost("Unable to get the ChartTitle property of the Chart class");
  return title_;
}

orv::Legend& CalcChart::Legend() {
  if (!plan_.legend) raiseHost("Unable to get the Legend property of the Chart class");
  return legend_;
}

// --- legend ---------------------------------------------------------------------------------

CalcLegend::CalcLegend(CalcChart& chart)
    : chart_(&chart), font_([&chart]() -> PlanFont& { return chart.edit().legendFont; }) {}

void CalcLegend::SetPosition(host::LegendPosition position) { chart_->edit().legendPosition = position; }

void CalcChart::syncAxes() {
  ChartPlan& chart = edit();
  const bool anySeries = !chart.series.empty();
  const bool secondary =
      std::any_of(chart.series.begin(), chart.series.end(), [](const PlanSeries& s) { return s.secondary; });
  const auto wanted = [&](host::AxisType type, host::AxisGroup group) {
    if (group == host::AxisGroup::Primary) return anySeries;
    return secondary && type == host::AxisType::Value;
  };
  std::erase_if(chart.axes, [&](const PlanAxis& a) { return !wanted(a.type, a.group); });
  const std::pair<host::AxisType, host::AxisGroup> order[] = {{host::AxisType::Category, host::AxisGroup::Primary},
                                                              {host::AxisType::Value, host::AxisGroup::Primary},
                                                              {host::AxisType::Value, host::AxisGroup::Secondary}};
  std::vector<PlanAxis> axes;
  for (const auto& [type, group] : order) {
    const auto found =
        std::find_if(chart.axes.begin(), chart.axes.end(),
                     [type = type, group = group](const PlanAxis& a) { return a.type == type && a.group == group; });
    if (found != chart.axes.end()) {
      axes.push_back(*found);
    } else if (wanted(type, group)) {
      PlanAxis axis;
      axis.type = type;
      axis.group = group;
      // The host's default: value axes of the primary group carry major gridlines.
      axis.majorGridlines = type == host::AxisType::Value && group == host::AxisGroup::Primary;
      axes.push_back(axis);
    }
  }
  chart.axes = std::move(axes);
}

void CalcChart::draw() {
  if (!changed_) return;
  // The office reads the cells behind the series: what is still pending must be there first.
  object_->sheet().workbook().flushValues();
  drawing_->draw(plan_, object_->Width(), object_->Height());
  changed_ = false;
}

double CalcChart::automaticMaximum(host::AxisGroup group) {
  draw();
  return drawing_->automaticMaximum(group);
}

}  // namespace orv::calc
