// Files the reader refuses with an error naming the limit or damage, without crashing or exhausting memory.

#include <gtest/gtest.h>

#include "frame/errors.h"
#include "test_packages.h"
#include "workbook/in_memory_application.h"
#include "xlsx/reader_workbook.h"
#include "xlsx/reader_xml.h"

namespace orv::test {
namespace {

// The error description of loading `file`, or "" when it loads.
std::string outcome(const fs::path& file, const ReadLimits& limits = {}) {
  InMemoryApplication app;
  try {
    openWorkbookFile(app, file, limits);
  } catch (const ComponentError& e) {
    EXPECT_EQ(e.number(), err::kFileUnreadable) << e.description();
    EXPECT_EQ(e.source(), "Line 0 in ORVDescriptives.WorkbookFile.Open");
    return e.description();
  }
  return "";
}

ReadLimits limit(std::uint64_t ReadLimits::*field, std::uint64_t value) {
  ReadLimits limits;
  limits.*field = value;
  return limits;
}

std::string ole(const std::string& directoryName) {
  std::string bytes = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
  bytes.resize(1536, '\0');
  for (const char c : directoryName) bytes += std::string{c, '\0'};
  bytes.resize(2048, '\0');
  return bytes;
}

std::string nested(std::size_t depth, const std::string& innermost = "") {
  std::string open, close;
  for (std::size_t i = 0; i < depth; ++i) {
    open += "<a>";
    close += "</a>";
  }
  return open + innermost + close;
}

std::string sst(const std::vector<std::string>& items, const std::string& extra = "") {
  std::string s = R"(<sst xmlns=")" + kMainNs + R"(">)";
  for (const std::string& item : items) s += "<si><t>" + item + "</t></si>";
  return s + extra + "</sst>";
}

std::string sharedCells(int count) {
  std::string row = "<row>";
  for (int i = 0; i < count; ++i) row += R"(<c t="s"><v>0</v></c>)";
  return row + "</row>";
}

TEST(ReaderHostile, EveryBadFileSaysWhatItIsAndWhatIsAccepted) {
  const std::string good = readBytes(sheetFile("good.xlsx", ""));
  Parts missingWorkbook = oneSheetPackage(sheetXml("")), missingSheet = missingWorkbook, badName = missingWorkbook;
  missingWorkbook.erase(missingWorkbook.begin() + 1);
  missingSheet.erase(missingSheet.begin() + 2);
  badName[1].second = workbookXml({{"a[1]", "rId1"}});
  const std::string ooxmlCount = R"(<sst xmlns=")" + kMainNs + R"(" count="1"><si><t>a</t></si></sst>)";
  const std::string deep = nested(200000);  // would overflow the stack of any recursive walk

  const struct {
    std::string name;
    std::filesystem::path file;
    std::string expected;  // a piece of the description
  } rows[] = {
      {"truncated zip", writeBytes("cut.xlsx", good.substr(0, good.size() / 2)), "damaged or truncated zip archive"},
      {"garbage", writeBytes("garbage.xlsx", std::string("\x01\x02\x03\x00\xff", 5)),
       "neither a workbook nor a text file"},
      {"text named xlsx", writeBytes("text.xlsx", "a,b\n1,2\n"), "it is text, not a zip package"},
      {"empty", writeBytes("empty.xlsx", ""), "is empty"},
      {"utf-16", writeBytes("utf16.csv", "\xFF\xFE\x61"), "UTF-16"},
      {"encrypted", writeBytes("secret.xlsx", ole("EncryptedPackage")), "password-protected workbook"},
      {"legacy xls", writeBytes("old.xls", ole("Workbook")), "legacy binary workbook (.xls)"},
      {"missing", tempFile("absent.xlsx"), "cannot be opened"},
      {"too many fields", writeBytes("fields.csv", std::string(kMaxColumns, ',') + "x\n"),
       "has a line with more than the 16384 fields"},
      {"no workbook part", writeZip("nowb.xlsx", missingWorkbook), "workbook part \"xl/workbook.xml\" is missing"},
      {"no sheet part", writeZip("nosheet.xlsx", missingSheet),
       "\"xl/worksheets/sheet1.xml\" of the sheet \"Data\" is missing"},
      {"plain zip", writeZip("photos.xlsx", {{"a.txt", "hello"}}), "zip archive that holds no workbook"},
      {"xlsb", writeZip("bin.xlsb", {{"_rels/.rels", rootRels("xl/workbook.bin")}, {"xl/workbook.bin", "x"}}),
       "binary workbook (.xlsb)"},
      {"ods",
       writeZip("calc.ods", {{"mimetype", "application/vnd.oasis.opendocument.spreadsheet"}, {"content.xml", "<x/>"}}),
       "OpenDocument spreadsheet (.ods)"},
      {"string index out of range", sheetFile("sst.xlsx", R"(<row><c r="B2" t="s"><v>1</v></c></row>)", ooxmlCount),
       "refers to shared string 1 of 1 in cell B2"},
      {"truncated sheet XML", writeZip("cutxml.xlsx", oneSheetPackage(sheetXml("<row><c><v>1</v>").substr(0, 150))),
       "the sheet \"Data\" is cut short"},
      {"cell off the sheet", sheetFile("off.xlsx", R"(<row><c r="XFE1"><v>1</v></c></row>)"),
       "cell reference that is off the sheet"},
      {"bad number", sheetFile("num.xlsx", R"(<row><c r="C3"><v>1,5</v></c></row>)"),
       "number that does not read as one in cell C3"},
      {"infinite number", sheetFile("inf.xlsx", R"(<row><c><v>1e999</v></c></row>)"),
       "number that does not read as one"},
      {"doctype", writeZip("dtd.xlsx", oneSheetPackage("<!DOCTYPE x [<!ENTITY a 'b'>]>" + sheetXml(""))),
       "document type declaration"},
      {"invalid sheet name", writeZip("names.xlsx", badName), "\"a[1]\" cannot name a sheet"},
      {"deep sheet", sheetFile("deep.xlsx", R"(<row><c><v>3</v></c></row>)", "", deep), "(the XML depth limit)"},
      {"deep shared strings", sheetFile("deepsst.xlsx", sharedCells(1), sst({"a"}, deep)), "(the XML depth limit)"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::string description = outcome(row.file);
    EXPECT_NE(description.find(row.expected), std::string::npos) << description;
    EXPECT_TRUE(description.starts_with("\"" + row.file.filename().string() + "\" ")) << description;
    EXPECT_TRUE(description.ends_with(". Orvella reads .xlsx and .xlsm workbooks and .csv, .tsv and .txt text files."))
        << description;
  }
}

TEST(ReaderHostile, EachLimitAdmitsItsBoundAndRefusesOnePastItByName) {
  const std::size_t inside = kMaxXmlDepth - 1;  // the root element is the first level
  const std::string cell = R"(<row><c><v>1</v></c></row>)";
  const std::string inlineText = R"(<row><c r="B3" t="inlineStr"><is><t>ab&amp;d)";
  const std::string line = "1,1,1,1,1,1,1,1,1,1\n";  // two lines of 10 cells, 9 rows apart
  const std::string rows = R"(<row r="1"><c><v>1</v></c></row><row r=")";
  const struct {
    const char* name;
    fs::path within, over;
    ReadLimits limits;
    std::string named;
  } cases[] = {
      {"XML depth of a sheet",
       sheetFile("depth_in.xlsx", cell, "", nested(inside)),
       sheetFile("depth_over.xlsx", cell, "", nested(inside + 1)),
       {},
       "nests its XML elements more than 256 deep (the XML depth limit)"},
      {"shared-string count", sheetFile("count_in.xlsx", sharedCells(1), sst({"a", "b"})),
       sheetFile("count_over.xlsx", sharedCells(1), sst({"a", "b", "c"})), limit(&ReadLimits::maxSharedStrings, 2),
       "holds more than 2 strings (the shared-string count limit)"},
      {"length of an inline string", sheetFile("inline_in.xlsx", inlineText + "</t></is></c></row>"),
       sheetFile("inline_over.xlsx", inlineText + "e</t></is></c></row>"), limit(&ReadLimits::maxStringBytes, 4),
       "the cell B3 of the sheet \"Data\" holds a text longer than 4 bytes"},
      {"text in all cells: one shared string in many cells", sheetFile("total_in.xlsx", sharedCells(3), sst({"abcd"})),
       sheetFile("total_over.xlsx", sharedCells(4), sst({"abcd"})), limit(&ReadLimits::maxTextBytes, 12),
       "its cells hold more than 12 bytes of text in all, counting each shared string once per cell (the total text limit)"},
      {"cells of a CSV file spread over many columns",
       writeBytes("wide_in.csv", line + std::string(8, '\n') + line.substr(0, 17) + "\n"),
       writeBytes("wide_over.csv", line + std::string(8, '\n') + line), limit(&ReadLimits::maxStoredCells, 99),
       "(the cell count limit)"},
      {"cells of a sheet spread down a column", sheetFile("cells_in.xlsx", rows + R"(10"><c><v>2</v></c></row>)"),
       sheetFile("cells_over.xlsx", rows + R"(11"><c><v>2</v></c></row>)"), limit(&ReadLimits::maxStoredCells, 10),
       "more than 10 cell slots, more than this program holds in memory (the cell count limit)"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(outcome(c.within, c.limits), "");
    const std::string refusal = outcome(c.over, c.limits);
    EXPECT_NE(refusal.find(c.named), std::string::npos) << refusal;
  }
}

TEST(ReaderHostile, ZipBombIsRefusedAtTheLimitNotAtItsDeclaredSize) {
  const auto file = sheetFile("bomb.xlsx", "<row><c><v>1</v></c></row>" + std::string(4 << 20, ' '));
  const struct {
    ZipLimits zip;
    std::string named;
  } rows[] = {
      {{1 << 20, std::uint64_t{2} << 30, std::uint64_t{16} << 20, 1000}, "the part size limit of 1048576 bytes"},
      {{std::uint64_t{2} << 30, 2 << 20, std::uint64_t{16} << 20, 1000}, "the package size limit of 2097152 bytes"},
      {{std::uint64_t{2} << 30, std::uint64_t{2} << 30, 1 << 20, 100}, "the compression ratio limit of 100:1"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.named);
    ReadLimits limits;
    limits.zip = row.zip;
    const std::string refusal = outcome(file, limits);
    EXPECT_NE(refusal.find("\"xl/worksheets/sheet1.xml\" inflates beyond " + row.named +
                           " (a zip bomb or a damaged archive)"),
              std::string::npos)
        << refusal;
  }
  EXPECT_EQ(outcome(file), "");  // within the default limits
}

TEST(ReaderHostile, HugeDeclaredDimensionAllocatesNothing) {
  const auto file = sheetFile(
      "dim.xlsx", R"(<row r="1"><c r="A1"><v>1</v></c></row><row r="1048576"><c r="XFD1048576"><v>2</v></c></row>)", "",
      R"(<dimension ref="A1:XFD1048576"/>)");
  InMemoryApplication app;
  // Two single cells fit in 10 slots; anything dense would not.
  InMemoryWorksheet& ws = openWorkbookFile(app, file, limit(&ReadLimits::maxStoredCells, 10)).book.Worksheets(1);
  EXPECT_EQ(ws.cellValue(kMaxRows, kMaxColumns), CellValue(2.0));
  EXPECT_EQ(ws.usedBlock(), (CellBlock{1, 1, kMaxRows, kMaxColumns}));
}

TEST(ReaderHostile, EveryCutOfAValidPackageFailsCleanly) {
  const std::string good =
      readBytes(sheetFile("whole.xlsx", R"(<row><c t="inlineStr"><is><t>x</t></is></c><c><v>2</v></c></row>)"));
  for (std::size_t cut = 0; cut < good.size(); cut += 7) {
    SCOPED_TRACE(cut);
    EXPECT_NE(outcome(writeBytes("cut_each.xlsx", good.substr(0, cut))), "");
  }
}

// The default limits take a full-height sheet and the longest text a cell can hold (32,767
// four-byte characters), shared and inline.
TEST(ReaderHostile, DefaultsTakeAFullHeightSheetAndTheLongestCellText) {
  std::string longest;
  for (int i = 0; i < 32767; ++i) longest += "\xF0\x9F\x98\x80";
  std::string rows = R"(<row r="1"><c r="A1"><v>1</v></c><c r="B1" t="s"><v>0</v></c></row>)"
                     R"(<row r="2"><c r="A2"><v>2</v></c><c r="B2" t="inlineStr"><is><t>)" +
                     longest + "</t></is></c></row>";
  for (std::int32_t r = 3; r <= kMaxRows; ++r) rows += "<row><c><v>" + std::to_string(r) + "</v></c></row>";
  InMemoryApplication app;
  InMemoryWorksheet& ws = loadWorkbook(app, sheetFile("full.xlsx", rows, sst({longest}))).Worksheets(1);
  EXPECT_EQ(ws.usedBlock(), (CellBlock{1, 1, kMaxRows, 2}));
  EXPECT_EQ(ws.cellValue(1, 2), CellValue(longest));
  EXPECT_EQ(ws.cellValue(2, 2), CellValue(longest));
}

}  // namespace
}  // namespace orv::test
