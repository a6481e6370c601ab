#include "support/results_sheet.h"

#include "frame/host.h"
#include "support/host_session.h"

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

}  // namespace orv
