#include "calc/extension/selection_reference.h"

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XSheetCellCursor.hpp>
#include <com/sun/star/sheet/XSheetCellRange.hpp>
#include <com/sun/star/sheet/XSheetCellRanges.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/view/XSelectionSupplier.hpp>

#include <vector>

#include "calc/uno_support.h"
#include "frame/reference.h"

namespace orv::extension {
namespace {

using css::table::CellRangeAddress;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

std::string sheetName(const Reference<css::frame::XModel>& document, sal_Int16 index) {
  const Reference<css::sheet::XSpreadsheetDocument> spreadsheet(document, UNO_QUERY_THROW);
  const Reference<css::container::XIndexAccess> sheets(spreadsheet->getSheets(), UNO_QUERY_THROW);
  return calc::fromUno(Reference<css::container::XNamed>(sheets->getByIndex(index), UNO_QUERY_THROW)->getName());
}

// The current region around a single selected cell.
CellRangeAddress regionAround(const Reference<css::sheet::XSheetCellRange>& cell) {
  const Reference<css::sheet::XSheetCellCursor> cursor = cell->getSpreadsheet()->createCursorByRange(cell);
  cursor->collapseToCurrentRegion();
  return Reference<css::sheet::XCellRangeAddressable>(cursor, UNO_QUERY_THROW)->getRangeAddress();
}

std::vector<CellRangeAddress> selectedAreas(const css::uno::Any& selection) {
  if (const Reference<css::sheet::XSheetCellRanges> ranges(selection, UNO_QUERY); ranges.is()) {
    const css::uno::Sequence<CellRangeAddress> all = ranges->getRangeAddresses();
    return {all.begin(), all.end()};
  }
  const Reference<css::sheet::XCellRangeAddressable> range(selection, UNO_QUERY);
  if (!range.is()) return {};
  CellRangeAddress area = range->getRangeAddress();
  if (area.StartRow == area.EndRow && area.StartColumn == area.EndColumn) {
    area = regionAround(Reference<css::sheet::XSheetCellRange>(selection, UNO_QUERY_THROW));
  }
  return {area};
}

}  // namespace

std::string selectionReference(const Reference<css::frame::XModel>& document) {
  try {
    const Reference<css::view::XSelectionSupplier> view(document->getCurrentController(), UNO_QUERY);
    if (!view.is()) return {};
    const std::vector<CellRangeAddress> areas = selectedAreas(view->getSelection());
    if (areas.empty()) return {};
    std::vector<CellBlock> blocks;
    for (const CellRangeAddress& a : areas) blocks.push_back(calc::blockOf(a));
    return quoteSheetName(sheetName(document, areas.front().Sheet)) + "!" + absoluteAddress(blocks);
  } catch (const css::uno::Exception&) {
    return {};  // an input field left empty is no failure: the user types the reference
  }
}

}  // namespace orv::extension
