#pragma once
// The man page orvella(1), in roff, from the same description of the command line as the help
// (cli/help_model.h): the program, then each command with its options under the help's headings
// and its examples, then the exit statuses. The build writes it (man_page_main.cpp) and installs
// it with the binary. Nothing in it depends on the day it was made.

#include <string>

#include <CLI/CLI.hpp>

namespace orv::cli {

std::string manPage(const CLI::App& program, const std::string& version);

}  // namespace orv::cli
