// clsFreqBO: properties, the choice of input form, and the cumulative figures.

#include "frequency/clsFreqBO.h"

#include "frame/checked_real.h"
#include "frame/errors.h"
#include "frequency/clsFreqBO_internal.h"
#include "support/is_unassigned.h"

namespace orv {

using detail::kFreqBO;

namespace {

// n weights of 1: every observation counts once.
ValueArray1D unitWeights(std::int32_t n) {
  return ValueArray1D(std::vector<CellValue>(static_cast<std::size_t>(n), CellValue(1.0)));
}

}  // namespace

clsFreqBO::clsFreqBO() {
  kFreqBO("Initialise", [&] { dataType_ = 0; });
}

void clsFreqBO::Data(const ValueArray1D& data) {
  kFreqBO("LetData", [&] { data_ = data; });
}
void clsFreqBO::Frequencies(const ValueArray1D& weights) {
  kFreqBO("LetFrequencies", [&] { frequencies_ = weights; });
}
void clsFreqBO::Bin(const ValueArray1D& bins) {
  kFreqBO("LetBin", [&] { bin_ = bins; });
}
void clsFreqBO::DataType(std::int32_t type) {
  kFreqBO("LetDataType", [&] { dataType_ = type; });
}
void clsFreqBO::Textbook(bool v) {
  kFreqBO("LetTextbook", [&] { rules_.textbook = v; });
}
void clsFreqBO::DataAreStartPoints(bool v) {
  kFreqBO("LetDataAreStartPoints", [&] { dataAreStartPoints_ = v; });
}

ValueArray1D clsFreqBO::Values() const {
  return kFreqBO("GetValues", [&] { return values_; });
}
Array1D<std::int32_t> clsFreqBO::Counts() const {
  return kFreqBO("GetCounts", [&] { return counts_; });
}
Array1D<std::int32_t> clsFreqBO::CumCounts() const {
  return kFreqBO("GetCumCounts", [&] { return cumCounts_; });
}
Array1D<double> clsFreqBO::Percents() const {
  return kFreqBO("GetPercents", [&] { return percents_; });
}
Array1D<double> clsFreqBO::CumPercents() const {
  return kFreqBO("GetCumPercents", [&] { return cumPercents_; });
}
bool clsFreqBO::LessThanCatUsed() const { return lessThanCatUsed_; }
bool clsFreqBO::GreaterThanCatUsed() const { return greaterThanCatUsed_; }

void clsFreqBO::Analyse() {
  kFreqBO("Analyse", [&] {
    if (dataType_ != 0) {
      AnalyseCategorical();
    } else {
      AnalyseNumerical();
    }
  });
}

void clsFreqBO::AnalyseNumerical() {
  kFreqBO("AnalyseNumerical", [&] {
    if (IsUnassigned(data_)) {
      // Pre-counted: the bins are the categories and each carries the frequencies given for it.
      if (IsUnassigned(bin_)) raise(err::kNoInputRange);
      if (IsUnassigned(frequencies_)) raise(err::kBinsWithoutFrequencies);
      values_ = *bin_;
      counts_ = UniqueCounts(values_, *bin_, *frequencies_, false);
    } else {
      if (IsUnassigned(frequencies_)) frequencies_ = unitWeights(data_->size());
      if (IsUnassigned(bin_)) {
        values_ = UniqueNumbers(*data_);
        counts_ = UniqueCounts(values_, *data_, *frequencies_, false);
      } else {
        values_ = *bin_;
        counts_ = UniqueCounts(values_, *data_, *frequencies_, true);
      }
    }
    cumulate();
  });
}

void clsFreqBO::AnalyseCategorical() {
  kFreqBO("AnalyseCategorical", [&] {
    // The platform cannot take the bounds of a value that holds no array.
    if (IsUnassigned(data_)) raise(err::kTypeMismatch);
    values_ = UniqueItems(*data_);
    if (IsUnassigned(frequencies_)) frequencies_ = unitWeights(data_->size());
    counts_ = UniqueCounts(values_, *data_, *frequencies_, false);
    cumulate();
  });
}

Array1D<std::int32_t> clsFreqBO::UniqueCounts(ValueArray1D& categories, const ValueArray1D& data,
                                              const ValueArray1D& weights, bool binned) {
  return kFreqBO("UniqueCounts", [&] {
    if (binned) {
      return detail::binnedCounts(categories, data, weights, lessThanCatUsed_, greaterThanCatUsed_, rules_);
    }
    return detail::exactCounts(categories, data, weights, rules_);
  });
}

// Running sums in 32 bits, then each count and running sum as a percentage of the total. The
// "<" and ">=" categories are part of the total. A zero total is a division fault (11, or 6
// for 0/0), never a NaN.
void clsFreqBO::cumulate() {
  const std::int32_t k = counts_.size();
  cumCounts_ = Array1D<std::int32_t>(k);
  percents_ = Array1D<double>(k);
  cumPercents_ = Array1D<double>(k);
  cumCounts_(1) = counts_(1);
  for (std::int32_t i = 2; i <= k; ++i) {
    cumCounts_(i) = (Int32(cumCounts_(i - 1)) + Int32(counts_(i))).value();
  }
  const Real total = static_cast<double>(cumCounts_(k));
  for (std::int32_t i = 1; i <= k; ++i) {
    percents_(i) = (Real(counts_(i)) / total * 100.0).v;
    cumPercents_(i) = (Real(cumCounts_(i)) / total * 100.0).v;
  }
}

}  // namespace orv
