// Files the reader must refuse with a clear error, without crashing or running out of memory.

#include <gtest/gtest.h>

#include "frame/errors.h"
#include "test_reader_fixtures.h"
#include "workbook/in_memory_application.h"
#include "xlsx/reader_workbook.h"

namespace orv {
namespace {

using test::Parts;

// Loads the file and returns the error description; fails the test when no kFileUnreadable comes.
std::string loadError(const std::filesystem::path& file, const ReadLimits& limits = {}) {
  InMemoryApplication app;
  try {
    openWorkbookFile(app, file, limits);
  } catch (const ComponentError& e) {
    EXPECT_EQ(e.number(), err::kFileUnreadable) << e.description();
    EXPECT_EQ(e.source(), "Line 0 in ORVDescriptives.WorkbookFile.Open");
    return e.description();
  }
  ADD_FAILURE() << file << " loaded";
  return {};
}

std::string ole(const std::string& directoryName) {
  std::string bytes = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
  bytes.resize(1536, '\0');
  for (const char c : directoryName) {
    bytes.push_back(c);
    bytes.push_back('\0');
  }
  bytes.resize(2048, '\0');
  return bytes;
}

std::string nested(int depth) {
  std::string open, close;
  for (int i = 0; i < depth; ++i) {
    open += "<a>";
    close += "</a>";
  }
  return open + close;
}

TEST(ReaderHostile, EveryBadFileSaysWhatItIsAndWhatIsAccepted) {
  const std::string good = test::readBytes(test::writeZip("good.xlsx", test::oneSheetPackage(test::sheetXml(""))));
  Parts missingWorkbook = test::oneSheetPackage(test::sheetXml(""));
  missingWorkbook.erase(missingWorkbook.begin() + 1);
  Parts missingSheet = test::oneSheetPackage(test::sheetXml(""));
  missingSheet.erase(missingSheet.begin() + 2);
  const std::string ooxmlCount = R"(<sst xmlns=")" + test::kMainNs + R"(" count="1"><si><t>a</t></si></sst>)";

  const struct {
    std::string name;
    std::filesystem::path file;
    std::string expected;  // a piece of the description
  } rows[] = {
      {"truncated zip", test::writeBytes("cut.xlsx", good.substr(0, good.size() / 2)), "damaged or truncated zip archive"},
      {"garbage", test::writeBytes("garbage.xlsx", std::string("\x01\x02\x03\x00\xff", 5)), "neither a workbook nor a text file"},
      {"text named xlsx", test::writeBytes("text.xlsx", "a,b\n1,2\n"), "it is text, not a zip package"},
      {"text with other extension", test::writeBytes("notes.dat", "a,b\n"), "without a .csv, .tsv or .txt extension"},
      {"empty", test::writeBytes("empty.xlsx", ""), "is empty"},
      {"utf-16", test::writeBytes("wide.csv", "\xFF\xFE" "a\0"), "UTF-16"},
      {"encrypted", test::writeBytes("secret.xlsx", ole("EncryptedPackage")), "password-protected workbook"},
      {"legacy xls", test::writeBytes("old.xls", ole("Workbook")), "legacy binary workbook (.xls)"},
      {"other compound", test::writeBytes("old.doc", ole("WordDocument")), "compound document"},
      {"missing", test::tempFile("absent.xlsx"), "cannot be opened"},
      {"no workbook part", test::writeZip("nowb.xlsx", missingWorkbook), "workbook part \"xl/workbook.xml\" is missing"},
      {"no sheet part", test::writeZip("nosheet.xlsx", missingSheet), "\"xl/worksheets/sheet1.xml\" of the sheet \"Data\" is missing"},
      {"plain zip", test::writeZip("photos.xlsx", {{"a.txt", "hello"}}), "zip archive that holds no workbook"},
      {"xlsb", test::writeZip("bin.xlsb", {{"_rels/.rels", test::rootRels("xl/workbook.bin")}, {"xl/workbook.bin", "x"}}),
       "binary workbook (.xlsb)"},
      {"ods", test::writeZip("calc.ods", {{"mimetype", "application/vnd.oasis.opendocument.spreadsheet"}, {"content.xml", "<x/>"}}),
       "OpenDocument spreadsheet (.ods)"},
      {"docx", test::writeZip("letter.docx", {{"_rels/.rels", test::rootRels("word/document.xml")}, {"word/document.xml", "<w/>"}}),
       "word-processing document"},
      {"string index out of range",
       test::writeZip("sst.xlsx", test::oneSheetPackage(test::sheetXml(R"(<row><c r="B2" t="s"><v>1</v></c></row>)"), ooxmlCount)),
       "refers to shared string 1 of 1 in cell B2"},
      {"no string table", test::writeZip("nosst.xlsx", test::oneSheetPackage(test::sheetXml(R"(<row><c t="s"><v>0</v></c></row>)"))),
       "refers to shared string 0 of 0"},
      {"truncated sheet XML", test::writeZip("cutxml.xlsx", test::oneSheetPackage(test::sheetXml("<row><c><v>1</v>").substr(0, 150))),
       "the sheet \"Data\" is cut short"},
      {"mismatched tags", test::writeZip("tags.xlsx", test::oneSheetPackage(test::sheetXml("<row><c><v>1</c></v></row>"))),
       "mismatched end tag"},
      {"cell off the sheet", test::writeZip("off.xlsx", test::oneSheetPackage(test::sheetXml(R"(<row><c r="XFE1"><v>1</v></c></row>)"))),
       "cell reference that is off the sheet"},
      {"row off the sheet", test::writeZip("offrow.xlsx", test::oneSheetPackage(test::sheetXml(R"(<row r="1048577"/>)"))),
       "row number off the sheet"},
      {"bad number", test::writeZip("num.xlsx", test::oneSheetPackage(test::sheetXml(R"(<row><c r="C3"><v>1,5</v></c></row>)"))),
       "number that does not read as one in cell C3"},
      {"infinite number", test::writeZip("inf.xlsx", test::oneSheetPackage(test::sheetXml(R"(<row><c><v>1e999</v></c></row>)"))),
       "number that does not read as one"},
      {"bad Boolean", test::writeZip("bool.xlsx", test::oneSheetPackage(test::sheetXml(R"(<row><c t="b"><v>yes</v></c></row>)"))),
       "Boolean"},
      {"doctype", test::writeZip("dtd.xlsx", test::oneSheetPackage("<!DOCTYPE x [<!ENTITY a 'b'>]>" + test::sheetXml(""))),
       "document type declaration"},
      {"workbook XML broken", test::writeZip("wbxml.xlsx", {{"_rels/.rels", test::rootRels()}, {"xl/workbook.xml", "<workbook><sheets>"}}),
       "\"xl/workbook.xml\" is no well-formed XML"},
      {"invalid sheet name", test::writeZip("names.xlsx", [] {
         Parts p = test::oneSheetPackage(test::sheetXml(""));
         p[1].second = test::workbookXml({{"a[1]", "rId1"}});
         return p;
       }()),
       "\"a[1]\" cannot name a sheet"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::string description = loadError(row.file);
    EXPECT_NE(description.find(row.expected), std::string::npos) << description;
    EXPECT_TRUE(description.starts_with("\"" + row.file.filename().string() + "\" ")) << description;
    EXPECT_TRUE(description.ends_with(". Orvella reads .xlsx and .xlsm workbooks and .csv, .tsv and .txt text files."))
        << description;
  }
}

TEST(ReaderHostile, HugeDeclaredDimensionAllocatesNothing) {
  const std::string sheet = test::sheetXml(R"(<row r="1"><c r="A1"><v>1</v></c></row><row r="1048576"><c r="XFD1048576"><v>2</v></c></row>)",
                                           R"(<dimension ref="A1:XFD1048576"/>)");
  ReadLimits limits;
  limits.maxStoredCells = 10;  // two single cells fit; anything dense would not
  InMemoryApplication app;
  InMemoryWorksheet& ws = openWorkbookFile(app, test::writeZip("dim.xlsx", test::oneSheetPackage(sheet)), limits).book.Worksheets(1);
  EXPECT_EQ(ws.cellValue(kMaxRows, kMaxColumns), CellValue(2.0));
  EXPECT_EQ(ws.usedBlock(), (CellBlock{1, 1, kMaxRows, kMaxColumns}));
}

TEST(ReaderHostile, CellsSpreadOverAColumnCountAgainstTheMemoryBudget) {
  const std::string sheet = test::sheetXml(R"(<row r="1"><c><v>1</v></c></row><row r="1000"><c><v>2</v></c></row>)");
  ReadLimits limits;
  limits.maxStoredCells = 999;
  const std::string description = loadError(test::writeZip("spread.xlsx", test::oneSheetPackage(sheet)), limits);
  EXPECT_NE(description.find("more than 999 cell slots"), std::string::npos) << description;
}

TEST(ReaderHostile, ZipBombIsRefusedAtTheLimitNotAtItsDeclaredSize) {
  const std::string sheet = test::sheetXml("<row><c><v>1</v></c></row>" + std::string(4 << 20, ' '));
  const auto file = test::writeZip("bomb.xlsx", test::oneSheetPackage(sheet));
  const struct {
    std::string name;
    ZipLimits zip;
  } rows[] = {
      {"part cap", {1 << 20, std::uint64_t{2} << 30, std::uint64_t{16} << 20, 1000}},
      {"total cap", {std::uint64_t{2} << 30, 2 << 20, std::uint64_t{16} << 20, 1000}},
      {"ratio", {std::uint64_t{2} << 30, std::uint64_t{2} << 30, 1 << 20, 100}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    ReadLimits limits;
    limits.zip = row.zip;
    const std::string description = loadError(file, limits);
    EXPECT_NE(description.find("inflates beyond the"), std::string::npos) << description;
    EXPECT_NE(description.find("(a zip bomb or a damaged archive)"), std::string::npos) << description;
  }
  InMemoryApplication app;
  EXPECT_EQ(loadWorkbook(app, file).Worksheets(1).cellValue(1, 1), CellValue(1.0));  // within the default limits
}

TEST(ReaderHostile, DeeplyNestedXmlIsRefusedWithoutRecursing) {
  // 200,000 levels would overflow the stack of any recursive walk; both parsers refuse them at
  // the depth limit instead (test_reader_limits.cpp checks the bound itself).
  const std::string deep = nested(200000);
  const std::string sheet = test::sheetXml(R"(<row><c><v>3</v></c></row>)", deep);
  EXPECT_NE(loadError(test::writeZip("deep.xlsx", test::oneSheetPackage(sheet))).find("(the XML depth limit)"),
            std::string::npos);
  const std::string sst = R"(<sst xmlns=")" + test::kMainNs + R"("><si><t>a</t></si>)" + deep + "</sst>";
  EXPECT_NE(loadError(test::writeZip("deepsst.xlsx",
                                     test::oneSheetPackage(test::sheetXml(R"(<row><c t="s"><v>0</v></c></row>)"), sst)))
                .find("(the XML depth limit)"),
            std::string::npos);
}

TEST(ReaderHostile, EveryCutOfAValidPackageFailsCleanly) {
  const std::string sheet = test::sheetXml(R"(<row><c t="inlineStr"><is><t>x</t></is></c><c><v>2</v></c></row>)");
  const std::string good = test::readBytes(test::writeZip("whole.xlsx", test::oneSheetPackage(sheet)));
  for (std::size_t cut = 0; cut < good.size(); cut += 7) {
    SCOPED_TRACE(cut);
    InMemoryApplication app;
    try {
      openWorkbookFile(app, test::writeBytes("cut_each.xlsx", good.substr(0, cut)));
      ADD_FAILURE() << "a cut package loaded";
    } catch (const ComponentError& e) {
      EXPECT_EQ(e.number(), err::kFileUnreadable);
    }
  }
}

}  // namespace
}  // namespace orv
