// The engine finds categories and counts by sorting and hashing. Here the procedures' own scans
// (every datum against every category) are written out plainly and both are run on random
// columns: categories, counts and flags must agree exactly.

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

std::vector<CellValue> scanItems(const std::vector<CellValue>& data) {
  const std::size_t n = data.size();
  std::vector<CellValue> items(n);
  items[0] = data[0];
  std::size_t count = 1;
  for (std::size_t i = 1; i < n; ++i) {
    std::string s = toText(data[i]);
    for (std::size_t k = 0; k < n; ++k) {
      if (same(items[k], CellValue(s))) {
        s.clear();
        break;
      }
    }
    if (!s.empty()) items[count++] = s;
  }
  items.resize(count);
  return items;
}

std::vector<CellValue> scanNumbers(const std::vector<CellValue>& data) {
  ValueArray2D sorted(static_cast<std::int32_t>(data.size()), 1);
  std::copy(data.begin(), data.end(), sorted.cells().begin());
  ArrayTools::SortRows(sorted, 1);
  const std::vector<CellValue>& rows = sorted.cells();
  std::vector<CellValue> result(rows.size());
  result[0] = toText(rows[0]);
  std::size_t count = 1;
  for (std::size_t i = 1; i < rows.size(); ++i) {
    const CellValue s = toText(rows[i]);
    if (std::none_of(result.begin(), result.end(), [&](const CellValue& r) { return same(r, s); })) {
      result[count++] = s;
    }
  }
  result.resize(count);
  return result;
}

std::vector<std::int32_t> scanExact(const std::vector<CellValue>& categories,
                                    const std::vector<CellValue>& data,
                                    const std::vector<CellValue>& weights) {
  std::vector<std::int32_t> counts(categories.size());
  for (std::size_t i = 0; i < categories.size(); ++i) {
    for (std::size_t j = 0; j < data.size(); ++j) {
      if (same(data[j], categories[i])) counts[i] += weight(weights[j]);
    }
  }
  return counts;
}

struct Binned {
  std::vector<CellValue> categories;
  std::vector<std::int32_t> counts;
  bool less = false;
  bool greater = false;
};

Binned scanBinned(std::vector<CellValue> cats, const std::vector<CellValue>& data,
                  const std::vector<CellValue>& weights) {
  Binned r;
  const std::size_t m = cats.size();
  const auto fixed = [](const CellValue& v) { return Fixed4::fromDouble(toNumber(v)); };
  std::vector<std::int32_t> counts(m);
  std::int32_t less = 0;
  std::int32_t greater = 0;
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
  r.categories = cats;
  r.counts = counts;
  return r;
}

class Columns {
 public:
  explicit Columns(std::uint32_t seed) : gen_(seed) {}

  int pick(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(gen_); }

  // Numbers (some repeated, some equal only to 15 digits), numeric texts, texts and blanks.
  CellValue anyValue() {
    static const std::vector<CellValue> pool = {
        kBlank, kBlank, "a", "A", "b", "3", " 4", "0.5", 0.1 + 0.2, 0.3, -0.0, true};
    if (pick(0, 2) == 0) return pool[static_cast<std::size_t>(pick(0, static_cast<int>(pool.size()) - 1))];
    return static_cast<double>(pick(-3, 12)) / (pick(0, 3) == 0 ? 2.0 : 1.0);
  }
  CellValue number() {
    if (pick(0, 5) == 0) return kBlank;
    return static_cast<double>(pick(-30, 150)) / (pick(0, 3) == 0 ? 10.0 : 1.0);
  }
  CellValue weightValue() {
    static const std::vector<CellValue> pool = {0, 1, 1, 2, 3, 2.5, 1.5, "2", kBlank};
    return pool[static_cast<std::size_t>(pick(0, static_cast<int>(pool.size()) - 1))];
  }
  // Equal steps, unequal steps, or bins in no order at all.
  std::vector<CellValue> bins() {
    const int m = pick(1, 8);
    const int shape = pick(0, 2);
    std::vector<CellValue> out;
    double x = pick(-20, 40);
    const double step = pick(1, 30) / (pick(0, 1) == 0 ? 10.0 : 1.0);
    for (int i = 0; i < m; ++i) {
      out.emplace_back(shape == 2 ? static_cast<double>(pick(-20, 120)) : x);
      x += shape == 0 ? step : pick(1, 40);
    }
    return out;
  }
  template <class Make>
  std::vector<CellValue> column(int n, Make make) {
    std::vector<CellValue> out;
    for (int i = 0; i < n; ++i) out.push_back(make());
    return out;
  }

 private:
  std::mt19937 gen_;
};

constexpr std::uint32_t kSeed = 20240611;
constexpr int kTrials = 400;

TEST(FreqBOScans, DistinctValuesItemsAndExactCountsMatchTheScans) {
  SCOPED_TRACE("seed " + std::to_string(kSeed));
  Columns random(kSeed);
  for (int trial = 0; trial < kTrials; ++trial) {
    SCOPED_TRACE("trial " + std::to_string(trial));
    const int n = random.pick(1, 60);
    const std::vector<CellValue> data = random.column(n, [&] { return random.anyValue(); });
    const std::vector<CellValue> weights = random.column(n, [&] { return random.weightValue(); });
    clsFreqBO bo;

    const std::vector<CellValue> items = scanItems(data);
    EXPECT_EQ(bo.UniqueItems(cells(data)).items(), items);
    const std::vector<CellValue> numbers = scanNumbers(data);
    EXPECT_EQ(bo.UniqueNumbers(cells(data)).items(), numbers);

    for (const std::vector<CellValue>& categories : {items, numbers}) {
      ValueArray1D cats = cells(categories);
      EXPECT_EQ(bo.UniqueCounts(cats, cells(data), cells(weights), false).items(),
                scanExact(categories, data, weights));
      EXPECT_EQ(cats.items(), categories);
    }
  }
}

TEST(FreqBOScans, BinnedCountsMatchTheScan) {
  SCOPED_TRACE("seed " + std::to_string(kSeed));
  Columns random(kSeed);
  for (int trial = 0; trial < kTrials; ++trial) {
    SCOPED_TRACE("trial " + std::to_string(trial));
    const int n = random.pick(1, 60);
    const std::vector<CellValue> bins = random.bins();
    const std::vector<CellValue> data = random.column(n, [&] { return random.number(); });
    const std::vector<CellValue> weights = random.column(n, [&] { return random.weightValue(); });
    const Binned expected = scanBinned(bins, data, weights);

    clsFreqBO bo;
    ValueArray1D cats = cells(bins);
    EXPECT_EQ(bo.UniqueCounts(cats, cells(data), cells(weights), true).items(), expected.counts);
    EXPECT_EQ(cats.items(), expected.categories);
    EXPECT_EQ(bo.LessThanCatUsed(), expected.less);
    EXPECT_EQ(bo.GreaterThanCatUsed(), expected.greater);
  }
}

}  // namespace
}  // namespace orv::test
