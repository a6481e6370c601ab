#pragma once
// Shared by the descriptive, frequency and circular tests: an in-memory host with the user
// workbook "Book1.xlsx" (sheet "Data") attached to the component, and readers of pasted cells.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "frame/conversions.h"
#include "frame/errors.h"
#include "support/host_session.h"
#include "workbook/in_memory_application.h"

namespace orv {
inline void PrintTo(const CellValue& v, std::ostream* os) { *os << describe(v); }
}  // namespace orv

namespace orv::test {

using Lines = std::vector<std::string>;
using Cells = std::vector<CellValue>;

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

class DriverTest : public ::testing::Test {
 protected:
  DriverTest() : book(app.AddWorkbook("Book1.xlsx", {"Data"})), data(book.Worksheets("Data")) {
    HostSession::Attach(&app);
  }
  ~DriverTest() override { HostSession::Attach(nullptr); }

  // Fills column `col` from row `top` down; an empty value leaves the cell as it is.
  void column(std::int32_t col, std::int32_t top, const Cells& values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (!values[i].isEmpty()) data.storeRaw(top + static_cast<std::int32_t>(i), col, values[i]);
    }
  }
  static Cells down(Worksheet& sheet, std::int32_t col, std::int32_t top, std::int32_t bottom) {
    Cells out;
    for (std::int32_t r = top; r <= bottom; ++r) out.push_back(sheet.cellValue(r, col));
    return out;
  }
  static double number(Worksheet& sheet, std::int32_t row, std::int32_t col) {
    const CellValue v = sheet.cellValue(row, col);
    EXPECT_TRUE(v.isNumber()) << "R" << row << "C" << col << " holds " << describe(v);
    return v.isNumber() ? v.number() : std::nan("");
  }
  // Every row of the block as its cells' texts joined by "|", trailing empty cells left out.
  static Lines lines(Worksheet& sheet, const CellBlock& block) {
    Lines out;
    for (std::int32_t r = block.top; r <= block.bottom; ++r) {
      std::vector<std::string> texts;
      for (std::int32_t c = block.left; c <= block.right; ++c) texts.push_back(toText(sheet.cellValue(r, c)));
      while (!texts.empty() && texts.back().empty()) texts.pop_back();
      std::string line;
      for (std::size_t i = 0; i < texts.size(); ++i) line += (i > 0 ? "|" : "") + texts[i];
      out.push_back(line);
    }
    return out;
  }
  // Everything the sheet holds, from A1 to the last used cell.
  static Lines sheetLines(Worksheet& sheet) {
    const std::optional<CellBlock> used = sheet.usedBlock();
    return used ? lines(sheet, CellBlock{1, 1, used->bottom, used->right}) : Lines{};
  }
  Worksheet& lastSheet() { return book.Worksheets(book.WorksheetsCount()); }
  Worksheet& scratch() { return app.Workbooks("Orvella.xla").Worksheets("Results"); }

  InMemoryApplication app;
  InMemoryWorkbook& book;
  InMemoryWorksheet& data;
};

}  // namespace orv::test
