// The histogram's own numbers: category edges as the layout writes the bins, "from - to" labels,
// the sample's mean and deviation, and the counts a normal distribution expects.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "frequency/histogram_series.h"
#include "workbook/in_memory_application.h"

namespace orv::test {
namespace {

using Edges = std::vector<CategoryEdges>;
constexpr std::optional<double> kOpen = std::nullopt;

double phi(double z) { return 0.5 * std::erfc(-z / std::sqrt(2.0)); }

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

TEST(HistogramSeries, GroupedMomentsTakeTheMiddleOfClosedCategories) {
  const Edges edges = {{kOpen, 10}, {10, 20}, {20, 30}};
  // 1 at 10 (open below), 2 at 15, 1 at 25.
  const std::optional<SampleMoments> m = groupedMoments(edges, {1, 2, 1});
  ASSERT_TRUE(m.has_value());
  EXPECT_DOUBLE_EQ(m->mean, (10 + 30 + 25) / 4.0);
  EXPECT_FALSE(groupedMoments(edges, {0, 1, 0}).has_value());
}

TEST(HistogramSeries, ExpectedCountsAgreeWithTheNormalDistributionAndTakeTheTails) {
  InMemoryApplication app;
  WorksheetFunction& functions = app.worksheetFunction();
  std::mt19937 random(20240611);
  std::uniform_real_distribution<double> spread(0.5, 20.0);
  for (int round = 0; round < 20; ++round) {
    const SampleMoments m{spread(random) - 10, spread(random)};
    SCOPED_TRACE(round);
    const Edges edges = {{kOpen, -5}, {-5, 0}, {0, 5}, {5, kOpen}};
    const std::vector<double> expected = expectedNormalCounts(edges, 40, m, functions);
    const auto p = [&](double x) { return phi((x - m.mean) / m.standardDeviation); };
    const std::vector<double> independent = {40 * p(-5), 40 * (p(0) - p(-5)), 40 * (p(5) - p(0)), 40 * (1 - p(5))};
    ASSERT_EQ(expected.size(), independent.size());
    double sum = 0;
    for (std::size_t i = 0; i < expected.size(); ++i) {
      EXPECT_NEAR(expected[i], independent[i], 1e-7) << i;
      sum += expected[i];
    }
    EXPECT_NEAR(sum, 40, 1e-9);  // open ends on both sides: the whole distribution
  }
}

}  // namespace
}  // namespace orv::test
