// The pure pieces of reading: target resolution, unit conversions, date serials, escapes.

#include <gtest/gtest.h>

#include "xlsx/column_width.h"
#include "xlsx/iso_date.h"
#include "xlsx/reader_package.h"
#include "xlsx/reader_xml.h"

namespace orv {
namespace {

TEST(ReaderParts, TargetsWidthsDatesAndEscapes) {
  EXPECT_EQ(resolveTarget("xl/workbook.xml", "./a/./b/../c.xml"), "xl/a/c.xml");
  EXPECT_EQ(resolveTarget("xl/workbook.xml", "../../../x.xml"), "x.xml");  // never above the package root
  EXPECT_EQ(resolveTarget("xl/workbook.xml", "worksheets/my%20sheet.xml"), "xl/worksheets/my sheet.xml");
  EXPECT_EQ(relationshipsPartOf("xl/workbook.xml"), "xl/_rels/workbook.xml.rels");

  EXPECT_EQ(columnWidthPoints(-3), 0.0);
  EXPECT_EQ(columnWidthPoints(8.43), 44.25);
  EXPECT_EQ(columnWidthPoints(255), 1338.75);
  EXPECT_EQ(columnWidthPoints(1e300), 1338.75);
  // Whole-pixel widths the writer sends out come back from the reader as they went.
  for (int pixels = 0; pixels <= 400; ++pixels) {
    ASSERT_DOUBLE_EQ(columnWidthPoints(columnWidthCharacters(pixels * 0.75)), pixels * 0.75) << pixels << " px";
  }

  const struct {
    std::string text;
    bool date1904;
    bool ok;
    double serial;
  } dates[] = {
      {"1900-02-28", false, true, 59},
      {"1900-03-01", false, true, 61},  // the phantom 29 February 1900
      {"2024-03-01T00:00:00.5Z", false, true, 45352 + 0.5 / 86400},
      {"1904-01-02T18:00:00", true, true, 1.75},
      {"1899-12-30", false, false, 0},
      {"2023-02-29", false, false, 0},
      {"2024-1-1", false, false, 0},
      {"2024-03-01T12:00+02:00", false, false, 0},
  };
  for (const auto& row : dates) {
    SCOPED_TRACE(row.text);
    double serial = -1;
    EXPECT_EQ(isoDateSerial(row.text, row.date1904, serial), row.ok);
    if (row.ok) {
      EXPECT_DOUBLE_EQ(serial, row.serial);
    }
  }

  const std::pair<std::string, std::string> escapes[] = {
      {"a_x000D_b", "a\rb"},  {"_x005F_x000D_", "_x000D_"}, {"_x00e9_", "\xC3\xA9"},
      {"_xD800_", "_xD800_"}, {"_x12G4_", "_x12G4_"},       {"_x12", "_x12"},
  };
  for (const auto& [text, expected] : escapes) EXPECT_EQ(decodeSpreadsheetEscapes(text), expected) << text;
}

}  // namespace
}  // namespace orv
