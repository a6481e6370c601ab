#pragma once
// How the host compares worksheet names, and workbook names too: without regard to case, with
// ASCII letters folded and every other byte compared as it is (so "Daten" matches "DATEN", but
// "Ä" does not match "ä").

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orv {

inline bool sameSheetName(std::string_view a, std::string_view b) {
  constexpr auto fold = [](char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [&](char x, char y) { return fold(x) == fold(y); });
}

// The name Worksheets.Add gives a new sheet of a workbook: "Sheet" + n, n counting on from the
// highest "SheetN" (any case) among the workbook's `names` or from `counter`, the n the workbook
// handed out last, whichever is higher, and skipping names in use. `counter` becomes the n given.
// A workbook with Sheet1..Sheet3 gets Sheet4, one with only "Data" gets Sheet1.
std::string nextDefaultSheetName(std::int64_t& counter, const std::vector<std::string>& names);

}  // namespace orv
