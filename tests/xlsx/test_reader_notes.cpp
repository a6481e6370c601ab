// What the reader notes besides the values: formulas without a saved value and numbers shown as
// dates or times, for the command's warnings.

#include <gtest/gtest.h>

#include "test_packages.h"
#include "workbook/in_memory_application.h"
#include "xlsx/reader_styles.h"
#include "xlsx/reader_workbook.h"

namespace orv::test {
namespace {

TEST(ReaderNotes, DateFormatCodesAreToldFromNumberFormats) {
  const struct {
    const char* code;
    bool date;
  } cases[] = {
      {"yyyy-mm-dd", true},   {"d/m/yy h:mm", true},     {"[h]:mm:ss", true}, {"[mm]", true},
      {"hh:mm AM/PM", true},  {"[$-409]dddd", true},     {"MMM YYYY", true},  {"0.00", false},
      {"General", false},     {"#,##0 \"days\"", false}, {"0.0\\m", false},   {"[Red]0.00", false},
      {"_-* #,##0_-", false}, {"0.00E+00", false},       {"@", false},        {"\"unclosed", false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.code);
    EXPECT_EQ(isDateFormatCode(c.code), c.date);
  }
}

const std::string kStyles =
    R"(<styleSheet xmlns=")" + kMainNs +
    R"("><numFmts count="2">)"
    R"(<numFmt numFmtId="164" formatCode="yyyy\-mm\-dd"/><numFmt numFmtId="165" formatCode="0.0&quot;s&quot;"/>)"
    R"(</numFmts><cellXfs count="5"><xf numFmtId="0"/><xf numFmtId="14"/><xf numFmtId="164"/>)"
    R"(<xf numFmtId="165"/><xf numFmtId="2"/></cellXfs></styleSheet>)";

Parts styledPackage(const std::string& sheetData) {
  Parts parts = oneSheetPackage(sheetXml(sheetData), R"(<sst xmlns=")" + kMainNs + R"("><si><t>x</t></si></sst>)");
  EXPECT_EQ(parts.back().first, "xl/_rels/workbook.xml.rels");
  parts.back().second = workbookRels({{"rId1", "worksheet", "worksheets/sheet1.xml"},
                                      {"rId2", "sharedStrings", "sharedStrings.xml"},
                                      {"rId3", "styles", "styles.xml"}});
  parts.emplace_back("xl/styles.xml", kStyles);
  return parts;
}

std::vector<std::string> names(const std::vector<SheetNotes::Cell>& cells) {
  std::vector<std::string> out;
  for (const SheetNotes::Cell& c : cells) out.push_back(columnLetters(c.column) + std::to_string(c.row));
  return out;
}

TEST(ReaderNotes, FormulasWithoutValuesAndDateFormattedNumbersAreNotedInFileOrder) {
  // Row 1 and A3 take the one-pass way of plain cells; the single quotes, formulas and inline
  // strings take the tag-by-tag way.
  const std::string cells =
      R"(<row r="1"><c r="A1" s="1"><v>45000</v></c><c r="B1"><f>SUM(A:A)</f></c><c r="C1"><f t="shared" si="0"/></c></row>)"
      R"(<row r="2"><c r='A2' s='2'><v>45001.5</v></c><c r="B2"><f>A2</f><v>3</v></c><c r="C2" s="2"><f>A2</f><v>45001.5</v></c></row>)"
      R"(<row r="3"><c r="A3" s="3"><v>2.5</v></c><c r="B3" s="2"/><c r="C3"><f>A3</f><v></v></c></row>)"
      R"(<row r="4"><c r="A4" s="4"><v>1</v></c><c r="B4" s="1" t="s"><v>0</v></c><c r="C4" s="9"><v>7</v></c></row>)"
      R"(<row r="5"><c r="A5" t="d"><v>2024-03-01</v></c><c r="B5" s="2" t="inlineStr"><is><t>x</t></is></c></row>)";
  InMemoryApplication app;
  const LoadedWorkbook loaded = openWorkbookFile(app, writeZip("notes.xlsx", styledPackage(cells)));
  ASSERT_EQ(loaded.info.sheetNotes.size(), 1U);
  const SheetNotes& notes = loaded.info.sheetNotes.front();
  EXPECT_EQ(names(notes.formulasWithoutValue), (std::vector<std::string>{"B1", "C1", "C3"}));
  EXPECT_EQ(names(notes.dateCells), (std::vector<std::string>{"A1", "A2", "C2", "A5"}));
  EXPECT_EQ(loaded.book.Worksheets(1).cellValue(1, 1), CellValue(45000.0));
  EXPECT_TRUE(loaded.book.Worksheets(1).cellValue(1, 2).isEmpty());
}

TEST(ReaderNotes, TextFilesAndPackagesWithoutStylesNoteNoFormats) {
  InMemoryApplication app;
  const std::string cells = R"(<row r="1"><c r="A1" s="1"><v>45000</v></c><c r="B1" t="d"><v>2024-03-01</v></c></row>)";
  const LoadedWorkbook bare = openWorkbookFile(app, writeZip("bare.xlsx", oneSheetPackage(sheetXml(cells))));
  EXPECT_EQ(names(bare.info.sheetNotes.at(0).dateCells), (std::vector<std::string>{"B1"}));
  const LoadedWorkbook text = openWorkbookFile(app, writeBytes("notes.csv", "1\n=A1\n"));
  EXPECT_TRUE(text.info.sheetNotes.empty());
}

}  // namespace
}  // namespace orv::test
