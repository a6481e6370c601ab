// clsDSBO on random samples (fixed seeds, shown on failure) against the textbook definitions,
// evaluated here from deviations about the mean rather than from raw power sums.

#include <cmath>
#include <random>

#include <boost/math/distributions/normal.hpp>

#include "engine_fixture.h"

namespace orv::testing {
namespace {

using Properties = EngineTest;

struct Sample {
  std::string name;
  std::vector<double> x;
};

std::vector<Sample> samples() {
  std::vector<Sample> out;
  for (const unsigned seed : {101u, 202u, 303u}) {
    for (const int n : {9, 20, 57, 216}) {
      std::mt19937_64 gen(seed);
      std::normal_distribution<double> normal(100.0, 15.0);
      std::exponential_distribution<double> exponential(0.5);
      std::uniform_real_distribution<double> uniform(-3.0, 7.0);
      const std::string tag = " seed " + std::to_string(seed) + " n " + std::to_string(n);
      Sample a{"normal" + tag, {}}, b{"exponential" + tag, {}}, c{"uniform" + tag, {}};
      for (int i = 0; i < n; ++i) {
        a.x.push_back(normal(gen));
        b.x.push_back(exponential(gen));
        c.x.push_back(uniform(gen));
      }
      out.insert(out.end(), {a, b, c});
    }
  }
  return out;
}

// Central moment sums Σ(x - mean)^k for k = 2, 3, 4.
struct Deviations {
  double n, m2, m3, m4;
  explicit Deviations(const std::vector<double>& x) : n(static_cast<double>(x.size())), m2(0), m3(0), m4(0) {
    double mean = 0;
    for (double v : x) mean += v;
    mean /= n;
    for (double v : x) {
      const double d = v - mean;
      m2 += d * d;
      m3 += d * d * d;
      m4 += d * d * d * d;
    }
  }
};

double twoTailed(double z) {
  return 2 * boost::math::cdf(boost::math::complement(boost::math::normal(), std::fabs(z)));
}

// D'Agostino's skewness test on the moment coefficient g1 = m3 / m2^1.5 (population moments).
double dagostino(const Deviations& d) {
  const double n = d.n;
  const double g1 = (d.m3 / n) / std::pow(d.m2 / n, 1.5);
  const double y = g1 * std::sqrt((n + 1) * (n + 3) / (6 * (n - 2)));
  const double beta2 = 3 * (n * n + 27 * n - 70) * (n + 1) * (n + 3) / ((n - 2) * (n + 5) * (n + 7) * (n + 9));
  const double w = std::sqrt(std::sqrt(2 * (beta2 - 1)) - 1);
  const double delta = 1 / std::sqrt(std::log(w));
  const double alpha = std::sqrt(2 / (w * w - 1));
  return twoTailed(delta * std::asinh(y / alpha));
}

// Anscombe and Glynn's test on b2 = m4 / m2² and its distance from its expectation, taken by size.
double anscombeGlynn(const Deviations& d) {
  const double n = d.n;
  const double b2 = (d.m4 / n) / std::pow(d.m2 / n, 2);
  const double expected = 3 * (n - 1) / (n + 1);
  const double variance = 24 * n * (n - 2) * (n - 3) / ((n + 1) * (n + 1) * (n + 3) * (n + 5));
  const double x = std::fabs(b2 - expected) / std::sqrt(variance);
  const double rootBeta1 = 6 * (n * n - 5 * n + 2) / ((n + 7) * (n + 9)) *
                           std::sqrt(6 * (n + 3) * (n + 5) / (n * (n - 2) * (n - 3)));
  const double a = 6 + 8 / rootBeta1 * (2 / rootBeta1 + std::sqrt(1 + 4 / (rootBeta1 * rootBeta1)));
  const double q = (1 - 2 / a) / (1 + x * std::sqrt(2 / (a - 4)));
  return twoTailed((1 - 2 / (9 * a) - std::cbrt(q)) / std::sqrt(2 / (9 * a)));
}

TEST_F(Properties, ShapeFromPowerSumsMatchesDeviationForms) {
  for (const Sample& s : samples()) {
    SCOPED_TRACE(s.name);
    const Deviations d(s.x);
    const double n = d.n;
    const double var = d.m2 / (n - 1);
    const double skew = n * d.m3 / ((n - 1) * (n - 2) * std::pow(var, 1.5));
    const double kurt = (n * (n + 1) * d.m4 - 3 * (n - 1) * d.m2 * d.m2) /
                        ((n - 1) * (n - 2) * (n - 3) * var * var);
    clsDSBO e = engineOf(columnOf(s.x));
    EXPECT_NEAR(e.Variance(), var, 1e-10 * var);
    EXPECT_NEAR(e.Skewness().number(), skew, 1e-7 * (1 + std::fabs(skew)));
    EXPECT_NEAR(e.Kurtosis().number(), kurt, 1e-7 * (1 + std::fabs(kurt)));
  }
}

TEST_F(Properties, ProbabilitiesMatchTheTextbookTests) {
  for (const Sample& s : samples()) {
    SCOPED_TRACE(s.name);
    const Deviations d(s.x);
    clsDSBO e = engineOf(columnOf(s.x));
    EXPECT_NEAR(e.SkewnessP().number(), dagostino(d), 1e-9);
    if (d.n >= 20) {
      EXPECT_NEAR(e.KurtosisP().number(), anscombeGlynn(d), 1e-9);
    }
  }
}

TEST_F(Properties, ConfidenceLimitsUseTextbookTValues) {
  const struct {
    std::int32_t df;
    std::int16_t cl;
    double t;  // two-tailed critical value, as printed in t tables
  } cases[] = {
      {1, 95, 12.706}, {2, 95, 4.303}, {4, 95, 2.776},   {9, 99, 3.250},
      {9, 80, 1.383},  {29, 90, 1.699}, {120, 95, 1.980},
  };
  std::mt19937_64 gen(404);
  std::normal_distribution<double> normal(-20.0, 4.0);
  for (const auto& c : cases) {
    SCOPED_TRACE("seed 404, df " + std::to_string(c.df) + ", CL " + std::to_string(c.cl));
    std::vector<double> x;
    for (std::int32_t i = 0; i <= c.df; ++i) x.push_back(normal(gen));
    clsDSBO e = engineOf(columnOf(x));
    const double se = std::sqrt(Deviations(x).m2 / c.df / (c.df + 1));
    EXPECT_NEAR((e.UCL(c.cl) - e.Mean()) / se, c.t, 5e-4);
    EXPECT_NEAR((e.Mean() - e.LCL(c.cl)) / se, c.t, 5e-4);
  }
}

}  // namespace
}  // namespace orv::testing
