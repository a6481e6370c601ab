#pragma once
// Walking a UTF-8 text character by character, for measuring how wide it shows.

#include <cstddef>
#include <string_view>

namespace orv {

// The code point that starts at `at`; moves `at` past it. A byte that starts no valid sequence
// (a stray continuation byte, a sequence cut short) stands for itself and moves `at` by one, so
// that measuring never fails on text from a file of unknown encoding.
char32_t nextCodePoint(std::string_view text, std::size_t& at);

}  // namespace orv
