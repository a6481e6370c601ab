// clsDSBO: textbook arithmetic, for the Textbook option and for the textbook values that the
// notes on the kept rules give.
//
// The loops here count in 64 bits and the formulas' integer products are taken in floating
// point, so a whole sheet column of observations goes through. The moments are sums of the
// deviations about the mean, so their precision does not depend on where the data sit: a column
// near 1e8 with a spread of 1 keeps as many digits as the same column near 0.

#include <cfloat>
#include <cmath>
#include <vector>

#include "descriptive/clsDSBO.h"
#include "descriptive/clsDSBO_internal.h"
#include "frame/conversions.h"

namespace orv {

using detail::twoTailed;
using math::abs;
using math::pow;

namespace {

// An observation's value; numbers, by far the most common, without a call.
double numberOf(const CellValue& cell) { return cell.isNumber() ? cell.number() : toNumber(cell); }

// Calls visit(x) for the observations x(1)..x(n) in order: column 1 of the first n rows, read
// straight from the array's storage (n never exceeds its rows).
template <class Visit>
void eachObservation(const ValueArray2D& data, std::int64_t n, Visit&& visit) {
  const std::vector<CellValue>& cells = data.cells();
  const auto stride = static_cast<std::size_t>(data.columns());
  for (std::size_t i = 0; i < static_cast<std::size_t>(n); ++i) visit(numberOf(cells[i * stride]));
}

}  // namespace

// The sum in the order the kept rules add (the same bits), with a 64-bit counter; a sum that
// leaves the double range is an overflow, as there.
double clsDSBO::plainSum() {
  double total = 0.0;
  eachObservation(data_, Count(), [&](double x) { total += x; });
  return checked(total);
}

// Two passes: the plain mean c, then the sums of d = x - c and of its powers. The mean deviation
// δ = Σd / n corrects the mean (as a compensated mean does), and the sums about c are moved to
// the corrected mean exactly by the binomial expansion. The column is sorted, so equal first and
// last observations mean that all are equal: no spread at all, whatever the rounding of c.
const clsDSBO::CentralSums& clsDSBO::centralSums() {
  if (central_) return *central_;
  const std::int64_t count = Count();
  const double n = static_cast<double>(count);
  const double shift = (Real(plainSum()) / n).v;  // no observations: 0/0, an overflow
  CentralSums c{n, shift, 0.0, 0.0, 0.0};
  if (value(1) == value(count)) {
    c.mean = value(1);
    central_ = c;
    return *central_;
  }
  double s1 = 0.0, s2 = 0.0, s3 = 0.0, s4 = 0.0;
  eachObservation(data_, count, [&](double x) {
    const double d = x - shift;
    const double d2 = d * d;
    s1 += d;
    s2 += d2;
    s3 += d2 * d;
    s4 += d2 * d2;
  });
  const double delta = s1 / n;
  c.mean = checked(shift + delta);
  c.m2 = std::fmax(0.0, checked(s2 - delta * s1));
  c.m3 = checked(s3 - 3.0 * delta * s2 + 3.0 * delta * delta * s1 - n * delta * delta * delta);
  c.m4 = checked(s4 - 4.0 * delta * s3 + 6.0 * delta * delta * s2 - 4.0 * delta * delta * delta * s1 +
                 n * delta * delta * delta * delta);
  central_ = c;
  return *central_;
}

// n Σd³ / ((n - 1)(n - 2) s³): fails (division) for n <= 2 and for zero spread.
double clsDSBO::textbookSkewness() {
  const CentralSums& c = centralSums();
  const Real n = c.n;
  const Real sd = math::sqrt(Real(c.m2) / (n - 1));
  return (n * c.m3 / ((n - 1) * (n - 2)) / pow(sd, 3)).v;
}

// [n(n + 1) Σd⁴ - 3(n - 1)(Σd²)²] / ((n - 1)(n - 2)(n - 3) s⁴): fails for n <= 3 and for zero
// spread.
double clsDSBO::textbookKurtosis() {
  const CentralSums& c = centralSums();
  const Real n = c.n;
  const Real numerator = n * (n + 1) * c.m4 - Real(3) * (n - 1) * (Real(c.m2) * c.m2);
  const Real variance = Real(c.m2) / (n - 1);
  return (numerator / ((n - 1) * (n - 2) * (n - 3)) / (variance * variance)).v;
}

// Anscombe and Glynn's test of the signed statistic, two-tailed: x keeps the sign of the
// kurtosis, and the cube root of the transformed value keeps the sign of its denominator. A
// denominator of exactly 0 has no root: division by zero.
double clsDSBO::textbookKurtosisP(double kurtosis) {
  const Real n = static_cast<double>(Count());
  const Real varB = Real(24) * n * (n - 2) * (n - 3) / (pow(n + 1, 2) * (n + 3) * (n + 5));
  const Real x = Real(kurtosis) * (n - 3) * (n - 2) / ((n - 1) * (n + 1) * math::sqrt(varB));
  const Real c = Real(6) * (pow(n, 2) - Real(5) * n + 2) / ((n + 9) * (n + 7)) *
                 math::sqrt(Real(6) * (n + 3) * (n + 5) / ((n - 2) * n * (n - 3)));
  const Real a = Real(6) + (Real(8) / c) * (Real(2) / c + math::sqrt(Real(1) + Real(4) / pow(c, 2)));
  const Real denominator = Real(1) + x * math::sqrt(Real(2) / (a - 4));
  const Real root = pow((Real(1) - Real(2) / a) / abs(denominator), 1.0 / 3.0);
  const Real signedRoot = denominator.v < 0 ? -root : root;
  const Real z = ((Real(1) - Real(2) / (Real(9) * a)) - signedRoot) / math::sqrt(Real(2) / (Real(9) * a));
  return twoTailed(functions(), z).v;
}

// Hyndman and Fan's definition 6 as R's quantile(type = 6) computes it: position h = p/100 (n + 1),
// its whole part j and fraction f (both freed of a rounding fuzz of four units in the last
// place), x(j) + f (x(j + 1) - x(j)) written as (1 - f) x(j) + f x(j + 1), with positions below 1
// and from n on giving the smallest and the largest observation.
double clsDSBO::textbookPercentile(std::uint8_t p) {
  const std::int64_t n = Count();
  if (n == 0) return value(0);  // no observations: a subscript error, as with the kept rules
  constexpr double kFuzz = 4 * DBL_EPSILON;
  const double position = static_cast<double>(p) / 100.0 * static_cast<double>(n + 1);
  const double j = std::floor(position + kFuzz);
  double f = position - j;
  if (std::fabs(f) < kFuzz) f = 0.0;
  const auto at = [&](double row) {
    return value(row < 1.0 ? 1 : row > static_cast<double>(n) ? n : static_cast<std::int64_t>(row));
  };
  const double low = at(j);
  const double high = at(j + 1);
  if (f == 0.0 || low == high) return low;
  if (f == 1.0) return high;
  return checked((1.0 - f) * low + f * high);
}

}  // namespace orv
