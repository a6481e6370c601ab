#include "cli/run_report.h"

#include <fmt/format.h>

#include <iostream>

#include "cli/block_report.h"
#include "cli/records_output.h"
#include "cli/used_cells.h"
#include "frame/errors.h"
#include "frame/host.h"
#include "support/host_session.h"

namespace orv::cli {
namespace {

using Json = nlohmann::ordered_json;

std::optional<Range> rangeOf(const AnalysisRequest& request, const std::string& flag) {
  for (const DataRange& given : request.ranges) {
    if (given.flag != flag || given.reference.empty()) continue;
    Application& app = HostSession::Application();
    try {
      return app.ResolveRange(usedCells(app, given.reference));
    } catch (const ComponentError&) {
      return std::nullopt;
    }
  }
  return std::nullopt;
}

void printWarnings(const std::vector<std::string>& warnings) {
  for (const std::string& w : warnings) std::cerr << "orvella: warning: " << w << "\n";
}

Json reportJson(const AnalysisRequest& request, const PastedBlock& pasted, const std::vector<std::string>& warnings,
                const std::filesystem::path& target) {
  Json doc;
  doc["analysis"] = request.analysis;
  doc["input"] = pasted.input ? Json(*pasted.input) : Json(nullptr);
  doc["options"] = Json(request.options);
  doc["columns"] = recordsToJson(pasted.records);
  doc["warnings"] = warnings;
  doc["output"] = {{"file", target.empty() ? Json(nullptr) : Json(target.string())},
                   {"sheet", pasted.sheet},
                   {"cell", pasted.cell},
                   {"range", pasted.address}};
  doc["block"] = blockToJson(pasted.values);
  return doc;
}

}  // namespace

RecordSource recordSource(const AnalysisRequest& request) {
  RecordSource source{request.analysis, rangeOf(request, "--input"), rangeOf(request, "--frequencies"), request.headers,
                      request.rows};
  source.textbook = request.options.is_object() && request.options.value("textbook", false);
  return source;
}

PastedBlock readPasted(const Range& pasted, const RecordSource& source) {
  PastedBlock block;
  block.values = pasted.Values();
  block.sheet = pasted.Parent().Name();
  for (std::int32_t r = 1; r <= pasted.RowsCount(); ++r) {
    for (std::int32_t c = 1; c <= pasted.ColumnsCount(); ++c) {
      block.formats.push_back(pasted.Cells(r, c).NumberFormat());
    }
  }
  block.cell = pasted.Cells(1, 1).Address();
  block.address = pasted.Address();
  if (source.input) block.input = source.input->AddressWithSheet();
  block.records = readRecords(block.values, block.formats, source);
  return block;
}

void printReport(const FileOptions& files, const AnalysisRequest& request, const PastedBlock& pasted,
                 const std::vector<std::string>& warnings, const std::filesystem::path& target) {
  printWarnings(warnings);
  if (files.json) {
    std::cout << reportJson(request, pasted, warnings, target).dump(2) << "\n";
  } else if (files.csv) {
    std::cout << recordsToCsv(pasted.records, request.analysis == "frequency") << std::flush;
  } else if (!files.quiet) {
    std::cout << formatTable(pasted.values, &pasted.formats) << std::flush;
  }
  if (!target.empty() && !files.quiet && !files.json && !files.csv) {
    std::cerr << fmt::format("Results written to {}, sheet \"{}\" at {}.\n", target.string(), pasted.sheet,
                             pasted.cell);
  }
}

}  // namespace orv::cli
