#include "cli/help_text.h"

#include <algorithm>
#include <memory>
#include <sstream>
#include <vector>

#include "cli/display_width.h"
#include "cli/help_model.h"

namespace orv::cli {
namespace {

constexpr std::size_t kLineWidth = 100;
constexpr std::size_t kWidestHeading = 28;

// The words of `text` in lines of at most `width` columns.
std::vector<std::string> wrapped(const std::string& text, std::size_t width) {
  std::vector<std::string> lines(1);
  std::istringstream words(text);
  for (std::string word; words >> word;) {
    if (!lines.back().empty() && displayWidth(lines.back()) + 1 + displayWidth(word) > width) lines.emplace_back();
    lines.back() += (lines.back().empty() ? "" : " ") + word;
  }
  return lines;
}

using Rows = std::vector<std::pair<std::string, std::string>>;

// The column the descriptions start after: the widest heading that is not too wide.
std::size_t headingColumn(const std::vector<Rows>& sections) {
  std::size_t column = 0;
  for (const Rows& rows : sections) {
    for (const auto& [heading, description] : rows) {
      if (displayWidth(heading) <= kWidestHeading) column = std::max(column, displayWidth(heading));
    }
  }
  return column;
}

// Headings in one column, descriptions beside them; a heading wider than the column stands on a
// line of its own.
void appendRows(std::string& out, const Rows& rows, std::size_t column) {
  const std::string indent(2 + column + 2, ' ');
  for (const auto& [heading, description] : rows) {
    const std::vector<std::string> lines = wrapped(description, kLineWidth - indent.size());
    std::string first = "  " + heading;
    if (displayWidth(heading) > column) {
      out += first + "\n";
      first = indent;
    } else {
      first = "  " + padRight(heading, column) + "  ";
    }
    for (std::size_t i = 0; i < lines.size(); ++i) out += (i == 0 ? first : indent) + lines[i] + "\n";
  }
}

class HelpFormatter final : public CLI::FormatterBase {
 public:
  std::string make_help(const CLI::App* app, std::string, CLI::AppFormatMode) const override { return helpText(*app); }
};

}  // namespace

std::string helpText(const CLI::App& command) {
  const CommandHelp help = commandHelp(command);
  std::vector<std::string> titles;
  std::vector<Rows> sections;
  if (command.get_parent() == nullptr) {
    titles.emplace_back("Commands");
    sections.emplace_back();
    for (const CLI::App* sub : command.get_subcommands({})) {
      sections.back().emplace_back(sub->get_name(), sub->get_description());
    }
  }
  for (const HelpGroup& group : help.groups) {
    titles.push_back(group.title);
    sections.emplace_back();
    for (const HelpEntry& entry : group.entries) sections.back().emplace_back(entryHeading(entry), entry.description);
  }
  std::string out;
  for (const std::string& line : wrapped(help.description, kLineWidth)) out += line + "\n";
  out += "\nUsage: " + help.usage + "\n";
  const std::size_t column = headingColumn(sections);
  for (std::size_t i = 0; i < sections.size(); ++i) {
    out += "\n" + titles[i] + ":\n";
    appendRows(out, sections[i], column);
  }
  if (!help.footer.empty()) out += "\n" + help.footer + "\n";
  return out;
}

void useHelpText(CLI::App& app) { app.formatter(std::make_shared<HelpFormatter>()); }

}  // namespace orv::cli
