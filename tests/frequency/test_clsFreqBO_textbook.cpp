// clsFreqBO with Textbook: empty cells are no observations in binned counting and in the proposed
// bins, and lists as long as a sheet column are counted; everything else as with the kept rules.

#include "engine_fixture.h"

namespace orv::test {
namespace {

Analysis textbook(Analysis a) {
  a.textbook = true;
  return a;
}

TEST(FreqBOTextbook, EmptyCellsAreNoObservationsInBinnedCounting) {
  const struct {
    const char* name;
    Analysis analysis;
    const char *kept, *textbook;  // "value:count" per category
  } cases[] = {
      // Bins from 10: the kept rules count the two blanks as 0, below the first bin.
      {"blanks below the bins",
       {{12.0, kBlank, 25.0, 14.0, kBlank}, {}, {10.0, 20.0, 30.0}},
       "10:2 10:2 20:1 30:0",
       "10:2 20:1 30:0"},
      // Bins from 0: the blanks land in the bin holding 0.
      {"blanks in the first bin", {{3.0, kBlank, 7.0}, {}, {0.0, 5.0}}, "0:2 5:1", "0:1 5:1"},
      // Weighted: a blank's weight is not counted either.
      {"weighted blanks", {{3.0, kBlank, 7.0}, {2.0, 5.0, 1.0}, {0.0, 5.0}}, "0:7 5:1", "0:2 5:1"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(tableOf(analysed(c.analysis)), c.kept);
    const clsFreqBO bo = analysed(textbook(c.analysis));
    EXPECT_EQ(tableOf(bo), c.textbook);
    EXPECT_FALSE(bo.LessThanCatUsed());
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
  const clsFreqBO distinct = analysed({data, {}, {}, 0, true});
  ASSERT_EQ(distinct.Values().size(), 100);
  EXPECT_EQ(distinct.Counts()(1), 328);  // 0, 100, ..., 32700
  EXPECT_EQ(distinct.CumCounts()(100), n);
  EXPECT_EQ(analysed({data, {}, {0.0, 50.0}, 0, true}).CumCounts().items().back(), n);
  EXPECT_EQ(analysed({data, {}, {}, 1, true}).Values().size(), 100);
  EXPECT_EQ(errorOf([&] { analysed({data, {}, {}}); }).number(), err::kOverflow);  // the kept rules
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
    const clsFreqBO bo = analysed(textbook(a));
    EXPECT_EQ(textsOf(bo.Values()), textsOf(kept.Values()));
    EXPECT_EQ(bo.Counts(), kept.Counts());
    EXPECT_EQ(bo.Percents(), kept.Percents());
  }
}

}  // namespace
}  // namespace orv::test
