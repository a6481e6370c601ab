// orvella describe and orvella sheets on generated workbooks: what is printed and written.

#include "cli_fixture.h"

namespace orv::test {
namespace {

const Columns kTwoColumns = {{"Height", cells({2, 4, 4, 4, 5, 5, 7, 9})}, {"Weight", sequence(8)}};

TEST_F(CliTest, PrintsTheDefaultTableAndWritesNothing) {
  const auto file = workbook("two.xlsx", kTwoColumns);
  const std::string before = readFile(file);
  const RunResult r = run({"describe", file.string(), "--input", "Data!A1:B9", "--headers"});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_NE(r.out.find("Input Range = Data!$A$1:$B$9"), std::string::npos) << r.out;
  EXPECT_EQ(words(lineStarting(r.out, "Mean")), (std::vector<std::string>{"Mean", "5", "4.5"}));
  EXPECT_EQ(words(lineStarting(r.out, "Std Dev.")),
            (std::vector<std::string>{"Std", "Dev.", "2.1380899352994", "2.44948974278318"}));
  // Numbers are right-aligned: the last characters of the value lines line up.
  EXPECT_EQ(lineStarting(r.out, "Mean").size(), lineStarting(r.out, "Std Error").size());
  EXPECT_EQ(readFile(file), before);
  EXPECT_FALSE(std::filesystem::exists(dir / "two-results.xlsx"));
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
  const std::vector<std::string> args = {"describe", file.string(), "-i",      "Data!B1:B9", "--headers",
                                         "--sum",    "--output",    "Data!E2", "--in-place"};
  ASSERT_EQ(run(args).exitCode, 0);
  EXPECT_EQ(run(args).exitCode, 1);
  std::vector<std::string> overwrite = args;
  overwrite.push_back("--overwrite");
  const RunResult r = run(overwrite);
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

}  // namespace
}  // namespace orv::test
