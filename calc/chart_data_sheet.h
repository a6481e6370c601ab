#pragma once
// ChartDataSheet: a hidden sheet of a user workbook that holds what a chart shows but no cell of
// the workbook holds (error amounts, category labels and curve values given as literal lists):
// the office's charts take their data from cells only. Each list gets a column of its own, from
// row 1 down; the sheet is made on first use, at the end of the document, and is not among the
// workbook's worksheets. A workbook saved with it keeps it, hidden; opened again, its columns
// are kept and new lists go to the right of them.

#include <com/sun/star/sheet/XSpreadsheet.hpp>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "calc/uno_support.h"
#include "frame/cell_value.h"

namespace orv::calc {

class CalcWorkbook;

class ChartDataSheet {
 public:
  static constexpr std::string_view kName = "Orvella Chart Data";
  static bool isChartDataSheet(std::string_view name);

  explicit ChartDataSheet(CalcWorkbook& book) : book_(&book) {}

  // Writes the values down a new column and returns their range in the office's notation.
  // Numbers and texts are written as they are, anything else leaves its cell empty.
  std::string store(const std::vector<CellValue>& values);

 private:
  void open();

  CalcWorkbook* book_;
  css::uno::Reference<css::sheet::XSpreadsheet> sheet_;
  std::int32_t nextColumn_ = 1;
};

}  // namespace orv::calc
