// The pure pieces of reading: target resolution, unit conversions, date serials, escapes.

#include <gtest/gtest.h>

#include "xlsx/reader_package.h"
#include "xlsx/reader_sheet.h"
#include "xlsx/reader_xml.h"
#include "xlsx/writer_sheet.h"

namespace orv {
namespace {

TEST(ReaderParts, RelationshipTargetsResolveToPartNames) {
  const struct {
    std::string source, target, expected;
  } rows[] = {
      {"", "xl/workbook.xml", "xl/workbook.xml"},
      {"", "/xl/workbook.xml", "xl/workbook.xml"},
      {"xl/workbook.xml", "worksheets/sheet1.xml", "xl/worksheets/sheet1.xml"},
      {"xl/workbook.xml", "/xl/worksheets/sheet1.xml", "xl/worksheets/sheet1.xml"},
      {"xl/worksheets/sheet1.xml", "../drawings/drawing1.xml", "xl/drawings/drawing1.xml"},
      {"xl/workbook.xml", "./a/./b/../c.xml", "xl/a/c.xml"},
      {"xl/workbook.xml", "../../../x.xml", "x.xml"},
      {"xl/workbook.xml", "worksheets/my%20sheet.xml", "xl/worksheets/my sheet.xml"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.source + " -> " + row.target);
    EXPECT_EQ(resolveTarget(row.source, row.target), row.expected);
  }
  EXPECT_EQ(relationshipsPartOf(""), "_rels/.rels");
  EXPECT_EQ(relationshipsPartOf("xl/workbook.xml"), "xl/_rels/workbook.xml.rels");
}

TEST(ReaderParts, ColumnWidthsConvertBetweenCharactersAndPointsByTheDigitWidthRule) {
  const struct {
    double characters, points;
  } rows[] = {
      {0, 0.0}, {-3, 0.0}, {1, 5.25}, {8.43, 44.25}, {9.140625, 48.0}, {10.7109375, 56.25}, {20, 105.0},
      {255, 1338.75}, {1e300, 1338.75},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.characters);
    EXPECT_EQ(columnWidthPoints(row.characters), row.points);
  }
  EXPECT_DOUBLE_EQ(columnWidthCharacters(75.0), 14.28515625);  // 100 px
  // Whole-pixel widths the writer sends out come back from the reader as they went.
  for (int pixels = 0; pixels <= 400; ++pixels) {
    ASSERT_DOUBLE_EQ(columnWidthPoints(columnWidthCharacters(pixels * 0.75)), pixels * 0.75) << pixels << " px";
  }
}

TEST(ReaderParts, IsoDatesBecomeSerialDays) {
  const struct {
    std::string text;
    bool date1904;
    bool ok;
    double serial;
  } rows[] = {
      {"1900-01-01", false, true, 1},       {"1900-02-28", false, true, 59},
      {"1900-03-01", false, true, 61},      {"2024-03-01T12:00:00", false, true, 45352.5},
      {"2024-03-01T06:00", false, true, 45352.25}, {"2024-03-01T00:00:00.5Z", false, true, 45352 + 0.5 / 86400},
      {"1904-01-01", true, true, 0},        {"1904-01-02T18:00:00", true, true, 1.75},
      {"1899-12-30", false, false, 0},      {"2023-02-29", false, false, 0},
      {"2024-13-01", false, false, 0},      {"2024-1-1", false, false, 0},
      {"2024-03-01 12:00", false, false, 0}, {"2024-03-01T12:00+02:00", false, false, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    double serial = -1;
    EXPECT_EQ(isoDateSerial(row.text, row.date1904, serial), row.ok);
    if (row.ok) {
      EXPECT_DOUBLE_EQ(serial, row.serial);
    }
  }
}

TEST(ReaderParts, SpreadsheetEscapesDecodeToCharacters) {
  const struct {
    std::string text, expected;
  } rows[] = {
      {"plain", "plain"}, {"a_x000D_b", "a\rb"}, {"_x005F_x000D_", "_x000D_"}, {"_x00e9_", "\xC3\xA9"},
      {"_xD800_", "_xD800_"}, {"_x12G4_", "_x12G4_"}, {"_x12", "_x12"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(decodeSpreadsheetEscapes(row.text), row.expected);
  }
}

}  // namespace
}  // namespace orv
