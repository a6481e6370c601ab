#pragma once
// Numbers and cell references as sheet XML spells them in attributes and values. XML whitespace
// around a number is ignored; anything else around it makes it no number.

#include <charconv>
#include <cstdint>
#include <string_view>
#include <system_error>

#include "xlsx/xml_text.h"

namespace orv {

// A decimal integer of type Int; false when empty, malformed or out of Int's range.
template <class Int>
bool parseInt(std::string_view s, Int& out) {
  s = trimXmlSpace(s);
  auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), out);
  return ec == std::errc() && end == s.data() + s.size() && !s.empty();
}

// A finite double in the file's spelling (an optional leading '+' allowed); false otherwise.
bool parseDouble(std::string_view s, double& out);

// "AB12" -> column 28, row 12; a reference of letters only sets the column and keeps `row`.
// False when malformed or off the sheet.
bool parseCellRef(std::string_view ref, std::int32_t& row, std::int32_t& column);

}  // namespace orv
