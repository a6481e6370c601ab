#pragma once
// orvella frequency: frequency distributions of numbers or items (clsFreq) from the terminal.

namespace CLI {
class App;
}  // namespace CLI

namespace orv::cli {

// Registers the subcommand; its callback stores the exit code in `exitCode`.
void addFrequencyCommand(CLI::App& app, int& exitCode);

}  // namespace orv::cli
