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
// The t critical value and the normal distribution come from the service handed to Functions
// (the host's worksheet functions); without one they fail with "Object required" (424). The
// object touches nothing else outside itself, so it may run on any thread that its service
// allows (frame/distribution_functions.h).

#include <cstdint>

#include "frame/cell_value.h"
#include "frame/distribution_functions.h"
#include "frame/value_array.h"

namespace orv {

class clsDSBO {  // NOLINT(readability-identifier-naming): the component's own class name
 public:
  clsDSBO();  // no data yet; every cache stale; no distribution functions

  // The service that TInv and NormDist are taken from; nullptr for none. Not owned: it must
  // outlive every request.
  void Functions(DistributionFunctions* service);

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

  // Marks every cached statistic stale and zeroes the power sums.
  void ResetFlags();

 private:
  void powerSums();
  double percentile(std::uint8_t p);
  double value(std::int64_t row) const;
  DistributionFunctions& functions() const;

  DistributionFunctions* functions_ = nullptr;
  ValueArray2D data_;

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
