#pragma once
// The orvella command line: the program's own flags and help, and its commands (describe,
// circular, frequency, sheets, completion), each with its options in help groups
// (cli/help_model.h). Used by the program and by the generator of its man page and completion
// scripts, so that all of them describe the same command line.

#include <string>

#include <CLI/CLI.hpp>

namespace orv::cli {

// Fills `app`; a command that runs sets `exitCode`.
void buildCommandLine(CLI::App& app, int& exitCode, const std::string& version);

// Parses and runs; returns the exit status. Wrong usage is one line on standard error (and a JSON
// error document on standard output when --json is among the arguments).
int runCommandLine(CLI::App& app, int& exitCode, int argc, char** argv);

}  // namespace orv::cli
