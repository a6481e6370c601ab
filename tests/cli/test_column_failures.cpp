// A failure inside one column names the column (its name and cells), the step and the cause in
// numbers, and keeps the component's error number and source at the end; the limits on a
// column's length are on its observations.

#include "cli_fixture.h"
#include "frame/reference.h"

namespace orv::test {
namespace {

TEST_F(CliTest, AFailingColumnIsNamedWithItsCauseInNumbers) {
  std::vector<CellValue> twelve;
  for (int i = 1; i <= 12; ++i) twelve.emplace_back(i * 1.5);
  const auto file = workbook("columns.xlsx", {{"Control", twelve},
                                              {"Yield", {}},
                                              {"Zero", cells({-1, 1, -2, 2})},
                                              {"Ang", cells({0, 180})},
                                              {"Over", cells({10, 20, 400})},
                                              {"One", cells({10})},
                                              {"Late", {CellValue(), 10.0, 20.0}}});
  const std::string describe = "Line 0 in ORVDescriptives.clsDS.Results]";
  const std::string circular = "Line 0 in ORVDescriptives.clsDSCircBO.Mean.GetResults.Results]";
  const struct {
    std::string command;
    std::string line;
  } cases[] = {
      {"describe -i Data!A1:B13 --percentiles 5",
       "The 5th percentile of \"Control\" (Data!$A$2:$A$13) needs at least 19 values; the column has 12. [error 9, " +
           describe},
      {"describe -i Data!A1:B13 --percentiles 90",  // the 10th fails first, and needs 9
       "\"Yield\" (Data!$B$2:$B$13) holds no numbers. [error 9, " + describe},
      {"describe -i Data!C1:C5 --cv",
       "The coefficient of variation of \"Zero\" (Data!$C$2:$C$5) divides by its mean, which is 0. [error 11, " +
           describe},
      {"circular -i Data!D1:D3",
       "The mean angle of \"Ang\" (Data!$D$2:$D$3) cannot be found: the cosines of its 2 angles add up to exactly 0, "
       "and the mean angle divides by that sum. [error 11, " +
           circular},
      {"circular -i Data!D1:E4",
       "The cell Data!$E$4 holds 400, an angle outside 0 to 360 degrees; angles must be given in degrees from 0 to "
       "360. [error -2147216480, Line 0 in ORVDescriptives.clsDSCirc.Results]"},
      {"circular -i Data!F1:F2",
       "\"One\" (Data!$F$2) has a single data cell; the circular statistics need at least two rows of angles. "
       "[error 13, " +
           circular},
      {"circular -i Data!G1:G4",
       "\"Late\" (Data!$G$2:$G$4) has no angle above its first empty cell, Data!$G$2: a column of angles is read "
       "down to its first empty cell. [error 6, " +
           circular},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line);
    const RunResult r = runOn(file, words(c.command + " --headers"));
    EXPECT_EQ(r.exitCode, 1);
    // Warnings may come first; the failure is the last line.
    EXPECT_TRUE(r.err.ends_with("orvella: " + c.line + "\n")) << r.err;
  }
}

// The 16-bit limits are on observations: 32767 of them work in every analysis, header row or
// not, and one more is refused naming the column. --textbook takes a whole sheet column,
// 1,048,576 rows, or 1,048,575 under a header row.
TEST_F(CliTest, ColumnLengthLimitsAreOnObservationsInEveryAnalysis) {
  const struct {
    std::int32_t n;
    bool headers, textbook;
  } cases[] = {{32767, false, false}, {32767, true, false},     {32768, false, false},
               {32768, true, false},  {1'048'576, false, true}, {1'048'575, true, true}};
  for (const auto& c : cases) {
    std::ostringstream text;
    if (c.headers) text << "Depth\n";
    for (std::int32_t i = 0; i < c.n; ++i) text << (i * 7) % 360 << "\n";
    const auto file = textFile("n" + std::to_string(c.n) + (c.headers ? "h" : "") + ".csv", text.str());
    const std::string last = std::to_string(c.n + (c.headers ? 1 : 0));
    for (const std::string analysis : {"describe", "circular", "frequency"}) {
      if (c.n == 1'048'575 && analysis != "describe") continue;
      SCOPED_TRACE(analysis + " " + file.filename().string());
      Args args = {analysis, file.string(), "-i", c.textbook ? "A:A" : "A1:A" + last, "--json"};
      if (c.headers) args.emplace_back("--headers");
      if (c.textbook) args.emplace_back("--textbook");
      const RunResult r = run(args);
      if (c.n != 32768) {
        ASSERT_EQ(r.exitCode, 0) << r.err;
        // The count row, or the frequency table's last row, whose cumulative count is n.
        const Json block = Json::parse(r.out)["block"];
        EXPECT_TRUE(std::any_of(block.begin(), block.end(), [&](const Json& row) {
          return analysis == "frequency" ? row.size() == 5 && row[2] == c.n && row[4] == 100.0
                                         : row[0] == "Count" && row[1] == c.n;
        })) << block.dump().substr(0, 2000);
        continue;
      }
      EXPECT_EQ(r.exitCode, 1);
      const std::string cells = quoteSheetName(file.stem().string()) + "!$A$" + (c.headers ? "2" : "1") + ":$A$" + last;
      const std::string what = analysis == "describe"   ? "observations"
                               : analysis == "circular" ? "angles"
                                                        : "cells to count";
      EXPECT_NE(r.err.find("\"" + std::string(c.headers ? "Depth" : "Column A") + "\" (" + cells + ") has 32768 " +
                           what + "; the analysis takes at most 32767."),
                std::string::npos)
          << r.err;
      EXPECT_NE(r.err.find("[error 6, "), std::string::npos) << r.err;
    }
  }
}

// Whole-column references ("Data!A:C") are cut to the used rows: 32,767 numbers under the header
// row pass, and one more stops with the component's Overflow, naming the column.
TEST_F(CliTest, WholeColumnsDescribeTheUsedRowsUpToTheComponentsLimit) {
  for (const std::int32_t rows : {32767, 32768}) {  // numbers under the header row
    SCOPED_TRACE(rows);
    // Column B stops one row short, so the used block, not each column, sets the height.
    Columns columns = {{"A", {}}, {"B", {}}, {"C", {}}};
    for (std::int32_t r = 0; r < rows; ++r) {
      columns[0].second.emplace_back(static_cast<double>(r % 97));
      if (r + 1 < rows) columns[1].second.emplace_back(r * 0.5);
      columns[2].second.emplace_back(1.0);
    }
    const auto file = workbook("w" + std::to_string(rows) + ".xlsx", columns);
    const std::string before = readFile(file);
    const RunResult r = run({"describe", file.string(), "-i", "Data!A:C", "--headers", "--count", "--mean"});
    if (rows == 32767) {
      EXPECT_EQ(r.exitCode, 0) << r.err;
      EXPECT_EQ(words(lineStarting(r.out, "Count")), (std::vector<std::string>{"Count", "32767", "32766", "32767"}));
      continue;
    }
    EXPECT_EQ(r.exitCode, 1) << r.err;
    EXPECT_EQ(r.err,
              "orvella: \"A\" (Data!$A$2:$A$32769) has 32768 observations; the analysis takes at most 32767. "
              "[error 6, Line 0 in ORVDescriptives.clsDS.Results]\n");
    EXPECT_TRUE(r.out.empty()) << r.out;
    EXPECT_EQ(readFile(file), before);
  }
}

}  // namespace
}  // namespace orv::test
