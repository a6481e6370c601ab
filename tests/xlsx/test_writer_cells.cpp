// Cells and text as the sheet XML carries them: one element per value kind, escapes, numbers.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "xlsx/writer_cell.h"
#include "xlsx/writer_xml.h"

namespace orv::test {
namespace {

TEST(WriterCell, EachValueKindHasItsElement) {
  struct Row {
    CellValue value;
    std::uint32_t style;
    std::string prefix;
    std::string expected;
  };
  const Row rows[] = {
      {CellValue{}, 3, "", R"(<c r="B7" s="3"/>)"},
      {CellValue(true), 0, "", R"(<c r="B7" t="b"><v>1</v></c>)"},
      {CellValue(ErrorValue::Div0), 0, "", R"(<c r="B7" t="e"><v>#DIV/0!</v></c>)"},
      {CellValue(" a "), 0, "", R"(<c r="B7" t="inlineStr"><is><t xml:space="preserve"> a </t></is></c>)"},
      {CellValue("n/a"), 0, "x:", R"(<x:c r="B7" t="inlineStr"><x:is><x:t>n/a</x:t></x:is></x:c>)"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.expected);
    EXPECT_EQ(cellXml(7, 2, row.value, row.style, row.prefix), row.expected);
  }
}

TEST(WriterXml, TextEscapesMarkupControlsAndLiteralEscapes) {
  const std::pair<std::string, std::string> rows[] = {
      {"a<b & c>d", "a&lt;b &amp; c&gt;d"},
      {std::string("bell\x07", 5), "bell_x0007_"},
      {"_x0041_", "_x005F_x0041_"},
      {"_x00G1_ and _x12", "_x00G1_ and _x12"},
      {"Größe", "Größe"},
  };
  for (const auto& [input, expected] : rows) {
    SCOPED_TRACE(input);
    EXPECT_EQ(xml::text(input), expected);
  }
  EXPECT_EQ(xml::attribute("a\"b\nc"), "a&quot;b&#10;c");
}

TEST(WriterXml, NumbersRoundTrip) {
  for (const double v : {0.0, -2.5, 1.0 / 3.0, 6.02214076e23, 4.9e-324, 123456789012345.0}) {
    EXPECT_EQ(std::strtod(xml::number(v).c_str(), nullptr), v) << xml::number(v);
  }
}

}  // namespace
}  // namespace orv::test
