#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <string>

#include "frame/errors.h"
#include "package_sources.h"
#include "test_packages.h"
#include "workbook/in_memory_application.h"
#include "xlsx/package_zip.h"
#include "xlsx/reader_workbook.h"
#include "xlsx/writer_workbook.h"

namespace orv::test {
namespace {

// A package as a spreadsheet program writes it: shared strings, a defined name, a formula on a
// second sheet, a macro project, the first sheet selected, an x: prefix on the workbook part.
Parts originalEntries() {
  const std::string& rel = kRelNs;
  return {
      {"[Content_Types].xml",
       R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types"><Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/><Default Extension="xml" ContentType="application/xml"/><Default Extension="bin" ContentType="application/vnd.ms-office.vbaProject"/><Override PartName="/xl/workbook.xml" ContentType="application/vnd.ms-excel.sheet.macroEnabled.main+xml"/><Override PartName="/xl/worksheets/sheet1.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml"/><Override PartName="/xl/worksheets/sheet2.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml"/><Override PartName="/xl/styles.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.styles+xml"/><Override PartName="/xl/sharedStrings.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.sharedStrings+xml"/></Types>)"},
      {"_rels/.rels", rootRels("/xl/workbook.xml")},
      {"xl/workbook.xml",
       std::string(R"(<?xml version="1.0" encoding="UTF-8"?><x:workbook xmlns:x=")") + kMainNs +
           R"(" xmlns:mc="http://schemas.openxmlformats.org/markup-compatibility/2006" mc:Ignorable="x15" xmlns:x15="urn:x15"><x:bookViews><x:workbookView activeTab="0"/></x:bookViews><x:sheets><x:sheet name="Data" sheetId="3" r:id="rId1" xmlns:r=")" +
           rel + R"("/><x:sheet name="Calc" sheetId="7" r:id="rId2" xmlns:r=")" + rel +
           R"("/></x:sheets><x:definedNames><x:definedName name="Total">Calc!$A$1</x:definedName></x:definedNames></x:workbook>)"},
      {"xl/_rels/workbook.xml.rels",
       workbookRels({{"rId1", "worksheet", "worksheets/sheet1.xml"},
                     {"rId2", "worksheet", "/xl/worksheets/sheet2.xml"},
                     {"rId3", "styles", "styles.xml"},
                     {"rId4", "sharedStrings", "sharedStrings.xml"},
                     {"rId5", "http://schemas.microsoft.com/office/2006/relationships/vbaProject", "vbaProject.bin"}})},
      {"xl/worksheets/sheet1.xml",
       std::string(R"(<?xml version="1.0" encoding="UTF-8"?><worksheet xmlns=")") + kMainNs +
           R"("><dimension ref="A1:D3"/><sheetViews><sheetView tabSelected="1" workbookViewId="0"/></sheetViews><sheetData>)"
           R"(<row r="1" spans="1:2"><c r="A1" t="s"><v>0</v></c><c r="B1" s="1"><v>10</v></c></row>)"
           R"(<row r="2" spans="1:2"><c r="A2"><v>1</v></c><c r="D2"><v>4</v></c></row>)"
           R"(<row r="3" ht="30" customHeight="1"><c r="B3"><v>3</v></c></row>)"
           R"(</sheetData><mergeCells count="1"><mergeCell ref="A5:B5"/></mergeCells><pageMargins left="0.7" right="0.7" top="0.75" bottom="0.75" header="0.3" footer="0.3"/></worksheet>)"},
      {"xl/worksheets/sheet2.xml",
       std::string(R"(<?xml version="1.0" encoding="UTF-8"?><worksheet xmlns=")") + kMainNs +
           R"("><sheetData><row r="1"><c r="A1"><f>SUM(Data!B1:B3)</f><v>13</v></c></row></sheetData></worksheet>)"},
      {"xl/styles.xml", std::string(R"(<?xml version="1.0" encoding="UTF-8"?><styleSheet xmlns=")") +
                            kMainNs + R"("><fonts count="1"><font><sz val="10"/><name val="Arial"/></font></fonts><fills count="2"><fill><patternFill patternType="none"/></fill><fill><patternFill patternType="gray125"/></fill></fills><borders count="1"><border/></borders><cellStyleXfs count="1"><xf numFmtId="0" fontId="0" fillId="0" borderId="0"/></cellStyleXfs><cellXfs count="2"><xf numFmtId="0" fontId="0" fillId="0" borderId="0" xfId="0"/><xf numFmtId="3" fontId="0" fillId="0" borderId="0" xfId="0" applyNumberFormat="1"/></cellXfs></styleSheet>)"},
      {"xl/sharedStrings.xml", std::string(R"(<?xml version="1.0" encoding="UTF-8"?><sst xmlns=")") + kMainNs +
                                   R"(" count="1" uniqueCount="1"><si><t>Name</t></si></sst>)"},
      {"xl/vbaProject.bin", std::string("\xD0\xCF\x11\xE0 binary \0 payload", 22)},
  };
}

class WriterPackage : public ::testing::Test {
 protected:
  void SetUp() override {
    writeZip(folder_ / "in.xlsm", originalEntries());
    book_ = &loadWorkbook(app_, folder_ / "in.xlsm");
  }

