#include "cli/analysis_run.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <vector>

#include "cli/block_report.h"
#include "cli/progress.h"
#include "frame/errors.h"
#include "frame/host.h"
#include "frame/sheet_name.h"
#include "support/host_session.h"
#include "workbook/in_memory_application.h"
#include "xlsx/reader_workbook.h"
#include "xlsx/writer_workbook.h"

namespace orv::cli {
namespace {

// Detaches the host however the run ends.
struct Attached {
  explicit Attached(Application& app) { HostSession::Attach(&app); }
  ~Attached() { HostSession::Attach(nullptr); }
  Attached(const Attached&) = delete;
  Attached& operator=(const Attached&) = delete;
};

int usage(const std::string& message) {
  std::cerr << "orvella: " << message << "\n";
  return kExitUsage;
}

}  // namespace

void addFileOptions(CLI::App& command, FileOptions& files) {
  command.add_option("FILE", files.input, "workbook to analyse (.xlsx, .xlsm, .csv, .tsv)")
      ->required()
      ->check(CLI::ExistingFile);
  command.add_option("-o,--out", files.out,
                     "write the workbook with the results to this .xlsx file (the input is never "
                     "changed)");
  command.add_flag("--in-place", files.inPlace, "write the results into the input workbook itself");
  command.add_flag("--json", files.json, "print one JSON document instead of the table");
}

void addOutputOptions(CLI::App& command, std::string& output, bool& overwrite, const std::string& what) {
  command.add_option("--output", output,
                     "cell where " + what + ", e.g. \"Data!F1\" (default: a new sheet at the end)");
  command.add_flag("--overwrite", overwrite, "replace whatever is in the output area");
}

int runAnalysis(const FileOptions& files, const AnalysisRequest& request) {
  if (!files.out.empty() && files.inPlace) return usage("give either -o/--out or --in-place, not both");
  if (!files.out.empty()) {
    std::string ext = files.out.extension().string();
    std::transform(ext.begin(), ext.end(), ext.begin(), [](unsigned char c) { return std::tolower(c); });
    if (ext != ".xlsx" && ext != ".xlsm") return usage("the output file must end in .xlsx or .xlsm: " + files.out.string());
  }

  Progress progress;
  InMemoryApplication app;
  try {
    progress.step("Reading " + files.input.string() + " ...");
    LoadedWorkbook loaded = openWorkbookFile(app, files.input);
    if (files.inPlace && !loaded.info.fromPackage) {
      progress.clear();
      return usage("results cannot be written into a text file; use -o OUT.xlsx instead of --in-place");
    }
    std::vector<std::string> originalSheets;
    for (std::int32_t i = 1; i <= loaded.book.WorksheetsCount(); ++i) {
      originalSheets.push_back(loaded.book.Worksheets(i).Name());
    }

    Attached attached(app);
    progress.step("Analysing " + request.context.input + " ...");
    const Range pasted = request.run();
    const ValueArray2D block = pasted.Values();
    const std::string sheetName = pasted.Parent().Name();
    std::vector<std::string> formats;  // row by row, for the printed table
    for (std::int32_t r = 1; r <= pasted.RowsCount(); ++r) {
      for (std::int32_t c = 1; c <= pasted.ColumnsCount(); ++c) {
        formats.push_back(pasted.Cells(r, c).NumberFormat());
      }
    }

    std::filesystem::path target = files.inPlace ? files.input : files.out;
    if (!target.empty()) {
      progress.step("Writing " + target.string() + " ...");
      if (loaded.info.fromPackage) {
        std::vector<SheetChange> changes;
        if (std::any_of(originalSheets.begin(), originalSheets.end(),
                        [&](const std::string& s) { return sameSheetName(s, sheetName); })) {
          changes.push_back(SheetChange{sheetName, pasted.block()});
        }
        writeIntoPackage(files.input, loaded.book, changes, target);
      } else {
        writeNewWorkbook(loaded.book, target);
      }
    }
    progress.clear();
    const std::vector<std::string> warnings =
        request.warnings ? *request.warnings : std::vector<std::string>{};
    for (const std::string& w : warnings) std::cerr << "orvella: warning: " << w << "\n";

    if (files.json) {
      nlohmann::json doc;
      doc["analysis"] = request.analysis;
      doc["input"] = request.context.input;
      doc["options"] = request.options;
      doc["output"] = {{"sheet", sheetName},
                       {"cell", pasted.Cells(1, 1).Address()},
                       {"range", pasted.Address()}};
      doc["written"] = target.empty() ? nlohmann::json(nullptr) : nlohmann::json(target.string());
      doc["warnings"] = warnings;
      doc["block"] = blockToJson(block);
      std::cout << doc.dump(2) << "\n";
    } else {
      std::cout << formatTable(block, &formats) << std::flush;
      if (!target.empty()) {
        std::cerr << fmt::format("Results written to {}, sheet \"{}\" at {}.\n", target.string(),
                                 sheetName, pasted.Cells(1, 1).Address());
      }
    }
    return kExitOk;
  } catch (const ComponentError& e) {
    progress.clear();
    std::cerr << "orvella: " << messageFor(e, request.context) << "\n";
    return kExitFailed;
  }
}

}  // namespace orv::cli
