#include "support/ordered_parallel.h"

namespace orv {

std::size_t helperThreadCount() {
  // Each piece of work holds a column of up to a million cells, so more threads than this buy
  // little beside the reading, which has already finished.
  constexpr std::size_t kMostHelpers = 3;
  const unsigned cores = std::thread::hardware_concurrency();
  return cores > 1 ? std::min<std::size_t>(cores - 1, kMostHelpers) : 0;
}

}  // namespace orv
