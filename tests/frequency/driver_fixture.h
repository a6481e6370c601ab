#pragma once
// A host with one user workbook "Book1.xlsx" (sheet "Data") attached to the component, and
// helpers to fill input cells and read back what an analysis pasted.

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "frame/conversions.h"
#include "frame/errors.h"
#include "support/host_session.h"
#include "workbook/in_memory_application.h"

namespace orv {
// Readable values in test failures.
inline void PrintTo(const CellValue& v, std::ostream* os) { *os << describe(v); }
}  // namespace orv

namespace orv::test {

using Lines = std::vector<std::string>;

class FreqDriverTest : public ::testing::Test {
 protected:
  FreqDriverTest() : book(app.AddWorkbook("Book1.xlsx", {"Data"})), data(book.Worksheets("Data")) {
    HostSession::Attach(&app);
  }
  ~FreqDriverTest() override { HostSession::Attach(nullptr); }

  // Fills column `col` from row `top` down, as a file reader stores cells; an empty value leaves
  // the cell empty.
  void column(std::int32_t col, std::int32_t top, const std::vector<CellValue>& values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (!values[i].isEmpty()) data.storeRaw(top + static_cast<std::int32_t>(i), col, values[i]);
    }
  }

  // Every row of the block as its cells' texts joined by "|", trailing empty cells left out:
  // "Column A|N|Cum. N|%|Cum. %".
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
    if (!used) return {};
    return lines(sheet, CellBlock{1, 1, used->bottom, used->right});
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
