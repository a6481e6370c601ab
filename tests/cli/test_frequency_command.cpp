// orvella frequency on generated workbooks: a binned table as printed and written, the warning
// about empty cells counted as 0.

#include "cli_fixture.h"
#include "xlsx/reader_workbook.h"

namespace orv::test {
namespace {

// Ten reaction times, ten answers, and bins 200, 250, 300 (equal widths: the last closes at 350).
const std::vector<std::pair<std::string, std::vector<CellValue>>> kSurvey = {
    {"Time", {212.0, 260.0, 199.0, 305.0, 251.0, 249.0, 360.0, 300.0, 275.0, 350.0}},
    {"Fruit", {"Pear", "Fig", "Pear", "fig", "Fig", "Pear", "Kiwi", "Pear", "Fig", "Kiwi"}},
    {"Bin", {200.0, 250.0, 300.0}},
};

TEST_F(CliTest, FrequencyBinnedJsonBlockIsWhatTheWorkbookHolds) {
  const auto file = workbook("survey.xlsx", kSurvey);
  const auto out = dir / "out.xlsx";
  const RunResult r = run({"frequency", file.string(), "-i", "Data!A1:A11", "--headers", "--bins", "Data!C:C", "--json",
                           "-o", out.string()});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  const nlohmann::json doc = nlohmann::json::parse(r.out);
  EXPECT_EQ(doc["analysis"], "frequency");
  EXPECT_EQ(doc["options"]["bins"], "Data!C:C");
  const nlohmann::json& block = doc["block"];
  EXPECT_EQ(block[2][0], "Bin Range = Data!$C$1:$C$11");  // the whole column, cut to the used rows

  InMemoryApplication app;
  InMemoryWorkbook& book = openWorkbookFile(app, out).book;
  expectSheetHolds(block, book.Worksheets(doc["output"]["sheet"].get<std::string>()));
}

TEST_F(CliTest, FrequencyPrintsTheOpenCategoriesWithTheirMarks) {
  const auto file = workbook("survey.xlsx", kSurvey);
  const RunResult r = run({"frequency", file.string(), "-i", "Data!A1:A11", "--headers", "--bins", "Data!C1:C4"});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  // The marks are number formats of the category cells; the printed table shows them as the
  // sheet does, and the percentages with the sheet's two decimals.
  const std::string table = r.out.substr(r.out.find("Frequency Distribution (Bin)"));
  std::vector<std::vector<std::string>> rows;
  std::istringstream in(table);
  for (std::string line; std::getline(in, line);) rows.push_back(words(line));
  const std::vector<std::vector<std::string>> expected = {
      {"Frequency", "Distribution", "(Bin)"},  {"Time", "N", "Cum.", "N", "%", "Cum.", "%"},
      {"<200", "1", "1", "10.00", "10.00"},    {"200", "2", "3", "20.00", "30.00"},
      {"250", "3", "6", "30.00", "60.00"},     {"300", "2", "8", "20.00", "80.00"},
      {">=350", "2", "10", "20.00", "100.00"},
  };
  EXPECT_EQ(rows, expected) << table;
}

TEST_F(CliTest, FrequencyWarnsWhenEmptyCellsAreCountedAsZero) {
  const auto file = workbook("survey.xlsx", kSurvey);
  struct Case {
    const char* name;
    std::vector<std::string> args;
    std::string warning;  // empty: none expected
  };
  const std::vector<Case> cases = {
      {"binned, two cells below the data",
       {"-i", "Data!A1:A13", "--headers", "--bins", "Data!C1:C4"},
       "2 empty cells of \"Time\" (Data!$A$2:$A$13) are counted as the value 0"},
      {"an unqualified reference reads the data sheet, not the results sheet",
       {"-i", "A1:A13", "--headers", "--bins", "C1:C4"},
       "2 empty cells of \"Time\" (Data!$A$2:$A$13) are counted as the value 0"},
      {"binned without headers",
       {"-i", "Data!A2:A12", "--bins", "Data!C2:C4"},
       "1 empty cell of \"Column A\" (Data!$A$2:$A$12) is counted as the value 0"},
      {"nominal counting leaves empty cells out", {"-i", "Data!B1:B13", "--headers", "--nominal"}, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    std::vector<std::string> args = {"frequency", file.string(), "--json"};
    args.insert(args.end(), c.args.begin(), c.args.end());
    const RunResult r = run(args);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    const nlohmann::json warnings = nlohmann::json::parse(r.out)["warnings"];
    if (c.warning.empty()) {
      EXPECT_TRUE(r.err.empty()) << r.err;
      EXPECT_TRUE(warnings.empty()) << warnings;
    } else {
      EXPECT_NE(r.err.find("orvella: warning: " + c.warning), std::string::npos) << r.err;
      ASSERT_EQ(warnings.size(), 1u);
      EXPECT_NE(warnings[0].get<std::string>().find(c.warning), std::string::npos) << warnings;
    }
  }
}

}  // namespace
}  // namespace orv::test
