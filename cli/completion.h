#pragma once
// Shell completion, from the same description of the command line as the help
// (cli/help_model.h): "orvella completion bash" and "orvella completion zsh" print a script that
// completes the commands, each command's flags, the values of flags that take one of a fixed set
// ("--error-bars", "completion"'s shell) and file names for FILE and -o. Values no shell can know
// (references, numbers, titles) are left to the person.
//
// bash: source the script, or put it in ~/.local/share/bash-completion/completions/orvella.
// zsh:  put it, named _orvella, in a folder of $fpath before compinit runs.

#include <string>

#include <CLI/CLI.hpp>

namespace orv::cli {

std::string bashCompletion(const CLI::App& program);
std::string zshCompletion(const CLI::App& program);

// Adds "completion SHELL" to the program.
void addCompletionCommand(CLI::App& app, int& exitCode);

}  // namespace orv::cli
