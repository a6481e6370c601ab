// clsFreqBO: binned counting.
//
// An observation x belongs to the bin that a scan from the last bin downwards meets first with
// x >= bin, i.e. the highest-numbered bin not above x. A binary search over the suffix minima of
// the bins finds that bin in log time for bins in any order, so the result is the scan's own.
//
// With the kept rules an empty data cell is the value 0 (it reads as 0); textbook arithmetic
// skips it, as the other tables do.
//
// Equal widths are tested in four-decimal fixed point, so 0.1, 0.2, 0.3 are equal steps. Only
// with equal widths does the last bin have a closed top (last + width): observations at or beyond
// it move to a ">=" category. With unequal widths the last bin stays open, yet the ">=" flag is
// set all the same (the layout marks the open last bin); with a single bin or a first width of
// zero the flag is left alone. Both are kept as the component has always shown them.

#include <algorithm>
#include <optional>
#include <vector>

#include "frame/checked_real.h"
#include "frame/errors.h"
#include "frame/fixed4.h"
#include "frequency/clsFreqBO_internal.h"

namespace orv::detail {
namespace {

Fixed4 fixedOf(const CellValue& v) { return Fixed4::fromDouble(toNumber(v)); }

// The downward scan over the bins, answered by binary search. A bin that is no number fails the
// scan only when the scan reaches it, so its error is kept and raised for exactly the values
// that fall below every bin above it.
class BinScan {
 public:
  explicit BinScan(const ValueArray1D& bins) {
    std::vector<double> values;
    for (std::int32_t b = bins.size(); b >= 1; --b) {
      try {
        values.push_back(toNumber(bins(b)));
      } catch (const ComponentError& e) {
        firstNumeric_ = b + 1;
        error_ = e;
        break;
      }
    }
    // values holds bins m, m-1, ...; suffix minima in ascending bin order.
    std::reverse(values.begin(), values.end());
    suffixMin_.resize(values.size());
    double low = 0.0;
    for (std::size_t i = values.size(); i-- > 0;) {
      low = (i + 1 == values.size()) ? values[i] : std::min(low, values[i]);
      suffixMin_[i] = low;
    }
  }

  // The bin an observation falls in, 0 when it lies below every bin.
  std::int32_t find(double x) const {
    // suffixMin_ rises with the bin number; the last bin whose suffix minimum is <= x is the
    // highest bin <= x.
    const auto above = std::upper_bound(suffixMin_.begin(), suffixMin_.end(), x);
    const auto within = static_cast<std::int32_t>(above - suffixMin_.begin());
    if (within > 0) return firstNumeric_ + within - 1;
    if (error_) throw *error_;
    return 0;
  }

 private:
  std::int32_t firstNumeric_ = 1;  // bins firstNumeric_..m are numbers
  std::optional<ComponentError> error_;
  std::vector<double> suffixMin_;  // element i: min of bins firstNumeric_+i .. m
};

struct WidthTest {
  bool equalWidth = false;
  Fixed4 width;
};

// The first width, then every later one against it; the first that differs ends the test.
WidthTest testWidths(const ValueArray1D& bins, bool& greaterThanCatUsed, CountingRules rules) {
  WidthTest t;
  const std::int32_t m = bins.size();
  if (m <= 1) return t;
  Fixed4 previous = fixedOf(bins(2));
  t.width = previous - fixedOf(bins(1));
  if (t.width == Fixed4()) return t;
  t.equalWidth = true;
  for (std::int32_t i = 2; i <= m - 1; ++i) {
    rules.step(i);
    const Fixed4 next = fixedOf(bins(i + 1));
    if (next - previous != t.width) {
      t.equalWidth = false;
      greaterThanCatUsed = true;
      break;
    }
    previous = next;
  }
  return t;
}

}  // namespace

Array1D<std::int32_t> binnedCounts(ValueArray1D& categories, const ValueArray1D& data, const ValueArray1D& weights,
                                   bool& lessThanCatUsed, bool& greaterThanCatUsed, CountingRules rules) {
  const std::int32_t m = categories.size();
  const std::int32_t n = data.size();
  Array1D<std::int32_t> counts(m);
  Int32 lessCount = 0;
  Int32 greaterCount = 0;
  const WidthTest widths = testWidths(categories, greaterThanCatUsed, rules);
  const BinScan scan(categories);
  std::optional<Fixed4> closedTop;  // last bin + width, with equal widths

  for (std::int32_t j = 1; j <= n; ++j) {
    rules.step(j);
    rules.step(m);  // the downward bin counter cannot start
    if (rules.skips(data(j))) continue;
    double x = 0.0;
    std::int32_t b = 0;
    if (m >= 1) {
      x = toNumber(data(j));  // an empty cell is the value 0
      b = scan.find(x);
    }
    const bool found = b > 0;
    if (found) counts(b) = (Int32(counts(b)) + weightOf(weights(j))).value();
    if (!widths.equalWidth) {
      if (!found) lessCount += weightOf(weights(j));
      continue;
    }
    if (!found && x < toNumber(categories(1))) lessCount += weightOf(weights(j));
    if (!closedTop) closedTop = fixedOf(categories(m)) + widths.width;
    if (*closedTop <= Fixed4::fromDouble(x)) {
      counts(m) = (Int32(counts(m)) - weightOf(weights(j))).value();
      greaterCount += weightOf(weights(j));
    }
  }

  std::vector<CellValue>& cats = categories.items();
  std::vector<std::int32_t>& cnt = counts.items();
  if (lessCount >= 1) {
    // The front category keeps the first bin's value, which the layout shows as its "<" bound.
    rules.step(std::int64_t{m} + 1);
    cats.insert(cats.begin(), m >= 1 ? cats.front() : CellValue());
    cnt.insert(cnt.begin(), lessCount.value());
    lessThanCatUsed = true;
  }
  if (greaterCount >= 1 && widths.equalWidth) {
    cats.emplace_back(numberToText((Real(toNumber(cats.back())) + widths.width.toDouble()).v));
    cnt.push_back(greaterCount.value());
    greaterThanCatUsed = true;
  }
  return counts;
}

}  // namespace orv::detail
