// clsFreqBO: categories of raw and nominal data, and exact-mode counting.
//
// The component's procedures describe these as scans of every datum against every category found
// so far. With categories keyed by their text form (categoryKey), a hash set or map gives the
// same categories and counts in one probe per datum, so 32767 distinct values take
// milliseconds instead of the billion comparisons of the scans.

#include <algorithm>
#include <bit>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "frame/errors.h"
#include "frequency/clsFreqBO.h"
#include "frequency/clsFreqBO_internal.h"
#include "support/array_tools.h"

namespace orv {

using detail::categoryKey;
using detail::kFreqBO;

namespace detail {
namespace {

// The running count of one set of equal categories, or the first error met while adding to it.
struct Tally {
  Int32 sum = 0;
  std::optional<ComponentError> error;
};

}  // namespace

// Categories with the same key receive the same weights in the same order, so one tally per key
// serves them all. The scan adds datum by datum for category 1, then category 2 ...; an error
// (a weight that is no number, a 32-bit overflow, a missing weight) therefore reaches the caller
// from the first category whose tally met one, and the 16-bit counters fail once category 1 has
// seen 32767 data, or after category 32767.
Array1D<std::int32_t> exactCounts(const ValueArray1D& categories, const ValueArray1D& data, const ValueArray1D& weights,
                                  CountingRules rules) {
  const std::int32_t m = categories.size();
  const std::int32_t n = data.size();
  const std::int32_t scannedCategories = std::min(m, rules.lastStep());
  const std::int32_t scannedData = std::min(n, rules.lastStep());

  std::unordered_map<std::string, std::size_t> tallyOf;
  tallyOf.reserve(static_cast<std::size_t>(scannedCategories));
  std::vector<std::size_t> tallyOfCategory;
  tallyOfCategory.reserve(static_cast<std::size_t>(scannedCategories));
  for (std::int32_t i = 1; i <= scannedCategories; ++i) {
    const auto [it, fresh] = tallyOf.try_emplace(categoryKey(categories(i)), tallyOf.size());
    tallyOfCategory.push_back(it->second);
  }

  // A number's key is the text of its value, the same for every datum of that value: it is made
  // once per distinct value (told apart by its bits) rather than once per datum.
  constexpr std::size_t kNoTally = static_cast<std::size_t>(-1);
  std::unordered_map<std::uint64_t, std::size_t> tallyOfNumber;
  tallyOfNumber.reserve(tallyOf.size());
  const auto tallyFor = [&](const CellValue& v) {
    const auto byKey = [&] {
      const auto it = tallyOf.find(categoryKey(v));
      return it == tallyOf.end() ? kNoTally : it->second;
    };
    if (!v.isNumber()) return byKey();
    const auto [it, fresh] = tallyOfNumber.try_emplace(std::bit_cast<std::uint64_t>(v.number()), kNoTally);
    if (fresh) it->second = byKey();
    return it->second;
  };

  std::vector<Tally> tallies(tallyOf.size());
  for (std::int32_t j = 1; j <= scannedData; ++j) {
    const std::size_t at = tallyFor(data(j));
    if (at == kNoTally) continue;
    Tally& tally = tallies[at];
    if (tally.error) continue;
    try {
      tally.sum += weightOf(weights(j));
    } catch (const ComponentError& e) {
      tally.error = e;
    }
  }

  Array1D<std::int32_t> counts(m);
  for (std::int32_t i = 1; i <= scannedCategories; ++i) {
    const Tally& tally = tallies[tallyOfCategory[static_cast<std::size_t>(i - 1)]];
    if (tally.error) throw *tally.error;
    rules.step(n);
    counts(i) = tally.sum.value();
  }
  rules.step(m);
  return counts;
}

}  // namespace detail

ValueArray1D clsFreqBO::UniqueNumbers(const ValueArray1D& data) {
  return kFreqBO("UniqueNumbers", [&] {
    const std::int32_t n = data.size();
    ValueArray2D sorted(n, 1);
    std::copy(data.items().begin(), data.items().end(), sorted.cells().begin());
    ArrayTools::SortRows(sorted, 1);

    std::vector<CellValue> distinct{CellValue(categoryKey(sorted(1, 1)))};
    rules_.step(n);
    std::unordered_set<std::string> seen{distinct.front().text()};
    seen.reserve(static_cast<std::size_t>(n));
    for (std::int32_t i = 2; i <= n; ++i) {
      // Sorted, equal numbers are neighbours: a number equal to the one before has its key, seen.
      const CellValue& v = sorted(i, 1);
      const CellValue& before = sorted(i - 1, 1);
      if (v.isNumber() && before.isNumber() &&
          std::bit_cast<std::uint64_t>(v.number()) == std::bit_cast<std::uint64_t>(before.number())) {
        continue;
      }
      std::string s = categoryKey(v);
      // An empty text equals the slots not yet filled, so it never becomes a category here.
      if (s.empty()) continue;
      if (seen.insert(s).second) distinct.emplace_back(std::move(s));
    }
    return ValueArray1D(std::move(distinct));
  });
}

ValueArray1D clsFreqBO::UniqueItems(const ValueArray1D& data) {
  return kFreqBO("UniqueItems", [&] {
    const std::int32_t n = data.size();
    // The first datum is a category as it stands, even an empty one.
    std::vector<CellValue> items{data(1)};
    rules_.step(n);
    std::unordered_set<std::string> seen{categoryKey(data(1))};
    seen.reserve(static_cast<std::size_t>(n));
    for (std::int32_t i = 2; i <= n; ++i) {
      std::string s = categoryKey(data(i));
      if (s.empty()) continue;
      if (seen.insert(s).second) items.emplace_back(std::move(s));
    }
    return ValueArray1D(std::move(items));
  });
}

}  // namespace orv
