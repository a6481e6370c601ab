#pragma once
// How many terminal columns a UTF-8 text takes, so that tables of names in any script line up.
//
// A character of the East Asian wide and fullwidth ranges (CJK ideographs, kana, hangul,
// fullwidth forms, most emoji) takes two columns; combining marks, zero-width blanks and
// variation selectors take none; everything else one, "µ" and "±" included although they take two
// bytes. Bytes that are not valid UTF-8 count one column each, as a terminal shows them.

#include <cstddef>
#include <string>
#include <string_view>

namespace orv::cli {

std::size_t displayWidth(std::string_view text);

// `text` followed (padLeft: preceded) by blanks up to `width` columns; unchanged when wider.
std::string padRight(std::string_view text, std::size_t width);
std::string padLeft(std::string_view text, std::size_t width);

}  // namespace orv::cli
