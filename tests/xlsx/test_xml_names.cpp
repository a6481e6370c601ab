// Element and attribute names are matched by local name, split at the first colon, in the
// streaming sheet reader and in the pugixml-based readers and writers alike.

#include <gtest/gtest.h>

#include <string>

#include "workbook/in_memory_application.h"
#include "workbook/in_memory_workbook.h"
#include "workbook/in_memory_worksheet.h"
#include "xlsx/reader_sheet.h"
#include "xlsx/xml_names.h"

namespace orv {
namespace {

TEST(XmlNames, SplitAtTheFirstColonForElementsChildrenAndAttributes) {
  const struct {
    std::string qualified;
    std::string prefix;
    std::string local;
  } rows[] = {
      {"sheet", "", "sheet"},
      {"x:sheet", "x:", "sheet"},
      {":sheet", ":", "sheet"},
      {"x:", "x:", ""},
      // A prefix holds no colon: the second one stays in the local part, where it matches nothing.
      {"a:b:c", "a:", "b:c"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.qualified);
    pugi::xml_document document;
    const pugi::xml_node node = document.append_child(row.qualified.c_str());
    EXPECT_EQ(xml::localName(row.qualified), row.local);
    EXPECT_EQ(xml::localName(node), row.local);
    EXPECT_EQ(xml::prefixOf(node), row.prefix);
    EXPECT_EQ(xml::isElement(node, "c"), row.local == "c");
  }
  // Children and attributes are found by the same local name.
  pugi::xml_document document;
  ASSERT_TRUE(document.load_string(
      R"(<x:root xmlns:x="urn:x" xmlns:r="urn:r"><!-- c --><x:a:c/><x:c n="1"/><c n="2"/></x:root>)"));
  const pugi::xml_node root = document.document_element();
  EXPECT_EQ(std::string(xml::child(root, "c").attribute("n").value()), "1");
  EXPECT_FALSE(xml::child(root, "root"));
  EXPECT_FALSE(xml::child(root, "a:c").attribute("n"));
  EXPECT_TRUE(xml::child(root, "a:c"));
  EXPECT_EQ(std::string(xml::attributeNamed(root, "r").value()), "urn:r");
  EXPECT_FALSE(xml::attributeNamed(root, "n"));
}

// The streaming sheet reader names elements the same way: an element "x:y:c" is no cell.
TEST(XmlNames, TheSheetReaderTakesNoCellFromANameWithTwoColons) {
  InMemoryApplication app;
  InMemoryWorksheet& sheet = app.AddWorkbook("names.xlsx").addSheet("S");
  readSheetXml(R"(<x:worksheet xmlns:x="urn:x"><x:sheetData><x:row r="1">)"
               R"(<x:y:c r="A1"><x:v>5</x:v></x:y:c><x:c r="B1"><x:v>6</x:v></x:c>)"
               R"(</x:row></x:sheetData></x:worksheet>)",
               sheet, SheetReadOptions{});
  EXPECT_TRUE(sheet.cellValue(1, 1).isEmpty());
  EXPECT_EQ(sheet.cellValue(1, 2), CellValue(6.0));
}

}  // namespace
}  // namespace orv
