#include "xlsx/writer_xml.h"

#include <array>
#include <cctype>
#include <charconv>
#include <sstream>

#include "frame/errors.h"
#include "frame/reference.h"

namespace orv::xml {
namespace {

bool isHex(char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; }

// "_x" followed by four hex digits and "_": a reader would decode it as an escape.
bool looksLikeEscape(std::string_view s, std::size_t at) {
  if (s.size() - at < 7 || s[at] != '_' || s[at + 1] != 'x' || s[at + 6] != '_') return false;
  for (std::size_t i = at + 2; i < at + 6; ++i) {
    if (!isHex(s[i])) return false;
  }
  return true;
}

std::string escape(std::string_view value, bool inAttribute) {
  static constexpr char kHex[] = "0123456789ABCDEF";
  std::string out;
  out.reserve(value.size());
  for (std::size_t i = 0; i < value.size(); ++i) {
    const char c = value[i];
    const auto u = static_cast<unsigned char>(c);
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '"': out += inAttribute ? "&quot;" : "\""; break;
      case '\n': out += inAttribute ? "&#10;" : "\n"; break;
      case '\r': out += inAttribute ? "&#13;" : "\r"; break;
      case '\t': out += inAttribute ? "&#9;" : "\t"; break;
      default:
        if (u < 0x20) {
          out += "_x00";
          out += kHex[u >> 4];
          out += kHex[u & 0xF];
          out += '_';
        } else if (c == '_' && looksLikeEscape(value, i)) {
          out += "_x005F_";
        } else {
          out += c;
        }
    }
  }
  return out;
}

// What keeps a user's part as it was: no whitespace folding in attributes, whitespace-only
// text kept (a cell may hold just blanks), comments, PIs and the declaration kept.
constexpr unsigned kFaithful = pugi::parse_cdata | pugi::parse_escapes | pugi::parse_eol | pugi::parse_ws_pcdata |
                               pugi::parse_declaration | pugi::parse_comments | pugi::parse_pi | pugi::parse_doctype;

}  // namespace

std::string text(std::string_view value) { return escape(value, false); }
std::string attribute(std::string_view value) { return escape(value, true); }

std::string number(double value) {
  std::array<char, 32> buffer{};
  const auto [end, ec] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  (void)ec;  // 32 characters hold every double
  return std::string(buffer.data(), end);
}

std::string integer(std::int64_t value) { return std::to_string(value); }

std::string cellName(std::int32_t row, std::int32_t column) { return columnLetters(column) + std::to_string(row); }

pugi::xml_document parsePart(std::string_view content, std::string_view partName) {
  pugi::xml_document document;
  const pugi::xml_parse_result result =
      document.load_buffer(content.data(), content.size(), kFaithful, pugi::encoding_utf8);
  if (!result) {
    raise(err::kFileUnwritable, "The part \"" + std::string(partName) +
                                    "\" of the original workbook is no well-formed XML: " + result.description());
  }
  return document;
}

std::string serialise(const pugi::xml_document& document) {
  std::ostringstream out;
  document.save(out, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
  return out.str();
}

}  // namespace orv::xml
