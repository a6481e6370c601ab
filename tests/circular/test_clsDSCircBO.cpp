// The circular engine: mean direction, confidence half-width, failures, a textbook sample.

#include <cmath>

#include "circular_fixture.h"

namespace orv::test {
namespace {

// The distance of two directions around the circle: 0 and a hair under 360 are close.
double apart(double a, double b) { return std::fmin(std::fabs(a - b), 360 - std::fabs(a - b)); }

// The kept rules reflect a mean in the third quadrant into the fourth; Textbook reads the whole
// circle.
TEST_F(CircularTest, MeanAngleInEveryQuadrantOnTheAxesAndAcrossZero) {
  const struct {
    std::vector<double> degrees;
    double kept, textbook;
  } rows[] = {
      {{0, 0}, 0, 0},         {{90, 90, 90}, 90, 90},     {{180, 180}, 180, 180}, {{270, 270}, 270, 270},
      {{350, 10}, 0, 0},      {{10, 20}, 15, 15},         {{300, 320}, 310, 310}, {{181, 183}, 358, 182},
      {{170, 200}, 355, 185}, {{90, 270, 200}, 340, 200}, {{260, 280}, 270, 270},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(::testing::PrintToString(row.degrees));
    const double kept = engineOf(row.degrees).Mean();
    clsDSCircBO textbook = engineOf(row.degrees);
    textbook.Textbook(true);
    const double full = textbook.Mean();
    ASSERT_TRUE(kept >= 0 && kept <= 360) << kept;
    ASSERT_TRUE(full >= 0 && full < 360) << full;
    EXPECT_LT(apart(kept, row.kept), 1e-9) << kept;
    EXPECT_LT(apart(full, row.textbook), 1e-9) << full;
  }
  // 0 and 180: the cosines cancel exactly and leave C̄ = 0, which the kept rules divide by; the
  // sines leave a rounding residue that points up.
  clsDSCircBO opposed = engineOf({0, 180});
  const ComponentError e = errorOf([&] { opposed.Mean(); });
  EXPECT_EQ(e.number(), err::kDivisionByZero);
  EXPECT_EQ(e.source(), source("clsDSCircBO.Mean"));
  opposed.Textbook(true);
  EXPECT_DOUBLE_EQ(opposed.Mean(), 90.0);
}

TEST_F(CircularTest, ConfidenceHalfWidthTakesChiInvFromTheFunctionsHandedToTheEngine) {
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
      EXPECT_NEAR(numberOf(cl), halfWidth, 1e-9) << describe(cl);
    }
  }
  // ChiInv comes from the functions handed to the engine: the 95 % quantile of one degree of freedom.
  struct Chi final : DistributionFunctions {
    double TInv(double, double) override { return 0; }
    double NormDist(double, double, double, bool) override { return 0; }
    double ChiInv(double p, double df) override {
      asked.push_back({p, df});
      return 3.841458820694124;
    }
    std::vector<std::pair<double, double>> asked;
  } chi;
  clsDSCircBO bo = engineOf(rows[0].first);
  bo.Functions(nullptr);
  EXPECT_EQ(bo.CL(), CellValue("n/a"));
  bo.Functions(&chi);
  EXPECT_NEAR(numberOf(bo.CL()), rows[0].second, 1e-9);
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

}  // namespace
}  // namespace orv::test
