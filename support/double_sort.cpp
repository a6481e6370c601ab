#include "support/double_sort.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <utility>

namespace orv {
namespace {

constexpr int kDigitBits = 11;
constexpr std::size_t kBuckets = std::size_t{1} << kDigitBits;
constexpr int kPasses = (64 + kDigitBits - 1) / kDigitBits;
constexpr std::uint64_t kSign = std::uint64_t{1} << 63;
// Below this a comparison sort is as quick and needs no counting tables.
constexpr std::size_t kRadixFrom = 256;

// Unsigned keys in the numeric order of the doubles: negatives have every bit flipped,
// non-negatives only the sign bit.
std::uint64_t keyOf(double x) {
  const auto bits = std::bit_cast<std::uint64_t>(x == 0 ? 0.0 : x);
  return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

// The least-significant digits first, each pass a stable counting sort by one digit; a digit that
// every key shares moves nothing and is skipped. Keys are the values' own bits, mapped: equal keys
// are equal doubles, so moving keys alone loses nothing (only -0 shares its key, with 0, and takes
// the other path).
template <class Item, class KeyFor>
void radixSort(std::vector<Item>& items, KeyFor keyFor) {
  const std::size_t n = items.size();
  std::vector<Item> buffer(n);
  std::vector<std::array<std::size_t, kBuckets>> counts(kPasses);
  for (const Item& item : items) {
    const std::uint64_t key = keyFor(item);
    for (int p = 0; p < kPasses; ++p) ++counts[static_cast<std::size_t>(p)][(key >> (p * kDigitBits)) & (kBuckets - 1)];
  }
  for (int p = 0; p < kPasses; ++p) {
    std::array<std::size_t, kBuckets>& count = counts[static_cast<std::size_t>(p)];
    if (std::any_of(count.begin(), count.end(), [n](std::size_t c) { return c == n; })) continue;
    std::size_t start = 0;
    for (std::size_t& c : count) start += std::exchange(c, start);
    for (const Item& item : items) buffer[count[(keyFor(item) >> (p * kDigitBits)) & (kBuckets - 1)]++] = item;
    items.swap(buffer);
  }
}

// The inverse of keyOf for every key but that of -0.
double valueOf(std::uint64_t key) { return std::bit_cast<double>((key & kSign) != 0 ? key & ~kSign : ~key); }

}  // namespace

void stableSortDoubles(std::vector<double>& values) {
  const std::size_t n = values.size();
  if (n < kRadixFrom || std::any_of(values.begin(), values.end(), [](double x) { return std::isnan(x); })) {
    std::stable_sort(values.begin(), values.end());
    return;
  }
  const bool negativeZero =
      std::any_of(values.begin(), values.end(), [](double x) { return x == 0 && std::signbit(x); });
  if (!negativeZero) {
    std::vector<std::uint64_t> keys(n);
    std::transform(values.begin(), values.end(), keys.begin(), keyOf);
    radixSort(keys, [](std::uint64_t key) { return key; });
    std::transform(keys.begin(), keys.end(), values.begin(), valueOf);
    return;
  }
  // -0 and 0 share a key: each element carries its value along, so zeros keep their sign.
  struct Item {
    std::uint64_t key;
    double value;
  };
  std::vector<Item> items(n);
  std::transform(values.begin(), values.end(), items.begin(), [](double x) { return Item{keyOf(x), x}; });
  radixSort(items, [](const Item& item) { return item.key; });
  std::transform(items.begin(), items.end(), values.begin(), [](const Item& item) { return item.value; });
}

}  // namespace orv
