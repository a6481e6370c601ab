#pragma once
// How a written results block is shown: as an aligned table for people, or as JSON.

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "frame/value_array.h"

namespace orv::cli {

// Labels left, numbers right as a General cell shows them (up to 15 significant digits, no
// exponent for ordinary magnitudes), texts ("-", the mode) right in value columns; columns
// separated by two blanks and aligned by display width (cli/display_width.h); trailing blanks
// trimmed.
//
// With `numberFormats` (row by row, one per cell of the block) a number is shown as its format
// says where the format is one the analyses write: "0" and "0.00" (fixed decimals), and a leading
// mark such as "<" or ">=" before them or "General" (the frequency tables' open categories).
// Any other format shows the number as without one.
std::string formatTable(const ValueArray2D& block, const std::vector<std::string>* numberFormats = nullptr);

// Row by row; empty cells null, numbers at full precision, Booleans as JSON Booleans, error
// values as their text.
nlohmann::ordered_json blockToJson(const ValueArray2D& block);

}  // namespace orv::cli
