#include "calc/calc_series.h"

#include <algorithm>
#include <string>
#include <variant>

#include "calc/calc_chart.h"
#include "calc/calc_chart_objects.h"
#include "calc/calc_workbook.h"
#include "calc/calc_worksheet.h"
#include "calc/chart_data_sheet.h"
#include "calc/office_notation.h"
#include "frame/conversions.h"
#include "frame/errors.h"
#include "frame/host.h"

namespace orv::calc {
namespace {

// The host makes series from single rows or columns only; a block would need the host to guess
// which way its series run.
void requireLine(const CellBlock& area, std::string_view failure) {
  if (area.rows() != 1 && area.columns() != 1) {
    raiseHost(std::string(failure) + ": the area " + absoluteAddress(area) + " is neither one row nor one column");
  }
}

const Range& singleLine(const Range& range, std::string_view failure) {
  if (range.AreasCount() != 1) raiseHost(std::string(failure) + ": cells from several areas");
  requireLine(range.block(), failure);
  return range;
}

PlanData dataOf(Worksheet& sheet, const CellBlock& area) {
  PlanData data;
  data.range = officeRange(sheet.Name(), area);
  const ValueArray2D values = Range(sheet, area).Values();
  for (const CellValue& v : values.cells())
    data.numbers.push_back(v.isNumber() ? std::optional<double>(v.number()) : std::nullopt);
  return data;
}

// Literal numbers, kept in the chart data sheet unless `store` is false (they stand in cells of
// their own); an empty element is a point without value.
PlanData literalData(CalcWorkbook& book, const ValueArray1D& array, bool emptyAllowed, std::string_view failure,
                     bool store = true) {
  if (array.size() == 0) raiseHost(std::string(failure) + ": an empty list");
  PlanData data;
  for (const CellValue& v : array.items()) {
    if (v.isNumber()) {
      data.numbers.emplace_back(v.number());
    } else if (v.isEmpty() && emptyAllowed) {
      data.numbers.emplace_back();
    } else {
      raiseHost(std::string(failure) + ": the value " + describe(v) + " is no number");
    }
  }
  if (store) data.range = book.chartData().store(array.items());
  return data;
}

}  // namespace

// --- error bars -----------------------------------------------------------------------------

PlanErrorBars& CalcErrorBars::plan() {
  std::optional<PlanErrorBars>& bars = series_->plan().errorBars;
  if (!bars) raiseHost("Unable to get the ErrorBars property of the Series class");
  return *bars;
}

void CalcErrorBars::Delete() {
  plan();
  series_->plan().errorBars.reset();
}

void CalcErrorBars::SetEndStyle(host::EndStyle style) { plan().endCaps = style == host::EndStyle::Cap; }

// --- series ---------------------------------------------------------------------------------

CalcSeries::CalcSeries(CalcChart& chart)
    : chart_(&chart),
      errorBars_(*this),
      border_([this]() -> bool& { return plan().line; }, {},
              [this]() -> std::int32_t& { return plan().lineColorIndex; }) {}

PlanSeries& CalcSeries::plan() {
  if (deleted_) raiseHost("The series was deleted");
  return chart_->edit().series[chart_->series().indexOf(*this)];
}

const PlanSeries& CalcSeries::plan() const {
  if (deleted_) raiseHost("The series was deleted");
  return chart_->plan().series[chart_->series().indexOf(*this)];
}

void CalcSeries::Delete() {
  plan();
  chart_->series().remove(*this);
  chart_->syncAxes();
}

host::AxisGroup CalcSeries::AxisGroup() const {
  return plan().secondary ? host::AxisGroup::Secondary : host::AxisGroup::Primary;
}

void CalcSeries::SetAxisGroup(host::AxisGroup group) {
  plan().secondary = group == host::AxisGroup::Secondary;
  chart_->syncAxes();
}

void CalcSeries::SetHasErrorBars(bool on) {
  std::optional<PlanErrorBars>& bars = plan().errorBars;
  if (!on) {
    bars.reset();
  } else if (!bars) {
    bars.emplace();
  }
}

orv::ErrorBars& CalcSeries::ErrorBars() {
  if (!plan().errorBars) raiseHost("Unable to get the ErrorBars property of the Series class");
  return errorBars_;
}

void CalcSeries::ErrorBar(host::ErrorBarDirection direction, host::ErrorBarInclude include, host::ErrorBarType type,
                          const ErrorAmount& amount, const ErrorAmount& minusValues) {
  constexpr std::string_view kFailure = "Unable to set the ErrorBar method of the Series class";
  plan();
  if (direction != host::ErrorBarDirection::Y || type != host::ErrorBarType::Custom) {
    raiseHost(std::string(kFailure) + ": this host draws vertical bars of custom amounts only");
  }
  CalcWorkbook& book = chart_->object().sheet().workbook();
  const auto amountRange = [&](const ErrorAmount& a) -> std::string {
    if (const auto* range = std::get_if<Range>(&a)) {
      const Range& line = singleLine(*range, kFailure);
      return officeRange(line.Parent().Name(), line.block());
    }
    if (const auto* list = std::get_if<AmountList>(&a)) {
      const bool inCells = list->cells && list->cells->CellCount() == list->values.size();
      const PlanData numbers = literalData(book, list->values, false, kFailure, !inCells);
      if (!inCells) return numbers.range;
      const Range& line = singleLine(*list->cells, kFailure);
      return officeRange(line.Parent().Name(), line.block());
    }
    raiseHost(std::string(kFailure) + ": no amounts given");
  };
  PlanErrorBars bars;
  bars.plus = include == host::ErrorBarInclude::Both || include == host::ErrorBarInclude::PlusValues;
  bars.minus = include == host::ErrorBarInclude::Both || include == host::ErrorBarInclude::MinusValues;
  if (bars.plus) bars.plusRange = amountRange(amount);
  if (bars.minus) bars.minusRange = amountRange(minusValues);
  plan().errorBars = std::move(bars);
}

void CalcSeries::SetName(const std::string& name) { plan().name = officeText(name); }

void CalcSeries::SetChartType(host::ChartType type) {
  const PlanKind kind = planKindOf(type);
  if (priceSeries(kind) > 0) {
    raiseHost("Unable to set the ChartType property of the Series class: a stock type needs the whole chart");
  }
  PlanSeries& series = plan();
  series.kind = kind;
  series.line = kind != PlanKind::Scatter;
  series.marker = type == host::ChartType::Line ? PlanMarker::None : PlanMarker::Automatic;
}

void CalcSeries::SetValues(const SeriesSource& values) {
  constexpr std::string_view kFailure = "Unable to set the Values property of the Series class";
  plan();
  if (const auto* range = std::get_if<Range>(&values)) {
    const Range& line = singleLine(*range, kFailure);
    plan().values = dataOf(line.Parent(), line.block());
    return;
  }
  plan().values = literalData(chart_->object().sheet().workbook(), std::get<ValueArray1D>(values), true, kFailure);
}

void CalcSeries::SetXValues(const SeriesSource& values) {
  constexpr std::string_view kFailure = "Unable to set the XValues property of the Series class";
  PlanSeries& series = plan();
  const Range* range = std::get_if<Range>(&values);
  if (range != nullptr) singleLine(*range, kFailure);
  if (series.kind == PlanKind::Scatter) {
    plan().xValues =
        range ? dataOf(range->Parent(), range->block())
              : literalData(chart_->object().sheet().workbook(), std::get<ValueArray1D>(values), true, kFailure);
    return;
  }
  if (range != nullptr) {
    plan().categories = officeRange(range->Parent().Name(), range->block());
    return;
  }
  // Literal labels: numbers shown as text.
  std::vector<CellValue> labels;
  for (const CellValue& v : std::get<ValueArray1D>(values).items()) labels.emplace_back(toText(v));
  plan().categories = chart_->object().sheet().workbook().chartData().store(labels);
}

void CalcSeries::SetMarkerStyle(host::MarkerStyle style) {
  PlanSeries& series = plan();
  switch (style) {
    case host::MarkerStyle::Automatic: series.marker = PlanMarker::Automatic; break;
    case host::MarkerStyle::None: series.marker = PlanMarker::None; break;
    case host::MarkerStyle::Circle: series.marker = PlanMarker::Circle; break;
  }
}

void CalcSeries::SetMarkerSize(std::int32_t points) {
  if (points < 2 || points > 72) raiseHost("Unable to set the MarkerSize property of the Series class");
  plan().markerSize = points;
}

// --- series collection ----------------------------------------------------------------------

Series& CalcSeriesCollection::Item(std::int32_t index) {
  if (index < 1 || index > Count()) raiseHost("Unable to get the Item property of the SeriesCollection class");
  return *live_[static_cast<std::size_t>(index - 1)];
}

Series& CalcSeriesCollection::Add(const Range& source, host::RowCol /*rowcol*/, bool seriesLabels, bool categoryLabels,
                                  bool /*replace*/) {
  constexpr std::string_view kFailure = "Unable to add a series to the SeriesCollection";
  const std::vector<CellBlock>& areas = source.areas();
  for (const CellBlock& area : areas) requireLine(area, kFailure);
  Worksheet& sheet = source.Parent();
  ChartPlan& chart = chart_->edit();

  std::size_t first = 0;
  std::optional<std::string> categories;
  if (categoryLabels && areas.size() >= 2) {
    categories = officeRange(sheet.Name(), areas.front());
    first = 1;
  } else if (!chart.series.empty()) {
    categories = chart.series.front().categories;
  }

  for (std::size_t i = first; i < areas.size(); ++i) {
    CellBlock values = areas[i];
    PlanSeries series;
    if (seriesLabels) {
      if (values.rows() * values.columns() < 2)
        raiseHost(std::string(kFailure) + ": a series name needs a cell before the values");
      series.name = officeRange(sheet.Name(), CellBlock{values.top, values.left, values.top, values.left});
      (values.rows() == 1 ? values.left : values.top) += 1;
    }
    series.kind = chart.kind;
    series.categories = categories;
    series.values = dataOf(sheet, values);
    const std::size_t prices = priceSeries(chart.kind);
    if (prices > 0) {
      series.line = false;
      const bool mark = chart.series.size() >= prices;
      series.marker = mark ? PlanMarker::Dash : PlanMarker::None;
      if (mark) series.markerSize = 12;
    } else if (chart.kind == PlanKind::Scatter) {
      series.line = false;
    }
    chart.series.push_back(std::move(series));
    live_.push_back(std::make_unique<CalcSeries>(*chart_));
  }
  chart_->syncAxes();
  return *live_.back();
}

Series& CalcSeriesCollection::NewSeries() {
  ChartPlan& chart = chart_->edit();
  PlanSeries series;
  series.kind = chart.kind;
  if (!chart.series.empty()) series.categories = chart.series.front().categories;
  series.line = chart.kind != PlanKind::Scatter && priceSeries(chart.kind) == 0;
  chart.series.push_back(std::move(series));
  live_.push_back(std::make_unique<CalcSeries>(*chart_));
  chart_->syncAxes();
  return *live_.back();
}

std::size_t CalcSeriesCollection::indexOf(const CalcSeries& series) const {
  const auto found = std::find_if(live_.begin(), live_.end(), [&](const auto& s) { return s.get() == &series; });
  return static_cast<std::size_t>(found - live_.begin());
}

void CalcSeriesCollection::remove(CalcSeries& series) {
  const std::size_t index = indexOf(series);
  ChartPlan& chart = chart_->edit();
  chart.series.erase(chart.series.begin() + static_cast<std::ptrdiff_t>(index));
  series.markDeleted();
  deleted_.push_back(std::move(live_[index]));
  live_.erase(live_.begin() + static_cast<std::ptrdiff_t>(index));
}

}  // namespace orv::calc
