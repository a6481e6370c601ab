// Skewness, kurtosis and their probabilities: when they can be given, and when they are "-".

#include "engine_fixture.h"

namespace orv::testing {
namespace {

using Shape = EngineTest;

TEST_F(Shape, WhichStatisticsExistForWhichSampleSize) {
  const struct {
    std::int32_t n;
    bool skewness, skewnessP, kurtosis, kurtosisP;
  } cases[] = {
      {1, false, false, false, false},
      {2, false, false, false, false},
      {3, true, false, false, false},
      {4, true, false, true, false},
      {8, true, false, true, false},
      {9, true, true, true, false},
      {19, true, true, true, false},
      {20, true, true, true, true},
      // (n-1)n(n-2)(n-3) still fits 32 bits at 216, not at 217.
      {216, true, true, true, true},
      {217, true, true, false, false},
      {32767, true, true, false, false},
      // The power sums count in 16 bits, like the sum.
      {32768, false, false, false, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE("n = " + std::to_string(c.n));
    clsDSBO e = engineOf(columnOf(squares(c.n)));
    EXPECT_EQ(e.Skewness().isNumber(), c.skewness);
    EXPECT_EQ(e.SkewnessP().isNumber(), c.skewnessP);
    EXPECT_EQ(e.Kurtosis().isNumber(), c.kurtosis);
    EXPECT_EQ(e.KurtosisP().isNumber(), c.kurtosisP);
    for (const CellValue& v : {e.Skewness(), e.SkewnessP(), e.Kurtosis(), e.KurtosisP()}) {
      EXPECT_TRUE(v.isNumber() || isDash(v));
    }
  }
}

TEST_F(Shape, KnownValues) {
  clsDSBO e = engineOf(column({2.0, 4.0, 4.0, 4.0, 5.0, 5.0, 7.0, 9.0}));
  EXPECT_NEAR(e.Skewness().number(), 0.8184875533567997, 1e-12);
  EXPECT_NEAR(e.Kurtosis().number(), 0.940625, 1e-12);

  clsDSBO symmetric = engineOf(column({5.0, 3.0, 1.0, 4.0, 2.0}));
  EXPECT_NEAR(symmetric.Skewness().number(), 0.0, 1e-12);
}

TEST_F(Shape, ConstantSampleHasNoShape) {
  clsDSBO e = engineOf(repeated(25, 4.0));
  for (int ask = 0; ask < 2; ++ask) {
    SCOPED_TRACE(ask);
    EXPECT_TRUE(isDash(e.Skewness()));
    EXPECT_TRUE(isDash(e.SkewnessP()));
    EXPECT_TRUE(isDash(e.Kurtosis()));
    EXPECT_TRUE(isDash(e.KurtosisP()));
  }
  // Zero data: the sum of squares is truly 0 and is gathered again on every request.
  clsDSBO zeros = engineOf(repeated(5, 0.0));
  EXPECT_TRUE(isDash(zeros.Skewness()));
  EXPECT_TRUE(isDash(zeros.Kurtosis()));
}

TEST_F(Shape, ADashFromAFailureIsTriedAgain) {
  clsDSBO e = engineOf(columnOf(squares(30)));
  HostSession::Attach(nullptr);  // NormDist unavailable
  EXPECT_TRUE(isDash(e.SkewnessP()));
  EXPECT_TRUE(isDash(e.KurtosisP()));
  EXPECT_TRUE(e.Skewness().isNumber());

  HostSession::Attach(&host_);
  EXPECT_TRUE(e.SkewnessP().isNumber());
  EXPECT_TRUE(e.KurtosisP().isNumber());
}

TEST_F(Shape, TextAmongTheDataGivesDashNotAnError) {
  clsDSBO e = engineOf(column({CellValue(1.0), CellValue(2.0), CellValue(4.0), CellValue("x")}));
  EXPECT_TRUE(isDash(e.Skewness()));
  EXPECT_TRUE(isDash(e.Kurtosis()));
  EXPECT_TRUE(isDash(clsDSBO().SkewnessP()));  // no data at all
}

}  // namespace
}  // namespace orv::testing
