// clsDSBO with Textbook: against values that established packages compute on published samples,
// the sample sizes the formulas allow, precision far from zero, and whole sheet columns.

#include <algorithm>
#include <cmath>

#include "engine_fixture.h"
#include "reference_samples.h"

namespace orv::testing {
namespace {

using samples::kFaithfulWaiting;
using samples::kIrisPetalLength;
using samples::kLakeHuron;

class Textbook : public EngineTest {
 protected:
  clsDSBO textbookOf(const std::vector<double>& data) {
    clsDSBO e;
    e.Functions(&functions_);
    e.Textbook(true);
    e.Data(columnOf(data));
    return e;
  }
};

// Computed with scipy 1.10.1 (Debian 12, python3-scipy) on the samples of reference_samples.h:
//   Rscript -e 'cat(as.numeric(DATA), sep=",")' | python3 -c 'import sys, numpy as np;
//     from scipy import stats; x = np.array([float(v) for v in sys.stdin.read().split(",")]);
//     print("%.17g " * 6 % (np.mean(x), np.var(x, ddof=1), stats.skew(x, bias=False),
//       stats.kurtosis(x, bias=False), stats.skewtest(x).pvalue, stats.kurtosistest(x).pvalue))'
// (women$height: the same; scipy warns that kurtosistest wants 20 observations but computes it.)
TEST_F(Textbook, MomentsAndNormalityTestsAgreeWithScipy) {
  const std::vector<double> women = {58, 59, 60, 61, 62, 63, 64, 65, 66, 67, 68, 69, 70, 71, 72};
  const struct {
    const char* name;
    const std::vector<double>& data;
    double mean, variance, skewness, kurtosis, skewnessP, kurtosisP;
  } cases[] = {
      {"iris$Petal.Length", kIrisPetalLength, 3.7580000000000005, 3.1162778523489929, -0.27488417975101281,
       -1.4021034155217516, 0.16154937503384703, 1.0370372230866573e-49},
      {"LakeHuron", kLakeHuron, 579.00408163265308, 1.7379110035766856, -0.14195401129909693, -0.4635458502892531,
       0.54880471133211617, 0.28430259501482247},
      {"faithful$waiting", kFaithfulWaiting, 70.897058823529406, 184.82331235077058, -0.41863094909479143,
       -1.1415288031601762, 0.0055777647862840542, 6.933771989111699e-24},
      {"women$height", women, 65, 20, 0, -1.2000000000000008, 1, 0.17230376854831686},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    clsDSBO e = textbookOf(c.data);
    EXPECT_NEAR(e.Mean(), c.mean, 1e-15 * std::fabs(c.mean));
    EXPECT_LT(relative(e.Variance(), c.variance), 1e-13);
    EXPECT_NEAR(numberOf(e.Skewness()), c.skewness, 1e-13);
    EXPECT_NEAR(numberOf(e.Kurtosis()), c.kurtosis, 1e-13);
    EXPECT_NEAR(numberOf(e.SkewnessP()), c.skewnessP, 1e-12);
    EXPECT_LT(relative(numberOf(e.KurtosisP()), c.kurtosisP), 1e-9);
  }
}

// R 4.2.2: Rscript -e 'options(digits = 17); print(unname(quantile(as.numeric(DATA),
//   c(1, 5, 10, 25, 50, 75, 90, 95, 98, 99) / 100, type = 6)))'
// Lake Huron's 1st and 99th percentiles sit outside its 98 observations (positions 0.99 and
// 98.01): the smallest and the largest; iris's 99th (149.49 of 150) is interpolated next to the last.
TEST_F(Textbook, PercentilesAreThoseOfRsQuantileType6) {
  const std::uint8_t percents[] = {1, 5, 10, 25, 50, 75, 90, 95, 98, 99};
  const struct {
    const char* name;
    const std::vector<double>& data;
    double quantiles[10];
  } cases[] = {
      {"iris$Petal.Length",
       kIrisPetalLength,
       {1.0510000000000002, 1.3, 1.3999999999999999, 1.5750000000000002, 4.3499999999999996, 5.0999999999999996,
        5.7999999999999998, 6.0999999999999996, 6.6979999999999986, 6.7980000000000018}},
      {"LakeHuron",
       kLakeHuron,
       {575.96000000000004, 576.7974999999999, 576.89999999999998, 578.11250000000007, 579.12, 579.88999999999999,
        580.80200000000002, 581.32400000000007, 581.68359999999996, 581.86000000000001}},
      {"faithful$waiting",
       kFaithfulWaiting,
       {45, 47.649999999999999, 51, 58, 76, 82, 86, 89, 91.54000000000002, 93.269999999999982}},
  };
  for (const auto& c : cases) {
    clsDSBO e = textbookOf(c.data);
    for (std::size_t i = 0; i < std::size(percents); ++i) {
      SCOPED_TRACE(std::string(c.name) + ", P = " + std::to_string(percents[i]));
      // LP reads the smaller of P and 100 - P, UP the larger: either reaches each percentile.
      const double got = percents[i] <= 50 ? e.LP(percents[i]) : e.UP(percents[i]);
      EXPECT_DOUBLE_EQ(got, c.quantiles[i]);
    }
  }
}

// Kurtosis needs 4 observations, its test 5 (where its moments exist); the skewness test keeps
// its 9. Too few, or no spread, is "-" as with the kept rules.
TEST_F(Textbook, ShapeStatisticsForEverySampleSizeTheFormulasAllow) {
  const struct {
    std::vector<double> data;
    bool skewness, skewnessP, kurtosis, kurtosisP;
  } cases[] = {
      {{1, 2}, false, false, false, false},
      {{1, 2, 4}, true, false, false, false},
      {{1, 2, 4, 8}, true, false, true, false},
      {{1, 2, 4, 8, 9}, true, false, true, true},
      {{1, 2, 4, 8, 9, 3, 5, 7}, true, false, true, true},
      {{1, 2, 4, 8, 9, 3, 5, 7, 6}, true, true, true, true},
      {{3, 3, 3, 3, 3, 3, 3, 3, 3, 3}, false, false, false, false},
      {{0.1, 0.1, 0.1, 0.1, 0.1, 0.1}, false, false, false, false},  // a mean that rounds off 0.1
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::PrintToString(c.data));
    clsDSBO e = textbookOf(c.data);
    EXPECT_EQ(e.Skewness().isNumber(), c.skewness);
    EXPECT_EQ(isDash(e.Skewness()), !c.skewness);
    EXPECT_EQ(e.SkewnessP().isNumber(), c.skewnessP);
    EXPECT_EQ(e.Kurtosis().isNumber(), c.kurtosis);
    EXPECT_EQ(e.KurtosisP().isNumber(), c.kurtosisP);
  }
}

// The same sample moved far from zero keeps its spread and shape to the digits the shift leaves;
// the kept rules' power sums lose them.
TEST_F(Textbook, PrecisionDoesNotDependOnWhereTheDataSit) {
  clsDSBO near = textbookOf(kIrisPetalLength);
  for (const double shift : {1e4, 1e6, 1e8}) {
    SCOPED_TRACE(shift);
    clsDSBO far = textbookOf(shifted(kIrisPetalLength, shift));
    // Each value carries an absolute rounding of about shift * 1e-16 once moved.
    const double tolerance = shift * 1e-14;
    EXPECT_NEAR(far.Mean() - shift, near.Mean(), tolerance);
    EXPECT_NEAR(far.Variance(), near.Variance(), tolerance);
    EXPECT_NEAR(numberOf(far.Skewness()), numberOf(near.Skewness()), tolerance);
    EXPECT_NEAR(numberOf(far.Kurtosis()), numberOf(near.Kurtosis()), tolerance);
  }
  const CellValue keptKurtosis = engineOf(columnOf(shifted(kIrisPetalLength, 1e8))).Kurtosis();
  EXPECT_FALSE(keptKurtosis.isNumber() && std::fabs(keptKurtosis.number() + 1.4021034155217516) < 1e-3);
}

TEST_F(Textbook, AWholeSheetColumnOfObservations) {
  constexpr std::int64_t kRows = 1'048'576;
  std::vector<double> data;
  for (std::int64_t i = 0; i < kRows; ++i) data.push_back(static_cast<double>((i * 7919) % 1000));
  clsDSBO e = textbookOf(data);
  EXPECT_EQ(e.Count(), kRows);
  // The values 0..999, each 1048 or 1049 times.
  EXPECT_NEAR(e.Mean(), 499.5, 0.5);
  EXPECT_NEAR(e.Variance(), (1000.0 * 1000.0 - 1) / 12, 500.0);
  EXPECT_TRUE(e.Kurtosis().isNumber());
  EXPECT_TRUE(e.KurtosisP().isNumber());
  std::sort(data.begin(), data.end());
  EXPECT_DOUBLE_EQ(e.Median(), (data[kRows / 2 - 1] + data[kRows / 2]) / 2);
  EXPECT_DOUBLE_EQ(e.Max(), 999.0);

  clsDSBO kept = engineOf(columnOf(data));
  expectError([&] { kept.Mean(); }, err::kOverflow, source("Mean"));
}

// Everything the option does not name reads as with the kept rules.
TEST_F(Textbook, TheOtherStatisticsAreThoseOfTheKeptRules) {
  clsDSBO kept = engineOf(columnOf(kFaithfulWaiting));
  clsDSBO textbook = textbookOf(kFaithfulWaiting);
  EXPECT_EQ(textbook.Count(), kept.Count());
  EXPECT_EQ(textbook.Sum(), kept.Sum());
  EXPECT_EQ(textbook.Median(), kept.Median());
  EXPECT_EQ(textbook.Mode(), kept.Mode());
  EXPECT_EQ(textbook.Min(), kept.Min());
  EXPECT_EQ(textbook.Max(), kept.Max());
  EXPECT_EQ(textbook.rng(), kept.rng());
  EXPECT_EQ(textbook.Smallest(3), kept.Smallest(3));
  EXPECT_EQ(textbook.Largest(3), kept.Largest(3));
  EXPECT_EQ(textbook.SkewnessP().isNumber(), kept.SkewnessP().isNumber());
  // The moments agree to rounding; the limits follow them.
  EXPECT_NEAR(textbook.Variance(), kept.Variance(), 1e-12 * kept.Variance());
  EXPECT_NEAR(textbook.UCL(95), kept.UCL(95), 1e-12 * kept.UCL(95));
}

}  // namespace
}  // namespace orv::testing
