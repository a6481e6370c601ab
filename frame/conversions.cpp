#include "frame/conversions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <system_error>

#include "frame/errors.h"
#include "frame/numerics.h"

namespace orv {

namespace {

enum class Scan { NotANumber, Number, TooLarge };

bool isBlank(char c) { return c == ' ' || c == '\t'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t skipDigits(std::string_view s, std::size_t i) {
  while (i < s.size() && isDigit(s[i])) ++i;
  return i;
}

// The power of ten of the first non-zero digit of a well-formed unsigned number text, the
// exponent saturated so that no digit string can overflow the count.
std::int64_t decimalMagnitude(std::string_view s) {
  const std::size_t e = std::min(s.find_first_of("eE"), s.size());
  const std::string_view mantissa = s.substr(0, e);
  std::int64_t exponent = 0;
  if (e < s.size()) {
    std::size_t j = e + 1;
    const bool negativeExponent = j < s.size() && s[j] == '-';
    if (j < s.size() && (s[j] == '+' || s[j] == '-')) ++j;
    for (; j < s.size(); ++j) {
      exponent = std::min<std::int64_t>(exponent * 10 + (s[j] - '0'), 1'000'000'000);
    }
    if (negativeExponent) exponent = -exponent;
  }
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const std::size_t first = mantissa.find_first_of("123456789");
  if (first == std::string_view::npos) return std::numeric_limits<std::int64_t>::min();
  const auto offset = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
  // A digit before the point at offset k stands for 10^(k-1); after it, for 10^k (k negative).
  return exponent + (offset > 0 ? offset - 1 : offset);
}

// Checks the shape of the text by hand, then lets from_chars do the correctly rounded
// conversion. from_chars alone would also take "inf", "nan" and hexadecimal forms, which no cell
// text should turn into a number.
Scan scanPlainNumber(std::string_view text, double& out) {
  std::size_t begin = 0;
  std::size_t end = text.size();
  while (begin < end && isBlank(text[begin])) ++begin;
  while (end > begin && isBlank(text[end - 1])) --end;
  std::string_view s = text.substr(begin, end - begin);

  bool negative = false;
  if (!s.empty() && (s[0] == '+' || s[0] == '-')) {
    negative = s[0] == '-';
    s.remove_prefix(1);
  }
  std::size_t i = skipDigits(s, 0);
  std::size_t digits = i;
  if (i < s.size() && s[i] == '.') {
    const std::size_t afterPoint = i + 1;
    i = skipDigits(s, afterPoint);
    digits += i - afterPoint;
  }
  if (digits == 0) return Scan::NotANumber;
  if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
    std::size_t j = i + 1;
    if (j < s.size() && (s[j] == '+' || s[j] == '-')) ++j;
    const std::size_t exponentEnd = skipDigits(s, j);
    if (exponentEnd == j) return Scan::NotANumber;
    i = exponentEnd;
  }
  if (i != s.size()) return Scan::NotANumber;

  double value = 0.0;
  const auto [ptr, ec] = std::from_chars(s.data(), s.data() + s.size(), value);
  if (ec == std::errc::result_out_of_range) {
    // Either beyond the largest double or below the smallest one: a number too small to hold is
    // zero, one too large an overflow. The decimal magnitude of the leading digit tells which.
    if (decimalMagnitude(s) > 0) return Scan::TooLarge;
    out = negative ? -0.0 : 0.0;
    return Scan::Number;
  }
  if (ec != std::errc() || ptr != s.data() + s.size()) return Scan::NotANumber;
  out = negative ? -value : value;
  return Scan::Number;
}

}  // namespace

std::optional<double> parsePlainNumber(std::string_view text) {
  double value = 0.0;
  if (scanPlainNumber(text, value) != Scan::Number) return std::nullopt;
  return value;
}

double toNumber(const CellValue& v) {
  switch (v.kind()) {
    case CellValue::Kind::Empty: return 0.0;
    case CellValue::Kind::Number: return v.number();
    case CellValue::Kind::Boolean: return v.boolean() ? -1.0 : 0.0;  // the platform's True is -1
    case CellValue::Kind::Text: {
      double value = 0.0;
      switch (scanPlainNumber(v.text(), value)) {
        case Scan::Number: return value;
        case Scan::TooLarge: raiseOverflow();
        case Scan::NotANumber: break;
      }
      break;
    }
    case CellValue::Kind::Error: break;
  }
  raise(err::kTypeMismatch);
}

std::string numberToText(double x) {
  if (!std::isfinite(x)) raiseOverflow();
  if (x == 0.0) return "0";  // also for -0, which the platform never shows
  // General format with 15 significant digits already drops trailing zeros and switches to the
  // scientific form below 1E-04 and from 1E+15 on, with an exponent of at least two digits.
  std::array<char, 32> buffer{};
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), x, std::chars_format::general, 15);
  std::string text(buffer.data(), result.ptr);
  for (char& c : text) {
    if (c == 'e') c = 'E';
  }
  return text;
}

std::string toText(const CellValue& v) {
  switch (v.kind()) {
    case CellValue::Kind::Empty: return {};
    case CellValue::Kind::Number: return numberToText(v.number());
    case CellValue::Kind::Text: return v.text();
    case CellValue::Kind::Boolean: return v.boolean() ? "True" : "False";
    case CellValue::Kind::Error: return std::string(errorValueText(v.error()));
  }
  return {};
}

}  // namespace orv
