#include "xlsx/writer_chart_axes.h"

#include "xlsx/writer_chart_elements.h"
#include "xlsx/writer_xml.h"

namespace orv::chartxml {
namespace {

constexpr std::string_view kBlack = "000000";

std::string_view tickMark(TickMark mark) {
  switch (mark) {
    case TickMark::None: return "none";
    case TickMark::Inside: return "in";
    case TickMark::Outside: return "out";
    case TickMark::Cross: return "cross";
  }
  return "out";
}

std::string_view crossing(Crossing c) {
  switch (c) {
    case Crossing::AutoZero: return "autoZero";
    case Crossing::Min: return "min";
    case Crossing::Max: return "max";
  }
  return "autoZero";
}

std::string scaling(const AxisModel& axis) {
  std::string out = "<c:scaling>" + valueElement("orientation", "minMax");
  if (axis.maximumScale) out += valueElement("max", xml::number(*axis.maximumScale));
  if (axis.minimumScale) out += valueElement("min", xml::number(*axis.minimumScale));
  return out + "</c:scaling>";
}

std::string gridlines(std::string_view name) {
  return "<c:" + std::string(name) + ">" + shapeProperties("", line(std::string(kBlack))) + "</c:" + std::string(name) +
         ">";
}

// The part every axis shares, in the schema's order, from axId to crosses.
std::string shared(const AxisModel& axis, const AxisPlacement& place) {
  std::string out = valueElement("axId", std::to_string(place.id)) + scaling(axis) +
                    boolElement("delete", axis.deleted) + valueElement("axPos", std::string(1, place.position));
  if (axis.majorGridlines) out += gridlines("majorGridlines");
  if (axis.minorGridlines) out += gridlines("minorGridlines");
  if (axis.title) out += title(*axis.title, axis.titleFont, place.position == 'l' || place.position == 'r');
  out += "<c:numFmt formatCode=\"" + xml::attribute(axis.tickLabelNumberFormat) + "\" sourceLinked=\"0\"/>";
  out += valueElement("majorTickMark", tickMark(axis.majorTickMark)) + valueElement("minorTickMark", "none") +
         valueElement("tickLblPos", axis.tickLabels == TickLabelPlace::Low ? "low" : "nextTo");
  out += shapeProperties("", line(axis.line ? std::optional<std::string>(kBlack) : std::nullopt));
  out += textProperties(axis.tickLabelFont);
  return out + valueElement("crossAx", std::to_string(place.crossesAxis)) +
         valueElement("crosses", crossing(place.crosses));
}

}  // namespace

std::string categoryAxis(const AxisModel& axis, const AxisPlacement& place) {
  return "<c:catAx>" + shared(axis, place) + boolElement("auto", true) + valueElement("lblAlgn", "ctr") +
         valueElement("lblOffset", "100") + boolElement("noMultiLvlLbl", false) + "</c:catAx>";
}

std::string valueAxis(const AxisModel& axis, const AxisPlacement& place) {
  std::string out =
      "<c:valAx>" + shared(axis, place) + valueElement("crossBetween", place.betweenCategories ? "between" : "midCat");
  if (axis.majorUnit) out += valueElement("majorUnit", xml::number(*axis.majorUnit));
  return out + "</c:valAx>";
}

}  // namespace orv::chartxml
