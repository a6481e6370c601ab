#pragma once
// Real: a double whose arithmetic follows the platform. An infinite or undefined result raises
// (6 overflow, 11 division by zero, 5 invalid argument, through frame/numerics.h) instead of
// flowing on as inf or NaN, so that statistics can be written as their formulas.

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

}  // namespace orv
