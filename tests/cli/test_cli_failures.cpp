// orvella's failures: exit codes, messages a person can act on, and the input left untouched.

#include "cli_fixture.h"

namespace orv::test {
namespace {

struct FailureCase {
  const char* name;
  std::vector<std::string> args;  // after "describe FILE"
  int exitCode;
  std::vector<std::string> messageParts;
};

TEST_F(CliTest, FailuresExplainThemselvesAndLeaveTheInputAlone) {
  const auto file = workbook("mixed.xlsx", {{"A", {1.0, 2.0, 3.0, 4.0}},
                                            {"B", {1.0, CellValue("n/a"), 3.0, 4.0}},
                                            {"C", {1.0, 2.0, 3.0, 4.0}}});
  const std::string before = readFile(file);
  const std::vector<FailureCase> cases = {
      {"bad reference", {"-i", "Nosheet!A1:A5"}, 1, {"Nosheet", "[error 1004"}},
      {"garbage reference", {"-i", "A1:?"}, 1, {"A1:?"}},
      {"text among numbers", {"-i", "Data!B1:B5", "--headers"}, 1, {"Data!$B$3", "\"n/a\"", "--headers"}},
      {"areas of different heights", {"-i", "Data!A2:A5,C2:C4"}, 1, {"different numbers of rows", "Data!A2:A5,C2:C4", "-2147216466", "clsDS.Results"}},
      {"occupied output", {"-i", "Data!A2:A5", "--output", "Data!B1"}, 1, {"already holds data", "--overwrite"}},
      {"unwritable output", {"-i", "Data!A2:A5", "-o", "/nonexistent-dir/out.xlsx"}, 1, {"/nonexistent-dir"}},
      {"wrong output type", {"-i", "Data!A2:A5", "-o", "out.csv"}, 2, {".xlsx"}},
      {"both outputs", {"-i", "Data!A2:A5", "-o", "x.xlsx", "--in-place"}, 2, {"--in-place"}},
      {"missing input option", {}, 2, {"--input"}},
      {"percentile out of range", {"-i", "Data!A2:A5", "--percentiles", "120"}, 2, {"--percentiles"}},
      {"centre spelt otherwise", {"-i", "Data!A2:A5", "--error-plot", "--error-centre", "mean"}, 2, {"--error-centre"}},
      {"bars spelt otherwise", {"-i", "Data!A2:A5", "--error-plot", "--error-bars", "SE"}, 2, {"--error-bars"}},
  };
  for (const FailureCase& c : cases) {
    SCOPED_TRACE(c.name);
    std::vector<std::string> args = {"describe", file.string()};
    args.insert(args.end(), c.args.begin(), c.args.end());
    const RunResult r = run(args);
    EXPECT_EQ(r.exitCode, c.exitCode) << r.err;
    for (const std::string& part : c.messageParts) EXPECT_NE(r.err.find(part), std::string::npos) << r.err;
    EXPECT_TRUE(r.out.empty()) << r.out;
    EXPECT_EQ(readFile(file), before);
  }
}

TEST_F(CliTest, MissingAndCorruptFiles) {
  RunResult r = run({"describe", (dir / "nosuch.xlsx").string(), "-i", "A1"});
  EXPECT_EQ(r.exitCode, 2);
  EXPECT_NE(r.err.find("nosuch.xlsx"), std::string::npos) << r.err;

  const auto corrupt = dir / "corrupt.xlsx";
  std::ofstream(corrupt) << "PK\x03\x04 this is not really a zip";
  r = run({"describe", corrupt.string(), "-i", "A1"});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_NE(r.err.find("corrupt.xlsx"), std::string::npos) << r.err;
}

TEST_F(CliTest, HelpAndVersion) {
  const RunResult version = run({"--version"});
  EXPECT_EQ(version.exitCode, 0);
  EXPECT_NE(version.out.find("orvella"), std::string::npos);
  const RunResult help = run({"describe", "--help"});
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_NE(help.out.find("Examples:"), std::string::npos);
  EXPECT_NE(help.out.find("--percentiles"), std::string::npos);
  EXPECT_EQ(run({}).exitCode, 2);
}

}  // namespace
}  // namespace orv::test
