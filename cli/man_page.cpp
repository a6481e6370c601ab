#include "cli/man_page.h"

#include <sstream>

#include "cli/help_model.h"

namespace orv::cli {
namespace {

// Text as roff shows it: backslashes and hyphens escaped, and no line starting with a control
// character.
std::string roff(const std::string& text) {
  std::string out;
  for (const char c : text) {
    if (c == '\\') {
      out += "\\e";
    } else if (c == '-') {
      out += "\\-";
    } else {
      out += c;
    }
  }
  return out;
}

std::string lines(const std::string& text) {
  std::string out;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && (line.front() == '.' || line.front() == '\'')) out += "\\&";
    out += roff(line) + "\n";
  }
  return out;
}

std::string entryTag(const HelpEntry& entry) {
  std::string tag;
  for (const std::string& name : entry.names) {
    if (!tag.empty()) tag += ", ";
    tag += entry.positional ? "\\fI" + roff(name) + "\\fR" : "\\fB" + roff(name) + "\\fR";
  }
  if (!entry.value.empty()) tag += " \\fI" + roff(entry.value) + "\\fR";
  return tag;
}

std::string commandSection(const CommandHelp& help) {
  std::string out = ".SS \"" + roff(help.usage) + "\"\n" + lines(help.description);
  for (const HelpGroup& group : help.groups) {
    out += ".PP\n.I " + group.title + "\n";
    for (const HelpEntry& entry : group.entries) out += ".TP\n" + entryTag(entry) + "\n" + lines(entry.description);
  }
  if (!help.footer.empty()) out += ".PP\n.nf\n" + lines(help.footer) + ".fi\n";
  return out;
}

}  // namespace

std::string manPage(const CLI::App& program, const std::string& version) {
  const std::vector<CommandHelp> all = programHelp(program);
  std::string out = ".TH ORVELLA 1 \"\" \"orvella " + roff(version) + "\" \"User Commands\"\n";
  out +=
      ".SH NAME\norvella \\- descriptive statistics, circular statistics and frequency distributions of "
      "spreadsheet data\n";
  out += ".SH SYNOPSIS\n.B orvella\n.I COMMAND\nFILE [options]\n";
  out += ".SH DESCRIPTION\n" + lines(all.front().description);
  for (const HelpGroup& group : all.front().groups) {
    for (const HelpEntry& entry : group.entries) out += ".TP\n" + entryTag(entry) + "\n" + lines(entry.description);
  }
  out += ".SH COMMANDS\n";
  for (std::size_t i = 1; i < all.size(); ++i) out += commandSection(all[i]);
  out +=
      ".SH EXIT STATUS\n"
      ".TP\n0\nsuccess\n"
      ".TP\n1\nthe data or a file failed; nothing was written\n"
      ".TP\n2\nwrong usage\n"
      ".TP\n129, 130, 143\ninterrupted by SIGHUP, SIGINT or SIGTERM; temporary files are removed\n";
  out += ".SH EXAMPLES\n.nf\n" + lines(all.front().footer) + ".fi\n";
  return out;
}

}  // namespace orv::cli
