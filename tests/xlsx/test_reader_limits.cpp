// The limits a hostile file cannot get past: each refusal names its limit, each limit admits what
// stays within it, and the defaults take a real sheet of 1,048,576 rows.

#include <gtest/gtest.h>

#include <functional>

#include "frame/errors.h"
#include "test_reader_fixtures.h"
#include "workbook/in_memory_application.h"
#include "xlsx/reader_workbook.h"
#include "xlsx/reader_xml.h"

namespace orv {
namespace {

using test::Parts;

// The error description of loading `file`, or "" when it loads.
std::string outcome(const std::filesystem::path& file, const ReadLimits& limits) {
  InMemoryApplication app;
  try {
    openWorkbookFile(app, file, limits);
  } catch (const ComponentError& e) {
    EXPECT_EQ(e.number(), err::kFileUnreadable) << e.description();
    return e.description();
  }
  return "";
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
  std::string s = R"(<sst xmlns=")" + test::kMainNs + R"(">)";
  for (const std::string& item : items) s += "<si><t>" + item + "</t></si>";
  return s + extra + "</sst>";
}

std::string sharedCells(int count) {
  std::string row = "<row>";
  for (int i = 0; i < count; ++i) row += R"(<c t="s"><v>0</v></c>)";
  return row + "</row>";
}

struct LimitCase {
  const char* name;
  std::function<std::filesystem::path(bool over)> file;  // just within the limit, or one past it
  std::function<void(ReadLimits&)> limit;
  std::string named;  // what the refusal says
};

TEST(ReaderLimits, EachLimitAdmitsItsBoundAndRefusesOnePastItByName) {
  // The root element counts as one level, so the sheet's own <worksheet> leaves kMaxXmlDepth - 1.
  const std::size_t inside = kMaxXmlDepth - 1;
  const std::vector<LimitCase> cases = {
      {"XML depth of a sheet",
       [&](bool over) {
         return test::writeZip("depth_sheet.xlsx",
                               test::oneSheetPackage(test::sheetXml(R"(<row><c><v>1</v></c></row>)",
                                                                    nested(over ? inside + 1 : inside))));
       },
       [](ReadLimits&) {}, "nests its XML elements more than 256 deep (the XML depth limit)"},
      {"XML depth of the shared strings",
       [&](bool over) {
         return test::writeZip("depth_sst.xlsx",
                               test::oneSheetPackage(test::sheetXml(R"(<row><c t="s"><v>0</v></c></row>)"),
                                                     sst({"a"}, nested(over ? inside + 1 : inside, "x"))));
       },
       [](ReadLimits&) {}, "\"xl/sharedStrings.xml\" nests its XML elements more than 256 deep"},
      {"XML depth of the workbook",
       [&](bool over) {
         Parts p = test::oneSheetPackage(test::sheetXml(""));
         p[1].second = test::workbookXml({{"Data", "rId1"}}, nested(over ? inside + 1 : inside));
         return test::writeZip("depth_wb.xlsx", p);
       },
       [](ReadLimits&) {}, "\"xl/workbook.xml\" nests its XML elements more than 256 deep"},
      {"shared-string count",
       [](bool over) {
         return test::writeZip("count_sst.xlsx", test::oneSheetPackage(test::sheetXml(sharedCells(1)),
                                                                       sst(over ? std::vector<std::string>{"a", "b", "c"}
                                                                                : std::vector<std::string>{"a", "b"})));
       },
       [](ReadLimits& l) { l.maxSharedStrings = 2; }, "holds more than 2 strings (the shared-string count limit)"},
      {"length of a shared string",
       [](bool over) {
         return test::writeZip("long_sst.xlsx", test::oneSheetPackage(test::sheetXml(sharedCells(1)),
                                                                      sst({over ? "abcdef" : "abcde"})));
       },
       [](ReadLimits& l) { l.maxStringBytes = 5; }, "shared string 0 is longer than 5 bytes (the text length limit)"},
      {"length of an inline string",
       [](bool over) {
         return test::writeZip("long_inline.xlsx",
                               test::oneSheetPackage(test::sheetXml(std::string(R"(<row><c r="B3" t="inlineStr"><is><t>)") +
                                                                    (over ? "ab&amp;de" : "ab&amp;d") + "</t></is></c></row>")));
       },
       [](ReadLimits& l) { l.maxStringBytes = 4; }, "the cell B3 of the sheet \"Data\" holds a text longer than 4 bytes"},
      {"length of a CSV field",
       [](bool over) { return test::writeBytes("long.csv", over ? "a,b\n1,\"12345\"\n" : "a,b\n1,\"1234\"\n"); },
       [](ReadLimits& l) { l.maxStringBytes = 4; },
       "the field in row 2, column 2 is longer than 4 bytes (the text length limit)"},
      {"text in all cells: one shared string in many cells",
       [](bool over) {
         return test::writeZip("text_total.xlsx", test::oneSheetPackage(test::sheetXml(sharedCells(over ? 4 : 3)),
                                                                        sst({"abcd"})));
       },
       [](ReadLimits& l) { l.maxTextBytes = 12; },
       "its cells hold more than 12 bytes of text in all, counting each shared string once per cell (the total "
       "text limit)"},
      {"text in all cells: over two sheets",
       [](bool over) {
         Parts p = test::oneSheetPackage(test::sheetXml(sharedCells(2)), sst({"abcd"}));
         p[1].second = test::workbookXml({{"Data", "rId1"}, {"More", "rId3"}});
         p.back().second = test::workbookRels({{"rId1", "worksheet", "worksheets/sheet1.xml"},
                                               {"rId2", "sharedStrings", "sharedStrings.xml"},
                                               {"rId3", "worksheet", "worksheets/sheet2.xml"}});
         p.emplace_back("xl/worksheets/sheet2.xml", test::sheetXml(sharedCells(over ? 2 : 1)));
         return test::writeZip("text_two.xlsx", p);
       },
       [](ReadLimits& l) { l.maxTextBytes = 12; }, "(the total text limit)"},
      {"cells of a CSV file spread down a column",
       [](bool over) { return test::writeBytes("spread.csv", "1\n" + std::string(over ? 99 : 98, '\n') + "2\n"); },
       [](ReadLimits& l) { l.maxStoredCells = 100; }, "more than 100 cell slots"},
      {"cells of a CSV file spread over many columns",
       [](bool over) {
         // Two cells in each of 10 columns, 9 rows apart: 10 slots each.
         const std::string line = "1,1,1,1,1,1,1,1,1,1\n";
         return test::writeBytes("wide.csv", line + std::string(8, '\n') + (over ? line : line.substr(0, 17) + "\n"));
       },
       [](ReadLimits& l) { l.maxStoredCells = 99; }, "(the cell count limit)"},
      {"cells of a sheet",
       [](bool over) {
         return test::writeZip("cells.xlsx", test::oneSheetPackage(test::sheetXml(
                                                 std::string(R"(<row r="1"><c><v>1</v></c></row><row r=")") +
                                                 (over ? "11" : "10") + R"("><c><v>2</v></c></row>)")));
       },
       [](ReadLimits& l) { l.maxStoredCells = 10; }, "more than 10 cell slots, more than this program holds in memory (the cell count limit)"},
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

TEST(ReaderLimits, ZipRefusalsNameTheLimitTheyHit) {
  const auto file = test::writeZip("inflate.xlsx", test::oneSheetPackage(test::sheetXml("", std::string(3 << 20, ' '))));
  const struct {
    const char* name;
    ZipLimits zip;
    std::string named;
  } rows[] = {
      {"part", {1 << 20, std::uint64_t{2} << 30, std::uint64_t{16} << 20, 1000}, "the part size limit of 1048576 bytes"},
      {"package", {std::uint64_t{2} << 30, 2 << 20, std::uint64_t{16} << 20, 1000}, "the package size limit of 2097152 bytes"},
      {"ratio", {std::uint64_t{2} << 30, std::uint64_t{2} << 30, 1 << 20, 100}, "the compression ratio limit of 100:1"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    ReadLimits limits;
    limits.zip = row.zip;
    const std::string refusal = outcome(file, limits);
    EXPECT_NE(refusal.find("\"xl/worksheets/sheet1.xml\" inflates beyond " + row.named), std::string::npos) << refusal;
  }
}

TEST(ReaderLimits, DefaultsTakeAFullHeightSheetAndTheLongestCellText) {
  // Column A: 1,048,576 numbers; B1: a shared string of 32,767 four-byte characters, as long as a
  // cell text can be; B2: the same string inline.
  std::string rows;
  rows.reserve(std::size_t{40} << 20);
  std::string longest;
  for (int i = 0; i < 32767; ++i) longest += "\xF0\x9F\x98\x80";
  rows += R"(<row r="1"><c r="A1"><v>1</v></c><c r="B1" t="s"><v>0</v></c></row>)";
  rows += R"(<row r="2"><c r="A2"><v>2</v></c><c r="B2" t="inlineStr"><is><t>)" + longest + "</t></is></c></row>";
  // Rows and cells without references follow the one before them: the shortest XML there is.
  for (std::int32_t r = 3; r <= kMaxRows; ++r) rows += "<row><c><v>" + std::to_string(r) + "</v></c></row>";
  const auto file = test::writeZip("full.xlsx", test::oneSheetPackage(test::sheetXml(rows), sst({longest})));
  InMemoryApplication app;
  InMemoryWorksheet& ws = openWorkbookFile(app, file, ReadLimits{}).book.Worksheets(1);
  EXPECT_EQ(ws.usedBlock(), (CellBlock{1, 1, kMaxRows, 2}));
  EXPECT_EQ(ws.cellValue(kMaxRows, 1), CellValue(static_cast<double>(kMaxRows)));
  EXPECT_EQ(ws.cellValue(1, 2), CellValue(longest));
  EXPECT_EQ(ws.cellValue(2, 2), CellValue(longest));
}

}  // namespace
}  // namespace orv
