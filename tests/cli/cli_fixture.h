#pragma once
// Runs the orvella binary on workbooks generated into a fresh temporary folder, and checks what a
// run printed: lines of the table, and the --json block against the workbook.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "workbook/in_memory_application.h"
#include "xlsx/reader_workbook.h"
#include "xlsx/writer_workbook.h"

extern char** environ;

namespace orv::test {

using Columns = std::vector<std::pair<std::string, std::vector<CellValue>>>;
using Args = std::vector<std::string>;
using Json = nlohmann::ordered_json;

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

inline std::vector<CellValue> cells(const std::vector<double>& xs) { return {xs.begin(), xs.end()}; }

// 1, 2, ..., n.
inline std::vector<CellValue> sequence(int n) {
  std::vector<CellValue> xs;
  for (int i = 1; i <= n; ++i) xs.emplace_back(static_cast<double>(i));
  return xs;
}

// The folder's files in name order, without the runs' captured output.
inline std::vector<std::string> listing(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (const auto& e : std::filesystem::directory_iterator(folder)) {
    const std::string name = e.path().filename().string();
    if (name != "stdout.txt" && name != "stderr.txt") names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

// The raw wait status of a started process.
inline int waitStatus(pid_t pid) {
  int status = 0;
  ::waitpid(pid, &status, 0);
  return status;
}

class CliTest : public ::testing::Test {
 protected:
  CliTest() {
    std::random_device rd;
    dir = std::filesystem::temp_directory_path() / ("orvella-cli-" + std::to_string(rd()));
    std::filesystem::create_directories(dir);
  }
  ~CliTest() override { std::filesystem::remove_all(dir); }

  RunResult run(const Args& args) const { return runWithInput(args, "/dev/null"); }

  // With standard input read from `input`.
  RunResult runWithInput(const Args& args, const std::filesystem::path& input) const {
    std::string command = environment + quoted(ORVELLA_BINARY);
    for (const std::string& a : args) command += " " + quoted(a);
    const auto outFile = dir / "stdout.txt", errFile = dir / "stderr.txt";
    command += " >" + quoted(outFile.string()) + " 2>" + quoted(errFile.string()) + " <" + quoted(input.string());
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, readFile(outFile), readFile(errFile)};
  }

  // `args` with `file` put after the command's name.
  RunResult runOn(const std::filesystem::path& file, Args args) const {
    args.insert(args.begin() + 1, file.string());
    return run(args);
  }

  // The --json document of a run that must succeed.
  Json runJson(const Args& args) const {
    const RunResult r = run(args);
    EXPECT_EQ(r.exitCode, 0) << r.err;
    return Json::parse(r.out);
  }

  // Starts orvella without waiting; its output goes to stdout.txt and stderr.txt in the folder.
  pid_t start(Args args) const {
    args.insert(args.begin(), ORVELLA_BINARY);
    std::vector<char*> argv;
    for (std::string& a : args) argv.push_back(a.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    const std::string out = (dir / "stdout.txt").string(), err = (dir / "stderr.txt").string();
    posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawn_file_actions_addopen(&actions, 2, err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    pid_t pid = -1;
    EXPECT_EQ(posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), environ), 0);
    posix_spawn_file_actions_destroy(&actions);
    return pid;
  }

  std::filesystem::path textFile(const std::string& name, const std::string& content) const {
    std::ofstream(dir / name, std::ios::binary) << content;
    return dir / name;
  }

  // A workbook with sheet "Data": `columns` side by side from A1 down, names in row 1.
  std::filesystem::path workbook(const std::string& name, const Columns& columns) const {
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

  // A workbook file read back; each stays open until the test ends.
  InMemoryWorkbook& open(const std::filesystem::path& file) {
    return openWorkbookFile(*opened_.emplace_back(std::make_unique<InMemoryApplication>()), file).book;
  }

  std::filesystem::path dir;
  std::string environment;  // "NAME=value " words put before the command

 private:
  std::vector<std::unique_ptr<InMemoryApplication>> opened_;
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

// One CSV record split into fields: quoted fields may hold commas and doubled quotes.
inline std::vector<std::string> csvFields(const std::string& line) {
  std::vector<std::string> fields(1);
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (quoted && c == '"' && i + 1 < line.size() && line[i + 1] == '"') {
      fields.back() += '"';
      ++i;
    } else if (c == '"') {
      quoted = !quoted;
    } else if (c == ',' && !quoted) {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  return fields;
}

inline std::vector<std::vector<std::string>> csvRecords(const std::string& text) {
  std::vector<std::vector<std::string>> records;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) records.push_back(csvFields(line));
  return records;
}

// A command line whose words hold no blanks; the word FILE stands for `file`.
inline Args commandLine(const std::string& line, const std::string& file = "") {
  Args args = words(line);
  for (std::string& a : args) {
    if (a == "FILE") a = file;
  }
  return args;
}

// `block` starts at (top, left) of `sheet`: numbers must match to `relative` (full precision by
// default), texts exactly, nulls must be empty cells.
inline void expectSheetHolds(const Json& block, const Worksheet& sheet, double relative = 0, std::int32_t top = 1,
                             std::int32_t left = 1) {
  for (std::size_t r = 0; r < block.size(); ++r) {
    for (std::size_t c = 0; c < block[r].size(); ++c) {
      SCOPED_TRACE(testing::Message() << "row " << r + 1 << " column " << c + 1);
      const CellValue v = sheet.cellValue(top + static_cast<std::int32_t>(r), left + static_cast<std::int32_t>(c));
      const Json& j = block[r][c];
      if (j.is_null()) {
        EXPECT_TRUE(v.isEmpty());
      } else if (j.is_number()) {
        ASSERT_TRUE(v.isNumber());
        EXPECT_NEAR(v.number(), j.get<double>(), relative * std::max(1.0, std::fabs(v.number())));
      } else {
        ASSERT_TRUE(v.isText());
        EXPECT_EQ(v.text(), j.get<std::string>());
      }
    }
  }
}

}  // namespace orv::test
