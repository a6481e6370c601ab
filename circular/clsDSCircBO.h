#pragma once
// clsDSCircBO: the calculation object behind the circular analysis.
//
// The driver hands it one column of angles in degrees (rows 1..n, column 1), then reads
// statistics in any order. The observations are the rows down to the first empty cell; the rest
// of the column is ignored and nothing is sorted. The first read works out n, the mean cosine
// C̄ and sine S̄, r = √(C̄² + S̄²), the mean direction's cosine and sine (C̄/r, S̄/r) and the plot
// data; every later read uses them. Results that are angles are in degrees (squared degrees for the
// variances); the computation runs in radians.
//
// Errors: every member except CL runs inside the component's error trap and leaves as a
// ComponentError with source "Line 0 in ORVDescriptives.clsDSCircBO.<member>". Faults come
// from the platform arithmetic and indexing, never from checks of the engine's own:
//   - no observations: C̄ is 0/0, an overflow (6); r = 0 (angles 0, 180, 180, 360): C̄/r is 0/0;
//   - C̄ = 0 exactly (angles 0 and 180): Mean divides S̄ by 0 (11);
//   - r a hair above 1 (some samples of equal angles): the SDs take the root of a tiny negative
//     variance (5);
//   - a text or error value among the observations: type mismatch (13); a single value given
//     as Data is no array and fails the same way; more than 32767 observations overflow (6).
// CL never raises: any failure, and fewer than 8 observations, give the text "n/a".
//
// Textbook (off by default) replaces the kept rules by textbook arithmetic: the observations are
// counted in 64 bits, the mean direction is that of the mean vector on the whole circle (atan2,
// 0 to 360, also where C̄ is 0), and RayleighP is Zar's approximation
// exp(√(1 + 4n + 4(n² - R²)) - (1 + 2n)), R = n r. With the kept rules, MeanKeptRule says where
// the mean direction was reflected and gives the true one.
//
// The chi-square quantile of CL comes from the service handed to Functions (the host's worksheet
// functions); without one CL is "n/a". The object touches nothing else outside itself, so it may
// run on any thread that its service allows (frame/distribution_functions.h).

#include <cstdint>
#include <optional>

#include "frame/cell_value.h"
#include "frame/distribution_functions.h"
#include "frame/value_array.h"
#include "support/kept_rules.h"

namespace orv {

class clsDSCircBO {  // NOLINT(readability-identifier-naming): the component's own class name
 public:
  clsDSCircBO();  // no data; nothing computed; no distribution functions

  // The service that ChiInv is taken from; nullptr for none. Not owned: it must outlive every
  // request.
  void Functions(DistributionFunctions* service);

  // Textbook arithmetic instead of the kept rules; clears every computed value.
  void Textbook(bool v);

  // Stores the column as it is and clears every computed value.
  void Data(ValueArray2D column);
  // A single value, as the host reads a one-cell range: stored unwrapped, so every read that
  // needs the observations fails with a type mismatch (13).
  void Data(const CellValue& single);

  double Mean();        // mean direction, 0 <= value < 360 (a third-quadrant mean reflects)
  double MeanVector();  // r, 0 to 1
  double AngularVar();  // (180/π)² × 2(1 - r)
  double AngularSD();
  double CircularVar();  // (180/π)² × (-2 ln r)
  double CircularSD();
  double Count();      // n
  double Rayleigh();   // Z = n r²
  double RayleighP();  // probability of Z under uniformity (rayleigh_probability.h)
  // The 95 % confidence half-width of the mean direction after Zar, in degrees, or "n/a".
  CellValue CL();
  // Rows 1..n: the sine of each observation in column 1, its cosine in column 2.
  ValueArray2D PlotData();

  // With the kept rules only: a mean direction in the third quadrant, which Mean reports reflected
  // into the fourth, and its true direction; nothing otherwise (and always with Textbook). Never
  // raises.
  std::optional<KeptRuleEffect> MeanKeptRule();

  void ResetFlags();

 private:
  double textbookMean();
  double textbookRayleighP();
  void initialCalculations();
  void ensureCalculated();
  std::optional<double> confidenceLimit();

  DistributionFunctions* functions_ = nullptr;
  bool textbook_ = false;
  ValueArray2D data_;
  bool isArray_ = false;

  bool calculated_ = false;
  std::int32_t n_ = 0;
  double meanCos_ = 0.0;  // C̄
  double meanSin_ = 0.0;  // S̄
  double r_ = 0.0;
  double cosMean_ = 0.0;
  double sinMean_ = 0.0;
  double cl_ = 0.0;
  ValueArray2D plotData_;
};

}  // namespace orv
