// Binned counting: bins, the "<" and ">=" categories, four-decimal widths, weights, faults.

#include "engine_fixture.h"

namespace orv::test {
namespace {

TEST(FreqBOBinned, CategoriesCountsAndFlags) {
  const struct {
    Cells bins, data, weights;
    const char* table;  // "value:count" per category
    bool lessThan, greaterThan;
  } cases[] = {
      // Unequal widths: the last bin stays open, yet it is flagged.
      {{0, 10, 25}, {1, 12, 30, 100}, {}, "0:1 10:1 25:2", false, true},
      // 0.1, 0.2, 0.3 are equal steps in fixed point, so 0.4 closes the last bin.
      {{0.1, 0.2, 0.3}, {0.1, 0.25, 0.35, 0.4}, {}, "0.1:1 0.2:1 0.3:1 0.4:1", false, true},
      // A single bin: no width, everything at or above it in it, the rest before it.
      {{5}, {3, 5, 100}, {}, "5:1 5:2", true, false},
      // A first width of zero ends the width test without touching the >= flag.
      {{5, 5}, {1, 7}, {}, "5:1 5:0 5:1", true, false},
      // Weights are rounded half to even: 2.5 counts 2, 3.5 counts 4.
      {{0, 10}, {1, 11}, {2.5, 3.5}, "0:2 10:4", false, false},
      // An empty data cell is the value 0; numeric texts are numbers, on either side.
      {{"0", "10"}, {kBlank, "4", " 12 "}, {}, "0:2 10:1", false, false},
      // Bins out of order: the scan from the last bin down takes the first bin <= x.
      {{0, 20, 10}, {5, 15, 25}, {}, "0:1 20:0 10:2", false, true},
      // A value equal to a bin belongs to it; the top test rounds 19.99995 to 20 first.
      {{0, 10}, {10, 20, 19.99995}, {}, "0:0 10:1 20:2", false, true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::PrintToString(c.bins) + " / " + ::testing::PrintToString(c.data));
    clsFreqBO bo = analysed({c.data, c.weights, c.bins});
    EXPECT_EQ(tableOf(bo), c.table);
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
      {"a text bin the scan from the top reaches", {{15}, {}, {0, 20, 30, "x", 20}}, err::kTypeMismatch},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const ComponentError e = errorOf([&] { analysed(c.analysis); });
    EXPECT_EQ(e.number(), c.number);
    EXPECT_EQ(e.source(), kAnalyse);
  }
  // The same bin list is harmless where the scan from the top stops before the text: 25 stops at 20.
  EXPECT_EQ(analysed({{25}, {}, {0, 20, 30, "x", 20}}).Counts().items(), (Counts{0, 0, 0, 0, 1}));
}

}  // namespace
}  // namespace orv::test
