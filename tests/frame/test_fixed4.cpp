#include "frame/fixed4.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "frame/errors.h"
#include "raised_number.h"

namespace orv {
namespace {

using test::raisedNumber;

TEST(Fixed4, FromDoubleRoundsHalfEvenToFourDecimals) {
  struct Row {
    double x;
    std::int64_t units;
  };
  const std::vector<Row> rows = {
      {0.00005, 0},    {0.00015, 2},     {0.00025, 2},   {0.00035, 4},      {-0.00015, -2},
      {0.00004, 0},    {0.00006, 1},     {1.23456, 12346}, {0.1, 1000},     {-2.5, -25000},
      {922337203685477.5, 9223372036854775000}, {-900000000000000.0, -9000000000000000000},
      {1e-300, 0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(std::to_string(row.x));
    EXPECT_EQ(Fixed4::fromDouble(row.x).units(), row.units);
  }
}

TEST(Fixed4, SumsAreExactWhereDoublesAreNot) {
  const Fixed4 sum = Fixed4::fromDouble(0.1) + Fixed4::fromDouble(0.2);
  EXPECT_EQ(sum, Fixed4::fromDouble(0.3));
  EXPECT_NE(0.1 + 0.2, 0.3);  // why bin widths are compared in Fixed4
  Fixed4 total;
  for (int i = 0; i < 10; ++i) total = total + Fixed4::fromDouble(0.1);
  EXPECT_EQ(total, Fixed4::fromDouble(1.0));
  EXPECT_EQ(Fixed4::fromDouble(0.3) - Fixed4::fromDouble(0.1), Fixed4::fromDouble(0.2));
  EXPECT_LT(Fixed4::fromDouble(0.2999), Fixed4::fromDouble(0.3));
}

TEST(Fixed4, ProductsAndQuotientsRoundHalfEven) {
  struct Row {
    const char* what;
    Fixed4 result;
    std::int64_t units;
  };
  const auto f = Fixed4::fromDouble;
  const std::vector<Row> rows = {
      {"1.5 * 2.5", f(1.5) * f(2.5), 37500},
      {"0.0001 * 0.5", f(0.0001) * f(0.5), 0},
      {"0.0003 * 0.5", f(0.0003) * f(0.5), 2},
      {"-0.0003 * 0.5", f(-0.0003) * f(0.5), -2},
      {"1 / 3", f(1) / f(3), 3333},
      {"2 / 3", f(2) / f(3), 6667},
      {"-7 / 2", f(-7) / f(2), -35000},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(row.result.units(), row.units);
  }
  EXPECT_DOUBLE_EQ(f(1.2345).toDouble(), 1.2345);
}

TEST(Fixed4, LeavingTheRangeOrDividingByZeroRaises) {
  constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
  constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();
  const Fixed4 unit = Fixed4::fromUnits(1);
  struct Row {
    const char* what;
    Fixed4 (*call)();
    std::int32_t error;
  };
  const std::vector<Row> rows = {
      {"fromDouble(1e15)", [] { return Fixed4::fromDouble(1e15); }, err::kOverflow},
      {"fromDouble(922337203685477.6)", [] { return Fixed4::fromDouble(922337203685477.6); },
       err::kOverflow},
      {"fromDouble(-1e15)", [] { return Fixed4::fromDouble(-1e15); }, err::kOverflow},
      {"fromDouble(inf)",
       [] { return Fixed4::fromDouble(std::numeric_limits<double>::infinity()); }, err::kOverflow},
      {"fromDouble(NaN)",
       [] { return Fixed4::fromDouble(std::numeric_limits<double>::quiet_NaN()); }, err::kOverflow},
      {"max + unit", [] { return Fixed4::fromUnits(kMax) + Fixed4::fromUnits(1); }, err::kOverflow},
      {"min - unit", [] { return Fixed4::fromUnits(kMin) - Fixed4::fromUnits(1); }, err::kOverflow},
      {"min + -unit", [] { return Fixed4::fromUnits(kMin) + Fixed4::fromUnits(-1); },
       err::kOverflow},
      {"0 - min", [] { return Fixed4() - Fixed4::fromUnits(kMin); }, err::kOverflow},
      {"big * big", [] { return Fixed4::fromDouble(1e10) * Fixed4::fromDouble(1e10); },
       err::kOverflow},
      {"1 / 0", [] { return Fixed4::fromDouble(1) / Fixed4(); }, err::kDivisionByZero},
      {"0 / 0", [] { return Fixed4() / Fixed4(); }, err::kOverflow},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(raisedNumber(row.call), row.error);
  }
  EXPECT_EQ((Fixed4::fromUnits(kMax - 1) + unit).units(), kMax);
  EXPECT_EQ((Fixed4::fromUnits(kMin + 1) - unit).units(), kMin);
  EXPECT_EQ((Fixed4::fromUnits(-1) - Fixed4::fromUnits(kMax)).units(), kMin);
}

}  // namespace
}  // namespace orv
