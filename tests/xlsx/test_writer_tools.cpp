// Outside checks of written packages, each where its tool exists: the xlsx tools' schema checks
// (folder ORV_XLSX_TOOLS), loading in openpyxl without warnings, a PDF conversion by an office suite.

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "test_writer_chart_fixture.h"

namespace orv::test {
namespace {

int run(const std::string& command) { return std::system((command + " >/dev/null 2>&1").c_str()); }

std::string quoted(const std::filesystem::path& p) { return "'" + p.string() + "'"; }

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
  results.geometry().setColumnWidth(1, 90.0);
  results.geometry().setRowHeight(2, 24.0);
  for (const ChartModel& chart : allCharts(results)) record(results, chart);
  results.Activate();
  writeNewWorkbook(book, folder / "new.xlsx");
  book.addSheet("Second").storeRaw(1, 1, CellValue("again"));
  data.storeRaw(1, 3, CellValue("note"));
  writeIntoPackage(folder / "new.xlsx", book, {{"data", CellBlock{1, 3, 1, 3}}}, folder / "again.xlsx");
}

TEST(WriterTools, WrittenPackagesPassEveryOutsideCheckAvailable) {
  const char* tools = std::getenv("ORV_XLSX_TOOLS");
  const bool schema = tools != nullptr && run("command -v xmllint") == 0;
  // A version manager's python3 may come first on PATH without the system's packages.
  std::string python;
  for (const char* candidate : {"python3", "/usr/bin/python3"}) {
    if (python.empty() && run(std::string(candidate) + " -c 'import openpyxl'") == 0) python = candidate;
  }
  const bool office = run("command -v soffice") == 0;
  if (!schema && python.empty() && !office) GTEST_SKIP() << "no xlsx tools, openpyxl or soffice";

  ScratchFolder folder;
  writeOutputs(folder);
  for (const char* name : {"new.xlsx", "again.xlsx"}) {
    SCOPED_TRACE(name);
    const std::filesystem::path file = folder / name;
    if (schema) {
      EXPECT_EQ(run(std::string(tools) + "/validate-xlsx " + quoted(file)), 0);
      EXPECT_EQ(run(std::string(tools) + "/xlsx-inspect check " + quoted(file)), 0);
    }
    if (!python.empty()) {
      EXPECT_EQ(run(python + " -W error -c 'import openpyxl, sys; "
                             "assert len(openpyxl.load_workbook(sys.argv[1]).worksheets[1]._charts) == 5' " + quoted(file)),
                0);
    }
    if (office) {
      EXPECT_EQ(run("HOME=" + quoted(folder.path()) + " soffice -env:UserInstallation=file://" + folder.path().string() +
                    "/profile --headless --convert-to pdf --outdir " + quoted(folder.path()) + " " + quoted(file)),
                0);
      EXPECT_TRUE(std::filesystem::exists(folder / (file.stem().string() + ".pdf")));
    }
  }
}

}  // namespace
}  // namespace orv::test
