#pragma once
// How a written results block is shown: as an aligned table for people, or as JSON.

#include <string>

#include <nlohmann/json.hpp>

#include "frame/value_array.h"

namespace orv::cli {

// Labels left, numbers right with up to 6 significant digits, texts ("-", the mode) right in
// value columns; columns separated by two blanks; trailing blanks trimmed.
std::string formatTable(const ValueArray2D& block);

// Row by row; empty cells null, numbers at full precision, Booleans as JSON Booleans, error
// values as their text.
nlohmann::json blockToJson(const ValueArray2D& block);

}  // namespace orv::cli
