#include "calc/office_notation.h"

namespace orv::calc {
namespace {

std::string doubled(std::string_view text, char quote) {
  std::string out(1, quote);
  for (char c : text) {
    out += c;
    if (c == quote) out += c;
  }
  return out + quote;
}

std::string cell(std::int32_t row, std::int32_t column) {
  return "$" + columnLetters(column) + "$" + std::to_string(row);
}

}  // namespace

std::string officeRange(std::string_view sheet, const CellBlock& block) {
  std::string text = "$" + doubled(sheet, '\'') + "." + cell(block.top, block.left);
  if (block.rows() > 1 || block.columns() > 1) text += ":" + cell(block.bottom, block.right);
  return text;
}

std::string officeText(std::string_view text) { return doubled(text, '"'); }

namespace {

// "$'My data'." or "Data." at `at`: the sheet's name, `at` moved past the point; none when the
// text there holds no sheet.
std::optional<std::string> officeSheet(std::string_view text, std::size_t& at) {
  std::size_t i = at;
  if (i < text.size() && text[i] == '$') ++i;
  std::string name;
  if (i < text.size() && text[i] == '\'') {
    for (++i; i < text.size(); ++i) {
      if (text[i] == '\'' && i + 1 < text.size() && text[i + 1] == '\'') {
        name += '\'';
        ++i;
      } else if (text[i] == '\'') {
        break;
      } else {
        name += text[i];
      }
    }
    ++i;
  } else {
    while (i < text.size() && text[i] != '.' && text[i] != ':' && text[i] != ';' && text[i] != '~') name += text[i++];
  }
  if (i >= text.size() || text[i] != '.' || name.empty()) return std::nullopt;
  at = i + 1;
  return name;
}

}  // namespace

std::optional<std::string> a1FromOffice(std::string_view reference) {
  std::string out;
  std::size_t at = 0;
  while (at < reference.size()) {
    const std::optional<std::string> sheet = officeSheet(reference, at);
    if (!sheet) return std::nullopt;
    if (!out.empty()) out += ',';
    out += quoteSheetName(*sheet) + "!";
    for (; at < reference.size() && reference[at] != ';' && reference[at] != '~' && reference[at] != ','; ++at) {
      const char c = reference[at];
      if (c == ':') {
        out += c;
        std::size_t after = at + 1;
        if (officeSheet(reference, after)) at = after - 1;  // the sheet again after ":"
        continue;
      }
      if (!(c == '$' || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')))
        return std::nullopt;
      out += c;
    }
    if (at < reference.size()) ++at;
  }
  if (out.empty() || !tryParseReference(out)) return std::nullopt;
  return out;
}

}  // namespace orv::calc
