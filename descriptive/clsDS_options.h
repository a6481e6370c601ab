#pragma once
// The option values that clsDS keeps in parsed form: the statistics its Get* options select, and
// the two texts of the error plot, parsed once when they are set.

#include <cstdint>

namespace orv {

// The statistics a Get* option selects, in the order of their rows in the table. A chart may
// force some of them on as well.
enum class DescriptiveStatistic : std::uint8_t {
  Mean,
  Median,
  Mode,
  SE,
  SD,
  Variance,
  CV,
  CL,
  Percentile,
  Sum,
  Min,
  Max,
  Smallest,
  Largest,
  Range,
  Count,
  Skewness,
  Kurtosis,
  kCount
};

// ErrorCentre: "Mean", "Median", or any other text.
enum class ErrorCentreChoice : std::uint8_t { Mean, Median, Other };

// ErrorError: the six texts of the error bars, or any other text. Another text still forces the
// standard error into the table but leaves the plot without error rows.
enum class ErrorBarsChoice : std::uint8_t {
  StandardError,
  StandardDeviation,
  Variance,
  Range,
  InterpercentileRange,
  ConfidenceLimits,
  Other
};

}  // namespace orv
