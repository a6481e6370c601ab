#include "support/ordinal.h"

#include <cstddef>

namespace orv {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view trimBlanks(std::string_view s) {
  while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
  while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
  return s;
}

}  // namespace

std::string Ordinal(std::string_view text) {
  const std::string_view number = trimBlanks(text);
  std::size_t first = 0;
  if (!number.empty() && (number.front() == '-' || number.front() == '+')) first = 1;
  const std::string_view digits = number.substr(first);
  bool whole = !digits.empty();
  for (char c : digits) whole = whole && isDigit(c);
  if (!whole) return std::string(text);

  // Only the last two digits decide the suffix, so a number of any length works without
  // converting it: 11, 12 and 13 (also 111, 212 ...) take "th" whatever their last digit.
  const int last = digits.back() - '0';
  const int tens = digits.size() >= 2 ? digits[digits.size() - 2] - '0' : 0;
  const char* suffix = "th";
  if (tens != 1) {
    if (last == 1) suffix = "st";
    if (last == 2) suffix = "nd";
    if (last == 3) suffix = "rd";
  }
  std::string out(number);
  out += suffix;
  return out;
}

}  // namespace orv
