// clsDSBO against reference values worked out from deviations about the mean (not power sums):
// sample skewness and kurtosis, D'Agostino's skewness test and Anscombe and Glynn's kurtosis test.

#include <cmath>

#include "engine_fixture.h"

namespace orv::testing {
namespace {

using Properties = EngineTest;

TEST_F(Properties, ShapeAndItsProbabilitiesMatchReferenceValues) {
  std::vector<double> squares;
  for (int i = 1; i <= 20; ++i) squares.push_back(static_cast<double>(i) * i);
  const std::vector<double> peaked = {2, 4, 4, 4, 5, 5, 7, 9, 1, 3, 8, 6, 5, 5, 4, 6, 2, 12, 5, 4};
  const struct {
    const char* name;
    std::vector<double> x;
    double variance, skewness, kurtosis, skewnessP, kurtosisP;
  } cases[] = {
      {"squares 1..400: skewed, flat", squares, 16359, 0.65813597709358829, -0.80191278367077301, 0.18692432083125796,
       0.3326722756131133},
      {"skewed, peaked", peaked, 6.4710526315789476, 1.0464244791372066, 1.8677957540738821, 0.044768331024860497,
       0.098075903651384161},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    clsDSBO e = engineOf(columnOf(c.x));
    EXPECT_NEAR(e.Variance(), c.variance, 1e-12 * c.variance);
    EXPECT_NEAR(numberOf(e.Skewness()), c.skewness, 1e-9);
    EXPECT_NEAR(numberOf(e.Kurtosis()), c.kurtosis, 1e-9);
    EXPECT_NEAR(numberOf(e.SkewnessP()), c.skewnessP, 1e-9);
    EXPECT_NEAR(numberOf(e.KurtosisP()), c.kurtosisP, 1e-9);
  }
}

TEST_F(Properties, ConfidenceLimitsUseTextbookTValues) {
  const struct {
    std::int32_t df;
    std::int16_t cl;
    double t;  // two-tailed critical value, as printed in t tables
  } cases[] = {{1, 95, 12.706}, {4, 95, 2.776}, {9, 99, 3.250}, {9, 80, 1.383}, {120, 95, 1.980}};
  for (const auto& c : cases) {
    SCOPED_TRACE("df " + std::to_string(c.df) + ", CL " + std::to_string(c.cl));
    std::vector<double> x;
    for (std::int32_t i = 0; i <= c.df; ++i) x.push_back(std::sqrt(i + 2.0));
    clsDSBO e = engineOf(columnOf(x));
    EXPECT_NEAR((e.UCL(c.cl) - e.Mean()) / e.SE(), c.t, 5e-4);
    EXPECT_NEAR((e.Mean() - e.LCL(c.cl)) / e.SE(), c.t, 5e-4);
  }
}

}  // namespace
}  // namespace orv::testing
