#include "frame/numerics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "frame/errors.h"
#include "raised_number.h"

namespace orv {
namespace {

using test::raisedNumber;

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(CheckedInteger, LeavingTheRangeOverflows) {
  struct Row {
    const char* what;
    std::int64_t (*call)();
    std::int32_t error;
  };
  const std::vector<Row> rows = {
      {"Int16 32767 + 1", [] { return std::int64_t{Int16(32767) + Int16(1)}; }, err::kOverflow},
      {"Int16 ++32767", [] { Int16 n(32767); return std::int64_t{++n}; }, err::kOverflow},
      {"Int16 -32768 - 1", [] { return std::int64_t{Int16(-32768) - Int16(1)}; }, err::kOverflow},
      {"Int16 200 * 200", [] { return std::int64_t{Int16(200) * Int16(200)}; }, err::kOverflow},
      {"Int16 -32767 - 1", [] { return std::int64_t{Int16(-32767) - Int16(1)}; }, 0},
      {"Int32 max + 1", [] { return std::int64_t{Int32(2147483647) + Int32(1)}; }, err::kOverflow},
      {"Int32 65536^2", [] { return std::int64_t{Int32(65536) * Int32(65536)}; }, err::kOverflow},
      {"Byte 255 + 1", [] { return std::int64_t{Byte(255) + Byte(1)}; }, err::kOverflow},
      {"Byte 0 - 1", [] { return std::int64_t{Byte(0) - Byte(1)}; }, err::kOverflow},
      {"Int16 from 40000", [] { return std::int64_t{Int16::from(40000)}; }, err::kOverflow},
      {"Byte from -1", [] { return std::int64_t{Byte::from(-1)}; }, err::kOverflow},
      {"toInt16 32768", [] { return std::int64_t{toInt16(std::int64_t{32768})}; }, err::kOverflow},
      {"toInt32 2^31", [] { return std::int64_t{toInt32(std::int64_t{1} << 31)}; }, err::kOverflow},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(raisedNumber(row.call), row.error);
  }
  EXPECT_EQ((Int16(-32767) - Int16(1)).value(), -32768);
  EXPECT_EQ(toInt16(std::int64_t{32767}), 32767);
}

TEST(RoundHalfEven, TiesGoToTheEvenNeighbour) {
  struct Row {
    double x;
    double expected;
  };
  const std::vector<Row> rows = {
      {0.5, 0.0},    {1.5, 2.0},   {2.5, 2.0},   {3.5, 4.0},   {-0.5, 0.0}, {-1.5, -2.0},
      {-2.5, -2.0},  {2.4, 2.0},   {2.6, 3.0},   {-2.6, -3.0}, {0.0, 0.0},  {7.0, 7.0},
      // Just below one half: adding 0.5 and flooring would wrongly give 1.
      {0.49999999999999994, 0.0},
      // Beyond 2^52 every double is whole and stays as it is.
      {4503599627370497.0, 4503599627370497.0},
      {9007199254740993.0, 9007199254740993.0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.x);
    EXPECT_EQ(roundHalfEven(row.x), row.expected);
  }
}

TEST(ConvertToInteger, RoundsHalfEvenThenChecksTheRange) {
  struct Row {
    double x;
    std::int32_t expected;  // meaningful when no error is expected
    std::int32_t error;
  };
  const std::vector<Row> int16Rows = {
      {0.5, 0, 0},          {1.5, 2, 0},           {2.5, 2, 0},
      {-2.5, -2, 0},        {32767.4, 32767, 0},   {32767.5, 0, err::kOverflow},
      {-32768.5, -32768, 0}, {-32768.6, 0, err::kOverflow}, {kInf, 0, err::kOverflow},
      {kNaN, 0, err::kOverflow},
  };
  for (const Row& row : int16Rows) {
    SCOPED_TRACE("toInt16(" + std::to_string(row.x) + ")");
    EXPECT_EQ(raisedNumber([&] { return toInt16(row.x); }), row.error);
    if (row.error == 0) {
      EXPECT_EQ(toInt16(row.x), row.expected);
    }
  }
  EXPECT_EQ(toInt32(2147483646.5), 2147483646);
  EXPECT_EQ(raisedNumber([] { return toInt32(2147483647.5); }), err::kOverflow);
  EXPECT_EQ(toByte(-0.5), 0);
  EXPECT_EQ(toByte(254.5), 254);
  EXPECT_EQ(raisedNumber([] { return toByte(255.5); }), err::kOverflow);
  EXPECT_EQ(raisedNumber([] { return toByte(-0.6); }), err::kOverflow);
}

TEST(Arithmetic, FaultsBecomeTheirErrors) {
  struct Row {
    const char* what;
    double (*call)();
    std::int32_t error;
  };
  const std::vector<Row> rows = {
      {"1/0", [] { return divide(1.0, 0.0); }, err::kDivisionByZero},
      {"-1/-0", [] { return divide(-1.0, -0.0); }, err::kDivisionByZero},
      {"0/0", [] { return divide(0.0, 0.0); }, err::kOverflow},
      {"huge quotient", [] { return divide(1e308, 1e-308); }, err::kOverflow},
      {"huge product", [] { return multiply(1e200, 1e200); }, err::kOverflow},
      {"huge sum", [] { return add(1.7e308, 1.7e308); }, err::kOverflow},
      {"huge difference", [] { return subtract(-1.7e308, 1.7e308); }, err::kOverflow},
      {"sqrt(-1)", [] { return squareRoot(-1.0); }, err::kInvalidProcedureCall},
      {"log(0)", [] { return logarithm(0.0); }, err::kInvalidProcedureCall},
      {"log(-1)", [] { return logarithm(-1.0); }, err::kInvalidProcedureCall},
      {"(-8)^(1/3)", [] { return power(-8.0, 1.0 / 3.0); }, err::kInvalidProcedureCall},
      {"0^-1", [] { return power(0.0, -1.0); }, err::kInvalidProcedureCall},
      {"10^400", [] { return power(10.0, 400.0); }, err::kOverflow},
      {"checked(NaN)", [] { return checked(kNaN); }, err::kOverflow},
      {"checked(-inf)", [] { return checked(-kInf); }, err::kOverflow},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(raisedNumber(row.call), row.error);
  }
}

TEST(Arithmetic, ValidOperationsGiveTheirValues) {
  EXPECT_EQ(divide(6.0, 3.0), 2.0);
  EXPECT_EQ(divide(0.0, 5.0), 0.0);
  EXPECT_EQ(squareRoot(0.0), 0.0);
  EXPECT_EQ(squareRoot(6.25), 2.5);
  EXPECT_DOUBLE_EQ(logarithm(std::exp(2.0)), 2.0);
  EXPECT_EQ(power(-8.0, 3.0), -512.0);
  EXPECT_EQ(power(-2.0, -2.0), 0.25);
  EXPECT_EQ(power(0.0, 0.0), 1.0);
  EXPECT_EQ(power(9.0, 0.5), 3.0);
  EXPECT_EQ(intFloor(-2.2), -3.0);
  EXPECT_EQ(intFloor(-0.5), -1.0);
  EXPECT_EQ(intFloor(2.7), 2.0);
  // The smallest results underflow quietly to zero, as the platform's do.
  EXPECT_EQ(multiply(1e-200, 1e-200), 0.0);
}

}  // namespace
}  // namespace orv
