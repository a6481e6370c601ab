#pragma once
// Runs the orvella binary on workbooks generated into a fresh temporary folder.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "workbook/in_memory_application.h"
#include "xlsx/writer_workbook.h"

namespace orv::test {

struct RunResult {
  int exitCode = -1;
  std::string out;
  std::string err;
};

inline std::string readFile(const std::filesystem::path& p) {
  std::ifstream in(p, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline std::string quoted(const std::string& arg) {
  std::string q = "'";
  for (char c : arg) {
    if (c == '\'') q += "'\\''";
    else q += c;
  }
  return q + "'";
}

class CliTest : public ::testing::Test {
 protected:
  CliTest() {
    std::random_device rd;
    dir = std::filesystem::temp_directory_path() / ("orvella-cli-" + std::to_string(rd()));
    std::filesystem::create_directories(dir);
  }
  ~CliTest() override { std::filesystem::remove_all(dir); }

  RunResult run(const std::vector<std::string>& args) const {
    std::string command = quoted(ORVELLA_BINARY);
    for (const std::string& a : args) command += " " + quoted(a);
    const auto outFile = dir / "stdout.txt";
    const auto errFile = dir / "stderr.txt";
    command += " >" + quoted(outFile.string()) + " 2>" + quoted(errFile.string()) + " </dev/null";
    const int status = std::system(command.c_str());
    RunResult r;
    r.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    r.out = readFile(outFile);
    r.err = readFile(errFile);
    return r;
  }

  // A workbook with sheet "Data": `columns` side by side from A1 down, names in row 1.
  std::filesystem::path workbook(const std::string& name,
                                 const std::vector<std::pair<std::string, std::vector<CellValue>>>& columns) const {
    InMemoryApplication app;
    InMemoryWorkbook& book = app.AddWorkbook(name, {"Data"});
    InMemoryWorksheet& sheet = book.Worksheets("Data");
    for (std::size_t c = 0; c < columns.size(); ++c) {
      const auto col = static_cast<std::int32_t>(c + 1);
      sheet.storeRaw(1, col, columns[c].first);
      for (std::size_t r = 0; r < columns[c].second.size(); ++r) {
        sheet.storeRaw(static_cast<std::int32_t>(r + 2), col, columns[c].second[r]);
      }
    }
    const auto path = dir / name;
    writeNewWorkbook(book, path);
    return path;
  }

  std::filesystem::path dir;
};

}  // namespace orv::test
