// The automatic bin rule: bins from the range of the data and the smallest gap.

#include <optional>

#include "engine_fixture.h"

namespace orv::test {
namespace {

TEST(FreqBOPropose, BinsFromTheRangeAndTheGap) {
  const struct {
    const char* what;
    Cells data;
    Texts bins;
  } cases[] = {
      {"range 10 normalises to 100 at scale 10: width 1",
       {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10},
       {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"}},
      {"x = 35: step 5, start 10, up to 50 >= 47", {12, 15, 47}, {"10", "15", "20", "25", "30", "35", "40", "45"}},
      {"range 250 normalises to 25 at scale 0.1: step 3",
       {0, 1, 250},
       {"0", "30", "60", "90", "120", "150", "180", "210", "240"}},
      {"x >= 60 takes step 10", {0, 1, 65}, {"0", "10", "20", "30", "40", "50", "60"}},
      {"x >= 50 takes step 7.5", {0, 1, 55}, {"0", "7.5", "15", "22.5", "30", "37.5", "45", "52.5"}},
      {"no bin narrower than the smallest gap", {0, 30, 60, 100}, {"0", "30", "60", "90"}},
      {"the start rounds down", {-6.5, 3.2, -5}, {"-7.5", "-6", "-4.5", "-3", "-1.5", "0", "1.5", "3"}},
      {"an empty cell is 0; its negative gap lifts no bin", {1, 2, 3, kBlank}, {"0", "0.5", "1", "1.5", "2", "2.5"}},
      {"numeric texts are numbers, sorted as texts", {"2", "12"}, {"2", "3", "4", "5", "6", "7", "8", "9", "10", "11"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    clsFreqBO bo;
    const std::optional<ValueArray1D> bins = bo.ProposeBins(cells(c.data));
    ASSERT_TRUE(bins.has_value());
    EXPECT_EQ(textsOf(*bins), c.bins);
  }
}

TEST(FreqBOPropose, Faults) {
  clsFreqBO bo;
  const ComponentError text = errorOf([&] { bo.ProposeBins(cells({1, "n/a"})); });
  EXPECT_EQ(text.number(), err::kTypeMismatch);
  EXPECT_EQ(text.source(), "Line 0 in ORVDescriptives.clsFreqBO.ProposeBins");
  EXPECT_EQ(errorOf([&] { bo.ProposeBins(cells({})); }).number(), err::kSubscriptOutOfRange);
  // A range too small to normalise overflows the scale rather than looping for ever.
  EXPECT_EQ(errorOf([&] { bo.ProposeBins(cells({0, 5e-324})); }).number(), err::kOverflow);
  EXPECT_FALSE(bo.ProposeBins(cells({4, 4, 4})).has_value());
  EXPECT_FALSE(bo.ProposeBins(cells({4})).has_value());  // all values equal: no bins
}

}  // namespace
}  // namespace orv::test
