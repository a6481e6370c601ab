#include "cli/reference_text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <vector>

#include "cli/arguments.h"

namespace orv::cli {
namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }

// The parts of a reference between commas that stand outside quotes.
std::vector<std::string> areasOf(std::string_view text) {
  std::vector<std::string> areas(1);
  bool quoted = false;
  for (const char c : text) {
    if (c == '\'') quoted = !quoted;
    if (c == ',' && !quoted) {
      areas.emplace_back();
    } else {
      areas.back() += c;
    }
  }
  return areas;
}

std::string lower(std::string_view text) {
  std::string out(text);
  std::transform(out.begin(), out.end(), out.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return out;
}

bool looksLikeFileName(std::string_view text) {
  static constexpr std::array kExtensions = {".xlsx", ".xlsm", ".xls", ".xltx", ".xltm",
                                             ".xlam", ".csv",  ".tsv", ".txt",  ".ods"};
  const std::string name = lower(text);
  return text.find('!') == std::string_view::npos &&
         std::any_of(kExtensions.begin(), kExtensions.end(), [&](const char* e) { return name.ends_with(e); });
}

// Numbers separated by commas, semicolons or blanks: "200,250,300", "0.5".
bool isNumberList(std::string_view text) {
  bool digit = false;
  for (const char c : text) {
    if (std::isdigit(static_cast<unsigned char>(c)) != 0) {
      digit = true;
    } else if (c != '.' && c != '-' && c != '+' && c != ',' && c != ';' && !isBlank(c)) {
      return false;
    }
  }
  return digit;
}

// "Sheet 2!A1:B6" -> "'Sheet 2'!A1:B6", each area that needs it; none when no area does.
std::optional<std::string> quotedSheets(std::string_view text) {
  std::string fixed;
  bool changed = false;
  for (const std::string& area : areasOf(text)) {
    if (!fixed.empty()) fixed += ',';
    const std::size_t bang = area.find('!');
    const std::string_view sheet = std::string_view(area).substr(0, bang == std::string::npos ? 0 : bang);
    if (bang == std::string::npos || area.front() == '\'' || std::none_of(sheet.begin(), sheet.end(), isBlank)) {
      fixed += area;
      continue;
    }
    std::string quoted = "'";
    for (const char c : sheet) quoted += c == '\'' ? std::string("''") : std::string(1, c);
    fixed += quoted + "'" + area.substr(bang);
    changed = true;
  }
  return changed ? std::optional<std::string>(fixed) : std::nullopt;
}

std::string listed(std::string_view numbers) {
  std::vector<std::string> items(1);
  for (const char c : numbers) {
    if (c == ',' || c == ';' || isBlank(c)) {
      if (!items.back().empty()) items.emplace_back();
    } else {
      items.back() += c;
    }
  }
  if (items.back().empty()) items.pop_back();
  std::string out;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (i > 0) out += i + 1 == items.size() ? " and " : ", ";
    out += items[i];
  }
  return out;
}

}  // namespace

std::string tidyReference(std::string_view text) {
  std::string out;
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '\'') quoted = !quoted;
    if (!quoted && isBlank(c)) {
      // Kept only between two characters that are neither a separator nor a blank: the blank of
      // an unquoted sheet name, which referenceMistake then explains.
      std::size_t next = i;
      while (next < text.size() && isBlank(text[next])) ++next;
      const bool between = !out.empty() && out.back() != ',' && out.back() != ':' && next < text.size() &&
                           text[next] != ',' && text[next] != ':';
      if (between) out.append(text.substr(i, next - i));
      i = next - 1;
      continue;
    }
    out += c;
  }
  return out;
}

std::optional<std::string> referenceMistake(const std::string& flag, std::string_view text) {
  const std::string given = flag + " \"" + std::string(text) + "\"";
  if (const auto fixed = quotedSheets(text)) {
    return given + ": a sheet name with blanks must be quoted: " + flag + " \"" + *fixed + "\"";
  }
  if (looksLikeFileName(text)) {
    if (flag == "--output") {
      return "--output takes the cell where the results go, such as \"Results!A1\"; to write the workbook to " +
             std::string(text) + ", use -o " + std::string(text);
    }
    return given + " names a file; " + flag +
           " takes cells of the workbook, such as \"Data!A1:C20\", and the workbook is FILE, given before the flags";
  }
  if (isNumberList(text)) {
    if (flag == "--bins") {
      return "--bins takes the cells that hold the bin values, such as \"Data!C1:C6\", not the values; write " +
             listed(text) + " into cells of the workbook and give their range";
    }
    return given + " holds numbers; " + flag + " takes cells of the workbook, such as \"Data!A1:C20\"";
  }
  return std::nullopt;
}

CLI::Validator referenceText(const std::string& flag) {
  return CLI::Validator(
      [flag](std::string& value) -> std::string {
        value = tidyReference(value);
        if (const auto mistake = referenceMistake(flag, value)) throw UsageError(*mistake);
        return {};
      },
      "", "");
}

}  // namespace orv::cli
