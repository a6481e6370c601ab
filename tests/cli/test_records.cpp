// --json and --csv give records: per column its name, cells and statistics keyed by row label,
// or its frequency tables; "-" and "n/a" as null with the reason beside; failures as an error
// object.

#include <charconv>

#include "cli_fixture.h"

namespace orv::test {
namespace {

double parsed(const std::string& text) {
  double x = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), x);
  EXPECT_TRUE(failure == std::errc() && end == text.data() + text.size()) << text;
  return x;
}

using RecordsTest = CliTest;

TEST_F(RecordsTest, DescribeRecordsFollowTheBlockWithCountsAsIntegersAndReasonsForDashes) {
  const auto file = workbook("d.xlsx", {{"Even", cells({2, 4, 4, 4, 5, 5, 7, 9})},
                                        {"Flat", cells({3, 3, 3, 3, 3, 3, 3, 3, 3})},
                                        {"Weight, \"kg\"", sequence(8)}});
  const Json doc = runJson({"describe", file.string(), "-i", "Data!A1:C10", "--headers", "--all", "--json"});
  std::vector<std::string> keys;
  for (const auto& [key, value] : doc.items()) keys.push_back(key);
  EXPECT_EQ(keys, (std::vector<std::string>{"analysis", "input", "options", "columns", "warnings", "output", "block"}));
  EXPECT_EQ(doc["input"], "Data!$A$1:$C$10");

  // Every column's statistics are the block's rows, in the block's order.
  const Json& block = doc["block"];
  ASSERT_EQ(doc["columns"].size(), 3u);
  for (std::size_t c = 0; c < 3; ++c) {
    const Json& column = doc["columns"][c];
    SCOPED_TRACE(column["name"].get<std::string>());
    EXPECT_EQ(column["name"], block[3][c + 1]);
    std::size_t row = 4;
    for (const auto& [label, value] : column["statistics"].items()) {
      ASSERT_EQ(block[row][0], label);
      const Json& cell = block[row++][c + 1];
      if (cell == "-") {
        EXPECT_TRUE(value.is_null());
        EXPECT_TRUE(column["unavailable"].contains(label)) << label;
      } else {
        EXPECT_EQ(value, cell) << label;
        EXPECT_FALSE(column["unavailable"].contains(label)) << label;
      }
    }
    EXPECT_TRUE(block[row][0].is_null());  // all rows taken
    EXPECT_TRUE(column["statistics"]["Count"].is_number_integer());
  }
  EXPECT_EQ(doc["columns"][0]["range"], "Data!$A$2:$A$10");
  EXPECT_EQ(doc["columns"][1]["range"], "Data!$B$2:$B$10");

  const struct {
    std::size_t column;
    std::string label;
    std::string reason;
  } reasons[] = {
      {0, "P(Skewness)", "needs at least 9 observations; the column has 8"},
      {0, "P(Kurtosis)", "needs at least 20 observations; the column has 8"},
      {1, "Skewness", "all observations are equal, so the standard deviation is 0"},
      {1, "Kurtosis", "all observations are equal, so the standard deviation is 0"},
      {1, "P(Skewness)", "all observations are equal, so the standard deviation is 0"},
      {1, "P(Kurtosis)", "needs at least 20 observations; the column has 9"},
      {2, "Mode", "no value occurs more than once"},
  };
  for (const auto& r : reasons) {
    SCOPED_TRACE(r.label);
    EXPECT_EQ(doc["columns"][r.column]["unavailable"][r.label], r.reason);
  }
  EXPECT_EQ(doc["columns"][0]["statistics"]["Mode"], 4.0);  // a single mode reads back as a number
  EXPECT_EQ(doc["columns"][0]["unavailable"].size(), 2u);
}

