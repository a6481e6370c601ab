#include "workbook/in_memory_chart.h"

#include <algorithm>
#include <cmath>

#include "frame/errors.h"
#include "workbook/chart_automatic.h"

namespace orv {
namespace {

AxisKind axisKindOf(host::AxisType type) {
  return type == host::AxisType::Category ? AxisKind::Category : AxisKind::Value;
}

AxisGroup axisGroupOf(host::AxisGroup group) {
  return group == host::AxisGroup::Secondary ? AxisGroup::Secondary : AxisGroup::Primary;
}

// The host's default for a new axis: value axes of the primary group carry major gridlines.
AxisModel newAxis(AxisKind kind, AxisGroup group) {
  AxisModel axis;
  axis.kind = kind;
  axis.group = group;
  axis.majorGridlines = kind == AxisKind::Value && group == AxisGroup::Primary;
  // The secondary category axis exists but is not shown.
  axis.deleted = kind == AxisKind::Category && group == AxisGroup::Secondary;
  return axis;
}

}  // namespace

ChartKind chartKindOf(host::ChartType type) {
  switch (type) {
    case host::ChartType::Line:  // a line without markers: the series' marker says so
    case host::ChartType::LineMarkers: return ChartKind::LineMarkers;
    case host::ChartType::ColumnClustered: return ChartKind::ColumnClustered;
    case host::ChartType::StockHLC: return ChartKind::StockHLC;
    case host::ChartType::StockOHLC: return ChartKind::StockOHLC;
    case host::ChartType::XYScatter: return ChartKind::XYScatter;
  }
  raiseHost("Unable to set the ChartType property of the Chart class: type " +
            std::to_string(static_cast<std::int32_t>(type)) + " is not drawn by this host");
}

std::size_t priceSeriesCount(ChartKind kind) {
  switch (kind) {
    case ChartKind::StockOHLC: return 4;
    case ChartKind::StockHLC: return 3;
    default: return 0;
  }
}

// --- axes -----------------------------------------------------------------------------------

InMemoryAxis::InMemoryAxis(InMemoryChart& chart, AxisKind kind, AxisGroup group)
    : chart_(&chart),
      kind_(kind),
      group_(group),
      title_([this]() -> std::optional<std::string>& { return model().title; },
             [this]() -> FontModel& { return model().titleFont; }),
      tickLabels_([this]() -> AxisModel& { return model(); }),
      border_([this]() -> bool& { return model().line; }, {}) {}

AxisModel& InMemoryAxis::model() const {
  for (AxisModel& axis : chart_->model().axes) {
    if (axis.kind == kind_ && axis.group == group_) {
      if (axis.deleted) break;
      return axis;
    }
  }
  raiseHost("Unable to get the Axes property of the Chart class");
}

void InMemoryAxis::SetHasTitle(bool on) {
  AxisModel& axis = model();
  if (!on) {
    axis.title.reset();
  } else if (!axis.title) {
    axis.title = "Axis Title";
  }
}

ChartTitle& InMemoryAxis::AxisTitle() {
  if (!model().title) raiseHost("Unable to get the AxisTitle property of the Axis class");
  return title_;
}

void InMemoryAxis::SetMajorTickMark(host::TickMark mark) {
  TickMark& field = model().majorTickMark;
  switch (mark) {
    case host::TickMark::Cross: field = TickMark::Cross; break;
    case host::TickMark::Inside: field = TickMark::Inside; break;
    case host::TickMark::None: field = TickMark::None; break;
    case host::TickMark::Outside: field = TickMark::Outside; break;
  }
}

void InMemoryAxis::SetTickLabelPosition(host::TickLabelPosition position) {
  model().tickLabels = position == host::TickLabelPosition::Low ? TickLabelPlace::Low : TickLabelPlace::NextToAxis;
}

// Scale settings belong to value axes, and to both axes of a scatter chart, whose X axis is a
// value axis too.
void InMemoryAxis::SetMinimumScale(double value) { scaleField("MinimumScale", value).minimumScale = value; }
void InMemoryAxis::SetMaximumScale(double value) { scaleField("MaximumScale", value).maximumScale = value; }
void InMemoryAxis::SetMajorUnit(double value) {
  if (!(value > 0)) raiseHost("Unable to set the MajorUnit property of the Axis class");
  scaleField("MajorUnit", value).majorUnit = value;
}

AxisModel& InMemoryAxis::scaleField(std::string_view property, double value) {
  AxisModel& axis = model();
  const bool scatter = chart_->model().kind == ChartKind::XYScatter;
  if (!std::isfinite(value) || (axis.kind != AxisKind::Value && !scatter)) {
    raiseHost("Unable to set the " + std::string(property) + " property of the Axis class");
  }
  return axis;
}

double InMemoryAxis::MaximumScale() const {
  const AxisModel& axis = model();
  if (axis.kind != AxisKind::Value) {
    raiseHost("Unable to get the MaximumScale property of the Axis class");
  }
  if (axis.maximumScale) return *axis.maximumScale;
  return automaticValueScale(chart_->valuesOnAxis(group_)).maximum;
}

// --- chart groups, chart area, plot area ------------------------------------------------------

InMemoryUpDownBars::InMemoryUpDownBars(InMemoryChart& chart)
    // The boxes are always outlined in the recorded model; only the outline's weight is kept.
    : border_({}, [&chart]() -> double& { return chart.model().upBarsBorderWeight; }),
      interior_([&chart]() -> std::int32_t& { return chart.model().upBarsColorIndex; }) {}

InMemoryChartGroup::InMemoryChartGroup(InMemoryChart& chart, AxisGroup group)
    : chart_(&chart), group_(group), upBars_(chart) {}

void InMemoryChartGroup::SetHasUpDownBars(bool on) {
  ChartModel& model = chart_->model();
  const bool lineOrStock = model.kind == ChartKind::LineMarkers || priceSeriesCount(model.kind) > 0;
  if (group_ != AxisGroup::Primary || !lineOrStock) {
    raiseHost("Unable to set the HasUpDownBars property of the ChartGroup class");
  }
  model.upDownBars = on;
}

void InMemoryChartGroup::SetGapWidth(std::int32_t percent) {
  if (group_ != AxisGroup::Primary || percent < 0 || percent > 500) {
    raiseHost("Unable to set the GapWidth property of the ChartGroup class");
  }
  chart_->model().gapWidth = percent;
}

UpDownBars& InMemoryChartGroup::UpBars() {
  if (group_ != AxisGroup::Primary || !chart_->model().upDownBars) {
    raiseHost("Unable to get the UpBars property of the ChartGroup class");
  }
  return upBars_;
}

InMemoryChartArea::InMemoryChartArea(InMemoryChart& chart)
    : chart_(&chart), interior_([&chart]() -> std::int32_t& { return chart.model().chartAreaColorIndex; }) {}

void InMemoryChartArea::SetAutoScaleFont(bool on) { chart_->model().autoScaleFont = on; }

double InMemoryChartArea::Width() const { return chart_->model().width; }

InMemoryPlotArea::InMemoryPlotArea(InMemoryChart& chart)
    : chart_(&chart),
      fill_([&chart]() -> bool& { return chart.model().plotArea.filled; }),
      border_([&chart]() -> bool& { return chart.model().plotArea.border; }, {}) {}

PlotAreaModel InMemoryPlotArea::current() const {
  const ChartModel& model = chart_->model();
  if (model.plotArea.manual) return model.plotArea;
  PlotAreaModel area = automaticPlotArea(model.width, model.height, model.title.has_value());
  area.filled = model.plotArea.filled;
  area.border = model.plotArea.border;
  return area;
}

PlotAreaModel& InMemoryPlotArea::fixed(double points) {
  if (!std::isfinite(points) || points < 0) {
    raiseHost("Unable to set a size of the PlotArea class to " + std::to_string(points));
  }
  PlotAreaModel& area = chart_->model().plotArea;
  if (!area.manual) {
    area = current();
    area.manual = true;
  }
  return area;
}

// --- chart ----------------------------------------------------------------------------------

InMemoryChart::InMemoryChart(Worksheet& sheet, FieldOf<ChartModel> model)
    : sheet_(&sheet),
      model_(std::move(model)),
      series_(*this),
      title_([this]() -> std::optional<std::string>& { return this->model().title; },
             [this]() -> FontModel& { return this->model().titleFont; }),
      chartArea_(*this),
      plotArea_(*this),
      legend_(*this) {}

std::string InMemoryChart::Name() const { return sheet_->Name() + " " + model().name; }

void InMemoryChart::SetChartType(host::ChartType type) {
  const ChartKind kind = chartKindOf(type);
  ChartModel& chart = model();
  const std::size_t prices = priceSeriesCount(kind);
  if (prices > 0 && chart.series.size() != prices) {
    raiseHost(
        "Unable to set the ChartType property of the Chart class: a stock chart of this "
        "type needs " +
        std::to_string(prices) + " series, the chart has " + std::to_string(chart.series.size()));
  }
  chart.kind = kind;
  // Stock charts draw their prices as whiskers and boxes, not as lines or markers.
  chart.highLowLines = prices > 0;
  chart.upDownBars = kind == ChartKind::StockOHLC;
  for (SeriesModel& s : chart.series) {
    s.kind = kind;
    s.line = prices == 0 && kind != ChartKind::XYScatter;
    s.marker = prices > 0 || type == host::ChartType::Line ? MarkerSymbol::None : MarkerSymbol::Automatic;
  }
}

ChartGroup& InMemoryChart::ChartGroups(std::int32_t index) {
  const ChartModel& chart = model();
  const bool secondary = std::any_of(chart.series.begin(), chart.series.end(),
                                     [](const SeriesModel& s) { return s.axisGroup == AxisGroup::Secondary; });
  if (index == 1 && !chart.series.empty()) {
    if (!primaryGroup_) primaryGroup_ = std::make_unique<InMemoryChartGroup>(*this, AxisGroup::Primary);
    return *primaryGroup_;
  }
  if (index == 2 && secondary) {
    if (!secondaryGroup_) {
      secondaryGroup_ = std::make_unique<InMemoryChartGroup>(*this, AxisGroup::Secondary);
    }
    return *secondaryGroup_;
  }
  raiseHost("Unable to get the ChartGroups property of the Chart class");
}

Axis& InMemoryChart::Axes(host::AxisType type, host::AxisGroup group) {
  const AxisKind kind = axisKindOf(type);
  const AxisGroup g = axisGroupOf(group);
  for (const auto& axis : axes_) {
    if (axis->kind() == kind && axis->group() == g) {
      axis->model();  // fails when the chart has no such axis now
      return *axis;
    }
  }
  axes_.push_back(std::make_unique<InMemoryAxis>(*this, kind, g));
  axes_.back()->model();
  return *axes_.back();
}

void InMemoryChart::SetHasTitle(bool on) {
  ChartModel& chart = model();
  if (!on) {
    chart.title.reset();
  } else if (!chart.title) {
    chart.title = "Chart Title";
  }
}

ChartTitle& InMemoryChart::ChartTitle() {
  if (!model().title) raiseHost("Unable to get the ChartTitle property of the Chart class");
  return title_;
}

orv::Legend& InMemoryChart::Legend() {
  if (!model().legend) raiseHost("Unable to get the Legend property of the Chart class");
  return legend_;
}

// --- legend ---------------------------------------------------------------------------------

InMemoryLegend::InMemoryLegend(InMemoryChart& chart)
    : chart_(&chart), font_([&chart]() -> FontModel& { return chart.model().legendFont; }) {}

void InMemoryLegend::SetPosition(host::LegendPosition position) {
  chart_->model().legendPlace = position == host::LegendPosition::Bottom ? LegendPlace::Bottom : LegendPlace::Right;
}

void InMemoryChart::syncAxes() {
  ChartModel& chart = model();
  const bool anySeries = !chart.series.empty();
  const bool secondary = std::any_of(chart.series.begin(), chart.series.end(),
                                     [](const SeriesModel& s) { return s.axisGroup == AxisGroup::Secondary; });
  const auto wanted = [&](const AxisModel& axis) { return axis.group == AxisGroup::Primary ? anySeries : secondary; };
  std::erase_if(chart.axes, [&](const AxisModel& axis) { return !wanted(axis); });
  // Primary category, primary value, secondary value, secondary category: the host's order.
  const std::pair<AxisKind, AxisGroup> order[] = {{AxisKind::Category, AxisGroup::Primary},
                                                  {AxisKind::Value, AxisGroup::Primary},
                                                  {AxisKind::Value, AxisGroup::Secondary},
                                                  {AxisKind::Category, AxisGroup::Secondary}};
  std::vector<AxisModel> axes;
  for (const auto& [kind, group] : order) {
    // Copies of the bindings: clang 14 cannot capture structured bindings.
    const auto found =
        std::find_if(chart.axes.begin(), chart.axes.end(),
                     [kind = kind, group = group](const AxisModel& a) { return a.kind == kind && a.group == group; });
    if (found != chart.axes.end()) {
      axes.push_back(*found);
    } else if (group == AxisGroup::Primary ? anySeries : secondary) {
      axes.push_back(newAxis(kind, group));
    }
  }
  chart.axes = std::move(axes);
}

std::vector<double> InMemoryChart::valuesOnAxis(AxisGroup group) const {
  const ChartModel& chart = model();
  // Series of the secondary group are drawn on the primary scale once their own value axis is
  // deleted.
  bool secondaryShown = false;
  for (const AxisModel& axis : chart.axes) {
    if (axis.kind == AxisKind::Value && axis.group == AxisGroup::Secondary) secondaryShown = !axis.deleted;
  }
  std::vector<double> values;
  for (const SeriesModel& s : chart.series) {
    const AxisGroup drawnOn = s.axisGroup == AxisGroup::Secondary && !secondaryShown ? AxisGroup::Primary : s.axisGroup;
    if (drawnOn != group) continue;
    for (const std::optional<double>& v : s.values.cells ? s.values.cached : s.values.literal) {
      if (v) values.push_back(*v);
    }
  }
  return values;
}

}  // namespace orv
