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
  const double extremes[] = {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::denorm_min(), -std::numeric_limits<double>::denorm_min(),
                             std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest(), 0.0, -0.0};
  std::vector<double> wide, zeros, edges;
  for (int i = 0; i < 5000; ++i) {
    wide.push_back(spread(random));
    zeros.push_back(i % 3 == 0 ? -0.0 : (i % 3 == 1 ? 0.0 : few(random) * 0.5));  // many ties and signed zeros
    edges.push_back(extremes[random() % 8]);
  }
  for (const auto& values : {wide, zeros, edges}) expectSameAsStableSort(values);
  expectSameAsStableSort({3.0, -0.0, 1.0, 0.0});  // short: the comparison sort itself
  expectSameAsStableSort({});
  std::vector<double> withNaN(1000);  // a NaN leaves the order to the comparison sort
  for (std::size_t i = 0; i < withNaN.size(); ++i) withNaN[i] = static_cast<double>(withNaN.size() - i);
  withNaN[500] = std::nan("");
  expectSameAsStableSort(withNaN);
}

}  // namespace
}  // namespace orv
