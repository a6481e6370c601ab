#include "xlsx/writer_chart_elements.h"

#include <cmath>

#include "xlsx/writer_xml.h"

namespace orv::chartxml {

std::string valueElement(std::string_view name, std::string_view value) {
  return "<c:" + std::string(name) + " val=\"" + xml::attribute(value) + "\"/>";
}

std::string boolElement(std::string_view name, bool value) { return valueElement(name, value ? "1" : "0"); }

std::string solidFill(std::string_view rgb) {
  return "<a:solidFill><a:srgbClr val=\"" + std::string(rgb) + "\"/></a:solidFill>";
}

std::string noFill() { return "<a:noFill/>"; }

std::string line(const std::optional<std::string>& rgb, std::int32_t widthEmu) {
  if (!rgb) return "<a:ln>" + noFill() + "</a:ln>";
  return "<a:ln w=\"" + xml::integer(widthEmu) + "\">" + solidFill(*rgb) + "</a:ln>";
}

std::string shapeProperties(std::string_view fill, std::string_view lineXml) {
  return "<c:spPr>" + std::string(fill) + std::string(lineXml) + "</c:spPr>";
}

std::string fontSize(double points) { return xml::integer(std::llround(points * 100.0)); }

std::string textProperties(const FontModel& font) {
  return "<c:txPr><a:bodyPr/><a:lstStyle/><a:p><a:pPr><a:defRPr sz=\"" + fontSize(font.size) + "\" b=\"" +
         (font.bold ? "1" : "0") + "\"/></a:pPr><a:endParaRPr lang=\"en-US\"/></a:p></c:txPr>";
}

std::string title(std::string_view text, const FontModel& font, bool vertical) {
  const std::string run = " sz=\"" + fontSize(font.size) + "\" b=\"" + (font.bold ? "1" : "0") + "\"";
  return std::string("<c:title><c:tx><c:rich>") +
         (vertical ? "<a:bodyPr rot=\"-5400000\" vert=\"horz\"/>" : "<a:bodyPr/>") +
         "<a:lstStyle/><a:p><a:pPr><a:defRPr" + run + "/></a:pPr><a:r><a:rPr lang=\"en-US\"" + run + "/><a:t>" +
         xml::text(text) + "</a:t></a:r></a:p></c:rich></c:tx>" + boolElement("overlay", false) + "</c:title>";
}

}  // namespace orv::chartxml
