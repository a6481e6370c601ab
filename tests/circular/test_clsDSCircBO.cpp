// The circular engine: mean direction, confidence half-width, failures, random samples.

#include <cmath>
#include <numbers>
#include <random>

#include "circular_fixture.h"

namespace orv::test {
namespace {

constexpr double kDegrees = 180.0 / std::numbers::pi;

TEST_F(CircularTest, MeanAngleOnTheAxesAndAcrossZero) {
  const std::pair<std::vector<double>, double> rows[] = {{{0, 0}, 0},       {{90, 90, 90}, 90}, {{180, 180}, 180},
                                                         {{270, 270}, 270}, {{350, 10}, 0},     {{181, 183}, 358}};
  for (const auto& [degrees, mean] : rows) {
    SCOPED_TRACE(::testing::PrintToString(degrees));
    const double got = engineOf(degrees).Mean();
    ASSERT_TRUE(got >= 0 && got <= 360) << got;
    EXPECT_LT(std::fmin(std::fabs(got - mean), 360 - std::fabs(got - mean)), 1e-9) << got;  // 0 or a hair under 360
  }
}

TEST_F(CircularTest, ConfidenceHalfWidth) {
  const std::pair<std::vector<double>, double> rows[] = {
      {{10, 20, 30, 40, 50, 60, 70, 80}, 19.26550155676808},    // r = 0.92 > 0.9
      {{0, 20, 40, 60, 80, 100, 120, 140}, 39.61080656959055},  // r = 0.71
      {{10, 20, 30, 40, 50, 60, 70}, NAN},                      // 7 observations
      {{0, 40, 80, 120, 160, 200, 240, 280}, NAN},              // r = 0.125: too dispersed
      {std::vector<double>(9, 45.0), NAN},                      // x = 1: division by 0
  };
  for (const auto& [degrees, halfWidth] : rows) {
    SCOPED_TRACE(::testing::PrintToString(degrees));
    const CellValue cl = engineOf(degrees).CL();
    if (std::isnan(halfWidth)) {
      EXPECT_EQ(cl, CellValue("n/a"));
    } else {
      EXPECT_NEAR(cl.isNumber() ? cl.number() : NAN, halfWidth, 1e-9) << describe(cl);
    }
  }
  clsDSCircBO withoutChiInv = engineOf(rows[0].first);
  withoutChiInv.Functions(nullptr);
  EXPECT_EQ(withoutChiInv.CL(), CellValue("n/a"));
}

TEST_F(CircularTest, TheConfidenceLimitTakesChiInvFromTheFunctionsHandedToTheEngine) {
  // Answers the 95 % chi-square quantile of one degree of freedom and remembers the question.
  struct Chi final : DistributionFunctions {
    double TInv(double, double) override { return 0; }
    double NormDist(double, double, double, bool) override { return 0; }
    double ChiInv(double p, double df) override {
      asked.push_back({p, df});
      return 3.841458820694124;
    }
    std::vector<std::pair<double, double>> asked;
  } chi;
  clsDSCircBO bo;
  bo.Functions(&chi);
  bo.Data(array({10.0, 20.0, 30.0, 40.0, 50.0, 60.0, 70.0, 80.0}));
  EXPECT_NEAR(bo.CL().number(), 19.26550155676808, 1e-9);  // as in ConfidenceHalfWidth
  EXPECT_EQ(chi.asked, (std::vector<std::pair<double, double>>{{0.05, 1}}));
}

TEST_F(CircularTest, FailuresLeaveWithTheNumberAndTheReadingProcedure) {
  using Read = double (clsDSCircBO::*)();
  const struct {
    Cells values;
    Read read;
    const char* procedure;
    std::int32_t number;
  } rows[] = {
      {{0.0, 180.0, 180.0, 360.0}, &clsDSCircBO::MeanVector, "MeanVector", err::kOverflow},  // 0/0
      {{CellValue(), 10.0}, &clsDSCircBO::Count, "Count", err::kOverflow},                   // no observations
      {{10.0, "north"}, &clsDSCircBO::RayleighP, "RayleighP", err::kTypeMismatch},
      {Cells(32768, 9.0), &clsDSCircBO::Count, "Count", err::kOverflow},  // 16-bit counter
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(::testing::Message() << row.procedure << " of " << row.values.size() << " values");
    clsDSCircBO bo;
    bo.Data(array(row.values));
    const ComponentError e = errorOf([&] { (bo.*row.read)(); });
    EXPECT_EQ(e.number(), row.number);
    EXPECT_EQ(e.source(), source(std::string("clsDSCircBO.") + row.procedure));
  }
  EXPECT_EQ(engineOf(std::vector<double>(32767, 9.0)).Count(), 32767.0);
  clsDSCircBO single;  // a one-cell range reads as a value, not an array
  single.Data(CellValue(45.0));
  EXPECT_EQ(errorOf([&] { single.Mean(); }).number(), err::kTypeMismatch);
}

TEST_F(CircularTest, EqualAnglesHaveNoSpreadDespiteRounding) {
  for (double angle : {9.0, 0.0, 123.4, 359.0}) {  // unless held at 1, the sums round r a unit above it
    SCOPED_TRACE(angle);
    clsDSCircBO bo = engineOf(std::vector<double>(8, angle));
    EXPECT_LE(bo.MeanVector(), 1.0);
    EXPECT_NEAR(bo.AngularSD(), 0.0, 1e-5);
    EXPECT_NEAR(bo.CircularSD(), 0.0, 1e-5);
  }
}

TEST_F(CircularTest, ATextbookSampleGivesItsPublishedSpread) {
  // Eight directions from a biostatistics textbook, whose worked example gives a mean of 99°,
  // r = 0.82522, an angular deviation of 33.9° and a circular standard deviation of 35.5°. The
  // full-precision figures below were computed apart from this code, with Python's math module.
  clsDSCircBO bo = engineOf({45, 55, 81, 96, 110, 117, 132, 154});
  EXPECT_NEAR(bo.MeanVector(), 0.8252177448200448, 1e-13);
  EXPECT_NEAR(bo.Mean(), 98.98775195039646, 1e-10);
  EXPECT_NEAR(bo.AngularVar(), 1147.5525943482596, 1e-8);
  EXPECT_NEAR(bo.CircularVar(), 1261.3066875228635, 1e-8);
  EXPECT_NEAR(bo.AngularSD(), 33.87554566864215, 1e-10);
  EXPECT_NEAR(bo.CircularSD(), 35.514879804426535, 1e-10);
  EXPECT_NEAR(bo.Rayleigh(), 5.4478746109270455, 1e-11);
}

TEST_F(CircularTest, RandomSamplesAgreeWithTheDefinitions) {
  for (std::uint32_t seed = 1; seed <= 40; ++seed) {
    std::mt19937 rng(seed);
    std::normal_distribution<double> scatter(0.0, 5.0 + (seed % 6) * 30.0);
    const double centre = std::uniform_real_distribution<double>(0.0, 360.0)(rng);
    const std::size_t n = 2 + seed * 7 % 200;
    std::vector<double> degrees;
    double c = 0, s = 0;
    for (std::size_t i = 0; i < n; ++i) {
      degrees.push_back(std::fmod(centre + scatter(rng) + 720.0, 360.0));
      c += std::cos(degrees.back() / kDegrees) / static_cast<double>(n);
      s += std::sin(degrees.back() / kDegrees) / static_cast<double>(n);
    }
    SCOPED_TRACE(::testing::Message() << "seed " << seed << ", n = " << n);  // all quadrants
    clsDSCircBO bo = engineOf(degrees);
    const double r = std::hypot(c, s);
    EXPECT_NEAR(bo.MeanVector(), r, 1e-12);
    EXPECT_NEAR(bo.Rayleigh(), static_cast<double>(n) * r * r, 1e-9);
    EXPECT_NEAR(bo.CircularSD(), std::sqrt(-2.0 * std::log(r)) * kDegrees, 1e-6);
    EXPECT_NEAR(bo.AngularSD(), std::sqrt(2.0 * (1.0 - r)) * kDegrees, 1e-6);
    double mean = std::fmod(std::atan2(s, c) * kDegrees + 360.0, 360.0);
    if (mean > 180.0 && mean < 270.0) mean = 540.0 - mean;  // a third-quadrant mean is reflected into the fourth
    EXPECT_NEAR(bo.Mean(), mean, 1e-8);
  }
}

}  // namespace
}  // namespace orv::test
