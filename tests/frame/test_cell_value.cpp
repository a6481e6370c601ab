#include "frame/cell_value.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

TEST(ErrorValue, OnlyExactTextsReadBackToTheirValues) {
  const struct { ErrorValue value; const char* text; } rows[] = {
      {ErrorValue::Null, "#NULL!"}, {ErrorValue::Div0, "#DIV/0!"}, {ErrorValue::Value, "#VALUE!"},
      {ErrorValue::Ref, "#REF!"}, {ErrorValue::Name, "#NAME?"}, {ErrorValue::Num, "#NUM!"}, {ErrorValue::NA, "#N/A"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(errorValueText(row.value), row.text);
    ErrorValue parsed = ErrorValue::Null;
    ASSERT_TRUE(parseErrorValue(row.text, parsed));
    EXPECT_EQ(parsed, row.value);
  }
  for (const char* text : {"#div/0!", "#N/A ", " #N/A", "#N/A!", "", "N/A", "#DIV/0"}) {
    SCOPED_TRACE(text);
    ErrorValue parsed = ErrorValue::Num;
    EXPECT_FALSE(parseErrorValue(text, parsed));
    EXPECT_EQ(parsed, ErrorValue::Num);  // untouched on failure
  }
}

TEST(CellValue, DescribeNamesKindAndValue) {
  const struct { CellValue value; const char* expected; } rows[] = {
      {CellValue(), "an empty cell"}, {CellValue(-0.25), "the number -0.25"}, {CellValue("abc"), "the text \"abc\""},
      {CellValue(true), "the Boolean True"}, {CellValue(false), "the Boolean False"},
      {CellValue(ErrorValue::Div0), "the error value #DIV/0!"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.expected);
    EXPECT_EQ(describe(row.value), row.expected);
  }
}

}  // namespace
}  // namespace orv
