#include "cli/column_messages.h"

#include <fmt/format.h>

#include <cctype>
#include <charconv>
#include <cmath>
#include <vector>

#include "frame/conversions.h"
#include "frame/host.h"
#include "frame/range.h"
#include "frame/reference.h"

namespace orv::cli {
namespace {

// The column's values, top to bottom (left to right for a row).
std::vector<CellValue> valuesOf(const Range& cells) {
  const ValueArray2D block = cells.Values();
  std::vector<CellValue> values;
  values.reserve(static_cast<std::size_t>(block.rows()) * static_cast<std::size_t>(block.columns()));
  for (std::int32_t r = 1; r <= block.rows(); ++r) {
    for (std::int32_t c = 1; c <= block.columns(); ++c) values.push_back(block(r, c));
  }
  return values;
}

std::int64_t numbersIn(const std::vector<CellValue>& values) {
  std::int64_t n = 0;
  for (const CellValue& v : values) n += v.isNumber() ? 1 : 0;
  return n;
}

// The fewest observations for which the lower percentile p has a row to read: its position
// (n + 1) / (100 / p) must reach 1, computed as the engine computes it.
std::int64_t fewestForPercentile(int p) {
  std::int64_t n = 0;
  while (std::floor(static_cast<double>(n + 1) / (100.0 / p)) < 1.0) ++n;
  return n;
}

// "5th Percentile" -> 5; 0 when the label is no percentile row.
int percentileOf(const std::string& step) {
  if (!step.ends_with(" Percentile")) return 0;
  int p = 0;
  std::from_chars(step.data(), step.data() + step.size(), p);
  return p;
}

std::string describeCause(const ComponentError& e, const ColumnFailure& f, const std::string& column) {
  const std::vector<CellValue> values = valuesOf(f.cells);
  const std::int64_t n = numbersIn(values);
  if (n == 0) return column + " holds no numbers.";
  if (n > kMostObservations) {
    return fmt::format("{} has {} observations; the analysis takes at most {}.", column, n, kMostObservations);
  }
  const int p = percentileOf(f.step);
  if (e.number() == err::kSubscriptOutOfRange && p > 0) {
    // "5th Percentile" -> "5th percentile"
    const std::string which = f.step.substr(0, f.step.size() - 10) + "percentile";
    return fmt::format("The {} of {} needs at least {} values; the column has {}.", which, column,
                       fewestForPercentile(p), n);
  }
  if (e.number() == err::kDivisionByZero && f.step == "Coeff. Var.") {
    return "The coefficient of variation of " + column + " divides by its mean, which is 0.";
  }
  return {};
}

// The angles a column of angles is read as: down to its first empty cell.
std::string circularCause(const ComponentError& e, const ColumnFailure& f, const std::string& column) {
  const std::vector<CellValue> values = valuesOf(f.cells);
  if (numbersIn(values) == 0) return column + " holds no numbers.";
  std::size_t n = 0;
  double cosines = 0.0;
  double sines = 0.0;
  const double radians = std::atan(1.0) / 45.0;
  while (n < values.size() && !values[n].isEmpty()) {
    if (values[n].isNumber()) {
      cosines += std::cos(values[n].number() * radians);
      sines += std::sin(values[n].number() * radians);
    }
    ++n;
  }
  if (n > static_cast<std::size_t>(kMostObservations)) {
    return fmt::format("{} has {} angles; the analysis takes at most {}.", column, n, kMostObservations);
  }
  if (n == 0) {
    const CellBlock first = f.cells.block();
    return column + " has no angle above its first empty cell, " + cellName(f.cells, first.top, first.left) +
           ": a column of angles is read down to its first empty cell.";
  }
  if (e.number() == err::kTypeMismatch && f.cells.CellCount() == 1) {
    return column + " has a single data cell; the circular statistics need at least two rows of angles.";
  }
  if (e.number() == err::kDivisionByZero || e.number() == err::kOverflow) {
    if (cosines == 0.0 && sines == 0.0) {
      return fmt::format(
          "The {} angles of {} cancel out: their mean vector has length 0, so they have no mean "
          "direction.",
          n, column);
    }
    if (cosines == 0.0) {
      return fmt::format(
          "The mean angle of {} cannot be found: the cosines of its {} angles add up to exactly 0, "
          "and the mean angle divides by that sum.",
          column, n);
    }
  }
  return {};
}

std::string frequencyCause(const ComponentError& e, const ColumnFailure& f, const std::string& column) {
  const std::int64_t cells = f.cells.CellCount();
  if (e.number() == err::kOverflow && cells > kMostObservations) {
    return fmt::format("{} has {} cells to count; the analysis takes at most {}.", column, cells, kMostObservations);
  }
  return {};
}

}  // namespace

std::string columnSentence(const ComponentError& e, const ColumnFailure& failure, const std::string& analysis) {
  const std::string column = "\"" + failure.name + "\" (" + failure.cells.AddressWithSheet() + ")";
  std::string cause;
  if (analysis == "describe") cause = describeCause(e, failure, column);
  if (analysis == "circular") cause = circularCause(e, failure, column);
  if (analysis == "frequency") cause = frequencyCause(e, failure, column);
  if (!cause.empty()) return cause;
  const std::string step = failure.step.empty() ? "reading the data" : "\"" + failure.step + "\"";
  return fmt::format("Computing {} of {} failed: {}.", step, column, e.description());
}

std::optional<std::string> angleOutsideSentence(const Range& input) {
  for (const CellBlock& area : input.areas()) {
    for (std::int32_t c = area.left; c <= area.right; ++c) {
      for (std::int32_t r = area.top; r <= area.bottom; ++r) {
        const CellValue v = input.Parent().cellValue(r, c);
        if (!v.isNumber() || (v.number() >= 0.0 && v.number() <= 360.0)) continue;
        return fmt::format(
            "The cell {} holds {}, an angle outside 0 to 360 degrees; angles must be given in "
            "degrees from 0 to 360.",
            cellName(input, r, c), numberToText(v.number()));
      }
    }
  }
  return std::nullopt;
}

std::optional<std::string> angleOutsideSentence(Application& app, const std::string& reference) {
  try {
    return angleOutsideSentence(app.ResolveRange(reference));
  } catch (const ComponentError&) {
    return std::nullopt;
  }
}

std::string cellName(const Range& range, std::int32_t row, std::int32_t column) {
  return quoteSheetName(range.Parent().Name()) + "!" + absoluteAddress(CellBlock{row, column, row, column});
}

}  // namespace orv::cli
