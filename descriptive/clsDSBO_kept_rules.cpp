// clsDSBO: where the kept rules changed a statistic of this column, and its textbook value.
//
// Each check first asks for the statistic as the kept rules give it (cached, so this costs
// nothing once the table has it), then decides from what is already known whether the rule can
// have changed it; only then is the textbook value worked out.

#include <cfloat>
#include <cmath>
#include <exception>

#include "descriptive/clsDSBO.h"
#include "descriptive/clsDSBO_internal.h"
#include "frame/numerics.h"

namespace orv {

namespace {

// The largest sample whose kurtosis denominator n(n - 1)(n - 2)(n - 3) fits 32 bits.
constexpr std::int32_t kLargestKurtosisSample = 216;

// The difference shows in the sixth significant digit, or in the sixth decimal of a value
// below 1 (a skewness of 1e-14 against one of 1e-17 is 0 either way).
bool differsVisibly(double shown, double textbook) {
  return std::fabs(shown - textbook) > 5e-7 * std::fmax(std::fabs(textbook), 1.0);
}

// For probabilities, whose small values matter: the sixth significant digit.
bool differsRelatively(double shown, double textbook) {
  return std::fabs(shown - textbook) > 1e-6 * std::fabs(textbook);
}

// The rounding left in a sum of n power terms whose sizes add up to `termSizes` (a sum of n terms
// rounds by about √n units in the last place of its size), which is all that remains when
// the terms cancel.
double roundingOf(double termSizes, double n) { return DBL_EPSILON * termSizes * std::sqrt(n); }

// Notes never fail the analysis: a check that fails has nothing to say.
template <class Check>
std::optional<KeptRuleEffect> quietly(Check&& check) {
  try {
    return check();
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

}  // namespace

// Below an estimated rounding of 1e-9 units of the statistic (a typical size; the worst case is a
// few hundred times more) the sixth digit cannot have moved, so the textbook pass over the data
// is made only above it.
std::optional<KeptRuleEffect> clsDSBO::powerSumKeptRule(const CellValue& shown, double roundingInUnits,
                                                        double (clsDSBO::*textbook)()) {
  if (!shown.isNumber() || roundingInUnits < 1e-9) return std::nullopt;
  const double exact = (this->*textbook)();
  if (!differsVisibly(shown.number(), exact)) return std::nullopt;
  return KeptRuleEffect{KeptRule::PowerSumPrecision, exact, agreeingDigits(shown.number(), exact)};
}

std::optional<KeptRuleEffect> clsDSBO::SkewnessKeptRule() {
  if (textbook_) return std::nullopt;
  return quietly([&]() -> std::optional<KeptRuleEffect> {
    const CellValue shown = Skewness();
    if (!shown.isNumber()) return std::nullopt;
    const double n = Count();
    const double s = Sum();
    const double unit = (n - 1) * (n - 2) * std::pow(SD(), 3);
    const double terms = std::fabs(2 * s * s * s / n) + std::fabs(n * sum3_) + std::fabs(3 * s * sum2_);
    return powerSumKeptRule(shown, roundingOf(terms, n) / unit, &clsDSBO::textbookSkewness);
  });
}

std::optional<KeptRuleEffect> clsDSBO::KurtosisKeptRule() {
  if (textbook_) return std::nullopt;
  return quietly([&]() -> std::optional<KeptRuleEffect> {
    const CellValue shown = Kurtosis();
    const double n = Count();
    if (!shown.isNumber()) {
      // Too few observations or no spread give "-" in textbook arithmetic as well.
      if (n <= kLargestKurtosisSample) return std::nullopt;
      return KeptRuleEffect{KeptRule::KurtosisSampleSize, textbookKurtosis(), std::nullopt};
    }
    const double s = Sum();
    const double v = Variance();
    const double unit = (n - 1) * (n - 2) * (n - 3) * v * v;
    const double terms = std::fabs((n * n * n + n * n) * sum4_) + std::fabs(4 * (n * n + n) * s * sum3_) +
                         std::fabs(12 * n * s * s * sum2_) + std::fabs(3 * (n * n - n) * sum2_ * sum2_) +
                         std::fabs(6 * s * s * s * s);
    return powerSumKeptRule(shown, roundingOf(terms, n) / unit, &clsDSBO::textbookKurtosis);
  });
}

std::optional<KeptRuleEffect> clsDSBO::KurtosisPKeptRule() {
  if (textbook_) return std::nullopt;
  return quietly([&]() -> std::optional<KeptRuleEffect> {
    const CellValue shown = KurtosisP();
    if (!shown.isNumber()) {
      if (Count() <= kLargestKurtosisSample) return std::nullopt;
      return KeptRuleEffect{KeptRule::KurtosisSampleSize, textbookKurtosisP(textbookKurtosis()), std::nullopt};
    }
    // Only a negative kurtosis is tested otherwise than by its sign.
    if (!(Kurtosis().number() < 0)) return std::nullopt;
    const double exact = textbookKurtosisP(textbookKurtosis());
    if (!differsRelatively(shown.number(), exact)) return std::nullopt;
    return KeptRuleEffect{KeptRule::KurtosisTestOfSize, exact, std::nullopt};
  });
}

// Only a position between the last two rows is read without interpolation.
std::optional<KeptRuleEffect> clsDSBO::percentileKeptRule(std::uint8_t settled) {
  const Int32 n = Count();
  const Real position = Real((n + Int32(1)).value()) / (Real(100.0) / static_cast<double>(settled));
  if (intFloor(position.v) + 1 != static_cast<double>(n.value())) return std::nullopt;
  const double shown = percentile(settled);
  const double exact = textbookPercentile(settled);
  if (shown == exact) return std::nullopt;
  return KeptRuleEffect{KeptRule::PercentileBesideLast, exact, std::nullopt};
}

std::optional<KeptRuleEffect> clsDSBO::LPKeptRule(std::uint8_t p) {
  if (textbook_) return std::nullopt;
  return quietly([&] { return percentileKeptRule(detail::lowerPercentile(p)); });
}

std::optional<KeptRuleEffect> clsDSBO::UPKeptRule(std::uint8_t p) {
  if (textbook_) return std::nullopt;
  return quietly([&] { return percentileKeptRule(detail::upperPercentile(p)); });
}

}  // namespace orv
