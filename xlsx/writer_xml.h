#pragma once
// Small pieces every part writer needs: escaping for element text and attribute values,
// numbers in their shortest round-trip form, and reading and writing parts of a user's package
// without disturbing what the writer does not edit. Names are matched with xml_names.h.

#include <cstdint>
#include <string>
#include <string_view>

#include <pugixml.hpp>

#include "xlsx/xml_names.h"

namespace orv::xml {

// Element text: & < > escaped; characters XML 1.0 cannot carry (controls other than tab, line
// feed and carriage return) written as _xHHHH_, and a literal "_xHHHH_" protected as "_x005F_xHHHH_"
// so that readers decoding the escape get the original text back.
std::string text(std::string_view value);
// Attribute value in double quotes: as text() plus ".
std::string attribute(std::string_view value);
// Shortest text that reads back as the same double ("0.1", "1E+300" style per std::to_chars).
// Finite values only (the model never holds others).
std::string number(double value);
std::string integer(std::int64_t value);
// "B7" for row 7, column 2.
std::string cellName(std::int32_t row, std::int32_t column);

// Parses a part of a user's package keeping everything that matters for writing it back:
// whitespace-only text, comments, processing instructions, the declaration, attribute values
// without whitespace folding. pugixml keeps prefixed names literally, so namespace declarations
// and mc:Ignorable prefixes survive. Raises kFileUnwritable naming the part when it is no XML.
pugi::xml_document parsePart(std::string_view content, std::string_view partName);
// The document as it was parsed, without added indentation.
std::string serialise(const pugi::xml_document& document);

}  // namespace orv::xml