  // The analysis: a results block B2:C2 on Data (overwriting nothing but an empty cell and
  // adding a cell to row 2) and a new sheet at the end, which becomes active.
  void analyse() {
    InMemoryWorksheet& data = book_->Worksheets("Data");
    data.storeRaw(2, 2, CellValue("Mean"));
    data.setCellFormat(2, 2, CellFormat{"General", true, 11.0, kColorIndexAutomatic, kColorIndexNone, HAlign::General});
    data.storeRaw(2, 3, CellValue(2.5));
    data.setCellFormat(2, 3, CellFormat{"0.00", false, 11.0, 3, 19, HAlign::Right});
    InMemoryWorksheet& results = book_->addSheet("Results");
    results.storeRaw(1, 1, CellValue("Count"));
    results.setCellFormat(1, 1,
                          CellFormat{"General", true, 11.0, kColorIndexAutomatic, kColorIndexNone, HAlign::General});
    results.storeRaw(1, 2, CellValue(3.0));
    results.Activate();
  }

  InMemoryApplication app_;
  InMemoryWorkbook* book_ = nullptr;
  ScratchFolder folder_;
};

// Results written into a copy of the package: parts the analysis did not touch keep their bytes and
// their order, the receiving sheet keeps everything else it had, and the new sheet is registered
// in the workbook, its relationships and the content types.
TEST_F(WriterPackage, ResultsJoinThePackageLeavingEverythingElseAsItWas) {
  analyse();
  writeIntoPackage(folder_ / "in.xlsm", *book_, {{"Data", CellBlock{2, 2, 2, 3}}}, folder_ / "out.xlsm");
  const ZipContents in = readZip(folder_ / "in.xlsm");
  const ZipContents out = readZip(folder_ / "out.xlsm");
  for (const auto& [part, content] : originalEntries()) EXPECT_EQ(in.at(part), content) << "input changed: " << part;
  for (const char* part : {"xl/worksheets/sheet2.xml", "xl/sharedStrings.xml", "xl/vbaProject.bin", "_rels/.rels"}) {
    EXPECT_EQ(out.at(part), in.at(part)) << part;
  }
  ASSERT_EQ(out.order.size(), in.order.size() + 1);
  EXPECT_TRUE(std::equal(in.order.begin(), in.order.end(), out.order.begin()));
  EXPECT_EQ(out.order.back(), "xl/worksheets/sheet3.xml");

  const std::string& workbook = out.at("xl/workbook.xml");
  EXPECT_NE(workbook.find(R"(mc:Ignorable="x15")"), std::string::npos);
  EXPECT_NE(workbook.find(R"(<x:definedName name="Total">Calc!$A$1</x:definedName>)"), std::string::npos);
  EXPECT_NE(
      workbook.find(R"(<x:sheet xmlns:r=")" + kRelNs + R"(" name="Results" sheetId="8" r:id="rId6"/></x:sheets>)"),
      std::string::npos)
      << workbook;
  EXPECT_NE(workbook.find(R"(<x:workbookView activeTab="2"/>)"), std::string::npos);
  EXPECT_NE(out.at("xl/_rels/workbook.xml.rels")
                .find(R"(Id="rId6" Type=")" + kRelNs + R"(/worksheet" Target="worksheets/sheet3.xml")"),
            std::string::npos);
  EXPECT_NE(
      out.at("[Content_Types].xml")
          .find(
              R"(<Override PartName="/xl/worksheets/sheet3.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml"/>)"),
      std::string::npos);
  // Exactly one selected tab: the new sheet's. Its text cells are inline: the shared strings stay.
  const std::string& results = out.at("xl/worksheets/sheet3.xml");
  EXPECT_NE(results.find(R"(<sheetView tabSelected="1" workbookViewId="0"/>)"), std::string::npos);
  EXPECT_NE(results.find(R"(<c r="A1" s="2" t="inlineStr"><is><t>Count</t></is></c><c r="B1"><v>3</v></c>)"),
            std::string::npos)
      << results;

  const pugi::xml_document sheet = parseXml(out.at("xl/worksheets/sheet1.xml"));
  EXPECT_FALSE(sheet.select_node("//sheetView/@tabSelected"));
  std::vector<std::string> row2;
  for (pugi::xml_node c : sheet.select_node("//row[@r='2']").node().children("c"))
    row2.push_back(c.attribute("r").value());
  EXPECT_EQ(row2, (std::vector<std::string>{"A2", "B2", "C2", "D2"}));
  EXPECT_FALSE(sheet.select_node("//row[@r='2']/@spans"));
  EXPECT_TRUE(sheet.select_node("//row[@r='1']/@spans"));  // untouched rows keep their hint
  EXPECT_STREQ(sheet.select_node("//c[@r='B1']").node().attribute("s").value(), "1");
  EXPECT_STREQ(sheet.select_node("//row[@r='3']").node().attribute("ht").value(), "30");
  EXPECT_TRUE(sheet.select_node("//mergeCell[@ref='A5:B5']"));
  EXPECT_STREQ(sheet.select_node("//dimension").node().attribute("ref").value(), "A1:D3");

  // The styles of the original stay at their indices; the new ones follow.
  const pugi::xml_document styles = parseXml(out.at("xl/styles.xml"));
  const std::string c2Style = sheet.select_node("//c[@r='C2']").node().attribute("s").value();
  const pugi::xml_node xf =
      styles.select_node(("/styleSheet/cellXfs/xf[" + std::to_string(std::stoi(c2Style) + 1) + "]").c_str()).node();
  EXPECT_STREQ(styles.select_node("/styleSheet/cellXfs/xf[2]").node().attribute("numFmtId").value(), "3");
  EXPECT_STREQ(xf.attribute("numFmtId").value(), "2");
  EXPECT_STREQ(xf.child("alignment").attribute("horizontal").value(), "right");
  EXPECT_STREQ(styles.select_node("/styleSheet/fonts/font[2]/name").node().attribute("val").value(), "Arial");
}

// A sheet of megabytes loses its selection by a rewrite of its head alone: the rest of its compressed
// bytes are the original's, and the whole still inflates, CRC checked, to the text without tabSelected.
TEST_F(WriterPackage, ALargeSheetLosesItsSelectionWithoutBeingRecompressed) {
  Parts entries = originalEntries();
  std::string& sheet = entries[4].second;
  ASSERT_EQ(entries[4].first, "xl/worksheets/sheet1.xml");
  std::string rows;
  std::uint64_t state = 12345;
  for (int r = 1; r <= 60000; ++r) {
    rows += "<row r=\"" + std::to_string(r) + "\">";
    for (const char* column : {"A", "B", "C"}) {
      state = state * 6364136223846793005ULL + 1442695040888963407ULL;
      rows += std::string("<c r=\"") + column + std::to_string(r) + "\"><v>" + std::to_string(state >> 40) + "</v></c>";
    }
    rows += "</row>";
  }
  sheet.replace(sheet.find("<row r=\"1\""), sheet.find("</sheetData>") - sheet.find("<row r=\"1\""), rows);
  writeZip(folder_ / "big.xlsx", entries);
  analyse();
  writeIntoPackage(folder_ / "big.xlsx", *book_, {}, folder_ / "out.xlsx");

  ZipPackage in = ZipPackage::open(folder_ / "big.xlsx");
  ZipPackage out = ZipPackage::open(folder_ / "out.xlsx");
  const std::optional<CompressedEntry> before = in.readDeflated("xl/worksheets/sheet1.xml", 1U << 20);
  const std::optional<CompressedEntry> after = out.readDeflated("xl/worksheets/sheet1.xml");
  ASSERT_TRUE(before && after);
  const std::size_t tail = before->bytes.size() / 2;
  EXPECT_EQ(after->bytes.substr(after->bytes.size() - tail), before->bytes.substr(before->bytes.size() - tail));
  std::string expected = sheet;
  expected.erase(expected.find(R"( tabSelected="1")"), 16);
  EXPECT_TRUE(out.read("xl/worksheets/sheet1.xml") == expected);
}

TEST_F(WriterPackage, WrittenPackagesReadBackWithTheSameValues) {
  analyse();
  writeIntoPackage(folder_ / "in.xlsm", *book_, {{"Data", CellBlock{2, 2, 2, 3}}}, folder_ / "out.xlsm");
  writeNewWorkbook(*book_, folder_ / "new.xlsx");
  writeIntoPackage(folder_ / "in.xlsm", *book_, {{"Data", CellBlock{2, 2, 2, 3}}}, folder_ / "in.xlsm");
  EXPECT_EQ(folder_.files(), (std::vector<std::string>{"in.xlsm", "new.xlsx", "out.xlsm"}));  // no temporary left
  for (const char* file : {"out.xlsm", "new.xlsx", "in.xlsm"}) {
    SCOPED_TRACE(file);
    InMemoryApplication other;
    InMemoryWorkbook& back = loadWorkbook(other, folder_ / file);
    ASSERT_EQ(back.WorksheetsCount(), 3);
    EXPECT_EQ(cellLines(back), cellLines(*book_));
    for (std::int32_t i = 1; i <= 3; ++i) EXPECT_EQ(back.Worksheets(i).usedBlock(), book_->Worksheets(i).usedBlock());
  }
}

TEST_F(WriterPackage, FailuresLeaveNoTemporaryFileAndNameTheCause) {
  analyse();
  const fs::path locked = folder_ / "locked";
  fs::create_directory(locked);
  fs::permissions(locked, fs::perms::owner_read | fs::perms::owner_exec);
  std::ofstream(folder_ / "text.xlsx") << "a,b\n1,2\n";
  const std::tuple<const char*, std::function<void()>, const char*, const char*> rows[] = {
      {"unknown sheet",
       [&] {
         writeIntoPackage(folder_ / "in.xlsm", *book_, {{"Nope", CellBlock{}}}, folder_ / "o.xlsx");
       },
       "Save", "\"Nope\""},
      {"missing original", [&] { writeIntoPackage(folder_ / "none.xlsx", *book_, {}, folder_ / "o.xlsx"); }, "Save",
       "none.xlsx"},
      {"original is no zip", [&] { writeIntoPackage(folder_ / "text.xlsx", *book_, {}, folder_ / "o.xlsx"); }, "Save",
       "text.xlsx\" cannot be opened as a package (Not a zip archive)"},
      {"read-only folder", [&] { writeNewWorkbook(*book_, locked / "o.xlsx"); }, "SaveAs", "o.xlsx"},
  };
  for (const auto& [what, write, procedure, named] : rows) {
    if (::geteuid() == 0 && std::string(what) == "read-only folder") continue;  // root writes anywhere
    SCOPED_TRACE(what);
    try {
      write();
      ADD_FAILURE() << "no error";
    } catch (const ComponentError& e) {
      EXPECT_EQ(e.number(), err::kFileUnwritable);
      EXPECT_EQ(e.source(), std::string("Line 0 in ORVDescriptives.WorkbookFile.") + procedure);
      EXPECT_NE(e.description().find(named), std::string::npos) << e.description();
    }
    EXPECT_EQ(folder_.files(), (std::vector<std::string>{"in.xlsm", "locked", "text.xlsx"}));
    EXPECT_TRUE(fs::is_empty(locked));
  }
}

}  // namespace
}  // namespace orv::test
