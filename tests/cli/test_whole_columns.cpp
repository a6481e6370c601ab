// Whole-column references ("Data!A:C") over sheets of every height: the command cuts them to the
// used rows, so within the component's 32,767 rows they describe the data; beyond, the run stops
// with the component's own Overflow, never with a failure of the command or the host.

#include "cli_fixture.h"

namespace orv::test {
namespace {

// Three columns of `rows` numbers each under a header row; column B stops one row short, so the
// used block, not each column, sets the height.
std::vector<std::pair<std::string, std::vector<CellValue>>> columnsOf(std::int32_t rows) {
  std::vector<std::pair<std::string, std::vector<CellValue>>> columns = {{"A", {}}, {"B", {}}, {"C", {}}};
  for (std::int32_t r = 0; r < rows; ++r) {
    columns[0].second.emplace_back(static_cast<double>(r % 97));
    if (r + 1 < rows) columns[1].second.emplace_back(r * 0.5);
    columns[2].second.emplace_back(1.0);
  }
  return columns;
}

TEST_F(CliTest, WholeColumnsDescribeTheUsedRowsUpToTheComponentsLimit) {
  const struct {
    std::int32_t rows;  // numbers under the header row
    std::vector<std::string> count;  // the Count line of the table
  } cases[] = {
      {2, {"Count", "2", "1", "2"}},  // B: one number, then an empty cell, which is no observation
      // The component counts the rows of its range in 16 bits, header included: 32,767 rows.
      {32766, {"Count", "32766", "32765", "32766"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.rows);
    const auto file = workbook("w" + std::to_string(c.rows) + ".xlsx", columnsOf(c.rows));
    const RunResult r = run({"describe", file.string(), "-i", "Data!A:C", "--headers", "--count", "--mean"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(words(lineStarting(r.out, "Count")), c.count) << r.out;
  }
}

TEST_F(CliTest, WholeColumnsBeyondTheLimitFailWithTheComponentsOverflow) {
  const struct {
    const char* name;
    std::int32_t rows;
    std::vector<std::string> args;
  } cases[] = {
      {"one row past, with headers", 32767, {"-i", "Data!A:C", "--headers"}},
      {"a full-height sheet", kMaxRows - 1, {"-i", "Data!$A:$A", "--headers"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    std::vector<std::pair<std::string, std::vector<CellValue>>> columns = columnsOf(c.rows);
    if (c.rows > 40000) columns.resize(1);  // one column keeps the million-row file quick
    const auto file = workbook("over" + std::to_string(c.rows) + ".xlsx", columns);
    const std::string before = readFile(file);
    std::vector<std::string> args = {"describe", file.string()};
    args.insert(args.end(), c.args.begin(), c.args.end());
    const RunResult r = run(args);
    EXPECT_EQ(r.exitCode, 1) << r.err;
    EXPECT_NE(r.err.find("more than 32767 values"), std::string::npos) << r.err;
    EXPECT_NE(r.err.find("[error 6, Line 0 in ORVDescriptives.clsDS"), std::string::npos) << r.err;
    EXPECT_TRUE(r.out.empty()) << r.out;
    EXPECT_EQ(readFile(file), before);
  }
}

TEST_F(CliTest, WholeColumnsOfAnEmptyAreaFailWithTheComponentsOwnError) {
  // A column beside the data: the cut leaves one empty row.
  const auto file = workbook("narrow.xlsx", columnsOf(5));
  const RunResult r = run({"describe", file.string(), "-i", "Data!A:A,E:E"});
  EXPECT_EQ(r.exitCode, 1) << r.err;
  EXPECT_NE(r.err.find("Line 0 in ORVDescriptives.clsDS"), std::string::npos) << r.err;
}

}  // namespace
}  // namespace orv::test
