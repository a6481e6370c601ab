#include "cli/analysis_run.h"

#include <fmt/format.h>
#include <CLI/CLI.hpp>

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <vector>

#include "cli/calc_run.h"
#include "cli/file_checks.h"
#include "cli/help_model.h"
#include "cli/input_checks.h"
#include "cli/progress.h"
#include "cli/reference_text.h"
#include "cli/run_exits.h"
#include "cli/run_report.h"
#include "cli/standard_input.h"
#include "frame/errors.h"
#include "frame/host.h"
#include "frame/sheet_name.h"
#include "support/host_session.h"
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

bool readsStandardInput(const FileOptions& files) { return files.input == kStandardInputName; }

// Flags that contradict each other, refused before anything is read.
std::optional<Failure> contradiction(const FileOptions& files, const AnalysisRequest& request) {
  const bool writes = !files.out.empty() || files.inPlace;
  if (!files.out.empty() && files.inPlace) return usage("give either -o/--out or --in-place, not both");
  if (files.json && files.csv) return usage("give either --json or --csv, not both");
  if (files.quiet && (files.json || files.csv)) {
    return usage(std::string("--quiet prints nothing, but ") + (files.json ? "--json" : "--csv") +
                 " asks for the results on standard output; leave out one of them");
  }
  if (files.quiet && !writes) {
    return usage(
        "--quiet prints nothing and nothing would be written; give -o OUT.xlsx (or --in-place) to keep the "
        "results, or leave out --quiet");
  }
  if (!request.charts.empty() && !writes) {
    return usage(request.charts.front() +
                 " draws a chart into the written workbook; give -o OUT.xlsx (or --in-place) to write one");
  }
  if (files.inPlace && readsStandardInput(files)) {
    return usage("standard input cannot be written in place; use -o OUT.xlsx instead of --in-place");
  }
  return std::nullopt;
}

// Checks that need no reading: the names of the files, whether the input can be opened and the
// output may be written.
std::optional<Failure> checkFiles(const FileOptions& files) {
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
  return std::nullopt;
}

// Checks that need the workbook read: where its kind and the output's name must agree.
std::optional<Failure> checkKind(const FileOptions& files, const LoadedPackageInfo& info) {
  if (files.inPlace && !info.fromPackage) {
    return usage("results cannot be written into a text file; use -o OUT.xlsx instead of --in-place");
  }
  if (files.out.empty()) return std::nullopt;
  const std::string wanted = packageExtension(info);
  const std::string given = lowerExtension(files.out);
  if (given == wanted) return std::nullopt;
  if (wanted == ".xlsm" && (given == ".xlsx" || given == ".xltx")) {
    return usage(quotedPath(files.input) + " is a macro-enabled workbook, whose macros a " + given +
                 " file cannot hold; write it to a .xlsm file instead of " + quotedPath(files.out));
  }
  if (given == ".xlsm" && wanted == ".xlsx") {
    return usage(quotedPath(files.input) +
                 " holds no macros, so it is written as a .xlsx workbook; give -o a "
                 ".xlsx name instead of " +
                 quotedPath(files.out));
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

// The run on the built-in workbook model; `inputName` is what the progress line calls the input.
int runInMemory(const FileOptions& files, const AnalysisRequest& request, const std::string& inputName) {
  if (const auto refused = checkFiles(files)) return reportFailure(files, *refused);
  Progress progress;
  InMemoryApplication app;
  RunNotes notes;
  const auto fail = [&](const Failure& failure) {
    progress.clear();
    return reportFailure(files, failure, notes.warnings);
  };
  try {
    progress.step("Reading " + inputName + " ...");
    LoadedWorkbook loaded = openWorkbookFile(app, files.input);
    if (const auto refused = checkKind(files, loaded.info)) return fail(*refused);
    std::vector<std::string> originalSheets;
    for (std::int32_t i = 1; i <= loaded.book.WorksheetsCount(); ++i) {
      originalSheets.push_back(loaded.book.Worksheets(i).Name());
    }

    AttachedHost attached(app);
    inspectInputs(app, &loaded, request, notes.warnings);
    const RecordSource source = recordSource(request);
    progress.step("Analysing " + request.context.input + " ...");
    const Range pasted = request.run(notes);
    PastedBlock block = readPasted(pasted, source);
    addArithmeticNotes(block.records, notes.arithmetic);

    const std::filesystem::path target = files.inPlace ? files.input : files.out;
    if (!target.empty()) {
      progress.step("Writing " + target.string() + " ...");
      writeResults(files, loaded, originalSheets, pasted, target);
    }
    progress.clear();
    printReport(files, request, block, notes.warnings, target);
    return kExitOk;
  } catch (const InputRefused& e) {
    return fail(failed(e.what()));
  } catch (const ComponentError& e) {
    return fail(
        Failure{kExitFailed, sentenceFor(e, request.context, notes.failure, notes.cause), e.number(), e.source()});
  }
}

}  // namespace

void addFileOptions(CLI::App& command, FileOptions& files) {
  command.add_option("FILE", files.input, "workbook to analyse (.xlsx, .xlsm, .csv, .tsv), or - for standard input")
      ->required()
      ->type_name("FILE")
      ->group(kInputGroup);
  command
      .add_option("-o,--out", files.out,
                  "write the workbook with the results to this .xlsx file (.xlsm for a macro-enabled workbook; the "
                  "input is never changed)")
      ->type_name("FILE")
      ->group(kOutputGroup);
  command.add_flag("--in-place", files.inPlace, "write the results into the input workbook itself")
      ->group(kOutputGroup);
  command.add_flag("--json", files.json, "print the results as one JSON document instead of the table")
      ->group(kOutputGroup);
  command
      .add_flag(
          "--csv", files.csv,
          "print the results as CSV lines instead of the table (one line per column and statistic, or per category)")
      ->group(kOutputGroup);
  command.add_flag("--quiet", files.quiet, "print nothing but warnings and errors; the written workbook is the result")
      ->group(kOutputGroup);
  addHostOption(command, files.host);
}

void addOutputOptions(CLI::App& command, std::string& output, bool& overwrite, const std::string& what) {
  command.add_option("--output", output, "cell where " + what + ", e.g. \"Data!F1\" (default: a new sheet at the end)")
      ->type_name("CELL")
      ->group(kOutputGroup)
      ->transform(referenceText("--output"));
  command.add_flag("--overwrite", overwrite, "replace whatever is in the output area")->group(kOutputGroup);
}

int refuseUsage(const FileOptions& files, const std::string& sentence) { return reportFailure(files, usage(sentence)); }

int runAnalysis(const FileOptions& given, const AnalysisRequest& request) {
  if (const auto refused = contradiction(given, request)) return reportFailure(given, *refused);
  std::optional<StandardInputCopy> standardInput;
  FileOptions files = given;
  if (readsStandardInput(given)) {
    try {
      standardInput.emplace();
    } catch (const std::runtime_error& e) {
      return reportFailure(given, failed(e.what()));
    }
    files.input = standardInput->path();
    if (std::filesystem::file_size(files.input) == 0) return reportFailure(given, failed(kEmptyStandardInput));
  }
  if (files.host == kCalcHost) return runAnalysisInCalc(files, request);
  return runInMemory(files, request, readsStandardInput(given) ? "standard input" : files.input.string());
}

}  // namespace orv::cli
