#pragma once
// RangeChecks: acceptance of input columns and preparation of output places.
//
// Errors are the support services' own numbers (errors.h): kInputColumnNotNumeric names the first
// offending cell by sheet and address and says what it holds; kOutputAreaOccupied names the
// occupied area.

#include <cstdint>

#include "frame/range.h"

namespace orv {

class RangeChecks {
 public:
  // Refuses a column whose data cells (below the first cell when `headers`) hold a text, a
  // Boolean or an error value. Empty cells pass. Every area is checked, column by column, top to
  // bottom; the error names the first such cell. Only the part inside the sheet's used block is
  // read, so whole columns cost what their data cost.
  static void CheckInputColumn(const Range& column, bool headers);

  // The block of `columns` x `rows` cells whose top-left cell is the output range's top-left cell.
  // When `overWrite` is false and any cell of that block holds a value, raises
  // kOutputAreaOccupied, naming the block and its first occupied cell in reading order. The block
  // is cut at the sheet's edge. Returns the output range unchanged; the caller pastes at its
  // top-left cell.
  static Range CheckOutputArea(const Range& output, std::int32_t columns, std::int32_t rows, bool overWrite);

  // The number of variables in a range: its columns (over all areas), or its rows with
  // `dataInRows`. `headers` does not change the count.
  static std::int32_t CountVariables(const Range& range, bool headers, bool dataInRows);
};

}  // namespace orv
