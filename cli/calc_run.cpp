#include "cli/calc_run.h"

#include <CLI/CLI.hpp>

#include <fstream>
#include <iostream>
#include <optional>

#include "calc/calc_session.h"
#include "cli/arguments.h"
#include "cli/file_checks.h"
#include "cli/help_model.h"
#include "cli/input_checks.h"
#include "cli/interrupts.h"
#include "cli/progress.h"
#include "cli/run_exits.h"
#include "cli/run_report.h"
#include "frame/errors.h"
#include "xlsx/csv_reader.h"
#include "xlsx/package_atomic_write.h"

namespace orv::cli {
namespace {

using calc::CalcSession;
using calc::OfficeError;

// What the delimiter is guessed from: the opening lines of the file.
constexpr std::size_t kDelimiterSample = 1 << 16;

// Delimited text needs its delimiter named to the office; it is guessed as the command's own
// reader guesses it.
std::optional<char> textDelimiter(const std::filesystem::path& file) {
  const std::string ext = lowerExtension(file);
  if (ext != ".csv" && ext != ".tsv" && ext != ".txt") return std::nullopt;
  std::ifstream in(file, std::ios::binary);
  std::string sample(kDelimiterSample, '\0');
  in.read(sample.data(), static_cast<std::streamsize>(sample.size()));
  sample.resize(static_cast<std::size_t>(in.gcount()));
  return detectDelimiter(sample, ext == ".tsv" ? '\t' : ',');
}

// The checks that need no office, as the default host makes them, for what the office reads and
// writes.
std::optional<Failure> checkFiles(const FileOptions& files, const std::optional<char>& delimiter) {
  if (files.inPlace && delimiter) {
    return usage("results cannot be written into a text file; use -o OUT.xlsx instead of --in-place");
  }
  const std::filesystem::path target = files.inPlace ? files.input : files.out;
  if (!target.empty() && !calc::officeFormatFor(target)) {
    return usage("with --host calc the output file must end in .xlsx or .ods, not " + quotedPath(target));
  }
  if (const auto why = cannotOpen(files.input)) return failed("cannot open " + quotedPath(files.input) + ": " + *why);
  if (!files.out.empty() && sameFile(files.out, files.input)) {
    return usage("-o " + quotedPath(files.out) +
                 " is the input workbook itself; use --in-place to write the results into it");
  }
  if (!target.empty()) {
    if (const auto why = refusalToWrite(target)) return failed("cannot write " + quotedPath(target) + ": " + *why);
  }
  return std::nullopt;
}

// Runs the analysis on an office of its own; every failure leaves as an exception.
int runOnOffice(const FileOptions& files, const AnalysisRequest& request, std::optional<CalcSession>& session,
                RunNotes& notes, Progress& progress) {
  const std::optional<char> delimiter = textDelimiter(files.input);
  progress.step("Starting LibreOffice ...");
  session.emplace();
  progress.step("Reading " + files.input.string() + " ...");
  Workbook& book = session->open(files.input, delimiter);

  AttachedHost attached(session->application());
  inspectInputs(session->application(), nullptr, request, notes.warnings);
  const RecordSource source = recordSource(request);
  progress.step("Analysing " + request.context.input + " ...");
  const Range pasted = request.run(notes);
  session->finishCall();
  PastedBlock block = readPasted(pasted, source);
  addArithmeticNotes(block.records, notes.arithmetic);
  const std::filesystem::path target = files.inPlace ? files.input : files.out;
  if (!target.empty()) {
    progress.step("Writing " + target.string() + " ...");
    const calc::OfficeFormat format = *calc::officeFormatFor(target);
    writeFileAtomically(target,
                        [&](const std::filesystem::path& temporary) { session->save(book, temporary, format); });
  }
  progress.clear();
  printReport(files, request, block, notes.warnings, target);
  return kExitOk;
}

}  // namespace

void addHostOption(CLI::App& command, std::string& host) {
  const std::vector<std::string> hosts = {"memory", kCalcHost};
  setChoices(command
                 .add_option("--host", host,
                             "where the analysis runs: memory (default; the built-in workbook model) or calc (a "
                             "headless LibreOffice Calc started for this run; reads .ods too and writes .xlsx or .ods)")
                 ->type_name("HOST")
                 ->group(kInputGroup)
                 ->check(oneOf("--host", hosts)),
             hosts);
}

int runAnalysisInCalc(const FileOptions& files, const AnalysisRequest& request) {
  if (const auto refused = checkFiles(files, textDelimiter(files.input))) return reportFailure(files, *refused);
  // An interrupt stops the office by its process id before the command ends.
  atInterrupt(&calc::OfficeProcess::stopAll);

  Progress progress;
  std::optional<CalcSession> session;
  RunNotes notes;
  // Only asked after a failure: an office killed a moment ago gets two seconds to be gone.
  const auto officeStopped = [&] { return session && !session->officeRunning(std::chrono::seconds(2)); };
  const auto stoppedMessage = [&](const std::string& what) {
    return "LibreOffice (process " + std::to_string(session->officePid()) +
           ") stopped during the run; nothing was written (" + what + ")";
  };
  const auto fail = [&](const Failure& failure) {
    progress.clear();
    return reportFailure(files, failure, notes.warnings);
  };
  try {
    return runOnOffice(files, request, session, notes, progress);
  } catch (const InputRefused& e) {
    return fail(failed(e.what()));
  } catch (const ComponentError& e) {
    if (officeStopped()) return fail(failed(stoppedMessage(e.description())));
    return fail(
        Failure{kExitFailed, sentenceFor(e, request.context, notes.failure, notes.cause), e.number(), e.source()});
  } catch (const OfficeError& e) {
    if (officeStopped()) return fail(failed(stoppedMessage(e.what())));
    return fail(failed(e.what()));
  }
}

}  // namespace orv::cli
