// The circular engine: mean direction, confidence half-width, failures, random samples.

#include <cmath>
#include <numbers>
#include <random>

#include "circular_fixture.h"

namespace orv::test {
namespace {

constexpr double kDegrees = 180.0 / std::numbers::pi;

TEST_F(CircularTest, MeanAngleByQuadrant) {
  const std::pair<std::vector<double>, double> rows[] = {
      {{190, 200, 210}, 340},  // a third-quadrant mean is reported reflected into the fourth
      {{181, 183}, 358}, {{350, 20, 50}, 20}, {{0, 0}, 0},     {{90, 90, 90}, 90},
      {{180, 180}, 180}, {{270, 270}, 270},   {{350, 10}, 0},  // the last: 0 or a hair under 360
  };
  for (const auto& [degrees, mean] : rows) {
    SCOPED_TRACE(::testing::PrintToString(degrees));
    const double got = engineOf(degrees).Mean();
    ASSERT_TRUE(got >= 0 && got <= 360) << got;
    EXPECT_LT(std::fmin(std::fabs(got - mean), 360 - std::fabs(got - mean)), 1e-9) << got;
  }
  clsDSCircBO bo;  // observations end at the first empty cell; a numeric text is a number
  bo.Data(array({10.0, "20", 30.0, CellValue(), 300.0}));
  EXPECT_EQ(bo.Count(), 3.0);
  EXPECT_NEAR(bo.Mean(), 20.0, 1e-9);
  EXPECT_EQ(bo.PlotData().rows(), 3);
}

TEST_F(CircularTest, ConfidenceHalfWidth) {
  const std::pair<std::vector<double>, double> rows[] = {
      {{10, 20, 30, 40, 50, 60, 70, 80}, 19.26550155676808},    // r = 0.92 > 0.9
      {{0, 20, 40, 60, 80, 100, 120, 140}, 39.61080656959055},  // r = 0.71
      {{10, 20, 30, 40, 50, 60, 70}, NAN},                      // 7 observations
      {{0, 40, 80, 120, 160, 200, 240, 280}, NAN},              // r = 0.125: too dispersed
      {{0, 180, 180, 360, 0, 180, 180, 360}, NAN},              // r = 0 fails the set-up
      {std::vector<double>(9, 45.0), NAN},                      // x = 1: division by 0
  };
  for (const auto& [degrees, halfWidth] : rows) {
    SCOPED_TRACE(::testing::PrintToString(degrees));
    const CellValue cl = engineOf(degrees).CL();
    if (std::isnan(halfWidth)) {
      EXPECT_TRUE(isNotAvailable(cl)) << describe(cl);
    } else {
      ASSERT_TRUE(cl.isNumber()) << describe(cl);
      EXPECT_NEAR(cl.number(), halfWidth, 1e-9);
    }
  }
  clsDSCircBO text;
  text.Data(array({10.0, 20.0, "NE", 30.0, 40.0, 50.0, 60.0, 70.0}));
  EXPECT_TRUE(isNotAvailable(text.CL()));
  HostSession::Attach(nullptr);  // no ChiInv
  EXPECT_TRUE(isNotAvailable(engineOf(rows[0].first).CL()));
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
      {{0.0, 180.0}, &clsDSCircBO::Mean, "Mean", err::kDivisionByZero},  // C̄ = 0, r tiny
      {{CellValue(), 10.0}, &clsDSCircBO::Count, "Count", err::kOverflow},  // no observations
      {{10.0, "north"}, &clsDSCircBO::RayleighP, "RayleighP", err::kTypeMismatch},
      {{1e308}, &clsDSCircBO::Rayleigh, "Rayleigh", err::kOverflow},
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
  clsDSCircBO single;  // a one-cell range reads as a value, not an array
  single.Data(CellValue(45.0));
  EXPECT_EQ(errorOf([&] { single.Mean(); }).number(), err::kTypeMismatch);
  EXPECT_EQ(engineOf(std::vector<double>(32767, 9.0)).Count(), 32767.0);
}

TEST_F(CircularTest, EqualAnglesHaveNoSpreadDespiteRounding) {
  // Eight equal angles: the sums round r one unit above 1 unless it is held at 1.
  for (double angle : {9.0, 0.0, 123.4, 359.0}) {
    SCOPED_TRACE(angle);
    clsDSCircBO bo = engineOf(std::vector<double>(8, angle));
    EXPECT_LE(bo.MeanVector(), 1.0);
    EXPECT_NEAR(bo.MeanVector(), 1.0, 1e-15);
    EXPECT_NEAR(bo.AngularSD(), 0.0, 1e-5);
    EXPECT_NEAR(bo.CircularSD(), 0.0, 1e-5);
    EXPECT_NEAR(bo.Rayleigh(), 8.0, 1e-13);
  }
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
    if (mean > 180.0 && mean < 270.0) mean = 540.0 - mean;  // the third-quadrant reflection
    EXPECT_NEAR(bo.Mean(), mean, 1e-8);
    const double last = degrees.back() * std::numbers::pi / 180.0;
    EXPECT_EQ(bo.PlotData()(n, 1), CellValue(std::sin(last)));
    EXPECT_EQ(bo.PlotData()(n, 2), CellValue(std::cos(last)));
  }
}

}  // namespace
}  // namespace orv::test
