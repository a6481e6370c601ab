#include "support/array_tools.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "frame/errors.h"
#include "support/double_sort.h"
#include "test_util.h"

namespace orv {
namespace {

using namespace test;  // Table, Column, kEmpty, ExpectError

TEST(SortRows, OrdersKindsThenValuesAndRowsTravelWithTheirKey) {
  const struct {
    const char* name;
    ValueArray2D input, expected;
    std::int32_t key;
  } rows[] = {
      {"texts byte-wise", Column({"b", "a", "B", "\xC3\xA9", ""}), Column({"", "B", "a", "b", "\xC3\xA9"}), 1},
      {"every kind, texts not as numbers",
       Column({ErrorValue::NA, true, kEmpty, "9", false, 5, ErrorValue::Div0, "10", -5}),
       Column({-5, 5, "10", "9", false, true, ErrorValue::Div0, ErrorValue::NA, kEmpty}), 1},
      {"tally by count, stable", Table({{5, 2}, {1, 3}, {7, 2}, {2, 1}, {9, 3}, {4, kEmpty}, {3, 1}}),
       Table({{2, 1}, {3, 1}, {5, 2}, {7, 2}, {1, 3}, {9, 3}, {4, kEmpty}}), 2},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    ValueArray2D table = row.input;
    ArrayTools::SortRows(table, row.key);
    EXPECT_EQ(table, row.expected);
  }
  // 0 and -0 compare equal, so they keep their order (a column of numbers only is DoubleSort's case).
  ValueArray2D zeros = Column({0.0, -0.0, -1, "t", 0.0});
  ArrayTools::SortRows(zeros, 1);
  EXPECT_EQ(zeros(1, 1).number(), -1);
  EXPECT_FALSE(std::signbit(zeros(2, 1).number()));
  EXPECT_TRUE(std::signbit(zeros(3, 1).number()));
  EXPECT_FALSE(std::signbit(zeros(4, 1).number()));
}

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

TEST(DoubleSort, MatchesTheStableComparisonSortBitForBit) {
  std::mt19937_64 random(42);
  std::normal_distribution<double> spread(0, 1e3);
  std::uniform_int_distribution<int> few(-5, 5);
  const double extremes[] = {std::numeric_limits<double>::infinity(),
                             -std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::denorm_min(),
                             -std::numeric_limits<double>::denorm_min(),
                             std::numeric_limits<double>::max(),
                             std::numeric_limits<double>::lowest(),
                             0.0,
                             -0.0};
  std::vector<double> wide, zeros, edges, unsignedEdges;
  for (int i = 0; i < 5000; ++i) {
    wide.push_back(spread(random));
    zeros.push_back(i % 3 == 0 ? -0.0 : (i % 3 == 1 ? 0.0 : few(random) * 0.5));  // many ties and signed zeros
    edges.push_back(extremes[random() % 8]);
    unsignedEdges.push_back(extremes[random() % 7]);  // without -0, sorted by their keys alone
  }
  for (const auto& values : {wide, zeros, edges, unsignedEdges}) expectSameAsStableSort(values);
  expectSameAsStableSort({3.0, -0.0, 1.0, 0.0});  // short: the comparison sort itself
}

TEST(ArrayTools, RowArgumentsOutsideTheTableAreSubscriptErrors) {
  const ValueArray2D table = Table({{1, "a"}, {2, "b"}, {3, "c"}});
  EXPECT_EQ(ArrayTools::FirstRows(table, 2), Table({{1, "a"}, {2, "b"}}));
  for (std::int32_t n : {0, 4}) {
    ValueArray2D copy = table;
    ExpectError(err::kSubscriptOutOfRange, "Line 0 in ORVDescriptives.ArrayTools.SortRows",
                [&] { ArrayTools::SortRows(copy, n == 4 ? 3 : n); });
    ExpectError(err::kSubscriptOutOfRange, "Line 0 in ORVDescriptives.ArrayTools.FirstRows",
                [&] { ArrayTools::FirstRows(table, n); });
  }
  ValueArray2D none(0, 1);
  ArrayTools::SortRows(none, 1);
  EXPECT_EQ(none.rows(), 0);
}

TEST(ArrayTools, JoinPadsTheShorterSideAndMaxMinConvertEveryCell) {
  const ValueArray2D angles = ArrayTools::FromDoubles({10.5, -20, 0});
  const ValueArray2D pairs = Table({{1, "x"}, {2, "y"}});
  EXPECT_EQ(ArrayTools::Join(angles, pairs), Table({{10.5, 1, "x"}, {-20, 2, "y"}, {0, kEmpty, kEmpty}}));
  EXPECT_EQ(ArrayTools::Join(pairs, angles), Table({{1, "x", 10.5}, {2, "y", -20}, {kEmpty, kEmpty, 0}}));
  // Joining many at once is joining them one after another.
  const ValueArray2D one = Column({5});
  EXPECT_EQ(ArrayTools::JoinAll({pairs, angles, one}), ArrayTools::Join(ArrayTools::Join(pairs, angles), one));
  EXPECT_EQ(ArrayTools::JoinAll({one}), one);
  EXPECT_TRUE(ArrayTools::JoinAll({}).empty());
  const ValueArray2D mixed = Table({{"7", kEmpty}, {3, true}});  // numeric text counts; empty is 0, True is -1
  EXPECT_EQ(ArrayTools::MaxOf(mixed), 7);
  EXPECT_EQ(ArrayTools::MinOf(mixed), -1);
  EXPECT_EQ(ArrayTools::MaxOf(Column({-3, -1, -2})), -1);
  ExpectError(err::kTypeMismatch, "Line 0 in ORVDescriptives.ArrayTools.MaxOf", [] {
    ArrayTools::MaxOf(Column({1, "abc"}));
  });
  ExpectError(err::kTypeMismatch, "Line 0 in ORVDescriptives.ArrayTools.MinOf",
              [] { ArrayTools::MinOf(Column({ErrorValue::NA})); });
  ExpectError(err::kSubscriptOutOfRange, "Line 0 in ORVDescriptives.ArrayTools.MaxOf",
              [] { ArrayTools::MaxOf(ValueArray2D(0, 1)); });
}

}  // namespace
}  // namespace orv
