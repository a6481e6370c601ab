#include "circular/clsDSCircBO.h"

#include <algorithm>

#include <cmath>
#include <exception>
#include <optional>
#include <utility>
#include <vector>

#include "circular/rayleigh_probability.h"
#include "frame/checked_real.h"
#include "frame/conversions.h"
#include "frame/errors.h"
#include "frame/numerics.h"
#include "frame/platform_loop.h"
#include "frame/procedure.h"
#include "support/array_tools.h"

namespace orv {
namespace {

constexpr Procedures kProc{"clsDSCircBO"};

constexpr const char* kNotAvailable = "n/a";

// π as the component has always computed it.
double pi() { return 4.0 * std::atan(1.0); }

// (180/π)²: turns a variance in square radians into square degrees.
Real squareDegreesPerSquareRadian() {
  const Real p = pi();
  return Real(180.0 * 180.0) / (p * p);
}

}  // namespace

clsDSCircBO::clsDSCircBO() {
  kProc("Class_Initialize", [] {});
}

void clsDSCircBO::Functions(DistributionFunctions* service) {
  kProc("LetFunctions", [&] { functions_ = service; });
}

void clsDSCircBO::Textbook(bool v) {
  kProc("LetTextbook", [&] {
    textbook_ = v;
    ResetFlags();
  });
}

void clsDSCircBO::Data(ValueArray2D column) {
  kProc("LetData", [&] {
    data_ = std::move(column);
    isArray_ = true;
    ResetFlags();
  });
}

void clsDSCircBO::Data(const CellValue& single) {
  kProc("LetData", [&] {
    // Kept as the one value it is: the observations are read by row, and a value that is no
    // array cannot be indexed.
    data_ = ValueArray2D(1, 1);
    data_(1, 1) = single;
    isArray_ = false;
    ResetFlags();
  });
}

void clsDSCircBO::ResetFlags() {
  kProc("ResetFlags", [&] {
    calculated_ = false;
    n_ = 0;
    meanCos_ = meanSin_ = r_ = cosMean_ = sinMean_ = cl_ = 0.0;
  });
}

void clsDSCircBO::ensureCalculated() {
  if (!calculated_) initialCalculations();
}

void clsDSCircBO::initialCalculations() {
  kProc("InitialCalculations", [&] {
    if (!isArray_) raise(err::kTypeMismatch);

    // The observations end at the first empty cell; nothing below it counts.
    Int32 n = 0;
    while (n.value() < data_.rows() && !data_(std::int64_t{n.value()} + 1, 1).isEmpty()) ++n;
    n_ = n.value();

    std::vector<double> cosines(static_cast<std::size_t>(n_));
    std::vector<double> sines(static_cast<std::size_t>(n_));
    Real sumCos = 0.0;
    Real sumSin = 0.0;
    const Real p = pi();
    const auto observe = [&](std::int64_t i) {
      const Real theta = Real(toNumber(data_(i, 1))) * p / 180.0;
      const auto at = static_cast<std::size_t>(i - 1);
      cosines[at] = std::cos(theta.v);
      sines[at] = std::sin(theta.v);
      sumCos = sumCos + cosines[at];
      sumSin = sumSin + sines[at];
    };
    // Observations are counted in 16 bits, like every loop over observations in the component;
    // textbook arithmetic counts in 64.
    if (textbook_) {
      for (std::int64_t i = 1; i <= n_; ++i) observe(i);
    } else {
      forRows<Int16>(n_, observe);
    }

    // No observations: 0/0. Opposed directions (r = 0): C̄/r is 0/0 as well.
    const Real count = static_cast<double>(n_);
    const Real meanCos = sumCos / count;
    const Real meanSin = sumSin / count;
    // Equal directions give r = 1 up to rounding, which can land one unit above 1; a length
    // above 1 does not exist, and left so it would make both variances tiny negatives whose
    // square roots fail. Clamp it.
    const Real r = std::min(1.0, math::sqrt(meanCos * meanCos + meanSin * meanSin).v);
    meanCos_ = meanCos.v;
    meanSin_ = meanSin.v;
    r_ = r.v;
    cosMean_ = (meanCos / r).v;
    sinMean_ = (meanSin / r).v;
    calculated_ = true;

    plotData_ = ArrayTools::Join(ArrayTools::FromDoubles(sines), ArrayTools::FromDoubles(cosines));
  });
}

double clsDSCircBO::Mean() {
  return kProc("Mean", [&] {
    if (textbook_) return textbookMean();
    ensureCalculated();
    const Real p = pi();
    // A C̄ of exactly 0 fails here, whatever the quadrant.
    const Real ratio = Real(meanSin_) / meanCos_;
    const Real a = math::atan(ratio);
    Real mean = 0.0;
    if (cosMean_ >= 0.0 && sinMean_ >= 0.0) {
      mean = a;
    } else if (cosMean_ < 0.0 && sinMean_ >= 0.0) {
      mean = p - math::abs(a);
    } else {
      // Both lower quadrants take the fourth quadrant's expression, so a mean direction in the
      // third quadrant is reported reflected into the fourth (225 as 315). Users' tables have
      // always shown it so; kept on purpose.
      mean = Real(2.0) * p - math::atan(math::abs(ratio));
    }
    return (mean * 180.0 / p).v;
  });
}

double clsDSCircBO::MeanVector() {
  return kProc("MeanVector", [&] {
    ensureCalculated();
    return r_;
  });
}

double clsDSCircBO::AngularVar() {
  return kProc("AngularVar", [&] {
    ensureCalculated();
    return (squareDegreesPerSquareRadian() * 2.0 * (Real(1.0) - r_)).v;
  });
}

double clsDSCircBO::AngularSD() {
  return kProc("AngularSD", [&] { return math::sqrt(AngularVar()).v; });
}

double clsDSCircBO::CircularVar() {
  return kProc("CircularVar", [&] {
    ensureCalculated();
    return (squareDegreesPerSquareRadian() * (Real(-2.0) * math::log(r_))).v;
  });
}

double clsDSCircBO::CircularSD() {
  return kProc("CircularSD", [&] { return math::sqrt(CircularVar()).v; });
}

double clsDSCircBO::Count() {
  return kProc("Count", [&] {
    ensureCalculated();
    return static_cast<double>(n_);
  });
}

double clsDSCircBO::Rayleigh() {
  return kProc("Rayleigh", [&] {
    ensureCalculated();
    return (Real(static_cast<double>(n_)) * (Real(r_) * r_)).v;
  });
}

double clsDSCircBO::RayleighP() {
  return kProc("RayleighP", [&] {
    if (textbook_) return textbookRayleighP();
    return RayleighProbability(Rayleigh(), toInt32(Count()));
  });
}

// The direction of the mean vector on the whole circle, in degrees from 0 to under 360.
double clsDSCircBO::textbookMean() {
  ensureCalculated();
  double degrees = (Real(std::atan2(meanSin_, meanCos_)) * 180.0 / pi()).v;
  if (degrees < 0.0) degrees += 360.0;
  return degrees >= 360.0 ? degrees - 360.0 : degrees;
}

// Zar's approximation of Rayleigh's probability, with n² - R² taken as (n - R)(n + R) so that a
// concentrated sample keeps its digits.
double clsDSCircBO::textbookRayleighP() {
  ensureCalculated();
  const Real n = static_cast<double>(n_);
  const Real bigR = n * r_;
  const Real root = math::sqrt(Real(1) + Real(4) * n + Real(4) * ((n - bigR) * (n + bigR)));
  return math::exp(root - (Real(1) + Real(2) * n)).v;
}

std::optional<KeptRuleEffect> clsDSCircBO::MeanKeptRule() {
  if (textbook_) return std::nullopt;
  try {
    ensureCalculated();
    if (!(cosMean_ < 0.0 && sinMean_ < 0.0)) return std::nullopt;
    return KeptRuleEffect{KeptRule::ReflectedMeanAngle, textbookMean(), std::nullopt};
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

ValueArray2D clsDSCircBO::PlotData() {
  return kProc("PlotData", [&] {
    ensureCalculated();
    return plotData_;
  });
}

CellValue clsDSCircBO::CL() {
  // Worked out on every request. Whatever fails inside (the host's ChiInv, a root of a negative
  // number, the arccos step at x = 1, the initial calculations) answers "n/a", as too few
  // observations do.
  try {
    if (const std::optional<double> limit = confidenceLimit()) return *limit;
  } catch (const std::exception&) {
  }
  return kNotAvailable;
}

// Zar's confidence half-width of the mean direction at the 95 % level, in degrees; no value
// for fewer than 8 observations or a sample too dispersed for either approximation.
std::optional<double> clsDSCircBO::confidenceLimit() {
  ensureCalculated();
  const Real n = static_cast<double>(n_);
  const Real r = r_;
  const Real bigR = n * r;
  // As a reference to an object that was never set: "Object required", which CL turns into "n/a".
  if (functions_ == nullptr) raise(err::kObjectRequired);
  const Real chi2 = checked(functions_->ChiInv(0.05, 1));
  if (n_ < 8) return std::nullopt;

  Real x = 0.0;
  if (r_ <= 0.9 && math::sqrt(chi2 / (2.0 * n)).v < r_) {
    x = math::sqrt(2.0 * n * (2.0 * bigR * bigR - n * chi2) / (4.0 * n - chi2)) / bigR;
  } else if (r_ > 0.9) {
    x = math::sqrt(n * n - (n * n - bigR * bigR) * math::exp(chi2 / n)) / bigR;
  } else {
    return std::nullopt;
  }

  // arccos x, written with the arctangent: x = 1 makes the root 0 and the division fail.
  const Real d = math::atan(-x / math::sqrt(1.0 - x * x)) + 2.0 * std::atan(1.0);
  cl_ = (d * 180.0 / pi()).v;
  return cl_;
}

}  // namespace orv
