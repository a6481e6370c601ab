#pragma once
// Test helper: which error number a call raises.

#include <cstdint>

#include "frame/errors.h"

namespace orv::test {

// The number of the ComponentError that `call` raises, or 0 when it returns normally.
template <class Call>
std::int32_t raisedNumber(Call&& call) {
  try {
    call();
  } catch (const ComponentError& e) {
    return e.number();
  }
  return 0;
}

}  // namespace orv::test
