#include "cli/used_cells.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "frame/errors.h"
#include "frame/host.h"
#include "frame/range.h"
#include "frame/reference.h"

namespace orv::cli {

std::string usedCells(Application& app, const std::string& reference) {
  if (reference.empty()) return reference;
  std::optional<Range> range;
  try {
    range = app.ResolveRange(reference);
  } catch (const ComponentError&) {
    return reference;
  }

  const std::optional<CellBlock> used = range->Parent().usedBlock();
  const std::int32_t lastRow = used ? used->bottom : 1;
  const std::int32_t lastColumn = used ? used->right : 1;
  bool cut = false;
  std::vector<CellBlock> areas = range->areas();
  for (CellBlock& area : areas) {
    // The top-left cell never moves: a used block that starts lower still ends the area there.
    if (area.wholeColumns()) {
      area.bottom = std::max(area.top, lastRow);
      cut = true;
    }
    if (area.wholeRows()) {
      area.right = std::max(area.left, lastColumn);
      cut = true;
    }
  }
  if (!cut) return reference;
  return quoteSheetName(range->Parent().Name()) + "!" + absoluteAddress(areas);
}

}  // namespace orv::cli
