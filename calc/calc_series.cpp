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

SpecData dataOf(Worksheet& sheet, const CellBlock& area) {
  SpecData data;
  data.range = officeRange(sheet.Name(), area);
  const ValueArray2D values = Range(sheet, area).Values();
  for (const CellValue& v : values.cells())
    data.numbers.push_back(v.isNumber() ? std::optional<double>(v.number()) : std::nullopt);
  return data;
}

// Literal numbers, kept in the chart data sheet; an empty element is a point without value.
SpecData literalData(CalcWorkbook& book, const ValueArray1D& array, bool emptyAllowed, std::string_view failure) {
  if (array.size() == 0) raiseHost(std::string(failure) + ": an empty list");
  SpecData data;
  for (const CellValue& v : array.items()) {
    if (v.isNumber()) {
      data.numbers.emplace_back(v.number());
    } else if (v.isEmpty() && emptyAllowed) {
      data.numbers.emplace_back();
    } else {
      raiseHost(std::string(failure) + ": the value " + describe(v) + " is no number");
    }
  }
  data.range = book.chartData().store(array.items());
  return data;
}

}  // namespace

// --- error bars -----------------------------------------------------------------------------

SpecErrorBars& CalcErrorBars::spec() {
  std::optional<SpecErrorBars>& bars = series_->spec().errorBars;
  if (!bars) raiseHost("Unable to get the ErrorBars property of the Series class");
  return *bars;
}

void CalcErrorBars::Delete() {
  spec();
  series_->spec().errorBars.reset();
}

void CalcErrorBars::SetEndStyle(host::EndStyle style) { spec().endCaps = style == host::EndStyle::Cap; }

// --- series ---------------------------------------------------------------------------------

CalcSeries::CalcSeries(CalcChart& chart)
    : chart_(&chart),
      errorBars_(*this),
      border_([this]() -> bool& { return spec().line; }, {},
              [this]() -> std::int32_t& { return spec().lineColorIndex; }) {}

SpecSeries& CalcSeries::spec() {
  if (deleted_) raiseHost("The series was deleted");
  return chart_->edit().series[chart_->series().indexOf(*this)];
}

const SpecSeries& CalcSeries::spec() const {
  if (deleted_) raiseHost("The series was deleted");
  return chart_->spec().series[chart_->series().indexOf(*this)];
}

void CalcSeries::Delete() {
  spec();
  chart_->series().remove(*this);
  chart_->syncAxes();
}

host::AxisGroup CalcSeries::AxisGroup() const {
  return spec().secondary ? host::AxisGroup::Secondary : host::AxisGroup::Primary;
}

void CalcSeries::SetAxisGroup(host::AxisGroup group) {
  spec().secondary = group == host::AxisGroup::Secondary;
  chart_->syncAxes();
}

void CalcSeries::SetHasErrorBars(bool on) {
  std::optional<SpecErrorBars>& bars = spec().errorBars;
  if (!on) {
    bars.reset();
  } else if (!bars) {
    bars.emplace();
  }
}

orv::ErrorBars& CalcSeries::ErrorBars() {
  if (!spec().errorBars) raiseHost("Unable to get the ErrorBars property of the Series class");
  return errorBars_;
}

void CalcSeries::ErrorBar(host::ErrorBarDirection direction, host::ErrorBarInclude include, host::ErrorBarType type,
                          const ErrorAmount& amount, const ErrorAmount& minusValues) {
  constexpr std::string_view kFailure = "Unable to set the ErrorBar method of the Series class";
  spec();
  if (direction != host::ErrorBarDirection::Y || type != host::ErrorBarType::Custom) {
    raiseHost(std::string(kFailure) + ": this host draws vertical bars of custom amounts only");
  }
  CalcWorkbook& book = chart_->object().sheet().workbook();
  const auto amountRange = [&](const ErrorAmount& a) -> std::string {
    if (const auto* range = std::get_if<Range>(&a)) {
      const Range& line = singleLine(*range, kFailure);
      return officeRange(line.Parent().Name(), line.block());
    }
    if (const auto* array = std::get_if<ValueArray1D>(&a)) return literalData(book, *array, false, kFailure).range;
    raiseHost(std::string(kFailure) + ": no amounts given");
  };
  SpecErrorBars bars;
  bars.plus = include == host::ErrorBarInclude::Both || include == host::ErrorBarInclude::PlusValues;
  bars.minus = include == host::ErrorBarInclude::Both || include == host::ErrorBarInclude::MinusValues;
  if (bars.plus) bars.plusRange = amountRange(amount);
  if (bars.minus) bars.minusRange = amountRange(minusValues);
  spec().errorBars = std::move(bars);
}

