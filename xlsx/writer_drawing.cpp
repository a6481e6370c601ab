#include "xlsx/writer_drawing.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "frame/reference.h"
#include "xlsx/writer_xml.h"
#include "xlsx/xml_names.h"

namespace orv {
namespace {

constexpr std::string_view kDrawingNs = "http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing";
constexpr std::string_view kMainNs = "http://schemas.openxmlformats.org/drawingml/2006/main";
constexpr std::string_view kRelNs = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
constexpr std::string_view kChartNs = "http://schemas.openxmlformats.org/drawingml/2006/chart";

struct CellAndOffset {
  std::int32_t index;  // 1-based
  double offset;       // points
};

// The last of 1..count whose start is at or before `position` (starts never decrease).
CellAndOffset locate(double position, std::int32_t count, const std::function<double(std::int32_t)>& startOf) {
  std::int32_t low = 1;
  std::int32_t high = count;
  while (low < high) {
    const std::int32_t middle = low + (high - low + 1) / 2;
    if (startOf(middle) <= position) {
      low = middle;
    } else {
      high = middle - 1;
    }
  }
  return {low, std::max(0.0, position - startOf(low))};
}

std::int64_t emu(double points) { return std::llround(std::max(0.0, points) * static_cast<double>(kEmuPerPoint)); }

}  // namespace

ChartAnchor anchorFor(const SheetGeometry& geometry, double left, double top, double width, double height) {
  const CellAndOffset column =
      locate(std::max(0.0, left), kMaxColumns, [&](std::int32_t c) { return geometry.columnLeft(c); });
  const CellAndOffset row = locate(std::max(0.0, top), kMaxRows, [&](std::int32_t r) { return geometry.rowTop(r); });
  return {column.index - 1, emu(column.offset), row.index - 1, emu(row.offset), emu(width), emu(height)};
}

std::string anchorXml(const DrawnChart& chart, std::uint32_t shapeId, std::string_view prefix, bool declareNamespaces) {
  const std::string p(prefix);
  const auto element = [&](std::string_view name, std::int64_t value) {
    return "<" + p + std::string(name) + ">" + std::to_string(value) + "</" + p + std::string(name) + ">";
  };
  const ChartAnchor& a = chart.anchor;
  std::string out = "<" + p + "oneCellAnchor";
  if (declareNamespaces) out += " xmlns:a=\"" + std::string(kMainNs) + "\" xmlns:r=\"" + std::string(kRelNs) + "\"";
  out += "><" + p + "from>" + element("col", a.column) + element("colOff", a.columnOffset) + element("row", a.row) +
         element("rowOff", a.rowOffset) + "</" + p + "from>";
  out += "<" + p + "ext cx=\"" + std::to_string(a.width) + "\" cy=\"" + std::to_string(a.height) + "\"/>";
  out += "<" + p + "graphicFrame macro=\"\"><" + p + "nvGraphicFramePr><" + p + "cNvPr id=\"" +
         std::to_string(shapeId) + "\" name=\"" + xml::attribute(chart.name) + "\"/><" + p + "cNvGraphicFramePr/></" +
         p + "nvGraphicFramePr>";
  out += "<" + p + "xfrm><a:off x=\"0\" y=\"0\"/><a:ext cx=\"0\" cy=\"0\"/></" + p + "xfrm>";
  out += "<a:graphic><a:graphicData uri=\"" + std::string(kChartNs) + "\"><c:chart xmlns:c=\"" + std::string(kChartNs) +
         "\" r:id=\"" + xml::attribute(chart.relationshipId) + "\"/></a:graphicData></a:graphic>";
  return out + "</" + p + "graphicFrame><" + p + "clientData/></" + p + "oneCellAnchor>";
}

std::string freshDrawingXml(const std::vector<DrawnChart>& charts) {
  std::string out = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
                    "\n<xdr:wsDr xmlns:xdr=\"" +
                    std::string(kDrawingNs) + "\" xmlns:a=\"" + std::string(kMainNs) + "\" xmlns:r=\"" +
                    std::string(kRelNs) + "\">";
  for (std::size_t i = 0; i < charts.size(); ++i)
    out += anchorXml(charts[i], static_cast<std::uint32_t>(i + 2), "xdr:", false);
  return out + "</xdr:wsDr>";
}

std::string drawingWithCharts(std::string_view drawingXml, std::string_view partName,
                              const std::vector<DrawnChart>& charts) {
  pugi::xml_document document = xml::parsePart(drawingXml, partName);
  pugi::xml_node root = document.document_element();
  std::uint32_t highest = 1;
  for (const pugi::xpath_node& n : root.select_nodes("//*")) {
    if (xml::localName(n.node()) == "cNvPr") highest = std::max(highest, n.node().attribute("id").as_uint());
  }
  const std::string prefix = xml::prefixOf(root);
  for (std::size_t i = 0; i < charts.size(); ++i) {
    const std::string text = anchorXml(charts[i], highest + 1 + static_cast<std::uint32_t>(i), prefix, true);
    pugi::xml_document fragment;
    fragment.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8);
    root.append_copy(fragment.document_element());
  }
  return xml::serialise(document);
}

}  // namespace orv
