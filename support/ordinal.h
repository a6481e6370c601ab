#pragma once
// The add-in's ordinal notation, for the labels of percentile and k-th rows.

#include <string>
#include <string_view>

namespace orv {

// The ordinal of the whole number in `text`: "1st", "2nd", "3rd", "4th", "11th", "12th",
// "13th", "21st", "101st", "111th". Blanks around the number are dropped and a sign is kept
// ("-1st"). A text that holds no whole number ("", "2.5", "abc") is returned unchanged.
std::string Ordinal(std::string_view text);

}  // namespace orv
