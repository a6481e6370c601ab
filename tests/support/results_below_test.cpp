#include "support/results_below.h"

#include <gtest/gtest.h>

#include "workbook/in_memory_application.h"

namespace orv {
namespace {

struct ResultsBelow : ::testing::Test {
  InMemoryApplication app;
  InMemoryWorksheet& sheet = app.AddWorkbook("Book1.xlsx", {"Out"}).Worksheets("Out");
};

TEST_F(ResultsBelow, TheLastUsedRowSkipsTheBlocksEmptyTail) {
  EXPECT_EQ(lastUsedRow(app.ResolveRange("Out!B2:D9")), 0);
  sheet.storeRaw(6, 4, CellValue(0.0));
  sheet.storeRaw(3, 2, CellValue("x"));
  sheet.storeRaw(12, 4, CellValue("below the block"));
  EXPECT_EQ(lastUsedRow(app.ResolveRange("Out!B2:D9")), 5);
}

TEST_F(ResultsBelow, CellsBelowAreFreeOnlyWhenEmptyAndOnTheSheet) {
  const Range origin = app.ResolveRange("Out!C5");
  const std::optional<Range> free = freeCellsBelow(origin, 10, 1, 13, 3);
  ASSERT_TRUE(free.has_value());
  EXPECT_EQ(free->Address(), "$C$14:$E$17");

  sheet.setCellFormat(17, 5, CellFormat{.bold = true});  // a format alone does not take a cell
  EXPECT_TRUE(freeCellsBelow(origin, 10, 1, 13, 3).has_value());
  sheet.storeRaw(17, 5, CellValue(""));  // an empty text does
  EXPECT_FALSE(freeCellsBelow(origin, 10, 1, 13, 3).has_value());
  EXPECT_TRUE(freeCellsBelow(origin, 10, 1, 12, 3).has_value());

  const Range low = app.ResolveRange("Out!XFB1048570");
  EXPECT_TRUE(freeCellsBelow(low, 5, 1, 7, 3).has_value()) << "the sheet's last row and column";
  EXPECT_FALSE(freeCellsBelow(low, 5, 1, 8, 3).has_value()) << "one row beyond";
  EXPECT_FALSE(freeCellsBelow(low, 5, 1, 7, 4).has_value()) << "one column beyond";
}

}  // namespace
}  // namespace orv
