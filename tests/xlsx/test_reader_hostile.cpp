// Files the reader refuses with an error naming the limit or damage, without crashing or exhausting memory.

#include <gtest/gtest.h>

#include <functional>

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
  const std::string good = readBytes(writeZip("good.xlsx", oneSheetPackage(sheetXml(""))));
  Parts missingWorkbook = oneSheetPackage(sheetXml("")), missingSheet = missingWorkbook;
  missingWorkbook.erase(missingWorkbook.begin() + 1);
  missingSheet.erase(missingSheet.begin() + 2);
  const std::string ooxmlCount = R"(<sst xmlns=")" + kMainNs + R"(" count="1"><si><t>a</t></si></sst>)";

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
      {"utf-16",
       writeBytes("utf16.csv",
                  "\xFF\xFE"
                  "a\0"),
       "UTF-16"},
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
      {"string index out of range",
       writeZip("sst.xlsx", oneSheetPackage(sheetXml(R"(<row><c r="B2" t="s"><v>1</v></c></row>)"), ooxmlCount)),
       "refers to shared string 1 of 1 in cell B2"},
      {"truncated sheet XML", writeZip("cutxml.xlsx", oneSheetPackage(sheetXml("<row><c><v>1</v>").substr(0, 150))),
       "the sheet \"Data\" is cut short"},
      {"cell off the sheet", writeZip("off.xlsx", oneSheetPackage(sheetXml(R"(<row><c r="XFE1"><v>1</v></c></row>)"))),
       "cell reference that is off the sheet"},
      {"bad number", writeZip("num.xlsx", oneSheetPackage(sheetXml(R"(<row><c r="C3"><v>1,5</v></c></row>)"))),
       "number that does not read as one in cell C3"},
      {"infinite number", writeZip("inf.xlsx", oneSheetPackage(sheetXml(R"(<row><c><v>1e999</v></c></row>)"))),
       "number that does not read as one"},
      {"doctype", writeZip("dtd.xlsx", oneSheetPackage("<!DOCTYPE x [<!ENTITY a 'b'>]>" + sheetXml(""))),
       "document type declaration"},
      {"invalid sheet name",
       writeZip("names.xlsx",
                [] {
                  Parts p = oneSheetPackage(sheetXml(""));
                  p[1].second = workbookXml({{"a[1]", "rId1"}});
                  return p;
                }()),
       "\"a[1]\" cannot name a sheet"},
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
  struct LimitCase {
    const char* name;
    std::function<fs::path(bool over)> file;  // just within the limit, or one past it
    std::function<void(ReadLimits&)> limit;
    std::string named;
  };
  const auto none = [](ReadLimits&) {};
  const std::size_t inside = kMaxXmlDepth - 1;  // the root element is the first level
  const std::vector<LimitCase> cases = {
      {"XML depth of a sheet",
       [&](bool over) {
         return writeZip("depth_sheet.xlsx", oneSheetPackage(sheetXml(R"(<row><c><v>1</v></c></row>)",
                                                                      nested(over ? inside + 1 : inside))));
       },
       none, "nests its XML elements more than 256 deep (the XML depth limit)"},
      {"shared-string count",
       [](bool over) {
         return writeZip("count_sst.xlsx",
                         oneSheetPackage(sheetXml(sharedCells(1)), over ? sst({"a", "b", "c"}) : sst({"a", "b"})));
       },
       [](ReadLimits& l) { l.maxSharedStrings = 2; }, "holds more than 2 strings (the shared-string count limit)"},
      {"length of an inline string",
       [](bool over) {
         return writeZip("long_inline.xlsx",
                         oneSheetPackage(sheetXml(std::string(R"(<row><c r="B3" t="inlineStr"><is><t>)") +
                                                  (over ? "ab&amp;de" : "ab&amp;d") + "</t></is></c></row>")));
       },
       [](ReadLimits& l) { l.maxStringBytes = 4; },
       "the cell B3 of the sheet \"Data\" holds a text longer than 4 bytes"},
      {"text in all cells: one shared string in many cells",
       [](bool over) {
         return writeZip("text_total.xlsx", oneSheetPackage(sheetXml(sharedCells(over ? 4 : 3)), sst({"abcd"})));
       },
       [](ReadLimits& l) { l.maxTextBytes = 12; },
       "its cells hold more than 12 bytes of text in all, counting each shared string once per cell (the total text limit)"},
      {"cells of a CSV file spread over many columns",  // two cells in each of 10 columns, 9 rows apart
       [](bool over) {
         const std::string line = "1,1,1,1,1,1,1,1,1,1\n";
         return writeBytes("wide.csv", line + std::string(8, '\n') + (over ? line : line.substr(0, 17) + "\n"));
       },
       [](ReadLimits& l) { l.maxStoredCells = 99; }, "(the cell count limit)"},
      {"cells of a sheet spread down a column",
       [](bool over) {
         return writeZip("cells.xlsx",
                         oneSheetPackage(sheetXml(std::string(R"(<row r="1"><c><v>1</v></c></row><row r=")") +
                                                  (over ? "11" : "10") + R"("><c><v>2</v></c></row>)")));
       },
       [](ReadLimits& l) { l.maxStoredCells = 10; },
       "more than 10 cell slots, more than this program holds in memory (the cell count limit)"},
  };
  for (const LimitCase& c : cases) {
    SCOPED_TRACE(c.name);
    ReadLimits limits;
    c.limit(limits);
    EXPECT_EQ(outcome(c.file(false), limits), "");
    const std::string refusal = outcome(c.file(true), limits);
    EXPECT_NE(refusal.find(c.named), std::string::npos) << refusal;
  }
}

TEST(ReaderHostile, ZipBombIsRefusedAtTheLimitNotAtItsDeclaredSize) {
  const auto file =
      writeZip("bomb.xlsx", oneSheetPackage(sheetXml("<row><c><v>1</v></c></row>" + std::string(4 << 20, ' '))));
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

// 200,000 levels would overflow the stack of any recursive walk.
TEST(ReaderHostile, DeeplyNestedXmlIsRefusedWithoutRecursing) {
  const std::string deep = nested(200000);
  const Parts inSheet = oneSheetPackage(sheetXml(R"(<row><c><v>3</v></c></row>)", deep));
  const Parts inStrings = oneSheetPackage(sheetXml(sharedCells(1)), sst({"a"}, deep));
  for (const auto& [name, parts] : {std::pair{"deep.xlsx", inSheet}, std::pair{"deepsst.xlsx", inStrings}}) {
    SCOPED_TRACE(name);
    EXPECT_NE(outcome(writeZip(name, parts)).find("(the XML depth limit)"), std::string::npos);
  }
}

TEST(ReaderHostile, HugeDeclaredDimensionAllocatesNothing) {
  const std::string sheet =
      sheetXml(R"(<row r="1"><c r="A1"><v>1</v></c></row><row r="1048576"><c r="XFD1048576"><v>2</v></c></row>)",
               R"(<dimension ref="A1:XFD1048576"/>)");
  ReadLimits limits;
  limits.maxStoredCells = 10;  // two single cells fit; anything dense would not
  InMemoryApplication app;
  InMemoryWorksheet& ws =
      openWorkbookFile(app, writeZip("dim.xlsx", oneSheetPackage(sheet)), limits).book.Worksheets(1);
  EXPECT_EQ(ws.cellValue(kMaxRows, kMaxColumns), CellValue(2.0));
  EXPECT_EQ(ws.usedBlock(), (CellBlock{1, 1, kMaxRows, kMaxColumns}));
}

TEST(ReaderHostile, EveryCutOfAValidPackageFailsCleanly) {
  const std::string sheet = sheetXml(R"(<row><c t="inlineStr"><is><t>x</t></is></c><c><v>2</v></c></row>)");
  const std::string good = readBytes(writeZip("whole.xlsx", oneSheetPackage(sheet)));
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
  InMemoryWorksheet& ws =
      loadWorkbook(app, writeZip("full.xlsx", oneSheetPackage(sheetXml(rows), sst({longest})))).Worksheets(1);
  EXPECT_EQ(ws.usedBlock(), (CellBlock{1, 1, kMaxRows, 2}));
  EXPECT_EQ(ws.cellValue(1, 2), CellValue(longest));
  EXPECT_EQ(ws.cellValue(2, 2), CellValue(longest));
}

}  // namespace
}  // namespace orv::test
