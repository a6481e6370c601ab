#pragma once
// Shared by the circular tests: an in-memory host with the user workbook "Book1.xlsx" (sheet
// "Data") attached to the component, and small builders.

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "circular/clsDSCircBO.h"
#include "frame/errors.h"
#include "support/host_session.h"
#include "workbook/in_memory_application.h"

namespace orv {
inline void PrintTo(const CellValue& v, std::ostream* os) { *os << describe(v); }
}  // namespace orv

namespace orv::test {

inline ValueArray2D column(const std::vector<CellValue>& values) {
  ValueArray2D out(static_cast<std::int32_t>(values.size()), 1);
  for (std::size_t i = 0; i < values.size(); ++i) out(static_cast<std::int64_t>(i) + 1, 1) = values[i];
  return out;
}

inline clsDSCircBO engineOf(const std::vector<double>& degrees) {
  clsDSCircBO bo;
  bo.Data(column(std::vector<CellValue>(degrees.begin(), degrees.end())));
  return bo;
}

inline bool isNotAvailable(const CellValue& v) { return v.isText() && v.text() == "n/a"; }
inline std::string source(const std::string& where) { return "Line 0 in ORVDescriptives." + where; }

template <class Call>
ComponentError errorOf(Call&& call) {
  try {
    call();
  } catch (const ComponentError& e) {
    return e;
  }
  ADD_FAILURE() << "no error raised";
  return ComponentError(0, "", "");
}

class CircularTest : public ::testing::Test {
 protected:
  CircularTest() : book(app.AddWorkbook("Book1.xlsx", {"Data"})), data(book.Worksheets("Data")) {
    HostSession::Attach(&app);
  }
  ~CircularTest() override { HostSession::Attach(nullptr); }

  // Column `col` from row `top` down.
  void fill(std::int32_t col, std::int32_t top, const std::vector<CellValue>& values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      data.storeRaw(top + static_cast<std::int32_t>(i), col, values[i]);
    }
  }
  // Column `col` of `sheet` from row `top` to `bottom`.
  static std::vector<CellValue> down(Worksheet& sheet, std::int32_t col, std::int32_t top,
                                     std::int32_t bottom) {
    std::vector<CellValue> out;
    for (std::int32_t r = top; r <= bottom; ++r) out.push_back(sheet.cellValue(r, col));
    return out;
  }
  Worksheet& lastSheet() { return book.Worksheets(book.WorksheetsCount()); }
  Worksheet& scratch() { return app.Workbooks("Orvella.xla").Worksheets("Results"); }

  InMemoryApplication app;
  InMemoryWorkbook& book;
  InMemoryWorksheet& data;
};

}  // namespace orv::test
