// orvella: descriptive statistics of spreadsheet data from the terminal.

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>
#include <string_view>

#include "cli/analysis_run.h"
#include "cli/arguments.h"
#include "cli/circular_command.h"
#include "cli/describe_command.h"
#include "cli/frequency_command.h"
#include "cli/interrupts.h"
#include "cli/run_exits.h"
#include "cli/sheets_command.h"

#ifndef ORVELLA_VERSION
#define ORVELLA_VERSION "0.0.0"
#endif

int main(int argc, char** argv) {
  orv::cli::installInterruptHandling();
  CLI::App app{"Orvella: descriptive statistics, circular statistics and frequency distributions\n"
               "for spreadsheet data.\n"
               "Reads a workbook, writes a labelled results table into it, and prints the table."};
  app.set_version_flag("--version", "orvella " ORVELLA_VERSION);
  app.require_subcommand(1);
  app.footer(R"(Examples:
  orvella sheets plants.xlsx
  orvella describe plants.xlsx --input "Heights!A1:C13" --headers --all
  orvella describe plants.xlsx --input "Heights!A1:C13" --headers --mean --sd -o results.xlsx
  orvella circular headings.xlsx --input "Pigeons!A1:B16" --headers --rayleigh
  orvella frequency survey.xlsx --input "Survey!B1:B31" --headers --nominal

Run "orvella COMMAND --help" for the options of a command.)");

  int exitCode = orv::cli::kExitOk;
  orv::cli::addDescribeCommand(app, exitCode);
  orv::cli::addCircularCommand(app, exitCode);
  orv::cli::addFrequencyCommand(app, exitCode);
  orv::cli::addSheetsCommand(app, exitCode);

  // Wrong usage is said in one line, and with --json anywhere on the line also as a JSON document,
  // since a script that asked for JSON reads standard output.
  const auto refuse = [&](const std::string& sentence) {
    std::cerr << "orvella: " << sentence << "\n";
    if (std::any_of(argv + 1, argv + argc, [](const char* a) { return std::string_view(a) == "--json"; })) {
      std::cout << orv::cli::failureJson({orv::cli::kExitUsage, sentence, std::nullopt, {}}) << "\n";
    }
    return orv::cli::kExitUsage;
  };
  try {
    app.parse(argc, argv);
  } catch (const orv::cli::UsageError& e) {
    return refuse(e.what());
  } catch (const CLI::ParseError& e) {
    // Help and version are successes; every other parse failure is wrong usage.
    if (e.get_exit_code() == 0) return app.exit(e);
    return refuse(orv::cli::usageLine(e, app));
  }
  return exitCode;
}
