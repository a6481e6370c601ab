// Writes what the build installs beside orvella, from its own command line: the man page
// ("man"), or a completion script ("bash", "zsh").
// Usage: orvella-docs man|bash|zsh VERSION > FILE

#include <CLI/CLI.hpp>

#include <iostream>
#include <string_view>

#include "cli/command_line.h"
#include "cli/completion.h"
#include "cli/man_page.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: orvella-docs man|bash|zsh VERSION\n";
    return 2;
  }
  CLI::App app;
  int exitCode = 0;
  orv::cli::buildCommandLine(app, exitCode, argv[2]);
  const std::string_view what = argv[1];
  if (what == "man") {
    std::cout << orv::cli::manPage(app, argv[2]);
  } else if (what == "bash") {
    std::cout << orv::cli::bashCompletion(app);
  } else if (what == "zsh") {
    std::cout << orv::cli::zshCompletion(app);
  } else {
    std::cerr << "usage: orvella-docs man|bash|zsh VERSION\n";
    return 2;
  }
  return 0;
}
