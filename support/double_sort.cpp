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

}  // namespace

void stableSortDoubles(std::vector<double>& values) {
  const std::size_t n = values.size();
  if (n < kRadixFrom || std::any_of(values.begin(), values.end(), [](double x) { return std::isnan(x); })) {
    std::stable_sort(values.begin(), values.end());
    return;
  }
  // Each element carries its value along with its key, so zeros keep their sign.
  struct Item {
    std::uint64_t key;
    double value;
  };
  std::vector<Item> items(n), buffer(n);
  std::vector<std::array<std::size_t, kBuckets>> counts(kPasses);
  for (std::size_t i = 0; i < n; ++i) {
    items[i] = {keyOf(values[i]), values[i]};
    for (int p = 0; p < kPasses; ++p) ++counts[static_cast<std::size_t>(p)][(items[i].key >> (p * kDigitBits)) & (kBuckets - 1)];
  }
  for (int p = 0; p < kPasses; ++p) {
    std::array<std::size_t, kBuckets>& count = counts[static_cast<std::size_t>(p)];
    // A digit that every key shares moves nothing.
    if (std::any_of(count.begin(), count.end(), [n](std::size_t c) { return c == n; })) continue;
    std::size_t start = 0;
    for (std::size_t& c : count) start += std::exchange(c, start);
    for (const Item& item : items) buffer[count[(item.key >> (p * kDigitBits)) & (kBuckets - 1)]++] = item;
    items.swap(buffer);
  }
  for (std::size_t i = 0; i < n; ++i) values[i] = items[i].value;
}

}  // namespace orv
