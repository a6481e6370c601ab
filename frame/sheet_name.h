#pragma once
// How the host compares worksheet names, and workbook names too: without regard to case, with
// ASCII letters folded and every other byte compared as it is (so "Daten" matches "DATEN", but
// "Ä" does not match "ä").

#include <algorithm>
#include <string_view>

namespace orv {

inline bool sameSheetName(std::string_view a, std::string_view b) {
  constexpr auto fold = [](char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [&](char x, char y) { return fold(x) == fold(y); });
}

}  // namespace orv
