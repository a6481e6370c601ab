// Outside checks of written packages: the schema check and consistency check of the project's
// xlsx tools (folder named by ORV_XLSX_TOOLS), loading in openpyxl without warnings, and a PDF
// conversion by a headless office suite. Each check is skipped where its tool is missing.

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "test_writer_support.h"
#include "workbook/in_memory_application.h"
#include "xlsx/writer_workbook.h"

namespace orv::test {
namespace {

int run(const std::string& command) { return std::system((command + " >/dev/null 2>&1").c_str()); }

std::string quoted(const std::filesystem::path& p) { return "'" + p.string() + "'"; }

class WriterTools : public ::testing::Test {
 protected:
  void SetUp() override {
    InMemoryWorkbook& book = app_.AddWorkbook("data.csv", {"data"});
    InMemoryWorksheet& data = book.Worksheets(1);
    data.storeRaw(1, 1, CellValue("x"));
    for (int i = 2; i <= 6; ++i) data.storeRaw(i, 1, CellValue(i * 1.5));
    InMemoryWorksheet& results = book.addSheet("Results & O'Neil");
    const CellFormat label{"General", true, 11.0, kColorIndexAutomatic, 15, HAlign::Left};
    const CellFormat value{"0.000", false, 9.0, 3, kColorIndexNone, HAlign::Right};
    const char* labels[] = {"Mean", "Std. deviation", " n/a "};
    for (int r = 1; r <= 3; ++r) {
      results.storeRaw(r, 1, CellValue(labels[r - 1]));
      results.setCellFormat(r, 1, label);
      results.setCellFormat(r, 2, value);
    }
    results.storeRaw(1, 2, CellValue(6.0));
    results.storeRaw(2, 2, CellValue(2.37170824512628));
    results.storeRaw(3, 2, CellValue(ErrorValue::Div0));
    results.geometry().setColumnWidth(1, 90.0);
    results.geometry().setRowHeight(2, 24.0);
    results.Activate();
    book_ = &book;
    writeNewWorkbook(book, folder_ / "new.xlsx");
    // The new file as an original: a second analysis appends another sheet and writes into data.
    book.addSheet("Second").storeRaw(1, 1, CellValue("again"));
    data.storeRaw(1, 3, CellValue("note"));
    writeIntoPackage(folder_ / "new.xlsx", book, {{"data", CellBlock{1, 3, 1, 3}}}, folder_ / "again.xlsx");
  }

  void forEachOutput(const std::function<void(const std::filesystem::path&)>& check) {
    for (const char* name : {"new.xlsx", "again.xlsx"}) {
      SCOPED_TRACE(name);
      check(folder_ / name);
    }
  }

  InMemoryApplication app_;
  InMemoryWorkbook* book_ = nullptr;
  ScratchFolder folder_;
};

TEST_F(WriterTools, SchemaAndConsistencyChecksPass) {
  const char* tools = std::getenv("ORV_XLSX_TOOLS");
  if (tools == nullptr || run("command -v xmllint") != 0) GTEST_SKIP() << "ORV_XLSX_TOOLS unset or xmllint missing";
  forEachOutput([&](const std::filesystem::path& file) {
    EXPECT_EQ(run(std::string(tools) + "/validate-xlsx " + quoted(file)), 0);
    EXPECT_EQ(run(std::string(tools) + "/xlsx-inspect check " + quoted(file)), 0);
  });
}

TEST_F(WriterTools, OpenpyxlLoadsWithoutWarnings) {
  // A version manager's python3 may come first on PATH without the system's packages.
  std::string python;
  for (const char* candidate : {"python3", "/usr/bin/python3"}) {
    if (python.empty() && run(std::string(candidate) + " -c 'import openpyxl'") == 0) python = candidate;
  }
  if (python.empty()) GTEST_SKIP() << "python3-openpyxl missing";
  forEachOutput([&](const std::filesystem::path& file) {
    EXPECT_EQ(run(python + " -W error -c 'import openpyxl, sys; openpyxl.load_workbook(sys.argv[1])' " + quoted(file)), 0);
  });
}

TEST_F(WriterTools, OfficeSuiteConvertsToPdf) {
  if (run("command -v soffice") != 0) GTEST_SKIP() << "soffice missing";
  forEachOutput([&](const std::filesystem::path& file) {
    const std::filesystem::path pdf = folder_ / (file.stem().string() + ".pdf");
    EXPECT_EQ(run("HOME=" + quoted(folder_.path()) + " soffice -env:UserInstallation=file://" + folder_.path().string() +
                  "/profile --headless --convert-to pdf --outdir " + quoted(folder_.path()) + " " + quoted(file)),
              0);
    EXPECT_TRUE(std::filesystem::exists(pdf));
    if (const char* keep = std::getenv("ORV_KEEP_OUTPUT")) {
      std::filesystem::copy_file(file, std::filesystem::path(keep) / file.filename(),
                                 std::filesystem::copy_options::overwrite_existing);
    }
  });
}

}  // namespace
}  // namespace orv::test
