// orvella: descriptive statistics of spreadsheet data from the terminal.

#include <CLI/CLI.hpp>

#include "cli/analysis_run.h"
#include "cli/command_line.h"
#include "cli/interrupts.h"

#ifndef ORVELLA_VERSION
#define ORVELLA_VERSION "0.0.0"
#endif

int main(int argc, char** argv) {
  orv::cli::installInterruptHandling();
  CLI::App app;
  int exitCode = orv::cli::kExitOk;
  orv::cli::buildCommandLine(app, exitCode, ORVELLA_VERSION);
  return orv::cli::runCommandLine(app, exitCode, argc, argv);
}
