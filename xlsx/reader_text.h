#pragma once
// Character-level helpers shared by the file readers.

#include <cstdint>
#include <string>
#include <string_view>

namespace orv {

// 0..15 for a hexadecimal digit, -1 otherwise.
int hexDigit(char c);

// Appends the UTF-8 form of a Unicode code point (up to U+10FFFF).
void appendUtf8(std::string& out, std::uint32_t code);

// True when the text is well-formed UTF-8 (no overlong forms, no surrogates).
bool isValidUtf8(std::string_view text);

// Reads the text as Windows-1252, the usual encoding of a text file that is not UTF-8, and
// returns it as UTF-8.
std::string windows1252ToUtf8(std::string_view text);

}  // namespace orv
