// Count, sums, moments, extremes and confidence limits of clsDSBO.

#include <cmath>
#include <functional>

#include "engine_fixture.h"

namespace orv::testing {
namespace {

using Moments = EngineTest;

struct MomentCase {
  const char* name;
  std::vector<CellValue> data;
  std::int32_t count;
  double sum, mean, variance, se, cv, min, max, range;
};

TEST_F(Moments, TableOfSmallSamples) {
  const double r2 = std::sqrt(2.0);
  const std::vector<MomentCase> cases = {
      {"one value", {4.0}, 1, 4, 4, 0, 0, 0, 4, 4, 0},
      {"two values: divisor 1", {3.0, 1.0}, 2, 4, 2, 2, 1, r2 / 2 * 100, 1, 3, 2},
      {"blanks between numbers", {3.0, kBlank, 1.0, kBlank, 2.0}, 3, 6, 2, 1, std::sqrt(1.0 / 3), 50, 1, 3, 2},
      {"negative mean: negative CV", {-1.0, -3.0}, 2, -4, -2, 2, 1, -r2 / 2 * 100, -3, -1, 2},
      {"constant", {5.0, 5.0, 5.0}, 3, 15, 5, 0, 0, 0, 5, 5, 0},
      {"trailing blanks only", {2.0, 6.0, kBlank, kBlank}, 2, 8, 4, 8, 2, 2 * r2 / 4 * 100, 2, 6, 4},
  };
  for (const MomentCase& c : cases) {
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
}

TEST_F(Moments, ASingleCellIsAOneRowColumn) {
  clsDSBO e;
  e.Data(CellValue(7.5));
  EXPECT_EQ(e.Count(), 1);
  EXPECT_DOUBLE_EQ(e.Mean(), 7.5);
  EXPECT_DOUBLE_EQ(e.LCL(95), 7.5);
  EXPECT_DOUBLE_EQ(e.UCL(95), 7.5);

  e.Data(CellValue());
  EXPECT_EQ(e.Count(), 0);
}

TEST_F(Moments, SecondDataReplacesEveryCachedValue) {
  clsDSBO e = engineOf(column({1.0, 2.0, 3.0, 10.0}));
  EXPECT_EQ(e.Count(), 4);
  EXPECT_DOUBLE_EQ(e.Mean(), 4.0);
  EXPECT_DOUBLE_EQ(e.Variance(), 50.0 / 3);
  const CellValue firstSkew = e.Skewness();
  ASSERT_TRUE(firstSkew.isNumber());

  e.Data(column({20.0, 10.0, 30.0}));
  EXPECT_EQ(e.Count(), 3);
  EXPECT_DOUBLE_EQ(e.Sum(), 60.0);
  EXPECT_DOUBLE_EQ(e.Mean(), 20.0);
  EXPECT_DOUBLE_EQ(e.Variance(), 100.0);
  EXPECT_DOUBLE_EQ(e.Max(), 30.0);
  const CellValue secondSkew = e.Skewness();
  ASSERT_TRUE(secondSkew.isNumber());
  EXPECT_NEAR(secondSkew.number(), 0.0, 1e-12);
}

TEST_F(Moments, NoObservations) {
  clsDSBO e = engineOf(column({kBlank, kBlank}));
  EXPECT_EQ(e.Count(), 0);
  EXPECT_DOUBLE_EQ(e.Sum(), 0.0);
  EXPECT_DOUBLE_EQ(e.Min(), 0.0);
  // Everything that reads the mean fails on 0/0, which the platform calls an overflow.
  using Read = std::function<void()>;
  const std::pair<const char*, Read> overflows[] = {
      {"Mean", [&] { e.Mean(); }}, {"Variance", [&] { e.Variance(); }}, {"SD", [&] { e.SD(); }},
      {"SE", [&] { e.SE(); }},     {"CV", [&] { e.CV(); }},             {"LCL", [&] { e.LCL(95); }},
      {"UCL", [&] { e.UCL(95); }}};
  for (const auto& [name, read] : overflows) expectError(read, err::kOverflow, source(name));
  expectError([&] { e.Max(); }, err::kSubscriptOutOfRange, source("Max"));
  expectError([&] { e.rng(); }, err::kSubscriptOutOfRange, source("rng"));
  clsDSBO none;  // no data at all
  expectError([&] { none.Count(); }, err::kSubscriptOutOfRange, source("Count"));
  expectError([&] { none.Min(); }, err::kSubscriptOutOfRange, source("Min"));
}

TEST_F(Moments, ArithmeticFaultsAreRaised) {
  clsDSBO zeroMean = engineOf(column({-1.0, 1.0}));
  expectError([&] { zeroMean.CV(); }, err::kDivisionByZero, source("CV"));
  clsDSBO zeros = engineOf(column({0.0, 0.0}));
  expectError([&] { zeros.CV(); }, err::kOverflow, source("CV"));

  clsDSBO text = engineOf(column({CellValue(1.0), CellValue("abc")}));
  expectError([&] { text.Sum(); }, err::kTypeMismatch, source("Sum"));
  expectError([&] { text.Mean(); }, err::kTypeMismatch, source("Mean"));

  // A confidence level of 100 asks TInv for p = 0, which the host refuses.
  clsDSBO e = engineOf(column({1.0, 2.0, 4.0}));
  expectError([&] { e.LCL(100); }, err::kHostFailure, source("LCL"));
  expectError([&] { e.UCL(101); }, err::kHostFailure, source("UCL"));
  HostSession::Attach(nullptr);
  expectError([&] { e.UCL(95); }, err::kObjectRequired, source("UCL"));
}

TEST_F(Moments, SixteenBitLimitOfTheSum) {
  clsDSBO fits = engineOf(repeated(32767, 2.0));
  EXPECT_EQ(fits.Count(), 32767);
  EXPECT_DOUBLE_EQ(fits.Sum(), 65534.0);
  EXPECT_DOUBLE_EQ(fits.SD(), 0.0);

  clsDSBO over = engineOf(repeated(32768, 2.0));
  EXPECT_EQ(over.Count(), 32768);
  EXPECT_DOUBLE_EQ(over.Max(), 2.0);
  expectError([&] { over.Sum(); }, err::kOverflow, source("Sum"));
  expectError([&] { over.Mean(); }, err::kOverflow, source("Mean"));
  expectError([&] { over.Variance(); }, err::kOverflow, source("Variance"));
  expectError([&] { over.SE(); }, err::kOverflow, source("SE"));
  expectError([&] { over.LCL(95); }, err::kOverflow, source("LCL"));
}

}  // namespace
}  // namespace orv::testing
