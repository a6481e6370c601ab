#include "support/kept_rules.h"

#include <algorithm>
#include <cmath>

namespace orv {

void addColumnNotes(std::vector<ArithmeticNote>& notes, const std::string& column, const Range& cells,
                    const ColumnFindings& findings) {
  const std::size_t first = notes.size();
  for (const ColumnFindings::Finding& f : findings.changed) {
    auto note = std::find_if(notes.begin() + static_cast<std::ptrdiff_t>(first), notes.end(),
                             [&](const ArithmeticNote& n) { return n.rule == f.rule; });
    if (note == notes.end()) {
      notes.push_back(ArithmeticNote{f.rule, column, cells, findings.observations, {}});
      note = notes.end() - 1;
    }
    note->values.push_back(f.value);
  }
}

int agreeingDigits(double given, double exact) {
  const double difference = std::fabs(given - exact);
  if (difference == 0.0) return 15;
  if (exact == 0.0 || !std::isfinite(difference)) return 0;
  const double digits = std::floor(-std::log10(difference / std::fabs(exact)));
  return static_cast<int>(std::clamp(digits, 0.0, 15.0));
}

}  // namespace orv
