#pragma once
// orvella describe: the linear descriptive analysis (clsDS) from the terminal.

namespace CLI {
class App;
}  // namespace CLI

namespace orv::cli {

// Registers the subcommand; its callback stores the exit code in `exitCode`.
void addDescribeCommand(CLI::App& app, int& exitCode);

}  // namespace orv::cli
