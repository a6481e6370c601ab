// The engine sorts and hashes; these plain scans (every datum against every category) must agree
// with its distinct categories and their counts exactly on random columns.

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "engine_fixture.h"
#include "frame/numerics.h"
#include "support/array_tools.h"

namespace orv::test {
namespace {

bool same(const CellValue& a, const CellValue& b) { return toText(a) == toText(b); }

// The first cell as given, then every later non-empty text form not seen before.
Cells scanDistinct(const CellValue& first, const Cells& rest) {
  Cells out{first};
  for (const CellValue& v : rest) {
    const CellValue s = toText(v);
    if (!s.text().empty() && std::none_of(out.begin(), out.end(), [&](const CellValue& r) { return same(r, s); })) {
      out.push_back(s);
    }
  }
  return out;
}

// Items keep their order of first appearance; numbers are sorted first, and all are texts.
Cells scanItems(const Cells& data) { return scanDistinct(data[0], Cells(data.begin() + 1, data.end())); }
Cells scanNumbers(const Cells& data) {
  ValueArray2D sorted(static_cast<std::int32_t>(data.size()), 1);
  std::copy(data.begin(), data.end(), sorted.cells().begin());
  ArrayTools::SortRows(sorted, 1);
  const Cells s(sorted.cells().begin(), sorted.cells().end());
  return scanDistinct(toText(s[0]), Cells(s.begin() + 1, s.end()));
}

Counts scanExact(const Cells& categories, const Cells& data, const Cells& weights) {
  Counts counts(categories.size());
  for (std::size_t i = 0; i < categories.size(); ++i) {
    for (std::size_t j = 0; j < data.size(); ++j) {
      if (same(data[j], categories[i])) counts[i] += toInt32(toNumber(weights[j]));
    }
  }
  return counts;
}

TEST(FreqBOScans, CategoriesAndCountsMatchTheScans) {
  std::mt19937 gen(20240611);
  const auto pick = [&](int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(gen); };
  const auto any = [&](const Cells& pool) {
    return pool[static_cast<std::size_t>(pick(0, static_cast<int>(pool.size()) - 1))];
  };
  // Numbers (some repeated, some equal only to 15 digits), numeric texts, texts and blanks.
  const Cells others = {kBlank, kBlank, "a", "A", "b", "3", " 4", "0.5", 0.1 + 0.2, 0.3, -0.0, true};
  const Cells weightPool = {0, 1, 1, 2, 3, 2.5, 1.5, "2", kBlank};
  for (int trial = 0; trial < 400; ++trial) {
    SCOPED_TRACE("trial " + std::to_string(trial));
    Cells data, weights;
    for (int i = pick(1, 60); i > 0; --i) {
      data.push_back(pick(0, 2) == 0 ? any(others) : CellValue(pick(-3, 12) / (pick(0, 3) == 0 ? 2.0 : 1.0)));
      weights.push_back(any(weightPool));
    }
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
  }
}

}  // namespace
}  // namespace orv::test
