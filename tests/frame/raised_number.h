#pragma once
// Test helper: the number of the ComponentError a call raises, or 0 when it returns normally.
#include <cstdint>

#include "frame/errors.h"

namespace orv::test {

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
