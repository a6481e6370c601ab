#include "support/array_tools.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include "frame/errors.h"
#include "test_util.h"

namespace orv {
namespace {

using test::Column;
using test::ExpectError;
using test::Table;

const CellValue kEmpty;

TEST(SortRows, OrdersKindsThenValuesAndRowsTravelWithTheirKey) {
  const struct { const char* name; ValueArray2D input, expected; std::int32_t key; } rows[] = {
      {"empties last", Column({kEmpty, 4, kEmpty, -7.25}), Column({-7.25, 4, kEmpty, kEmpty}), 1},
      {"numbers before texts", Column({"10", 2, "9", 1}), Column({1, 2, "10", "9"}), 1},
      {"texts byte-wise", Column({"b", "a", "B", "\xC3\xA9", ""}), Column({"", "B", "a", "b", "\xC3\xA9"}), 1},
      {"every kind", Column({ErrorValue::NA, true, kEmpty, "x", false, 5, ErrorValue::Div0, -5}),
       Column({-5, 5, "x", false, true, ErrorValue::Div0, ErrorValue::NA, kEmpty}), 1},
      {"tally by count, stable", Table({{5, 2}, {1, 3}, {7, 2}, {2, 1}, {9, 3}, {4, kEmpty}, {3, 1}}),
       Table({{2, 1}, {3, 1}, {5, 2}, {7, 2}, {1, 3}, {9, 3}, {4, kEmpty}}), 2},
      {"whole rows move", Table({{"c", 3, true}, {"a", kEmpty, false}, {"b", 1, ErrorValue::Ref}}),
       Table({{"b", 1, ErrorValue::Ref}, {"c", 3, true}, {"a", kEmpty, false}}), 2},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    ValueArray2D table = row.input;
    ArrayTools::SortRows(table, row.key);
    EXPECT_EQ(table, row.expected);
  }
  // 0 and -0 compare equal; a stable sort keeps them as they came, with or without texts present.
  for (bool withText : {false, true}) {
    SCOPED_TRACE(withText ? "general path" : "numbers-only path");
    ValueArray2D table = withText ? Column({0.0, -0.0, -1, "t", 0.0}) : Column({0.0, -0.0, -1, 0.0});
    ArrayTools::SortRows(table, 1);
    EXPECT_EQ(table(1, 1).number(), -1);
    EXPECT_FALSE(std::signbit(table(2, 1).number()));
    EXPECT_TRUE(std::signbit(table(3, 1).number()));
    EXPECT_FALSE(std::signbit(table(4, 1).number()));
  }
}

TEST(SortRows, RandomTablesAreSortedStablePermutations) {
  std::mt19937 rng(20240611);
  std::uniform_int_distribution<int> key(0, 40);  // few keys: many ties; 0 leaves the key empty
  const std::int32_t n = 32767;
  ValueArray2D table(n, 2);
  for (std::int32_t r = 1; r <= n; ++r) {
    table(r, 1) = r;  // the original row
    if (const int k = key(rng); k != 0) table(r, 2) = k;
  }
  ArrayTools::SortRows(table, 2);
  std::vector<bool> seen(static_cast<std::size_t>(n) + 1, false);
  for (std::int32_t r = 1; r <= n; ++r) {
    const auto original = static_cast<std::size_t>(table(r, 1).number());
    ASSERT_FALSE(seen[original]) << "row " << original << " appears twice";
    seen[original] = true;
    if (r == 1) continue;
    const CellValue& prev = table(r - 1, 2);
    const CellValue& cur = table(r, 2);
    ASSERT_FALSE(prev.isEmpty() && !cur.isEmpty()) << "empty key before a number at row " << r;
    ASSERT_TRUE(!prev.isNumber() || !cur.isNumber() || prev.number() <= cur.number()) << "row " << r;
    ASSERT_TRUE(prev != cur || table(r - 1, 1).number() < table(r, 1).number()) << "tie at row " << r;
  }
}

TEST(ArrayTools, RowAndColumnArgumentsOutsideTheTableAreSubscriptErrors) {
  const ValueArray2D table = Table({{1, "a"}, {2, "b"}, {3, "c"}});
  EXPECT_EQ(ArrayTools::FirstRows(table, 2), Table({{1, "a"}, {2, "b"}}));
  for (std::int32_t n : {0, 4, -1}) {
    SCOPED_TRACE(n);
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

TEST(ArrayTools, JoinPadsTheShorterSideWithEmptyCells) {
  const ValueArray2D angles = ArrayTools::FromDoubles({10.5, -20, 0});
  const ValueArray2D pairs = Table({{1, "x"}, {2, "y"}});
  EXPECT_EQ(ArrayTools::Join(angles, pairs), Table({{10.5, 1, "x"}, {-20, 2, "y"}, {0, kEmpty, kEmpty}}));
  EXPECT_EQ(ArrayTools::Join(pairs, angles), Table({{1, "x", 10.5}, {2, "y", -20}, {kEmpty, kEmpty, 0}}));
}

TEST(MaxOfMinOf, ConvertEveryCellAsANumber) {
  const struct { const char* name; ValueArray2D values; double max, min; } rows[] = {
      {"negatives", Column({-3, -1, -2}), -1, -3}, {"numeric text counts", Column({"7", 3, "-8.5"}), 7, -8.5},
      {"empty is 0, True is -1", Column({kEmpty, 2, true}), 2, -1}, {"two columns", Table({{1, 9}, {-4, 0}}), 9, -4}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(ArrayTools::MaxOf(row.values), row.max);
    EXPECT_EQ(ArrayTools::MinOf(row.values), row.min);
  }
  ExpectError(err::kTypeMismatch, "Line 0 in ORVDescriptives.ArrayTools.MaxOf", [] { ArrayTools::MaxOf(Column({1, "abc"})); });
  ExpectError(err::kTypeMismatch, "Line 0 in ORVDescriptives.ArrayTools.MinOf",
              [] { ArrayTools::MinOf(Column({ErrorValue::NA})); });
  ExpectError(err::kSubscriptOutOfRange, "Line 0 in ORVDescriptives.ArrayTools.MaxOf",
              [] { ArrayTools::MaxOf(ValueArray2D(0, 1)); });
}

}  // namespace
}  // namespace orv
