#pragma once
// The series of a live chart and their error bars, kept in the chart's ChartPlan series list
// (chart_plan.h) with the in-memory host's rules: sources are single rows or columns of cells or
// literal lists; literal numbers and labels go to the workbook's chart data sheet, since the
// office's charts take their data from cells.
//
// A series object outlives its deletion: every later call on it is a host failure (1004).

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "calc/calc_chart_parts.h"
#include "calc/chart_plan.h"
#include "frame/chart.h"

namespace orv::calc {

class CalcChart;
class CalcSeries;

class CalcErrorBars final : public ErrorBars {
 public:
  explicit CalcErrorBars(CalcSeries& series) : series_(&series) {}
  void Delete() override;
  void SetEndStyle(host::EndStyle style) override;

 private:
  PlanErrorBars& plan();
  CalcSeries* series_;
};

class CalcSeries final : public Series {
 public:
  explicit CalcSeries(CalcChart& chart);
  CalcSeries(const CalcSeries&) = delete;
  CalcSeries& operator=(const CalcSeries&) = delete;

  void Delete() override;
  host::AxisGroup AxisGroup() const override;
  void SetAxisGroup(host::AxisGroup group) override;
  void SetHasErrorBars(bool on) override;
  orv::ErrorBars& ErrorBars() override;
  // Vertical bars of custom amounts only, as every host draws them.
  void ErrorBar(host::ErrorBarDirection direction, host::ErrorBarInclude include, host::ErrorBarType type,
                const ErrorAmount& amount, const ErrorAmount& minusValues) override;
  ChartBorder& Border() override { return border_; }
  void SetName(const std::string& name) override;
  void SetChartType(host::ChartType type) override;
  void SetValues(const SeriesSource& values) override;
  void SetXValues(const SeriesSource& values) override;
  void SetSmooth(bool on) override { plan().smooth = on; }
  void SetMarkerStyle(host::MarkerStyle style) override;
  void SetMarkerSize(std::int32_t points) override;

  // The series in the plan, marked changed; a host failure once deleted.
  PlanSeries& plan();
  const PlanSeries& plan() const;
  void markDeleted() { deleted_ = true; }

 private:
  CalcChart* chart_;
  bool deleted_ = false;
  CalcErrorBars errorBars_;
  PlanBorder border_;
};

class CalcSeriesCollection final : public SeriesCollection {
 public:
  explicit CalcSeriesCollection(CalcChart& chart) : chart_(&chart) {}

  std::int32_t Count() const override { return static_cast<std::int32_t>(live_.size()); }
  Series& Item(std::int32_t index) override;
  // As the in-memory host: every area one row or one column; with `categoryLabels` and two or
  // more areas the first holds the category labels; `rowcol` and `replace` decide nothing more.
  Series& Add(const Range& source, host::RowCol rowcol, bool seriesLabels, bool categoryLabels, bool replace) override;
  Series& NewSeries() override;

  std::size_t indexOf(const CalcSeries& series) const;
  void remove(CalcSeries& series);

 private:
  CalcChart* chart_;
  std::vector<std::unique_ptr<CalcSeries>> live_;
  std::vector<std::unique_ptr<CalcSeries>> deleted_;  // kept so that their references stay valid
};

}  // namespace orv::calc
