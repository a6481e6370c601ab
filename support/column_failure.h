#pragma once
// Where in its input an analysis was when a column's computation failed.
//
// The drivers raise the first failure exactly as it came (number, description, source); beside
// it they keep a ColumnFailure, so that a caller can say which column failed and in which step
// without the error itself changing.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "frame/range.h"

namespace orv {

struct ColumnFailure {
  std::string name;  // the column's name as the results table gives it ("Control", "Column B")
  Range cells;       // the cells the column's data were read from (below a header cell)
  std::string step;  // the label of the table row being computed ("5th Percentile"), or the
                     // table being made ("Frequency Distribution"); empty while reading the data
};

// Which step each column's computation has reached, so that after a run over the columns in
// parallel (support/ordered_parallel.h) the first one that did not finish can be named. Each
// column's slot is written by the thread reading its data and then only by the thread computing
// it (the pipeline orders the hand-over), and read only once every thread has finished; a column
// never started counts as finished.
class ColumnSteps {
 public:
  static constexpr std::int32_t kReading = -1;

  explicit ColumnSteps(std::size_t columns) : at_(columns, kDone) {}

  void reading(std::size_t column) { at_[column] = kReading; }
  void step(std::size_t column, std::int32_t step) { at_[column] = step; }
  void done(std::size_t column) { at_[column] = kDone; }

  // The first column that did not finish, with the step it was at.
  std::optional<std::pair<std::size_t, std::int32_t>> firstUnfinished() const {
    for (std::size_t i = 0; i < at_.size(); ++i) {
      if (at_[i] != kDone) return std::pair{i, at_[i]};
    }
    return std::nullopt;
  }

 private:
  static constexpr std::int32_t kDone = -2;
  std::vector<std::int32_t> at_;
};

}  // namespace orv
