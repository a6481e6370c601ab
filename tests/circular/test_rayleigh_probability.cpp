// The probability of Rayleigh's Z: the digit-by-digit search against the closed form it
// inverts, and its stop where the closed form cannot reach Z.

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
  // With n large every correction term vanishes and P = exp(-Z).
  for (double z : {0.0, 1e-9, 0.5, 2.9957, 10.0}) {
    EXPECT_NEAR(RayleighProbability(z, 100000000), std::exp(-z), std::exp(-z) * 1e-5) << z;
  }
}

TEST(RayleighProbability, ZBeyondTheReachOfTheSeriesGivesZero) {
  // From n = 6 on Zc has a maximum below n (5.99019 at n = 6): Z = n is never reached. Just
  // under the maximum Zc exceeds Z only for P in a narrow band (3.3e-5 to 4.1e-5 for Z = 5.99),
  // which the decimal steps 4e-5 and 3e-5 jump over.
  const std::pair<std::int32_t, double> rows[] = {{6, 6.0}, {6, 5.99}, {15, 13.86}, {15, 15.0},
                                                  {100, 90.0}, {32767, 32767.0}};
  for (const auto& [n, z] : rows) EXPECT_EQ(RayleighProbability(z, n), 0.0) << n << ", " << z;
  EXPECT_NEAR(RayleighCriticalZ(RayleighProbability(5.98, 6), 6), 5.98, 1e-7);
}

TEST_F(CircularTest, EngineProbabilityOfZ) {
  EXPECT_GT(engineOf({0, 120, 240}).RayleighP(), 1.0 - 1e-6);          // Z near 0
  EXPECT_GT(engineOf(std::vector<double>(5, 40.0)).RayleighP(), 0.0);  // Z = 5 still reached
  EXPECT_EQ(engineOf(std::vector<double>(6, 40.0)).RayleighP(), 0.0);  // Z = 6 is not
  clsDSCircBO bo = engineOf({10, 20, 30, 190, 200, 15, 25});
  EXPECT_NEAR(RayleighCriticalZ(bo.RayleighP(), 7), bo.Rayleigh(), 1e-7);
}

}  // namespace
}  // namespace orv::test
