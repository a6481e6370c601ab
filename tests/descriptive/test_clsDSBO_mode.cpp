// Mode and the frequency table behind it.

#include "engine_fixture.h"

namespace orv::testing {
namespace {

using ModeTest = EngineTest;

TEST_F(ModeTest, ModalValuesAscendingOrDash) {
  const struct {
    std::vector<CellValue> data;
    const char* mode;
  } cases[] = {
      {{3.0, 3.0, 1.0, 2.0, 1.0}, "1, 3"},
      {{1.0, 2.0, 3.0}, "-"},
      {{7.0}, "-"},
      {{2.0, kBlank, 2.0, kBlank}, "2"},
      {{0.1, -2.5, 0.1, -2.5, 0.1}, "0.1"},
      {{1e20, 1e20, -0.0, 0.0}, "0, 1E+20"},
      {{kBlank, kBlank}, "-"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.mode);
    EXPECT_EQ(engineOf(column(c.data)).Mode(), CellValue(c.mode));
  }
  EXPECT_TRUE(isDash(clsDSBO().Mode()));  // no data at all
}

ValueArray2D table(const std::vector<std::pair<CellValue, double>>& rows) {
  ValueArray2D out(static_cast<std::int32_t>(rows.size()), 2);
  std::int32_t r = 0;
  for (const auto& [value, count] : rows) {
    out(++r, 1) = value;
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

}  // namespace
}  // namespace orv::testing
