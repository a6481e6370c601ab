#pragma once
// What a finished run shows, whichever host ran it: the pasted block read back with its number
// formats and its records, then the warnings, and the table, the JSON document or the CSV lines
// (a failed run: cli/run_exits.h).

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "cli/analysis_run.h"
#include "cli/result_records.h"
#include "frame/range.h"
#include "frame/value_array.h"

namespace orv::cli {

struct PastedBlock {
  ValueArray2D values;
  std::vector<std::string> formats;  // row by row, one per cell
  std::string sheet;
  std::string cell;                  // the first cell's address
  std::string address;               // the block's address
  std::optional<std::string> input;  // the analysed --input with its sheet ("Heights!$A$1:$C$13")
  std::vector<ColumnRecord> records;
};

// Where the records' columns come from: the request's data ranges, resolved before the run (an
// unqualified reference reads the sheet active then, not the results sheet).
RecordSource recordSource(const AnalysisRequest& request);

// Reads the block and works out its records; the host must still be attached.
PastedBlock readPasted(const Range& pasted, const RecordSource& source);

// `target` is the file written, empty when none was.
void printReport(const FileOptions& files, const AnalysisRequest& request, const PastedBlock& pasted,
                 const std::vector<std::string>& warnings, const std::filesystem::path& target);

}  // namespace orv::cli
