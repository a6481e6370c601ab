#include "circular/rayleigh_probability.h"

#include <cmath>

#include "frame/checked_real.h"

namespace orv {
namespace {

constexpr double kTolerance = 0.0000001;

}  // namespace

double RayleighCriticalZ(double p, std::int32_t n) {
  const Real k = -math::log(p);
  const Real nn = static_cast<double>(n);
  const Real k2 = k * k;
  const Real k3 = k2 * k;
  const Real k4 = k3 * k;
  // Each term divided step by step, as the formula is written: "/ 4 / n" rather than "/ (4n)".
  const Real t1 = (Real(2.0) * k - k2) / 4.0 / nn;
  const Real t2 = (Real(12.0) * k - Real(3.0) * k2 - k3) / 72.0 / (nn * nn);
  const Real t3 = (Real(42.0) * k2 - Real(12.0) * k - Real(8.0) * k3 - k4) / 288.0 / (nn * nn * nn);
  return (k + t1 + t2 + t3).v;
}

double RayleighProbability(double z, std::int32_t n) {
  double p = 0.1;
  double step = 1.0;
  double zc = 0.0;
  bool reached = false;
  for (;;) {
    // Outer pass: step back over the last step taken and search again ten times finer.
    const double back = p + step;
    const double finer = step / 10.0;
    // Once the finer step cannot move P the walk below would stand still for ever: this is
    // where P has run out of digits, either next to 0 (Zc never reached Z) or at the precision
    // of a double (Zc reached Z, but not within the tolerance).
    if (finer == 0.0 || back + finer == back) return reached ? p : 0.0;
    p = back;
    step = finer;
    // Inner pass: walk P down until Zc reaches Z or the next step would leave P > 0.
    for (;;) {
      p -= step;
      zc = RayleighCriticalZ(p, n);
      if (zc >= z) reached = true;
      if (p - step <= 0.0 || zc >= z) break;
    }
    if (std::fabs(z - zc) <= kTolerance) return p;
  }
}

}  // namespace orv
