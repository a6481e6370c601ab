// Reading .xlsx packages into the in-memory host: sheets, every cell type, geometry, and the
// variations real files bring.

#include <gtest/gtest.h>

#include "test_packages.h"
#include "workbook/in_memory_application.h"
#include "xlsx/column_width.h"
#include "xlsx/reader_sheet.h"
#include "xlsx/reader_workbook.h"

namespace orv::test {
namespace {

TEST(ReaderWorkbook, ReadsEveryCellTypeFromSharedAndInlineStrings) {
  const std::string sst = R"(<sst xmlns=")" + kMainNs +
                          R"(" count="99" uniqueCount="99">)"
                          R"(<si><t>plain</t></si>)"
                          R"(<si><r><rPr><b/></rPr><t>rich </t></r><r><t xml:space="preserve">text </t></r>)"
                          R"(<rPh sb="0" eb="1"><t>HINT</t></rPh></si>)"
                          R"(<si><t>line_x000D_break &amp; _x005F_x</t></si>)"
                          R"(<si><t xml:space="preserve">  </t></si></sst>)";
  const std::string sheet = sheetXml(
      R"(<row r="1"><c r="A1" t="s"><v>0</v></c><c r="B1" t="s"><v>1</v></c><c r="C1" t="s"><v>2</v></c>)"
      R"(<c r="D1" t="s"><v>3</v></c></row>)"
      R"(<row r="2"><c r="A2"><v>1.5E+3</v></c><c r="B2" t="n"><v>-0.25</v></c><c r="C2" t="b"><v>1</v></c>)"
      R"(<c r="D2" t="b"><v>0</v></c><c r="E2" t="e"><v>#DIV/0!</v></c><c r="F2" t="e"><v>#SPILL!</v></c></row>)"
      R"(<row r="3"><c r="A3" t="inlineStr"><is><t>inline &lt;x&gt;</t></is></c>)"
      R"(<c r="B3" t="inlineStr"><is><r><t>in</t></r><r><t>runs</t></r></is></c>)"
      R"(<c r="C3"><f>1+1</f><v>2</v></c><c r="D3" t="str"><f>"a"&amp;"b"</f><v>ab</v></c>)"
      R"(<c r="E3" t="e"><f>NA()</f><v>#N/A</v></c><c r="F3"><f>A1</f></c><c r="G3" s="3"/></row>)"
      R"(<row r="4"><c r="A4" t="d"><v>2024-03-01T12:00:00</v></c><c r="B4"><v><![CDATA[7]]></v></c></row>)");
  const auto file = writeZip("types.xlsx", oneSheetPackage(sheet, sst));
  InMemoryApplication app;
  const LoadedWorkbook loaded = openWorkbookFile(app, file);
  InMemoryWorksheet& ws = loaded.book.Worksheets(1);
  const std::vector<std::vector<CellValue>> expected = {
      {"plain", "rich text ", "line\rbreak & _x", "  "},
      {1500.0, -0.25, true, false, ErrorValue::Div0, ErrorValue::Value},
      {"inline <x>", "inruns", 2.0, "ab", ErrorValue::NA, CellValue{}, CellValue{}},
      {45352.5, 7.0}};
  for (std::size_t r = 0; r < expected.size(); ++r) {
    for (std::size_t c = 0; c < expected[r].size(); ++c) {
      const CellValue read = ws.cellValue(static_cast<std::int32_t>(r + 1), static_cast<std::int32_t>(c + 1));
      EXPECT_EQ(read, expected[r][c]) << "row " << r + 1 << " column " << c + 1 << ": " << describe(read);
    }
  }
  EXPECT_EQ(ws.usedBlock(), (CellBlock{1, 1, 4, 6}));
  EXPECT_EQ(loaded.book.Name(), "types.xlsx");
  EXPECT_EQ(&app.ActiveWorkbook(), &loaded.book);
}

