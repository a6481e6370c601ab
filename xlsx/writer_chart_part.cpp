#include "xlsx/writer_chart_part.h"

#include <algorithm>

#include "xlsx/writer_chart_axes.h"
#include "xlsx/writer_chart_elements.h"
#include "xlsx/writer_chart_groups.h"
#include "xlsx/writer_chart_palette.h"
#include "xlsx/writer_xml.h"

namespace orv::chartxml {
namespace {

constexpr std::string_view kBlack = "000000";
constexpr std::string_view kWhite = "FFFFFF";

struct AxisIds {
  std::uint32_t category;
  std::uint32_t value;
};

AxisIds idsOf(AxisGroup group) { return group == AxisGroup::Primary ? AxisIds{1001, 1002} : AxisIds{1003, 1004}; }

AxisModel axisOf(const ChartModel& chart, AxisKind kind, AxisGroup group) {
  for (const AxisModel& a : chart.axes) {
    if (a.kind == kind && a.group == group) return a;
  }
  AxisModel fallback;
  fallback.kind = kind;
  fallback.group = group;
  fallback.deleted = kind == AxisKind::Category && group == AxisGroup::Secondary;
  return fallback;
}

Crossing crossingAt(const AxisModel& crossed) { return crossed.crossesAtCentre ? Crossing::AutoZero : Crossing::Min; }

// The two axes of one axis group, in the order the host writes them (primary: category then
// value; secondary: value then category).
std::string axesOf(const ChartModel& chart, AxisGroup group, bool scatter) {
  const AxisIds ids = idsOf(group);
  const AxisModel cat = axisOf(chart, AxisKind::Category, group);
  const AxisModel val = axisOf(chart, AxisKind::Value, group);
  const bool primary = group == AxisGroup::Primary;
  // crossBetween matters only where the X axis is a value axis (scatter groups): points on the ticks.
  const AxisPlacement catPlace{ids.category, ids.value, 'b', crossingAt(val), !scatter};
  const AxisPlacement valPlace{ids.value, ids.category, primary ? 'l' : 'r', primary ? crossingAt(cat) : Crossing::Max,
                               !scatter};
  const std::string x = scatter ? valueAxis(cat, catPlace) : categoryAxis(cat, catPlace);
  const std::string y = valueAxis(val, valPlace);
  return primary ? x + y : y + x;
}

std::string fraction(double part, double whole) {
  return xml::number(whole > 0 ? std::clamp(part / whole, 0.0, 1.0) : 0.0);
}

std::string plotAreaLook(const PlotAreaModel& area) {
  return shapeProperties(area.filled ? solidFill(kWhite) : noFill(),
                         line(area.border ? std::optional<std::string>(kBlack) : std::nullopt));
}

}  // namespace

std::string plotLayout(const ChartModel& chart) {
  const PlotAreaModel& p = chart.plotArea;
  if (!p.manual) return "<c:layout/>";
  return "<c:layout><c:manualLayout>" + valueElement("layoutTarget", "outer") + valueElement("xMode", "edge") +
         valueElement("yMode", "edge") + valueElement("x", fraction(p.left, chart.width)) +
         valueElement("y", fraction(p.top, chart.height)) + valueElement("w", fraction(p.width, chart.width)) +
         valueElement("h", fraction(p.height, chart.height)) + "</c:manualLayout></c:layout>";
}

std::string plotArea(const ChartModel& chart) {
  const std::vector<GroupPlan> groups = planGroups(chart);
  std::string out = "<c:plotArea>" + plotLayout(chart);
  for (const GroupPlan& g : groups) out += groupXml(chart, g, idsOf(g.axes).category, idsOf(g.axes).value);
  for (AxisGroup axes : {AxisGroup::Primary, AxisGroup::Secondary}) {
    bool used = false;
    bool scatter = false;
    for (const GroupPlan& g : groups) {
      if (g.axes != axes) continue;
      used = true;
      scatter = scatter || g.type == GroupType::Scatter;
    }
    if (used) out += axesOf(chart, axes, scatter);
  }
  return out + plotAreaLook(chart.plotArea) + "</c:plotArea>";
}

}  // namespace orv::chartxml

namespace orv {

std::string chartPartXml(const ChartModel& chart) {
  using namespace chartxml;
  std::string out = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
                    "\n"
                    R"(<c:chartSpace xmlns:c="http://schemas.openxmlformats.org/drawingml/2006/chart" )"
                    R"(xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main" )"
                    R"(xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships">)";
  out += boolElement("date1904", false) + valueElement("lang", "en-US") + boolElement("roundedCorners", false);
  out += "<c:chart>";
  if (chart.title) out += title(*chart.title, chart.titleFont, false);
  // Without a title the host would invent one for a chart of one series unless told not to.
  out += boolElement("autoTitleDeleted", !chart.title.has_value());
  out += plotArea(chart);
  if (chart.legend) {
    out += "<c:legend>" + valueElement("legendPos", chart.legendPlace == LegendPlace::Bottom ? "b" : "r") +
           boolElement("overlay", false) + textProperties(chart.legendFont) + "</c:legend>";
  }
  out += boolElement("plotVisOnly", true) + valueElement("dispBlanksAs", "gap") + "</c:chart>";
  out +=
      shapeProperties(solidFill(paletteRgb(chart.chartAreaColorIndex).value_or("FFFFFF")), line(std::string("000000")));
  out += textProperties(FontModel{10.0, false});
  return out + "</c:chartSpace>";
}

}  // namespace orv
