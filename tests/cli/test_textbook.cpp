// orvella --textbook, and the notes the default arithmetic leaves on standard error and in --json.

#include "../descriptive/reference_samples.h"
#include "cli_fixture.h"

namespace orv::test {
namespace {

// "orvella: warning: " lines of standard error.
std::vector<std::string> warningLines(const std::string& err) {
  std::vector<std::string> out;
  std::istringstream in(err);
  for (std::string line; std::getline(in, line);) {
    if (line.rfind("orvella: warning: ", 0) == 0) out.push_back(line.substr(18));
  }
  return out;
}

// iris$Petal.Length: kurtosis -1.40, so the kept rules test only its size (0.011 where
// scipy.stats.kurtosistest gives 1.037e-49).
TEST_F(CliTest, DefaultRunsNoteTheKeptRulesTextbookRunsSayTheirArithmetic) {
  const auto file = workbook("iris.xlsx", {{"Petal", cells(samples::kIrisPetalLength)}});
  const std::string command = "describe FILE -i Data!A1:A151 --headers --kurtosis";
  const RunResult kept = run(commandLine(command, file.string()));
  ASSERT_EQ(kept.exitCode, 0) << kept.err;
  EXPECT_EQ(lineStarting(kept.out, "Textbook"), "");
  const std::vector<std::string> notes = warningLines(kept.err);
  ASSERT_EQ(notes.size(), 1u) << kept.err;
  EXPECT_EQ(notes[0],
            "P(Kurtosis) of \"Petal\" (Data!$A$2:$A$151) is 0.0110628: it tests the size of the negative kurtosis "
            "and not its sign; Anscombe and Glynn's test of the signed kurtosis gives 1.03704e-49 (--textbook "
            "gives it).");

  const Json keptDoc = runJson(commandLine(command + " --json", file.string()));
  EXPECT_EQ(keptDoc["warnings"], Json::array({notes[0]}));
  EXPECT_FALSE(keptDoc["options"].contains("textbook"));

  const Json doc = runJson(commandLine(command + " --json --textbook", file.string()));
  EXPECT_EQ(doc["warnings"], Json::array());
  EXPECT_EQ(doc["options"]["textbook"], true);
  EXPECT_EQ(doc["block"][2][0], "Textbook arithmetic");
  const Json& pRow = doc["block"][6];
  ASSERT_EQ(pRow[0], "P(Kurtosis)");
  EXPECT_LT(std::fabs(pRow[1].get<double>() / 1.0370372230866573e-49 - 1), 1e-9);
}

TEST_F(CliTest, CircularAndFrequencyTakeTextbookToo) {
  // A mean direction of 225: read as 315 by the kept rules.
  const auto angles = workbook("angles.xlsx", {{"SW", cells({200, 225, 250})}});
  const std::string meanAngle = "circular FILE -i Data!A1:A4 --headers --mean-angle";
  const RunResult kept = run(commandLine(meanAngle, angles.string()));
  ASSERT_EQ(kept.exitCode, 0) << kept.err;
  EXPECT_EQ(words(lineStarting(kept.out, "Mean Angle")), (std::vector<std::string>{"Mean", "Angle", "315"}));
  EXPECT_EQ(warningLines(kept.err),
            (std::vector<std::string>{"The mean angle of \"SW\" (Data!$A$2:$A$4) reads 315: a mean direction in the "
                                      "third quadrant is reported reflected into the fourth; its direction is 225 "
                                      "(--textbook gives it)."}));
  const RunResult textbook = run(commandLine(meanAngle + " --textbook", angles.string()));
  ASSERT_EQ(textbook.exitCode, 0) << textbook.err;
  EXPECT_EQ(words(lineStarting(textbook.out, "Mean Angle")), (std::vector<std::string>{"Mean", "Angle", "225"}));
  EXPECT_EQ(textbook.err, "");

  // Blank data cells: counted as 0 (and said so) by the kept rules, not at all with --textbook.
  const auto counts = workbook("counts.xlsx", {{"X", {12.0, CellValue(), 25.0}}, {"Bins", cells({10, 20, 30})}});
  const std::string counting = "frequency FILE -i Data!A1:A4 --headers --bins Data!B1:B4";
  const RunResult keptCounts = run(commandLine(counting, counts.string()));
  ASSERT_EQ(keptCounts.exitCode, 0) << keptCounts.err;
  EXPECT_EQ(warningLines(keptCounts.err).size(), 1u) << keptCounts.err;
  EXPECT_NE(keptCounts.out.find("<10"), std::string::npos) << keptCounts.out;
  const RunResult textbookCounts = run(commandLine(counting + " --textbook", counts.string()));
  ASSERT_EQ(textbookCounts.exitCode, 0) << textbookCounts.err;
  EXPECT_EQ(textbookCounts.err, "");
  EXPECT_NE(lineStarting(textbookCounts.out, "Textbook arithmetic"), "");
  EXPECT_EQ(textbookCounts.out.find("<10"), std::string::npos) << textbookCounts.out;
}

}  // namespace
}  // namespace orv::test
