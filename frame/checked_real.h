#pragma once
// Real: a double whose arithmetic follows the platform. An infinite or undefined result raises
// (6 overflow, 11 division by zero, 5 invalid argument, through frame/numerics.h) instead of
// flowing on as inf or NaN, so that statistics can be written as their formulas. The engines
// write their checked arithmetic in this one form.
//
// The functions of Real live in orv::math, so that an unqualified sqrt or pow of a plain double
// elsewhere keeps meaning the standard one.

#include <cmath>

#include "frame/numerics.h"

namespace orv {

struct Real {
  double v;
  Real(double x) : v(x) {}  // NOLINT(google-explicit-constructor)

  friend Real operator+(Real a, Real b) { return add(a.v, b.v); }
  friend Real operator-(Real a, Real b) { return subtract(a.v, b.v); }
  friend Real operator*(Real a, Real b) { return multiply(a.v, b.v); }
  friend Real operator/(Real a, Real b) { return divide(a.v, b.v); }
  friend Real operator-(Real a) { return -a.v; }
};

namespace math {

// The general power operation (numerics.h: power), exponents 2, 3 and 4 included.
inline Real pow(Real base, double exponent) { return power(base.v, exponent); }
inline Real sqrt(Real x) { return squareRoot(x.v); }
inline Real log(Real x) { return logarithm(x.v); }
inline Real exp(Real x) { return checked(std::exp(x.v)); }
// Finite for every finite argument: no check needed.
inline Real abs(Real x) { return x.v < 0.0 ? -x.v : x.v; }
inline Real atan(Real x) { return std::atan(x.v); }

}  // namespace math
}  // namespace orv
