#pragma once
// Private to the source files of clsDSBO: its error trap, its row loops and the checked double
// it writes its formulas in.

#include <cstdint>

#include "frame/checked_real.h"
#include "frame/numerics.h"
#include "frame/procedure.h"

namespace orv::detail {

inline constexpr Procedures kDSBO{"clsDSBO"};

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

inline Real pow(Real base, double exponent) { return power(base.v, exponent); }
inline Real sqrt(Real x) { return squareRoot(x.v); }
inline Real log(Real x) { return logarithm(x.v); }
inline Real abs(Real x) { return x.v < 0.0 ? -x.v : x.v; }

// A 32-bit count as a Real: the integer products are done in Int32 first where that matters.
inline Real real(std::int32_t n) { return static_cast<double>(n); }

}  // namespace orv::detail
