#pragma once
// The part every analysis command shares: load the workbook, attach it as the host, run the
// analysis as an add-in would, then print the written block and write the workbook if asked.
//
// Exit codes: 0 success, 1 the analysis or a file failed, 2 wrong usage.
//
// References reach the analyses through usedCells (cli/used_cells.h), which cuts whole columns
// and rows ("A:A") to the used cells of their sheet.

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "cli/error_messages.h"
#include "frame/range.h"

namespace CLI {
class App;
}  // namespace CLI

namespace orv::cli {

inline constexpr int kExitOk = 0;
inline constexpr int kExitFailed = 1;
inline constexpr int kExitUsage = 2;

struct FileOptions {
  std::filesystem::path input;
  std::filesystem::path out;  // empty: nothing is written unless inPlace
  bool inPlace = false;
  bool json = false;
};

// Adds FILE, -o/--out, --in-place and --json to a subcommand.
void addFileOptions(CLI::App& command, FileOptions& files);
// Adds --output and --overwrite; `what` says what lands there ("the table goes").
void addOutputOptions(CLI::App& command, std::string& output, bool& overwrite, const std::string& what);

struct AnalysisRequest {
  std::string analysis;       // "describe", ...
  nlohmann::json options;     // the options as given, for the JSON report
  ErrorContext context;       // references, for error sentences
  // Sets up and runs the public analysis object; returns the block it pasted.
  std::function<Range()> run;
  // Where `run` leaves notes that do not stop it (empty cells counted as 0, ...): printed on
  // standard error after a successful run, one line each, and listed in the JSON report.
  const std::vector<std::string>* warnings = nullptr;
};

int runAnalysis(const FileOptions& files, const AnalysisRequest& request);

}  // namespace orv::cli
