// A sheet fed in pieces, as it is inflated, reads as it does whole wherever the pieces split the
// XML; and cells in the common plain shape read as they do in any other spelling.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/errors.h"
#include "workbook/in_memory_application.h"
#include "workbook/in_memory_workbook.h"
#include "workbook/in_memory_worksheet.h"
#include "xlsx/reader_sheet.h"

namespace orv {
namespace {

constexpr std::int32_t kRows = 4;
constexpr std::int32_t kColumns = 3;

const std::string kSheet =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n"
    "<x:worksheet xmlns:x=\"urn:x\"><!-- a comment with <c> inside --><x:sheetFormatPr defaultRowHeight=\"15\"/>"
    "<x:cols><x:col min=\"2\" max=\"2\" width=\"20\"/></x:cols><x:sheetData>"
    "<x:row r=\"1\" ht=\"30\"><x:c r=\"A1\"><x:v> 1.5e3 </x:v></x:c><x:c r=\"B1\" t=\"inlineStr\"><x:is><x:t>a&amp;b&#x263A;"
    "\r\nline</x:t></x:is></x:c><x:c r=\"C1\" t=\"str\"><x:v><![CDATA[<kept>]]>&lt;&#65;&bogus;</x:v></x:c></x:row>"
    "<x:row><x:c t='b'><x:v>1</x:v></x:c><x:c t=\"e\"><x:v>#N/A</x:v></x:c><x:c t=\"d\"><x:v>2024-03-01</x:v></x:c></x:row>"
    "<x:row r=\"4\"><x:c r=\"C4\" t=\"inlineStr\"><x:is><x:r><x:t>ru</x:t></x:r><x:r><x:t xml:space=\"preserve\">n&amp;&#13;s</x:t>"
    "</x:r><x:rPh><x:t>no</x:t></x:rPh></x:is></x:c></x:row>"
    "</x:sheetData></x:worksheet>\n";

struct Read {
  std::vector<CellValue> cells;
  std::vector<double> heights;
  std::vector<double> widths;
  std::string error;
};

Read readInPieces(const std::string& xml, std::size_t pieceBytes) {
  InMemoryApplication app;
  InMemoryWorksheet& sheet = app.AddWorkbook("pieces.xlsx").addSheet("S");
  SheetReadOptions options;
  Read read;
  try {
    if (pieceBytes == 0) {
      readSheetXml(xml, sheet, options);
    } else {
      SheetXmlStream stream(sheet, options);
      for (std::size_t at = 0; at < xml.size(); at += pieceBytes) stream.feed(std::string(xml.substr(at, pieceBytes)));
      stream.finish();
    }
  } catch (const ComponentError& e) {
    read.error = e.description();
    return read;
  }
  for (std::int32_t r = 1; r <= kRows; ++r) {
    read.heights.push_back(sheet.geometry().rowHeight(r));
    for (std::int32_t c = 1; c <= kColumns; ++c) read.cells.push_back(sheet.cellValue(r, c));
  }
  for (std::int32_t c = 1; c <= kColumns; ++c) read.widths.push_back(sheet.geometry().columnWidth(c));
  return read;
}

TEST(ReaderPieces, EverySplitReadsAsTheWholeDoes) {
  const Read whole = readInPieces(kSheet, 0);
  ASSERT_EQ(whole.error, "");
  // The whole read is itself right where splits are likeliest to break it.
  EXPECT_EQ(whole.cells[2], CellValue(std::string("<kept><A&bogus;")));
  EXPECT_EQ(whole.cells[11], CellValue(std::string("run&\rs")));
  EXPECT_EQ(whole.heights[0], 30.0);
  for (const std::size_t piece : {1, 2, 3, 5, 9, 64}) {
    SCOPED_TRACE("pieces of " + std::to_string(piece) + " bytes");
    const Read split = readInPieces(kSheet, piece);
    EXPECT_EQ(split.error, "");
    EXPECT_EQ(split.cells, whole.cells);
    EXPECT_EQ(split.heights, whole.heights);
    EXPECT_EQ(split.widths, whole.widths);
  }
}

TEST(ReaderPieces, DamageReadsTheSameWhereverThePiecesEnd) {
  const std::vector<std::string> damaged = {
      kSheet.substr(0, kSheet.find("<x:c r=\"B1\"") + 6),  // cut inside a tag
      kSheet.substr(0, kSheet.find("</x:sheetData>")),     // elements left open
      "<!-- never closed",
      "<a><b></a></b>",
      "<a x=\"1></a>",
  };
  for (const std::string& xml : damaged) {
    SCOPED_TRACE(xml.substr(0, 60));
    const Read whole = readInPieces(xml, 0);
    ASSERT_NE(whole.error, "");
    for (const std::size_t piece : {1, 4, 9, 100}) {
      SCOPED_TRACE(piece);
      EXPECT_EQ(readInPieces(xml, piece).error, whole.error);
    }
  }
}

// The same cells with the tag opened by a line end instead of a blank: legal XML that the plain
// one-pass reading of a cell leaves to the general one.
std::string spelledOtherwise(std::string xml) {
  for (auto at = xml.find("<c "); at != std::string::npos; at = xml.find("<c ", at)) xml[at + 2] = '\n';
  return xml;
}

std::string plainSheet(const std::string& cells) {
  return "<worksheet><sheetData>" + cells + "</sheetData></worksheet>";
}

TEST(ReaderPieces, PlainCellsReadAsTheirGeneralSpelling) {
  const std::string sheet = plainSheet(
      "<row r=\"1\"><c r=\"A1\" s=\"2\"><v>1.5e3</v></c><c r=\"B1\" t=\"b\"><v>1</v></c>"
      "<c r=\"C1\" t=\"e\"><v>#DIV/0!</v></c></row>"
      "<row r=\"2\"><c r=\"A2\" t=\"str\"><v>a b</v></c><c t=\"n\" s=\"1\"><v> 7 </v></c>"
      "<c r=\"C2\" t=\"d\"><v>2024-03-01</v></c></row>"
      "<row r=\"4\"><c r=\"B4\" t=\"inlineStr\"><v>x</v></c><c r=\"C4\" t=\"str\"><v>a&amp;b</v></c></row>");
  const Read general = readInPieces(spelledOtherwise(sheet), 0);
  ASSERT_EQ(general.error, "");
  EXPECT_EQ(general.cells[0], CellValue(1500.0));
  EXPECT_EQ(general.cells[4], CellValue(7.0));
  EXPECT_EQ(general.cells[11], CellValue(std::string("a&b")));
  for (const std::size_t piece : {0, 7, 13}) {
    SCOPED_TRACE(piece);
    EXPECT_EQ(readInPieces(sheet, piece).cells, general.cells);
  }

  // Damage found in a plain cell is reported as it is in any other.
  for (const std::string cell :
       {"<c r=\"A0\"><v>1</v></c>", "<c r=\"A1\"><v>1.2.3</v></c>", "<c r=\"A1\" t=\"s\"><v>0</v></c>",
        "<c r=\"A1\" t=\"q\"><v>1</v></c>", "<c r=\"A1\" t=\"b\"><v>2</v></c>"}) {
    SCOPED_TRACE(cell);
    const std::string damaged = plainSheet("<row r=\"1\">" + std::string(cell) + "</row>");
    const std::string expected = readInPieces(spelledOtherwise(damaged), 0).error;
    ASSERT_NE(expected, "");
    EXPECT_EQ(readInPieces(damaged, 0).error, expected);
  }
}

}  // namespace
}  // namespace orv
