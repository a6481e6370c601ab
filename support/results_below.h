#pragma once
// Room below pasted results for numbers that a chart shows and no table cell holds (the
// histogram's labels and normal curve, the error plot's bar lengths). They go into cells, under a
// heading one empty row below the last row of the block that holds anything, so that every
// reader draws them and people can check and edit them. They go there only when those cells are
// free; the caller then keeps the numbers in the chart itself.

#include <cstdint>
#include <optional>

#include "frame/range.h"

namespace orv {

// The last row of the block (1-based within it) that holds anything: a written block ends with
// empty rows. 0 for an empty block.
std::int32_t lastUsedRow(const Range& block);

// Rows top..bottom and columns left..right counted from the origin cell (1-based), when they lie
// on the sheet and all their cells are empty; nothing otherwise (results pasted above the user's
// own cells, or a second run into the same place finding the first run's numbers).
std::optional<Range> freeCellsBelow(const Range& origin, std::int64_t top, std::int32_t left, std::int64_t bottom,
                                    std::int32_t right);

}  // namespace orv
