#include "workbook/in_memory_series.h"

#include <algorithm>
#include <string>
#include <variant>

#include "frame/conversions.h"
#include "frame/errors.h"
#include "frame/host.h"
#include "workbook/in_memory_chart.h"

namespace orv {
namespace {

// The host makes series from single rows or columns only; a block would need the host to guess
// which way its series run.
void requireLine(const CellBlock& area, std::string_view what) {
  if (area.rows() != 1 && area.columns() != 1) {
    raiseHost(std::string(what) + ": the area " + absoluteAddress(area) + " is neither one row nor one column");
  }
}

template <class Visit>
void forEachCell(const CellBlock& area, Visit&& visit) {
  for (std::int32_t r = area.top; r <= area.bottom; ++r)
    for (std::int32_t c = area.left; c <= area.right; ++c) visit(r, c);
}

ChartData dataOf(Worksheet& sheet, const CellBlock& area) {
  ChartData data;
  data.cells = SheetRef{sheet.Name(), area};
  forEachCell(area, [&](std::int32_t r, std::int32_t c) {
    const CellValue v = sheet.cellValue(r, c);
    data.cached.push_back(v.isNumber() ? std::optional<double>(v.number()) : std::nullopt);
  });
  return data;
}

ChartLabels labelsOf(Worksheet& sheet, const CellBlock& area) {
  ChartLabels labels;
  labels.cells = SheetRef{sheet.Name(), area};
  forEachCell(area, [&](std::int32_t r, std::int32_t c) { labels.cached.push_back(toText(sheet.cellValue(r, c))); });
  return labels;
}

// Custom error amounts: the cells of one row or column, or literal numbers; a list that also
// stands in cells is kept as those cells.
ChartData amountOf(const ErrorAmount& amount) {
  constexpr std::string_view kFailure = "Unable to set the ErrorBar method of the Series class";
  const auto cellAmounts = [&](const Range& range) {
    if (range.AreasCount() != 1) raiseHost(std::string(kFailure) + ": amounts from several areas");
    requireLine(range.block(), kFailure);
    return dataOf(range.Parent(), range.block());
  };
  if (const auto* range = std::get_if<Range>(&amount)) return cellAmounts(*range);
  if (const auto* list = std::get_if<AmountList>(&amount)) {
    if (list->values.size() == 0) raiseHost(std::string(kFailure) + ": an empty array of amounts");
    ChartData data;
    for (const CellValue& v : list->values.items()) {
      if (!v.isNumber()) raiseHost(std::string(kFailure) + ": the amount " + describe(v) + " is no number");
      data.literal.push_back(v.number());
    }
    if (list->cells && list->cells->CellCount() == list->values.size()) return cellAmounts(*list->cells);
    return data;
  }
  raiseHost(std::string(kFailure) + ": no amounts given");
}

// Series values: the cells of one row or column, or literal numbers (an empty cell of the array
// is a point without value).
ChartData seriesDataOf(const SeriesSource& source, std::string_view failure) {
  if (const auto* range = std::get_if<Range>(&source)) {
    if (range->AreasCount() != 1) raiseHost(std::string(failure) + ": values from several areas");
    requireLine(range->block(), failure);
    return dataOf(range->Parent(), range->block());
  }
  ChartData data;
  for (const CellValue& v : std::get<ValueArray1D>(source).items()) {
    if (v.isEmpty()) {
      data.literal.emplace_back();
    } else if (v.isNumber()) {
      data.literal.emplace_back(v.number());
    } else {
      raiseHost(std::string(failure) + ": the value " + describe(v) + " is no number");
    }
  }
  return data;
}

// Category labels: the cells of one row or column, or literal texts (numbers shown as text).
ChartLabels seriesLabelsOf(const SeriesSource& source, std::string_view failure) {
  if (const auto* range = std::get_if<Range>(&source)) {
    if (range->AreasCount() != 1) raiseHost(std::string(failure) + ": labels from several areas");
    requireLine(range->block(), failure);
    return labelsOf(range->Parent(), range->block());
  }
  ChartLabels labels;
  for (const CellValue& v : std::get<ValueArray1D>(source).items()) labels.cached.push_back(toText(v));
  return labels;
}

}  // namespace

// --- error bars -----------------------------------------------------------------------------

ErrorBarsModel& InMemoryErrorBars::model() {
  std::optional<ErrorBarsModel>& bars = series_->model().errorBars;
  if (!bars) raiseHost("Unable to get the ErrorBars property of the Series class");
  return *bars;
}

void InMemoryErrorBars::Delete() {
  model();
  series_->model().errorBars.reset();
}

void InMemoryErrorBars::SetEndStyle(host::EndStyle style) { model().endCaps = style == host::EndStyle::Cap; }

// --- series ---------------------------------------------------------------------------------

InMemorySeries::InMemorySeries(InMemoryChart& chart)
    : chart_(&chart),
      errorBars_(*this),
      border_([this]() -> bool& { return model().line; }, {},
              [this]() -> std::int32_t& { return model().lineColorIndex; }) {}

SeriesModel& InMemorySeries::model() {
  if (deleted_) raiseHost("The series was deleted");
  return chart_->model().series[chart_->series().indexOf(*this)];
}

const SeriesModel& InMemorySeries::model() const { return const_cast<InMemorySeries*>(this)->model(); }

void InMemorySeries::Delete() {
  model();
  chart_->series().remove(*this);
  chart_->syncAxes();
}

host::AxisGroup InMemorySeries::AxisGroup() const {
  return model().axisGroup == orv::AxisGroup::Secondary ? host::AxisGroup::Secondary : host::AxisGroup::Primary;
}

void InMemorySeries::SetAxisGroup(host::AxisGroup group) {
  model().axisGroup = group == host::AxisGroup::Secondary ? orv::AxisGroup::Secondary : orv::AxisGroup::Primary;
  chart_->syncAxes();
}

void InMemorySeries::SetName(const std::string& name) {
  SeriesModel& series = model();
  series.name = name;
  series.nameCell.reset();
}

void InMemorySeries::SetChartType(host::ChartType type) {
  const ChartKind kind = chartKindOf(type);
  if (priceSeriesCount(kind) > 0) {
    raiseHost(
        "Unable to set the ChartType property of the Series class: a stock type needs the "
        "whole chart");
  }
  SeriesModel& series = model();
  series.kind = kind;
  series.line = kind != ChartKind::XYScatter;
  series.marker = type == host::ChartType::Line ? MarkerSymbol::None : MarkerSymbol::Automatic;
}

void InMemorySeries::SetValues(const SeriesSource& values) {
  model().values = seriesDataOf(values, "Unable to set the Values property of the Series class");
}

void InMemorySeries::SetXValues(const SeriesSource& values) {
  constexpr std::string_view kFailure = "Unable to set the XValues property of the Series class";
  SeriesModel& series = model();
  if (series.kind == ChartKind::XYScatter) {
    series.xValues = seriesDataOf(values, kFailure);
  } else {
    series.categories = seriesLabelsOf(values, kFailure);
  }
}

void InMemorySeries::SetMarkerStyle(host::MarkerStyle style) {
  SeriesModel& series = model();
  switch (style) {
    case host::MarkerStyle::Automatic: series.marker = MarkerSymbol::Automatic; break;
    case host::MarkerStyle::None: series.marker = MarkerSymbol::None; break;
    case host::MarkerStyle::Circle: series.marker = MarkerSymbol::Circle; break;
  }
}

void InMemorySeries::SetMarkerSize(std::int32_t points) {
  if (points < 2 || points > 72) raiseHost("Unable to set the MarkerSize property of the Series class");
  model().markerSize = points;
}

void InMemorySeries::SetHasErrorBars(bool on) {
  std::optional<ErrorBarsModel>& bars = model().errorBars;
  if (!on) {
    bars.reset();
  } else if (!bars) {
    bars.emplace();
  }
}

orv::ErrorBars& InMemorySeries::ErrorBars() {
  if (!model().errorBars) raiseHost("Unable to get the ErrorBars property of the Series class");
  return errorBars_;
}

void InMemorySeries::ErrorBar(host::ErrorBarDirection direction, host::ErrorBarInclude include, host::ErrorBarType type,
                              const ErrorAmount& amount, const ErrorAmount& minusValues) {
  SeriesModel& series = model();
  if (direction != host::ErrorBarDirection::Y || type != host::ErrorBarType::Custom) {
    raiseHost(
        "Unable to set the ErrorBar method of the Series class: this host draws vertical "
        "bars of custom amounts only");
  }
  ErrorBarsModel bars;
  bars.plus = include == host::ErrorBarInclude::Both || include == host::ErrorBarInclude::PlusValues;
  bars.minus = include == host::ErrorBarInclude::Both || include == host::ErrorBarInclude::MinusValues;
  if (bars.plus) bars.plusAmounts = amountOf(amount);
  if (bars.minus) bars.minusAmounts = amountOf(minusValues);
  series.errorBars = std::move(bars);
}

// --- series collection ----------------------------------------------------------------------

Series& InMemorySeriesCollection::Item(std::int32_t index) {
  if (index < 1 || index > Count()) raiseHost("Unable to get the Item property of the SeriesCollection class");
  return *live_[static_cast<std::size_t>(index - 1)];
}

// Every area is a single row or column, so it says itself which way its series runs; `rowcol`
// and `replace` have nothing left to decide in this host.
Series& InMemorySeriesCollection::Add(const Range& source, host::RowCol /*rowcol*/, bool seriesLabels,
                                      bool categoryLabels, bool /*replace*/) {
  constexpr std::string_view kFailure = "Unable to add a series to the SeriesCollection";
  const std::vector<CellBlock>& areas = source.areas();
  for (const CellBlock& area : areas) requireLine(area, kFailure);
  Worksheet& sheet = source.Parent();
  ChartModel& chart = chart_->model();

  std::size_t first = 0;
  ChartLabels categories;
  if (categoryLabels && areas.size() >= 2) {
    categories = labelsOf(sheet, areas.front());
    first = 1;
  } else if (!chart.series.empty()) {
    categories = chart.series.front().categories;
  }

  for (std::size_t i = first; i < areas.size(); ++i) {
    CellBlock values = areas[i];
    SeriesModel series;
    if (seriesLabels) {
      if (values.rows() * values.columns() < 2) {
        raiseHost(std::string(kFailure) + ": a series name needs a cell before the values");
      }
      series.nameCell = SheetRef{sheet.Name(), CellBlock{values.top, values.left, values.top, values.left}};
      series.name = toText(sheet.cellValue(values.top, values.left));
      (values.rows() == 1 ? values.left : values.top) += 1;
    }
    series.kind = chart.kind;
    series.categories = categories;
    series.values = dataOf(sheet, values);
    const std::size_t prices = priceSeriesCount(chart.kind);
    if (prices > 0) {
      series.line = false;
      const bool mark = chart.series.size() >= prices;
      series.marker = mark ? MarkerSymbol::Dash : MarkerSymbol::None;
      if (mark) series.markerSize = 12;
    } else if (chart.kind == ChartKind::XYScatter) {
      series.line = false;
    }
    chart.series.push_back(std::move(series));
    live_.push_back(std::make_unique<InMemorySeries>(*chart_));
  }
  chart_->syncAxes();
  return *live_.back();
}

Series& InMemorySeriesCollection::NewSeries() {
  ChartModel& chart = chart_->model();
  SeriesModel series;
  series.kind = chart.kind;
  if (!chart.series.empty()) series.categories = chart.series.front().categories;
  series.line = chart.kind != ChartKind::XYScatter && priceSeriesCount(chart.kind) == 0;
  chart.series.push_back(std::move(series));
  live_.push_back(std::make_unique<InMemorySeries>(*chart_));
  chart_->syncAxes();
  return *live_.back();
}

std::size_t InMemorySeriesCollection::indexOf(const InMemorySeries& series) const {
  const auto found = std::find_if(live_.begin(), live_.end(), [&](const auto& s) { return s.get() == &series; });
  return static_cast<std::size_t>(found - live_.begin());
}

void InMemorySeriesCollection::remove(InMemorySeries& series) {
  const std::size_t index = indexOf(series);
  ChartModel& chart = chart_->model();
  chart.series.erase(chart.series.begin() + static_cast<std::ptrdiff_t>(index));
  series.markDeleted();
  deleted_.push_back(std::move(live_[index]));
  live_.erase(live_.begin() + static_cast<std::ptrdiff_t>(index));
}

}  // namespace orv
