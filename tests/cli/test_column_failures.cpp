// A failure inside one column names the column (its name and cells), the step and the cause in
// numbers, and keeps the component's error number and source at the end.

#include "cli_fixture.h"
#include "frame/reference.h"

namespace orv::test {
namespace {

TEST_F(CliTest, AFailingColumnIsNamedWithItsCauseInNumbers) {
  std::vector<CellValue> twelve;
  for (int i = 1; i <= 12; ++i) twelve.emplace_back(i * 1.5);
  const auto file = workbook("columns.xlsx", {{"Control", twelve},
                                              {"Yield", {}},
                                              {"Zero", {-1.0, 1.0, -2.0, 2.0}},
                                              {"Ang", {0.0, 180.0}},
                                              {"Over", {10.0, 20.0, 400.0}},
                                              {"One", {10.0}},
                                              {"Late", {CellValue(), 10.0, 20.0}}});
  const std::string describe = "Line 0 in ORVDescriptives.clsDS.Results]";
  const std::string circular = "Line 0 in ORVDescriptives.clsDSCircBO.Mean.GetResults.Results]";
  const struct {
    std::vector<std::string> args;
    std::string line;
  } cases[] = {
      {{"describe", "-i", "Data!A1:B13", "--percentiles", "5"},
       "The 5th percentile of \"Control\" (Data!$A$2:$A$13) needs at least 19 values; the column has 12. [error 9, " +
           describe},
      {{"describe", "-i", "Data!A1:B13", "--percentiles", "90"},  // the 10th fails first, and needs 9
       "\"Yield\" (Data!$B$2:$B$13) holds no numbers. [error 9, " + describe},
      {{"describe", "-i", "Data!C1:C5", "--cv"},
       "The coefficient of variation of \"Zero\" (Data!$C$2:$C$5) divides by its mean, which is 0. [error 11, " +
           describe},
      {{"circular", "-i", "Data!D1:D3"},
       "The mean angle of \"Ang\" (Data!$D$2:$D$3) cannot be found: the cosines of its 2 angles add up to exactly 0, "
       "and the mean angle divides by that sum. [error 11, " +
           circular},
      {{"circular", "-i", "Data!D1:E4"},
       "The cell Data!$E$4 holds 400, an angle outside 0 to 360 degrees; angles must be given in degrees from 0 to "
       "360. [error -2147216480, Line 0 in ORVDescriptives.clsDSCirc.Results]"},
      {{"circular", "-i", "Data!F1:F2"},
       "\"One\" (Data!$F$2) has a single data cell; the circular statistics need at least two rows of angles. "
       "[error 13, " +
           circular},
      {{"circular", "-i", "Data!G1:G4"},
       "\"Late\" (Data!$G$2:$G$4) has no angle above its first empty cell, Data!$G$2: a column of angles is read "
       "down to its first empty cell. [error 6, " +
           circular},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line);
    std::vector<std::string> args = c.args;
    args.insert(args.begin() + 1, file.string());
    args.emplace_back("--headers");
    const RunResult r = run(args);
    EXPECT_EQ(r.exitCode, 1);
    // Warnings may come first; the failure is the last line.
    EXPECT_TRUE(r.err.ends_with("orvella: " + c.line + "\n")) << r.err;
  }
}

// The 16-bit limits are on observations: 32767 of them work in every analysis, header row or
// not, and one more is refused naming the column.
TEST_F(CliTest, ThirtyTwoThousandSevenHundredSixtySevenObservationsWorkInEveryAnalysis) {
  for (const std::int32_t n : {32767, 32768}) {
    for (const bool headers : {false, true}) {
      const std::filesystem::path file = dir / ("n" + std::to_string(n) + (headers ? "h" : "") + ".csv");
      {
        std::ofstream out(file);
        if (headers) out << "Depth\n";
        for (std::int32_t i = 0; i < n; ++i) out << (i * 7) % 360 << "\n";
      }
      const std::string range = "A1:A" + std::to_string(n + (headers ? 1 : 0));
      const std::string cells = quoteSheetName(file.stem().string()) + "!$A$" + (headers ? "2" : "1") + ":$A$" +
                                std::to_string(n + (headers ? 1 : 0));
      const std::string name = headers ? "Depth" : "Column A";
      for (const std::string analysis : {"describe", "circular", "frequency"}) {
        SCOPED_TRACE(analysis + " " + file.filename().string());
        std::vector<std::string> args = {analysis, file.string(), "-i", range, "--json"};
        if (headers) args.emplace_back("--headers");
        const RunResult r = run(args);
        if (n == 32767) {
          ASSERT_EQ(r.exitCode, 0) << r.err;
          // The count row, or the frequency table's last row, whose cumulative count is n.
          const nlohmann::json block = nlohmann::json::parse(r.out)["block"];
          EXPECT_TRUE(std::any_of(block.begin(), block.end(), [&](const nlohmann::json& row) {
            return analysis == "frequency" ? row.size() == 5 && row[2] == 32767 && row[4] == 100.0
                                           : row[0] == "Count" && row[1] == 32767;
          })) << block.dump();
          continue;
        }
        EXPECT_EQ(r.exitCode, 1);
        const std::string what = analysis == "describe"   ? "observations"
                                 : analysis == "circular" ? "angles"
                                                          : "cells to count";
        EXPECT_NE(
            r.err.find("\"" + name + "\" (" + cells + ") has 32768 " + what + "; the analysis takes at most 32767."),
            std::string::npos)
            << r.err;
        EXPECT_NE(r.err.find("[error 6, "), std::string::npos) << r.err;
      }
    }
  }
}

}  // namespace
}  // namespace orv::test
