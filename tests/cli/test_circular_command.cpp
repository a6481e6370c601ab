// orvella circular on generated workbooks: the printed table, the JSON block against the written
// workbook, the plot data, and the failures.

#include <cmath>
#include <cstdio>
#include <numbers>

#include "cli_fixture.h"
#include "frame/errors.h"
#include "xlsx/reader_workbook.h"

namespace orv::test {
namespace {

const std::vector<double> kNorthEast = {30.0, 45.0, 60.0};
const std::vector<double> kSouth = {170.0, 180.0, 195.0, 200.0};

std::vector<CellValue> cells(const std::vector<double>& xs) { return {xs.begin(), xs.end()}; }

double radians(double degrees) { return degrees * std::numbers::pi / 180.0; }

// The length of the mean vector straight from its definition.
double meanVector(const std::vector<double>& angles) {
  double c = 0.0, s = 0.0;
  for (double a : angles) {
    c += std::cos(radians(a));
    s += std::sin(radians(a));
  }
  return std::hypot(c, s) / static_cast<double>(angles.size());
}

std::string sixDigits(double x) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%.6g", x);
  return buf;
}

TEST_F(CliTest, CircularPrintsTheDefaultRowsAndWritesNothing) {
  const auto file = workbook("angles.xlsx", {{"NE", cells(kNorthEast)}, {"S", cells(kSouth)}});
  const std::string before = readFile(file);
  const RunResult r = run({"circular", file.string(), "--input", "Data!A1:B5", "--headers"});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_NE(r.out.find("Input Range = Data!$A$1:$B$5"), std::string::npos) << r.out;
  // Column A stops at its first empty cell: three angles beside four.
  EXPECT_EQ(words(lineStarting(r.out, "Count")), (std::vector<std::string>{"Count", "3", "4"}));
  EXPECT_EQ(words(lineStarting(r.out, "Mean Vector")),
            (std::vector<std::string>{"Mean", "Vector", sixDigits(meanVector(kNorthEast)),
                                      sixDigits(meanVector(kSouth))}));
  EXPECT_EQ(words(lineStarting(r.out, "Mean Angle"))[2], "45");
  // Fewer than eight angles have no confidence limit.
  EXPECT_EQ(words(lineStarting(r.out, "95%CL")), (std::vector<std::string>{"95%CL", "(±)", "n/a", "n/a"}));
  // Rayleigh's rows come only on request.
  EXPECT_EQ(lineStarting(r.out, "Rayleigh"), "");
  EXPECT_EQ(readFile(file), before);
}

TEST_F(CliTest, CircularStatisticFlagsChooseTheRows) {
  const auto file = workbook("angles.xlsx", {{"S", cells(kSouth)}});
  struct Case {
    std::vector<std::string> flags;
    std::vector<std::string> labels;
  };
  const std::vector<Case> cases = {
      {{"--count", "--mean-angle"}, {"Mean Angle", "Count"}},
      {{"--all"},
       {"Mean Angle", "Mean Vector", "Ang. S.D.", "Ang. Var.", "Circ. S.D.", "Circ. Var.",
        "95%CL (±)", "Count", "Rayleigh's Z", "Prob(Z)"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.flags.front());
    std::vector<std::string> args = {"circular", file.string(), "-i", "Data!A1:A5", "--headers", "--json"};
    args.insert(args.end(), c.flags.begin(), c.flags.end());
    const RunResult r = run(args);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    const nlohmann::json block = nlohmann::json::parse(r.out)["block"];
    std::vector<std::string> labels;
    // Heading, range, blank, names; then the statistics down to the next blank row.
    for (std::size_t row = 4; row < block.size() && !block[row][0].is_null(); ++row) {
      labels.push_back(block[row][0].get<std::string>());
    }
    EXPECT_EQ(labels, c.labels);
  }
}

TEST_F(CliTest, CircularJsonBlockAndPlotDataAreWhatTheWorkbookHolds) {
  const auto file = workbook("angles.xlsx", {{"NE", cells(kNorthEast)}, {"S", cells(kSouth)}});
  const std::string before = readFile(file);
  const auto out = dir / "out.xlsx";
  // Whole columns stop at the last used row, so this is A1:B5.
  const RunResult r = run({"circular", file.string(), "-i", "Data!A:B", "--headers", "--plot",
                           "--json", "-o", out.string()});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_EQ(readFile(file), before);
  const nlohmann::json doc = nlohmann::json::parse(r.out);
  EXPECT_EQ(doc["analysis"], "circular");
  EXPECT_EQ(doc["input"], "Data!A:B");
  EXPECT_EQ(doc["options"]["plot"], true);
  EXPECT_EQ(doc["warnings"], nlohmann::json::array());
  const nlohmann::json& block = doc["block"];
  EXPECT_EQ(block[1][0], "Input Range = Data!$A$1:$B$5");

  InMemoryApplication app;
  InMemoryWorkbook& book = openWorkbookFile(app, out).book;
  ASSERT_EQ(book.WorksheetsCount(), 2);
  expectSheetHolds(block, book.Worksheets(doc["output"]["sheet"].get<std::string>()));

  // Below "Data for Plots": the column names, "Sin"/"Cos", then one row per angle, the shorter
  // column padded with empty cells.
  const std::size_t comment = rowLabelled(block, "Data for Plots");
  ASSERT_LT(comment + 2 + kSouth.size(), block.size());
  EXPECT_EQ(block[comment + 1][0], "NE");
  EXPECT_EQ(block[comment + 1][2], "S");
  EXPECT_EQ(block[comment + 2][0], "Sin");
  EXPECT_EQ(block[comment + 2][1], "Cos");
  for (std::size_t i = 0; i < kSouth.size(); ++i) {
    SCOPED_TRACE(i);
    const nlohmann::json& row = block[comment + 3 + i];
    EXPECT_NEAR(row[2].get<double>(), std::sin(radians(kSouth[i])), 1e-12);
    EXPECT_NEAR(row[3].get<double>(), std::cos(radians(kSouth[i])), 1e-12);
    if (i < kNorthEast.size()) {
      EXPECT_NEAR(row[0].get<double>(), std::sin(radians(kNorthEast[i])), 1e-12);
    } else {
      EXPECT_TRUE(row[0].is_null());
    }
  }
}

TEST_F(CliTest, CircularFailuresExplainThemselves) {
  struct Case {
    const char* name;
    std::vector<double> first;
    std::string input;
    int exitCode;
    std::vector<std::string> messageParts;
  };
  const std::string outside = std::to_string(err::kCircularInput);
  const std::vector<Case> cases = {
      {"360 is an angle", {0.0, 90.0, 360.0}, "Data!A1:A4", 0, {}},
      {"above 360", {0.0, 90.0, 360.5}, "Data!A1:A4", 1, {"outside 0 to 360", outside, "clsDSCirc.Results"}},
      {"below 0", {-1.0, 90.0, 180.0}, "Data!A1:A4", 1, {"outside 0 to 360", outside}},
      {"areas of different heights", kNorthEast, "Data!A1:A4,B1:B5", 1,
       {"different numbers of rows", std::to_string(err::kAreaHeights), "clsDSCirc.Results"}},
      {"no such sheet", kNorthEast, "Nosheet!A1:A4", 1, {"Nosheet!A1:A4", outside}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const auto file = workbook("bad.xlsx", {{"A", cells(c.first)}, {"B", cells(kSouth)}});
    const std::string before = readFile(file);
    const RunResult r = run({"circular", file.string(), "-i", c.input, "--headers"});
    EXPECT_EQ(r.exitCode, c.exitCode) << r.err;
    for (const std::string& part : c.messageParts) EXPECT_NE(r.err.find(part), std::string::npos) << r.err;
    if (c.exitCode != 0) {
      EXPECT_TRUE(r.out.empty()) << r.out;
    }
    EXPECT_EQ(readFile(file), before);
  }
}

}  // namespace
}  // namespace orv::test
