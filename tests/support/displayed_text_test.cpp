#include "support/displayed_text.h"

#include <gtest/gtest.h>

#include <string>

namespace orv {
namespace {

TEST(DisplayedText, GeneralShowsAtMostElevenCharacters) {
  const struct {
    double x;
    const char* shown;
  } rows[] = {
      {0, "0"},
      {0.5, "0.5"},
      {21.641666666666666, "21.64166667"},  // as many decimals as fit, rounded
      {0.47521260530089, "0.475212605"},
      {-0.78145166830047, "-0.78145167"},  // the sign takes a character
      {12345678901, "12345678901"},        // eleven digits still fit
      {-12345678901, "-1.2346E+10"},       // with a sign they do not
      {123456789012, "1.23457E+11"},
      {99999999999.7, "1E+11"},  // rounding carries into a twelfth digit
      {6.2532845e-08, "6.25328E-08"},
      {0.000123456789, "0.000123457"},
      {1e15, "1E+15"},
      {-2.5e-300, "-2.5E-300"},
      {1.0 / 3.0, "0.333333333"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.shown);
    EXPECT_EQ(generalText(row.x), row.shown);
    EXPECT_EQ(displayedText(CellValue(row.x), "General"), row.shown);
  }
}

TEST(DisplayedText, FormatsShowTheirDecimalsMarksAndSections) {
  const struct {
    const char* format;
    double x;
    const char* shown;
  } rows[] = {
      {"0", 4.4, "4"},
      {"0.00", 3.333, "3.33"},
      {"0.00", -0.5, "-0.50"},
      {"<0", 5, "<5"},  // the frequency tables' open categories
      {">=0.00", 2, ">=2.00"},
      {"<General", 5.25, "<5.25"},
      {"0\"%\"", 40, "40%"},  // the histogram's percent axis
      {"#,##0", 1234567.4, "1,234,567"},
      {"#,##0.0", -1234.56, "-1,234.6"},
      {"0.0%", 0.256, "25.6%"},
      {"0.00;(0.00)", -2, "(2.00)"},
      {"0;-0;", 0, ""},  // an empty zero section hides zero
      {"\\$0.00", 3, "$3.00"},
      {"[Red]0.0", 1.26, "1.3"},
      {"yyyy-mm-dd", 3.5, "3.5"},  // formats beyond these show the number as General does
      {"0.00E+00", 1234, "1234"},
      {"", 7, "7"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.format) + " of " + std::to_string(row.x));
    EXPECT_EQ(displayedText(CellValue(row.x), row.format), row.shown);
  }
}

TEST(DisplayedText, OtherValuesShowAsTheSheetShowsThem) {
  EXPECT_EQ(displayedText(CellValue("Std Error"), "0.00"), "Std Error");
  EXPECT_EQ(displayedText(CellValue(true), "General"), "TRUE");
  EXPECT_EQ(displayedText(CellValue(false), "0"), "FALSE");
  EXPECT_EQ(displayedText(CellValue(ErrorValue::Div0), "General"), "#DIV/0!");
  EXPECT_EQ(displayedText(CellValue(), "0.00"), "");
}

}  // namespace
}  // namespace orv
