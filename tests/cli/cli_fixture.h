#pragma once
// Runs the orvella binary on workbooks generated into a fresh temporary folder, and checks what a
// run printed: lines of the table, and the --json block against the workbook.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <nlohmann/json.hpp>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
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

// One shell word: single quotes, with each ' inside written as '\''.
inline std::string quoted(const std::string& arg) {
  std::string q = "'";
  for (char c : arg) q += c == '\'' ? std::string("'\\''") : std::string(1, c);
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

  RunResult run(const std::vector<std::string>& args) const { return runWithInput(args, "/dev/null"); }

  // With standard input read from `input`.
  RunResult runWithInput(const std::vector<std::string>& args, const std::filesystem::path& input) const {
    std::string command = quoted(ORVELLA_BINARY);
    for (const std::string& a : args) command += " " + quoted(a);
    const auto outFile = dir / "stdout.txt", errFile = dir / "stderr.txt";
    command += " >" + quoted(outFile.string()) + " 2>" + quoted(errFile.string()) + " <" + quoted(input.string());
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, readFile(outFile), readFile(errFile)};
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

// The first printed line that starts with `start`; empty when there is none.
inline std::string lineStarting(const std::string& text, const std::string& start) {
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) {
    if (line.rfind(start, 0) == 0) return line;
  }
  return {};
}

inline std::vector<std::string> words(const std::string& line) {
  std::istringstream in(line);
  std::vector<std::string> out;
  for (std::string w; in >> w;) out.push_back(w);
  return out;
}

// `block` starts at (top, left) of `sheet`: numbers must match at full precision, texts exactly,
// nulls must be empty cells.
inline void expectSheetHolds(const nlohmann::json& block, const Worksheet& sheet, std::int32_t top = 1,
                             std::int32_t left = 1) {
  for (std::size_t r = 0; r < block.size(); ++r) {
    for (std::size_t c = 0; c < block[r].size(); ++c) {
      SCOPED_TRACE(testing::Message() << "row " << r + 1 << " column " << c + 1);
      const CellValue v = sheet.cellValue(top + static_cast<std::int32_t>(r), left + static_cast<std::int32_t>(c));
      const nlohmann::json& j = block[r][c];
      if (j.is_null()) {
        EXPECT_TRUE(v.isEmpty());
      } else if (j.is_number()) {
        ASSERT_TRUE(v.isNumber());
        EXPECT_EQ(v.number(), j.get<double>());
      } else {
        ASSERT_TRUE(v.isText());
        EXPECT_EQ(v.text(), j.get<std::string>());
      }
    }
  }
}

}  // namespace orv::test
