#include "frame/fixed4.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "frame/errors.h"
#include "raised_number.h"

namespace orv {
namespace {

using test::raisedNumber;

TEST(Fixed4, RoundsHalfEvenToFourDecimals) {
  const struct { double x; std::int64_t units; } rows[] = {
      {0.00005, 0}, {0.00015, 2}, {0.00025, 2}, {-0.00015, -2}, {0.00006, 1}, {1.23456, 12346},
      {-2.5, -25000}, {922337203685477.5, 9223372036854775000}, {-900000000000000.0, -9000000000000000000}};
  for (const auto& row : rows) {
    SCOPED_TRACE(std::to_string(row.x));
    EXPECT_EQ(Fixed4::fromDouble(row.x).units(), row.units);
  }
  const auto f = Fixed4::fromDouble;
  const struct { const char* what; Fixed4 result; std::int64_t units; } products[] = {
      {"1.5 * 2.5", f(1.5) * f(2.5), 37500}, {"0.0001 * 0.5", f(0.0001) * f(0.5), 0},
      {"0.0003 * 0.5", f(0.0003) * f(0.5), 2}, {"-0.0003 * 0.5", f(-0.0003) * f(0.5), -2},
      {"1 / 3", f(1) / f(3), 3333}, {"2 / 3", f(2) / f(3), 6667}, {"-7 / 2", f(-7) / f(2), -35000}};
  for (const auto& row : products) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(row.result.units(), row.units);
  }
  Fixed4 total;
  for (int i = 0; i < 10; ++i) total = total + f(0.1);
  EXPECT_EQ(total, f(1.0));  // where ten double 0.1s miss 1
  EXPECT_EQ(f(0.3) - f(0.1), f(0.2));
}

TEST(Fixed4, LeavingTheRangeOrDividingByZeroRaises) {
  constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
  constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();
  const struct { const char* what; Fixed4 (*call)(); std::int32_t error; } rows[] = {
      {"fromDouble(922337203685477.6)", [] { return Fixed4::fromDouble(922337203685477.6); }, err::kOverflow},
      {"fromDouble(-1e15)", [] { return Fixed4::fromDouble(-1e15); }, err::kOverflow},
      {"fromDouble(NaN)", [] { return Fixed4::fromDouble(std::numeric_limits<double>::quiet_NaN()); }, err::kOverflow},
      {"max + unit", [] { return Fixed4::fromUnits(kMax) + Fixed4::fromUnits(1); }, err::kOverflow},
      {"min + -unit", [] { return Fixed4::fromUnits(kMin) + Fixed4::fromUnits(-1); }, err::kOverflow},
      {"0 - min", [] { return Fixed4() - Fixed4::fromUnits(kMin); }, err::kOverflow},
      {"big * big", [] { return Fixed4::fromDouble(1e10) * Fixed4::fromDouble(1e10); }, err::kOverflow},
      {"1 / 0", [] { return Fixed4::fromDouble(1) / Fixed4(); }, err::kDivisionByZero},
      {"0 / 0", [] { return Fixed4() / Fixed4(); }, err::kOverflow},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(raisedNumber(row.call), row.error);
  }
  EXPECT_EQ((Fixed4::fromUnits(kMax - 1) + Fixed4::fromUnits(1)).units(), kMax);
  EXPECT_EQ((Fixed4::fromUnits(-1) - Fixed4::fromUnits(kMax)).units(), kMin);
}

}  // namespace
}  // namespace orv
