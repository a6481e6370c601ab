#include "support/column_fit.h"

#include <gtest/gtest.h>

#include <string>

#include "support/text_width.h"
#include "workbook/in_memory_application.h"

namespace orv {
namespace {

struct ColumnFitTest : ::testing::Test {
  InMemoryApplication app;
  InMemoryWorksheet& sheet = app.AddWorkbook("Book1.xlsx", {"Out"}).Worksheets("Out");

  void put(std::int32_t row, std::int32_t column, const CellValue& value, CellFormat format = {}) {
    sheet.storeRaw(row, column, value);
    sheet.setCellFormat(row, column, format);
  }
  Range cells(const char* address) { return app.ResolveRange(std::string("Out!") + address); }
};

CellFormat bold(HAlign align) { return CellFormat{.bold = true, .horizontalAlignment = align}; }

TEST(FittedColumnWidth, WholePixelsWithAMarginWithinBounds) {
  // Text widths in points and the width their column takes: the text rounded up to whole pixels
  // (96 per inch) and 8 pixels added, so every width is a whole number of pixels.
  const struct {
    double text;
    double column;
  } rows[] = {
      {48.44091796875, 54.75},  // "Coeff. Var." in bold 11 point: 64.6 pixels, 65 + 8 = 73
      {53.4, 60.0},             // 71.2 pixels: 72 + 8 = 80
      {60.0, 66.0},             // exactly 80 pixels: 80 + 8 = 88
      {10.0, 48.0},             // short texts keep the standard width
      {0.0, 48.0},
      {400.0, 252.0},  // long ones are cut at 252 points
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_DOUBLE_EQ(fittedColumnWidth(row.text), row.column);
  }
}

TEST_F(ColumnFitTest, OnItsOwnSheetEveryMeasuredColumnTakesItsWidestCell) {
  put(1, 1, CellValue("Descriptive Statistics for:"), bold(HAlign::General));  // runs on into B1
  put(3, 2, CellValue("Fertiliser and shade"), bold(HAlign::Center));          // a centred name
  put(4, 1, CellValue("Coeff. Var."), bold(HAlign::Left));                     // B4 holds a number
  put(4, 2, CellValue(21.641666666666666), CellFormat{.horizontalAlignment = HAlign::Right});
  put(4, 3, CellValue(3.0), CellFormat{.numberFormat = "0.00"});
  put(5, 3, CellValue(std::string(80, 'W')));                       // left-aligned, D5 empty
  put(6, 4, CellValue(std::string(80, 'W')), bold(HAlign::Right));  // right-aligned: measured
  sheet.setColumnWidth(3, 120);                                     // set earlier: narrowed again
  fitColumnWidths({cells("A1:D6")}, true);
  EXPECT_DOUBLE_EQ(sheet.columnWidth(1), fittedColumnWidth(textWidthPoints("Coeff. Var.", 11, true)));
  EXPECT_DOUBLE_EQ(sheet.columnWidth(2), fittedColumnWidth(textWidthPoints("Fertiliser and shade", 11, true)));
  EXPECT_GT(sheet.columnWidth(2), fittedColumnWidth(textWidthPoints("21.64166667", 11, false)));
  EXPECT_DOUBLE_EQ(sheet.columnWidth(3), 48) << "\"3.00\" and a text that runs on";
  EXPECT_DOUBLE_EQ(sheet.columnWidth(4), kFittedColumnMaximum);
  EXPECT_FALSE(sheet.columnWidthSet(5)) << "a column outside the areas";
}

TEST_F(ColumnFitTest, OnAUsersSheetOnlyUnsizedColumnsWidenAndNoneNarrows) {
  const CellValue wide("Upper 95%CL of the mean");
  for (std::int32_t c = 1; c <= 3; ++c) put(2, c, wide, bold(HAlign::Center));
  put(3, 4, CellValue(1.5));
  sheet.setColumnWidth(1, 60);                 // sized by the user, too narrow: left alone
  sheet.setColumnWidth(3, 300);                // sized by the user, wide enough: left alone
  sheet.geometry().setDefaultColumnWidth(70);  // a sheet whose standard columns are wider
  fitColumnWidths({cells("A2:C2"), cells("D3")}, false);
  const double needed = fittedColumnWidth(textWidthPoints(wide.text(), 11, true));
  EXPECT_DOUBLE_EQ(sheet.columnWidth(1), 60);
  EXPECT_DOUBLE_EQ(sheet.columnWidth(2), needed);
  EXPECT_DOUBLE_EQ(sheet.columnWidth(3), 300);
  EXPECT_DOUBLE_EQ(sheet.columnWidth(4), 70) << "never narrower than it was";
  EXPECT_FALSE(sheet.columnWidthSet(4));
}

TEST_F(ColumnFitTest, NumbersAreMeasuredAsTheirFormatShowsThem) {
  put(1, 1, CellValue(1234567.0), CellFormat{.numberFormat = "#,##0.00", .fontSize = 20});
  put(1, 2, CellValue(1234567.0), CellFormat{.fontSize = 20});
  fitColumnWidths({cells("A1:B1")}, true);
  EXPECT_DOUBLE_EQ(sheet.columnWidth(1), fittedColumnWidth(textWidthPoints("1,234,567.00", 20, false)));
  EXPECT_DOUBLE_EQ(sheet.columnWidth(2), fittedColumnWidth(textWidthPoints("1234567", 20, false)));
}

}  // namespace
}  // namespace orv
