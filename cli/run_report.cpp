#include "cli/run_report.h"

#include <fmt/format.h>

#include <iostream>

#include "cli/block_report.h"
#include "frame/host.h"

namespace orv::cli {

std::vector<std::string> numberFormatsOf(const Range& pasted) {
  std::vector<std::string> formats;
  for (std::int32_t r = 1; r <= pasted.RowsCount(); ++r) {
    for (std::int32_t c = 1; c <= pasted.ColumnsCount(); ++c) formats.push_back(pasted.Cells(r, c).NumberFormat());
  }
  return formats;
}

void printWarnings(const std::vector<std::string>& warnings) {
  for (const std::string& w : warnings) std::cerr << "orvella: warning: " << w << "\n";
}

void report(const FileOptions& files, const AnalysisRequest& request, const Range& pasted, const ValueArray2D& block,
            const std::vector<std::string>& formats, const std::vector<std::string>& warnings,
            const std::filesystem::path& target) {
  printWarnings(warnings);
  const std::string sheetName = pasted.Parent().Name();
  if (files.json) {
    nlohmann::json doc;
    doc["analysis"] = request.analysis;
    doc["input"] = request.context.input;
    doc["options"] = request.options;
    doc["output"] = {{"sheet", sheetName}, {"cell", pasted.Cells(1, 1).Address()}, {"range", pasted.Address()}};
    doc["written"] = target.empty() ? nlohmann::json(nullptr) : nlohmann::json(target.string());
    doc["warnings"] = warnings;
    doc["block"] = blockToJson(block);
    std::cout << doc.dump(2) << "\n";
    return;
  }
  std::cout << formatTable(block, &formats) << std::flush;
  if (!target.empty()) {
    std::cerr << fmt::format("Results written to {}, sheet \"{}\" at {}.\n", target.string(), sheetName,
                             pasted.Cells(1, 1).Address());
  }
}

}  // namespace orv::cli
