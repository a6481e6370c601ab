// Distinct values (numerical, no bins) and distinct items (nominal): categories, order, counts.

#include "engine_fixture.h"

namespace orv::test {
namespace {

struct DistinctCase {
  const char* what;
  Cells data, weights;
  Texts values;
  Counts counts;
};

TEST(FreqBODistinct, NumericalValuesAscendAsTexts) {
  const std::vector<DistinctCase> cases = {
      {"3, 1, 3, 2", {3, 1, 3, 2}, {}, {"1", "2", "3"}, {1, 1, 2}},
      {"numerical, not text order", {10, -1.5, 2, -1.5}, {}, {"-1.5", "2", "10"}, {2, 1, 1}},
      {"a blank forms no category and counts nowhere", {2, kBlank, 2, kBlank}, {}, {"2"}, {2}},
      {"only blanks: one empty category", {kBlank, kBlank}, {}, {""}, {2}},
      {"a number and its text are one value", {3, "3", 3.0}, {}, {"3"}, {3}},
      {"values equal to 15 digits are one value", {0.1 + 0.2, 0.3}, {}, {"0.3"}, {2}},
      {"minus zero is zero", {-0.0, 0.0}, {}, {"0"}, {2}},
      {"texts come after the numbers", {"b", 2, "a", 1}, {}, {"1", "2", "a", "b"}, {1, 1, 1, 1}},
      {"weights", {5, 7, 5}, {2, 1, 2.5}, {"5", "7"}, {4, 1}},
  };
  for (const DistinctCase& c : cases) {
    SCOPED_TRACE(c.what);
    clsFreqBO bo = analysed({c.data, c.weights, {}});
    const ValueArray1D values = bo.Values();
    EXPECT_EQ(textsOf(values), c.values);
    for (const CellValue& v : values.items()) EXPECT_TRUE(v.isText()) << describe(v);
    EXPECT_EQ(bo.Counts().items(), c.counts);
    EXPECT_FALSE(bo.LessThanCatUsed());
    EXPECT_FALSE(bo.GreaterThanCatUsed());
  }
}

TEST(FreqBODistinct, NominalItemsKeepTheirOrderOfFirstAppearance) {
  const std::vector<DistinctCase> cases = {
      {"b, a, b, c, a", {"b", "a", "b", "c", "a"}, {}, {"b", "a", "c"}, {2, 2, 1}},
      {"blanks in the middle count nowhere", {"x", kBlank, "y", kBlank, "x"}, {}, {"x", "y"},
       {2, 1}},
      {"a blank first cell is a category and collects every blank",
       {kBlank, "a", kBlank, "a"}, {}, {"", "a"}, {2, 2}},
      {"comparison is exact and case-sensitive", {"Red", "red", "Red "}, {}, {"Red", "red", "Red "},
       {1, 1, 1}},
      {"weights 2 and 3 for x, x", {"x", "x"}, {2, 3}, {"x"}, {5}},
      {"a number equals its text form", {3, "3", 4, "4"}, {}, {"3", "4"}, {2, 2}},
  };
  for (const DistinctCase& c : cases) {
    SCOPED_TRACE(c.what);
    clsFreqBO bo = analysed({c.data, c.weights, {}, ORVDescriptivesFreqNominal});
    EXPECT_EQ(textsOf(bo.Values()), c.values);
    EXPECT_EQ(bo.Counts().items(), c.counts);
  }
}

TEST(FreqBODistinct, TheFirstItemStaysAsItStandsAndLaterOnesAreTexts) {
  clsFreqBO numbers = analysed({{1, 2, kBlank, 1}, {}, {}, ORVDescriptivesFreqNominal});
  EXPECT_EQ(numbers.Values().items(), (std::vector<CellValue>{1, "2"}));

  clsFreqBO blank = analysed({{kBlank, 5}, {}, {}, ORVDescriptivesFreqNominal});
  EXPECT_TRUE(blank.Values()(1).isEmpty());
}

TEST(FreqBODistinct, NominalIgnoresBinsAndAnyNonZeroTypeIsNominal) {
  EXPECT_EQ(textsOf(analysed({{"b", "a", "b"}, {}, {}, 7}).Values()), (Texts{"b", "a"}));
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
  // Category "3" is scanned before "5", so its weight's overflow beats 5's text weight.
  EXPECT_EQ(errorOf([] { analysed({{5, 3}, {"x", 3e9}, {}}); }).number(), err::kOverflow);
}

TEST(FreqBODistinct, SixteenBitCountersStopAt32767Observations) {
  std::vector<CellValue> data;
  for (int i = 0; i < 32767; ++i) data.emplace_back(static_cast<double>(i));
  for (std::int32_t type : {0, 1}) {
    SCOPED_TRACE(type);
    clsFreqBO bo = analysed({data, {}, {}, type});
    EXPECT_EQ(bo.Values().size(), 32767);
    EXPECT_EQ(bo.CumCounts()(32767), 32767);
  }
  data.emplace_back(1.0);
  for (std::int32_t type : {0, 1}) {
    SCOPED_TRACE(type);
    EXPECT_EQ(errorOf([&] { analysed({data, {}, {}, type}); }).number(), err::kOverflow);
  }
}

}  // namespace
}  // namespace orv::test
