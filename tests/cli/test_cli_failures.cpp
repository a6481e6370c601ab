// orvella's failures: exit codes, messages a person can act on, and the input left untouched.

#include "cli_fixture.h"
#include "frame/errors.h"

namespace orv::test {
namespace {

TEST_F(CliTest, FailuresExplainThemselvesAndLeaveTheInputAlone) {
  const auto file = workbook("mixed.xlsx", {{"A", sequence(4)},
                                            {"B", {1.0, CellValue("n/a"), 3.0, 4.0}},
                                            {"C", sequence(4)},
                                            {"Falling", cells({30, 20, 10})},
                                            {"Weight", cells({1, 1, 2})},
                                            {"Full", cells({0, 90, 360})},
                                            {"Over", cells({0, 90, 360.5})},
                                            {"Under", cells({-1, 90, 180})}});
  const std::string before = readFile(file);
  struct Case {
    const char* name;
    std::string command;  // the command, then what follows the file
    int exitCode;
    std::vector<std::string> messageParts;
  };
  const std::string outside = std::to_string(err::kCircularInput);
  const std::string notIncreasing = std::to_string(err::kBinsNotIncreasing);
  const std::vector<Case> cases = {
      {"bad reference", "describe -i Nosheet!A1:A5", 1, {"Nosheet", "[error 1004"}},
      {"text among numbers", "describe -i Data!B1:B5 --headers", 1, {"Data!$B$3", "\"n/a\"", "--headers"}},
      {"areas of different heights",
       "describe -i Data!A2:A5,C2:C4",
       1,
       {"different numbers of rows", "Data!A2:A5,C2:C4", "-2147216466", "clsDS.Results"}},
      {"occupied output", "describe -i Data!A2:A5 --output Data!B1", 1, {"already holds data", "--overwrite"}},
      {"unwritable output", "describe -i Data!A2:A5 -o /nonexistent-dir/out.xlsx", 1, {"/nonexistent-dir"}},
      {"percentile out of range", "describe -i Data!A2:A5 --percentiles 120", 2, {"--percentiles"}},
      {"a chart's title without the chart",
       "describe -i Data!A2:A5 --box-title Heights -o x.xlsx",
       2,
       {"--box-title shapes the chart that --box-plot draws", "add --box-plot"}},
      {"error bars without the error plot",
       "describe -i Data!A2:A5 --error-bars Range",
       2,
       {"--error-bars", "--error-plot"}},
      {"a histogram's line without the histogram",
       "frequency -i Data!A1:A5 --cumulative",
       2,
       {"--cumulative shapes the chart that --histogram draws"}},
      {"360 is an angle", "circular -i Data!F1:F4 --headers", 0, {}},
      {"above 360", "circular -i Data!G1:G4 --headers", 1, {"outside 0 to 360", outside, "clsDSCirc.Results"}},
      {"below 0", "circular -i Data!H1:H4 --headers", 1, {"outside 0 to 360", outside}},
      {"no such sheet", "circular -i Nosheet!A1:A4 --headers", 1, {"Nosheet!A1:A4", outside}},
      {"falling bins",
       "frequency -i Data!A1:A5 --headers --bins Data!D1:D4",
       1,
       {"strictly increase", notIncreasing, "clsFreq.Results"}},
      {"weights shorter than the data",
       "frequency -i Data!A1:A5 --headers --frequencies Data!E1:E4",
       1,
       {"as many cells", std::to_string(err::kFrequencyShape)}},
      {"bins alone",
       "frequency --headers --bins Data!D1:D4",
       1,
       {"--frequencies", std::to_string(err::kBinsWithoutFrequencies)}},
      {"nothing to count", "frequency --headers", 1, {"--input", std::to_string(err::kNoInputRange)}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const RunResult r = runOn(file, words(c.command));
    EXPECT_EQ(r.exitCode, c.exitCode) << r.err;
    for (const std::string& part : c.messageParts) EXPECT_NE(r.err.find(part), std::string::npos) << r.err;
    EXPECT_EQ(r.out.empty(), c.exitCode != 0) << r.out;
    EXPECT_EQ(readFile(file), before);
  }
}

}  // namespace
}  // namespace orv::test
