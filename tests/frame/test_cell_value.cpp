#include "frame/cell_value.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orv {
namespace {

TEST(ErrorValue, TextsReadBackToTheirValues) {
  struct Row {
    ErrorValue value;
    const char* text;
  };
  const std::vector<Row> rows = {
      {ErrorValue::Null, "#NULL!"}, {ErrorValue::Div0, "#DIV/0!"}, {ErrorValue::Value, "#VALUE!"},
      {ErrorValue::Ref, "#REF!"},   {ErrorValue::Name, "#NAME?"},  {ErrorValue::Num, "#NUM!"},
      {ErrorValue::NA, "#N/A"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(errorValueText(row.value), row.text);
    ErrorValue parsed = ErrorValue::Null;
    ASSERT_TRUE(parseErrorValue(row.text, parsed));
    EXPECT_EQ(parsed, row.value);
  }
}

TEST(ErrorValue, OnlyExactTextsParse) {
  for (const char* text : {"#div/0!", "#N/A ", " #N/A", "#N/A!", "", "#", "N/A", "#DIV/0"}) {
    SCOPED_TRACE(text);
    ErrorValue parsed = ErrorValue::Num;
    EXPECT_FALSE(parseErrorValue(text, parsed));
    EXPECT_EQ(parsed, ErrorValue::Num);  // untouched on failure
  }
}

TEST(CellValue, DescribeNamesKindAndValue) {
  struct Row {
    CellValue value;
    const char* expected;
  };
  const std::vector<Row> rows = {
      {CellValue(), "an empty cell"},
      {CellValue(3), "the number 3"},
      {CellValue(-0.25), "the number -0.25"},
      {CellValue("abc"), "the text \"abc\""},
      {CellValue(true), "the Boolean True"},
      {CellValue(false), "the Boolean False"},
      {CellValue(ErrorValue::Div0), "the error value #DIV/0!"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.expected);
    EXPECT_EQ(describe(row.value), row.expected);
  }
}

}  // namespace
}  // namespace orv
