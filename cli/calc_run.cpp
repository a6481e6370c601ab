#include "cli/calc_run.h"

#include <signal.h>
#include <CLI/CLI.hpp>

#include <algorithm>
#include <atomic>
#include <cctype>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <thread>

#include "calc/calc_session.h"
#include "cli/progress.h"
#include "cli/run_report.h"
#include "frame/errors.h"
#include "support/host_session.h"
#include "xlsx/csv_reader.h"
#include "xlsx/package_atomic_write.h"

namespace orv::cli {
namespace {

using calc::CalcSession;
using calc::OfficeError;

// What the delimiter is guessed from: the opening lines of the file.
constexpr std::size_t kDelimiterSample = 1 << 16;

// SIGINT, SIGTERM and SIGHUP are blocked for the run (threads made later inherit that) and taken
// by a thread of their own, which stops the office by its process id at once. The run's pending
// call to the office then fails, and the run unwinds, removing its temporary files.
class OfficeSignals {
 public:
  OfficeSignals() {
    sigemptyset(&set_);
    for (int s : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&set_, s);
    pthread_sigmask(SIG_BLOCK, &set_, &previous_);
    waiter_ = std::thread([this] { wait(); });
  }
  ~OfficeSignals() {
    stop_ = true;
    waiter_.join();
    pthread_sigmask(SIG_SETMASK, &previous_, nullptr);
  }
  OfficeSignals(const OfficeSignals&) = delete;
  OfficeSignals& operator=(const OfficeSignals&) = delete;

  void watch(pid_t office) {
    office_ = office;
    if (caught_ != 0) ::kill(office, SIGKILL);
  }
  int caught() const { return caught_; }

 private:
  void wait() {
    const timespec poll{0, 100'000'000};
    while (!stop_) {
      const int s = sigtimedwait(&set_, nullptr, &poll);
      if (s <= 0) continue;
      caught_ = s;
      const pid_t office = office_;
      if (office > 0) ::kill(office, SIGKILL);
      return;
    }
  }

  sigset_t set_{}, previous_{};
  std::atomic<bool> stop_{false};
  std::atomic<int> caught_{0};
  std::atomic<pid_t> office_{0};
  std::thread waiter_;
};

// Detaches the host however the run ends.
struct Attached {
  explicit Attached(Application& app) { HostSession::Attach(&app); }
  ~Attached() { HostSession::Attach(nullptr); }
  Attached(const Attached&) = delete;
  Attached& operator=(const Attached&) = delete;
};

std::string lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
  return text;
}

// Delimited text needs its delimiter named to the office; it is guessed as the command's own
// reader guesses it.
std::optional<char> textDelimiter(const std::filesystem::path& file) {
  const std::string ext = lower(file.extension().string());
  if (ext != ".csv" && ext != ".tsv" && ext != ".txt") return std::nullopt;
  std::ifstream in(file, std::ios::binary);
  std::string sample(kDelimiterSample, '\0');
  in.read(sample.data(), static_cast<std::streamsize>(sample.size()));
  sample.resize(static_cast<std::size_t>(in.gcount()));
  return detectDelimiter(sample, ext == ".tsv" ? '\t' : ',');
}

int usage(const std::string& message) {
  std::cerr << "orvella: " << message << "\n";
  return kExitUsage;
}

int failed(const std::string& message) {
  std::cerr << "orvella: " << message << "\n";
  return kExitFailed;
}

}  // namespace

void addHostOption(CLI::App& command, std::string& host) {
  command
      .add_option("--host", host,
                  "where the analysis runs: memory (default; the built-in workbook model) or calc "
                  "(a headless LibreOffice Calc started for this run; reads .ods too and writes .xlsx or .ods)")
      ->check(CLI::IsMember({"memory", kCalcHost}));
}

int runAnalysisInCalc(const FileOptions& files, const AnalysisRequest& request) {
  if (!files.out.empty() && files.inPlace) return usage("give either -o/--out or --in-place, not both");
  const std::optional<char> delimiter = textDelimiter(files.input);
  if (files.inPlace && delimiter) {
    return usage("results cannot be written into a text file; use -o OUT.xlsx instead of --in-place");
  }
  const std::filesystem::path target = files.inPlace ? files.input : files.out;
  const std::optional<calc::OfficeFormat> format = calc::officeFormatFor(target);
  if (!target.empty() && !format) {
    return usage("with --host calc the output file must end in .xlsx or .ods: " + target.string());
  }

  OfficeSignals signals;
  Progress progress;
  std::optional<CalcSession> session;
  // Only asked after a failure: an office killed a moment ago gets two seconds to be gone.
  const auto officeStopped = [&] { return session && !session->officeRunning(std::chrono::seconds(2)); };
  const auto stoppedMessage = [&](const std::string& what) {
    return "LibreOffice (process " + std::to_string(session->officePid()) +
           ") stopped during the run; nothing was written (" + what + ")";
  };
  const auto interrupted = [&] {
    progress.clear();
    std::cerr << "orvella: interrupted; LibreOffice was stopped and nothing was written\n";
    return 128 + signals.caught();
  };
  try {
    progress.step("Starting LibreOffice ...");
    session.emplace();
    signals.watch(session->officePid());
    progress.step("Reading " + files.input.string() + " ...");
    Workbook& book = session->open(files.input, delimiter);

    Attached attached(session->application());
    progress.step("Analysing " + request.context.input + " ...");
    const Range pasted = request.run();
    session->finishCall();
    const PastedBlock block = readPasted(pasted);
    if (!target.empty()) {
      progress.step("Writing " + target.string() + " ...");
      writeFileAtomically(target,
                          [&](const std::filesystem::path& temporary) { session->save(book, temporary, *format); });
    }
    if (signals.caught() != 0) return interrupted();
    progress.clear();
    printReport(files, request, block, target);
    return kExitOk;
  } catch (const ComponentError& e) {
    if (signals.caught() != 0) return interrupted();
    progress.clear();
    if (officeStopped()) return failed(stoppedMessage(e.description()));
    return failed(messageFor(e, request.context));
  } catch (const OfficeError& e) {
    if (signals.caught() != 0) return interrupted();
    progress.clear();
    if (officeStopped()) return failed(stoppedMessage(e.what()));
    return failed(e.what());
  }
}

}  // namespace orv::cli
