#pragma once
// The unsorted frequency table of column 1 of an array: one row per distinct value, in order of
// first appearance, {value, count} with the count as a number.
//
// Values are grouped by the platform's cell-value equality: numbers by value (so -0 joins 0),
// a Boolean with the number it stands for (True = -1), texts byte for byte, never a number with a
// text. Row 1 of the array is entered even when empty, and then also collects every later 0,
// False and "" (all equal to an empty value); later empty cells are skipped. An error value that
// would be compared with another value raises "Type mismatch" (13); an array without a row 1 or
// a column 1 raises "Subscript out of range" (9).
//
// Linear in the number of rows: a sorted column of numbers is run-length counted, anything
// else grouped through hash maps.

#include <vector>

#include "frame/value_array.h"

namespace orv::detail {

struct FrequencyGroup {
  CellValue value;
  double count;
};

// The groups in order of first appearance.
std::vector<FrequencyGroup> frequencyGroups(const ValueArray2D& data);

// The same as a table: rows 1..m, {value, count}.
ValueArray2D frequencyTable(const ValueArray2D& data);

}  // namespace orv::detail
