#pragma once
// A chart of the in-memory host: every property the builders set is recorded into the chart's
// ChartModel (chart_model.h); automatic values (the plot area's rectangle, an axis' maximum) are
// computed by the host's own rules (chart_automatic.h) until a builder sets them.
//
// A new chart is a clustered column chart without series and axes. The primary category and
// value axes exist once the chart has a series; a secondary pair exists while a series is on the
// secondary group (the secondary category axis hidden, as the host shows it). A series added to
// a stock chart that already has all its price series is drawn as a short mark without a line.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "frame/chart.h"
#include "frame/host.h"
#include "workbook/chart_model.h"
#include "workbook/chart_parts.h"
#include "workbook/in_memory_series.h"

namespace orv {

class InMemoryChart;

class InMemoryAxis final : public Axis {
 public:
  InMemoryAxis(InMemoryChart& chart, AxisKind kind, AxisGroup group);
  InMemoryAxis(const InMemoryAxis&) = delete;
  InMemoryAxis& operator=(const InMemoryAxis&) = delete;

  AxisKind kind() const { return kind_; }
  AxisGroup group() const { return group_; }

  void Delete() override { model().deleted = true; }
  void SetHasTitle(bool on) override;
  ChartTitle& AxisTitle() override;
  orv::TickLabels& TickLabels() override { return tickLabels_; }
  void SetHasMajorGridlines(bool on) override { model().majorGridlines = on; }
  void SetHasMinorGridlines(bool on) override { model().minorGridlines = on; }
  ChartBorder& Border() override { return border_; }
  void SetMajorTickMark(host::TickMark mark) override;
  void SetTickLabelPosition(host::TickLabelPosition position) override;
  void SetMinimumScale(double value) override;
  void SetMaximumScale(double value) override;
  void SetMajorUnit(double value) override;
  double MaximumScale() const override;

  // The recorded axis; a host failure when the chart no longer has it or it was deleted.
  AxisModel& model() const;

 private:
  AxisModel& scaleField(std::string_view property, double value);
  InMemoryChart* chart_;
  AxisKind kind_;
  AxisGroup group_;
  RecordedTitle title_;
  RecordedTickLabels tickLabels_;
  RecordedBorder border_;
};

class InMemoryUpDownBars final : public UpDownBars {
 public:
  explicit InMemoryUpDownBars(InMemoryChart& chart);
  ChartBorder& Border() override { return border_; }
  ChartInterior& Interior() override { return interior_; }

 private:
  RecordedBorder border_;
  RecordedInterior interior_;
};

// The primary group; the recorded model keeps up-down bars and the gap width for it alone.
class InMemoryChartGroup final : public ChartGroup {
 public:
  InMemoryChartGroup(InMemoryChart& chart, AxisGroup group);
  InMemoryChartGroup(const InMemoryChartGroup&) = delete;
  InMemoryChartGroup& operator=(const InMemoryChartGroup&) = delete;
  void SetHasUpDownBars(bool on) override;
  UpDownBars& UpBars() override;
  void SetGapWidth(std::int32_t percent) override;

 private:
  InMemoryChart* chart_;
  AxisGroup group_;
  InMemoryUpDownBars upBars_;
};

class InMemoryChartArea final : public ChartArea {
 public:
  explicit InMemoryChartArea(InMemoryChart& chart);
  InMemoryChartArea(const InMemoryChartArea&) = delete;
  InMemoryChartArea& operator=(const InMemoryChartArea&) = delete;
  void SetAutoScaleFont(bool on) override;
  ChartInterior& Interior() override { return interior_; }
  double Width() const override;

 private:
  InMemoryChart* chart_;
  RecordedInterior interior_;
};

class InMemoryPlotArea final : public PlotArea {
 public:
  explicit InMemoryPlotArea(InMemoryChart& chart);
  InMemoryPlotArea(const InMemoryPlotArea&) = delete;
  InMemoryPlotArea& operator=(const InMemoryPlotArea&) = delete;
  ChartFill& Fill() override { return fill_; }
  ChartBorder& Border() override { return border_; }
  double Left() const override { return current().left; }
  double Top() const override { return current().top; }
  double Width() const override { return current().width; }
  double Height() const override { return current().height; }
  // Setting any side fixes the whole rectangle as it stands (manual layout), then changes that
  // side. Values must be finite and not negative.
  void SetLeft(double points) override { fixed(points).left = points; }
  void SetTop(double points) override { fixed(points).top = points; }
  void SetWidth(double points) override { fixed(points).width = points; }
  void SetHeight(double points) override { fixed(points).height = points; }

 private:
  PlotAreaModel current() const;
  PlotAreaModel& fixed(double points);
  InMemoryChart* chart_;
  RecordedFill fill_;
  RecordedBorder border_;
};

class InMemoryLegend final : public Legend {
 public:
  explicit InMemoryLegend(InMemoryChart& chart);
  InMemoryLegend(const InMemoryLegend&) = delete;
  InMemoryLegend& operator=(const InMemoryLegend&) = delete;
  void SetPosition(host::LegendPosition position) override;
  ChartFont& Font() override { return font_; }

 private:
  InMemoryChart* chart_;
  RecordedFont font_;
};

class InMemoryChart final : public Chart {
 public:
  // `model` reaches the recorded chart; `sheet` is the worksheet that holds the chart object.
  InMemoryChart(Worksheet& sheet, FieldOf<ChartModel> model);
  InMemoryChart(const InMemoryChart&) = delete;
  InMemoryChart& operator=(const InMemoryChart&) = delete;

  std::string Name() const override;
  orv::SeriesCollection& SeriesCollection() override { return series_; }
  void SetChartType(host::ChartType type) override;
  ChartGroup& ChartGroups(std::int32_t index) override;
  Axis& Axes(host::AxisType type, host::AxisGroup group) override;
  void SetHasTitle(bool on) override;
  orv::ChartTitle& ChartTitle() override;
  void SetHasLegend(bool on) override { model().legend = on; }
  orv::Legend& Legend() override;
  orv::ChartArea& ChartArea() override { return chartArea_; }
  orv::PlotArea& PlotArea() override { return plotArea_; }

  ChartModel& model() const { return model_(); }
  InMemorySeriesCollection& series() { return series_; }
  // Brings the recorded axes in line with the series: primary pair with any series, secondary
  // pair with any series on the secondary group. Axes that stay keep their settings.
  void syncAxes();
  // The values plotted against a value axis, as cached when the series were added.
  std::vector<double> valuesOnAxis(AxisGroup group) const;

 private:
  Worksheet* sheet_;
  FieldOf<ChartModel> model_;
  InMemorySeriesCollection series_;
  std::vector<std::unique_ptr<InMemoryAxis>> axes_;
  std::unique_ptr<InMemoryChartGroup> primaryGroup_, secondaryGroup_;
  RecordedTitle title_;
  InMemoryChartArea chartArea_;
  InMemoryPlotArea plotArea_;
  InMemoryLegend legend_;
};

// The model's enumeration for a host chart type; a type the model cannot draw is a host failure.
ChartKind chartKindOf(host::ChartType type);
// The number of price series of a stock chart kind (4 or 3); 0 for other kinds.
std::size_t priceSeriesCount(ChartKind kind);

}  // namespace orv
