// clsDSBO: order statistics, percentiles, and the frequency table behind the mode.

#include <algorithm>
#include <exception>
#include <string>
#include <vector>

#include "descriptive/clsDSBO.h"
#include "descriptive/clsDSBO_internal.h"
#include "descriptive/frequency_table.h"
#include "frame/checked_real.h"
#include "frame/conversions.h"
#include "frame/numerics.h"
#include "support/array_tools.h"

namespace orv {

using detail::kDSBO;

double clsDSBO::Median() {
  return kDSBO("Median", [&] {
    const std::int64_t n = Count();
    if (n % 2 != 0) return value(n / 2 + 1);
    // Even count, and also no observations at all, which reads row 0: a subscript error.
    return ((Real(value(n / 2)) + value(n / 2 + 1)) / 2.0).v;
  });
}

ValueArray2D clsDSBO::Tally(ValueArray2D& data) {
  return kDSBO("Tally", [&] {
    ValueArray2D table = detail::frequencyTable(data);
    // Stable: among equal counts the values keep their order of first appearance, which for a
    // sorted column is ascending order.
    ArrayTools::SortRows(table, 2);
    return table;
  });
}

CellValue clsDSBO::Mode() {
  return kDSBO("Mode", [&]() -> CellValue {
    try {
      // The values whose count is the highest, in the order that Tally's stable sort by count
      // leaves them, which is their order of first appearance: read straight from the unsorted
      // groups, without sorting a table of up to n rows to find them.
      const std::vector<detail::FrequencyGroup> groups = detail::frequencyGroups(data_);
      double highest = 0.0;
      for (const detail::FrequencyGroup& g : groups) highest = std::max(highest, g.count);
      if (!(highest > 1.0)) return CellValue("-");
      std::string modes;
      for (const detail::FrequencyGroup& g : groups) {
        if (g.count != highest) continue;
        if (!modes.empty()) modes += ", ";
        modes += toText(g.value);
      }
      return CellValue(std::move(modes));
    } catch (const std::exception&) {
      // A mode that cannot be found reads like a sample without a repeated value.
      return CellValue("-");
    }
  });
}

double clsDSBO::LP(std::uint8_t p) {
  return kDSBO("LP", [&] {
    const std::uint8_t settled = detail::lowerPercentile(p);
    return textbook_ ? textbookPercentile(settled) : percentile(settled);
  });
}

double clsDSBO::UP(std::uint8_t p) {
  return kDSBO("UP", [&] {
    const std::uint8_t settled = detail::upperPercentile(p);
    return textbook_ ? textbookPercentile(settled) : percentile(settled);
  });
}

// The shared tail of LP and UP once the percentile is settled: position (n + 1) / (100 / p),
// read at its whole part and interpolated towards the next row, but only when that next row lies
// strictly before the last one: with k + 1 = n the value at k is returned as it stands, an
// asymmetry kept on purpose. A position below 1 reads row 0, a subscript error.
double clsDSBO::percentile(std::uint8_t p) {
  const Int32 n = Count();
  const Real position = Real((n + Int32(1)).value()) / (Real(100.0) / static_cast<double>(p));
  const Int16 k = toInt16(intFloor(position.v));
  const Real fraction = position - Real(k.value());
  const Real low = value(k.value());
  if ((k + Int16(1)).value() < n.value()) {
    return (low + fraction * (Real(value(k.value() + 1)) - low)).v;
  }
  return low.v;
}

double clsDSBO::Smallest(std::int32_t k) {
  return kDSBO("Smallest", [&] {
    const std::int32_t n = Count();
    return k <= n ? value(k) : value(n);
  });
}

double clsDSBO::Largest(std::int32_t k) {
  return kDSBO("Largest", [&] {
    const Int32 n = Count();
    return k <= n.value() ? value((n - Int32(k) + Int32(1)).value()) : value(1);
  });
}

}  // namespace orv
