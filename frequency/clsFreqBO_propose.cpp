// clsFreqBO: the automatic bin rule.
//
// The range max - min is normalised to x in (10, 100] by powers of ten; x picks a step of 2, 3,
// 5, 7.5 or 10, which gives about ten bins of width step / scale. A width below the data's own
// resolution (the smallest non-zero gap between neighbouring sorted values) is raised to it. The
// first bin starts at the multiple of the width at or below min, and bins are added until the
// closed top of the last one reaches max; a top equal to max leaves max in a ">=" category when
// the bins are counted (0..10 gives bins 0..9 and a ">=" category 10), which is kept.

#include <algorithm>
#include <iterator>
#include <optional>
#include <vector>

#include "frame/checked_real.h"
#include "frequency/clsFreqBO.h"
#include "frequency/clsFreqBO_internal.h"
#include "support/array_tools.h"

namespace orv {

using detail::kFreqBO;

namespace {

double stepFor(double x) {
  if (x >= 60) return 10;
  if (x >= 50) return 7.5;
  if (x >= 30) return 5;
  if (x >= 20) return 3;
  return 2;
}

}  // namespace

std::optional<ValueArray1D> clsFreqBO::ProposeBins(const ValueArray1D& data) {
  return kFreqBO("ProposeBins", [&]() -> std::optional<ValueArray1D> {
    // Textbook arithmetic leaves empty cells out: they are no observations.
    std::vector<CellValue> cells;
    std::copy_if(data.items().begin(), data.items().end(), std::back_inserter(cells),
                 [&](const CellValue& v) { return !rules_.skips(v); });
    const std::int32_t n = static_cast<std::int32_t>(cells.size());
    // Only empty cells: no observation to propose bins for (the kept rules read them as 0s).
    if (n == 0 && !data.items().empty()) return std::nullopt;
    ValueArray2D column(n, 1);
    std::move(cells.begin(), cells.end(), column.cells().begin());
    const Real max = ArrayTools::MaxOf(column);
    const Real min = ArrayTools::MinOf(column);
    const Real range = max - min;
    if (range.v == 0.0) return std::nullopt;

    // Empty cells sort last and read as 0, so a column with blanks can yield a negative
    // difference here; it only lowers the gap and so never narrows a bin.
    ArrayTools::SortRows(column, 1);
    Real gap = range;
    for (std::int32_t i = 2; i <= n; ++i) {
      rules_.step(i);
      const Real d = Real(toNumber(column(i, 1))) - toNumber(column(i - 1, 1));
      if (d.v < gap.v && d.v != 0.0) gap = d;
    }

    Real x = range;
    Real scale = 1.0;
    while (x.v <= 10.0) {
      x = x * 10.0;
      scale = scale * 10.0;
    }
    while (x.v > 100.0) {
      x = x / 10.0;
      scale = scale / 10.0;
    }
    Real width = Real(stepFor(x.v)) / scale;
    if (width.v < gap.v) width = gap;

    const Real start = Real(intFloor((min / width).v)) * width;
    Int16 k = 1;
    // Compared as the sum comes, unchecked: only for a maximum next to the largest double could
    // the top of the last bin round to infinity, and then the search simply ends there.
    while (start.v + k.value() * width.v < max.v) ++k;

    std::vector<CellValue> bins{CellValue(numberToText(start.v))};
    for (Int16 i = 2; i <= k; ++i) {
      bins.emplace_back(numberToText((Real(i.value() - 1) * width + start).v));
    }
    return ValueArray1D(std::move(bins));
  });
}

}  // namespace orv
