#pragma once
// Small one-based tables of cell values and an error expectation for the support tests.

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "frame/errors.h"
#include "frame/value_array.h"

namespace orv::test {

inline ValueArray2D Table(std::initializer_list<std::vector<CellValue>> rows) {
  const auto columns = rows.size() == 0 ? 0 : static_cast<std::int32_t>(rows.begin()->size());
  ValueArray2D out(static_cast<std::int32_t>(rows.size()), columns);
  std::int32_t r = 1;
  for (const std::vector<CellValue>& row : rows) {
    for (std::int32_t c = 1; c <= columns; ++c) out(r, c) = row.at(static_cast<std::size_t>(c - 1));
    ++r;
  }
  return out;
}

inline ValueArray2D Column(std::initializer_list<CellValue> cells) {
  ValueArray2D out(static_cast<std::int32_t>(cells.size()), 1);
  std::int32_t r = 1;
  for (const CellValue& v : cells) out(r++, 1) = v;
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
