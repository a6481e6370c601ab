#pragma once
// A host with one user workbook "Book1.xlsx" (sheet "Data") attached to the component, and
// helpers to read back what an analysis pasted.

#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <string>
#include <vector>

#include "frame/errors.h"
#include "support/host_session.h"
#include "workbook/in_memory_application.h"

namespace orv {
// Readable values in test failures.
inline void PrintTo(const CellValue& v, std::ostream* os) { *os << describe(v); }
}  // namespace orv

namespace orv::test {

class DriverTest : public ::testing::Test {
 protected:
  DriverTest() : book(app.AddWorkbook("Book1.xlsx", {"Data"})), data(book.Worksheets("Data")) {
    HostSession::Attach(&app);
  }
  ~DriverTest() override { HostSession::Attach(nullptr); }

  // Fills one column from row `top` down; NaN stands for an empty cell.
  void column(std::int32_t col, std::int32_t top, const std::vector<double>& values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (!std::isnan(values[i])) data.storeRaw(top + static_cast<std::int32_t>(i), col, values[i]);
    }
  }

  // Column 1 (labels) of a written table, from sheet row `top` to `bottom`.
  static std::vector<std::string> labels(Worksheet& sheet, std::int32_t top, std::int32_t bottom,
                                         std::int32_t col = 1) {
    std::vector<std::string> out;
    for (std::int32_t r = top; r <= bottom; ++r) {
      const CellValue v = sheet.cellValue(r, col);
      out.push_back(v.isText() ? v.text() : "<" + describe(v) + ">");
    }
    return out;
  }

  static double number(Worksheet& sheet, std::int32_t row, std::int32_t col) {
    const CellValue v = sheet.cellValue(row, col);
    EXPECT_TRUE(v.isNumber()) << "R" << row << "C" << col << " holds " << describe(v);
    return v.isNumber() ? v.number() : std::nan("");
  }

  // The sheet the last analysis added at the end of the workbook.
  Worksheet& lastSheet() { return book.Worksheets(book.WorksheetsCount()); }

  template <class Call>
  static ComponentError errorOf(Call&& call) {
    try {
      call();
    } catch (const ComponentError& e) {
      return e;
    }
    ADD_FAILURE() << "no error raised";
    return ComponentError(0, "", "");
  }

  InMemoryApplication app;
  InMemoryWorkbook& book;
  InMemoryWorksheet& data;
};

}  // namespace orv::test
