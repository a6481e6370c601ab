#pragma once
// How clsFreqBO counts: with the component's kept rules, or with textbook arithmetic.
//
// Loop counters over observations and bins are 16-bit (frame/platform_loop.h): the engine refuses
// longer lists with an overflow, exactly where a counter would pass kLast16BitStep. Textbook
// arithmetic counts in 64 bits and takes an empty data cell for no observation in binned counting
// too; the kept rules take it for the value 0 there.

#include <cstdint>
#include <limits>

#include "frame/cell_value.h"
#include "frame/platform_loop.h"

namespace orv {

struct CountingRules {
  bool textbook = false;

  // A 16-bit counter stepping to `i` (nothing to check with 64-bit counters).
  void step(std::int64_t i) const {
    if (!textbook) step16BitCounter(i);
  }
  // The last step a loop takes before its counter would overflow.
  std::int32_t lastStep() const { return textbook ? std::numeric_limits<std::int32_t>::max() : kLast16BitStep; }
  // In binned counting (and the bins proposed for it), whether a data cell is no observation.
  bool skips(const CellValue& v) const { return textbook && v.isEmpty(); }
};

}  // namespace orv
