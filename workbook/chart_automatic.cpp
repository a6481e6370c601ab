#include "workbook/chart_automatic.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "frame/chart_layout.h"

namespace orv {
namespace {

// Slack for the quotient of two decimals that should be whole (9.975 / 0.5 ...), so that a bound
// that is a multiple of the step in decimal stays that multiple.
constexpr double kWholeSlack = 1e-9;

// step = mantissa x 10^exponent, kept apart so that multiples of it come out as the decimals they
// are (60 x 0.2 = 12, not 12.000000000000002).
struct Step {
  int mantissa;
  int exponent;
  double value() const { return scaled(1.0); }
  double scaled(double multiple) const {
    const double m = multiple * mantissa;
    return exponent >= 0 ? m * std::pow(10.0, exponent) : m / std::pow(10.0, -exponent);
  }
};

}  // namespace

AxisScale automaticValueScale(const std::vector<double>& values) {
  if (values.empty()) return AxisScale{};
  double lo = *std::min_element(values.begin(), values.end());
  double hi = *std::max_element(values.begin(), values.end());
  if (lo == hi) {
    if (hi == 0) return AxisScale{};
    // One value: the axis reaches from zero to it.
    (hi > 0 ? lo : hi) = 0;
  }

  const double pad = (hi - lo) / 20;
  const bool fromZero = lo >= 0 && lo < hi * 5 / 6;
  const bool toZero = hi <= 0 && hi > lo * 5 / 6;
  const double bottom = fromZero ? 0 : lo - pad;
  const double top = toZero ? 0 : hi + pad;

  // Data near the ends of the double range leave no room for nice steps: the axis is the data's.
  if (!std::isfinite(top - bottom)) return AxisScale{lo, hi, hi / 10 - lo / 10};

  Step step{1, static_cast<int>(std::floor(std::log10((top - bottom) / 10)))};
  static constexpr std::array<int, 3> kMantissas{1, 2, 5};
  for (std::size_t i = 0;; i = (i + 1) % kMantissas.size()) {
    step.mantissa = kMantissas[i];
    const double low = std::floor(bottom / step.value() + kWholeSlack);
    const double high = std::ceil(top / step.value() - kWholeSlack);
    if (high - low <= 10) return AxisScale{step.scaled(low), step.scaled(high), step.value()};
    if (i + 1 == kMantissas.size()) step.exponent += 1;
  }
}

PlotAreaModel automaticPlotArea(double chartWidth, double chartHeight, bool hasTitle) {
  const ChartRectangle standard = standardPlotArea(chartWidth, chartHeight, hasTitle);
  PlotAreaModel area;
  area.left = standard.left;
  area.width = standard.width;
  area.top = standard.top;
  area.height = standard.height;
  return area;
}

}  // namespace orv
