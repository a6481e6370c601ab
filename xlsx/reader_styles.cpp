#include "xlsx/reader_styles.h"

#include <cctype>
#include <charconv>
#include <cstdint>
#include <map>

#include <pugixml.hpp>

#include "xlsx/xml_names.h"

namespace orv {
namespace {

bool builtInDate(std::uint32_t id) {
  return (id >= 14 && id <= 22) || (id >= 27 && id <= 36) || (id >= 45 && id <= 47) || (id >= 50 && id <= 58);
}

bool readId(const pugi::xml_attribute& a, std::uint32_t& id) {
  const std::string_view text = a.value();
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), id);
  return failure == std::errc() && end == text.data() + text.size() && !text.empty();
}

// "[h]", "[mm]", "[ss]": elapsed time.
bool elapsedTime(std::string_view bracket) {
  if (bracket.empty()) return false;
  const char first = static_cast<char>(std::tolower(static_cast<unsigned char>(bracket.front())));
  if (first != 'h' && first != 'm' && first != 's') return false;
  for (char c : bracket) {
    if (std::tolower(static_cast<unsigned char>(c)) != first) return false;
  }
  return true;
}

}  // namespace

bool isDateFormatCode(std::string_view code) {
  for (std::size_t i = 0; i < code.size(); ++i) {
    const char c = code[i];
    if (c == '"') {
      const std::size_t close = code.find('"', i + 1);
      if (close == std::string_view::npos) return false;
      i = close;
    } else if (c == '\\' || c == '_' || c == '*') {
      ++i;  // the next character stands for itself (or for its width)
    } else if (c == '[') {
      const std::size_t close = code.find(']', i + 1);
      if (close == std::string_view::npos) return false;
      if (elapsedTime(code.substr(i + 1, close - i - 1))) return true;
      i = close;
    } else {
      const char lower = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
      if (lower == 'd' || lower == 'm' || lower == 'y' || lower == 'h' || lower == 's') {
        // "General" holds none of these letters; any other use of them is a date or time code.
        return true;
      }
    }
  }
  return false;
}

std::vector<bool> readDateStyles(std::string& stylesXml) {
  pugi::xml_document doc;
  if (!doc.load_buffer_inplace(stylesXml.data(), stylesXml.size())) return {};
  const pugi::xml_node root = doc.document_element();
  std::map<std::uint32_t, bool> defined;
  for (pugi::xml_node f : xml::child(root, "numFmts").children()) {
    std::uint32_t id = 0;
    if (xml::isElement(f, "numFmt") && readId(xml::attributeNamed(f, "numFmtId"), id)) {
      defined[id] = isDateFormatCode(xml::attributeNamed(f, "formatCode").value());
    }
  }
  std::vector<bool> dates;
  for (pugi::xml_node xf : xml::child(root, "cellXfs").children()) {
    if (!xml::isElement(xf, "xf")) continue;
    std::uint32_t id = 0;
    bool date = false;
    if (readId(xml::attributeNamed(xf, "numFmtId"), id)) {
      const auto own = defined.find(id);
      date = own != defined.end() ? own->second : builtInDate(id);
    }
    dates.push_back(date);
  }
  return dates;
}

}  // namespace orv
