// orvella describe and orvella sheets on generated workbooks: what is printed and written.

#include <algorithm>

#include "cli_fixture.h"
#include "xlsx/reader_workbook.h"

namespace orv::test {
namespace {

const std::vector<std::pair<std::string, std::vector<CellValue>>> kTwoColumns = {
    {"Height", {2.0, 4.0, 4.0, 4.0, 5.0, 5.0, 7.0, 9.0}},
    {"Weight", {1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0}},
};

TEST_F(CliTest, PrintsTheDefaultTableAndWritesNothing) {
  const auto file = workbook("two.xlsx", kTwoColumns);
  const std::string before = readFile(file);
  const RunResult r = run({"describe", file.string(), "--input", "Data!A1:B9", "--headers"});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_NE(r.out.find("Input Range = Data!$A$1:$B$9"), std::string::npos) << r.out;
  EXPECT_EQ(words(lineStarting(r.out, "Mean")), (std::vector<std::string>{"Mean", "5", "4.5"}));
  EXPECT_EQ(words(lineStarting(r.out, "Std Dev.")), (std::vector<std::string>{"Std", "Dev.", "2.13809", "2.44949"}));
  EXPECT_EQ(words(lineStarting(r.out, "Count")), (std::vector<std::string>{"Count", "8", "8"}));
  // Numbers are right-aligned: the last characters of the value lines line up.
  EXPECT_EQ(lineStarting(r.out, "Mean").size(), lineStarting(r.out, "Std Error").size());
  EXPECT_EQ(readFile(file), before);
  EXPECT_FALSE(std::filesystem::exists(dir / "two-results.xlsx"));
}

TEST_F(CliTest, JsonBlockIsWhatTheWorkbookHolds) {
  const auto file = workbook("two.xlsx", kTwoColumns);
  const std::string before = readFile(file);
  const auto out = dir / "out.xlsx";
  const RunResult r = run({"describe", file.string(), "-i", "Data!A1:B9", "--headers", "--all",
                           "--largest", "2", "--json", "-o", out.string()});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  const nlohmann::json doc = nlohmann::json::parse(r.out);
  EXPECT_EQ(doc["analysis"], "describe");
  EXPECT_EQ(doc["input"], "Data!A1:B9");
  EXPECT_EQ(doc["output"]["sheet"], "Sheet1");
  EXPECT_EQ(doc["output"]["cell"], "$A$1");
  EXPECT_EQ(doc["written"], out.string());
  EXPECT_EQ(readFile(file), before);

  InMemoryApplication app;
  InMemoryWorkbook& book = openWorkbookFile(app, out).book;
  ASSERT_EQ(book.WorksheetsCount(), 2);
  const nlohmann::json& block = doc["block"];
  ASSERT_EQ(block.size(), 27u);  // heading, blank, names, 23 statistics, blank
  expectSheetHolds(block, book.Worksheets("Sheet1"));
  EXPECT_EQ(block[4][0], "Mean");
  EXPECT_EQ(block[4][1], 5.0);
}

TEST_F(CliTest, ChartOptionsReachTheAnalysis) {
  const auto file = workbook("two.xlsx", kTwoColumns);
  const RunResult r = run({"describe", file.string(), "-i", "Data!A1:B9", "--headers", "--mean",
                           "--box-plot", "--box-title", "Spread", "--error-plot", "--error-centre",
                           "Median", "--error-bars", "Confidence Limits", "--json", "-o",
                           (dir / "charts.xlsx").string()});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  const nlohmann::json doc = nlohmann::json::parse(r.out);
  EXPECT_EQ(doc["options"]["boxPlot"]["title"], "Spread");
  EXPECT_EQ(doc["options"]["errorPlot"]["centre"], "Median");
  EXPECT_EQ(doc["options"]["errorPlot"]["bars"], "Confidence Limits");
  // The charts force the rows they read: median, percentiles, extremes and confidence limits.
  std::vector<std::string> labels;
  for (const nlohmann::json& line : doc["block"]) {
    if (line[0].is_string()) labels.push_back(line[0].get<std::string>());
  }
  for (const char* label : {"Mean", "Median", "Lower 95%CL", "Upper 95%CL", "25th Percentile",
                            "75th Percentile", "Minimum", "Maximum"}) {
    EXPECT_NE(std::find(labels.begin(), labels.end(), label), labels.end()) << label;
  }
}

TEST_F(CliTest, OutputIntoAnExistingSheetAndInPlace) {
  const auto file = workbook("two.xlsx", kTwoColumns);
  const std::vector<std::string> args = {"describe", file.string(), "-i", "Data!B1:B9", "--headers", "--sum",
                                         "--output", "Data!E2", "--in-place"};
  ASSERT_EQ(run(args).exitCode, 0);
  // The second run finds its output occupied by the first and may replace it only when told.
  EXPECT_EQ(run(args).exitCode, 1);
  std::vector<std::string> overwrite = args;
  overwrite.push_back("--overwrite");
  const RunResult r = run(overwrite);
  ASSERT_EQ(r.exitCode, 0) << r.err;
  InMemoryApplication app;
  InMemoryWorkbook& book = openWorkbookFile(app, file).book;
  ASSERT_EQ(book.WorksheetsCount(), 1);
  Worksheet& sheet = book.Worksheets("Data");
  EXPECT_EQ(sheet.cellValue(6, 5), CellValue("Sum"));
  EXPECT_EQ(sheet.cellValue(6, 6), CellValue(36.0));
  // The data are still there.
  EXPECT_EQ(sheet.cellValue(9, 1), CellValue(9.0));
}

TEST_F(CliTest, SheetsListsUsedRanges) {
  const auto file = workbook("two.xlsx", kTwoColumns);
  const RunResult r = run({"sheets", file.string()});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_NE(r.out.find("Data!A1:B9"), std::string::npos) << r.out;
}

TEST_F(CliTest, CsvInputWritesANewWorkbook) {
  const auto csv = dir / "plants.csv";
  std::ofstream(csv) << "Control;Shade\n21,4;17\n19.8;15.9\n23.1;18.8\n";
  // Semicolon-separated with one decimal comma: "21,4" stays text and is refused by name.
  RunResult r = run({"describe", csv.string(), "-i", "A1:B4", "--headers"});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_NE(r.err.find("$A$2"), std::string::npos) << r.err;

  std::ofstream(csv) << "Control,Shade\n21.4,17\n19.8,15.9\n23.1,18.8\n";
  const auto out = dir / "plants.xlsx";
  r = run({"describe", csv.string(), "-i", "A1:B4", "--headers", "--max", "-o", out.string()});
  ASSERT_EQ(r.exitCode, 0) << r.err;
  InMemoryApplication app;
  InMemoryWorkbook& book = openWorkbookFile(app, out).book;
  EXPECT_EQ(book.Worksheets(1).Name(), "plants");
  EXPECT_EQ(book.Worksheets(2).cellValue(5, 2), CellValue(23.1));
}

}  // namespace
}  // namespace orv::test
