// orvella circular on generated workbooks: the printed table, the JSON block and plot data against
// the written workbook.

#include <cmath>
#include <numbers>

#include "cli_fixture.h"

namespace orv::test {
namespace {

const std::vector<double> kNorthEast = {30.0, 45.0, 60.0};
const std::vector<double> kSouth = {170.0, 180.0, 195.0, 200.0};

double radians(double degrees) { return degrees * std::numbers::pi / 180.0; }

TEST_F(CliTest, CircularPrintsTheDefaultRowsAndWritesNothing) {
  const auto file = workbook("angles.xlsx", {{"NE", cells(kNorthEast)}, {"S", cells(kSouth)}});
  const std::string before = readFile(file);
  const RunResult r = run({"circular", file.string(), "--input", "Data!A1:B5", "--headers"});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_NE(r.out.find("Input Range = Data!$A$1:$B$5"), std::string::npos) << r.out;
  // Column A stops at its first empty cell: three angles beside four.
  EXPECT_EQ(words(lineStarting(r.out, "Count")), (std::vector<std::string>{"Count", "3", "4"}));
  EXPECT_EQ(words(lineStarting(r.out, "Mean Vector")),
            (std::vector<std::string>{"Mean", "Vector", "0.977283884192712", "0.978452482814062"}));
  EXPECT_EQ(words(lineStarting(r.out, "Mean Angle"))[2], "45");
  // Fewer than eight angles have no confidence limit.
  EXPECT_EQ(words(lineStarting(r.out, "95%CL")), (std::vector<std::string>{"95%CL", "(±)", "n/a", "n/a"}));
  // Rayleigh's rows come only on request.
  EXPECT_EQ(lineStarting(r.out, "Rayleigh"), "");
  EXPECT_EQ(readFile(file), before);
}

TEST_F(CliTest, CircularJsonBlockAndPlotDataAreWhatTheWorkbookHolds) {
  const auto file = workbook("angles.xlsx", {{"NE", cells(kNorthEast)}, {"S", cells(kSouth)}});
  const auto out = dir / "out.xlsx";
  // Whole columns stop at the last used row, so this is A1:B5.
  const auto doc =
      runJson({"circular", file.string(), "-i", "Data!A:B", "--headers", "--plot", "--json", "-o", out.string()});
  EXPECT_EQ(doc["analysis"], "circular");
  // The one warning is the note on the kept rule that reports the third-quadrant mean of "S"
  // reflected into the fourth.
  ASSERT_EQ(doc["warnings"].size(), 1u);
  EXPECT_NE(doc["warnings"][0].get<std::string>().find("reads 353.734"), std::string::npos) << doc["warnings"];
  EXPECT_NE(doc["warnings"][0].get<std::string>().find("its direction is 186.266"), std::string::npos);
  const auto& block = doc["block"];
  EXPECT_EQ(block[1][0], "Input Range = Data!$A$1:$B$5");

  InMemoryWorkbook& book = open(out);
  ASSERT_EQ(book.WorksheetsCount(), 2);
  expectSheetHolds(block, book.Worksheets(doc["output"]["sheet"].get<std::string>()));

  // Below "Data for Plots": the column names, "Sin"/"Cos", then one row per angle, the shorter
  // column padded with empty cells.
  std::size_t comment = 0;
  while (comment < block.size() && block[comment][0] != "Data for Plots") ++comment;
  ASSERT_LT(comment + 2 + kSouth.size(), block.size());
  EXPECT_EQ(block[comment + 1], (Json{"NE", nullptr, "S", nullptr}));
  EXPECT_EQ(block[comment + 2], (Json{"Sin", "Cos", "Sin", "Cos"}));
  for (std::size_t i = 0; i < kSouth.size(); ++i) {
    SCOPED_TRACE(i);
    const auto& row = block[comment + 3 + i];
    EXPECT_NEAR(row[2].get<double>(), std::sin(radians(kSouth[i])), 1e-12);
    EXPECT_NEAR(row[3].get<double>(), std::cos(radians(kSouth[i])), 1e-12);
    if (i < kNorthEast.size()) {
      EXPECT_NEAR(row[0].get<double>(), std::sin(radians(kNorthEast[i])), 1e-12);
    } else {
      EXPECT_TRUE(row[0].is_null());
    }
  }
}

}  // namespace
}  // namespace orv::test
