#pragma once
// The series of an in-memory chart and their error bars, recorded into the chart's SeriesModel
// list (chart_model.h). Series values and categories are recorded as cell references together
// with the cells' values at the time of adding.
//
// A series object outlives its deletion: every later call on it is a host failure (1004).

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "frame/chart.h"
#include "workbook/chart_model.h"
#include "workbook/chart_parts.h"

namespace orv {

class InMemoryChart;
class InMemorySeries;

class InMemoryErrorBars final : public ErrorBars {
 public:
  explicit InMemoryErrorBars(InMemorySeries& series) : series_(&series) {}
  void Delete() override;
  void SetEndStyle(host::EndStyle style) override;

 private:
  ErrorBarsModel& model();
  InMemorySeries* series_;
};

class InMemorySeries final : public Series {
 public:
  explicit InMemorySeries(InMemoryChart& chart);
  InMemorySeries(const InMemorySeries&) = delete;
  InMemorySeries& operator=(const InMemorySeries&) = delete;

  void Delete() override;
  host::AxisGroup AxisGroup() const override;
  void SetAxisGroup(host::AxisGroup group) override;
  void SetHasErrorBars(bool on) override;
  orv::ErrorBars& ErrorBars() override;
  void ErrorBar(host::ErrorBarDirection direction, host::ErrorBarInclude include, host::ErrorBarType type,
                const ErrorAmount& amount, const ErrorAmount& minusValues) override;
  ChartBorder& Border() override { return border_; }
  void SetName(const std::string& name) override;
  void SetChartType(host::ChartType type) override;
  void SetValues(const SeriesSource& values) override;
  void SetXValues(const SeriesSource& values) override;
  void SetSmooth(bool on) override { model().smooth = on; }
  void SetMarkerStyle(host::MarkerStyle style) override;
  void SetMarkerSize(std::int32_t points) override;

  // The recorded series; a host failure once the series is deleted.
  SeriesModel& model();
  const SeriesModel& model() const;
  void markDeleted() { deleted_ = true; }

 private:
  InMemoryChart* chart_;
  bool deleted_ = false;
  InMemoryErrorBars errorBars_;
  RecordedBorder border_;
};

class InMemorySeriesCollection final : public SeriesCollection {
 public:
  explicit InMemorySeriesCollection(InMemoryChart& chart) : chart_(&chart) {}
  InMemorySeriesCollection(const InMemorySeriesCollection&) = delete;
  InMemorySeriesCollection& operator=(const InMemorySeriesCollection&) = delete;

  std::int32_t Count() const override { return static_cast<std::int32_t>(live_.size()); }
  Series& Item(std::int32_t index) override;
  Series& Add(const Range& source, host::RowCol rowcol, bool seriesLabels, bool categoryLabels, bool replace) override;
  Series& NewSeries() override;

  // Position of a live series in the chart's list, 0-based.
  std::size_t indexOf(const InMemorySeries& series) const;
  void remove(InMemorySeries& series);

 private:
  InMemoryChart* chart_;
  std::vector<std::unique_ptr<InMemorySeries>> live_;     // in the order of model.series
  std::vector<std::unique_ptr<InMemorySeries>> deleted_;  // kept so that old references fail cleanly
};

}  // namespace orv
