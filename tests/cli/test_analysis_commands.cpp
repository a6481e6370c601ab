// orvella describe, circular and sheets on generated workbooks: what is printed and written.

#include "cli/display_width.h"
#include "cli_fixture.h"

namespace orv::test {
namespace {

const Columns kTwoColumns = {{"Height", cells({2, 4, 4, 4, 5, 5, 7, 9})}, {"Weight", sequence(8)}};
const std::vector<double> kNorthEast = {30.0, 45.0, 60.0};
const std::vector<double> kSouth = {170.0, 180.0, 195.0, 200.0};
const Columns kAngles = {{"NE", cells(kNorthEast)}, {"S", cells(kSouth)}};

// Lines of the table looked up by how they start, numbers right-aligned: every value line is as
// wide as the first. Nothing is written and the input stays as it was.
TEST_F(CliTest, DescribeAndCircularPrintTheDefaultRowsAndWriteNothing) {
  const struct {
    std::string command, range, input;
    Columns columns;
    std::vector<std::pair<std::string, std::vector<std::string>>> lines;
  } cases[] = {
      {"describe",
       "Data!A1:B9",
       "Data!$A$1:$B$9",
       kTwoColumns,
       {{"Mean", {"Mean", "5", "4.5"}}, {"Std Dev.", {"Std", "Dev.", "2.1380899352994", "2.44948974278318"}}}},
      // Column A stops at its first empty cell: three angles beside four. The mean angle of S is
      // the kept rule's, reflected into the fourth quadrant. Fewer than eight angles have no
      // confidence limit. Rayleigh's rows come only on request.
      {"circular",
       "Data!A1:B5",
       "Data!$A$1:$B$5",
       kAngles,
       {{"Count", {"Count", "3", "4"}},
        {"Mean Vector", {"Mean", "Vector", "0.977283884192712", "0.978452482814062"}},
        {"Mean Angle", {"Mean", "Angle", "45", "353.733700657693"}},
        {"95%CL", {"95%CL", "(±)", "n/a", "n/a"}}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.command);
    const auto file = workbook(c.command + ".xlsx", c.columns);
    const std::string before = readFile(file);
    const RunResult r = run({c.command, file.string(), "--input", c.range, "--headers"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_NE(r.out.find("Input Range = " + c.input), std::string::npos) << r.out;
    for (const auto& [start, expected] : c.lines) {
      const std::string line = lineStarting(r.out, start);
      EXPECT_EQ(words(line), expected);
      EXPECT_EQ(cli::displayWidth(line), cli::displayWidth(lineStarting(r.out, c.lines[0].first))) << line;
    }
    EXPECT_EQ(lineStarting(r.out, "Rayleigh"), "");
    EXPECT_EQ(readFile(file), before);
  }
  EXPECT_EQ(listing(dir), (std::vector<std::string>{"circular.xlsx", "describe.xlsx"}));
}

TEST_F(CliTest, JsonBlockIsWhatTheWorkbookHolds) {
  const auto file = workbook("two.xlsx", kTwoColumns);
  const auto out = dir / "out.xlsx";
  const auto doc = runJson({"describe", file.string(), "-i", "Data!A1:B9", "--headers", "--all", "--largest", "2",
                            "--json", "-o", out.string()});
  EXPECT_EQ(doc["analysis"], "describe");
  EXPECT_EQ(doc["input"], "Data!$A$1:$B$9");
  EXPECT_EQ(doc["output"]["sheet"], "Sheet1");
  EXPECT_EQ(doc["output"]["cell"], "$A$1");
  EXPECT_EQ(doc["output"]["file"], out.string());
  InMemoryWorkbook& book = open(out);
  ASSERT_EQ(book.WorksheetsCount(), 2);
  ASSERT_EQ(doc["block"].size(), 27u);  // heading, blank, names, 23 statistics, blank
  expectSheetHolds(doc["block"], book.Worksheets("Sheet1"));
}

TEST_F(CliTest, OnTheDataSheetTheFileGetsTheChartDataBelowTheTableAndTheWiderColumns) {
  const auto file = workbook("two.xlsx", kTwoColumns);
  const auto out = dir / "out.xlsx";
  const RunResult r = run({"describe", file.string(), "-i", "Data!A1:B9", "--headers", "--cv", "--output", "Data!E1",
                           "--error-plot", "--error-bars", "Range", "-o", out.string()});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  const Worksheet& sheet = open(out).Worksheets("Data");
  // Table: names in row 4, Mean, Coeff. Var., Minimum, Maximum in rows 5-8; the distances below.
  EXPECT_EQ(sheet.cellValue(6, 5), CellValue("Coeff. Var."));
  EXPECT_EQ(sheet.cellValue(10, 5), CellValue("Data for Error Bars"));
  EXPECT_EQ(sheet.cellValue(11, 6), CellValue("Height"));
  EXPECT_EQ(sheet.cellValue(12, 5), CellValue("Above Mean"));
  EXPECT_EQ(sheet.cellValue(12, 6), CellValue(4.0));  // 9 - 5
  EXPECT_EQ(sheet.cellValue(13, 7), CellValue(3.5));  // 4.5 - 1
  // Columns E (labels) and F, G (coefficients of variation with many decimals) are wider now.
  for (std::int32_t c = 5; c <= 7; ++c) EXPECT_TRUE(sheet.columnWidthSet(c)) << c;
  EXPECT_GT(sheet.columnWidth(6), 48);
  EXPECT_FALSE(sheet.columnWidthSet(4));
}

TEST_F(CliTest, InPlaceOutputReplacesAnEarlierTableOnlyWhenTold) {
  const auto file = workbook("two.xlsx", kTwoColumns);
  const std::string command = "describe FILE -i Data!B1:B9 --headers --sum --output Data!E2 --in-place";
  ASSERT_EQ(run(commandLine(command, file.string())).exitCode, 0);
  EXPECT_EQ(run(commandLine(command, file.string())).exitCode, 1);
  const RunResult r = run(commandLine(command + " --overwrite", file.string()));
  ASSERT_EQ(r.exitCode, 0) << r.err;
  const Worksheet& sheet = open(file).Worksheets("Data");
  EXPECT_EQ(sheet.cellValue(6, 5), CellValue("Sum"));
  EXPECT_EQ(sheet.cellValue(6, 6), CellValue(36.0));
  EXPECT_EQ(sheet.cellValue(9, 1), CellValue(9.0));  // the data are still there
  EXPECT_NE(run({"sheets", file.string()}).out.find("Data!A1:F"), std::string::npos);
}

TEST_F(CliTest, CsvInputWritesANewWorkbook) {
  auto csv = textFile("plants.csv", "Control;Shade\n21,4;17\n19.8;15.9\n23.1;18.8\n");
  // Semicolon-separated with one decimal comma: "21,4" stays text and is refused by name.
  RunResult r = run({"describe", csv.string(), "-i", "A1:B4", "--headers"});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_NE(r.err.find("$A$2"), std::string::npos) << r.err;
  csv = textFile("plants.csv", "Control,Shade\n21.4,17\n19.8,15.9\n23.1,18.8\n");
  const auto out = dir / "plants.xlsx";
  r = run({"describe", csv.string(), "-i", "A1:B4", "--headers", "--max", "-o", out.string()});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  InMemoryWorkbook& book = open(out);
  EXPECT_EQ(book.Worksheets(1).Name(), "plants");
  EXPECT_EQ(book.Worksheets(2).cellValue(5, 2), CellValue(23.1));
}

TEST_F(CliTest, CircularJsonBlockAndPlotDataAreWhatTheWorkbookHolds) {
  const auto file = workbook("angles.xlsx", kAngles);
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
  // column padded with empty cells. Their values are the circular tests' (test_clsDSCirc).
  std::size_t comment = 0;
  while (comment < block.size() && block[comment][0] != "Data for Plots") ++comment;
  ASSERT_LT(comment + 2 + kSouth.size(), block.size());
  EXPECT_EQ(block[comment + 1], (Json{"NE", nullptr, "S", nullptr}));
  EXPECT_EQ(block[comment + 2], (Json{"Sin", "Cos", "Sin", "Cos"}));
  for (std::size_t i = 0; i < kSouth.size(); ++i) {
    const auto& row = block[comment + 3 + i];
    EXPECT_EQ(row[0].is_null(), i >= kNorthEast.size()) << row;
    EXPECT_TRUE(row[2].is_number() && row[3].is_number()) << row;
  }
}

}  // namespace
}  // namespace orv::test
