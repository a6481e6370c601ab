#pragma once
// ArrayTools: sorting and reshaping of one-based arrays of cell values.

#include <cstdint>
#include <vector>

#include "frame/value_array.h"

namespace orv {

class ArrayTools {
 public:
  // Sorts the rows of `table` in place, ascending by `keyColumn`. Stable. Order of kinds:
  // numbers, then texts (byte-wise), then Booleans (False before True), then error values, and
  // every empty cell after all of them. n log n.
  static void SortRows(ValueArray2D& table, std::int32_t keyColumn);

  // The first `m` rows of `table`, all columns kept. "Subscript out of range" for m beyond the
  // table or below 1.
  static ValueArray2D FirstRows(const ValueArray2D& table, std::int32_t m);

  // A column of numbers: rows 1..n, column 1.
  static ValueArray2D FromDoubles(const std::vector<double>& values);

  // `first` and `second` side by side, first's columns first. The result has as many rows as the
  // longer one; the shorter is padded with empty cells.
  static ValueArray2D Join(const ValueArray2D& first, const ValueArray2D& second);
  // All of `parts` side by side in their order: what joining them one by one gives, in one copy
  // instead of one per part.
  static ValueArray2D JoinAll(const std::vector<ValueArray2D>& parts);

  // Largest and smallest number among the array's cells (every cell converted as a number:
  // empty as 0, text that is no number raises "Type mismatch"). "Subscript out of range" for an
  // empty array.
  static double MaxOf(const ValueArray2D& values);
  static double MinOf(const ValueArray2D& values);
};

}  // namespace orv
