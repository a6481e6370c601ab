#include "calc/extension/command_run.h"

#include <optional>
#include <stdexcept>

#include "circular/clsDSCirc.h"
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
// column goes to `notes`. Returns the pasted block.
template <class A>
Range runAnalysis(const OptionValues& values, Application& app, FailureNotes& notes) {
  A analysis;
  applyOptions(analysis, values, app);
  try {
    analysis.Results(overWriteOf(values));
  } catch (const ComponentError&) {
    notes.failure = analysis.failure();
    throw;
  }
  return *analysis.pastedBlock();
}

Range run(Command command, const OptionValues& values, Application& app, FailureNotes& notes) {
  switch (command) {
    case Command::Describe: return runAnalysis<clsDS>(values, app, notes);
    case Command::Circular: try { return runAnalysis<clsDSCirc>(values, app, notes);
      } catch (const ComponentError& e) {
        if (e.number() == err::kCircularInput) {
          notes.cause = cli::angleOutsideSentence(app, cli::usedCells(app, textOption(values, "InputRange")));
        }
        throw;
      }
    case Command::Frequency: return runAnalysis<clsFreq>(values, app, notes);
  }
  throw std::logic_error("unknown command");
}

}  // namespace

RunOutcome runCommand(Command command, const OptionValues& values) {
  Application& app = HostSession::Application();
  const cli::ErrorContext context{textOption(values, "InputRange"), textOption(values, "OutputRange"),
                                  std::string(commandInfo(command).analysis)};
  FailureNotes notes;
  try {
    return {true, run(command, values, app, notes).AddressWithSheet()};
  } catch (const ComponentError& e) {
    return {false, cli::messageFor(e, context, notes.failure, notes.cause)};
  }
}

}  // namespace orv::extension
