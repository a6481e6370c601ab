// orvella frequency on generated workbooks: nominal and binned tables as printed and written,
// pre-counted data, the warning about empty cells counted as 0, and the failures.

#include "cli_fixture.h"
#include "frame/errors.h"
#include "xlsx/reader_workbook.h"

namespace orv::test {
namespace {

// Ten reaction times, ten answers, and bins 200, 250, 300 (equal widths: the last closes at 350).
const std::vector<std::pair<std::string, std::vector<CellValue>>> kSurvey = {
    {"Time", {212.0, 260.0, 199.0, 305.0, 251.0, 249.0, 360.0, 300.0, 275.0, 350.0}},
    {"Fruit", {"Pear", "Fig", "Pear", "fig", "Fig", "Pear", "Kiwi", "Pear", "Fig", "Kiwi"}},
    {"Bin", {200.0, 250.0, 300.0}},
};

TEST_F(CliTest, FrequencyCountsItemsInOrderOfFirstAppearance) {
  const auto file = workbook("survey.xlsx", kSurvey);
  const std::string before = readFile(file);
  const RunResult r = run({"frequency", file.string(), "--input", "Data!B1:B11", "--headers", "--nominal"});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_TRUE(r.err.empty()) << r.err;
  const std::vector<std::vector<std::string>> expected = {
      {"Fruit", "N", "Cum.", "N", "%", "Cum.", "%"},
      {"Pear", "4", "4", "40.00", "40.00"},
      {"Fig", "3", "7", "30.00", "70.00"},
      {"fig", "1", "8", "10.00", "80.00"},
      {"Kiwi", "2", "10", "20.00", "100.00"},
  };
  for (const auto& line : expected) {
    SCOPED_TRACE(line.front());
    EXPECT_EQ(words(lineStarting(r.out, line.front() + " ")), line) << r.out;
  }
  EXPECT_EQ(readFile(file), before);
}

TEST_F(CliTest, FrequencyBinnedJsonBlockIsWhatTheWorkbookHolds) {
  const auto file = workbook("survey.xlsx", kSurvey);
  const std::string before = readFile(file);
  const auto out = dir / "out.xlsx";
  const RunResult r = run({"frequency", file.string(), "-i", "Data!A1:A11", "--headers", "--bins",
                           "Data!C:C", "--json", "-o", out.string()});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_EQ(readFile(file), before);
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
      {"Frequency", "Distribution", "(Bin)"},
      {"Time", "N", "Cum.", "N", "%", "Cum.", "%"},
      {"<200", "1", "1", "10.00", "10.00"},
      {"200", "2", "3", "20.00", "30.00"},
      {"250", "3", "6", "30.00", "60.00"},
      {"300", "2", "8", "20.00", "80.00"},
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
      {"binned, two cells below the data", {"-i", "Data!A1:A13", "--headers", "--bins", "Data!C1:C4"},
       "2 empty cells of \"Time\" (Data!$A$2:$A$13) are counted as the value 0"},
      {"binned without headers", {"-i", "Data!A2:A12", "--bins", "Data!C2:C4"},
       "1 empty cell of \"Column A\" (Data!$A$2:$A$12) is counted as the value 0"},
      {"proposed bins for a histogram", {"-i", "Data!A1:A12", "--headers", "--histogram"},
       "1 empty cell of \"Time\""},
      {"raw counting leaves empty cells out", {"-i", "Data!A1:A13", "--headers"}, ""},
      {"nominal counting leaves empty cells out", {"-i", "Data!B1:B13", "--headers", "--nominal", "--bins", "Data!C1:C4"}, ""},
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

TEST_F(CliTest, FrequencyPreCountedBinsAndHistogramOptions) {
  const auto file = workbook("counts.xlsx", {{"Bin", {0.0, 10.0, 20.0}}, {"Seen", {4.0, 5.0, 1.0}}});
  const RunResult r = run({"frequency", file.string(), "--bins", "Data!A1:A4", "--frequencies",
                           "Data!B1:B4", "--headers", "--histogram", "--no-normal", "--cumulative",
                           "--title", "Sightings", "--start-points", "--json"});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  const nlohmann::json doc = nlohmann::json::parse(r.out);
  EXPECT_EQ(doc["options"]["histogram"]["normal"], false);
  EXPECT_EQ(doc["options"]["histogram"]["cumulative"], true);
  EXPECT_EQ(doc["options"]["histogram"]["title"], "Sightings");
  EXPECT_EQ(doc["options"]["categoryStartPoints"], true);
  const nlohmann::json& block = doc["block"];
  const std::size_t heading = rowLabelled(block, "Frequency Distribution (Bin)");
  ASSERT_LT(heading + 3, block.size());
  EXPECT_EQ(block[heading + 1][0], "Seen");
  EXPECT_EQ(block[heading + 2][1], 4.0);
  EXPECT_EQ(block[heading + 3][2], 9.0);  // cumulative
}

TEST_F(CliTest, FrequencyFailuresExplainThemselves) {
  const auto file = workbook("bad.xlsx", {{"Time", {1.0, 2.0, 3.0, 4.0}},
                                          {"Falling", {30.0, 20.0, 10.0}},
                                          {"Gap", {10.0, CellValue(), 30.0}},
                                          {"Weight", {1.0, 1.0, 2.0}}});
  const std::string before = readFile(file);
  struct Case {
    const char* name;
    std::vector<std::string> args;
    int exitCode;
    std::vector<std::string> messageParts;
  };
  const std::string notIncreasing = std::to_string(err::kBinsNotIncreasing);
  const std::vector<Case> cases = {
      {"falling bins", {"-i", "Data!A1:A5", "--bins", "Data!B1:B4"}, 1, {"strictly increase", notIncreasing, "clsFreq.Results"}},
      {"a gap among the bins", {"-i", "Data!A1:A5", "--bins", "Data!C1:C4"}, 1, {"strictly increase", notIncreasing}},
      {"weights shorter than the data", {"-i", "Data!A1:A5", "--frequencies", "Data!D1:D4"}, 1,
       {"as many cells", std::to_string(err::kFrequencyShape)}},
      {"bins alone", {"--bins", "Data!B1:B4"}, 1, {"--frequencies", std::to_string(err::kBinsWithoutFrequencies)}},
      {"nothing to count", {}, 1, {"--input", std::to_string(err::kNoInputRange)}},
      {"bad reference", {"-i", "Data!A1:?"}, 1, {"A1:?"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    std::vector<std::string> args = {"frequency", file.string(), "--headers"};
    args.insert(args.end(), c.args.begin(), c.args.end());
    const RunResult r = run(args);
    EXPECT_EQ(r.exitCode, c.exitCode) << r.err;
    for (const std::string& part : c.messageParts) EXPECT_NE(r.err.find(part), std::string::npos) << r.err;
    EXPECT_TRUE(r.out.empty()) << r.out;
    EXPECT_EQ(readFile(file), before);
  }
}

}  // namespace
}  // namespace orv::test
