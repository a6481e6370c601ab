#include "xlsx/writer_cell.h"

#include "xlsx/writer_xml.h"

namespace orv {
namespace {

bool hasOuterBlanks(const std::string& s) {
  auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; };
  return !s.empty() && (blank(s.front()) || blank(s.back()));
}

}  // namespace

std::string cellXml(std::int32_t row, std::int32_t column, const CellValue& value,
                    std::uint32_t style, std::string_view prefix) {
  const std::string p(prefix);
  std::string out = "<" + p + "c r=\"" + xml::cellName(row, column) + "\"";
  if (style != 0) out += " s=\"" + std::to_string(style) + "\"";
  switch (value.kind()) {
    case CellValue::Kind::Empty:
      return out + "/>";
    case CellValue::Kind::Number:
      return out + "><" + p + "v>" + xml::number(value.number()) + "</" + p + "v></" + p + "c>";
    case CellValue::Kind::Boolean:
      return out + " t=\"b\"><" + p + "v>" + (value.boolean() ? "1" : "0") + "</" + p + "v></" + p + "c>";
    case CellValue::Kind::Error:
      return out + " t=\"e\"><" + p + "v>" + xml::text(errorValueText(value.error())) + "</" + p +
             "v></" + p + "c>";
    case CellValue::Kind::Text:
      break;
  }
  const std::string space = hasOuterBlanks(value.text()) ? " xml:space=\"preserve\"" : "";
  return out + " t=\"inlineStr\"><" + p + "is><" + p + "t" + space + ">" + xml::text(value.text()) +
         "</" + p + "t></" + p + "is></" + p + "c>";
}

}  // namespace orv
