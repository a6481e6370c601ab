#include "frame/value_array.h"

#include "frame/errors.h"

namespace orv {

void raiseSubscript() { raise(err::kSubscriptOutOfRange); }

ValueArray2D::ValueArray2D(std::int32_t rows, std::int32_t columns) {
  if (rows < 0 || columns < 0) raiseSubscript();
  rows_ = rows;
  columns_ = columns;
  cells_.resize(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns));
}

void ValueArray2D::truncateRows(std::int32_t rows) {
  if (rows < 0 || rows > rows_) raiseSubscript();
  rows_ = rows;
  cells_.resize(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns_));
}

}  // namespace orv
