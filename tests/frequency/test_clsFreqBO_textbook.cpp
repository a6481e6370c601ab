// clsFreqBO with Textbook: empty cells are no observations in binned counting and in the proposed
// bins, and lists as long as a sheet column are counted; everything else as with the kept rules.

#include "engine_fixture.h"

namespace orv::test {
namespace {

clsFreqBO textbookAnalysed(const Analysis& a) {
  clsFreqBO bo;
  bo.Textbook(true);
  bo.DataType(a.dataType);
  bo.Data(cells(a.data));
  if (!a.weights.empty()) bo.Frequencies(cells(a.weights));
  if (!a.bins.empty()) bo.Bin(cells(a.bins));
  bo.Analyse();
  return bo;
}

TEST(FreqBOTextbook, EmptyCellsAreNoObservationsInBinnedCounting) {
  const struct {
    const char* name;
    Analysis analysis;
    Texts keptValues;
    Counts keptCounts;
    Texts textbookValues;
    Counts textbookCounts;
  } cases[] = {
      // Bins from 10: the kept rules count the two blanks as 0, below the first bin.
      {"blanks below the bins",
       {{12.0, kBlank, 25.0, 14.0, kBlank}, {}, {10.0, 20.0, 30.0}},
       {"10", "10", "20", "30"},
       {2, 2, 1, 0},
       {"10", "20", "30"},
       {2, 1, 0}},
      // Bins from 0: the blanks land in the bin holding 0.
      {"blanks in the first bin", {{3.0, kBlank, 7.0}, {}, {0.0, 5.0}}, {"0", "5"}, {2, 1}, {"0", "5"}, {1, 1}},
      // Weighted: a blank's weight is not counted either.
      {"weighted blanks", {{3.0, kBlank, 7.0}, {2.0, 5.0, 1.0}, {0.0, 5.0}}, {"0", "5"}, {7, 1}, {"0", "5"}, {2, 1}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const clsFreqBO kept = analysed(c.analysis);
    EXPECT_EQ(textsOf(kept.Values()), c.keptValues);
    EXPECT_EQ(kept.Counts().items(), c.keptCounts);
    const clsFreqBO textbook = textbookAnalysed(c.analysis);
    EXPECT_EQ(textsOf(textbook.Values()), c.textbookValues);
    EXPECT_EQ(textbook.Counts().items(), c.textbookCounts);
    EXPECT_FALSE(textbook.LessThanCatUsed());
  }
}

TEST(FreqBOTextbook, ProposedBinsIgnoreEmptyCells) {
  const ValueArray1D data = cells({12.0, 15.0, kBlank, 47.0});
  clsFreqBO kept;
  clsFreqBO textbook;
  textbook.Textbook(true);
  // The kept rules read the blank as 0, so the bins reach down to it: width 5 from 0.
  EXPECT_EQ(textsOf(*kept.ProposeBins(data)).front(), "0");
  // Without it, 12, 15, 47: width 5 from 10 (the engine's own worked example).
  EXPECT_EQ(textsOf(*textbook.ProposeBins(data)), (Texts{"10", "15", "20", "25", "30", "35", "40", "45"}));
  // Only empty cells: no observation, no bins (the kept rules see equal values, 0 and 0).
  EXPECT_FALSE(textbook.ProposeBins(cells({kBlank, kBlank})).has_value());
  EXPECT_FALSE(kept.ProposeBins(cells({kBlank, kBlank})).has_value());
}

// 32768 values 0..99 over and over: one more than the kept rules count (the command's tests take
// a whole sheet column).
TEST(FreqBOTextbook, ListsBeyondSixteenBitsAreCounted) {
  constexpr std::int32_t n = 32768;
  Cells data;
  for (std::int32_t i = 0; i < n; ++i) data.emplace_back(static_cast<double>(i % 100));
  const clsFreqBO distinct = textbookAnalysed({data, {}, {}});
  ASSERT_EQ(distinct.Values().size(), 100);
  EXPECT_EQ(distinct.Counts()(1), 328);  // 0, 100, ..., 32700
  EXPECT_EQ(distinct.CumCounts()(100), n);
  const clsFreqBO binned = textbookAnalysed({data, {}, {0.0, 50.0}});
  EXPECT_EQ(binned.CumCounts().items().back(), n);
  const clsFreqBO items = textbookAnalysed({data, {}, {}, 1});
  EXPECT_EQ(items.Values().size(), 100);
  Cells longest(32768, CellValue(1.0));
  try {
    analysed({longest, {}, {}});
    ADD_FAILURE() << "the kept rules counted 32768 observations";
  } catch (const ComponentError& e) {
    EXPECT_EQ(e.number(), err::kOverflow);
  }
}

// Nominal and distinct-value tables skip empty cells with the kept rules already: the same.
TEST(FreqBOTextbook, OtherTablesAreThoseOfTheKeptRules) {
  const Analysis analyses[] = {
      {{3.0, 1.0, kBlank, 3.0, 2.0}, {}, {}},
      {{CellValue("b"), CellValue("a"), kBlank, CellValue("b")}, {}, {}, 1},
      {{3.0, 1.0, 3.0}, {2.0, 1.0, 3.0}, {}},
  };
  for (const Analysis& a : analyses) {
    const clsFreqBO kept = analysed(a);
    const clsFreqBO textbook = textbookAnalysed(a);
    EXPECT_EQ(textsOf(textbook.Values()), textsOf(kept.Values()));
    EXPECT_EQ(textbook.Counts(), kept.Counts());
    EXPECT_EQ(textbook.Percents(), kept.Percents());
  }
}

}  // namespace
}  // namespace orv::test
