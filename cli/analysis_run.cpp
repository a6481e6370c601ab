#include "cli/analysis_run.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <vector>

#include "cli/calc_run.h"
#include "cli/file_checks.h"
#include "cli/input_checks.h"
#include "cli/progress.h"
#include "cli/run_exits.h"
#include "cli/run_report.h"
#include "frame/errors.h"
#include "frame/host.h"
#include "frame/sheet_name.h"
#include "workbook/in_memory_application.h"
#include "xlsx/package_atomic_write.h"
#include "xlsx/reader_workbook.h"
#include "xlsx/writer_workbook.h"

namespace orv::cli {
namespace {

// The extensions a package may be written under; which one fits is known once it is read.
bool writableExtension(const std::string& ext) {
  return ext == ".xlsx" || ext == ".xlsm" || ext == ".xltx" || ext == ".xltm" || ext == ".xlam";
}

// Checks that need no reading: the combination of flags, the names of the files, whether the
// input can be opened and the output may be written. A failure is said here; 0 means go on.
int checkFiles(const FileOptions& files) {
  if (!files.out.empty() && files.inPlace) return usage("give either -o/--out or --in-place, not both");
  if (!files.out.empty() && !writableExtension(lowerExtension(files.out))) {
    return usage("-o takes a workbook file ending in .xlsx (or .xlsm for a macro-enabled workbook), not " +
                 quotedPath(files.out));
  }
  if (const auto why = cannotOpen(files.input)) return failed("cannot open " + quotedPath(files.input) + ": " + *why);
  if (!files.out.empty() && sameFile(files.out, files.input)) {
    return usage("-o " + quotedPath(files.out) +
                 " is the input workbook itself; use --in-place to write the results into it");
  }
  const std::filesystem::path target = files.inPlace ? files.input : files.out;
  if (!target.empty()) {
    if (const auto why = refusalToWrite(target)) return failed("cannot write " + quotedPath(target) + ": " + *why);
  }
  return kExitOk;
}

// Checks that need the workbook read: where its kind and the output's name must agree.
int checkKind(const FileOptions& files, const LoadedPackageInfo& info) {
  if (files.inPlace && !info.fromPackage) {
    return usage("results cannot be written into a text file; use -o OUT.xlsx instead of --in-place");
  }
  if (files.out.empty()) return kExitOk;
  const std::string wanted = packageExtension(info);
  const std::string given = lowerExtension(files.out);
  if (given == wanted) return kExitOk;
  if (wanted == ".xlsm" && (given == ".xlsx" || given == ".xltx")) {
    return usage(quotedPath(files.input) + " is a macro-enabled workbook, whose macros a " + given +
                 " file cannot hold; write it to a .xlsm file instead of " + quotedPath(files.out));
  }
  if (given == ".xlsm" && wanted == ".xlsx") {
    return usage(quotedPath(files.input) + " holds no macros, so it is written as a .xlsx workbook; give -o a "
                 ".xlsx name instead of " + quotedPath(files.out));
  }
  return usage(quotedPath(files.input) + " is a " + wanted + " package; give -o a " + wanted + " name instead of " +
               quotedPath(files.out));
}

void writeResults(const FileOptions& files, const LoadedWorkbook& loaded,
                  const std::vector<std::string>& originalSheets, const Range& pasted,
                  const std::filesystem::path& target) {
  if (!loaded.info.fromPackage) {
    writeNewWorkbook(loaded.book, target);
    return;
  }
  std::vector<SheetChange> changes;
  const std::string sheetName = pasted.Parent().Name();
  if (std::any_of(originalSheets.begin(), originalSheets.end(),
                  [&](const std::string& s) { return sameSheetName(s, sheetName); })) {
    // The pasted block, and whatever the analysis wrote beside it (the data of its charts).
    const std::optional<CellBlock> written = loaded.book.Worksheets(sheetName).writtenBlock();
    const CellBlock& p = pasted.block();
    const CellBlock w = written.value_or(p);
    changes.push_back(SheetChange{sheetName, CellBlock{std::min(p.top, w.top), std::min(p.left, w.left),
                                                       std::max(p.bottom, w.bottom), std::max(p.right, w.right)}});
  }
  writeIntoPackage(files.input, loaded.book, changes, target);
}

}  // namespace

void addFileOptions(CLI::App& command, FileOptions& files) {
  command.add_option("FILE", files.input, "workbook to analyse (.xlsx, .xlsm, .csv, .tsv)")->required();
  command.add_option("-o,--out", files.out,
                     "write the workbook with the results to this .xlsx file (.xlsm for a macro-enabled "
                     "workbook; the input is never changed)");
  command.add_flag("--in-place", files.inPlace, "write the results into the input workbook itself");
  command.add_flag("--json", files.json, "print one JSON document instead of the table");
  addHostOption(command, files.host);
}

void addOutputOptions(CLI::App& command, std::string& output, bool& overwrite, const std::string& what) {
  command.add_option("--output", output,
                     "cell where " + what + ", e.g. \"Data!F1\" (default: a new sheet at the end)");
  command.add_flag("--overwrite", overwrite, "replace whatever is in the output area");
}

int runAnalysis(const FileOptions& files, const AnalysisRequest& request) {
  if (files.host == kCalcHost) return runAnalysisInCalc(files, request);
  if (const int refused = checkFiles(files); refused != kExitOk) return refused;
  Progress progress;
  InMemoryApplication app;
  RunNotes notes;
  try {
    progress.step("Reading " + files.input.string() + " ...");
    LoadedWorkbook loaded = openWorkbookFile(app, files.input);
    if (const int refused = checkKind(files, loaded.info); refused != kExitOk) {
      progress.clear();
      return refused;
    }
    std::vector<std::string> originalSheets;
    for (std::int32_t i = 1; i <= loaded.book.WorksheetsCount(); ++i) {
      originalSheets.push_back(loaded.book.Worksheets(i).Name());
    }

    AttachedHost attached(app);
    inspectInputs(app, &loaded, request, notes.warnings);
    progress.step("Analysing " + request.context.input + " ...");
    const Range pasted = request.run(notes);
    const ValueArray2D block = pasted.Values();
    const std::vector<std::string> formats = numberFormatsOf(pasted);

    const std::filesystem::path target = files.inPlace ? files.input : files.out;
    if (!target.empty()) {
      progress.step("Writing " + target.string() + " ...");
      writeResults(files, loaded, originalSheets, pasted, target);
    }
    progress.clear();
    report(files, request, pasted, block, formats, notes.warnings, target);
    return kExitOk;
  } catch (const InputRefused& e) {
    progress.clear();
    printWarnings(notes.warnings);
    return failed(e.what());
  } catch (const ComponentError& e) {
    progress.clear();
    printWarnings(notes.warnings);
    return failed(messageFor(e, request.context, notes.failure, notes.cause));
  }
}

}  // namespace orv::cli
