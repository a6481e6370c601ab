// clsDSBO: skewness and kurtosis, and their probabilities under normality.
//
// None of these raises: any failure on the way (too few observations, zero variance, an overflow,
// the host's NormDist) makes the result the text "-". That "-" is not cached, so the next request
// tries again; only the "-" for a sample below a test's minimum size is a cached result.

#include <exception>

#include "descriptive/clsDSBO.h"
#include "descriptive/clsDSBO_internal.h"
#include "frame/conversions.h"
#include "frame/platform_loop.h"
#include "frame/small_power.h"

namespace orv {

using detail::kDSBO;
using detail::real;
using detail::twoTailed;
using math::abs;
using math::pow;

namespace {

const CellValue kNoValue("-");

// Runs `compute` and caches its number; a failure gives an uncached "-".
template <class Compute>
CellValue cachedOrDash(bool& have, CellValue& cache, Compute&& compute) {
  if (have) return cache;
  try {
    cache = compute();
    have = true;
    return cache;
  } catch (const std::exception&) {
    return kNoValue;
  }
}

}  // namespace

void clsDSBO::powerSums() {
  // A zero sum of squares means not gathered since the last reset (or truly zero: then the pass
  // is cheap to repeat). One 16-bit pass, committed only when it completes, so a failed pass
  // leaves nothing half-summed behind.
  if (sum2_ != 0.0) return;
  sum2_ = sum3_ = sum4_ = 0.0;
  Real s2 = 0.0;
  Real s3 = 0.0;
  Real s4 = 0.0;
  forRows<Int16>(Count(), [&](std::int64_t i) {
    // x², x³ and x⁴ exactly as pow gives them, from one shared square.
    const SmallPowers p = smallPowers(value(i));
    s2 = s2 + checked(p.square);
    s3 = s3 + checked(p.cube);
    s4 = s4 + checked(p.fourth);
  });
  sum2_ = s2.v;
  sum3_ = s3.v;
  sum4_ = s4.v;
}

CellValue clsDSBO::Skewness() {
  // n Σ(x - mean)³ / ((n - 1)(n - 2) s³), from raw power sums. The numerator
  // 2 S³ / n + n S3 - 3 S S2 equals n Σ(x - mean)³.
  return kDSBO("Skewness", [&] {
    return cachedOrDash(haveSkewness_, skewness_, [&] {
      if (textbook_) return CellValue(textbookSkewness());
      const Int32 count = Count();
      const Real n = real(count);
      const Real s = Sum();
      powerSums();
      const Real sd = math::sqrt(Variance());
      const Real numerator = Real(2) * pow(s, 3) / n + n * sum3_ - Real(3) * s * sum2_;
      // 32-bit product: 0 for n <= 2, which makes the division fail.
      const Int32 pairs = (count - Int32(2)) * (count - Int32(1));
      return CellValue((numerator / real(pairs) / pow(sd, 3)).v);
    });
  });
}

CellValue clsDSBO::Kurtosis() {
  // [n(n + 1) Σ(x - mean)⁴ - 3(n - 1)(Σ(x - mean)²)²] / ((n - 1)(n - 2)(n - 3) s⁴), the
  // sample excess kurtosis, expanded in raw power sums.
  return kDSBO("Kurtosis", [&] {
    return cachedOrDash(haveKurtosis_, kurtosis_, [&] {
      if (textbook_) return CellValue(textbookKurtosis());
      const Int32 count = Count();
      const Real n = real(count);
      const Real s = Sum();
      powerSums();
      const Real numerator = (pow(n, 3) + pow(n, 2)) * sum4_ - Real(4) * (pow(n, 2) + n) * s * sum3_ +
                             real(Int32(12) * count) * pow(s, 2) * sum2_ - Real(3) * (pow(n, 2) - n) * pow(sum2_, 2) -
                             Real(6) * pow(s, 4);
      // 32-bit product: 0 for n <= 3, and beyond the 32-bit range (an overflow) from 217
      // observations on, so that the kurtosis of larger samples is "-". Kept on purpose.
      const Int32 denominator = (count - Int32(1)) * count * (count - Int32(2)) * (count - Int32(3));
      const Real variance = Variance();
      return CellValue((numerator / real(denominator) / pow(variance, 2)).v);
    });
  });
}

CellValue clsDSBO::SkewnessP() {
  // D'Agostino's test: the sample skewness transformed to an approximately standard normal Z.
  return kDSBO("SkewnessP", [&] {
    return cachedOrDash(haveSkewnessP_, skewnessP_, [&] {
      const std::int32_t count = Count();
      if (count <= 8) return kNoValue;
      // A "-" skewness is no number: the conversion fails and so does the probability.
      const Real g = toNumber(Skewness());
      const Real n = real(count);
      const Real b = g * (n - 2) / math::sqrt(n * (n - 1));
      const Real y = b * math::sqrt((n + 1) * (n + 3) / (Real(6) * (n - 2)));
      const Real beta2 =
          Real(3) * (pow(n, 2) + Real(27) * n - 70) * (n + 1) * (n + 3) / ((n - 2) * (n + 5) * (n + 7) * (n + 9));
      const Real w2 = math::sqrt(Real(2) * (beta2 - 1)) - 1;
      const Real delta = Real(1) / math::sqrt(math::log(math::sqrt(w2)));
      const Real alpha = math::sqrt(Real(2) / (w2 - 1));
      const Real ya = y / alpha;
      const Real z = delta * math::log(ya + math::sqrt(pow(ya, 2) + 1));
      return CellValue(twoTailed(functions(), z).v);
    });
  });
}

CellValue clsDSBO::KurtosisP() {
  // Anscombe and Glynn's test on the size of the excess kurtosis.
  return kDSBO("KurtosisP", [&] {
    return cachedOrDash(haveKurtosisP_, kurtosisP_, [&] {
      // Textbook: from 5 observations, where the test's moments first exist.
      const std::int32_t count = Count();
      if (count <= (textbook_ ? 4 : 19)) return kNoValue;
      const Real k = toNumber(Kurtosis());
      if (textbook_) return CellValue(textbookKurtosisP(k.v));
      const Real n = real(count);
      const Real varB = Real(24) * n * (n - 2) * (n - 3) / (pow(n + 1, 2) * (n + 3) * (n + 5));
      // |K|: a negative kurtosis is tested like a positive one of the same size. Kept on purpose.
      const Real x = abs(k) * (n - 3) * (n - 2) / ((n - 1) * (n + 1) * math::sqrt(varB));
      const Real c = Real(6) * (pow(n, 2) - Real(5) * n + 2) / ((n + 9) * (n + 7)) *
                     math::sqrt(Real(6) * (n + 3) * (n + 5) / ((n - 2) * n * (n - 3)));
      const Real a = Real(6) + (Real(8) / c) * (Real(2) / c + math::sqrt(Real(1) + Real(4) / pow(c, 2)));
      const Real q = (Real(1) - Real(2) / a) / (Real(1) + x * math::sqrt(Real(2) / (a - 4)));
      const Real z = ((Real(1) - Real(2) / (Real(9) * a)) - pow(q, 1.0 / 3.0)) / math::sqrt(Real(2) / (Real(9) * a));
      return CellValue(twoTailed(functions(), z).v);
    });
  });
}

}  // namespace orv
