#pragma once
// --host calc: the same run on a live, headless LibreOffice Calc that the command starts for
// itself (calc/calc_session.h). FILE may be a workbook the office reads (.xlsx, .xlsm, .ods) or
// delimited text (.csv, .tsv, .txt); the output is saved with the office's own filters to an
// .xlsx or .ods file, atomically, or into the input itself with --in-place.
//
// An interrupt (cli/interrupts.h) stops the office by its process id and removes its profile
// before the command ends; an office that stops during the run ends it with a message saying so,
// and no output file.

#include <string>

#include "cli/analysis_run.h"

namespace CLI {
class App;
}  // namespace CLI

namespace orv::cli {

inline constexpr const char* kCalcHost = "calc";

// Adds --host memory|calc.
void addHostOption(CLI::App& command, std::string& host);

int runAnalysisInCalc(const FileOptions& files, const AnalysisRequest& request);

}  // namespace orv::cli
