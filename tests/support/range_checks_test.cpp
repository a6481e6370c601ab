#include "support/range_checks.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/host.h"
#include "test_util.h"
#include "workbook/in_memory_application.h"

namespace orv {
namespace {

using test::ExpectError;

const CellValue kEmpty;
const std::string kNotNumericTail = "; only numbers and empty cells can be analysed.";
const std::string kCheckInputSource = "Line 0 in ORVDescriptives.RangeChecks.CheckInputColumn";
const std::string kCheckOutputSource = "Line 0 in ORVDescriptives.RangeChecks.CheckOutputArea";

class RangeChecksTest : public ::testing::Test {
 protected:
  RangeChecksTest() : book_(app_.AddWorkbook("Book1.xlsx", {"Data", "Sheet1", "My data"})) {}

  InMemoryWorksheet& sheet(const char* name) { return book_.Worksheets(name); }
  // Cells go in as a file reader stores them, so a text such as "12" stays a text.
  void put(const char* sheetName, std::int32_t column, std::int32_t firstRow,
           const std::vector<CellValue>& cells) {
    for (std::size_t i = 0; i < cells.size(); ++i)
      sheet(sheetName).storeRaw(firstRow + static_cast<std::int32_t>(i), column, cells[i]);
  }
  Range range(const char* reference) { return app_.ResolveRange(reference); }

  InMemoryApplication app_;
  InMemoryWorkbook& book_;
};

TEST_F(RangeChecksTest, InputColumnAcceptsOnlyNumbersAndEmptyCells) {
  const struct { const char* name; std::vector<CellValue> cells; bool headers; std::string refusal; } rows[] = {  // B1 down
      {"header above numbers", {"Weight", 1.5, kEmpty, -2, 1e300}, true, ""},
      {"text header read as data", {"Weight", 1.5, 2}, false, "Cell Data!$B$1 holds the text \"Weight\""},
      {"nothing but a header", {"Weight"}, true, ""},
      {"nothing at all", {}, true, ""},
      {"number stored as text", {"W", 1, "12"}, true, "Cell Data!$B$3 holds the text \"12\""},
      {"error value", {"W", ErrorValue::Div0, 1}, true, "Cell Data!$B$2 holds the error value #DIV/0!"},
      {"first offender named", {"W", kEmpty, false, "x"}, true, "Cell Data!$B$3 holds the Boolean False"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    sheet("Data").clear(CellBlock{1, 1, 100, 5});
    put("Data", 2, 1, row.cells);
    put("Data", 1, 1, {"label", "a", "b"});  // neighbouring columns must not matter
    put("Data", 3, 1, {"label", "c", ErrorValue::NA});
    const Range column = range("Data!B1:B20");
    if (row.refusal.empty()) {
      EXPECT_NO_THROW(RangeChecks::CheckInputColumn(column, row.headers));
    } else {
      EXPECT_EQ(ExpectError(err::kInputColumnNotNumeric, kCheckInputSource,
                            [&] { RangeChecks::CheckInputColumn(column, row.headers); }),
                row.refusal + kNotNumericTail);
    }
  }
}

TEST_F(RangeChecksTest, InputColumnNamesQuotedSheetsLaterAreasAndFarRows) {
  put("My data", 1, 1, {"A", 1, 2});
  put("My data", 3, 1, {"C", 3, "?"});
  EXPECT_EQ(ExpectError(err::kInputColumnNotNumeric, kCheckInputSource,
                        [&] { RangeChecks::CheckInputColumn(range("'My data'!A1:A3,C1:C3"), true); }),
            "Cell 'My data'!$C$3 holds the text \"?\"" + kNotNumericTail);
  put("Data", 2, 1, {"Weight", 3, 4});
  EXPECT_NO_THROW(RangeChecks::CheckInputColumn(range("Data!B:B"), true));
  sheet("Data").storeRaw(40000, 2, "end");
  EXPECT_EQ(ExpectError(err::kInputColumnNotNumeric, kCheckInputSource,
                        [&] { RangeChecks::CheckInputColumn(range("Data!B:B"), true); }),
            "Cell Data!$B$40000 holds the text \"end\"" + kNotNumericTail);
}

TEST_F(RangeChecksTest, OutputAreaFreeOrOverwrittenIsHandedBack) {
  put("Sheet1", 10, 1, {"right of the block"});  // J1
  put("Sheet1", 4, 11, {"below the block"});     // D11
  const struct { const char* reference; std::int32_t columns, rows; bool overWrite; } rows[] = {
      {"Sheet1!D1:E2", 6, 10, false},  // only the top-left cell places the block; D1:I10 is empty
      {"Sheet1!J1", 2, 2, true},       // occupied, but overwriting is allowed
      {"Sheet1!J1", 0, 5, false},      // nothing to paste
      {"Data!A1", 3, 3, false}};       // other sheets do not count
  for (const auto& row : rows) {
    SCOPED_TRACE(row.reference);
    const Range output = range(row.reference);
    const Range back = RangeChecks::CheckOutputArea(output, row.columns, row.rows, row.overWrite);
    EXPECT_EQ(&back.Parent(), &output.Parent());
    EXPECT_EQ(back.areas(), output.areas());
  }
}

TEST_F(RangeChecksTest, OccupiedOutputAreaIsRefused) {
  const struct { const char* reference; std::int32_t columns, rows; std::vector<CellBlock> occupied; std::string message; } rows[] = {
      {"Sheet1!D1", 6, 10, {{3, 5, 3, 5}, {2, 9, 2, 9}, {10, 4, 10, 4}},  // first in reading order
       "The output area Sheet1!$D$1:$I$10 already holds data (first at $I$2)"},
      {"Sheet1!B2:C3", 2, 2, {{3, 3, 3, 3}}, "The output area Sheet1!$B$2:$C$3 already holds data (first at $C$3)"},
      {"Sheet1!XFD1048575", 3, 3, {{1048576, 16384, 1048576, 16384}},  // cut at the sheet's edge
       "The output area Sheet1!$XFD$1048575:$XFD$1048576 already holds data (first at $XFD$1048576)"},
      {"'My data'!A1", 1, 1, {{1, 1, 1, 1}}, "The output area 'My data'!$A$1 already holds data (first at $A$1)"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.reference);
    const Range output = range(row.reference);
    Worksheet& target = output.Parent();
    target.clear(CellBlock{1, 1, kMaxRows, kMaxColumns});
    for (const CellBlock& cell : row.occupied) target.assignValue(cell.top, cell.left, 0);
    EXPECT_EQ(ExpectError(err::kOutputAreaOccupied, kCheckOutputSource,
                          [&] { RangeChecks::CheckOutputArea(output, row.columns, row.rows, false); }),
              row.message + "; choose another place or allow overwriting.");
  }
}

TEST_F(RangeChecksTest, CountVariablesCountsColumnsOrRowsOfEveryArea) {
  const struct { const char* reference; bool dataInRows; std::int32_t expected; } rows[] = {
      {"Data!A1:C10", false, 3}, {"Data!A1:C10", true, 10}, {"Data!A1:B5,D1:D5", false, 3},
      {"Data!A1:B5,D7:D9", true, 8}, {"Data!A:B", false, 2}, {"Data!A:B", true, kMaxRows}};
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.reference) + (row.dataInRows ? " in rows" : " in columns"));
    for (bool headers : {false, true}) {
      EXPECT_EQ(RangeChecks::CountVariables(range(row.reference), headers, row.dataInRows), row.expected);
    }
  }
}

}  // namespace
}  // namespace orv
