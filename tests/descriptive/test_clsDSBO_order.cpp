// Median, percentile limits and k-th smallest/largest of clsDSBO.

#include "engine_fixture.h"

namespace orv::testing {
namespace {

using OrderStatistics = EngineTest;

TEST_F(OrderStatistics, Median) {
  const struct {
    std::vector<CellValue> data;
    double median;
  } cases[] = {
      {{1.0, 2.0, 3.0, 4.0}, 2.5},
      {{1.0, 2.0, 3.0}, 2.0},
      {{3.0, kBlank, 1.0, 2.0}, 2.0},
      {{9.0}, 9.0},
      {{-4.0, 10.0}, 3.0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.median);
    EXPECT_DOUBLE_EQ(engineOf(column(c.data)).Median(), c.median);
  }
  clsDSBO none = engineOf(column({kBlank}));
  expectError([&] { none.Median(); }, err::kSubscriptOutOfRange, source("Median"));
}

TEST_F(OrderStatistics, PercentileLimits) {
  const std::vector<double> nine = {90, 10, 50, 20, 80, 30, 70, 40, 60};
  const std::vector<double> four = {40, 10, 30, 20};
  const struct {
    const char* name;
    std::vector<double> data;
    std::uint8_t p;
    double lower, upper;
  } cases[] = {
      // pos = (n + 1) p / 100 = 2.5 and 7.5: interpolated halfway.
      {"quartiles of nine", nine, 25, 25, 75},
      {"P above 50 is mirrored", nine, 75, 25, 75},
      // n = 9, P = 10: pos 1 and 9, whole; the upper one is the last row, read as it stands.
      {"deciles of nine", nine, 10, 10, 90},
      // n = 4, upper pos 3.75: k + 1 = n, so x(3) without interpolation; lower pos 1.25 is.
      {"next row is the last one", four, 25, 12.5, 30},
      {"median as percentile", four, 50, 25, 25},
      // n = 3, P = 50: pos 2, k + 1 = n.
      {"three values, P 50", {1, 2, 30}, 50, 2, 2},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    clsDSBO e = engineOf(columnOf(c.data));
    EXPECT_DOUBLE_EQ(e.LP(c.p), c.lower);
    EXPECT_DOUBLE_EQ(e.UP(c.p), c.upper);
  }
}

TEST_F(OrderStatistics, PercentileFaults) {
  clsDSBO e = engineOf(repeated(18, 1.0));
  // P = 5 with n = 18: pos 0.95, row 0.
  expectError([&] { e.LP(5); }, err::kSubscriptOutOfRange, source("LP"));
  expectError([&] { e.LP(0); }, err::kDivisionByZero, source("LP"));
  expectError([&] { e.LP(100); }, err::kDivisionByZero, source("LP"));
  expectError([&] { e.LP(101); }, err::kOverflow, source("LP"));
  // UP turns 0 into 100: position n + 1, one row past the column.
  expectError([&] { e.UP(0); }, err::kSubscriptOutOfRange, source("UP"));
}

TEST_F(OrderStatistics, KthSmallestAndLargest) {
  clsDSBO e = engineOf(column({40.0, 10.0, kBlank, 30.0, 20.0}));
  const struct {
    std::int32_t k;
    double smallest, largest;
  } cases[] = {
      {1, 10, 40}, {2, 20, 30}, {4, 40, 10},
      {5, 40, 10},  // beyond n: the other end
      {1000, 40, 10},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.k);
    EXPECT_DOUBLE_EQ(e.Smallest(c.k), c.smallest);
    EXPECT_DOUBLE_EQ(e.Largest(c.k), c.largest);
  }
  expectError([&] { e.Smallest(0); }, err::kSubscriptOutOfRange, source("Smallest"));
  expectError([&] { e.Smallest(-3); }, err::kSubscriptOutOfRange, source("Smallest"));
  // Largest(0) reads row n + 1: the column's trailing blank, which reads as 0.
  EXPECT_DOUBLE_EQ(e.Largest(0), 0.0);

  clsDSBO full = engineOf(column({1.0, 2.0}));
  expectError([&] { full.Largest(0); }, err::kSubscriptOutOfRange, source("Largest"));
}

}  // namespace
}  // namespace orv::testing