TEST(ReaderWorkbook, SheetsInWorkbookOrderWithTheirPartsAndChartSheetsLeftOut) {
  // Names with blanks and apostrophes, targets absolute and relative, a chart sheet between,
  // rels with another prefix, x:-prefixed workbook and sheet, and the 1904 flag.
  const std::string wb = R"(<x:workbook xmlns:x=")" + kMainNs + R"(" xmlns:rel=")" + kRelNs +
                         R"("><x:workbookPr date1904="1"/><x:sheets>)"
                         R"(<x:sheet name="My data" sheetId="4" rel:id="rId9"/>)"
                         R"(<x:sheet name="Chart1" sheetId="2" rel:id="rId2"/>)"
                         R"(<x:sheet name="It's &quot;here&quot;" sheetId="1" rel:id="rId1"/></x:sheets></x:workbook>)";
  const std::string prefixedSheet =
      R"(<x:worksheet xmlns:x=")" + kMainNs +
      R"("><x:sheetData><x:row><x:c><x:v>5</x:v></x:c><x:c t="d"><x:v>1904-01-02</x:v></x:c>)"
      R"(</x:row></x:sheetData></x:worksheet>)";
  const Parts parts = {
      {"_rels/.rels", rootRels("/xl/workbook.xml")},
      {"xl/workbook.xml", wb},
      {"xl/_rels/workbook.xml.rels", workbookRels({{"rId1", "worksheet", "/xl/worksheets/sheet1.xml"},
                                                   {"rId2", "chartsheet", "chartsheets/sheet1.xml"},
                                                   {"rId9", "worksheet", "./worksheets/../worksheets/sheet2.xml"}})},
      {"xl/chartsheets/sheet1.xml", "<chartsheet/>"},
      {"xl/worksheets/sheet1.xml", prefixedSheet},
      {"xl/worksheets/sheet2.xml", sheetXml(R"(<row r="2"><c r="B2"><v>9</v></c></row>)")},
  };
  InMemoryApplication app;
  const LoadedWorkbook loaded = openWorkbookFile(app, writeZip("order.xlsx", parts));
  ASSERT_EQ(loaded.book.WorksheetsCount(), 2);
  EXPECT_EQ(loaded.book.Worksheets(1).Name(), "My data");
  EXPECT_EQ(loaded.book.Worksheets(2).Name(), "It's \"here\"");
  EXPECT_EQ(loaded.info.sheetParts, (std::vector<std::string>{"xl/worksheets/sheet2.xml", "xl/worksheets/sheet1.xml"}));
  EXPECT_EQ(loaded.info.workbookPart, "xl/workbook.xml");
  EXPECT_TRUE(loaded.info.date1904);
  EXPECT_EQ(loaded.book.Worksheets(1).cellValue(2, 2), CellValue(9.0));
  EXPECT_EQ(loaded.book.Worksheets(2).cellValue(1, 1), CellValue(5.0));
  EXPECT_EQ(loaded.book.Worksheets(2).cellValue(1, 2), CellValue(1.0));  // day 1 of the 1904 system
  EXPECT_EQ(loaded.book.activeSheet(), &loaded.book.Worksheets(1));

  Parts noRootRels = oneSheetPackage(sheetXml(R"(<row><c t="inlineStr"><is><t>x</t></is></c></row>)"));
  noRootRels.erase(noRootRels.begin());  // the workbook part is then found at its usual name
  EXPECT_EQ(loadWorkbook(app, writeZip("norels.xlsm", noRootRels)).Worksheets(1).cellValue(1, 1), CellValue("x"));
}

TEST(ReaderWorkbook, DefinedNamesKeepTheirScopeCountingChartSheets) {
  // localSheetId counts every sheet the workbook lists: 2 is "Other", behind the chart sheet.
  const std::string names =
      R"(<definedNames><definedName name="Heights">Data!$A$1:$B$3</definedName>)"
      R"(<definedName name="Local" localSheetId="2">Other!$C$1</definedName>)"
      R"(<definedName name="_xlnm.Print_Area" localSheetId="0" hidden="1">Data!$A$1:$B$9</definedName>)"
      R"(<definedName name="Lost" localSheetId="7">Data!$A$1</definedName></definedNames>)";
  std::string wb = workbookXml({{"Data", "rId1"}, {"Chart1", "rId2"}, {"Other", "rId3"}});
  wb.insert(wb.find("</workbook>"), names);
  const Parts parts = {
      {"_rels/.rels", rootRels()},
      {"xl/workbook.xml", wb},
      {"xl/_rels/workbook.xml.rels", workbookRels({{"rId1", "worksheet", "worksheets/sheet1.xml"},
                                                   {"rId2", "chartsheet", "chartsheets/sheet1.xml"},
                                                   {"rId3", "worksheet", "worksheets/sheet2.xml"}})},
      {"xl/chartsheets/sheet1.xml", "<chartsheet/>"},
      {"xl/worksheets/sheet1.xml", sheetXml("")},
      {"xl/worksheets/sheet2.xml", sheetXml("")},
  };
  InMemoryApplication app;
  const LoadedWorkbook loaded = openWorkbookFile(app, writeZip("names.xlsx", parts));
  const std::vector<DefinedName>& read = loaded.book.names();
  ASSERT_EQ(read.size(), 3u);  // the name of a sheet that is not there is left out
  EXPECT_EQ(read[0].name, "Heights");
  EXPECT_FALSE(read[0].sheet.has_value());
  EXPECT_EQ(read[0].reference, "Data!$A$1:$B$3");
  EXPECT_EQ(read[1].sheet, "Other");
  EXPECT_EQ(read[2].sheet, "Data");
  EXPECT_TRUE(read[2].hidden);
  EXPECT_EQ(app.ResolveRange("Heights").Address(), "$A$1:$B$3");
  EXPECT_EQ(app.ResolveRange("Other!Local").AddressWithSheet(), "Other!$C$1");
}

