#pragma once
// clsDSBO: the calculation object behind the linear descriptive analysis.
//
// The driver hands it one data column (rows 1..n, column 1; numbers and empty cells), then reads
// statistics in any order. `Data` sorts the column ascending with empty cells last, so the
// observations are rows 1..Count and order statistics are direct reads. Count, Sum, Mean,
// Variance and the four shape statistics are computed once per column and cached; everything
// else is derived on request.
//
// Errors: every member runs inside the component's error trap, so a failure leaves as a
// ComponentError with source "Line 0 in ORVDescriptives.clsDSBO.<member>". Faults come from the
// platform arithmetic and indexing, never from checks of the engine's own:
//   - Sum (and everything built on it) overflows (6) above 32767 observations: its row counter
//     is 16-bit. Count alone has no such limit.
//   - Mean of no observations is 0/0, an overflow (6); CV of a zero mean divides by zero.
//   - Max, rng and Median of no observations read row 0: subscript out of range (9).
//   - LP/UP: subscript error when the position falls below row 1, division error for LP(0).
//   - text or error values among the observations: type mismatch (13).
// Mode, Skewness, SkewnessP, Kurtosis and KurtosisP never raise: any failure turns the result
// into the text "-".
//
// Textbook (off by default) replaces the kept rules by textbook arithmetic: loops over observations
// that take a whole sheet column, the mean corrected and the moments taken from deviations about
// it, Kurtosis from 4 and P(Kurtosis) from 5 observations with the signed statistic (Anscombe and
// Glynn), percentiles as Hyndman and Fan's definition 6. With the kept rules, the *KeptRule
// members say where a rule changed a statistic of this column and give its textbook value.
//
// The t critical value and the normal distribution come from the service handed to Functions
// (the host's worksheet functions); without one they fail with "Object required" (424). The
// object touches nothing else outside itself, so it may run on any thread that its service
// allows (frame/distribution_functions.h).

#include <cstdint>
#include <optional>

#include "frame/cell_value.h"
#include "frame/distribution_functions.h"
#include "frame/value_array.h"
#include "support/kept_rules.h"

namespace orv {

class clsDSBO {  // NOLINT(readability-identifier-naming): the component's own class name
 public:
  clsDSBO();  // no data yet; every cache stale; no distribution functions

  // The service that TInv and NormDist are taken from; nullptr for none. Not owned: it must
  // outlive every request.
  void Functions(DistributionFunctions* service);

  // Textbook arithmetic instead of the kept rules; marks every cache stale.
  void Textbook(bool v);

  // Takes a copy of the column, sorts it ascending (empty cells last) and marks every cache
  // stale. A single value stands for a one-row column.
  void Data(const ValueArray2D& column);
  void Data(ValueArray2D&& column);  // the same, taking over a column the caller has done with
  void Data(const CellValue& single);

  // Moment statistics. Variance has divisor n - 1 (0 for n < 2); SE = sqrt(Variance / n);
  // CV = SD / Mean * 100, in percent, with the sign of the mean.
  std::int32_t Count();
  double Sum();
  double Mean();
  double Variance();
  double SD();
  double SE();
  double CV();

  // Min, Max, rng read the sorted column directly (Min of no observations reads an empty
  // cell: 0). LCL/UCL: Mean -/+ SE * TInv((100 - cl) / 100, n - 1), cl in percent; both are
  // the mean itself for n < 2.
  double Min();
  double Max();
  double rng();
  double LCL(std::int16_t cl);
  double UCL(std::int16_t cl);

  // Median of the sorted column. Mode: the most frequent values as text, ascending and joined
  // by ", " ("2, 3"), or "-" when no value occurs twice.
  double Median();
  CellValue Mode();
  // Frequency table of column 1 of any array: rows of {distinct value, count}, ascending by
  // count, ties in order of first appearance. The first row is entered even when empty; later
  // empty cells are skipped.
  ValueArray2D Tally(ValueArray2D& data);

  // Percentile limits, p in percent: LP works with min(p, 100 - p), UP with max(p, 100 - p).
  // Position (n + 1) * p / 100, interpolated between neighbours unless the next row is the
  // last one.
  double LP(std::uint8_t p);
  double UP(std::uint8_t p);
  // k-th smallest / largest; k beyond n gives the largest / smallest observation.
  double Smallest(std::int32_t k);
  double Largest(std::int32_t k);

  // Sample skewness and excess kurtosis, and their two-tailed probabilities under normality
  // (skewness test from 9 observations on, kurtosis test from 20). A number, or "-" where no
  // value can be given (too few observations, zero variance, or Kurtosis from 217 observations
  // on, where n(n-1)(n-2)(n-3) leaves the 32-bit range).
  CellValue Skewness();
  CellValue SkewnessP();
  CellValue Kurtosis();
  CellValue KurtosisP();

  // With the kept rules only: the rule that made the statistic (as the member of the same name
  // gives it) differ from its textbook value in this column, and that value; nothing when no rule
  // did, and always nothing with Textbook. The textbook value is worked out only where the rule
  // may have changed something (the sample size, the sign of the kurtosis, the position of the
  // percentile, or the rounding of the power sums, estimated from the cached sums, say so).
  // Never raises: a statistic that fails has no note.
  std::optional<KeptRuleEffect> SkewnessKeptRule();
  std::optional<KeptRuleEffect> KurtosisKeptRule();
  std::optional<KeptRuleEffect> KurtosisPKeptRule();
  std::optional<KeptRuleEffect> LPKeptRule(std::uint8_t p);
  std::optional<KeptRuleEffect> UPKeptRule(std::uint8_t p);

  // Marks every cached statistic stale and zeroes the power sums.
  void ResetFlags();

 private:
  // Sums of the deviations about the mean, Σ(x - mean)^k for k = 2, 3, 4, of all observations.
  struct CentralSums {
    double n;
    double mean;
    double m2;
    double m3;
    double m4;
  };
  double plainSum();
  const CentralSums& centralSums();
  // The textbook statistics; they raise where no value can be given.
  double textbookSkewness();
  double textbookKurtosis();
  double textbookKurtosisP(double kurtosis);
  double textbookPercentile(std::uint8_t p);
  std::optional<KeptRuleEffect> percentileKeptRule(std::uint8_t settled);
  std::optional<KeptRuleEffect> powerSumKeptRule(const CellValue& shown, double roundingInUnits,
                                                 double (clsDSBO::*textbook)());

  void powerSums();
  double percentile(std::uint8_t p);
  double value(std::int64_t row) const;
  DistributionFunctions& functions() const;

  DistributionFunctions* functions_ = nullptr;
  bool textbook_ = false;
  ValueArray2D data_;
  std::optional<CentralSums> central_;

  bool haveCount_ = false;
  bool haveSum_ = false;
  bool haveMean_ = false;
  bool haveVariance_ = false;
  std::int32_t count_ = 0;
  double sum_ = 0.0;
  double mean_ = 0.0;
  double variance_ = 0.0;

  // Σx², Σx³, Σx⁴; a zero sum of squares means "not gathered yet".
  double sum2_ = 0.0;
  double sum3_ = 0.0;
  double sum4_ = 0.0;

  bool haveSkewness_ = false;
  bool haveSkewnessP_ = false;
  bool haveKurtosis_ = false;
  bool haveKurtosisP_ = false;
  CellValue skewness_;
  CellValue skewnessP_;
  CellValue kurtosis_;
  CellValue kurtosisP_;
};

}  // namespace orv
