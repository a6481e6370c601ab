// Outside checks of written packages: the schema and package checks of the xlsx tools, openpyxl
// loading them without a warning, and an office suite converting them, whose copy must hold the
// same cells and the same chart sources. A check whose program is missing fails, naming the
// Debian package that brings it (scripts/install-deps installs them all).

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "outside_tools.h"
#include "package_sources.h"
#include "test_writer_chart_fixture.h"

namespace orv::test {
namespace {

const char* const kWritten[] = {"new.xlsx", "again.xlsx"};

// A new workbook with formatted results and every kind of chart, then that file as an original
// that a second analysis writes into and appends a sheet to.
void writeOutputs(const ScratchFolder& folder) {
  InMemoryApplication app;
  InMemoryWorkbook& book = app.AddWorkbook("data.csv", {"data"});
  InMemoryWorksheet& data = book.Worksheets(1);
  data.storeRaw(1, 1, CellValue("x"));
  InMemoryWorksheet& results = book.addSheet(kResults);
  fillResults(results);
  results.setCellFormat(2, 1, CellFormat{"General", true, 11.0, kColorIndexAutomatic, 15, HAlign::Left});
  results.setCellFormat(2, 2, CellFormat{"0.000", false, 9.0, 3, kColorIndexNone, HAlign::Right});
  results.storeRaw(3, 5, CellValue(ErrorValue::Div0));
  results.storeRaw(4, 5, CellValue(" n/a "));
  results.storeRaw(5, 5, CellValue(true));
  results.geometry().setColumnWidth(1, 90.0);
  results.geometry().setRowHeight(2, 24.0);
  for (const ChartModel& chart : allCharts(results)) record(results, chart);
  results.Activate();
  writeNewWorkbook(book, folder / "new.xlsx");
  book.addSheet("Second").storeRaw(1, 1, CellValue("again"));
  data.storeRaw(1, 3, CellValue("note"));
  writeIntoPackage(folder / "new.xlsx", book, {{"data", CellBlock{1, 3, 1, 3}}}, folder / "again.xlsx");
}

// The office imports error amounts from cell references only: literal amounts come back as an
// empty source, or as no error bars when both are literal (LibreOffice 7.4). Such amounts are
// left out of the comparison; the writer's own tests check them as written.
std::vector<ChartSources> withoutLiteralErrorAmounts(std::vector<ChartSources> charts) {
  for (ChartSources& chart : charts) {
    for (std::string& series : chart.series) {
      for (const char* side : {" plus=", " minus="}) {
        const std::size_t at = series.find(side);
        if (at == std::string::npos) continue;
        const std::size_t end = series.find(' ', at + 1);
        const std::string_view source =
            std::string_view(series).substr(at + std::strlen(side), end - at - std::strlen(side));
        if (source.empty() || source.starts_with("lit{")) series.erase(at, end == std::string::npos ? end : end - at);
      }
    }
  }
  return charts;
}

TEST(WriterTools, SchemaAndPackageChecksPass) {
  ASSERT_TRUE(onPath("xmllint")) << "xmllint is missing: install the Debian package libxml2-utils";
  ASSERT_TRUE(onPath("unzip")) << "unzip is missing: install the Debian package unzip";
  const std::filesystem::path tools = xlsxToolsFolder();
  const bool found =
      std::filesystem::exists(tools / "validate-xlsx") && std::filesystem::exists(tools / "xlsx-inspect");
  // The schema tools and the schemas come with the team's shared folder beside the checkout, not
  // from a Debian package: a fresh clone without it cannot run this check. CI requires it.
  const std::string missing = "no validate-xlsx and xlsx-inspect in \"" + tools.string() +
                              "\": set ORV_XLSX_TOOLS (environment or CMake cache) to the folder that holds them";
  if (!found && std::getenv("ORV_REQUIRE_XLSX_TOOLS") == nullptr) GTEST_SKIP() << missing;
  ASSERT_TRUE(found) << missing;
  ScratchFolder folder;
  writeOutputs(folder);
  for (const char* name : kWritten) {
    SCOPED_TRACE(name);
    const std::string file = (folder / name).string();
    for (const std::vector<std::string>& check : {std::vector<std::string>{(tools / "validate-xlsx").string(), file},
                                                  {(tools / "xlsx-inspect").string(), "check", file}}) {
      const ProcessResult run = runProcess(check, folder.path(), std::chrono::seconds(120));
      EXPECT_EQ(run.exitCode, 0) << check[0] << ":\n" << run.output;
    }
  }
}

TEST(WriterTools, OpenpyxlLoadsEveryChartWithoutAWarning) {
  const std::string python = pythonWithOpenpyxl();
  ASSERT_FALSE(python.empty()) << "no python3 with openpyxl: install the Debian package python3-openpyxl";
  ScratchFolder folder;
  writeOutputs(folder);
  for (const char* name : kWritten) {
    SCOPED_TRACE(name);
    const ProcessResult run =
        runProcess({python, "-W", "error", "-c",
                    "import openpyxl, sys; print(len(openpyxl.load_workbook(sys.argv[1]).worksheets[1]._charts))",
                    (folder / name).string()},
                   folder.path(), std::chrono::seconds(120));
    EXPECT_EQ(run.exitCode, 0) << run.output;
    EXPECT_EQ(run.output, std::to_string(chartSources(folder / name).size()) + "\n");
  }
}

// The office reads each written file and saves it again as .xlsx; its copy holds every cell and
// every chart series with the sources that were written.
TEST(WriterTools, AnOfficeSuiteKeepsTheCellsAndChartSources) {
  ASSERT_TRUE(onPath("soffice")) << "soffice is missing: install the Debian package libreoffice-calc-nogui";
  ScratchFolder folder;
  writeOutputs(folder);
  const std::filesystem::path converted = folder / "converted";
  const std::string profile = "-env:UserInstallation=file://" + (folder / "profile").string();
  std::vector<std::string> command{"soffice", profile, "--headless", "--norestore"};
  command.insert(command.end(), {"--convert-to", "xlsx", "--outdir", converted.string()});
  for (const char* name : kWritten) command.push_back((folder / name).string());
  const ProcessResult run = runProcess(command, folder.path(), std::chrono::seconds(300));
  ASSERT_FALSE(run.timedOut) << "soffice did not finish within 300 s:\n" << run.output;
  ASSERT_EQ(run.exitCode, 0) << run.output;
  for (const char* name : kWritten) {
    SCOPED_TRACE(name);
    ASSERT_TRUE(std::filesystem::exists(converted / name)) << run.output;
    const std::vector<std::string> cells = cellLines(folder / name);
    EXPECT_FALSE(cells.empty());
    EXPECT_EQ(cellLines(converted / name), cells);
    const std::vector<ChartSources> written = chartSources(folder / name);
    EXPECT_FALSE(written.empty());
    EXPECT_EQ(withoutLiteralErrorAmounts(chartSources(converted / name)), withoutLiteralErrorAmounts(written));
  }
}

}  // namespace
}  // namespace orv::test
