// orvella frequency on generated workbooks: a binned table as printed, as records and as written,
// the warning about empty cells counted as 0.

#include "cli_fixture.h"

namespace orv::test {
namespace {

// Ten reaction times, ten answers, and bins 200, 250, 300 (equal widths: the last closes at 350).
const Columns kSurvey = {
    {"Time", cells({212, 260, 199, 305, 251, 249, 360, 300, 275, 350})},
    {"Fruit", {"Pear", "Fig", "Pear", "fig", "Fig", "Pear", "Kiwi", "Pear", "Fig", "Kiwi"}},
    {"Bin", cells({200, 250, 300})},
};

// The open categories' marks are number formats of the category cells: the printed table shows
// them as the sheet does (percentages with the sheet's two decimals), the CSV as text, and the
// records as an "open" member beside the number; the --json block is what the workbook holds.
// Whole-column bins are cut to the used rows.
TEST_F(CliTest, FrequencyBinnedTableReadsTheSamePrintedAsJsonAndAsCsv) {
  const struct {
    std::string shown;
    double category;
    std::string open;
    int n, cumulative;
  } rows[] = {{"<200", 200, "<", 1, 1},
              {"200", 200, "", 2, 3},
              {"250", 250, "", 3, 6},
              {"300", 300, "", 2, 8},
              {">=350", 350, ">=", 2, 10}};
  const auto file = workbook("survey.xlsx", kSurvey);
  const Args args = {"frequency", file.string(), "-i", "Data!A1:A11", "--headers", "--bins", "Data!C:C"};
  const RunResult printed = run(args);
  ASSERT_EQ(printed.exitCode, 0) << printed.err;
  std::istringstream table(printed.out.substr(printed.out.find("Frequency Distribution (Bin)")));
  std::vector<std::vector<std::string>> lines;
  for (std::string line; std::getline(table, line);) lines.push_back(words(line));
  Args more = args;
  more.emplace_back("--csv");
  const RunResult csv = run(more);
  ASSERT_EQ(csv.exitCode, 0) << csv.err;
  EXPECT_EQ(csv.err, "");  // no "Results written" line: nothing was written
  const auto records = csvRecords(csv.out);
  more.back() = "--raw";
  more.insert(more.end(), {"--json", "-o", (dir / "out.xlsx").string()});
  const Json doc = runJson(more);
  EXPECT_EQ(doc["analysis"], "frequency");
  EXPECT_EQ(doc["options"]["bins"], "Data!C:C");
  EXPECT_EQ(doc["block"][2][0], "Bin Range = Data!$C$1:$C$11");
  expectSheetHolds(doc["block"], open(dir / "out.xlsx").Worksheets(doc["output"]["sheet"].get<std::string>()));
  const Json& column = doc["columns"][0];
  EXPECT_EQ(column["name"], "Time");
  EXPECT_EQ(column["range"], "Data!$A$2:$A$11");
  EXPECT_EQ(column["tables"]["Frequency Distribution"].size(), 10u);  // every time is distinct
  const Json& binned = column["tables"]["Frequency Distribution (Bin)"];

  ASSERT_EQ(lines.size(), std::size(rows) + 2);
  ASSERT_EQ(records.size(), std::size(rows) + 1);
  ASSERT_EQ(binned.size(), std::size(rows));
  EXPECT_EQ(lines[0], (std::vector<std::string>{"Frequency", "Distribution", "(Bin)"}));
  EXPECT_EQ(lines[1], (std::vector<std::string>{"Time", "N", "Cum.", "N", "%", "Cum.", "%"}));
  EXPECT_EQ(records[0], (std::vector<std::string>{"column", "table", "category", "n", "cumulative_n", "percent",
                                                  "cumulative_percent"}));
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    const auto& row = rows[i];
    SCOPED_TRACE(row.shown);
    const auto n = std::to_string(row.n), cumulative = std::to_string(row.cumulative);
    const auto percent = std::to_string(row.n * 10), cumulativePercent = std::to_string(row.cumulative * 10);
    EXPECT_EQ(lines[i + 2],
              (std::vector<std::string>{row.shown, n, cumulative, percent + ".00", cumulativePercent + ".00"}));
    EXPECT_EQ(records[i + 1], (std::vector<std::string>{"Time", "Frequency Distribution (Bin)", row.shown, n,
                                                        cumulative, percent, cumulativePercent}));
    EXPECT_EQ(binned[i]["category"].get<double>(), row.category);
    EXPECT_EQ(binned[i].value("open", ""), row.open);
    EXPECT_TRUE(binned[i]["n"].is_number_integer());
    EXPECT_EQ(binned[i]["n"], row.n);
    EXPECT_EQ(binned[i]["cumulative_n"], row.cumulative);
    EXPECT_DOUBLE_EQ(binned[i]["percent"].get<double>(), row.n * 10.0);
    EXPECT_DOUBLE_EQ(binned[i]["cumulative_percent"].get<double>(), row.cumulative * 10.0);
  }
}

TEST_F(CliTest, FrequencyWarnsWhenEmptyCellsAreCountedAsZero) {
  const auto file = workbook("survey.xlsx", kSurvey);
  const std::string twoBelow = "2 empty cells of \"Time\" (Data!$A$2:$A$13) are counted as the value 0";
  const struct {
    const char* name;
    Args args;
    std::string warning;  // empty: none expected
  } cases[] = {
      {"binned, two cells below the data", {"-i", "Data!A1:A13", "--headers", "--bins", "Data!C1:C4"}, twoBelow},
      {"an unqualified reference reads the data sheet, not the results sheet",
       {"-i", "A1:A13", "--headers", "--bins", "C1:C4"},
       twoBelow},
      {"binned without headers",
       {"-i", "Data!A2:A12", "--bins", "Data!C2:C4"},
       "1 empty cell of \"Column A\" (Data!$A$2:$A$12) is counted as the value 0"},
      {"nominal counting leaves empty cells out", {"-i", "Data!B1:B13", "--headers", "--nominal"}, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Args args = {"frequency", file.string(), "--json"};
    args.insert(args.end(), c.args.begin(), c.args.end());
    const RunResult r = run(args);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    const Json warnings = Json::parse(r.out)["warnings"];
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
