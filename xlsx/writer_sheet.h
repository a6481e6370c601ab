#pragma once
// The worksheet part for a sheet of the host model, written whole (a new sheet of the package).
//
// Written: the used range (dimension), one sheet view (selected or not, with the model's
// selection when it is not just A1), the default row height pinned (customHeight="1": chart
// placement on the sheet relies on the model's row heights), column widths and column formats,
// every non-empty cell and every cell whose format differs from its column's, custom row
// heights, page margins, and optionally a <drawing r:id> for the sheet's drawing part.
// Widths convert from points as for the default font (7 px maximum digit width at 96 dpi).

#include <optional>
#include <string>

namespace orv {

class InMemoryWorksheet;
class StyleSheet;

struct SheetPartOptions {
  bool tabSelected = false;
  // The relationship id (in the sheet's rels part) of its drawing; none for a sheet without.
  std::optional<std::string> drawingRelationshipId;
};

std::string worksheetXml(const InMemoryWorksheet& sheet, StyleSheet& styles, const SheetPartOptions& options);

}  // namespace orv
