#include "frame/fixed4.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>

#include "frame/errors.h"
#include "frame/numerics.h"

namespace orv {

namespace {

constexpr std::int64_t kUnitsMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kUnitsMin = std::numeric_limits<std::int64_t>::min();
constexpr std::uint64_t kMagnitudeOfMin = std::uint64_t{1} << 63;

std::uint64_t pow10(int n) {
  std::uint64_t p = 1;
  while (n-- > 0) p *= 10;
  return p;
}

// Rounds `value * 10^decimals` half to even to a whole number of units, range-checked.
//
// The rounding works on the double's shortest decimal form (the digits that read back as the
// same double), not on its binary value: 0.00015 is stored a hair below 0.00015, and scaling it
// by 10000 in binary gives 1.4999999999999998, but the number meant is the tie 1.5, which goes
// to the even 2.
std::int64_t roundToUnits(double value, int decimals) {
  if (!std::isfinite(value)) raiseOverflow();
  if (value == 0.0) return 0;
  // Shortest scientific form: "d[.ddd]e[+-]xx", at most 17 significant digits.
  std::array<char, 40> buffer{};
  const auto written =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::scientific);
  const std::string_view text(buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data()));
  const bool negative = text.front() == '-';
  const std::size_t e = text.find('e');
  std::uint64_t digits = 0;
  int count = 0;
  for (std::size_t i = negative ? 1 : 0; i < e; ++i) {
    if (text[i] == '.') continue;
    digits = digits * 10 + static_cast<std::uint64_t>(text[i] - '0');
    ++count;
  }
  int exponent = 0;
  std::from_chars(text.data() + e + (text[e + 1] == '+' ? 2 : 1), text.data() + text.size(), exponent);

  // value = digits * 10^(exponent - count + 1); the units are that times 10^decimals.
  const int shift = exponent - count + 1 + decimals;
  std::uint64_t magnitude = 0;
  if (shift >= 0) {
    if (count + shift > 19) raiseOverflow();  // at least 10^19, beyond any int64
    magnitude = digits * pow10(shift);        // below 10^19, so no wrap-around
  } else if (-shift <= count) {
    const std::uint64_t divisor = pow10(-shift);
    magnitude = digits / divisor;
    const std::uint64_t rest = digits % divisor;
    const std::uint64_t half = divisor / 2;
    if (rest > half || (rest == half && magnitude % 2 == 1)) ++magnitude;
  }  // else every digit lies below half a unit: zero

  const std::uint64_t limit = negative ? kMagnitudeOfMin : static_cast<std::uint64_t>(kUnitsMax);
  if (magnitude > limit) raiseOverflow();
  if (!negative) return static_cast<std::int64_t>(magnitude);
  return magnitude == kMagnitudeOfMin ? kUnitsMin : -static_cast<std::int64_t>(magnitude);
}

}  // namespace

Fixed4 Fixed4::fromDouble(double x) { return Fixed4(roundToUnits(x, 4)); }

Fixed4 operator+(Fixed4 a, Fixed4 b) {
  if ((b.units_ > 0 && a.units_ > kUnitsMax - b.units_) || (b.units_ < 0 && a.units_ < kUnitsMin - b.units_)) {
    raiseOverflow();
  }
  return Fixed4(a.units_ + b.units_);
}

Fixed4 operator-(Fixed4 a, Fixed4 b) {
  if ((b.units_ < 0 && a.units_ > kUnitsMax + b.units_) || (b.units_ > 0 && a.units_ < kUnitsMin + b.units_)) {
    raiseOverflow();
  }
  return Fixed4(a.units_ - b.units_);
}

Fixed4 operator*(Fixed4 a, Fixed4 b) {
  // Working in units keeps one division by 10000 instead of two conversions to double.
  return Fixed4(roundToUnits(static_cast<double>(a.units_) * static_cast<double>(b.units_) / 10000.0, 0));
}

Fixed4 operator/(Fixed4 a, Fixed4 b) {
  const double quotient = divide(static_cast<double>(a.units_), static_cast<double>(b.units_));
  return Fixed4(roundToUnits(quotient, 4));
}

}  // namespace orv
