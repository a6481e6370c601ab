#pragma once
// The integer and floating-point rules of the platform the component was designed on. They are
// observable in the results (a 16-bit loop counter overflows at 32768 observations, 0/0 is an
// overflow rather than a NaN), so every engine goes through these helpers instead of raw
// arithmetic where the rules matter. No infinity or NaN ever leaves this module.

#include <cstdint>
#include <limits>
#include <type_traits>

namespace orv {

[[noreturn]] void raiseOverflow();

// An integer of width T whose every result is range-checked: leaving the range raises
// "Overflow" (6). Int16 and Int32 are the platform's Integer and Long; Byte is unsigned 8-bit.
template <class T>
class Checked {
  static_assert(std::is_integral_v<T>);

 public:
  constexpr Checked() = default;
  constexpr Checked(T v) : v_(v) {}  // NOLINT(google-explicit-constructor)

  // From any integer: checked.
  template <class U, std::enable_if_t<std::is_integral_v<U> && !std::is_same_v<U, T>, int> = 0>
  static Checked from(U v) {
    return Checked(narrow(static_cast<std::int64_t>(v)));
  }

  constexpr T value() const { return v_; }
  constexpr operator T() const { return v_; }  // NOLINT(google-explicit-constructor)

  friend Checked operator+(Checked a, Checked b) { return Checked(narrow(std::int64_t{a.v_} + b.v_)); }
  friend Checked operator-(Checked a, Checked b) { return Checked(narrow(std::int64_t{a.v_} - b.v_)); }
  friend Checked operator*(Checked a, Checked b) { return Checked(narrow(std::int64_t{a.v_} * b.v_)); }
  // Mixed forms with any plain integer, so that `counter + 1` is checked in 64 bits rather than
  // done in int or truncated to T first.
  template <class U, std::enable_if_t<std::is_integral_v<U>, int> = 0>
  friend Checked operator+(Checked a, U b) {
    return Checked(narrow(std::int64_t{a.v_} + static_cast<std::int64_t>(b)));
  }
  template <class U, std::enable_if_t<std::is_integral_v<U>, int> = 0>
  friend Checked operator+(U a, Checked b) {
    return Checked(narrow(static_cast<std::int64_t>(a) + b.v_));
  }
  template <class U, std::enable_if_t<std::is_integral_v<U>, int> = 0>
  friend Checked operator-(Checked a, U b) {
    return Checked(narrow(std::int64_t{a.v_} - static_cast<std::int64_t>(b)));
  }
  template <class U, std::enable_if_t<std::is_integral_v<U>, int> = 0>
  friend Checked operator-(U a, Checked b) {
    return Checked(narrow(static_cast<std::int64_t>(a) - b.v_));
  }
  template <class U, std::enable_if_t<std::is_integral_v<U>, int> = 0>
  friend Checked operator*(Checked a, U b) {
    return Checked(narrow(std::int64_t{a.v_} * static_cast<std::int64_t>(b)));
  }
  template <class U, std::enable_if_t<std::is_integral_v<U>, int> = 0>
  friend Checked operator*(U a, Checked b) {
    return Checked(narrow(static_cast<std::int64_t>(a) * b.v_));
  }
  Checked& operator+=(Checked b) { return *this = *this + b; }
  Checked& operator-=(Checked b) { return *this = *this - b; }
  Checked& operator*=(Checked b) { return *this = *this * b; }
  template <class U, std::enable_if_t<std::is_integral_v<U>, int> = 0>
  Checked& operator+=(U b) {
    return *this = *this + b;
  }
  template <class U, std::enable_if_t<std::is_integral_v<U>, int> = 0>
  Checked& operator-=(U b) {
    return *this = *this - b;
  }
  Checked& operator++() { return *this += Checked(T{1}); }

 private:
  static T narrow(std::int64_t v) {
    if (v < std::numeric_limits<T>::min() || v > std::numeric_limits<T>::max()) raiseOverflow();
    return static_cast<T>(v);
  }
  T v_ = 0;
};

using Int16 = Checked<std::int16_t>;
using Int32 = Checked<std::int32_t>;
using Byte = Checked<std::uint8_t>;

// Conversions from double that round half to even, as the platform's CInt/CLng/CByte do;
// "Overflow" outside the target range (and for a non-finite argument).
std::int16_t toInt16(double x);
std::int32_t toInt32(double x);
std::uint8_t toByte(double x);
// Integer to integer: checked.
std::int16_t toInt16(std::int64_t x);
std::int32_t toInt32(std::int64_t x);

// Half-to-even rounding to a whole number (no range check).
double roundHalfEven(double x);

// `Int`: the largest whole number not above x (floor), as a double.
double intFloor(double x);

// Arithmetic that turns faults into errors:
//   divide: x/0 raises "Division by zero" (11), 0/0 raises "Overflow" (6);
//   an infinite result of any operation raises "Overflow" (6);
//   sqrt of a negative number, log of a number <= 0, and a power that has no real value
//   raise "Invalid procedure call or argument" (5).
double divide(double numerator, double denominator);
double checked(double result);  // raises Overflow for an infinite or NaN result; returns it
double add(double a, double b);
double subtract(double a, double b);
double multiply(double a, double b);
double squareRoot(double x);
double logarithm(double x);  // natural logarithm
double power(double base, double exponent);

}  // namespace orv
