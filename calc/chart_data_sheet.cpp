#include "calc/chart_data_sheet.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/sheet/XSheetCellCursor.hpp>
#include <com/sun/star/sheet/XUsedAreaCursor.hpp>

#include "calc/calc_workbook.h"
#include "calc/office_notation.h"
#include "frame/errors.h"

namespace orv::calc {

using css::uno::Any;
using css::uno::UNO_QUERY_THROW;

bool ChartDataSheet::isChartDataSheet(std::string_view name) { return sameSheetName(name, kName); }

void ChartDataSheet::open() {
  const Reference<css::sheet::XSpreadsheets> sheets = book_->document()->getSheets();
  const OUString name = toUno(kName);
  if (sheets->hasByName(name)) {
    sheet_.set(sheets->getByName(name), UNO_QUERY_THROW);
    const Reference<css::sheet::XSheetCellCursor> cursor = sheet_->createCursor();
    Reference<css::sheet::XUsedAreaCursor>(cursor, UNO_QUERY_THROW)->gotoEndOfUsedArea(false);
    nextColumn_ =
        Reference<css::sheet::XCellRangeAddressable>(cursor, UNO_QUERY_THROW)->getRangeAddress().EndColumn + 2;
    return;
  }
  const sal_Int16 last =
      static_cast<sal_Int16>(Reference<css::container::XIndexAccess>(sheets, UNO_QUERY_THROW)->getCount());
  sheets->insertNewByName(name, last);
  sheet_.set(sheets->getByName(name), UNO_QUERY_THROW);
  Reference<css::beans::XPropertySet>(sheet_, UNO_QUERY_THROW)->setPropertyValue("IsVisible", Any(false));
}

std::string ChartDataSheet::store(const std::vector<CellValue>& values) {
  if (values.empty()) raiseHost("A chart cannot show an empty list of values");
  return remote("keep a chart's values in the sheet \"" + std::string(kName) + "\"", [&] {
    if (!sheet_.is()) open();
    if (nextColumn_ > kMaxColumns) raiseHost("The sheet of chart data is full");
    const CellBlock block{1, nextColumn_, static_cast<std::int32_t>(values.size()), nextColumn_};
    css::uno::Sequence<css::uno::Sequence<Any>> rows(block.rows());
    for (std::size_t i = 0; i < values.size(); ++i) {
      css::uno::Sequence<Any> row(1);
      const CellValue& v = values[i];
      row.getArray()[0] = v.isNumber() ? Any(v.number()) : Any(v.isText() ? toUno(v.text()) : OUString());
      rows.getArray()[i] = row;
    }
    const Reference<css::sheet::XCellRangeData> range(
        sheet_->getCellRangeByPosition(block.left - 1, 0, block.left - 1, block.bottom - 1), UNO_QUERY_THROW);
    range->setDataArray(rows);
    ++nextColumn_;
    return officeRange(kName, block);
  });
}

}  // namespace orv::calc
