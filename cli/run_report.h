#pragma once
// What a finished run shows, whichever host ran it: the warnings, then the table or the JSON
// document of the block pasted.

#include <filesystem>
#include <string>
#include <vector>

#include "cli/analysis_run.h"
#include "frame/range.h"
#include "frame/value_array.h"

namespace orv::cli {

// The pasted block's number formats, row by row, for the printed table.
std::vector<std::string> numberFormatsOf(const Range& pasted);

void printWarnings(const std::vector<std::string>& warnings);

// `block` and `formats` are the pasted block's values and formats; `target` is the file written,
// empty when none was.
void report(const FileOptions& files, const AnalysisRequest& request, const Range& pasted, const ValueArray2D& block,
            const std::vector<std::string>& formats, const std::vector<std::string>& warnings,
            const std::filesystem::path& target);

}  // namespace orv::cli
