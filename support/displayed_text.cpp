#include "support/displayed_text.h"

#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <optional>
#include <vector>

#include "frame/conversions.h"

namespace orv {
namespace {

constexpr std::size_t kGeneralWidth = 11;
// Characters a format shows as themselves without quotes.
constexpr std::string_view kLiterals = "$-+/():!^&'~{}<>= ";

std::string charsOf(double x, std::chars_format form, int precision) {
  std::array<char, 64> buffer{};
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), x, form, precision);
  return std::string(buffer.data(), result.ptr);
}

// "2.50" -> "2.5", "3.000" -> "3"; "1.50e+07" -> "1.5e+07".
std::string withoutTrailingZeros(std::string text) {
  const std::size_t point = text.find('.');
  if (point == std::string::npos) return text;
  const std::size_t exponent = text.find_first_of("eE");
  const std::size_t end = exponent == std::string::npos ? text.size() : exponent;
  std::size_t last = end;
  while (last > point + 1 && text[last - 1] == '0') --last;
  if (last == point + 1) last = point;
  return text.erase(last, end - last);
}

bool startsWithGeneral(std::string_view text) {
  constexpr std::string_view kGeneral = "general";
  if (text.size() < kGeneral.size()) return false;
  for (std::size_t i = 0; i < kGeneral.size(); ++i) {
    if (std::tolower(static_cast<unsigned char>(text[i])) != kGeneral[i]) return false;
  }
  return true;
}

// One section of a format: literal text around a number of fixed decimals, or General.
struct Pattern {
  std::string prefix, suffix;
  bool general = false;
  int decimals = 0;
  bool thousands = false;
  bool percent = false;
};

std::optional<Pattern> parseSection(std::string_view section) {
  Pattern p;
  bool inNumber = false, afterPoint = false, seenNumber = false;
  for (std::size_t i = 0; i < section.size(); ++i) {
    const char c = section[i];
    std::string literal;
    if (c == '"') {
      const std::size_t close = section.find('"', i + 1);
      if (close == std::string_view::npos) return std::nullopt;
      literal = section.substr(i + 1, close - i - 1);
      i = close;
    } else if (c == '\\' && i + 1 < section.size()) {
      literal = section[++i];
    } else if (c == '_' && i + 1 < section.size()) {
      ++i;
      literal = " ";
    } else if (c == '[') {
      const std::size_t close = section.find(']', i);
      if (close == std::string_view::npos) return std::nullopt;
      i = close;
      continue;
    } else if (startsWithGeneral(section.substr(i))) {
      if (seenNumber) return std::nullopt;
      p.general = seenNumber = true;
      i += 6;
      continue;
    } else if (c == '0' || c == '#' || c == '?') {
      if (seenNumber && !inNumber) return std::nullopt;
      inNumber = seenNumber = true;
      if (afterPoint) ++p.decimals;
      continue;
    } else if (c == '.' && inNumber && !afterPoint) {
      afterPoint = true;
      continue;
    } else if (c == ',' && inNumber) {
      p.thousands = !afterPoint;
      continue;
    } else if (c == '%') {
      p.percent = true;
      literal = "%";
    } else if (kLiterals.find(c) != std::string_view::npos) {
      literal = c;
    } else {
      return std::nullopt;  // dates, times, fractions, exponents, fill characters
    }
    inNumber = false;
    (seenNumber ? p.suffix : p.prefix) += literal;
  }
  if (!seenNumber) p.general = true;  // literal text only: shown with General after it
  return p;
}

std::vector<std::string_view> sectionsOf(std::string_view format) {
  std::vector<std::string_view> sections;
  std::size_t start = 0;
  bool quoted = false;
  for (std::size_t i = 0; i < format.size(); ++i) {
    if (format[i] == '"') quoted = !quoted;
    if (format[i] == ';' && !quoted) {
      sections.push_back(format.substr(start, i - start));
      start = i + 1;
    }
  }
  sections.push_back(format.substr(start));
  return sections;
}

std::string grouped(std::string digits) {
  const std::size_t point = digits.find('.');
  std::size_t integerEnd = point == std::string::npos ? digits.size() : point;
  for (std::size_t at = integerEnd; at > 3; at -= 3) digits.insert(at - 3, ",");
  return digits;
}

std::string fixedText(double magnitude, const Pattern& p) {
  std::string digits = charsOf(p.percent ? magnitude * 100 : magnitude, std::chars_format::fixed, p.decimals);
  return p.thousands ? grouped(std::move(digits)) : digits;
}

std::string numberText(double x, std::string_view format) {
  const std::vector<std::string_view> sections = sectionsOf(format);
  // Negative numbers take the second section without a sign of their own, zero the third.
  std::size_t chosen = 0;
  if (x < 0 && sections.size() > 1) chosen = 1;
  if (x == 0 && sections.size() > 2) chosen = 2;
  if (sections.size() > 1 && sections[chosen].empty()) return {};  // an empty section hides the number
  const std::optional<Pattern> pattern = parseSection(sections[chosen]);
  if (!pattern) return generalText(x);
  // The first section gives negative numbers a minus sign before everything else; General
  // counts it among its 11 characters.
  const bool sign = x < 0 && chosen == 0;
  if (pattern->general) return pattern->prefix + generalText(sign ? x : std::fabs(x)) + pattern->suffix;
  return (sign ? "-" : "") + pattern->prefix + fixedText(std::fabs(x), *pattern) + pattern->suffix;
}

}  // namespace

std::string generalText(double x) {
  std::string text = numberToText(x);
  if (text.size() <= kGeneralWidth) return text;
  const std::size_t sign = x < 0 ? 1 : 0;
  const int exponent = static_cast<int>(std::floor(std::log10(std::fabs(x))));
  if (exponent >= -5 && exponent + 1 + static_cast<int>(sign) <= static_cast<int>(kGeneralWidth)) {
    const int integerDigits = std::max(exponent + 1, 1);
    for (int decimals = static_cast<int>(kGeneralWidth - sign) - integerDigits - 1; decimals >= 0; --decimals) {
      text = withoutTrailingZeros(charsOf(x, std::chars_format::fixed, decimals));
      if (text.size() <= kGeneralWidth) return text;
    }
  }
  for (int digits = 5; digits >= 0; --digits) {
    text = withoutTrailingZeros(charsOf(x, std::chars_format::scientific, digits));
    for (char& c : text) {
      if (c == 'e') c = 'E';
    }
    if (text.size() <= kGeneralWidth) return text;
  }
  return text;
}

std::string displayedText(const CellValue& value, std::string_view numberFormat) {
  switch (value.kind()) {
    case CellValue::Kind::Empty: return {};
    case CellValue::Kind::Number: return numberText(value.number(), numberFormat);
    case CellValue::Kind::Text: return value.text();
    case CellValue::Kind::Boolean: return value.boolean() ? "TRUE" : "FALSE";
    case CellValue::Kind::Error: return toText(value);
  }
  return {};
}

}  // namespace orv
