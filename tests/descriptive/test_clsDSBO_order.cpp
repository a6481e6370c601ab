// Median, percentile limits and k-th smallest/largest of clsDSBO.

#include "engine_fixture.h"

namespace orv::testing {
namespace {

using OrderStatistics = EngineTest;

TEST_F(OrderStatistics, Median) {
  EXPECT_DOUBLE_EQ(engineOf(column({1.0, 2.0, 3.0, 4.0})).Median(), 2.5);
  EXPECT_DOUBLE_EQ(engineOf(column({3.0, kBlank, 1.0, 2.0})).Median(), 2.0);
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
      {"pos (n + 1) p / 100 = 2.5 and 7.5: interpolated", nine, 25, 25, 75},
      {"P above 50 is mirrored", nine, 75, 25, 75},
      {"whole positions 1 and 9, the last row read as it stands", nine, 10, 10, 90},
      {"upper pos 3.75 with k + 1 = n: x(3) uninterpolated", four, 25, 12.5, 30},
      {"pos 2 with k + 1 = n", {1, 2, 30}, 50, 2, 2},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    clsDSBO e = engineOf(columnOf(c.data));
    EXPECT_DOUBLE_EQ(e.LP(c.p), c.lower);
    EXPECT_DOUBLE_EQ(e.UP(c.p), c.upper);
  }
  clsDSBO e = engineOf(repeated(18, 1.0));
  expectError([&] { e.LP(5); }, err::kSubscriptOutOfRange, source("LP"));  // pos 0.95: row 0
  expectError([&] { e.LP(0); }, err::kDivisionByZero, source("LP"));
  expectError([&] { e.LP(100); }, err::kDivisionByZero, source("LP"));
  expectError([&] { e.LP(101); }, err::kOverflow, source("LP"));
  expectError([&] { e.UP(0); }, err::kSubscriptOutOfRange, source("UP"));  // UP(0) is P 100: row n + 1
}

TEST_F(OrderStatistics, KthSmallestAndLargest) {
  clsDSBO e = engineOf(column({40.0, 10.0, kBlank, 30.0, 20.0}));
  const struct {
    std::int32_t k;
    double smallest, largest;
  } cases[] = {{1, 10, 40}, {2, 20, 30}, {4, 40, 10}, {5, 40, 10}};  // k beyond n: the other end
  for (const auto& c : cases) {
    SCOPED_TRACE(c.k);
    EXPECT_DOUBLE_EQ(e.Smallest(c.k), c.smallest);
    EXPECT_DOUBLE_EQ(e.Largest(c.k), c.largest);
  }
  expectError([&] { e.Smallest(0); }, err::kSubscriptOutOfRange, source("Smallest"));
  EXPECT_DOUBLE_EQ(e.Largest(0), 0.0);  // row n + 1: the column's trailing blank
  clsDSBO full = engineOf(column({1.0, 2.0}));
  expectError([&] { full.Largest(0); }, err::kSubscriptOutOfRange, source("Largest"));
}

}  // namespace
}  // namespace orv::testing
