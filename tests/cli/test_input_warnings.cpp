// What the command says about input the analysis reads in a way a person may not expect, and the
// header row it refuses to analyse as data.

#include "cli_fixture.h"
#include "test_packages.h"

namespace orv::test {
namespace {

namespace fs = std::filesystem;

std::string text(const std::string& ref, const std::string& s) {
  return "<c r=\"" + ref + "\" t=\"inlineStr\"><is><t>" + s + "</t></is></c>";
}

// Column A: numbers and two formulas a program wrote without calculating them; column B: two
// numbers shown as dates (format 14) and one plain number.
fs::path uncalculatedWorkbook(const fs::path& where) {
  const std::string sheet =
      sheetXml("<row r=\"1\">" + text("A1", "Yield") + text("B1", "When") +
               "</row>"
               R"(<row r="2"><c r="A2"><v>1</v></c><c r="B2" s="1"><v>45000</v></c></row>)"
               R"(<row r="3"><c r="A3"><v>2</v></c><c r="B3" s="1"><v>45001</v></c></row>)"
               R"(<row r="4"><c r="A4"><f>A2*2</f></c><c r="B4"><v>3</v></c></row>)"
               R"(<row r="5"><c r="A5"><f>A3*2</f></c></row><row r="6"><c r="A6"><v>5</v></c></row>)");
  Parts parts = oneSheetPackage(sheet);
  for (auto& [name, content] : parts) {
    if (name == "xl/_rels/workbook.xml.rels") {
      content = workbookRels({{"rId1", "worksheet", "worksheets/sheet1.xml"}, {"rId2", "styles", "styles.xml"}});
    }
  }
  parts.emplace_back("xl/styles.xml",
                     R"(<styleSheet xmlns=")" + kMainNs +
                         R"("><cellXfs count="2"><xf numFmtId="0"/><xf numFmtId="14"/></cellXfs></styleSheet>)");
  return writeZip(where, parts);
}

TEST_F(CliTest, FormulasWithoutValuesAndDatesAreSaidOnStandardErrorAndInJson) {
  const fs::path file = uncalculatedWorkbook(dir / "uncalculated.xlsx");
  const std::vector<std::string> expected = {
      "2 formula cells in Data!$A$1:$B$6 have no saved value and are read as empty (the first, Data!$A$4): the "
      "file was saved by a program that does not calculate formulas; open it in a spreadsheet program, save it, "
      "and run again",
      "2 cells in Data!$A$1:$B$6 are formatted as dates or times (the first, Data!$B$2) and are analysed as serial "
      "day numbers"};
  const RunResult plain = run({"describe", file.string(), "-i", "Data!A1:B6", "--headers", "--count"});
  ASSERT_EQ(plain.exitCode, 0) << plain.err;
  EXPECT_EQ(words(lineStarting(plain.out, "Count")), (std::vector<std::string>{"Count", "3", "3"}));
  EXPECT_EQ(plain.err, "orvella: warning: " + expected[0] + "\norvella: warning: " + expected[1] + "\n");
  EXPECT_EQ(runJson({"describe", file.string(), "-i", "Data!A1:B6", "--headers", "--json"})["warnings"],
            Json(expected));
  // A range clear of both says nothing.
  EXPECT_EQ(run({"describe", file.string(), "-i", "Data!A1:A3", "--headers"}).err, "");
}

TEST_F(CliTest, AnglesBelowAGapAndNumericHeadersAreSaid) {
  const fs::path gaps =
      workbook("gaps.xlsx", {{"Bearing", {10.0, 20.0, CellValue(), 30.0, 40.0}}, {"Steady", cells({10, 20, 30})}});
  const RunResult circular = run({"circular", gaps.string(), "-i", "Data!A1:B6", "--headers", "--count"});
  ASSERT_EQ(circular.exitCode, 0) << circular.err;
  EXPECT_EQ(words(lineStarting(circular.out, "Count")), (std::vector<std::string>{"Count", "2", "3"}));
  EXPECT_EQ(circular.err,
            "orvella: warning: 2 values of \"Bearing\" (Data!$A$2:$A$6) below its first empty cell, Data!$A$4, are "
            "not analysed: a column of angles is read down to its first empty cell\n");

  const fs::path nums = textFile("nums.csv", "12,Name,7\n5,1,2\n6,3,4\n");
  const struct {
    std::string range;
    std::string warning;
  } cases[] = {
      {"A1:A3",
       "the header cell nums!$A$1 holds the number 12, not a name; is the first row data? (leave out "
       "--headers if so)"},
      {"A1:C3",
       "2 header cells of nums!$A$1:$C$3 hold numbers (the first, nums!$A$1 holds the number 12), not "
       "names; is the first row data? (leave out --headers if so)"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.range);
    const RunResult r = run({"describe", nums.string(), "-i", c.range, "--headers"});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.err, "orvella: warning: " + c.warning + "\n");
  }
}

TEST_F(CliTest, HeadersOverARangeWithoutDataRowsAreRefusedBeforeTheAnalysis) {
  const fs::path file = workbook("names.xlsx", {{"A", cells({1, 2})}, {"B", cells({3, 4})}});
  const std::string before = readFile(file);
  const std::string row = "below its header row: with --headers its first row";
  const struct {
    std::string command;
    std::string place;
  } cases[] = {
      {"describe -i Data!A1:B1", row},
      {"circular -i Data!A1:B1", row},
      {"frequency -i Data!A1:B1", row},
      {"describe -i Data!A2:A3,Data!B1", row},
      {"frequency -i Data!A1:A3 --rows", "right of its header column: with --headers its first column"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.command);
    const Args args = words(c.command + " --headers");
    const RunResult r = runOn(file, args);
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.err, "orvella: --input \"" + args[2] + "\" has no data " + c.place +
                         " holds names, which leaves nothing to analyse; include the data in --input, or leave out "
                         "--headers\n");
    EXPECT_EQ(r.out, "");
  }
  EXPECT_EQ(readFile(file), before);
}

}  // namespace
}  // namespace orv::test
