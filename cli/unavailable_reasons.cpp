#include "cli/unavailable_reasons.h"

#include <fmt/format.h>

#include <cmath>
#include <cstdint>
#include <vector>

#include "frame/host.h"
#include "frame/range.h"

namespace orv::cli {
namespace {

// The fewest observations each descriptive row needs, and the point from which the kurtosis's
// 32-bit denominator n(n - 1)(n - 2)(n - 3) overflows.
constexpr std::int64_t kSkewnessFrom = 3;
constexpr std::int64_t kSkewnessTestFrom = 9;
constexpr std::int64_t kKurtosisFrom = 4;
constexpr std::int64_t kKurtosisTestFrom = 20;
constexpr std::int64_t kTextbookKurtosisTestFrom = 5;
constexpr std::int64_t kKurtosisOverflowFrom = 217;
constexpr std::int64_t kConfidenceLimitFrom = 8;

std::vector<CellValue> cellsOf(const Range& cells) {
  const ValueArray2D block = cells.Values();
  std::vector<CellValue> values;
  for (std::int32_t r = 1; r <= block.rows(); ++r) {
    for (std::int32_t c = 1; c <= block.columns(); ++c) values.push_back(block(r, c));
  }
  return values;
}

std::string tooFew(std::int64_t needed, std::int64_t n, const char* what) {
  return fmt::format("needs at least {} {}; the column has {}", needed, what, n);
}

std::string shapeReason(std::int64_t n, bool allEqual, std::int64_t needed) {
  if (n < needed) return tooFew(needed, n, "observations");
  if (allEqual) return "all observations are equal, so the standard deviation is 0";
  return "cannot be computed for these data";
}

std::string describeReason(const std::string& label, const std::vector<CellValue>& cells, bool textbook) {
  std::int64_t n = 0;
  bool allEqual = true;
  double first = 0.0;
  for (const CellValue& v : cells) {
    if (!v.isNumber()) continue;
    if (n++ == 0) first = v.number();
    allEqual = allEqual && v.number() == first;
  }
  if (label == "Mode") return "no value occurs more than once";
  if (label == "Skewness") return shapeReason(n, allEqual, kSkewnessFrom);
  if (label == "P(Skewness)") {
    return n < kSkewnessTestFrom ? tooFew(kSkewnessTestFrom, n, "observations")
                                 : shapeReason(n, allEqual, kSkewnessFrom);
  }
  if (label == "Kurtosis" || label == "P(Kurtosis)") {
    const std::int64_t testFrom = textbook ? kTextbookKurtosisTestFrom : kKurtosisTestFrom;
    if (label == "P(Kurtosis)" && n < testFrom) return tooFew(testFrom, n, "observations");
    if (!textbook && n >= kKurtosisOverflowFrom) {
      return fmt::format(
          "from {} observations on, n(n - 1)(n - 2)(n - 3) exceeds the largest whole number the kurtosis keeps "
          "(2147483647); the column has {}",
          kKurtosisOverflowFrom, n);
    }
    return shapeReason(n, allEqual, kKurtosisFrom);
  }
  return "cannot be computed for these data";
}

// The confidence limit of the mean angle, after Zar: the angles down to the first empty cell,
// and whether their mean vector is long enough for either of the two approximations.
std::string circularReason(const std::string& label, const std::vector<CellValue>& cells, Application& app) {
  if (label != "95%CL (±)") return "cannot be computed for these data";
  std::int64_t n = 0;
  double cosines = 0.0;
  double sines = 0.0;
  const double radians = std::atan(1.0) / 45.0;
  for (const CellValue& v : cells) {
    if (v.isEmpty()) break;
    ++n;
    if (!v.isNumber()) continue;
    cosines += std::cos(v.number() * radians);
    sines += std::sin(v.number() * radians);
  }
  if (n < kConfidenceLimitFrom) return tooFew(kConfidenceLimitFrom, n, "angles");
  const double r = std::hypot(cosines, sines) / static_cast<double>(n);
  const double chi2 = app.worksheetFunction().ChiInv(0.05, 1);
  const double shortest = std::sqrt(chi2 / (2.0 * static_cast<double>(n)));
  if (r <= 0.9 && r <= shortest) {
    return fmt::format(
        "the angles are too dispersed: the mean vector is {:.4g}, not above the {:.4g} that {} angles need", r,
        shortest, n);
  }
  if (r >= 1.0 - 1e-12) return "all angles are equal, so the interval has no width to compute";
  return "cannot be computed for these data";
}

}  // namespace

std::string unavailableReason(const std::string& analysis, const std::string& label, const Range& cells,
                              bool textbook) {
  const std::vector<CellValue> values = cellsOf(cells);
  if (analysis == "circular") return circularReason(label, values, cells.Parent().Parent().application());
  return describeReason(label, values, textbook);
}

}  // namespace orv::cli
