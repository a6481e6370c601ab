#include "workbook/host_worksheet_functions.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <optional>
#include <string>
#include <string_view>

#include <boost/math/distributions/chi_squared.hpp>
#include <boost/math/distributions/normal.hpp>
#include <boost/math/distributions/students_t.hpp>

#include "frame/errors.h"

namespace orv {
namespace {

[[noreturn]] void fail(std::string_view function) {
  raiseHost("Unable to get the " + std::string(function) + " property of the WorksheetFunction class");
}

// Runs a Boost evaluation; its exceptions (domain, overflow, evaluation errors) and any result
// that is not a finite number become the function's host failure.
template <class Compute>
double evaluate(std::string_view function, Compute&& compute) {
  double result = 0.0;
  try {
    result = compute();
  } catch (const std::exception&) {
    fail(function);
  }
  if (!std::isfinite(result)) fail(function);
  return result;
}

bool isProbability(double p) { return std::isfinite(p) && p > 0.0 && p <= 1.0; }

// The spreadsheet truncates degrees of freedom toward zero before checking them.
std::optional<double> degreesOfFreedom(double df, double largest) {
  if (!std::isfinite(df)) return std::nullopt;
  const double whole = std::trunc(df);
  if (whole < 1.0 || whole > largest) return std::nullopt;
  return whole;
}

enum class Extreme { Min, Max };

double extremeOf(const Range& range, Extreme which, std::string_view function) {
  Worksheet& sheet = range.Parent();
  const std::optional<CellBlock> used = sheet.usedBlock();
  if (!used) return 0.0;
  std::optional<double> best;
  ValueArray2D values;
  for (const CellBlock& area : range.areas()) {
    // Only the used part of an area can hold numbers; whole columns read no further.
    const CellBlock part{std::max(area.top, used->top), std::max(area.left, used->left),
                         std::min(area.bottom, used->bottom), std::min(area.right, used->right)};
    if (part.top > part.bottom || part.left > part.right) continue;
    sheet.readBlock(part, values);
    for (const CellValue& v : values.cells()) {
      if (v.isError()) fail(function);
      if (!v.isNumber()) continue;
      if (!best || (which == Extreme::Min ? v.number() < *best : v.number() > *best)) best = v.number();
    }
  }
  return best.value_or(0.0);
}

}  // namespace

double HostWorksheetFunctions::TInv(double probability, double degreesOfFreedom) {
  constexpr std::string_view kName = "TInv";
  const auto df = orv::degreesOfFreedom(degreesOfFreedom, HUGE_VAL);
  if (!isProbability(probability) || !df) fail(kName);
  return evaluate(kName, [&] {
    // Two-tailed: the upper p/2 quantile.
    return boost::math::quantile(boost::math::complement(boost::math::students_t(*df), probability / 2.0));
  });
}

double HostWorksheetFunctions::NormDist(double x, double mean, double standardDeviation, bool cumulative) {
  constexpr std::string_view kName = "NormDist";
  if (!std::isfinite(x) || !std::isfinite(mean) || !std::isfinite(standardDeviation) || standardDeviation <= 0.0) {
    fail(kName);
  }
  return evaluate(kName, [&] {
    const boost::math::normal normal(mean, standardDeviation);
    return cumulative ? boost::math::cdf(normal, x) : boost::math::pdf(normal, x);
  });
}

double HostWorksheetFunctions::ChiInv(double probability, double degreesOfFreedom) {
  constexpr std::string_view kName = "ChiInv";
  const auto df = orv::degreesOfFreedom(degreesOfFreedom, 1e10);
  if (!isProbability(probability) || !df) fail(kName);
  return evaluate(kName, [&] {
    return boost::math::quantile(boost::math::complement(boost::math::chi_squared(*df), probability));
  });
}

double HostWorksheetFunctions::Min(const Range& range) { return extremeOf(range, Extreme::Min, "Min"); }

double HostWorksheetFunctions::Max(const Range& range) { return extremeOf(range, Extreme::Max, "Max"); }

}  // namespace orv
