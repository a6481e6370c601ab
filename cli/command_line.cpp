#include "cli/command_line.h"

#include <algorithm>
#include <iostream>
#include <string_view>

#include "cli/analysis_run.h"
#include "cli/arguments.h"
#include "cli/circular_command.h"
#include "cli/completion.h"
#include "cli/describe_command.h"
#include "cli/frequency_command.h"
#include "cli/help_model.h"
#include "cli/help_text.h"
#include "cli/run_exits.h"
#include "cli/sheets_command.h"

namespace orv::cli {

void buildCommandLine(CLI::App& app, int& exitCode, const std::string& version) {
  app.description(
      "Orvella: descriptive statistics, circular statistics and frequency distributions for spreadsheet data. "
      "Reads a workbook, writes a labelled results table into it, and prints the table.");
  useHelpText(app);
  app.set_help_flag("-h,--help", "show this help and exit")->group(kOtherGroup);
  app.set_version_flag("--version", "orvella " + version, "show the version and exit")->group(kOtherGroup);
  app.require_subcommand(1);
  app.footer(R"(Examples:
  orvella sheets plants.xlsx
  orvella describe plants.xlsx --input "Heights!A1:C13" --headers --all
  orvella describe plants.xlsx --input "Heights!A1:C13" --headers --mean --sd -o results.xlsx
  orvella circular headings.xlsx --input "Pigeons!A1:B16" --headers --rayleigh
  orvella frequency survey.xlsx --input "Survey!B1:B31" --headers --nominal

Run "orvella COMMAND --help" for the options of a command.)");
  addDescribeCommand(app, exitCode);
  addCircularCommand(app, exitCode);
  addFrequencyCommand(app, exitCode);
  addSheetsCommand(app, exitCode);
  addCompletionCommand(app, exitCode);
}

int runCommandLine(CLI::App& app, int& exitCode, int argc, char** argv) {
  // A script that asked for JSON reads standard output, so wrong usage goes there too.
  const auto refuse = [&](const std::string& sentence) {
    std::cerr << "orvella: " << sentence << "\n";
    if (std::any_of(argv + 1, argv + argc, [](const char* a) { return std::string_view(a) == "--json"; })) {
      std::cout << failureJson({kExitUsage, sentence, std::nullopt, {}}) << "\n";
    }
    return kExitUsage;
  };
  try {
    app.parse(argc, argv);
  } catch (const UsageError& e) {
    return refuse(e.what());
  } catch (const CLI::ParseError& e) {
    // Help and version are successes; every other parse failure is wrong usage.
    if (e.get_exit_code() == 0) return app.exit(e);
    return refuse(usageLine(e, app));
  }
  return exitCode;
}

}  // namespace orv::cli
