#pragma once
// Notes on the rules of the component's arithmetic that are kept on purpose although they change
// a number from what textbook arithmetic gives. A calculation object answers, statistic by
// statistic, whether such a rule changed the value it gave and what the textbook value is; the
// drivers gather the answers into one note per data column and rule, beside their results and
// never on the sheet. A rule that changed nothing leaves no note.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/cell_value.h"
#include "frame/range.h"

namespace orv {

// The comment line of a results header whose table textbook arithmetic made.
inline constexpr std::string_view kTextbookComment = "Textbook arithmetic";

enum class KeptRule : std::uint8_t {
  ReflectedMeanAngle,    // a mean direction in the third quadrant reads reflected into the fourth
  KurtosisSampleSize,    // Kurtosis and P(Kurtosis) are "-" from 217 observations (32-bit product)
  KurtosisTestOfSize,    // P(Kurtosis) tests the size of the kurtosis, not its sign
  PercentileBesideLast,  // a percentile next to the last observation is not interpolated
  PowerSumPrecision,     // skewness and kurtosis from raw power sums of values far from zero
};

// What a kept rule did to one statistic of one column.
struct KeptRuleEffect {
  KeptRule rule;
  double textbook;  // the value textbook arithmetic gives
  // PowerSumPrecision: the significant digits of the value given that agree with the textbook one.
  std::optional<int> rightDigits;
};

// One value of the results table that a kept rule changed.
struct ChangedValue {
  std::string statistic;  // the label of its row ("Kurtosis", "90th Percentile")
  CellValue shown;        // what the table holds: a number, or "-"
  double textbook;
  std::optional<int> rightDigits;
};

struct ArithmeticNote {
  KeptRule rule;
  std::string column;                // the column's name as the table gives it
  Range cells;                       // the cells its data were read from
  std::int64_t observations = 0;     // its number of observations
  std::vector<ChangedValue> values;  // in the order of the table's rows
};

// One column's findings, as its calculation leaves them: every changed value with its rule.
struct ColumnFindings {
  struct Finding {
    KeptRule rule;
    ChangedValue value;
  };
  std::int64_t observations = 0;
  std::vector<Finding> changed;

  void add(const std::optional<KeptRuleEffect>& effect, std::string statistic, CellValue shown) {
    if (effect)
      changed.push_back(
          {effect->rule, {std::move(statistic), std::move(shown), effect->textbook, effect->rightDigits}});
  }
};

// Appends one note per rule among `findings` (in the order the rules first appear), each holding
// the rule's values in table order.
void addColumnNotes(std::vector<ArithmeticNote>& notes, const std::string& column, const Range& cells,
                    const ColumnFindings& findings);

// The significant digits of `given` that agree with `exact`, from 0 to 15.
int agreeingDigits(double given, double exact);

}  // namespace orv
