#include "frame/numerics.h"

#include <cmath>

#include "frame/errors.h"
#include "frame/small_power.h"

namespace orv {

void raiseOverflow() { raise(err::kOverflow); }

namespace {

[[noreturn]] void raiseInvalidArgument() { raise(err::kInvalidProcedureCall); }

// Rounds half to even, then checks the target range. The rounding comes first so that 32767.5
// (which rounds to 32768) overflows while -32768.5 (which rounds to -32768) does not.
template <class T>
T roundToInteger(double x) {
  if (!std::isfinite(x)) raiseOverflow();
  const double r = roundHalfEven(x);
  if (r < static_cast<double>(std::numeric_limits<T>::min()) ||
      r > static_cast<double>(std::numeric_limits<T>::max())) {
    raiseOverflow();
  }
  return static_cast<T>(r);
}

template <class T>
T narrowInteger(std::int64_t x) {
  if (x < std::numeric_limits<T>::min() || x > std::numeric_limits<T>::max()) raiseOverflow();
  return static_cast<T>(x);
}

}  // namespace

std::int16_t toInt16(double x) { return roundToInteger<std::int16_t>(x); }
std::int32_t toInt32(double x) { return roundToInteger<std::int32_t>(x); }
std::uint8_t toByte(double x) { return roundToInteger<std::uint8_t>(x); }
std::int16_t toInt16(std::int64_t x) { return narrowInteger<std::int16_t>(x); }
std::int32_t toInt32(std::int64_t x) { return narrowInteger<std::int32_t>(x); }

double roundHalfEven(double x) {
  // Written out rather than left to nearbyint() so that the result never depends on the
  // floating-point environment's current rounding mode. x - floor(x) is exact for every double.
  const double below = std::floor(x);
  const double fraction = x - below;
  if (fraction < 0.5) return below;
  if (fraction > 0.5) return below + 1.0;
  return std::fmod(below, 2.0) == 0.0 ? below : below + 1.0;
}

double intFloor(double x) { return std::floor(x); }

double checked(double result) {
  if (!std::isfinite(result)) raiseOverflow();
  return result;
}

double divide(double numerator, double denominator) {
  if (denominator == 0.0) {
    // The platform tells the two apart: 0/0 is an overflow, any other x/0 a division by zero.
    if (numerator == 0.0) raiseOverflow();
    raise(err::kDivisionByZero);
  }
  return checked(numerator / denominator);
}

double add(double a, double b) { return checked(a + b); }
double subtract(double a, double b) { return checked(a - b); }
double multiply(double a, double b) { return checked(a * b); }

double squareRoot(double x) {
  if (x < 0.0) raiseInvalidArgument();
  return checked(std::sqrt(x));
}

double logarithm(double x) {
  if (x <= 0.0) raiseInvalidArgument();
  return checked(std::log(x));
}

double power(double base, double exponent) {
  // A negative base takes whole exponents only, even where a real root exists ((-8)^(1/3)): the
  // exponent arrives as a rounded double and the platform does not guess at odd roots. Zero to a
  // negative power has no value either.
  if (base < 0.0 && std::trunc(exponent) != exponent) raiseInvalidArgument();
  if (base == 0.0 && exponent < 0.0) raiseInvalidArgument();
  // The moment sums raise every observation to these powers: the same result, far cheaper.
  if (exponent == 2.0 || exponent == 3.0 || exponent == 4.0) {
    return checked(smallPower(base, static_cast<int>(exponent)));
  }
  return checked(std::pow(base, exponent));
}

}  // namespace orv
