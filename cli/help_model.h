#pragma once
// What the command's help says, read once from the command line definition (CLI::App) and
// written out three ways: the --help text (cli/help_text.h), the man page (cli/man_page.h) and
// the shell completion scripts (cli/completion.h). So a flag added to a command appears in all
// three with the same words.
//
// Every option belongs to one of the groups below (CLI::Option::group); its value is named by
// its type name ("REF", "LEVEL"), which the commands set; options with a fixed set of values
// register them with setChoices.

#include <string>
#include <vector>

#include <CLI/CLI.hpp>

namespace orv::cli {

inline constexpr const char* kInputGroup = "Input";
inline constexpr const char* kStatisticsGroup = "Statistics";
inline constexpr const char* kOutputGroup = "Output";
inline constexpr const char* kChartsGroup = "Charts";
inline constexpr const char* kOtherGroup = "Other";

struct HelpEntry {
  std::vector<std::string> names;  // "-i", "--input"; "FILE" for the positional
  std::string value;               // "REF", "[LEVEL]" for an optional value; empty for a flag
  std::string description;
  std::vector<std::string> choices;  // the values it takes, when fixed
  bool positional = false;
  bool file = false;  // takes a file name
};

struct HelpGroup {
  std::string title;
  std::vector<HelpEntry> entries;
};

struct CommandHelp {
  std::string name;  // "describe"; "orvella" for the program itself
  std::string description;
  std::string usage;              // "orvella describe FILE -i REF [options]"
  std::vector<HelpGroup> groups;  // Input, Statistics, Output, Charts, Other; empty ones left out
  std::string footer;
};

// The values an option takes, for the help and the completion scripts.
void setChoices(const CLI::Option* option, std::vector<std::string> choices);

CommandHelp commandHelp(const CLI::App& command);

// The program and each of its commands, in the order they were added.
std::vector<CommandHelp> programHelp(const CLI::App& program);

// "-i, --input REF" as the help shows an entry.
std::string entryHeading(const HelpEntry& entry);

}  // namespace orv::cli
