#include "frame/conversions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "frame/cell_value.h"
#include "frame/errors.h"
#include "raised_number.h"

namespace orv {
namespace {

using test::raisedNumber;

TEST(ParsePlainNumber, AcceptsPlainNumbersWithBlanksAndNothingElse) {
  const struct {
    const char* text;
    double expected;
  } rows[] = {{" 12 ", 12.0},      {"\t7\t", 7.0},
              {"-3", -3.0},        {"+3", 3.0},
              {"-1.5E-2", -0.015}, {".5", 0.5},
              {"5.", 5.0},         {"007", 7.0},
              {"1e-400", 0.0},     {"123456789012345678901234567890", 1.2345678901234568e29}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    const auto parsed = parsePlainNumber(row.text);
    ASSERT_TRUE(parsed.has_value());
    EXPECT_EQ(*parsed, row.expected);
  }
  EXPECT_TRUE(std::signbit(*parsePlainNumber("-0")));
  for (const char* text : {"",    " ",   ".",   "-",  "e3", "1e",    "1.e",   "1,000", "1 000", "0x10",
                           "inf", "nan", "--1", "$5", "5%", "1.2.3", "1e3.5", "1e400", "(5)",   "\n1"}) {
    SCOPED_TRACE(text);
    EXPECT_FALSE(parsePlainNumber(text).has_value());
  }
}

TEST(ToNumber, FollowsThePlatformRules) {
  const struct {
    CellValue value;
    double expected;
    std::int32_t error;
  } rows[] = {
      {CellValue(), 0.0, 0},
      {CellValue(2.5), 2.5, 0},
      {CellValue(true), -1.0, 0},
      {CellValue(false), 0.0, 0},
      {CellValue(" 12 "), 12.0, 0},
      {CellValue("abc"), 0, err::kTypeMismatch},
      {CellValue(""), 0, err::kTypeMismatch},  // an empty text is not an empty cell
      {CellValue("True"), 0, err::kTypeMismatch},
      {CellValue(ErrorValue::NA), 0, err::kTypeMismatch},
      {CellValue("1e400"), 0, err::kOverflow},  // well-formed but too large: overflow, not mismatch
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(describe(row.value));
    EXPECT_EQ(raisedNumber([&] { return toNumber(row.value); }), row.error);
    if (row.error == 0) {
      EXPECT_EQ(toNumber(row.value), row.expected);
    }
  }
}

TEST(NumberToText, FifteenSignificantDigitsNoTrailingZeros) {
  const struct {
    double x;
    const char* expected;
  } rows[] = {{-0.0, "0"},
              {0.1 + 0.2, "0.3"},
              {-2.0 / 3.0, "-0.666666666666667"},
              {-1234.5, "-1234.5"},
              {1e14, "100000000000000"},
              {1e15, "1E+15"},
              {1234567890123456.0, "1.23456789012346E+15"},
              {999999999999999.9, "1E+15"},
              {0.0001, "0.0001"},
              {1e-5, "1E-05"},
              {-1.5e-5, "-1.5E-05"},
              {1e-300, "1E-300"},
              {std::numeric_limits<double>::max(), "1.79769313486232E+308"}};
  for (const auto& row : rows) EXPECT_EQ(numberToText(row.x), row.expected) << row.expected;
  EXPECT_EQ(raisedNumber([] { return numberToText(std::numeric_limits<double>::infinity()); }), err::kOverflow);
}

TEST(CellValue, TextAndDescriptionOfEveryKind) {
  const struct {
    CellValue value;
    const char* text;
    const char* described;
  } rows[] = {{CellValue(), "", "an empty cell"},
              {CellValue(-1.5e-5), "-1.5E-05", "the number -1.5E-05"},
              {CellValue(" x "), " x ", "the text \" x \""},
              {CellValue(true), "True", "the Boolean True"},
              {CellValue(false), "False", "the Boolean False"},
              {CellValue(ErrorValue::Div0), "#DIV/0!", "the error value #DIV/0!"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.described);
    EXPECT_EQ(toText(row.value), row.text);
    EXPECT_EQ(describe(row.value), row.described);
  }
}

TEST(ErrorValue, OnlyExactTextsReadBackToTheirValues) {
  const struct {
    ErrorValue value;
    const char* text;
  } rows[] = {{ErrorValue::Null, "#NULL!"}, {ErrorValue::Div0, "#DIV/0!"}, {ErrorValue::Value, "#VALUE!"},
              {ErrorValue::Ref, "#REF!"},   {ErrorValue::Name, "#NAME?"},  {ErrorValue::Num, "#NUM!"},
              {ErrorValue::NA, "#N/A"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(errorValueText(row.value), row.text);
    ErrorValue parsed = ErrorValue::Null;
    ASSERT_TRUE(parseErrorValue(row.text, parsed));
    EXPECT_EQ(parsed, row.value);
  }
  for (const char* text : {"#div/0!", "#N/A ", "#N/A!", "", "#DIV/0"}) {
    ErrorValue parsed = ErrorValue::Num;
    EXPECT_FALSE(parseErrorValue(text, parsed)) << text;
    EXPECT_EQ(parsed, ErrorValue::Num);  // untouched on failure
  }
}

}  // namespace
}  // namespace orv