TEST_F(RecordsTest, NotesOnKeptRulesStandBesideTheValuesTheyChanged) {
  const auto angles = workbook("a.xlsx", {{"South-west", cells({200, 210, 220, 205})}});
  Json doc = runJson({"circular", angles.string(), "-i", "Data!A1:A5", "--headers", "--mean-angle", "--json"});
  const Json& mean = doc["columns"][0]["notes"]["Mean Angle"];
  // The table reads the direction reflected about the horizontal axis into the fourth quadrant.
  const double textbook = mean["textbook"].get<double>();
  EXPECT_NEAR(textbook, 208.75, 0.01);
  EXPECT_NEAR(doc["columns"][0]["statistics"]["Mean Angle"].get<double>(), 360 - (textbook - 180), 1e-9);
  ASSERT_EQ(doc["warnings"].size(), 1u);
  EXPECT_EQ(mean["note"], doc["warnings"][0]);

  // From 217 observations on the kept rules give no kurtosis, and say why.
  const auto many = workbook("k.xlsx", {{"n216", sequence(216)}, {"n217", sequence(217)}});
  doc = runJson({"describe", many.string(), "-i", "Data!A1:B218", "--headers", "--kurtosis", "--mean", "--json"});
  EXPECT_TRUE(doc["columns"][0]["statistics"]["Kurtosis"].is_number());
  EXPECT_TRUE(doc["columns"][0]["statistics"]["P(Kurtosis)"].is_number());
  const Json& column = doc["columns"][1];
  EXPECT_TRUE(column["notes"]["Kurtosis"]["textbook"].is_number());
  EXPECT_TRUE(column["statistics"]["Kurtosis"].is_null());
  EXPECT_FALSE(column["notes"].contains("Mean"));
  const std::string reason = column["unavailable"]["Kurtosis"];
  EXPECT_NE(reason.find("from 217 observations on"), std::string::npos) << reason;
  EXPECT_NE(reason.find("the column has 217"), std::string::npos) << reason;
  EXPECT_EQ(column["unavailable"]["P(Kurtosis)"], reason);
  doc = runJson({"describe", many.string(), "-i", "Data!A1:B218", "--headers", "--kurtosis", "--textbook", "--json"});
  EXPECT_TRUE(doc["columns"][1]["statistics"]["Kurtosis"].is_number());
  EXPECT_TRUE(doc["columns"][1]["notes"].empty());

  // Textbook arithmetic tests the kurtosis from 5 observations on.
  const auto few = workbook("few.xlsx", {{"n4", sequence(4)}});
  doc = runJson({"describe", few.string(), "-i", "Data!A1:A5", "--headers", "--kurtosis", "--textbook", "--json"});
  EXPECT_EQ(doc["columns"][0]["unavailable"]["P(Kurtosis)"], "needs at least 5 observations; the column has 4");
}

TEST_F(RecordsTest, CircularConfidenceLimitSaysWhyItIsNotAvailable) {
  const auto file = workbook("c.xlsx", {{"Few", cells({10, 20, 30, 40, 50})},
                                        {"Spread", cells({0, 60, 120, 180, 240, 300, 30, 90})},
                                        {"Close", cells({10, 12, 14, 11, 13, 9, 15, 10})}});
  const Json doc = runJson({"circular", file.string(), "-i", "Data!A1:C9", "--headers", "--cl", "--count", "--json"});
  const Json& columns = doc["columns"];
  EXPECT_EQ(columns[0]["unavailable"]["95%CL (±)"], "needs at least 8 angles; the column has 5");
  const std::string spread = columns[1]["unavailable"]["95%CL (±)"];
  EXPECT_TRUE(spread.starts_with("the angles are too dispersed: the mean vector is 0.2165")) << spread;
  EXPECT_TRUE(columns[2]["statistics"]["95%CL (±)"].is_number());
  EXPECT_TRUE(columns[2]["unavailable"].empty());
  EXPECT_EQ(columns[0]["statistics"]["Count"], 5);
  EXPECT_EQ(columns[0]["range"], "Data!$A$2:$A$9");
}

