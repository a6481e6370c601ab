#pragma once
// Small one-based tables of cell values and an error expectation for the support tests.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "frame/errors.h"
#include "frame/value_array.h"

namespace orv::test {

inline const CellValue kEmpty;

inline ValueArray2D Table(std::initializer_list<std::vector<CellValue>> rows) {
  ValueArray2D out(static_cast<std::int32_t>(rows.size()), static_cast<std::int32_t>(rows.begin()->size()));
  std::vector<CellValue>& cells = out.cells();
  cells.clear();
  for (const std::vector<CellValue>& row : rows) cells.insert(cells.end(), row.begin(), row.end());
  EXPECT_EQ(cells.size(), static_cast<std::size_t>(out.rows()) * rows.begin()->size()) << "rows of unequal width";
  return out;
}

inline ValueArray2D Column(std::initializer_list<CellValue> cells) {
  ValueArray2D out(static_cast<std::int32_t>(cells.size()), 1);
  std::copy(cells.begin(), cells.end(), out.cells().begin());
  return out;
}

// Runs `body` and expects it to raise `number` with `source`; returns the description.
template <class Body>
std::string ExpectError(std::int32_t number, const std::string& source, Body&& body) {
  try {
    body();
  } catch (const ComponentError& e) {
    EXPECT_EQ(e.number(), number);
    EXPECT_EQ(e.source(), source);
    return e.description();
  }
  ADD_FAILURE() << "no error raised; expected " << number;
  return {};
}

}  // namespace orv::test
