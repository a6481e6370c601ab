#include "cli/arithmetic_notes.h"

#include <fmt/format.h>

#include <functional>

namespace orv::cli {
namespace {

std::string number(double x) { return fmt::format("{:.6g}", x); }

std::string shown(const CellValue& v) { return v.isNumber() ? number(v.number()) : "\"-\""; }

// "a", "a and b", "a, b and c" of what `part` makes of each value.
std::string listOf(const std::vector<ChangedValue>& values,
                   const std::function<std::string(const ChangedValue&)>& part) {
  std::string out;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (i > 0) out += i + 1 == values.size() ? " and " : ", ";
    out += part(values[i]);
  }
  return out;
}

std::string labels(const std::vector<ChangedValue>& values) {
  return listOf(values, [](const ChangedValue& v) { return v.statistic; });
}
std::string textbookValues(const std::vector<ChangedValue>& values) {
  return listOf(values, [](const ChangedValue& v) { return number(v.textbook); });
}
std::string shownValues(const std::vector<ChangedValue>& values) {
  return listOf(values, [](const ChangedValue& v) { return shown(v.shown); });
}
const char* them(const ArithmeticNote& note) { return note.values.size() == 1 ? "it" : "them"; }
const char* is(const ArithmeticNote& note) { return note.values.size() == 1 ? "is" : "are"; }

std::string reflectedMean(const ArithmeticNote& n, const std::string& column) {
  return fmt::format(
      "The mean angle of {} reads {}: a mean direction in the third quadrant is reported reflected into "
      "the fourth; its direction is {} (--textbook gives it).",
      column, shown(n.values.front().shown), number(n.values.front().textbook));
}

std::string kurtosisSampleSize(const ArithmeticNote& n, const std::string& column) {
  return fmt::format(
      "{} of {} {} \"-\" for its {} observations, since the kept arithmetic gives the kurtosis only up to "
      "216; the textbook {} {} {} (--textbook gives {}).",
      labels(n.values), column, n.values.size() == 1 ? "is" : "are", n.observations,
      n.values.size() == 1 ? "value" : "values", is(n), textbookValues(n.values), them(n));
}

std::string kurtosisTestOfSize(const ArithmeticNote& n, const std::string& column) {
  return fmt::format(
      "{} of {} is {}: it tests the size of the negative kurtosis and not its sign; Anscombe and Glynn's "
      "test of the signed kurtosis gives {} (--textbook gives it).",
      labels(n.values), column, shownValues(n.values), textbookValues(n.values));
}

std::string percentileBesideLast(const ArithmeticNote& n, const std::string& column) {
  return fmt::format(
      "The {} of {} {} {}: next to the last observation a percentile is not interpolated; interpolated "
      "(definition 6 of Hyndman and Fan) {} {} {} (--textbook gives {}).",
      labels(n.values), column, is(n), shownValues(n.values), n.values.size() == 1 ? "it" : "they", is(n),
      textbookValues(n.values), them(n));
}

std::string powerSumPrecision(const ArithmeticNote& n, const std::string& column) {
  const std::string digits =
      listOf(n.values, [](const ChangedValue& v) { return std::to_string(v.rightDigits.value_or(0)); });
  return fmt::format(
      "{} of {} {} {} from power sums of values far from zero against their spread, which lost precision: "
      "only about {} significant digits are right; from deviations about the mean {} {} {} (--textbook "
      "gives {}).",
      labels(n.values), column, is(n), shownValues(n.values), digits, n.values.size() == 1 ? "it" : "they", is(n),
      textbookValues(n.values), them(n));
}

}  // namespace

std::string noteSentence(const ArithmeticNote& note) {
  const std::string column = "\"" + note.column + "\" (" + note.cells.AddressWithSheet() + ")";
  switch (note.rule) {
    case KeptRule::ReflectedMeanAngle: return reflectedMean(note, column);
    case KeptRule::KurtosisSampleSize: return kurtosisSampleSize(note, column);
    case KeptRule::KurtosisTestOfSize: return kurtosisTestOfSize(note, column);
    case KeptRule::PercentileBesideLast: return percentileBesideLast(note, column);
    case KeptRule::PowerSumPrecision: return powerSumPrecision(note, column);
  }
  return {};
}

void addNoteWarnings(const std::vector<ArithmeticNote>& notes, std::vector<std::string>& warnings) {
  for (const ArithmeticNote& note : notes) warnings.push_back(noteSentence(note));
}

}  // namespace orv::cli
