#pragma once
// The add-in's own scratch sheet ("Results" in its workbook "Orvella.xla"), on which the results
// writers build a block, and the paste that takes a finished block to its place.

#include <cstdint>
#include <optional>

#include "frame/range.h"

namespace orv {

// The scratch sheet, emptied of values and formats and filled with the background colour.
Worksheet& clearedResultsSheet(std::int32_t backgroundColorIndex);

// The block from (top, left) to (bottom, right) of a sheet, one-based; outside the sheet is a
// host failure naming the cells.
Range sheetCells(Worksheet& sheet, std::int32_t top, std::int32_t left, std::int32_t bottom, std::int32_t right);

struct PastedResults {
  Range cells;
  bool ownSheet;  // on a sheet added for them
};

// Takes a finished block to its place: without an output range, cell A1 of a new sheet added
// behind the last sheet of its workbook; the destination checked for room
// (RangeChecks::CheckOutputArea with `overWrite`), its workbook and sheet activated, the block
// copied and pasted at the destination's first cell. `output` becomes the checked destination;
// returns the pasted cells.
PastedResults pasteResults(const Range& block, std::optional<Range>& output, bool overWrite);

}  // namespace orv
