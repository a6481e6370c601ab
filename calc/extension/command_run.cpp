#include "calc/extension/command_run.h"

#include <optional>
#include <stdexcept>

#include "circular/clsDSCirc.h"
#include "cli/arithmetic_notes.h"
#include "cli/column_messages.h"
#include "cli/error_messages.h"
#include "cli/used_cells.h"
#include "descriptive/clsDS.h"
#include "frame/errors.h"
#include "frequency/clsFreq.h"
#include "support/host_session.h"

namespace orv::extension {
namespace {

std::string textOption(const OptionValues& values, std::string_view name) {
  const auto given = values.find(name);
  return given == values.end() ? std::string() : std::get<std::string>(given->second);
}

// What a failed run leaves for its sentence, as the command collects it.
struct FailureNotes {
  std::optional<ColumnFailure> failure;
  std::optional<std::string> cause;
};

// Sets the options and runs Results; on a failure of Results the driver's record of the failed
// column goes to `failed`. Returns the pasted block and the analysis's notes as sentences
// (clsFreq keeps none).
template <class A>
RunOutcome runAnalysis(const OptionValues& values, Application& app, FailureNotes& failed) {
  A analysis;
  applyOptions(analysis, values, app);
  try {
    analysis.Results(overWriteOf(values));
  } catch (const ComponentError&) {
    failed.failure = analysis.failure();
    throw;
  }
  RunOutcome outcome{true, analysis.pastedBlock()->AddressWithSheet(), {}};
  if constexpr (requires { analysis.notes(); }) cli::addNoteWarnings(analysis.notes(), outcome.notes);
  return outcome;
}

RunOutcome run(Command command, const OptionValues& values, Application& app, FailureNotes& failed) {
  switch (command) {
    case Command::Describe: return runAnalysis<clsDS>(values, app, failed);
    case Command::Circular: try { return runAnalysis<clsDSCirc>(values, app, failed);
      } catch (const ComponentError& e) {
        if (e.number() == err::kCircularInput) {
          failed.cause = cli::angleOutsideSentence(app, cli::usedCells(app, textOption(values, "InputRange")));
        }
        throw;
      }
    case Command::Frequency: return runAnalysis<clsFreq>(values, app, failed);
  }
  throw std::logic_error("unknown command");
}

}  // namespace

RunOutcome runCommand(Command command, const OptionValues& values) {
  Application& app = HostSession::Application();
  const cli::ErrorContext context{textOption(values, "InputRange"), textOption(values, "OutputRange"),
                                  std::string(commandInfo(command).analysis)};
  FailureNotes failed;
  try {
    return run(command, values, app, failed);
  } catch (const ComponentError& e) {
    return {false, cli::messageFor(e, context, failed.failure, failed.cause), {}};
  }
}

}  // namespace orv::extension