void CalcSeries::SetName(const std::string& name) { spec().name = officeText(name); }

void CalcSeries::SetChartType(host::ChartType type) {
  const SpecKind kind = specKindOf(type);
  if (priceSeries(kind) > 0) {
    raiseHost("Unable to set the ChartType property of the Series class: a stock type needs the whole chart");
  }
  SpecSeries& series = spec();
  series.kind = kind;
  series.line = kind != SpecKind::Scatter;
  series.marker = type == host::ChartType::Line ? SpecMarker::None : SpecMarker::Automatic;
}

void CalcSeries::SetValues(const SeriesSource& values) {
  constexpr std::string_view kFailure = "Unable to set the Values property of the Series class";
  spec();
  if (const auto* range = std::get_if<Range>(&values)) {
    const Range& line = singleLine(*range, kFailure);
    spec().values = dataOf(line.Parent(), line.block());
    return;
  }
  spec().values = literalData(chart_->object().sheet().workbook(), std::get<ValueArray1D>(values), true, kFailure);
}

void CalcSeries::SetXValues(const SeriesSource& values) {
  constexpr std::string_view kFailure = "Unable to set the XValues property of the Series class";
  SpecSeries& series = spec();
  const Range* range = std::get_if<Range>(&values);
  if (range != nullptr) singleLine(*range, kFailure);
  if (series.kind == SpecKind::Scatter) {
    spec().xValues =
        range ? dataOf(range->Parent(), range->block())
              : literalData(chart_->object().sheet().workbook(), std::get<ValueArray1D>(values), true, kFailure);
    return;
  }
  if (range != nullptr) {
    spec().categories = officeRange(range->Parent().Name(), range->block());
    return;
  }
  // Literal labels: numbers shown as text.
  std::vector<CellValue> labels;
  for (const CellValue& v : std::get<ValueArray1D>(values).items()) labels.emplace_back(toText(v));
  spec().categories = chart_->object().sheet().workbook().chartData().store(labels);
}

void CalcSeries::SetMarkerStyle(host::MarkerStyle style) {
  SpecSeries& series = spec();
  switch (style) {
    case host::MarkerStyle::Automatic: series.marker = SpecMarker::Automatic; break;
    case host::MarkerStyle::None: series.marker = SpecMarker::None; break;
    case host::MarkerStyle::Circle: series.marker = SpecMarker::Circle; break;
  }
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
  ChartSpec& chart = chart_->edit();

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
    SpecSeries series;
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
      series.marker = mark ? SpecMarker::Dash : SpecMarker::None;
      if (mark) series.markerSize = 12;
    } else if (chart.kind == SpecKind::Scatter) {
      series.line = false;
    }
    chart.series.push_back(std::move(series));
    live_.push_back(std::make_unique<CalcSeries>(*chart_));
  }
  chart_->syncAxes();
  return *live_.back();
}

Series& CalcSeriesCollection::NewSeries() {
  ChartSpec& chart = chart_->edit();
  SpecSeries series;
  series.kind = chart.kind;
  if (!chart.series.empty()) series.categories = chart.series.front().categories;
  series.line = chart.kind != SpecKind::Scatter && priceSeries(chart.kind) == 0;
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
  ChartSpec& chart = chart_->edit();
  chart.series.erase(chart.series.begin() + static_cast<std::ptrdiff_t>(index));
  series.markDeleted();
  deleted_.push_back(std::move(live_[index]));
  live_.erase(live_.begin() + static_cast<std::ptrdiff_t>(index));
}

}  // namespace orv::calc
