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
#include "frame/host.h"
#include "frame/numerics.h"
#include "frame/procedure.h"
#include "support/array_tools.h"
#include "support/host_session.h"

namespace orv {
namespace {

constexpr Procedures kProc{"clsDSCircBO"};

constexpr const char* kNotAvailable = "n/a";

// π as the component has always computed it.
double pi() { return 4.0 * std::atan(1.0); }

// (180/π)²: turns a variance in square radians into square degrees.
double squareDegreesPerSquareRadian() {
  const double p = pi();
  return divide(180.0 * 180.0, p * p);
}

Real sqrt(Real x) { return squareRoot(x.v); }
Real exp(Real x) { return checked(std::exp(x.v)); }
Real atan(Real x) { return std::atan(x.v); }

// Observations are counted in 16 bits, like every loop over observations in the component: the
// bound is converted before the first row, so more than 32767 observations overflow at once.
template <class Body>
void forObservations(std::int32_t n, Body&& body) {
  const Int16 last = Int16::from(n);
  for (std::int32_t i = 1; i <= last.value(); ++i) body(i);
}

}  // namespace

clsDSCircBO::clsDSCircBO() {
  kProc("Class_Initialize", [] {});
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
    double sumCos = 0.0;
    double sumSin = 0.0;
    const double p = pi();
    forObservations(n_, [&](std::int32_t i) {
      const double theta = divide(multiply(toNumber(data_(i, 1)), p), 180.0);
      const auto at = static_cast<std::size_t>(i - 1);
      cosines[at] = std::cos(theta);
      sines[at] = std::sin(theta);
      sumCos = add(sumCos, cosines[at]);
      sumSin = add(sumSin, sines[at]);
    });

    // No observations: 0/0. Opposed directions (r = 0): C̄/r is 0/0 as well.
    meanCos_ = divide(sumCos, static_cast<double>(n_));
    meanSin_ = divide(sumSin, static_cast<double>(n_));
    // Equal directions give r = 1 up to rounding, which can land one unit above 1; a length
    // above 1 does not exist, and left so it would make both variances tiny negatives whose
    // square roots fail. Clamp it.
    r_ = std::min(1.0, squareRoot(add(multiply(meanCos_, meanCos_), multiply(meanSin_, meanSin_))));
    cosMean_ = divide(meanCos_, r_);
    sinMean_ = divide(meanSin_, r_);
    calculated_ = true;

    plotData_ = ArrayTools::Join(ArrayTools::FromDoubles(sines), ArrayTools::FromDoubles(cosines));
  });
}

double clsDSCircBO::Mean() {
  return kProc("Mean", [&] {
    ensureCalculated();
    const double p = pi();
    // A C̄ of exactly 0 fails here, whatever the quadrant.
    const double ratio = divide(meanSin_, meanCos_);
    const double a = std::atan(ratio);
    double mean = 0.0;
    if (cosMean_ >= 0.0 && sinMean_ >= 0.0) {
      mean = a;
    } else if (cosMean_ < 0.0 && sinMean_ >= 0.0) {
      mean = p - std::fabs(a);
    } else {
      // Both lower quadrants take the fourth quadrant's expression, so a mean direction in the
      // third quadrant is reported reflected into the fourth (225 as 315). Users' tables have
      // always shown it so; kept on purpose.
      mean = 2.0 * p - std::atan(std::fabs(ratio));
    }
    return divide(multiply(mean, 180.0), p);
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
    return multiply(multiply(squareDegreesPerSquareRadian(), 2.0), subtract(1.0, r_));
  });
}

double clsDSCircBO::AngularSD() {
  return kProc("AngularSD", [&] { return squareRoot(AngularVar()); });
}

double clsDSCircBO::CircularVar() {
  return kProc("CircularVar", [&] {
    ensureCalculated();
    return multiply(squareDegreesPerSquareRadian(), multiply(-2.0, logarithm(r_)));
  });
}

double clsDSCircBO::CircularSD() {
  return kProc("CircularSD", [&] { return squareRoot(CircularVar()); });
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
    return multiply(static_cast<double>(n_), multiply(r_, r_));
  });
}

double clsDSCircBO::RayleighP() {
  return kProc("RayleighP", [&] { return RayleighProbability(Rayleigh(), toInt32(Count())); });
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
  const Real chi2 = checked(HostSession::Application().worksheetFunction().ChiInv(0.05, 1));
  if (n_ < 8) return std::nullopt;

  Real x = 0.0;
  if (r_ <= 0.9 && sqrt(chi2 / (2.0 * n)).v < r_) {
    x = sqrt(2.0 * n * (2.0 * bigR * bigR - n * chi2) / (4.0 * n - chi2)) / bigR;
  } else if (r_ > 0.9) {
    x = sqrt(n * n - (n * n - bigR * bigR) * exp(chi2 / n)) / bigR;
  } else {
    return std::nullopt;
  }

  // arccos x, written with the arctangent: x = 1 makes the root 0 and the division fail.
  const Real d = atan(-x / sqrt(1.0 - x * x)) + 2.0 * std::atan(1.0);
  cl_ = (d * 180.0 / pi()).v;
  return cl_;
}

}  // namespace orv
