#include "frame/small_power.h"

#include <bit>
#include <cmath>
#include <cstdint>

namespace orv {
namespace {

// hi + lo == a * b exactly, by Dekker's splitting: no fused multiply-add needed, so it stays
// inline on every x86-64. Exact while the operands stay far from overflow and underflow, which
// the range test in settle() guarantees for every product used.
struct Product {
  double hi;
  double lo;
};
struct Halves {
  double high;
  double low;
};
inline Halves split(double a) {
  const double scaled = a * 134217729.0;  // 2^27 + 1
  const double high = scaled - (scaled - a);
  return {high, a - high};
}
inline Product exactProduct(double a, double b) {
  const double hi = a * b;
  const Halves x = split(a);
  const Halves y = split(b);
  const double lo = ((x.high * y.high - hi) + x.high * y.low + x.low * y.high) + x.low * y.low;
  return {hi, lo};
}

// The platform's pow itself. The exponent goes through memory because compilers rewrite
// pow(x, 2.0) as x * x, which is correctly rounded where pow is not always.
double platformPow(double base, int n) {
  const volatile double exponent = n;
  return std::pow(base, exponent);
}

// hi + tail is the exact power up to about 2^-104 relative. Returns the nearest double when it is
// safely clear of a rounding boundary, else pow's own answer.
inline double settle(double hi, double tail, double base, int n) {
  const double rounded = hi + tail;
  const std::uint64_t bits = std::bit_cast<std::uint64_t>(rounded);
  const std::uint64_t biased = (bits >> 52) & 0x7ff;
  // Results well inside the normal range, so that every partial product above was exact; and
  // not a power of two, where the spacing differs on either side (rare: let pow judge those).
  constexpr std::uint64_t kMantissa = (std::uint64_t{1} << 52) - 1;
  if (biased < 1023 - 900 || biased > 1023 + 900 || (bits & kMantissa) == 0) {
    return platformPow(base, n);
  }
  // The spacing of doubles at `rounded`: its power of two times 2^-52.
  const double ulp = std::bit_cast<double>((biased - 52) << 52);
  const double residual = (hi - rounded) + tail;  // hi - rounded is exact: the two are neighbours
  if (std::fabs(residual) > 0.4 * ulp) return platformPow(base, n);
  return rounded;
}

}  // namespace

SmallPowers smallPowers(double x) {
  // x² = s + e exactly; x³ = s x + e x, with s x split exactly again and e x tiny;
  // x⁴ = s² + 2 s e + e².
  const Product square = exactProduct(x, x);
  const Product cube = exactProduct(square.hi, x);
  const Product fourth = exactProduct(square.hi, square.hi);
  return {settle(square.hi, square.lo, x, 2), settle(cube.hi, cube.lo + square.lo * x, x, 3),
          settle(fourth.hi, fourth.lo + 2.0 * square.hi * square.lo + square.lo * square.lo, x, 4)};
}

double smallPower(double base, int n) {
  switch (n) {
    case 2: {
      const Product square = exactProduct(base, base);
      return settle(square.hi, square.lo, base, 2);
    }
    case 3: return smallPowers(base).cube;
    case 4: return smallPowers(base).fourth;
    default: return platformPow(base, n);
  }
}

}  // namespace orv
