#include "xlsx/xml_text.h"

#include <charconv>
#include <cstdint>

#include "xlsx/reader_text.h"

namespace orv {
namespace {

// The character a reference between '&' and ';' stands for; false when it is no reference this
// reader resolves.
bool resolveReference(std::string_view name, std::string& out) {
  if (name == "lt") out.push_back('<');
  else if (name == "gt") out.push_back('>');
  else if (name == "amp") out.push_back('&');
  else if (name == "quot") out.push_back('"');
  else if (name == "apos") out.push_back('\'');
  else if (name.size() > 1 && name[0] == '#') {
    std::uint32_t code = 0;
    const bool hex = name[1] == 'x';
    auto [end, ec] = std::from_chars(name.data() + (hex ? 2 : 1), name.data() + name.size(), code, hex ? 16 : 10);
    if (ec != std::errc() || end != name.data() + name.size() || code == 0 || code > 0x10FFFF ||
        (code >= 0xD800 && code <= 0xDFFF)) {
      return false;
    }
    appendUtf8(out, code);
  } else {
    return false;
  }
  return true;
}

}  // namespace

std::string_view trimXmlSpace(std::string_view s) {
  while (!s.empty() && isXmlSpace(s.front())) s.remove_prefix(1);
  while (!s.empty() && isXmlSpace(s.back())) s.remove_suffix(1);
  return s;
}

void appendXmlText(std::string& out, std::string_view s) {
  if (!needsResolving(s)) {
    out.append(s);
    return;
  }
  for (std::size_t i = 0; i < s.size(); ++i) {
    const char c = s[i];
    if (c == '\r') {
      out.push_back('\n');
      if (i + 1 < s.size() && s[i + 1] == '\n') ++i;
      continue;
    }
    if (c != '&') {
      out.push_back(c);
      continue;
    }
    const auto semi = s.find(';', i);
    if (semi == std::string_view::npos || semi - i > 12) {
      out.push_back(c);
      continue;
    }
    if (!resolveReference(s.substr(i + 1, semi - i - 1), out)) out.append(s.substr(i, semi - i + 1));
    i = semi;
  }
}

}  // namespace orv
