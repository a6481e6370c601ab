// Whole-column references ("Data!A:C") are cut to the used rows: 32,767 numbers under the header
// row pass, and one more stops with the component's Overflow, naming the column.

#include "cli_fixture.h"

namespace orv::test {
namespace {

TEST_F(CliTest, WholeColumnsDescribeTheUsedRowsUpToTheComponentsLimit) {
  for (const std::int32_t rows : {32767, 32768}) {  // numbers under the header row
    SCOPED_TRACE(rows);
    // Column B stops one row short, so the used block, not each column, sets the height.
    std::vector<std::pair<std::string, std::vector<CellValue>>> columns = {{"A", {}}, {"B", {}}, {"C", {}}};
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
