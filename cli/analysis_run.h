#pragma once
// The part every analysis command shares: check the files, load the workbook, look over the
// input, attach the workbook as the host, run the analysis as an add-in would, then print the
// written block and write the workbook if asked.
//
// Exit codes: 0 success, 1 the data or a file failed, 2 wrong usage. Every failure is one line
// on standard error that starts with "orvella: ".
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
#include "support/column_failure.h"
#include "support/kept_rules.h"

namespace CLI {
class App;
}  // namespace CLI

namespace orv::cli {

inline constexpr int kExitOk = 0;
inline constexpr int kExitFailed = 1;
inline constexpr int kExitUsage = 2;

struct FileOptions {
  std::filesystem::path input;  // "-" for standard input (cli/standard_input.h)
  std::filesystem::path out;    // empty: nothing is written unless inPlace
  bool inPlace = false;
  bool json = false;            // records as one JSON document (cli/run_report.h)
  bool csv = false;             // records as CSV lines (cli/records_output.h)
  bool quiet = false;           // nothing on standard output; the workbook written is the result
  std::string host = "memory";  // or "calc" (cli/calc_run.h)
};

// Adds FILE, -o/--out, --in-place, --json, --csv, --quiet and --host to a subcommand.
void addFileOptions(CLI::App& command, FileOptions& files);
// Adds --output and --overwrite; `what` says what lands there ("the table goes").
void addOutputOptions(CLI::App& command, std::string& output, bool& overwrite, const std::string& what);

// What a run leaves beside its result.
struct RunNotes {
  // Notes that do not stop the run (empty cells counted as 0, formulas without values ...), one
  // sentence each: printed on standard error after "orvella: warning: " (before the error line
  // when the run fails) and listed in the JSON report. The one list every warning goes to.
  std::vector<std::string> warnings;
  // Where in its input the analysis failed, when its driver knew (support/column_failure.h).
  std::optional<ColumnFailure> failure;
  // A sentence about the failure that the command worked out from the input, said instead of
  // the general one for the error's number.
  std::optional<std::string> cause;
  // The analysis's notes where a kept rule changed a value (support/kept_rules.h), for the
  // records; their sentences are among the warnings.
  std::vector<ArithmeticNote> arithmetic;
};

// A range the analysis reads data from, as the person gave it, with the flag that gave it.
struct DataRange {
  std::string flag;       // "--input", "--bins" ...
  std::string reference;  // as given; empty when the flag was left out
};

struct AnalysisRequest {
  std::string analysis;           // "describe", ...
  nlohmann::json options;         // the options as given, for the JSON report
  ErrorContext context;           // references, for error sentences
  std::vector<DataRange> ranges;  // looked over before the run (cli/input_checks.h)
  bool headers = false;           // --headers: the first row (column, with --rows) holds names
  bool rows = false;              // --rows: variables run along rows
  // The flags given that draw charts ("--box-plot"): charts exist only in a written workbook.
  std::vector<std::string> charts;
  // Sets up and runs the public analysis object; returns the block it pasted. Adds its own
  // warnings to `notes` and, when the analysis fails, the driver's failure record.
  std::function<Range(RunNotes& notes)> run;
};

int runAnalysis(const FileOptions& files, const AnalysisRequest& request);

// A usage error found by a command in its own options: said as the run would say it (with
// --json also as a JSON document); returns kExitUsage.
int refuseUsage(const FileOptions& files, const std::string& sentence);

}  // namespace orv::cli