TEST(ReaderWorkbook, CellsLandWhereTheySayOrFollowThePreviousOneAndLaterDuplicatesWin) {
  const std::string sheet = sheetXml(
      R"(<row><c><v>1</v></c><c><v>2</v></c><c r="E1"><v>5</v></c><c><v>6</v></c></row>)"
      R"(<row><c><v>7</v></c></row><row r="10"><c r="C"><v>8</v></c><c><v>9</v></c></row>)"
      R"(<row r="5"><c r="A5"><v>5</v></c><c r="B5"><v>50</v></c></row><row r="3"><c r="A3"><v>3</v></c></row>)"
      R"(<row r="5"><c r="A5"><v>55</v></c></row>)");
  InMemoryApplication app;
  InMemoryWorksheet& ws = loadWorkbook(app, writeZip("refs.xlsx", oneSheetPackage(sheet))).Worksheets(1);
  const struct {
    std::int32_t row, column;
    double expected;
  } rows[] = {{1, 1, 1},  {1, 2, 2},  {1, 5, 5}, {1, 6, 6},  {2, 1, 7},
              {10, 3, 8}, {10, 4, 9}, {3, 1, 3}, {5, 1, 55}, {5, 2, 50}};
  for (const auto& r : rows) {
    SCOPED_TRACE(testing::Message() << "row " << r.row << " column " << r.column);
    EXPECT_EQ(ws.cellValue(r.row, r.column), CellValue(r.expected));
  }
}

TEST(ReaderWorkbook, ColumnWidthsAndRowHeightsFeedTheGeometry) {
  const std::string before =
      R"(<sheetFormatPr defaultRowHeight="15"/><cols><col min="1" max="3" width="20" customWidth="1"/>)"
      R"(<col min="2" max="2" width="9.140625"/><col min="5" max="5" width="30" hidden="1"/>)"
      R"(<col min="7" max="16384" width="4.5"/></cols>)";
  const std::string sheet =
      sheetXml(R"(<row r="1" ht="30" customHeight="1"><c r="A1"><v>1</v></c></row><row r="3" ht="15"/>)"
               R"(<row r="4" hidden="1"/><row r="5" ht="999"/>)",
               before);
  InMemoryApplication app;
  const SheetGeometry& g =
      loadWorkbook(app, writeZip("geometry.xlsx", oneSheetPackage(sheet))).Worksheets(1).geometry();
  EXPECT_EQ(g.columnWidth(1), 105.0);  // 20 characters: 140 px
  EXPECT_EQ(g.columnWidth(2), 48.0);   // the later <col> wins
  EXPECT_EQ(g.columnWidth(3), 105.0);
  EXPECT_EQ(g.columnWidth(4), 48.0);
  EXPECT_EQ(g.columnWidth(5), 0.0);
  EXPECT_EQ(g.columnWidth(16384), columnWidthPoints(4.5));
  EXPECT_EQ(g.rowHeight(1), 30.0);
  EXPECT_EQ(g.rowHeight(2), 15.0);
  EXPECT_EQ(g.rowHeight(4), 0.0);
  EXPECT_EQ(g.rowHeight(5), kMaxRowHeight);
  EXPECT_EQ(g.customRowHeights().size(), 3U);  // rows 1, 4, 5: a height equal to the default is no custom one

  const std::string other = sheetXml("", R"(<sheetFormatPr defaultRowHeight="20.25" defaultColWidth="12"/>)");
  InMemoryWorksheet& ws = loadWorkbook(app, writeZip("defaults.xlsx", oneSheetPackage(other))).Worksheets(1);
  EXPECT_EQ(ws.geometry().rowHeight(7), 20.25);
  EXPECT_EQ(ws.geometry().columnWidth(7), columnWidthPoints(12));
  EXPECT_FALSE(ws.usedBlock().has_value());
}

}  // namespace
}  // namespace orv::test
