#pragma once
// Private to the source files of clsDSBO: its error trap and what its formulas share.

#include <cstdint>

#include "frame/checked_real.h"
#include "frame/distribution_functions.h"
#include "frame/procedure.h"

namespace orv::detail {

inline constexpr Procedures kDSBO{"clsDSBO"};

// A 32-bit count as a Real: the integer products are done in Int32 first where that matters.
inline Real real(std::int32_t n) { return static_cast<double>(n); }

// Two-tailed probability of a standard normal deviate, from the host's functions.
inline Real twoTailed(DistributionFunctions& functions, Real z) {
  const double lower = functions.NormDist(-math::abs(z).v, 0, 1, true);
  return Real(2) * Real(checked(lower));
}

// The percentile that LP works with, the smaller of p and 100 - p, and the one UP works with,
// the larger. Above 100 the subtraction leaves the byte range: an overflow.
inline std::uint8_t lowerPercentile(std::uint8_t p) {
  Byte settled = p;
  if (settled.value() > 50) settled = Byte(100) - settled;
  return settled.value();
}
inline std::uint8_t upperPercentile(std::uint8_t p) {
  Byte settled = p;
  if (settled.value() < 50) settled = Byte(100) - settled;
  return settled.value();
}

}  // namespace orv::detail
