#include "cli/help_model.h"

#include <algorithm>
#include <map>
#include <mutex>

namespace orv::cli {
namespace {

std::map<const CLI::Option*, std::vector<std::string>>& registry() {
  static std::map<const CLI::Option*, std::vector<std::string>> choices;
  return choices;
}

std::mutex& registryMutex() {
  static std::mutex mutex;
  return mutex;
}

std::vector<std::string> choicesOf(const CLI::Option* option) {
  const std::lock_guard lock(registryMutex());
  const auto found = registry().find(option);
  return found == registry().end() ? std::vector<std::string>{} : found->second;
}

// The name the command gave the option's value; CLI11 appends ":" and the descriptions of
// validators, which ours leave empty.
std::string valueName(const CLI::Option* option) {
  if (option->get_items_expected_max() == 0) return {};
  std::string name = option->get_type_name();
  if (const std::size_t colon = name.find(':'); colon != std::string::npos) name.resize(colon);
  return option->get_expected_min() == 0 ? "[" + name + "]" : name;
}

HelpEntry entryOf(const CLI::Option* option) {
  HelpEntry entry;
  entry.positional = !option->nonpositional();
  if (entry.positional) {
    entry.names.push_back(option->get_name());
  } else {
    for (const std::string& s : option->get_snames()) entry.names.push_back("-" + s);
    for (const std::string& l : option->get_lnames()) entry.names.push_back("--" + l);
  }
  entry.value = entry.positional ? std::string() : valueName(option);
  entry.description = option->get_description();
  entry.choices = choicesOf(option);
  entry.file = (entry.positional && entry.choices.empty()) || option->check_name("--out");
  return entry;
}

std::string usageOf(const CLI::App& command) {
  std::string usage = "orvella";
  if (command.get_parent() == nullptr) return usage + " COMMAND [options]";
  usage += " " + command.get_name();
  for (const CLI::Option* option : command.get_options()) {
    if (!option->get_required()) continue;
    const HelpEntry entry = entryOf(option);
    usage += " " + (entry.positional ? entry.names.front() : entry.names.front() + " " + entry.value);
  }
  return usage + " [options]";
}

}  // namespace

void setChoices(const CLI::Option* option, std::vector<std::string> choices) {
  const std::lock_guard lock(registryMutex());
  registry()[option] = std::move(choices);
}

CommandHelp commandHelp(const CLI::App& command) {
  CommandHelp help;
  help.name = command.get_parent() == nullptr ? "orvella" : command.get_name();
  help.description = command.get_description();
  help.usage = usageOf(command);
  help.footer = command.get_footer();
  for (const char* title : {kInputGroup, kStatisticsGroup, kOutputGroup, kChartsGroup, kOtherGroup}) {
    HelpGroup group{title, {}};
    for (const CLI::Option* option : command.get_options()) {
      const std::string& of = option->get_group();
      const bool known = of == kInputGroup || of == kStatisticsGroup || of == kOutputGroup || of == kChartsGroup;
      if (of == title || (!known && std::string(title) == kOtherGroup)) group.entries.push_back(entryOf(option));
    }
    if (!group.entries.empty()) help.groups.push_back(std::move(group));
  }
  return help;
}

std::vector<CommandHelp> programHelp(const CLI::App& program) {
  std::vector<CommandHelp> all = {commandHelp(program)};
  for (const CLI::App* command : program.get_subcommands({})) all.push_back(commandHelp(*command));
  return all;
}

std::string entryHeading(const HelpEntry& entry) {
  std::string heading;
  for (const std::string& name : entry.names) heading += (heading.empty() ? "" : ", ") + name;
  if (!entry.value.empty()) heading += " " + entry.value;
  return heading;
}

}  // namespace orv::cli
