#include "frame/numerics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "frame/errors.h"
#include "raised_number.h"

namespace orv {
namespace {

using test::raisedNumber;
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(CheckedInteger, LeavingTheRangeOverflows) {
  const struct { const char* what; std::int64_t (*call)(); } rows[] = {
      {"Int16 32767 + 1", [] { return std::int64_t{Int16(32767) + Int16(1)}; }},
      {"Int16 ++32767", [] { Int16 n(32767); return std::int64_t{++n}; }},
      {"Int16 -32768 - 1", [] { return std::int64_t{Int16(-32768) - Int16(1)}; }},
      {"Int16 200 * 200", [] { return std::int64_t{Int16(200) * Int16(200)}; }},
      {"Int32 max + 1", [] { return std::int64_t{Int32(2147483647) + Int32(1)}; }},
      {"Int32 65536^2", [] { return std::int64_t{Int32(65536) * Int32(65536)}; }},
      {"Byte 255 + 1", [] { return std::int64_t{Byte(255) + Byte(1)}; }},
      {"Byte 0 - 1", [] { return std::int64_t{Byte(0) - Byte(1)}; }},
      {"Int16 from 40000", [] { return std::int64_t{Int16::from(40000)}; }},
      {"toInt16 32768", [] { return std::int64_t{toInt16(std::int64_t{32768})}; }},
      {"toInt32 2^31", [] { return std::int64_t{toInt32(std::int64_t{1} << 31)}; }},
      {"toInt16(32767.5)", [] { return std::int64_t{toInt16(32767.5)}; }},
      {"toInt16(-32768.6)", [] { return std::int64_t{toInt16(-32768.6)}; }},
      {"toInt16(inf)", [] { return std::int64_t{toInt16(kInf)}; }},
      {"toInt16(NaN)", [] { return std::int64_t{toInt16(kNaN)}; }},
      {"toInt32(2147483647.5)", [] { return std::int64_t{toInt32(2147483647.5)}; }},
      {"toByte(255.5)", [] { return std::int64_t{toByte(255.5)}; }},
      {"toByte(-0.6)", [] { return std::int64_t{toByte(-0.6)}; }},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(raisedNumber(row.call), err::kOverflow);
  }
  EXPECT_EQ((Int16(-32767) - Int16(1)).value(), -32768);
  EXPECT_EQ(toInt16(std::int64_t{32767}), 32767);
}

TEST(RoundHalfEven, TiesGoToTheEvenNeighbour) {
  const struct { double x, expected; } rows[] = {
      {0.5, 0.0}, {1.5, 2.0}, {2.5, 2.0}, {-0.5, 0.0}, {-2.5, -2.0}, {2.6, 3.0}, {-2.6, -3.0},
      {0.49999999999999994, 0.0},  // adding 0.5 and flooring would give 1
      {4503599627370497.0, 4503599627370497.0}, {9007199254740993.0, 9007199254740993.0}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.x);
    EXPECT_EQ(roundHalfEven(row.x), row.expected);
  }
}

TEST(ConvertToInteger, RoundsHalfEvenWithinTheRange) {
  const struct { double x; std::int64_t expected, got; } rows[] = {
      {2.5, 2, toInt16(2.5)}, {-2.5, -2, toInt16(-2.5)}, {32767.4, 32767, toInt16(32767.4)},
      {-32768.5, -32768, toInt16(-32768.5)}, {2147483646.5, 2147483646, toInt32(2147483646.5)},
      {-0.5, 0, toByte(-0.5)}, {254.5, 254, toByte(254.5)}};
  for (const auto& row : rows) EXPECT_EQ(row.got, row.expected) << row.x;
}

TEST(Arithmetic, FaultsBecomeTheirErrors) {
  const struct { const char* what; double (*call)(); std::int32_t error; } rows[] = {
      {"1/0", [] { return divide(1.0, 0.0); }, err::kDivisionByZero},
      {"-1/-0", [] { return divide(-1.0, -0.0); }, err::kDivisionByZero},
      {"0/0", [] { return divide(0.0, 0.0); }, err::kOverflow},
      {"huge quotient", [] { return divide(1e308, 1e-308); }, err::kOverflow},
      {"huge product", [] { return multiply(1e200, 1e200); }, err::kOverflow},
      {"huge sum", [] { return add(1.7e308, 1.7e308); }, err::kOverflow},
      {"huge difference", [] { return subtract(-1.7e308, 1.7e308); }, err::kOverflow},
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
  EXPECT_EQ(squareRoot(6.25), 2.5);
  EXPECT_DOUBLE_EQ(logarithm(std::exp(2.0)), 2.0);
  EXPECT_EQ(power(-8.0, 3.0), -512.0);
  EXPECT_EQ(power(-2.0, -2.0), 0.25);
  EXPECT_EQ(power(0.0, 0.0), 1.0);
  EXPECT_EQ(intFloor(-0.5), -1.0);
  EXPECT_EQ(multiply(1e-200, 1e-200), 0.0);  // underflow is quietly zero, as on the platform
}

}  // namespace
}  // namespace orv
