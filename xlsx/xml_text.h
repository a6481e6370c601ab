#pragma once
// XML character data as the streaming sheet reader meets it: whitespace, entity and character
// references, and line ends. Text in attributes and elements reaches the reader raw, and only the
// little of it that is kept gets resolved.

#include <algorithm>
#include <string>
#include <string_view>

namespace orv {

// The four whitespace characters of XML.
inline bool isXmlSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

// The text without XML whitespace at either end.
std::string_view trimXmlSpace(std::string_view s);

// True when character data holds an entity reference or a CR to resolve; most values do not.
inline bool needsResolving(std::string_view s) {
  return std::any_of(s.begin(), s.end(), [](char c) { return c == '&' || c == '\r'; });
}

// Appends character data with the five predefined entities and decimal and hexadecimal character
// references resolved, and CR LF and lone CR read as LF, as an XML parser delivers them.
// References that are unknown, malformed, longer than 12 bytes or of no valid character stay as
// written; so does a '&' without a ';'.
void appendXmlText(std::string& out, std::string_view s);

}  // namespace orv
