// clsDSBO: data intake, caching and the statistics built on sums.

#include "descriptive/clsDSBO.h"

#include <utility>

#include "descriptive/clsDSBO_internal.h"
#include "frame/conversions.h"
#include "frame/errors.h"
#include "frame/platform_loop.h"
#include "support/array_tools.h"

namespace orv {

using detail::kDSBO;
using detail::real;

namespace {

// Half-width factor of the confidence interval: the two-tailed t quantile for the confidence
// level cl (percent) with n - 1 degrees of freedom, from the host's functions.
double tCritical(DistributionFunctions& functions, std::int16_t cl, std::int32_t n) {
  const Int16 tail = Int16(100) - Int16(cl);
  const Real p = Real(tail.value()) / 100.0;
  const Int32 degrees = Int32(n) - Int32(1);
  return checked(functions.TInv(p.v, degrees.value()));
}

}  // namespace

clsDSBO::clsDSBO() {
  kDSBO("Class_Initialize", [&] { ResetFlags(); });
}

void clsDSBO::Functions(DistributionFunctions* service) {
  kDSBO("LetFunctions", [&] { functions_ = service; });
}

void clsDSBO::Textbook(bool v) {
  kDSBO("LetTextbook", [&] {
    textbook_ = v;
    ResetFlags();
  });
}

DistributionFunctions& clsDSBO::functions() const {
  // As a reference to an object that was never set: "Object required".
  if (functions_ == nullptr) raise(err::kObjectRequired);
  return *functions_;
}

void clsDSBO::Data(const ValueArray2D& column) {
  kDSBO("LetData", [&] { Data(ValueArray2D(column)); });
}

void clsDSBO::Data(ValueArray2D&& column) {
  kDSBO("LetData", [&] {
    data_ = std::move(column);
    ArrayTools::SortRows(data_, 1);
    ResetFlags();
  });
}

void clsDSBO::Data(const CellValue& single) {
  kDSBO("LetData", [&] {
    ValueArray2D column(1, 1);
    column(1, 1) = single;
    Data(column);
  });
}

double clsDSBO::value(std::int64_t row) const { return toNumber(data_(row, 1)); }

std::int32_t clsDSBO::Count() {
  return kDSBO("Count", [&] {
    if (!haveCount_) {
      // The sort put every empty cell after the observations, so the first empty cell ends them.
      Int32 n = 0;
      while (!data_(static_cast<std::int64_t>(n.value()) + 1, 1).isEmpty()) {
        ++n;
        if (n.value() == data_.rows()) break;
      }
      count_ = n.value();
      haveCount_ = true;
    }
    return count_;
  });
}

double clsDSBO::Sum() {
  return kDSBO("Sum", [&] {
    if (!haveSum_) {
      if (textbook_) {
        sum_ = plainSum();
      } else {
        // Counts in 16 bits: more than 32767 observations overflow here, and with them every
        // statistic built on the sum. Kept on purpose; Count itself goes on answering.
        Real total = 0.0;
        forRows<Int16>(Count(), [&](std::int64_t i) { total = total + value(i); });
        sum_ = total.v;
      }
      haveSum_ = true;
    }
    return sum_;
  });
}

double clsDSBO::Mean() {
  return kDSBO("Mean", [&] {
    if (!haveMean_) {
      // No observations: 0/0, which the platform reports as an overflow. Textbook: the sum's
      // mean corrected by the mean deviation from it.
      mean_ = textbook_ ? centralSums().mean : (Real(Sum()) / real(Count())).v;
      haveMean_ = true;
    }
    return mean_;
  });
}

double clsDSBO::Variance() {
  return kDSBO("Variance", [&] {
    if (!haveVariance_ && textbook_) {
      const CentralSums& c = centralSums();
      variance_ = c.n < 2 ? 0.0 : (Real(c.m2) / (c.n - 1)).v;
      haveVariance_ = true;
    }
    if (!haveVariance_) {
      // Squared deviations from the mean rather than power sums: no cancellation for data far
      // from zero. This loop counts in 32 bits; the 16-bit limit comes from Mean.
      const Real mean = Mean();
      Real squares = 0.0;
      forRows<Int32>(Count(), [&](std::int64_t i) { squares = squares + math::pow(Real(value(i)) - mean, 2.0); });
      const Int32 n = Count();
      variance_ = n.value() < 2 ? 0.0 : (squares / real((n - Int32(1)).value())).v;
      haveVariance_ = true;
    }
    return variance_;
  });
}

double clsDSBO::SD() {
  return kDSBO("SD", [&] { return math::sqrt(Variance()).v; });
}

double clsDSBO::SE() {
  return kDSBO("SE", [&] { return math::sqrt(Real(Variance()) / real(Count())).v; });
}

double clsDSBO::CV() {
  // Keeps the sign of the mean: a negative mean gives a negative percentage.
  return kDSBO("CV", [&] { return (math::sqrt(Variance()) / Mean() * 100.0).v; });
}

double clsDSBO::Min() {
  // Row 1 of the sorted column; with no observations an empty cell, read as 0.
  return kDSBO("Min", [&] { return value(1); });
}

double clsDSBO::Max() {
  // Row Count: with no observations that is row 0, a subscript error.
  return kDSBO("Max", [&] { return value(Count()); });
}

double clsDSBO::rng() {
  return kDSBO("rng", [&] {
    const Real last = value(Count());
    return (last - value(1)).v;
  });
}

double clsDSBO::LCL(std::int16_t cl) {
  return kDSBO("LCL", [&] {
    const std::int32_t n = Count();
    if (n < 2) return Mean();
    const Real se = SE();
    return (Real(Mean()) - se * tCritical(functions(), cl, n)).v;
  });
}

double clsDSBO::UCL(std::int16_t cl) {
  return kDSBO("UCL", [&] {
    const std::int32_t n = Count();
    if (n < 2) return Mean();
    const Real se = SE();
    return (Real(Mean()) + se * tCritical(functions(), cl, n)).v;
  });
}

void clsDSBO::ResetFlags() {
  kDSBO("ResetFlags", [&] {
    // The cached values stay; a cleared flag is enough to have them computed again.
    haveCount_ = haveSum_ = haveMean_ = haveVariance_ = false;
    haveSkewness_ = haveSkewnessP_ = haveKurtosis_ = haveKurtosisP_ = false;
    sum2_ = sum3_ = sum4_ = 0.0;
    central_.reset();
  });
}

}  // namespace orv
