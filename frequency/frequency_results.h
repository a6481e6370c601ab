#pragma once
// The results of one analysed variable and its category flags, as the frequency driver gathers
// them and the results writer lays them out.

#include <cstdint>

#include "frame/value_array.h"

namespace orv {

// The five arrays of one variable, all with indices 1..k: the categories, their counts,
// cumulative counts, percentages and cumulative percentages (percent numbers: 40, not 0.4).
struct VariableDistribution {
  ValueArray1D Values;
  Array1D<std::int32_t> Counts;
  Array1D<std::int32_t> CumCounts;
  Array1D<double> Percents;
  Array1D<double> CumPercents;
};

// Binned tables only: whether a "<" category stands in front (its value is the first bin) and
// whether the last category is open upwards (">=").
struct CategoryFlags {
  bool LessThanCatUsed = false;
  bool GreaterThanCatUsed = false;
};

}  // namespace orv
