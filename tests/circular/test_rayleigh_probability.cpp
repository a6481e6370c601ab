// The probability of Rayleigh's Z: the digit-by-digit search against the closed form it inverts.

#include "circular/rayleigh_probability.h"

#include <cmath>

#include "circular_fixture.h"

namespace orv::test {
namespace {

TEST(RayleighProbability, EverySearchEndsAndInvertsTheClosedForm) {
  for (std::int32_t n : {1, 2, 5, 6, 7, 12, 50, 1000}) {
    for (double z = 0.0; z <= std::min(n + 1.0, 60.0); z += 0.37) {
      const double p = RayleighProbability(z, n);
      ASSERT_TRUE(p >= 0.0 && p <= 1.0) << n << ", " << z;
      if (p > 0.0) {
        EXPECT_NEAR(RayleighCriticalZ(p, n), z, 1e-7) << n << ", " << z;
      }
    }
  }
  for (double z : {0.0, 0.5, 2.9957, 10.0}) {  // with n large every correction vanishes: P = exp(-Z)
    EXPECT_NEAR(RayleighProbability(z, 100000000), std::exp(-z), std::exp(-z) * 1e-5) << z;
  }
}

// From n = 6 on Zc peaks below n (5.99019 at n = 6), and just under the peak the decimal steps skip its band.
TEST_F(CircularTest, ZBeyondTheReachOfTheSeriesGivesZero) {
  const std::pair<std::int32_t, double> rows[] = {{6, 6.0}, {6, 5.99}, {15, 13.86}, {100, 90.0}, {32767, 32767.0}};
  for (const auto& [n, z] : rows) EXPECT_EQ(RayleighProbability(z, n), 0.0) << n << ", " << z;
  EXPECT_NEAR(RayleighCriticalZ(RayleighProbability(5.98, 6), 6), 5.98, 1e-7);
  EXPECT_GT(engineOf(std::vector<double>(5, 40.0)).RayleighP(), 0.0);  // five equal angles: Z = 5, reached
  EXPECT_EQ(engineOf(std::vector<double>(6, 40.0)).RayleighP(), 0.0);  // six: Z = 6 is not
}

}  // namespace
}  // namespace orv::test
