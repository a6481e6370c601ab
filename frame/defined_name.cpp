#include "frame/defined_name.h"

#include "frame/sheet_name.h"

namespace orv {
namespace {

bool isLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || static_cast<unsigned char>(c) >= 0x80;
}
bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isName(std::string_view text) {
  if (text.empty() || !(isLetter(text.front()) || text.front() == '_' || text.front() == '\\')) return false;
  for (const char c : text) {
    if (!(isLetter(c) || isDigit(c) || c == '_' || c == '.' || c == '\\')) return false;
  }
  return true;
}

// "'My data'!" or "Data!" at the start of the text: the sheet's name and where the rest begins.
std::optional<std::pair<std::string, std::size_t>> sheetQualifier(std::string_view text) {
  if (!text.empty() && text.front() == '\'') {
    std::string sheet;
    for (std::size_t i = 1; i < text.size(); ++i) {
      if (text[i] != '\'') {
        sheet.push_back(text[i]);
      } else if (i + 1 < text.size() && text[i + 1] == '\'') {
        sheet.push_back('\'');
        ++i;
      } else {
        if (i + 1 >= text.size() || text[i + 1] != '!' || sheet.empty()) return std::nullopt;
        return std::pair{sheet, i + 2};
      }
    }
    return std::nullopt;
  }
  const std::size_t bang = text.find('!');
  if (bang == std::string_view::npos || bang == 0) return std::nullopt;
  return std::pair{std::string(text.substr(0, bang)), bang + 1};
}

}  // namespace

std::optional<NameReference> parseNameReference(std::string_view text) {
  NameReference reference;
  if (text.find('!') != std::string_view::npos) {
    const auto qualifier = sheetQualifier(text);
    if (!qualifier) return std::nullopt;
    reference.sheet = qualifier->first;
    text.remove_prefix(qualifier->second);
  }
  if (!isName(text)) return std::nullopt;
  reference.name = std::string(text);
  return reference;
}

bool sameName(std::string_view a, std::string_view b) { return sameSheetName(a, b); }

}  // namespace orv
