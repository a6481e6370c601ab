#pragma once
// Why a results cell holds "-" (descriptive statistics) or "n/a" (circular statistics) instead of
// a number, for scripts that read the records: worked out from the column's own cells by the
// rules the engines apply (descriptive/STATISTICS.md, circular/STATISTICS.md).
//
// For example "needs at least 20 observations; the column has 12", "no value occurs more than
// once", "the angles are too dispersed: the mean vector is 0.21, below the 0.51 that 12 angles
// need". A row the rules do not explain gets "cannot be computed for these data".

#include <string>

namespace orv {
class Range;
}  // namespace orv

namespace orv::cli {

// `analysis` is "describe" or "circular"; `label` the row's label ("P(Kurtosis)", "95%CL (±)");
// `cells` the column's data cells, below its header cell; `textbook` whether textbook arithmetic
// made the table (its kurtosis has no 32-bit limit, and its kurtosis test needs 5 observations).
// Reads the cells through the host.
std::string unavailableReason(const std::string& analysis, const std::string& label, const Range& cells, bool textbook);

}  // namespace orv::cli
