#include <gtest/gtest.h>

#include <string>

#include "test_packages.h"
#include "xlsx/writer_styles.h"

namespace orv::test {
namespace {

CellFormat format(std::string numberFormat, bool bold = false, double size = 11.0,
                  std::int32_t font = kColorIndexAutomatic, std::int32_t interior = kColorIndexNone,
                  HAlign align = HAlign::General) {
  return CellFormat{std::move(numberFormat), bold, size, font, interior, align};
}

std::string xpathValue(const pugi::xml_document& d, const char* query) {
  return d.select_node(query).node().value()[0] != '\0' ? d.select_node(query).node().value()
                                                        : d.select_node(query).attribute().value();
}

TEST(WriterStyles, EqualFormatsShareOneEntryWithTheirFontFillAlignmentAndCode) {
  StyleSheet styles(StyleSheet::freshXml());
  EXPECT_EQ(styles.xfFor(CellFormat{}), 0u);
  EXPECT_FALSE(styles.changed());
  EXPECT_EQ(styles.xfFor(format("0.00")), 1u);
  const CellFormat full = format("0.0\"%\"", true, 8.0, 3, 19, HAlign::Center);
  EXPECT_EQ(styles.xfFor(full), 2u);
  EXPECT_EQ(styles.xfFor(full), 2u);
  EXPECT_TRUE(styles.changed());

  const pugi::xml_document d = parseXml(styles.xml());
  EXPECT_EQ(xpathValue(d, "/styleSheet/cellXfs/@count"), "3");
  EXPECT_EQ(xpathValue(d, "/styleSheet/cellXfs/xf[2]/@numFmtId"), "2");  // built-in codes need no entry
  EXPECT_EQ(xpathValue(d, "/styleSheet/cellXfs/xf[2]/@fontId"), "1");    // size 11, not bold: own copy of font 0
  const pugi::xml_node entry = d.select_node("/styleSheet/cellXfs/xf[3]").node();
  EXPECT_STREQ(entry.attribute("numFmtId").value(), "164");
  EXPECT_STREQ(d.select_node("/styleSheet/numFmts/numFmt[@numFmtId='164']").node().attribute("formatCode").value(),
               "0.0\"%\"");
  const pugi::xml_node font = d.select_node("/styleSheet/fonts/font[3]").node();
  EXPECT_TRUE(font.child("b"));
  EXPECT_STREQ(font.child("sz").attribute("val").value(), "8");
  EXPECT_STREQ(font.child("color").attribute("indexed").value(), "10");  // colour index 3 = palette 10
  EXPECT_STREQ(font.child("name").attribute("val").value(), "Calibri");
  EXPECT_STREQ(d.select_node("/styleSheet/fills/fill[3]/patternFill/fgColor").node().attribute("indexed").value(),
               "26");
  EXPECT_STREQ(entry.attribute("fillId").value(), "2");
  EXPECT_STREQ(entry.child("alignment").attribute("horizontal").value(), "center");
  EXPECT_STREQ(d.document_element().first_child().name(), "numFmts");  // first, as the schema's sequence demands
}

TEST(WriterStyles, AppendsToAUserPartKeepingItsPrefixAndEntries) {
  const std::string user =
      R"(<?xml version="1.0"?><x:styleSheet xmlns:x="http://schemas.openxmlformats.org/spreadsheetml/2006/main" )"
      R"(xmlns:mc="http://schemas.openxmlformats.org/markup-compatibility/2006" mc:Ignorable="x14ac" xmlns:x14ac="urn:x14ac">)"
      R"(<x:numFmts count="1"><x:numFmt numFmtId="170" formatCode="0.000"/></x:numFmts>)"
      R"(<x:fonts count="1"><x:font><x:sz val="10"/><x:color theme="1"/><x:name val="Arial"/></x:font></x:fonts>)"
      R"(<x:fills count="2"><x:fill><x:patternFill patternType="none"/></x:fill><x:fill><x:patternFill patternType="gray125"/></x:fill></x:fills>)"
      R"(<x:borders count="1"><x:border/></x:borders>)"
      R"(<x:cellXfs count="2"><x:xf numFmtId="0" fontId="0" fillId="0" borderId="0"/><x:xf numFmtId="170" fontId="0" fillId="0" borderId="0"/></x:cellXfs>)"
      R"(</x:styleSheet>)";
  StyleSheet styles(user);
  EXPECT_EQ(styles.xfFor(format("0.000", true)), 2u);  // reuses the user's code 170
  EXPECT_EQ(styles.xfFor(format("0.0000")), 3u);
  const std::string out = styles.xml();
  EXPECT_NE(out.find(R"(mc:Ignorable="x14ac")"), std::string::npos);
  EXPECT_NE(out.find(R"(<x:numFmt numFmtId="171" formatCode="0.0000"/>)"), std::string::npos) << out;
  EXPECT_NE(out.find(R"(<x:font><x:b/><x:sz val="11"/><x:color theme="1"/><x:name val="Arial"/></x:font>)"),
            std::string::npos)
      << out;
  EXPECT_NE(out.find(R"(<x:cellXfs count="4"><x:xf numFmtId="0" fontId="0" fillId="0" borderId="0"/>)"),
            std::string::npos);
  EXPECT_NE(out.find(R"(<x:numFmts count="2">)"), std::string::npos);
}

}  // namespace
}  // namespace orv::test
