#pragma once
// orvella circular: the descriptive statistics of angles in degrees (clsDSCirc) from the terminal.

namespace CLI {
class App;
}  // namespace CLI

namespace orv::cli {

// Registers the subcommand; its callback stores the exit code in `exitCode`.
void addCircularCommand(CLI::App& app, int& exitCode);

}  // namespace orv::cli
