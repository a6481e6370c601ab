#pragma once
// Loops over observations and bins as the platform runs them. Their counters are 16-bit (the
// platform's Integer) or 32-bit (Long), and a counter that would leave its range raises
// "Overflow" (6): this is where a column of more than 32767 observations fails, and it is part
// of the results, so every engine counts through these helpers.

#include <cstdint>

#include "frame/numerics.h"

namespace orv {

// Calls body(i) for rows i = 1..last with a counter of type Counter (Int16 or Int32). The bound
// is converted to the counter's type before the first row, as the platform does for a loop
// limit, so a 16-bit loop over more than 32767 rows overflows at once. The counter is never
// stepped past `last`, so 32767 rows still fit a 16-bit loop.
template <class Counter, class Body>
void forRows(std::int64_t last, Body&& body) {
  const Counter end = Counter::from(last);
  if (end.value() < 1) return;
  for (Counter i{1};; ++i) {
    body(static_cast<std::int64_t>(i.value()));
    if (i.value() == end.value()) break;
  }
}

// The last value a 16-bit loop counter can take.
inline constexpr std::int32_t kLast16BitStep = 32767;

// A 16-bit loop counter stepping to `step`: "Overflow" (6) beyond 32767. For the loops that are
// written as hash lookups or searches but must fail exactly where the counted loop would.
inline void step16BitCounter(std::int64_t step) {
  if (step > kLast16BitStep) raiseOverflow();
}

}  // namespace orv
