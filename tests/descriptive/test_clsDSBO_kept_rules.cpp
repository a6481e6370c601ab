// clsDSBO with the kept rules: which rule changed a statistic of a column, and the textbook value
// it gives in its place.

#include <cmath>
#include <optional>

#include "engine_fixture.h"
#include "reference_samples.h"

namespace orv::testing {
namespace {

using samples::kFaithfulWaiting;
using samples::kIrisPetalLength;
using samples::kLakeHuron;

using KeptRules = EngineTest;

std::vector<double> shifted(const std::vector<double>& data, double by) {
  std::vector<double> out;
  for (const double x : data) out.push_back(x + by);
  return out;
}

// The textbook values are those of scipy 1.10.1 and R 4.2.2 (see test_clsDSBO_textbook.cpp for
// the commands): iris$Petal.Length has kurtosis -1.4021 (scipy.stats.kurtosistest p 1.037e-49),
// faithful$waiting (272 observations) -1.14153 with p 6.934e-24.
TEST_F(KeptRules, EachRuleIsNamedWithTheTextbookValueWhereItChangedTheStatistic) {
  clsDSBO iris = engineOf(columnOf(kIrisPetalLength));
  const std::optional<KeptRuleEffect> sign = iris.KurtosisPKeptRule();
  ASSERT_TRUE(sign.has_value());
  EXPECT_EQ(sign->rule, KeptRule::KurtosisTestOfSize);
  EXPECT_LT(std::fabs(sign->textbook / 1.0370372230866573e-49 - 1), 1e-9);
  // The size alone looks far more normal: about 0.011.
  EXPECT_NEAR(iris.KurtosisP().number(), 0.011, 0.001);
  // 99th percentile of 150: position 149.49, next to the last row (R's type 6: 6.798).
  const std::optional<KeptRuleEffect> last = iris.UPKeptRule(1);
  ASSERT_TRUE(last.has_value());
  EXPECT_EQ(last->rule, KeptRule::PercentileBesideLast);
  EXPECT_DOUBLE_EQ(last->textbook, 6.7980000000000018);
  EXPECT_DOUBLE_EQ(iris.UP(1), 6.7);

  clsDSBO waiting = engineOf(columnOf(kFaithfulWaiting));
  EXPECT_TRUE(isDash(waiting.Kurtosis()));
  const std::optional<KeptRuleEffect> size = waiting.KurtosisKeptRule();
  ASSERT_TRUE(size.has_value());
  EXPECT_EQ(size->rule, KeptRule::KurtosisSampleSize);
  EXPECT_NEAR(size->textbook, -1.1415288031601762, 1e-13);
  const std::optional<KeptRuleEffect> sizeP = waiting.KurtosisPKeptRule();
  ASSERT_TRUE(sizeP.has_value());
  EXPECT_EQ(sizeP->rule, KeptRule::KurtosisSampleSize);
  EXPECT_LT(std::fabs(sizeP->textbook / 6.933771989111699e-24 - 1), 1e-9);
}

// Lake Huron's levels lie near 579 with a spread of 1.3: the power sums of the kept rules keep
// only a few digits of the skewness and kurtosis (scipy: -0.141954, -0.463546).
TEST_F(KeptRules, PowerSumsOfDataFarFromZeroSayHowManyDigitsAreRight) {
  const struct {
    const char* name;
    std::vector<double> data;
    double skewness, kurtosis;
  } cases[] = {
      {"LakeHuron", kLakeHuron, -0.14195401129909693, -0.4635458502892531},
      {"iris$Petal.Length + 1e6", shifted(kIrisPetalLength, 1e6), -0.27488417975101281, -1.4021034155217516},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    clsDSBO e = engineOf(columnOf(c.data));
    const std::optional<KeptRuleEffect> kurtosis = e.KurtosisKeptRule();
    ASSERT_TRUE(kurtosis.has_value());
    EXPECT_EQ(kurtosis->rule, KeptRule::PowerSumPrecision);
    EXPECT_NEAR(kurtosis->textbook, c.kurtosis, 1e-9);
    ASSERT_TRUE(kurtosis->rightDigits.has_value());
    EXPECT_LT(*kurtosis->rightDigits, 6);
    EXPECT_EQ(*kurtosis->rightDigits, agreeingDigits(e.Kurtosis().number(), kurtosis->textbook));
    const std::optional<KeptRuleEffect> skewness = e.SkewnessKeptRule();
    if (skewness) {
      EXPECT_NEAR(skewness->textbook, c.skewness, 1e-9);
      EXPECT_LT(*skewness->rightDigits, 6);
    }
  }
}

// Where the kept rules give the textbook value (to the sixth digit), there is nothing to say;
// and with Textbook nothing ever.
TEST_F(KeptRules, NoNoteWhereNoRuleChangedTheValue) {
  const struct {
    const char* name;
    std::vector<double> data;
  } cases[] = {
      {"iris$Petal.Length: near zero", kIrisPetalLength},
      {"LakeHuron less its level", shifted(kLakeHuron, -579)},
      {"a heavy tail: positive kurtosis", {1, 2, 2, 3, 3, 3, 3, 3, 3, 4, 4, 4, 4, 4, 4, 4, 5, 5, 9, 30}},
      {"20 values", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    clsDSBO e = engineOf(columnOf(c.data));
    EXPECT_FALSE(e.SkewnessKeptRule().has_value());
    EXPECT_FALSE(e.KurtosisKeptRule().has_value());
    EXPECT_FALSE(e.LPKeptRule(25).has_value());
    EXPECT_FALSE(e.UPKeptRule(25).has_value());
  }
  // A positive kurtosis is tested the same either way.
  clsDSBO heavy = engineOf(columnOf({1, 2, 2, 3, 3, 3, 3, 3, 3, 4, 4, 4, 4, 4, 4, 4, 5, 5, 9, 30}));
  ASSERT_GT(heavy.Kurtosis().number(), 0);
  EXPECT_FALSE(heavy.KurtosisPKeptRule().has_value());
  // Next to the last row, but the two values are equal: nothing to interpolate.
  clsDSBO tied = engineOf(columnOf({1, 2, 3, 4, 5, 6, 7, 8, 9, 9}));
  EXPECT_FALSE(tied.UPKeptRule(10).has_value());

  clsDSBO textbook = engineOf(columnOf(kFaithfulWaiting));
  textbook.Textbook(true);
  EXPECT_FALSE(textbook.KurtosisKeptRule().has_value());
  EXPECT_FALSE(textbook.KurtosisPKeptRule().has_value());
  EXPECT_FALSE(textbook.UPKeptRule(1).has_value());
}

// A statistic that fails has no note, and asking never raises.
TEST_F(KeptRules, AFailingStatisticHasNoNote) {
  clsDSBO empty = engineOf(column({kBlank, kBlank}));
  EXPECT_FALSE(empty.SkewnessKeptRule().has_value());
  EXPECT_FALSE(empty.KurtosisKeptRule().has_value());
  EXPECT_FALSE(empty.KurtosisPKeptRule().has_value());
  EXPECT_FALSE(empty.UPKeptRule(25).has_value());
  clsDSBO constant = engineOf(repeated(300, 4.0));
  EXPECT_FALSE(constant.KurtosisKeptRule().has_value());  // "-" for no spread either way
}

TEST(AgreeingDigits, CountsTheSignificantDigitsThatMatch) {
  const struct {
    double given, exact;
    int digits;
  } cases[] = {
      {1.0, 1.0, 15}, {1.23456, 1.23457, 5}, {0.5, 0.25, 0}, {-0.4635, -0.463546, 4}, {1e-20, 0.0, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::PrintToString(c.given) + " against " + ::testing::PrintToString(c.exact));
    EXPECT_EQ(agreeingDigits(c.given, c.exact), c.digits);
  }
}

}  // namespace
}  // namespace orv::testing
