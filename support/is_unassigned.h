#pragma once
// Whether a stored value was ever given: the frequency engine tells given inputs from absent ones
// by it.

#include <optional>

#include "frame/cell_value.h"

namespace orv {

// True exactly when a stored value was never assigned or holds nothing.
inline bool IsUnassigned(const CellValue& value) { return value.isEmpty(); }
template <class T>
bool IsUnassigned(const std::optional<T>& value) {
  return !value.has_value();
}

}  // namespace orv
