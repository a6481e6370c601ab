#include "support/range_checks.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/host.h"
#include "test_util.h"
#include "workbook/in_memory_application.h"

namespace orv {
namespace {

using namespace test;  // ExpectError, kEmpty

struct RangeChecksTest : ::testing::Test {
  // Cells go in as a file reader stores them, so a text such as "12" stays a text.
  void put(const char* sheet, std::int32_t column, std::int32_t firstRow, const std::vector<CellValue>& cells) {
    for (std::size_t i = 0; i < cells.size(); ++i)
      book.Worksheets(sheet).storeRaw(firstRow + static_cast<std::int32_t>(i), column, cells[i]);
  }
  void expectRefusal(const char* reference, bool headers, const std::string& cell) {
    EXPECT_EQ(ExpectError(err::kInputColumnNotNumeric, "Line 0 in ORVDescriptives.RangeChecks.CheckInputColumn",
                          [&] { RangeChecks::CheckInputColumn(app.ResolveRange(reference), headers); }),
              cell + "; only numbers and empty cells can be analysed.");
  }
  InMemoryApplication app;
  InMemoryWorkbook& book = app.AddWorkbook("Book1.xlsx", {"Data", "Sheet1", "My data"});
};

TEST_F(RangeChecksTest, InputColumnAcceptsOnlyNumbersAndEmptyCells) {
  const struct {
    std::vector<CellValue> cells;
    bool headers;
    std::string refusal;
  } rows[] = {// B1 down
              {{"Weight", 1.5, kEmpty, -2, 1e300}, true, ""},
              {{"Weight"}, true, ""},
              {{"Weight", 1.5, 2}, false, "Cell Data!$B$1 holds the text \"Weight\""},
              {{"W", 1, "12"}, true, "Cell Data!$B$3 holds the text \"12\""},
              {{"W", ErrorValue::Div0, 1}, true, "Cell Data!$B$2 holds the error value #DIV/0!"},
              {{"W", kEmpty, false, "x"}, true, "Cell Data!$B$3 holds the Boolean False"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.refusal);
    book.Worksheets("Data").clear(CellBlock{1, 1, 100, 5});
    put("Data", 2, 1, row.cells);
    put("Data", 3, 1, {"label", "c", ErrorValue::NA});  // neighbouring columns must not matter
    if (!row.refusal.empty()) {
      expectRefusal("Data!B1:B20", row.headers, row.refusal);
      continue;
    }
    EXPECT_NO_THROW(RangeChecks::CheckInputColumn(app.ResolveRange("Data!B1:B20"), row.headers));
  }
  put("My data", 1, 1, {"A", 1, 2});
  put("My data", 3, 1, {"C", 3, "?"});
  expectRefusal("'My data'!A1:A3,C1:C3", true, "Cell 'My data'!$C$3 holds the text \"?\"");
  book.Worksheets("Data").clear(CellBlock{1, 1, 100, 5});
  book.Worksheets("Data").storeRaw(40000, 2, "end");  // whole columns are read to the end of the data
  expectRefusal("Data!B:B", true, "Cell Data!$B$40000 holds the text \"end\"");
}

TEST_F(RangeChecksTest, OutputAreaIsHandedBackWhenFreeOrOverwrittenAndRefusedWhenOccupied) {
  put("Sheet1", 10, 1, {"right of the block"});  // J1
  put("Sheet1", 4, 11, {"below the block"});     // D11
  const struct {
    const char* reference;
    std::int32_t columns, rows;
    bool overWrite;
  } free[] = {{"Sheet1!D1:E2", 6, 10, false},  // only the top-left cell places the block; D1:I10 is empty
              {"Sheet1!J1", 2, 2, true},
              {"Sheet1!J1", 0, 5, false},
              {"Data!A1", 3, 3, false}};
  for (const auto& row : free) {
    const Range output = app.ResolveRange(row.reference);
    const Range back = RangeChecks::CheckOutputArea(output, row.columns, row.rows, row.overWrite);
    EXPECT_EQ(&back.Parent(), &output.Parent()) << row.reference;
    EXPECT_EQ(back.areas(), output.areas()) << row.reference;
  }
  const struct {
    const char* reference;
    std::int32_t columns, rows;
    std::vector<CellBlock> occupied;
    std::string message;
  } taken[] = {
      {"Sheet1!D1",
       6,
       10,
       {{3, 5, 3, 5}, {2, 9, 2, 9}, {10, 4, 10, 4}},  // first in reading order
       "The output area Sheet1!$D$1:$I$10 already holds data (first at $I$2)"},
      {"Sheet1!XFD1048575",
       3,
       3,
       {{1048576, 16384, 1048576, 16384}},  // cut at the sheet's edge
       "The output area Sheet1!$XFD$1048575:$XFD$1048576 already holds data (first at $XFD$1048576)"},
      {"'My data'!A1", 1, 1, {{1, 1, 1, 1}}, "The output area 'My data'!$A$1 already holds data (first at $A$1)"}};
  for (const auto& row : taken) {
    SCOPED_TRACE(row.reference);
    const Range output = app.ResolveRange(row.reference);
    output.Parent().clear(CellBlock{1, 1, kMaxRows, kMaxColumns});
    for (const CellBlock& cell : row.occupied) output.Parent().assignValue(cell.top, cell.left, 0);
    EXPECT_EQ(ExpectError(err::kOutputAreaOccupied, "Line 0 in ORVDescriptives.RangeChecks.CheckOutputArea",
                          [&] { RangeChecks::CheckOutputArea(output, row.columns, row.rows, false); }),
              row.message + "; choose another place or allow overwriting.");
  }
}

TEST_F(RangeChecksTest, CountVariablesCountsColumnsOrRowsOfEveryArea) {
  for (bool headers : {false, true}) {
    EXPECT_EQ(RangeChecks::CountVariables(app.ResolveRange("Data!A1:B5,D1:D5"), headers, false), 3);
    EXPECT_EQ(RangeChecks::CountVariables(app.ResolveRange("Data!A1:B5,D7:D9"), headers, true), 8);
    EXPECT_EQ(RangeChecks::CountVariables(app.ResolveRange("Data!A:B"), headers, true), kMaxRows);
  }
}

}  // namespace
}  // namespace orv
