#include "xlsx/writer_chart_groups.h"

#include <algorithm>

#include "xlsx/writer_chart_elements.h"
#include "xlsx/writer_chart_palette.h"
#include "xlsx/writer_chart_series.h"

namespace orv::chartxml {
namespace {

constexpr std::size_t kStockMin = 3;
constexpr std::size_t kStockMax = 4;
constexpr std::string_view kBlack = "000000";
constexpr std::string_view kWhite = "FFFFFF";

bool isStock(ChartKind kind) { return kind == ChartKind::StockHLC || kind == ChartKind::StockOHLC; }

GroupType typeOf(ChartKind kind) {
  switch (kind) {
    case ChartKind::StockHLC:
    case ChartKind::StockOHLC: return GroupType::Stock;
    case ChartKind::ColumnClustered: return GroupType::Bar;
    case ChartKind::XYScatter: return GroupType::Scatter;
    case ChartKind::LineMarkers: break;
  }
  return GroupType::Line;
}

GroupPlan& groupFor(std::vector<GroupPlan>& groups, GroupType type, AxisGroup axes) {
  for (GroupPlan& g : groups) {
    if (g.type == type && g.axes == axes) return g;
  }
  groups.push_back({type, axes, {}});
  return groups.back();
}

std::string axisIds(std::uint32_t categoryAxisId, std::uint32_t valueAxisId) {
  return valueElement("axId", std::to_string(categoryAxisId)) + valueElement("axId", std::to_string(valueAxisId));
}

std::string barLook(std::string_view fill) { return shapeProperties(solidFill(fill), line(std::string(kBlack))); }

std::string upDownBars(const ChartModel& chart) {
  const std::string fill = paletteRgb(chart.upBarsColorIndex).value_or(std::string(kWhite));
  return "<c:upDownBars>" + valueElement("gapWidth", std::to_string(std::clamp(chart.gapWidth, 0, 500))) +
         "<c:upBars>" + barLook(fill) + "</c:upBars><c:downBars>" + barLook(fill) + "</c:downBars></c:upDownBars>";
}

std::string stockGroup(const ChartModel& chart, const GroupPlan& group) {
  std::string out = "<c:stockChart>";
  for (std::size_t i : group.series) out += lineSeries(chart.series[i], i, true);
  if (chart.highLowLines) out += "<c:hiLowLines>" + shapeProperties("", line(std::string(kBlack))) + "</c:hiLowLines>";
  if (chart.upDownBars) out += upDownBars(chart);
  return out;
}

}  // namespace

std::vector<GroupPlan> planGroups(const ChartModel& chart) {
  std::vector<GroupPlan> groups;
  for (std::size_t i = 0; i < chart.series.size(); ++i) {
    const SeriesModel& s = chart.series[i];
    GroupType type = typeOf(s.kind);
    if (type == GroupType::Stock && s.axisGroup == AxisGroup::Secondary) type = GroupType::Line;
    if (type == GroupType::Stock) {
      GroupPlan& stock = groupFor(groups, type, s.axisGroup);
      if (stock.series.size() < kStockMax) {
        stock.series.push_back(i);
        continue;
      }
      type = GroupType::Line;
    }
    groupFor(groups, type, s.axisGroup).series.push_back(i);
  }
  // A stock group needs three series; fewer are drawn as lines without joining lines.
  for (GroupPlan& g : groups) {
    if (g.type == GroupType::Stock && g.series.size() < kStockMin) g.type = GroupType::Line;
  }
  std::stable_sort(groups.begin(), groups.end(),
                   [](const GroupPlan& a, const GroupPlan& b) { return a.axes < b.axes; });
  return groups;
}

std::string groupXml(const ChartModel& chart, const GroupPlan& group, std::uint32_t categoryAxisId,
                     std::uint32_t valueAxisId) {
  const std::string ids = axisIds(categoryAxisId, valueAxisId);
  std::string out;
  switch (group.type) {
    case GroupType::Stock: return stockGroup(chart, group) + ids + "</c:stockChart>";
    case GroupType::Bar:
      out = "<c:barChart>" + valueElement("barDir", "col") + valueElement("grouping", "clustered") +
            boolElement("varyColors", false);
      for (std::size_t i : group.series) out += barSeries(chart.series[i], i);
      return out + valueElement("gapWidth", std::to_string(std::clamp(chart.gapWidth, 0, 500))) + ids + "</c:barChart>";
    case GroupType::Scatter:
      out = "<c:scatterChart>" + valueElement("scatterStyle", "lineMarker") + boolElement("varyColors", false);
      for (std::size_t i : group.series) out += scatterSeries(chart.series[i], i);
      return out + ids + "</c:scatterChart>";
    case GroupType::Line: break;
  }
  out = "<c:lineChart>" + valueElement("grouping", "standard") + boolElement("varyColors", false);
  for (std::size_t i : group.series) out += lineSeries(chart.series[i], i, isStock(chart.series[i].kind));
  return out + boolElement("marker", true) + ids + "</c:lineChart>";
}

}  // namespace orv::chartxml
