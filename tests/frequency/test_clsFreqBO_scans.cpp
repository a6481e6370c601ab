// The engine sorts and hashes; these plain scans (every datum against every category) must agree
// with it exactly on random columns: categories, counts and flags.

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "engine_fixture.h"
#include "frame/fixed4.h"
#include "frame/numerics.h"
#include "support/array_tools.h"

namespace orv::test {
namespace {

bool same(const CellValue& a, const CellValue& b) { return toText(a) == toText(b); }
std::int32_t weight(const CellValue& w) { return toInt32(toNumber(w)); }

// Distinct categories in order of first appearance, as texts (the first as it stands).
Cells scanItems(const Cells& data) {
  Cells items{data[0]};
  for (std::size_t i = 1; i < data.size(); ++i) {
    const CellValue s = toText(data[i]);
    if (!s.text().empty() && std::none_of(items.begin(), items.end(), [&](const CellValue& r) { return same(r, s); })) {
      items.push_back(s);
    }
  }
  return items;
}

// Distinct values of the sorted data, as texts.
Cells scanNumbers(const Cells& data) {
  ValueArray2D sorted(static_cast<std::int32_t>(data.size()), 1);
  std::copy(data.begin(), data.end(), sorted.cells().begin());
  ArrayTools::SortRows(sorted, 1);
  Cells result{toText(sorted.cells()[0])};
  for (std::size_t i = 1; i < data.size(); ++i) {
    const CellValue s = toText(sorted.cells()[i]);
    if (!s.text().empty() && std::none_of(result.begin(), result.end(), [&](const CellValue& r) { return same(r, s); })) {
      result.push_back(s);
    }
  }
  return result;
}

Counts scanExact(const Cells& categories, const Cells& data, const Cells& weights) {
  Counts counts(categories.size());
  for (std::size_t i = 0; i < categories.size(); ++i) {
    for (std::size_t j = 0; j < data.size(); ++j) {
      if (same(data[j], categories[i])) counts[i] += weight(weights[j]);
    }
  }
  return counts;
}

struct Binned {
  Cells categories;
  Counts counts;
  bool less = false, greater = false;
};

// Each datum goes to the last bin at or below it; equal widths close the top bin.
Binned scanBinned(Cells cats, const Cells& data, const Cells& weights) {
  Binned r;
  const std::size_t m = cats.size();
  const auto fixed = [](const CellValue& v) { return Fixed4::fromDouble(toNumber(v)); };
  Counts counts(m);
  std::int32_t less = 0, greater = 0;
  bool equalWidth = false;
  Fixed4 width;
  if (m > 1) {
    width = fixed(cats[1]) - fixed(cats[0]);
    if (width != Fixed4()) {
      equalWidth = true;
      for (std::size_t i = 1; i + 1 < m; ++i) {
        if (fixed(cats[i + 1]) - fixed(cats[i]) != width) {
          equalWidth = false;
          r.greater = true;
          break;
        }
      }
    }
  }
  for (std::size_t j = 0; j < data.size(); ++j) {
    bool found = false;
    for (std::size_t b = m; b-- > 0;) {
      if (toNumber(data[j]) >= toNumber(cats[b])) {
        counts[b] += weight(weights[j]);
        found = true;
        break;
      }
    }
    if (!equalWidth) {
      if (!found) less += weight(weights[j]);
      continue;
    }
    if (!found && toNumber(data[j]) < toNumber(cats[0])) less += weight(weights[j]);
    if (fixed(cats[m - 1]) + width <= fixed(data[j])) {
      counts[m - 1] -= weight(weights[j]);
      greater += weight(weights[j]);
    }
  }
  if (less >= 1) {
    cats.insert(cats.begin(), cats.front());
    counts.insert(counts.begin(), less);
    r.less = true;
  }
  if (greater >= 1 && equalWidth) {
    cats.emplace_back(numberToText(toNumber(cats.back()) + width.toDouble()));
    counts.push_back(greater);
    r.greater = true;
  }
  r.categories = std::move(cats);
  r.counts = std::move(counts);
  return r;
}

class Columns {
 public:
  explicit Columns(std::uint32_t seed) : gen_(seed) {}

  int pick(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(gen_); }
  CellValue any(const Cells& pool) { return pool[static_cast<std::size_t>(pick(0, static_cast<int>(pool.size()) - 1))]; }

  // Numbers (some repeated, some equal only to 15 digits), numeric texts, texts and blanks.
  CellValue anyValue() {
    if (pick(0, 2) == 0) return any({kBlank, kBlank, "a", "A", "b", "3", " 4", "0.5", 0.1 + 0.2, 0.3, -0.0, true});
    return static_cast<double>(pick(-3, 12)) / (pick(0, 3) == 0 ? 2.0 : 1.0);
  }
  CellValue number() {
    if (pick(0, 5) == 0) return kBlank;
    return static_cast<double>(pick(-30, 150)) / (pick(0, 3) == 0 ? 10.0 : 1.0);
  }
  CellValue weightValue() { return any({0, 1, 1, 2, 3, 2.5, 1.5, "2", kBlank}); }
  // Equal steps, unequal steps, or bins in no order at all.
  Cells bins() {
    const int m = pick(1, 8);
    const int shape = pick(0, 2);
    Cells out;
    double x = pick(-20, 40);
    const double step = pick(1, 30) / (pick(0, 1) == 0 ? 10.0 : 1.0);
    for (int i = 0; i < m; ++i) {
      out.emplace_back(shape == 2 ? static_cast<double>(pick(-20, 120)) : x);
      x += shape == 0 ? step : pick(1, 40);
    }
    return out;
  }
  template <class Make>
  Cells column(int n, Make make) {
    Cells out;
    for (int i = 0; i < n; ++i) out.push_back(make());
    return out;
  }

 private:
  std::mt19937 gen_;
};

TEST(FreqBOScans, CategoriesCountsAndFlagsMatchTheScans) {
  constexpr std::uint32_t kSeed = 20240611;
  SCOPED_TRACE("seed " + std::to_string(kSeed));
  Columns random(kSeed);
  for (int trial = 0; trial < 400; ++trial) {
    SCOPED_TRACE("trial " + std::to_string(trial));
    const int n = random.pick(1, 60);
    const Cells data = random.column(n, [&] { return random.anyValue(); });
    const Cells weights = random.column(n, [&] { return random.weightValue(); });
    clsFreqBO bo;
    const Cells items = scanItems(data);
    EXPECT_EQ(bo.UniqueItems(cells(data)).items(), items);
    const Cells numbers = scanNumbers(data);
    EXPECT_EQ(bo.UniqueNumbers(cells(data)).items(), numbers);
    for (const Cells& categories : {items, numbers}) {
      ValueArray1D cats = cells(categories);
      EXPECT_EQ(bo.UniqueCounts(cats, cells(data), cells(weights), false).items(),
                scanExact(categories, data, weights));
      EXPECT_EQ(cats.items(), categories);
    }

    const Cells bins = random.bins();
    const Cells numeric = random.column(n, [&] { return random.number(); });
    const Binned expected = scanBinned(bins, numeric, weights);
    clsFreqBO binned;
    ValueArray1D binCats = cells(bins);
    EXPECT_EQ(binned.UniqueCounts(binCats, cells(numeric), cells(weights), true).items(), expected.counts);
    EXPECT_EQ(binCats.items(), expected.categories);
    EXPECT_EQ(binned.LessThanCatUsed(), expected.less);
    EXPECT_EQ(binned.GreaterThanCatUsed(), expected.greater);
  }
}

}  // namespace
}  // namespace orv::test
