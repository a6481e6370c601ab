#include <gtest/gtest.h>

#include <math.h>
#include <bit>
#include <cmath>
#include <cstdint>
#include <random>

#include "frame/small_power.h"

namespace orv {
namespace {

// The platform's pow, called through a pointer the compiler cannot see through: it would
// otherwise turn pow(x, 2) into x * x, which is not always what pow returns.
double (*volatile platformPow)(double, double) = ::pow;

// The fast path must agree with pow bit for bit, or sums of powers would drift in the last place.
void expectSameAsPow(double x) {
  for (int n : {2, 3, 4}) {
    const double want = platformPow(x, n);
    const double got = smallPower(x, n);
    if (std::isnan(want)) {
      ASSERT_TRUE(std::isnan(got)) << "x = " << x << ", n = " << n;
    } else {
      ASSERT_EQ(std::bit_cast<std::uint64_t>(got), std::bit_cast<std::uint64_t>(want))
          << "x = " << std::hexfloat << x << ", n = " << n;
    }
  }
}

TEST(SmallPower, AgreesWithPowOverEveryMagnitude) {
  // 0x1.0075d71214c06p+9 squared lies 0.498 units above a double; pow rounds it up.
  expectSameAsPow(0x1.0075d71214c06p+9);
  std::mt19937_64 random(20261123);
  std::uniform_real_distribution<double> mantissa(1.0, 2.0);
  std::uniform_int_distribution<int> exponent(-340, 340);
  for (int i = 0; i < 300000; ++i) {
    const double x = std::ldexp(mantissa(random), exponent(random));
    expectSameAsPow(x);
    expectSameAsPow(-x);
  }
}

TEST(SmallPower, AgreesWithPowOnDataLikeValues) {
  // Few-digit decimals and integers: their powers sit exactly on or near rounding boundaries
  // far more often than random doubles do.
  std::mt19937_64 random(7);
  std::uniform_int_distribution<std::int64_t> digits(-99999999, 99999999);
  for (int i = 0; i < 200000; ++i) {
    const auto d = static_cast<double>(digits(random));
    expectSameAsPow(d);
    expectSameAsPow(d / 100.0);
    expectSameAsPow(d / 1000.0);
  }
  for (const double x : {0.0, -0.0, 1.0, 0.5, 134217729.0, 94906267.0, 0x1p-300, 0x1.fffffffffffffp+255, 0x1p-1074,
                         1e-200, 1e200, 1e300, std::nan(""), HUGE_VAL, -HUGE_VAL}) {
    expectSameAsPow(x);
  }
}

}  // namespace
}  // namespace orv
