// Distinct values (numerical, no bins) and distinct items (nominal): categories, order, counts.

#include "engine_fixture.h"

namespace orv::test {
namespace {

constexpr std::int32_t kNumerical = 0, kNominal = ORVDescriptivesFreqNominal;

TEST(FreqBODistinct, NumericalValuesAscendAsTextsAndNominalItemsKeepTheirFirstOrder) {
  const struct {
    const char* what;
    std::int32_t type;
    Cells data, weights;
    const char* table;  // "value:count" per category
  } cases[] = {
      {"numerical, not text order", kNumerical, {10, -1.5, 2, -1.5}, {}, "-1.5:2 2:1 10:1"},
      {"a blank forms no category and counts nowhere", kNumerical, {2, kBlank, 2, kBlank}, {}, "2:2"},
      {"only blanks: one empty category", kNumerical, {kBlank, kBlank}, {}, ":2"},
      {"values equal to 15 digits are one value", kNumerical, {0.1 + 0.2, 0.3}, {}, "0.3:2"},
      {"minus zero is zero", kNumerical, {-0.0, 0.0}, {}, "0:2"},
      {"texts after the numbers", kNumerical, {"b", 2, "a", 1}, {}, "1:1 2:1 a:1 b:1"},
      {"weights", kNumerical, {5, 7, 5}, {2, 1, 2.5}, "5:4 7:1"},
      {"blanks in the middle count nowhere", kNominal, {"x", kBlank, "y", kBlank, "x"}, {}, "x:2 y:1"},
      {"a blank first cell collects every blank", kNominal, {kBlank, "a", kBlank, "a"}, {}, ":2 a:2"},
      {"exact and case-sensitive; weighted",
       kNominal,
       {"Red", "red", "Red ", "red"},
       {1, 1, 1, 3},
       "Red:1 red:4 Red :1"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    clsFreqBO bo = analysed({c.data, c.weights, {}, c.type});
    EXPECT_EQ(tableOf(bo), c.table);
    const ValueArray1D values = bo.Values();
    for (const CellValue& v : values.items()) EXPECT_TRUE(v.isText() || c.type == kNominal) << describe(v);
    EXPECT_FALSE(bo.LessThanCatUsed());
    EXPECT_FALSE(bo.GreaterThanCatUsed());
  }
}

TEST(FreqBODistinct, NominalKeepsTheFirstItemAsItStandsIgnoresBinsAndIsAnyNonZeroType) {
  EXPECT_EQ(analysed({{1, 2, kBlank, 1}, {}, {}, 7}).Values().items(), (std::vector<CellValue>{1, "2"}));
  EXPECT_TRUE(analysed({{kBlank, 5}, {}, {}, 1}).Values()(1).isEmpty());
  clsFreqBO withBins = analysed({{"b", "a"}, {}, {0, 10}, ORVDescriptivesFreqNominal});
  EXPECT_EQ(textsOf(withBins.Values()), (Texts{"b", "a"}));
  EXPECT_FALSE(withBins.GreaterThanCatUsed());
}

TEST(FreqBODistinct, Faults) {
  clsFreqBO noData;
  noData.DataType(ORVDescriptivesFreqNominal);
  const ComponentError e = errorOf([&] { noData.Analyse(); });
  EXPECT_EQ(e.number(), err::kTypeMismatch);
  EXPECT_EQ(e.source(), kAnalyse);

  EXPECT_EQ(errorOf([] { analysed({{}, {}, {}}); }).number(), err::kSubscriptOutOfRange);
  EXPECT_EQ(errorOf([] { analysed({{"a", "b"}, {0, 0}, {}, 1}); }).number(), err::kOverflow);
  // A weight that is no number matters only where its datum is counted.
  EXPECT_EQ(analysed({{1, kBlank}, {1, "x"}, {}}).Counts().items(), Counts{1});
  EXPECT_EQ(errorOf([] { analysed({{1, 1}, {1, "x"}, {}}); }).number(), err::kTypeMismatch);
}

TEST(FreqBODistinct, SixteenBitCountersStopAt32767Observations) {
  Cells distinct, ones(32767, CellValue(1.0));
  for (int i = 0; i < 32767; ++i) distinct.emplace_back(static_cast<double>(i));
  const Analysis runs[] = {{distinct, {}, {}, 0}, {distinct, {}, {}, 1}, {ones, {}, {0, 10}, 0}};
  for (Analysis run : runs) {
    SCOPED_TRACE(::testing::Message() << "type " << run.dataType << ", bins " << run.bins.size());
    const clsFreqBO bo = analysed(run);
    EXPECT_EQ(bo.Values().size(), run.bins.empty() ? 32767 : 2);
    EXPECT_EQ(bo.CumCounts().items().back(), 32767);
    run.data.emplace_back(1.0);
    EXPECT_EQ(errorOf([&] { analysed(run); }).number(), err::kOverflow);
  }
}

}  // namespace
}  // namespace orv::test
