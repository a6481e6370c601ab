// Column widths put into an existing sheet part: exact text of the <cols> that comes out.

#include <gtest/gtest.h>

#include <string>

#include "workbook/sheet_geometry.h"
#include "xlsx/writer_column_splice.h"
#include "xlsx/writer_xml.h"

namespace orv {
namespace {

// 60 points are 80 pixels: 80 / 7 characters of the default font, in 1/256 of a character.
constexpr const char* kSixty = "11.42578125";

std::string spliced(const std::string& part, std::int32_t first, std::int32_t last, const SheetGeometry& geometry) {
  pugi::xml_document doc = xml::parsePart(part, "xl/worksheets/sheet1.xml");
  pugi::xml_node worksheet = doc.document_element();
  spliceColumnWidths(worksheet, geometry, first, last, xml::prefixOf(worksheet));
  return xml::serialise(doc);
}

TEST(WriterColumnSplice, OnlyTheWrittenColumnsTheModelSizedChangeAndEveryOtherAttributeStays) {
  SheetGeometry geometry;
  geometry.setColumnWidth(3, 60);
  geometry.setColumnWidth(9, 60);  // beyond the written columns
  const std::string head = R"(<worksheet><sheetFormatPr defaultRowHeight="15"/>)";
  const std::string data = R"(<sheetData/></worksheet>)";
  const std::string six = std::string("width=\"") + kSixty + "\" customWidth=\"1\"";
  const struct {
    const char* what;
    std::string cols;      // the part's <cols>, or nothing
    std::string expected;  // the <cols> afterwards
  } rows[] = {
      {"no cols: made before sheetData", "", R"(<cols><col min="3" max="3" )" + six + "/></cols>"},
      {"a col spanning the column is cut around it",
       R"(<cols><col min="1" max="5" width="20" style="2" customWidth="1"/></cols>)",
       R"(<cols><col min="1" max="2" width="20" style="2" customWidth="1"/><col min="3" max="3" width=")" +
           std::string(kSixty) +
           R"(" style="2" customWidth="1"/><col min="4" max="5" width="20" style="2" customWidth="1"/></cols>)"},
      {"a col of the column alone without a width gets one", R"(<cols><col min="3" max="3" style="4"/></cols>)",
       R"(<cols><col min="3" max="3" style="4" )" + six + "/></cols>"},
      {"a new col goes before the next one",
       R"(<cols><col min="1" max="1" width="4"/><col min="7" max="8" width="5"/></cols>)",
       R"(<cols><col min="1" max="1" width="4"/><col min="3" max="3" )" + six +
           R"(/><col min="7" max="8" width="5"/></cols>)"},
      {"a col that already gives that width stays",
       std::string(R"(<cols><col min="2" max="4" width=")") + kSixty + R"(" customWidth="1"/></cols>)",
       std::string(R"(<cols><col min="2" max="4" width=")") + kSixty + R"(" customWidth="1"/></cols>)"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(spliced(head + row.cols + data, 1, 5, geometry), head + row.expected + data);
  }
}

TEST(WriterColumnSplice, APrefixedPartGetsPrefixedElementsAndAnUnsizedModelChangesNothing) {
  SheetGeometry geometry;
  const std::string part = R"(<x:worksheet xmlns:x="m"><x:sheetData/></x:worksheet>)";
  EXPECT_EQ(spliced(part, 1, 16384, geometry), part);
  geometry.setColumnWidth(2, 60);
  EXPECT_EQ(spliced(part, 1, 3, geometry),
            std::string(R"(<x:worksheet xmlns:x="m"><x:cols><x:col min="2" max="2" width=")") + kSixty +
                R"(" customWidth="1"/></x:cols><x:sheetData/></x:worksheet>)");
}

}  // namespace
}  // namespace orv
