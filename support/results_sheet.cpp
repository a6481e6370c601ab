#include "support/results_sheet.h"

#include "frame/host.h"
#include "support/host_constants.h"
#include "support/host_session.h"
#include "support/range_checks.h"

namespace orv {

Worksheet& clearedResultsSheet(std::int32_t backgroundColorIndex) {
  Worksheet& sheet = HostSession::Application().Workbooks("Orvella.xla").Worksheets("Results");
  const Range all = Range::AllCells(sheet);
  all.Clear();
  all.SetInteriorColorIndex(backgroundColorIndex);
  return sheet;
}

Range sheetCells(Worksheet& sheet, std::int32_t top, std::int32_t left, std::int32_t bottom, std::int32_t right) {
  const Range origin(sheet, CellBlock{1, 1, 1, 1});
  return Range::Span(origin.Cells(top, left), origin.Cells(bottom, right));
}

PastedResults pasteResults(const Range& block, std::optional<Range>& output, bool overWrite) {
  const bool ownSheet = !output;
  if (!output) {
    Worksheet& added = HostSession::Application().AddWorksheet();
    Workbook& book = added.Parent();
    added.MoveAfter(book.Worksheets(book.WorksheetsCount()));
    output = Range(added, CellBlock{1, 1, 1, 1});
  }
  output = RangeChecks::CheckOutputArea(*output, block.ColumnsCount(), block.RowsCount(), overWrite);
  output->Parent().Parent().Activate();
  output->Parent().Activate();
  block.Copy();
  output->Cells(1, 1).PasteSpecial(HostConstants::PasteType());
  return {Range::Span(output->Cells(1, 1), output->Cells(block.RowsCount(), block.ColumnsCount())), ownSheet};
}

}  // namespace orv
