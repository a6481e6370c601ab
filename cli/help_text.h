#pragma once
// The --help text of the program and of each command: what it does, how it is called, its
// options under the headings Input, Statistics, Output and Charts (cli/help_model.h) with the
// names of their values ("-i, --input REF", "--cl [LEVEL]") and nothing of the parser's own
// notation, then the examples of its footer. Descriptions are wrapped at 100 columns.

#include <string>

#include <CLI/CLI.hpp>

namespace orv::cli {

std::string helpText(const CLI::App& command);

// Installs helpText as the help of `app` and of the commands added to it afterwards.
void useHelpText(CLI::App& app);

}  // namespace orv::cli
