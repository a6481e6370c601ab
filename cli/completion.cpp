#include "cli/completion.h"

#include <iostream>
#include <memory>

#include "cli/analysis_run.h"
#include "cli/arguments.h"
#include "cli/help_model.h"

namespace orv::cli {
namespace {

// One word in single quotes for either shell.
std::string singleQuoted(const std::string& text) {
  std::string out = "'";
  for (const char c : text) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return out + "'";
}

std::string joined(const std::vector<std::string>& words, const std::string& between) {
  std::string out;
  for (const std::string& w : words) out += (out.empty() ? "" : between) + w;
  return out;
}

std::vector<const HelpEntry*> entriesOf(const CommandHelp& help) {
  std::vector<const HelpEntry*> entries;
  for (const HelpGroup& group : help.groups) {
    for (const HelpEntry& entry : group.entries) entries.push_back(&entry);
  }
  return entries;
}

// bash: a case branch per command; the word before the cursor decides what a value may be.
std::string bashCommandBranch(const CommandHelp& help) {
  std::vector<std::string> flags;
  std::string valueCases;
  const HelpEntry* positional = nullptr;
  for (const HelpEntry* entry : entriesOf(help)) {
    if (entry->positional) {
      positional = entry;
      continue;
    }
    for (const std::string& name : entry->names) flags.push_back(name);
    if (entry->value.empty()) continue;
    const std::string names = joined(entry->names, "|");
    if (entry->file) {
      valueCases += "        " + names + ") COMPREPLY=($(compgen -f -- \"$cur\")); return ;;\n";
    } else if (!entry->choices.empty()) {
      std::vector<std::string> quoted;
      for (const std::string& c : entry->choices) quoted.push_back(singleQuoted(c));
      valueCases += "        " + names + ") _orvella_choices " + joined(quoted, " ") + "; return ;;\n";
    } else if (entry->value.front() != '[') {
      valueCases += "        " + names + ") return ;;\n";
    }
  }
  std::string words = "      if [[ $cur == -* ]]; then\n        COMPREPLY=($(compgen -W " +
                      singleQuoted(joined(flags, " ")) + " -- \"$cur\"))\n";
  if (positional != nullptr && !positional->choices.empty()) {
    std::vector<std::string> quoted;
    for (const std::string& c : positional->choices) quoted.push_back(singleQuoted(c));
    words += "      else\n        _orvella_choices " + joined(quoted, " ") + "\n";
  } else if (positional != nullptr) {
    words += "      else\n        COMPREPLY=($(compgen -f -- \"$cur\"))\n";
  }
  words += "      fi\n";
  std::string branch = "    " + help.name + ")\n";
  if (!valueCases.empty()) branch += "      case $prev in\n" + valueCases + "      esac\n";
  return branch + words + "      ;;\n";
}

// zsh: an _arguments entry for an option, one per name.
std::string zshDescription(const std::string& text) {
  std::string out;
  for (const char c : text) {
    if (c == '[' || c == ']') out += '\\';
    out += c;
  }
  return out;
}

std::string zshAction(const HelpEntry& entry) {
  if (entry.file) return "_files";
  if (entry.choices.empty()) return " ";
  std::string list;
  for (const std::string& c : entry.choices) {
    std::string escaped;
    for (const char ch : c) escaped += ch == ' ' ? std::string("\\ ") : std::string(1, ch);
    list += (list.empty() ? "" : " ") + escaped;
  }
  return "(" + list + ")";
}

std::string zshSpecs(const CommandHelp& help) {
  std::string specs;
  for (const HelpEntry* entry : entriesOf(help)) {
    const std::string value = entry->value;
    if (entry->positional) {
      specs += "        " + singleQuoted("1:" + entry->names.front() + ":" + zshAction(*entry)) + " \\\n";
      continue;
    }
    for (const std::string& name : entry->names) {
      std::string argument = name + "[" + zshDescription(entry->description) + "]";
      if (!value.empty()) {
        const bool optional = value.front() == '[';
        const std::string shown = optional ? value.substr(1, value.size() - 2) : value;
        argument += (optional ? "::" : ":") + shown + ":" + zshAction(*entry);
      }
      specs += "        " + singleQuoted(argument) + " \\\n";
    }
  }
  return specs;
}

}  // namespace

std::string bashCompletion(const CLI::App& program) {
  const std::vector<CommandHelp> all = programHelp(program);
  std::vector<std::string> top;
  for (std::size_t i = 1; i < all.size(); ++i) top.push_back(all[i].name);
  for (const HelpEntry* entry : entriesOf(all.front())) top.insert(top.end(), entry->names.begin(), entry->names.end());
  std::string script =
      "# bash completion for orvella; made by \"orvella completion bash\"\n"
      "_orvella_choices() {\n"
      "  local IFS=$'\\n' choice\n"
      "  COMPREPLY=()\n"
      "  for choice in \"$@\"; do\n"
      "    [[ $choice == \"$cur\"* ]] && COMPREPLY+=(\"$(printf '%q' \"$choice\")\")\n"
      "  done\n"
      "}\n"
      "_orvella() {\n"
      "  local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]} command= i\n"
      "  for ((i = 1; i < COMP_CWORD; i++)); do\n"
      "    [[ ${COMP_WORDS[i]} != -* ]] && { command=${COMP_WORDS[i]}; break; }\n"
      "  done\n"
      "  if [[ -z $command ]]; then\n"
      "    COMPREPLY=($(compgen -W " +
      singleQuoted(joined(top, " ")) +
      " -- \"$cur\"))\n"
      "    return\n"
      "  fi\n"
      "  case $command in\n";
  for (std::size_t i = 1; i < all.size(); ++i) script += bashCommandBranch(all[i]);
  return script + "  esac\n}\ncomplete -F _orvella orvella\n";
}

std::string zshCompletion(const CLI::App& program) {
  const std::vector<CommandHelp> all = programHelp(program);
  std::string script =
      "#compdef orvella\n"
      "# zsh completion for orvella; made by \"orvella completion zsh\"\n"
      "_orvella() {\n"
      "  local -a commands\n"
      "  commands=(\n";
  for (std::size_t i = 1; i < all.size(); ++i) {
    script += "    " + singleQuoted(all[i].name + ":" + all[i].description) + "\n";
  }
  script +=
      "  )\n"
      "  if (( CURRENT == 2 )); then\n"
      "    _describe -t commands 'orvella command' commands\n"
      "    return\n"
      "  fi\n"
      "  local command=${words[2]}\n"
      "  shift words\n"
      "  (( CURRENT-- ))\n"
      "  case $command in\n";
  for (std::size_t i = 1; i < all.size(); ++i) {
    script += "    " + all[i].name + ")\n      _arguments \\\n" + zshSpecs(all[i]) + "        && return 0\n      ;;\n";
  }
  return script + "  esac\n  return 1\n}\n_orvella \"$@\"\n";
}

void addCompletionCommand(CLI::App& app, int& exitCode) {
  auto shell = std::make_shared<std::string>();
  CLI::App* cmd = app.add_subcommand("completion", "Print a shell completion script for bash or zsh");
  cmd->footer(R"(Examples:
  source <(orvella completion bash)
  orvella completion bash > ~/.local/share/bash-completion/completions/orvella
  orvella completion zsh > "${fpath[1]}/_orvella")");
  const std::vector<std::string> shells = {"bash", "zsh"};
  setChoices(cmd->add_option("SHELL", *shell, "the shell: bash or zsh")
                 ->required()
                 ->type_name("SHELL")
                 ->group(kInputGroup)
                 ->check(oneOf("completion", shells)),
             shells);
  cmd->callback([shell, cmd, &exitCode] {
    const CLI::App& program = *cmd->get_parent();
    std::cout << (*shell == "bash" ? bashCompletion(program) : zshCompletion(program));
    exitCode = kExitOk;
  });
}

}  // namespace orv::cli
