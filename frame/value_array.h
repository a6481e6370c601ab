#pragma once
// One-based arrays of cell values that carry column data between the host and the engines.
// Indexing outside the bounds raises "Subscript out of range" (9), as the platform does.

#include <cstdint>
#include <vector>

#include "frame/cell_value.h"

namespace orv {

[[noreturn]] void raiseSubscript();

// rows 1..rows() by columns 1..columns(), stored row by row.
class ValueArray2D {
 public:
  ValueArray2D() = default;
  ValueArray2D(std::int32_t rows, std::int32_t columns);

  std::int32_t rows() const { return rows_; }
  std::int32_t columns() const { return columns_; }
  bool empty() const { return rows_ == 0 || columns_ == 0; }

  CellValue& operator()(std::int64_t row, std::int64_t column) { return cells_[index(row, column)]; }
  const CellValue& operator()(std::int64_t row, std::int64_t column) const { return cells_[index(row, column)]; }

  // Row-major storage, for hot loops that have already checked their bounds.
  std::vector<CellValue>& cells() { return cells_; }
  const std::vector<CellValue>& cells() const { return cells_; }

  // Keeps the first `rows` rows (all columns); rows must not exceed rows().
  void truncateRows(std::int32_t rows);

  friend bool operator==(const ValueArray2D&, const ValueArray2D&) = default;

 private:
  std::size_t index(std::int64_t row, std::int64_t column) const {
    if (row < 1 || row > rows_ || column < 1 || column > columns_) raiseSubscript();
    return static_cast<std::size_t>((row - 1) * columns_ + (column - 1));
  }

  std::int32_t rows_ = 0;
  std::int32_t columns_ = 0;
  std::vector<CellValue> cells_;
};

// Elements 1..size().
template <class T>
class Array1D {
 public:
  Array1D() = default;
  explicit Array1D(std::int32_t size) : items_(static_cast<std::size_t>(size)) {}
  explicit Array1D(std::vector<T> items) : items_(std::move(items)) {}

  std::int32_t size() const { return static_cast<std::int32_t>(items_.size()); }
  T& operator()(std::int64_t i) { return items_[index(i)]; }
  const T& operator()(std::int64_t i) const { return items_[index(i)]; }
  const std::vector<T>& items() const { return items_; }
  std::vector<T>& items() { return items_; }

  friend bool operator==(const Array1D&, const Array1D&) = default;

 private:
  std::size_t index(std::int64_t i) const {
    if (i < 1 || i > size()) raiseSubscript();
    return static_cast<std::size_t>(i - 1);
  }
  std::vector<T> items_;
};

using ValueArray1D = Array1D<CellValue>;

}  // namespace orv
