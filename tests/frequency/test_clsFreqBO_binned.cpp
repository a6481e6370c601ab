// Binned counting: bins, the "<" and ">=" categories, four-decimal widths, weights, faults.

#include "engine_fixture.h"

namespace orv::test {
namespace {

TEST(FreqBOBinned, CategoriesCountsAndFlags) {
  const struct {
    const char* what;
    Cells bins, data, weights;
    Texts values;
    Counts counts;
    bool lessThan, greaterThan;
  } cases[] = {
      {"unequal widths: the last bin stays open, yet it is flagged",
       {0, 10, 25},
       {1, 12, 30, 100},
       {},
       {"0", "10", "25"},
       {1, 1, 2},
       false,
       true},
      {"0.1, 0.2, 0.3 are equal steps in fixed point, so 0.4 closes the last bin",
       {0.1, 0.2, 0.3},
       {0.1, 0.25, 0.35, 0.4},
       {},
       {"0.1", "0.2", "0.3", "0.4"},
       {1, 1, 1, 1},
       false,
       true},
      {"a single bin: no width, everything at or above it in it, the rest before it",
       {5},
       {3, 5, 100},
       {},
       {"5", "5"},
       {1, 2},
       true,
       false},
      {"a first width of zero ends the width test without touching the >= flag",
       {5, 5},
       {1, 7},
       {},
       {"5", "5", "5"},
       {1, 0, 1},
       true,
       false},
      {"weights are rounded half to even: 2.5 counts 2, 3.5 counts 4",
       {0, 10},
       {1, 11},
       {2.5, 3.5},
       {"0", "10"},
       {2, 4},
       false,
       false},
      {"an empty data cell is the value 0; numeric texts are numbers, on either side",
       {"0", "10"},
       {kBlank, "4", " 12 "},
       {},
       {"0", "10"},
       {2, 1},
       false,
       false},
      {"bins out of order: the scan from the last bin down takes the first bin <= x",
       {0, 20, 10},
       {5, 15, 25},
       {},
       {"0", "20", "10"},
       {1, 0, 2},
       false,
       true},
      {"a value equal to a bin belongs to it; the top test rounds 19.99995 to 20 first",
       {0, 10},
       {10, 20, 19.99995},
       {},
       {"0", "10", "20"},
       {0, 1, 2},
       false,
       true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    clsFreqBO bo = analysed({c.data, c.weights, c.bins});
    EXPECT_EQ(textsOf(bo.Values()), c.values);
    EXPECT_EQ(bo.Counts().items(), c.counts);
    EXPECT_EQ(bo.LessThanCatUsed(), c.lessThan);
    EXPECT_EQ(bo.GreaterThanCatUsed(), c.greaterThan);
  }
}

TEST(FreqBOBinned, Faults) {
  const struct {
    const char* what;
    Analysis analysis;
    std::int32_t number;
  } cases[] = {
      {"all weights zero: 0/0", {{1, 2}, {0, 0}, {0, 10}}, err::kOverflow},
      {"counts that cancel: 1/0", {{1, 12}, {1, -1}, {0, 10}}, err::kDivisionByZero},
      {"a datum that is no number", {{1, "n/a"}, {}, {0, 10}}, err::kTypeMismatch},
      {"a datum beyond the fixed-point range", {{1e15}, {}, {0, 10}}, err::kOverflow},
      {"a weight beyond 32 bits", {{1}, {3e9}, {0, 10}}, err::kOverflow},
      {"a count beyond 32 bits", {{1, 2}, {2e9, 2e9}, {0, 10}}, err::kOverflow},
      {"fewer weights than data", {{1, 2}, {1}, {0, 10}}, err::kSubscriptOutOfRange},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const ComponentError e = errorOf([&] { analysed(c.analysis); });
    EXPECT_EQ(e.number(), c.number);
    EXPECT_EQ(e.source(), kAnalyse);
  }
  // A bin that is no number fails only when the scan from the top reaches it: 25 stops at 20.
  clsFreqBO bo = analysed({{25}, {}, {0, 20, 30, "x", 20}});
  EXPECT_EQ(bo.Counts().items(), (Counts{0, 0, 0, 0, 1}));
  EXPECT_EQ(errorOf([&] { analysed({{15}, {}, {0, 20, 30, "x", 20}}); }).number(), err::kTypeMismatch);
}

}  // namespace
}  // namespace orv::test
