#pragma once
// Private to the source files of clsDSBO: its error trap and the one conversion its formulas share.

#include <cstdint>

#include "frame/checked_real.h"
#include "frame/procedure.h"

namespace orv::detail {

inline constexpr Procedures kDSBO{"clsDSBO"};

// A 32-bit count as a Real: the integer products are done in Int32 first where that matters.
inline Real real(std::int32_t n) { return static_cast<double>(n); }

}  // namespace orv::detail
