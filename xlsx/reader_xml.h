#pragma once
// Small helpers for reading package XML with pugixml. Elements and attributes are matched by
// local name (xml_names.h), whatever namespace prefix a writer chose.

#include <cstddef>
#include <string>
#include <string_view>

#include <pugixml.hpp>

#include "xlsx/xml_names.h"

namespace orv {

// Elements nested deeper than this are refused in every part. Real parts stay within about ten
// levels; the parsers do not recurse, so the limit guards the tools that may walk a part later.
inline constexpr std::size_t kMaxXmlDepth = 256;

// Parses a whole part; a part that is no well-formed XML, or nests deeper than kMaxXmlDepth,
// raises kFileUnreadable naming `part`. Whitespace-only text is kept, since a string of blanks is
// a legitimate cell text.
void parsePart(pugi::xml_document& doc, std::string& xml, std::string_view part);

// The detail of the refusal of a part nested deeper than kMaxXmlDepth.
std::string xmlDepthRefusal(std::string_view part);

// Undoes the _xHHHH_ escapes spreadsheet files use for characters XML cannot carry
// ("_x000D_" is a carriage return, "_x005F_" a literal underscore); text without them is
// returned unchanged. An escape of a surrogate half or of nothing valid stays as written.
std::string decodeSpreadsheetEscapes(std::string text);

// The text of a string item (<si> or <is>): its own <t>, or the <t> of each rich-text run
// (<r>) in order; phonetic runs (<rPh>) are hints, not content, and are left out.
std::string stringItemText(pugi::xml_node item);

}  // namespace orv
