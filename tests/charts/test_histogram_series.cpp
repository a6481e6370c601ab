// The histogram's own numbers: category edges and "from - to" labels at the edges of the bin
// layouts, and the sample moments the normal curve is fitted with.

#include <gtest/gtest.h>

#include <cmath>

#include "frequency/histogram_series.h"

namespace orv::test {
namespace {

constexpr std::optional<double> kOpen = std::nullopt;

TEST(HistogramSeries, EdgesFollowTheCategoryFlags) {
  struct Case {
    const char* name;
    std::vector<double> values;
    CategoryFlags flags;
    std::vector<CategoryEdges> edges;
    std::vector<std::string> labels;
  };
  const Case cases[] = {
      {"< in front of two bins",
       {0.1, 0.1, 0.2},
       {true, false},
       {{kOpen, 0.1}, {0.1, 0.2}, {0.2, 0.30000000000000004}},
       {"<0.1", "0.1 - 0.2", "0.2 - 0.3"}},
      {"a single bin stays open", {5}, {false, false}, {{5, kOpen}}, {">=5"}},
      {"a single bin behind <", {5, 5}, {true, false}, {{kOpen, 5}, {5, kOpen}}, {"<5", ">=5"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const std::vector<CategoryEdges> edges = binnedCategoryEdges(c.values, c.flags);
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
  // By hand, of 2, 4, 4, 9, 9, 9, 9, 0: mean 46 / 8, squared deviations summing to 95.5.
  const std::optional<SampleMoments> m = sampleMoments(data, weights);
  ASSERT_TRUE(m.has_value());
  EXPECT_NEAR(m->mean, 5.75, 1e-12);
  EXPECT_NEAR(m->standardDeviation, std::sqrt(95.5 / 7), 1e-12);
  // No curve: one observation, no spread, or a text.
  for (const std::vector<CellValue>& cells : std::vector<std::vector<CellValue>>{{3.0}, {3.0, 3.0}, {1.0, "red"}}) {
    EXPECT_FALSE(sampleMoments(ValueArray1D(cells), std::nullopt).has_value()) << cells.size();
  }
}

}  // namespace
}  // namespace orv::test
