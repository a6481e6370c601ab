// The radix sort of doubles gives exactly what std::stable_sort gives, signed zeros included.

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "support/double_sort.h"

namespace orv {
namespace {

// Equal as bit patterns, so that -0 and 0 (and their order) count.
void expectSameAsStableSort(std::vector<double> values) {
  std::vector<double> expected = values;
  std::stable_sort(expected.begin(), expected.end());
  stableSortDoubles(values);
  ASSERT_EQ(values.size(), expected.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    ASSERT_EQ(std::bit_cast<std::uint64_t>(values[i]), std::bit_cast<std::uint64_t>(expected[i])) << "at " << i;
  }
}

TEST(DoubleSort, MatchesTheStableComparisonSort) {
  std::mt19937_64 random(42);
  std::normal_distribution<double> spread(0, 1e3);
  std::uniform_int_distribution<int> few(-5, 5);
  const double inf = std::numeric_limits<double>::infinity();
  const double tiny = std::numeric_limits<double>::denorm_min();

  std::vector<double> wide, repeated, zeros, extremes;
  for (int i = 0; i < 5000; ++i) {
    wide.push_back(spread(random));
    repeated.push_back(few(random) * 0.5);
    zeros.push_back(i % 3 == 0 ? -0.0 : (i % 3 == 1 ? 0.0 : few(random)));
  }
  for (int i = 0; i < 600; ++i) {
    const double pick[] = {inf, -inf, tiny, -tiny, std::numeric_limits<double>::max(),
                           std::numeric_limits<double>::lowest(), 1.0, -1.0, 0.0, -0.0};
    extremes.push_back(pick[i % 10]);
  }
  std::shuffle(extremes.begin(), extremes.end(), random);
  for (const auto& values : {wide, repeated, zeros, extremes}) expectSameAsStableSort(values);
  expectSameAsStableSort({3.0, -0.0, 1.0, 0.0});  // short: the comparison sort itself
  expectSameAsStableSort(std::vector<double>(1000, 7.25));
  expectSameAsStableSort({});
}

TEST(DoubleSort, ANaNLeavesTheOrderToTheComparisonSort) {
  std::vector<double> values(1000);
  for (std::size_t i = 0; i < values.size(); ++i) values[i] = static_cast<double>(values.size() - i);
  values[500] = std::nan("");
  expectSameAsStableSort(values);
}

}  // namespace
}  // namespace orv
