// Count, sums, moments, extremes, confidence limits and shape of clsDSBO: values, "-" and faults.

#include <cmath>

#include "engine_fixture.h"

namespace orv::testing {
namespace {

using Moments = EngineTest;

TEST_F(Moments, TableOfSmallSamples) {
  const double r2 = std::sqrt(2.0);
  const struct {
    const char* name;
    std::vector<CellValue> data;
    std::int32_t count;
    double sum, mean, variance, se, cv, min, max, range;
  } cases[] = {
      {"one value", {4.0}, 1, 4, 4, 0, 0, 0, 4, 4, 0},
      {"two values: divisor 1", {3.0, 1.0}, 2, 4, 2, 2, 1, r2 / 2 * 100, 1, 3, 2},
      {"blanks between numbers", {3.0, kBlank, 1.0, kBlank, 2.0}, 3, 6, 2, 1, std::sqrt(1.0 / 3), 50, 1, 3, 2},
      {"negative mean: negative CV", {-1.0, -3.0}, 2, -4, -2, 2, 1, -r2 / 2 * 100, -3, -1, 2},
      {"trailing blanks only", {2.0, 6.0, kBlank, kBlank}, 2, 8, 4, 8, 2, 2 * r2 / 4 * 100, 2, 6, 4},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    clsDSBO e = engineOf(column(c.data));
    EXPECT_EQ(e.Count(), c.count);
    EXPECT_DOUBLE_EQ(e.Sum(), c.sum);
    EXPECT_DOUBLE_EQ(e.Mean(), c.mean);
    EXPECT_DOUBLE_EQ(e.Variance(), c.variance);
    EXPECT_DOUBLE_EQ(e.SD(), std::sqrt(c.variance));
    EXPECT_NEAR(e.SE(), c.se, 1e-12);
    EXPECT_NEAR(e.CV(), c.cv, 1e-9);
    EXPECT_DOUBLE_EQ(e.Min(), c.min);
    EXPECT_DOUBLE_EQ(e.Max(), c.max);
    EXPECT_DOUBLE_EQ(e.rng(), c.range);
  }
  clsDSBO single;  // a single cell is a one-row column
  single.Data(CellValue(7.5));
  EXPECT_DOUBLE_EQ(single.UCL(95), 7.5);
}

TEST_F(Moments, SecondDataReplacesEveryCachedValue) {
  clsDSBO e = engineOf(column({1.0, 2.0, 3.0, 10.0}));
  EXPECT_DOUBLE_EQ(e.Variance(), 50.0 / 3);
  ASSERT_TRUE(e.Skewness().isNumber());
  e.Data(column({20.0, 10.0, 30.0}));
  EXPECT_EQ(e.Count(), 3);
  EXPECT_DOUBLE_EQ(e.Mean(), 20.0);
  EXPECT_DOUBLE_EQ(e.Variance(), 100.0);
  EXPECT_DOUBLE_EQ(e.Max(), 30.0);
  EXPECT_NEAR(e.Skewness().number(), 0.0, 1e-12);
}

TEST_F(Moments, FaultsCarryTheirNumberAndProcedure) {
  clsDSBO empty = engineOf(column({kBlank, kBlank}));
  EXPECT_EQ(empty.Count(), 0);
  expectError([&] { empty.Mean(); }, err::kOverflow, source("Mean"));  // 0/0
  expectError([&] { empty.LCL(95); }, err::kOverflow, source("LCL"));
  expectError([&] { empty.Max(); }, err::kSubscriptOutOfRange, source("Max"));
  clsDSBO none;
  expectError([&] { none.Count(); }, err::kSubscriptOutOfRange, source("Count"));

  clsDSBO zeroMean = engineOf(column({-1.0, 1.0}));
  expectError([&] { zeroMean.CV(); }, err::kDivisionByZero, source("CV"));
  clsDSBO zeros = engineOf(column({0.0, 0.0}));
  expectError([&] { zeros.CV(); }, err::kOverflow, source("CV"));
  clsDSBO text = engineOf(column({CellValue(1.0), CellValue("abc")}));
  expectError([&] { text.Sum(); }, err::kTypeMismatch, source("Sum"));

  clsDSBO e = engineOf(column({1.0, 2.0, 4.0}));
  expectError([&] { e.LCL(100); }, err::kHostFailure, source("LCL"));  // TInv refuses p = 0
  e.Functions(nullptr);
  expectError([&] { e.UCL(95); }, err::kObjectRequired, source("UCL"));
}

TEST_F(Moments, LimitsAndProbabilitiesComeFromTheFunctionsHandedToTheEngine) {
  FixedFunctions fixed;  // TInv 2, a lower normal tail of 0.25
  clsDSBO e;
  e.Functions(&fixed);
  e.Data(columnOf({1.0, 2.0, 4.0, 8.0, 16.0, 32.0, 64.0, 128.0, 256.0, 512.0}));
  const double mean = e.Mean();
  const double se = e.SE();
  EXPECT_DOUBLE_EQ(e.LCL(90), mean - 2 * se);
  EXPECT_DOUBLE_EQ(e.UCL(95), mean + 2 * se);
  EXPECT_EQ(e.SkewnessP(), CellValue(0.5));
  // The two-tailed p of (100 - CL) / 100 with n - 1 degrees of freedom; the standard normal.
  EXPECT_EQ(fixed.calls, (std::vector<FixedFunctions::Call>{{"TInv", 0.1, 9}, {"TInv", 0.05, 9}, {"NormDist", 0, 1}}));
}

TEST_F(Moments, SixteenBitLimitOfTheSum) {
  clsDSBO fits = engineOf(repeated(32767, 2.0));
  EXPECT_DOUBLE_EQ(fits.Sum(), 65534.0);
  EXPECT_DOUBLE_EQ(fits.SD(), 0.0);
  clsDSBO over = engineOf(repeated(32768, 2.0));
  EXPECT_EQ(over.Count(), 32768);
  EXPECT_DOUBLE_EQ(over.Max(), 2.0);
  expectError([&] { over.Sum(); }, err::kOverflow, source("Sum"));
  expectError([&] { over.Mean(); }, err::kOverflow, source("Mean"));
  expectError([&] { over.Variance(); }, err::kOverflow, source("Variance"));
}

// 1, 4, 9, ... n²: a skewed sample of any size.
ValueArray2D squares(std::int32_t n) {
  std::vector<double> out;
  for (std::int32_t i = 1; i <= n; ++i) out.push_back(static_cast<double>(i) * i);
  return columnOf(out);
}

TEST_F(Moments, WhichShapeStatisticsExistForWhichSampleSize) {
  const struct {
    std::int32_t n;
    bool skewness, skewnessP, kurtosis, kurtosisP;
  } cases[] = {
      {2, false, false, false, false},     {3, true, false, false, false},
      {4, true, false, true, false},       {8, true, false, true, false},
      {9, true, true, true, false},        {19, true, true, true, false},
      {20, true, true, true, true},        {216, true, true, true, true},  // (n-1)n(n-2)(n-3) fits 32 bits
      {217, true, true, false, false},     {32767, true, true, false, false},
      {32768, false, false, false, false},  // the power sums count in 16 bits
  };
  for (const auto& c : cases) {
    SCOPED_TRACE("n = " + std::to_string(c.n));
    clsDSBO e = engineOf(squares(c.n));
    const bool expected[] = {c.skewness, c.skewnessP, c.kurtosis, c.kurtosisP};
    const CellValue got[] = {e.Skewness(), e.SkewnessP(), e.Kurtosis(), e.KurtosisP()};
    for (int i = 0; i < 4; ++i) EXPECT_TRUE(expected[i] ? got[i].isNumber() : isDash(got[i])) << i;
  }
}

TEST_F(Moments, ShapeIsDashForConstantOrTextDataAndAfterAFailure) {
  clsDSBO constant = engineOf(repeated(25, 4.0));
  clsDSBO zeros = engineOf(repeated(5, 0.0));
  clsDSBO text = engineOf(column({CellValue(1.0), CellValue(2.0), CellValue(4.0), CellValue("x")}));
  for (int ask = 0; ask < 2; ++ask) {  // asked again: still "-"
    for (clsDSBO* e : {&constant, &zeros, &text}) {
      EXPECT_TRUE(isDash(e->Skewness()));
      EXPECT_TRUE(isDash(e->Kurtosis()));
    }
    EXPECT_TRUE(isDash(constant.SkewnessP()));
    EXPECT_TRUE(isDash(constant.KurtosisP()));
  }
  EXPECT_TRUE(isDash(clsDSBO().SkewnessP()));  // no data at all

  clsDSBO e = engineOf(squares(30));
  e.Functions(nullptr);  // NormDist unavailable: "-", and tried again later
  EXPECT_TRUE(isDash(e.SkewnessP()));
  EXPECT_TRUE(isDash(e.KurtosisP()));
  e.Functions(&functions_);
  EXPECT_TRUE(e.SkewnessP().isNumber());
  EXPECT_TRUE(e.KurtosisP().isNumber());
}

}  // namespace
}  // namespace orv::testing
