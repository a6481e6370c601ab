#include "frame/numerics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "frame/errors.h"
#include "frame/fixed4.h"
#include "raised_number.h"

namespace orv {
namespace {

using test::raisedNumber;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(CheckedInteger, LastValueInRangePassesAndTheNextOverflows) {
  const struct {
    const char* what;
    std::int64_t (*call)();
  } overflows[] = {
      {"Int16 32767 + 1", [] { return std::int64_t{Int16(32767) + Int16(1)}; }},
      {"Int16 -32768 - 1", [] { return std::int64_t{Int16(-32768) - Int16(1)}; }},
      {"Int16 200 * 200", [] { return std::int64_t{Int16(200) * Int16(200)}; }},
      {"Int32 max + 1", [] { return std::int64_t{Int32(2147483647) + Int32(1)}; }},
      {"Byte 255 + 1", [] { return std::int64_t{Byte(255) + Byte(1)}; }},
      {"Byte 0 - 1", [] { return std::int64_t{Byte(0) - Byte(1)}; }},
      {"toInt16(32767.5)", [] { return std::int64_t{toInt16(32767.5)}; }},
      {"toInt16(-32768.6)", [] { return std::int64_t{toInt16(-32768.6)}; }},
      {"toInt16(NaN)", [] { return std::int64_t{toInt16(kNaN)}; }},
      {"toInt32(2147483647.5)", [] { return std::int64_t{toInt32(2147483647.5)}; }},
      {"toByte(-0.6)", [] { return std::int64_t{toByte(-0.6)}; }},
  };
  for (const auto& row : overflows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(raisedNumber(row.call), err::kOverflow);
  }
  EXPECT_EQ((Int16(-32767) - Int16(1)).value(), -32768);
  const struct {
    double x;
    std::int64_t expected, got;
  } conversions[] = {// half to even, at the edges
                     {2.5, 2, toInt16(2.5)},
                     {-2.5, -2, toInt16(-2.5)},
                     {32767.4, 32767, toInt16(32767.4)},
                     {-32768.5, -32768, toInt16(-32768.5)},
                     {2147483646.5, 2147483646, toInt32(2147483646.5)},
                     {-0.5, 0, toByte(-0.5)},
                     {254.5, 254, toByte(254.5)}};
  for (const auto& row : conversions) EXPECT_EQ(row.got, row.expected) << row.x;
}

TEST(RoundHalfEven, TiesGoToTheEvenNeighbour) {
  const struct {
    double x, expected;
  } rows[] = {{0.5, 0.0},
              {1.5, 2.0},
              {2.5, 2.0},
              {-2.5, -2.0},
              {-2.6, -3.0},
              {0.49999999999999994, 0.0},  // adding 0.5 and flooring would give 1
              {4503599627370497.0, 4503599627370497.0}};
  for (const auto& row : rows) EXPECT_EQ(roundHalfEven(row.x), row.expected) << row.x;
}

TEST(Arithmetic, FaultsBecomeTheirErrors) {
  const struct {
    const char* what;
    double (*call)();
    std::int32_t error;
  } rows[] = {
      {"1/0", [] { return divide(1.0, 0.0); }, err::kDivisionByZero},
      {"0/0", [] { return divide(0.0, 0.0); }, err::kOverflow},
      {"huge product", [] { return multiply(1e200, 1e200); }, err::kOverflow},
      {"huge sum", [] { return add(1.7e308, 1.7e308); }, err::kOverflow},
      {"sqrt(-1)", [] { return squareRoot(-1.0); }, err::kInvalidProcedureCall},
      {"log(0)", [] { return logarithm(0.0); }, err::kInvalidProcedureCall},
      {"(-8)^(1/3)", [] { return power(-8.0, 1.0 / 3.0); }, err::kInvalidProcedureCall},
      {"0^-1", [] { return power(0.0, -1.0); }, err::kInvalidProcedureCall},
      {"10^400", [] { return power(10.0, 400.0); }, err::kOverflow},
      {"checked(NaN)", [] { return checked(kNaN); }, err::kOverflow},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(raisedNumber(row.call), row.error);
  }
  EXPECT_EQ(power(-8.0, 3.0), -512.0);
  EXPECT_EQ(power(0.0, 0.0), 1.0);
  EXPECT_EQ(intFloor(-0.5), -1.0);
  EXPECT_EQ(multiply(1e-200, 1e-200), 0.0);  // underflow is quietly zero, as on the platform
}

TEST(Fixed4, RoundsHalfEvenToFourDecimalsAndRaisesOutsideItsRange) {
  const struct {
    double x;
    std::int64_t units;
  } rows[] = {{0.00005, 0},   {0.00015, 2},     {0.00025, 2},
              {-0.00015, -2}, {1.23456, 12346}, {922337203685477.5, 9223372036854775000}};
  for (const auto& row : rows) EXPECT_EQ(Fixed4::fromDouble(row.x).units(), row.units) << row.x;
  const auto f = Fixed4::fromDouble;
  EXPECT_EQ((f(0.0003) * f(0.5)).units(), 2);  // 0.00015 rounds to even
  EXPECT_EQ((f(2) / f(3)).units(), 6667);
  Fixed4 total;
  for (int i = 0; i < 10; ++i) total = total + f(0.1);
  EXPECT_EQ(total, f(1.0));  // where ten double 0.1s miss 1
  constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
  const struct {
    const char* what;
    Fixed4 (*call)();
    std::int32_t error;
  } faults[] = {
      {"fromDouble(922337203685477.6)", [] { return Fixed4::fromDouble(922337203685477.6); }, err::kOverflow},
      {"fromDouble(NaN)", [] { return Fixed4::fromDouble(kNaN); }, err::kOverflow},
      {"max + unit", [] { return Fixed4::fromUnits(kMax) + Fixed4::fromUnits(1); }, err::kOverflow},
      {"big * big", [] { return Fixed4::fromDouble(1e10) * Fixed4::fromDouble(1e10); }, err::kOverflow},
      {"1 / 0", [] { return Fixed4::fromUnits(10000) / Fixed4(); }, err::kDivisionByZero},
      {"0 / 0", [] { return Fixed4() / Fixed4(); }, err::kOverflow},
  };
  for (const auto& row : faults) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(raisedNumber(row.call), row.error);
  }
  EXPECT_EQ((Fixed4::fromUnits(kMax - 1) + Fixed4::fromUnits(1)).units(), kMax);
}

}  // namespace
}  // namespace orv