TEST_F(RecordsTest, NominalAndSideBySideVariablesGetATableEach) {
  const auto file = workbook("f.xlsx", {{"A", {"x", "y", "x"}}, {"B", {"z", "z", "z"}}});
  const Json doc = runJson({"frequency", file.string(), "-i", "Data!A1:B4", "--headers", "--nominal", "--json"});
  ASSERT_EQ(doc["columns"].size(), 2u);
  const Json& a = doc["columns"][0]["tables"]["Frequency Distribution"];
  const Json& b = doc["columns"][1]["tables"]["Frequency Distribution"];
  ASSERT_EQ(a.size(), 2u);
  EXPECT_EQ(a[0]["category"], "x");
  EXPECT_EQ(a[0]["n"], 2);
  EXPECT_EQ(a[1]["category"], "y");
  ASSERT_EQ(b.size(), 1u);
  EXPECT_EQ(b[0]["cumulative_percent"], 100.0);
  EXPECT_EQ(doc["columns"][1]["range"], "Data!$B$2:$B$4");
}

TEST_F(RecordsTest, CsvHoldsTheSameRecordsQuotedForReaders) {
  const auto file = workbook("d.xlsx", {{"Weight, \"kg\"", sequence(8)}, {"Mode 2, 3", cells({1, 2, 2, 3, 3})}});
  const std::string command = "describe FILE -i Data!A1:B9 --headers --all";
  const RunResult r = run(commandLine(command + " --csv", file.string()));
  ASSERT_EQ(r.exitCode, 0) << r.err;
  const Json doc = runJson(commandLine(command + " --json", file.string()));
  const auto records = csvRecords(r.out);
  ASSERT_FALSE(records.empty());
  EXPECT_EQ(records[0], (std::vector<std::string>{"column", "statistic", "value"}));
  std::size_t line = 1;
  for (const Json& column : doc["columns"]) {
    for (const auto& [label, value] : column["statistics"].items()) {
      SCOPED_TRACE(label);
      ASSERT_LT(line, records.size());
      const std::vector<std::string>& fields = records[line++];
      ASSERT_EQ(fields.size(), 3u);
      EXPECT_EQ(fields[0], column["name"]);
      EXPECT_EQ(fields[1], label);
      if (value.is_null()) {
        EXPECT_EQ(fields[2], "");
      } else if (value.is_string()) {
        EXPECT_EQ(fields[2], value.get<std::string>());
      } else {
        EXPECT_EQ(parsed(fields[2]), value.get<double>());  // full precision
      }
    }
  }
  EXPECT_EQ(line, records.size());
  EXPECT_NE(r.out.find("\"Weight, \"\"kg\"\"\",Mean,4.5\n"), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("\"Mode 2, 3\",Mode,\"2, 3\"\n"), std::string::npos) << r.out;
}

TEST_F(RecordsTest, FailuresWithJsonAreAnErrorObject) {
  const auto file = workbook("d.xlsx", {{"A", sequence(3)}});
  const struct {
    std::vector<std::string> args;
    int exitCode;
    std::string message;  // the start of it
    bool numbered;
  } cases[] = {
      {{"describe", file.string(), "-i", "Data!A1:A4", "--json"}, 1, "Cell Data!$A$1 holds the text \"A\"", true},
      {{"describe", (dir / "none.xlsx").string(), "-i", "A1", "--json"}, 1, "cannot open", false},
      {{"describe", file.string(), "-i", "Data!A1:A4", "--json", "--csv"}, 2, "give either --json or --csv", false},
      {{"describe", file.string(), "-i", "Data!A1:A4", "--json", "--mena"}, 2, "describe has no option --mena", false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.message);
    const RunResult r = run(c.args);
    EXPECT_EQ(r.exitCode, c.exitCode);
    const Json doc = Json::parse(r.out);
    const Json& error = doc["error"];
    EXPECT_TRUE(error["message"].get<std::string>().starts_with(c.message)) << error;
    EXPECT_EQ(error["number"].is_number_integer(), c.numbered) << error;
    EXPECT_EQ(error["source"].is_string(), c.numbered) << error;
    // The line on standard error says the same.
    EXPECT_NE(r.err.find(error["message"].get<std::string>()), std::string::npos) << r.err;
  }
}

}  // namespace
}  // namespace orv::test
