// clsDSBO with the kept rules: which rule changed a statistic of a column, and the textbook value
// it gives in its place.

#include "engine_fixture.h"
#include "reference_samples.h"

namespace orv::testing {
namespace {

using samples::kFaithfulWaiting;
using samples::kIrisPetalLength;
using samples::kLakeHuron;

using KeptRules = EngineTest;

// The textbook values are those of scipy 1.10.1 and R 4.2.2 (see test_clsDSBO_textbook.cpp for
// the commands): iris$Petal.Length has kurtosis -1.4021 (scipy.stats.kurtosistest p 1.037e-49),
// faithful$waiting (272 observations) -1.14153 with p 6.934e-24.
TEST_F(KeptRules, EachRuleIsNamedWithTheTextbookValueWhereItChangedTheStatistic) {
  clsDSBO iris = engineOf(columnOf(kIrisPetalLength));
  EXPECT_LT(relative(noted(iris.KurtosisPKeptRule(), KeptRule::KurtosisTestOfSize), 1.0370372230866573e-49), 1e-9);
  // The size alone looks far more normal: about 0.011.
  EXPECT_NEAR(iris.KurtosisP().number(), 0.011, 0.001);
  // 99th percentile of 150: position 149.49, next to the last row (R's type 6: 6.798).
  EXPECT_DOUBLE_EQ(noted(iris.UPKeptRule(1), KeptRule::PercentileBesideLast), 6.7980000000000018);
  EXPECT_DOUBLE_EQ(iris.UP(1), 6.7);

  clsDSBO waiting = engineOf(columnOf(kFaithfulWaiting));
  EXPECT_TRUE(isDash(waiting.Kurtosis()));
  EXPECT_NEAR(noted(waiting.KurtosisKeptRule(), KeptRule::KurtosisSampleSize), -1.1415288031601762, 1e-13);
  EXPECT_LT(relative(noted(waiting.KurtosisPKeptRule(), KeptRule::KurtosisSampleSize), 6.933771989111699e-24), 1e-9);
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
    EXPECT_NEAR(noted(kurtosis, KeptRule::PowerSumPrecision), c.kurtosis, 1e-9);
    ASSERT_TRUE(kurtosis && kurtosis->rightDigits.has_value());
    EXPECT_LT(*kurtosis->rightDigits, 6);
    EXPECT_EQ(*kurtosis->rightDigits, agreeingDigits(e.Kurtosis().number(), kurtosis->textbook));
    if (const std::optional<KeptRuleEffect> skewness = e.SkewnessKeptRule()) {
      EXPECT_NEAR(skewness->textbook, c.skewness, 1e-9);
      EXPECT_LT(*skewness->rightDigits, 6);
    }
  }
}

// Where the kept rules give the textbook value (to the sixth digit), or the statistic fails,
// there is nothing to say, and asking never raises; with Textbook nothing ever.
TEST_F(KeptRules, NoNoteWhereNoRuleChangedTheValue) {
  const ValueArray2D heavy = columnOf({1, 2, 2, 3, 3, 3, 3, 3, 3, 4, 4, 4, 4, 4, 4, 4, 5, 5, 9, 30});
  const struct {
    const char* name;
    ValueArray2D data;
  } cases[] = {
      {"iris$Petal.Length: near zero", columnOf(kIrisPetalLength)},
      {"LakeHuron less its level", columnOf(shifted(kLakeHuron, -579))},
      {"a heavy tail: positive kurtosis", heavy},
      {"20 values", columnOf({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20})},
      {"no observations: every statistic fails", column({kBlank, kBlank})},
      {"no spread: \"-\" either way", repeated(300, 4.0)},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    clsDSBO e = engineOf(c.data);
    EXPECT_FALSE(e.SkewnessKeptRule().has_value());
    EXPECT_FALSE(e.KurtosisKeptRule().has_value());
    EXPECT_FALSE(e.LPKeptRule(25).has_value());
    EXPECT_FALSE(e.UPKeptRule(25).has_value());
  }
  // A positive kurtosis is tested the same either way; a failing one has no probability.
  clsDSBO heavyTail = engineOf(heavy);
  ASSERT_GT(heavyTail.Kurtosis().number(), 0);
  EXPECT_FALSE(heavyTail.KurtosisPKeptRule().has_value());
  EXPECT_FALSE(engineOf(column({kBlank, kBlank})).KurtosisPKeptRule().has_value());
  // Next to the last row, but the two values are equal: nothing to interpolate.
  EXPECT_FALSE(engineOf(columnOf({1, 2, 3, 4, 5, 6, 7, 8, 9, 9})).UPKeptRule(10).has_value());

  clsDSBO textbook = engineOf(columnOf(kFaithfulWaiting));
  textbook.Textbook(true);
  EXPECT_FALSE(textbook.KurtosisKeptRule().has_value());
  EXPECT_FALSE(textbook.KurtosisPKeptRule().has_value());
  EXPECT_FALSE(textbook.UPKeptRule(1).has_value());
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
