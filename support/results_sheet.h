#pragma once
// The add-in's own scratch sheet ("Results" in its workbook "Orvella.xla"), on which the results
// writers build a block before the driver copies it to its place.

#include <cstdint>

#include "frame/range.h"

namespace orv {

// The scratch sheet, emptied of values and formats and filled with the background colour.
Worksheet& clearedResultsSheet(std::int32_t backgroundColorIndex);

// The block from (top, left) to (bottom, right) of a sheet, one-based; outside the sheet is a
// host failure naming the cells.
Range sheetCells(Worksheet& sheet, std::int32_t top, std::int32_t left, std::int32_t bottom, std::int32_t right);

}  // namespace orv
