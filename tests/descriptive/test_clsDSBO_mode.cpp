// Mode and the frequency table behind it.

#include <algorithm>
#include <map>
#include <random>

#include "engine_fixture.h"
#include "frame/conversions.h"

namespace orv::testing {
namespace {

using ModeTest = EngineTest;

TEST_F(ModeTest, ModalValuesAscendingOrDash) {
  const struct {
    std::vector<CellValue> data;
    const char* mode;
  } cases[] = {
      {{1.0, 2.0, 2.0, 3.0, 3.0}, "2, 3"},
      {{3.0, 3.0, 1.0, 2.0, 1.0}, "1, 3"},
      {{1.0, 2.0, 3.0}, "-"},
      {{5.0, 5.0}, "5"},
      {{7.0}, "-"},
      {{2.0, kBlank, 2.0, kBlank}, "2"},
      {{0.1, -2.5, 0.1, -2.5, 0.1}, "0.1"},
      {{1e20, 1e20, -0.0, 0.0}, "0, 1E+20"},
      {{kBlank, kBlank}, "-"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.mode);
    const CellValue mode = engineOf(column(c.data)).Mode();
    ASSERT_TRUE(mode.isText());
    EXPECT_EQ(mode.text(), c.mode);
  }
  // No data at all: the table cannot even be started, and the mode reads "-" all the same.
  EXPECT_TRUE(isDash(clsDSBO().Mode()));
}

ValueArray2D table(const std::vector<std::pair<CellValue, double>>& rows) {
  ValueArray2D out(static_cast<std::int32_t>(rows.size()), 2);
  std::int32_t r = 0;
  for (const auto& [value, count] : rows) {
    ++r;
    out(r, 1) = value;
    out(r, 2) = count;
  }
  return out;
}

TEST_F(ModeTest, TallyOfAnyArrayUsesCellValueEquality) {
  const struct {
    const char* name;
    std::vector<CellValue> data;
    ValueArray2D expected;
  } cases[] = {
      {"first appearance order among equal counts",
       {3.0, 1.0, 3.0, "a", true, -1.0, "a", kBlank, 0.0},
       table({{1.0, 1}, {0.0, 1}, {3.0, 2}, {"a", 2}, {true, 2}})},
      {"an empty first row collects 0, False and the empty text",
       {kBlank, 0.0, "", 5.0, false, kBlank},
       table({{5.0, 1}, {kBlank, 4}})},
      {"texts compare byte for byte, never with numbers",
       {"A", "a", "1", 1.0, "a"},
       table({{"A", 1}, {"1", 1}, {1.0, 1}, {"a", 2}})},
      {"a lone error value is never compared", {ErrorValue::NA, kBlank}, table({{ErrorValue::NA, 1}})},
  };
  clsDSBO e;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    ValueArray2D data = column(c.data);
    EXPECT_EQ(e.Tally(data), c.expected);
  }

  ValueArray2D withError = column({CellValue(1.0), CellValue(ErrorValue::NA)});
  expectError([&] { e.Tally(withError); }, err::kTypeMismatch, source("Tally"));
  ValueArray2D noRows;
  expectError([&] { e.Tally(noRows); }, err::kSubscriptOutOfRange, source("Tally"));
}

// The table as a search through the values found so far builds it, for numbers and empty cells.
ValueArray2D searchedTally(const ValueArray2D& data) {
  std::vector<std::pair<CellValue, double>> rows{{data(1, 1), 1}};
  for (std::int32_t i = 2; i <= data.rows(); ++i) {
    if (data(i, 1).isEmpty()) continue;
    auto it = std::find_if(rows.begin(), rows.end(), [&](const auto& r) {
      return r.first.isNumber() && r.first.number() == data(i, 1).number();
    });
    if (it == rows.end()) {
      rows.emplace_back(data(i, 1), 1);
    } else {
      it->second += 1;
    }
  }
  std::stable_sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) { return a.second < b.second; });
  return table(rows);
}

TEST_F(ModeTest, TallyMatchesTheSearchedTableOnRandomColumns) {
  for (const unsigned seed : {11u, 12u, 13u, 14u}) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 gen(seed);
    std::uniform_int_distribution<int> value(-5, 15);
    std::vector<CellValue> cells;
    for (int i = 0; i < 400; ++i) cells.emplace_back(value(gen) % 7 == 0 ? kBlank : CellValue(value(gen) / 2.0));
    cells.front() = 1.0;  // the reference below knows nothing of an empty row 1
    ValueArray2D shuffled = column(cells);

    clsDSBO e;
    EXPECT_EQ(e.Tally(shuffled), searchedTally(shuffled));  // grouped through the hash maps

    e.Data(shuffled);  // sorted: run-length counted
    std::map<double, int> counts;
    for (const CellValue& v : cells) counts[v.isEmpty() ? 1e300 : v.number()] += v.isEmpty() ? 0 : 1;
    counts.erase(1e300);
    int highest = 0;
    for (const auto& [x, n] : counts) highest = std::max(highest, n);
    std::string expected;
    for (const auto& [x, n] : counts) {
      if (n != highest) continue;
      expected += (expected.empty() ? "" : ", ") + numberToText(x);
    }
    EXPECT_EQ(e.Mode(), CellValue(expected));
  }
}

}  // namespace
}  // namespace orv::testing
