#include "xlsx/writer_cell.h"

#include "xlsx/writer_xml.h"

namespace orv {
namespace {

bool hasOuterBlanks(const std::string& s) {
  auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; };
  return !s.empty() && (blank(s.front()) || blank(s.back()));
}

}  // namespace

void appendCellXml(std::string& out, std::int32_t row, std::int32_t column, const CellValue& value, std::uint32_t style,
                   std::string_view prefix) {
  // <p:v>text</p:v></p:c>, the closing shape of every cell with a value.
  const auto valueAndClose = [&](std::string_view text) {
    out.append("><").append(prefix).append("v>").append(text);
    out.append("</").append(prefix).append("v></").append(prefix).append("c>");
  };
  out.append("<").append(prefix).append("c r=\"").append(xml::cellName(row, column)).append("\"");
  if (style != 0) out.append(" s=\"").append(std::to_string(style)).append("\"");
  switch (value.kind()) {
    case CellValue::Kind::Empty: out.append("/>"); return;
    case CellValue::Kind::Number: valueAndClose(xml::number(value.number())); return;
    case CellValue::Kind::Boolean:
      out.append(" t=\"b\"");
      valueAndClose(value.boolean() ? "1" : "0");
      return;
    case CellValue::Kind::Error:
      out.append(" t=\"e\"");
      valueAndClose(xml::text(errorValueText(value.error())));
      return;
    case CellValue::Kind::Text: break;
  }
  out.append(" t=\"inlineStr\"><").append(prefix).append("is><").append(prefix).append("t");
  if (hasOuterBlanks(value.text())) out.append(" xml:space=\"preserve\"");
  out.append(">").append(xml::text(value.text()));
  out.append("</").append(prefix).append("t></").append(prefix).append("is></").append(prefix).append("c>");
}

std::string cellXml(std::int32_t row, std::int32_t column, const CellValue& value, std::uint32_t style,
                    std::string_view prefix) {
  std::string out;
  appendCellXml(out, row, column, value, style, prefix);
  return out;
}

}  // namespace orv
