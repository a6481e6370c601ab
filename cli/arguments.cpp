#include "cli/arguments.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>

namespace orv::cli {
namespace {

std::optional<std::int64_t> wholeNumber(const std::string& text) {
  std::int64_t value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, failure] = std::from_chars(text.data(), end, value);
  if (failure != std::errc() || stop != end || text.empty()) return std::nullopt;
  return value;
}

CLI::Validator numberValidator(const std::string& flag, const std::string& what, int low, std::optional<int> high) {
  const std::string takes = flag + " takes " + what + " from " + std::to_string(low) +
                            (high ? " to " + std::to_string(*high) : std::string(" up"));
  return CLI::Validator(
      [=](std::string& value) -> std::string {
        const std::optional<std::int64_t> n = wholeNumber(value);
        if (!n || *n < low || (high && *n > *high) || *n > std::numeric_limits<int>::max()) {
          throw UsageError(takes + ", not \"" + value + "\"");
        }
        return {};
      },
      "", "");
}

// "Mean or Median", "\"Standard Error\", Variance or Range": choices with blanks in quotes.
std::string choiceList(const std::vector<std::string>& choices) {
  std::string list;
  for (std::size_t i = 0; i < choices.size(); ++i) {
    if (i > 0) list += i + 1 == choices.size() ? " or " : ", ";
    const bool quote = choices[i].find(' ') != std::string::npos;
    list += quote ? "\"" + choices[i] + "\"" : choices[i];
  }
  return list;
}

std::size_t editDistance(const std::string& a, const std::string& b) {
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t above = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (a[i - 1] == b[j - 1] ? 0 : 1)});
      diagonal = above;
    }
  }
  return row[b.size()];
}

const CLI::App* activeCommand(const CLI::App& app) {
  const std::vector<CLI::App*> parsed = app.get_subcommands();
  return parsed.empty() ? nullptr : parsed.front();
}

std::vector<std::string> commandNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* sub : app.get_subcommands({})) names.push_back(sub->get_name());
  return names;
}

std::vector<std::string> flagNames(const CLI::App& command) {
  std::vector<std::string> names;
  for (const CLI::Option* option : command.get_options()) {
    for (const std::string& n : option->get_lnames()) names.push_back("--" + n);
    for (const std::string& n : option->get_snames()) names.push_back("-" + n);
  }
  return names;
}

const CLI::Option* optionNamed(const CLI::App& command, const std::string& name) {
  for (const CLI::Option* option : command.get_options()) {
    if (option->check_name(name)) return option;
  }
  return nullptr;
}

// The arguments the parser did not expect, as its message lists them.
std::vector<std::string> unexpectedArguments(const std::string& message) {
  std::vector<std::string> words;
  const std::size_t colon = message.find(": ");
  std::string rest = colon == std::string::npos ? message : message.substr(colon + 2);
  std::size_t at = 0;
  while (at < rest.size()) {
    const std::size_t blank = rest.find(' ', at);
    const std::size_t end = blank == std::string::npos ? rest.size() : blank;
    if (end > at) words.push_back(rest.substr(at, end - at));
    at = end + 1;
  }
  return words;
}

std::string unknownArgument(const CLI::App& app, const CLI::App* command, const std::string& word) {
  const std::vector<std::string> commands = commandNames(app);
  if (command == nullptr) {
    if (word.starts_with("-")) {
      return "unknown option " + word + "; give a command first: " + choiceList(commands);
    }
    const std::string guess = nearest(word, commands);
    return "no command \"" + word + "\"" +
           (guess.empty() ? "; give one of " + choiceList(commands) : "; did you mean " + guess + "?");
  }
  const std::string& name = command->get_name();
  if (word.starts_with("-")) {
    const std::string flag = word.substr(0, word.find('='));
    const std::string guess = nearest(flag, flagNames(*command));
    return name + " has no option " + flag +
           (guess.empty() ? " (orvella " + name + " --help lists them)" : "; did you mean " + guess + "?");
  }
  return name + " takes one FILE; \"" + word + "\" is one argument too many (a reference with blanks must be quoted)";
}

std::string missingOption(const CLI::App& app, const CLI::App* command) {
  if (command == nullptr) {
    // A misspelt command is left over as an argument nobody took.
    for (const std::string& word : app.remaining()) {
      if (!word.starts_with("-")) return unknownArgument(app, nullptr, word);
    }
    return "give a command: " + choiceList(commandNames(app)) + " (orvella --help)";
  }
  for (const CLI::Option* option : command->get_options()) {
    if (!option->get_required() || option->count() > 0) continue;
    if (option->get_positional() && option->get_name() == "FILE") {
      return command->get_name() + " needs the workbook FILE to read (.xlsx, .xlsm, .csv or .tsv)";
    }
    return command->get_name() + " needs " + option->get_name() + ": " + option->get_description();
  }
  return command->get_name() + " needs more arguments (orvella " + command->get_name() + " --help)";
}

std::string missingValue(const CLI::App* command, const std::string& message) {
  std::string name = message.substr(0, message.find(':'));
  if (const std::size_t to = message.find("arguments to "); to != std::string::npos) {
    name = message.substr(to + 13, message.find(',', to) - to - 13);
  }
  const CLI::Option* option = command == nullptr ? nullptr : optionNamed(*command, name);
  if (option == nullptr) return message;
  return option->get_name() + " needs a value: " + option->get_description();
}

// "--box-title requires --box-plot": the options that shape a chart need the flag that draws it.
std::string chartOptionAlone(const std::string& message) {
  const std::string marker = " requires ";
  const std::size_t at = message.find(marker);
  if (at == std::string::npos) return message;
  const std::string option = message.substr(0, at);
  const std::string chart = message.substr(at + marker.size());
  return option + " shapes the chart that " + chart + " draws, which was not asked for; add " + chart +
         " or leave out " + option;
}

}  // namespace

CLI::Validator wholeNumberFrom(const std::string& flag, const std::string& what, int low, int high) {
  return numberValidator(flag, what, low, high);
}

CLI::Validator wholeNumberFrom(const std::string& flag, const std::string& what, int low) {
  return numberValidator(flag, what, low, std::nullopt);
}

CLI::Validator oneOf(const std::string& flag, const std::vector<std::string>& choices) {
  const std::string takes = flag + " takes " + choiceList(choices);
  return CLI::Validator(
      [=](std::string& value) -> std::string {
        if (std::find(choices.begin(), choices.end(), value) == choices.end()) {
          throw UsageError(takes + ", not \"" + value + "\"");
        }
        return {};
      },
      "", "");
}

std::string nearest(const std::string& given, const std::vector<std::string>& candidates) {
  // A likely typo: a third of the letters wrong at most, and never more than three.
  const std::size_t allowed = std::min<std::size_t>(3, std::max<std::size_t>(1, given.size() / 3));
  std::string best;
  std::size_t bestDistance = allowed + 1;
  for (const std::string& c : candidates) {
    const std::size_t d = editDistance(given, c);
    if (d < bestDistance) {
      best = c;
      bestDistance = d;
    }
  }
  return best;
}

std::string usageLine(const CLI::ParseError& error, const CLI::App& app) {
  const CLI::App* command = activeCommand(app);
  const std::string message = error.what();
  if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) {
    const std::vector<std::string> words = unexpectedArguments(message);
    if (!words.empty()) return unknownArgument(app, command, words.front());
  }
  if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr) return missingOption(app, command);
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) return missingValue(command, message);
  if (dynamic_cast<const CLI::RequiresError*>(&error) != nullptr) return chartOptionAlone(message);
  return message;
}

}  // namespace orv::cli
