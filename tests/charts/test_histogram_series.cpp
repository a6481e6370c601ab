// The histogram's own numbers: category edges and "from - to" labels for each layout of the bins,
// and the sample moments the normal curve is fitted with.

#include <gtest/gtest.h>

#include <cmath>

#include "frequency/histogram_series.h"

namespace orv::test {
namespace {

using Edges = std::vector<CategoryEdges>;
constexpr std::optional<double> kOpen = std::nullopt;

TEST(HistogramSeries, EdgesFollowTheCategoryFlags) {
  struct Case {
    const char* name;
    std::vector<double> values;
    CategoryFlags flags;
    Edges edges;
    std::vector<std::string> labels;
  };
  const Case cases[] = {
      {"equal widths, closed top", {10, 20, 30}, {false, false},
       {{10, 20}, {20, 30}, {30, 40}}, {"10 - 20", "20 - 30", "30 - 40"}},
      {"< in front, >= behind", {10, 10, 20, 30}, {true, true},
       {{kOpen, 10}, {10, 20}, {20, 30}, {30, kOpen}}, {"<10", "10 - 20", "20 - 30", ">=30"}},
      {"< in front of two bins", {0.1, 0.1, 0.2}, {true, false},
       {{kOpen, 0.1}, {0.1, 0.2}, {0.2, 0.30000000000000004}}, {"<0.1", "0.1 - 0.2", "0.2 - 0.3"}},
      {"a single bin stays open", {5}, {false, false}, {{5, kOpen}}, {">=5"}},
      {"a single bin behind <", {5, 5}, {true, false}, {{kOpen, 5}, {5, kOpen}}, {"<5", ">=5"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const Edges edges = binnedCategoryEdges(c.values, c.flags);
    ASSERT_EQ(edges.size(), c.edges.size());
    for (std::size_t i = 0; i < edges.size(); ++i) {
      EXPECT_EQ(edges[i].lower.has_value(), c.edges[i].lower.has_value()) << i;
      EXPECT_EQ(edges[i].upper.has_value(), c.edges[i].upper.has_value()) << i;
      if (edges[i].lower && c.edges[i].lower) {
        EXPECT_DOUBLE_EQ(*edges[i].lower, *c.edges[i].lower);
      }
      if (edges[i].upper && c.edges[i].upper) {
        EXPECT_DOUBLE_EQ(*edges[i].upper, *c.edges[i].upper);
      }
    }
    EXPECT_EQ(rangeLabels(edges), c.labels);
  }
}

TEST(HistogramSeries, MomentsCountWeightsAndTakeEmptyCellsAsZero) {
  // 2, 4 (weight 2.5 -> 2), 9 (weight 3.5 -> 4), and an empty cell (0, weight 1).
  const ValueArray1D data(std::vector<CellValue>{2.0, "4", 9.0, CellValue()});
  const ValueArray1D weights(std::vector<CellValue>{1.0, 2.5, 3.5, 1.0});
  const std::vector<double> x = {2, 4, 4, 9, 9, 9, 9, 0};
  double mean = 0;
  for (double v : x) mean += v / static_cast<double>(x.size());
  double ss = 0;
  for (double v : x) ss += (v - mean) * (v - mean);
  const std::optional<SampleMoments> m = sampleMoments(data, weights);
  ASSERT_TRUE(m.has_value());
  EXPECT_NEAR(m->mean, mean, 1e-12);
  EXPECT_NEAR(m->standardDeviation, std::sqrt(ss / static_cast<double>(x.size() - 1)), 1e-12);

  struct Case {
    const char* name;
    std::vector<CellValue> cells;
  };
  const Case none[] = {{"one observation", {3.0}}, {"no spread", {3.0, 3.0, 3.0}}, {"a text", {1.0, "red"}}};
  for (const Case& c : none) {
    SCOPED_TRACE(c.name);
    EXPECT_FALSE(sampleMoments(ValueArray1D(c.cells), std::nullopt).has_value());
  }
}

}  // namespace
}  // namespace orv::test
