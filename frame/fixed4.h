#pragma once
// A four-decimal fixed-point number (units of 1/10000 in 64 bits), the platform's Currency type.
// Frequency bins compare widths in it so that 0.1 + 0.2 equals 0.3 exactly.

#include <compare>
#include <cstdint>

namespace orv {

class Fixed4 {
 public:
  constexpr Fixed4() = default;

  // Rounds half to even to four decimals; "Overflow" (6) beyond +-922337203685477.5807. The
  // rounding sees the double as its shortest decimal form, so 0.00015 is a tie (-> 0.0002).
  static Fixed4 fromDouble(double x);
  static constexpr Fixed4 fromUnits(std::int64_t units) { return Fixed4(units); }

  constexpr std::int64_t units() const { return units_; }
  double toDouble() const { return static_cast<double>(units_) / 10000.0; }

  // Sums and differences are exact; every result is range-checked ("Overflow").
  friend Fixed4 operator+(Fixed4 a, Fixed4 b);
  friend Fixed4 operator-(Fixed4 a, Fixed4 b);
  // Products and quotients go through double and round half to even back to four decimals.
  friend Fixed4 operator*(Fixed4 a, Fixed4 b);
  friend Fixed4 operator/(Fixed4 a, Fixed4 b);  // "Division by zero" (11) / "Overflow" for 0/0

  friend constexpr auto operator<=>(Fixed4, Fixed4) = default;

 private:
  constexpr explicit Fixed4(std::int64_t units) : units_(units) {}
  std::int64_t units_ = 0;
};

}  // namespace orv
