#pragma once
// Sentences for a failure inside one column of an analysis: the column by its name and cells,
// the step that failed, and the cause in numbers, worked out from the column's data and the
// error. For example:
//   The 5th percentile of "Control" (Heights!$A$2:$A$13) needs at least 19 values; the column has 12.
//   "Depth" (Data!$C$2:$C$40001) has 40000 observations; the analysis takes at most 32767.
//   "Yield" (Data!$D$2:$D$20) holds no numbers.

#include <cstdint>
#include <optional>
#include <string>

#include "frame/errors.h"
#include "support/column_failure.h"

namespace orv {
class Application;
class Range;
}  // namespace orv

namespace orv::cli {

// `analysis` is "describe", "circular" or "frequency".
std::string columnSentence(const ComponentError& e, const ColumnFailure& failure, const std::string& analysis);

// For circular input refused for an angle outside 0 to 360: the first such cell, in the order
// the analysis checks them (column by column, each whole column top to bottom), and its value.
// Nothing when there is none (the reference itself was at fault).
std::optional<std::string> angleOutsideSentence(const Range& input);
// The same for the reference the analysis was given; nothing when the host cannot resolve it.
std::optional<std::string> angleOutsideSentence(Application& app, const std::string& reference);

// "Data!$B$7": a cell of the range's sheet, for sentences.
std::string cellName(const Range& range, std::int32_t row, std::int32_t column);

// The most observations or bins an analysis takes: its counters are 16-bit.
inline constexpr std::int32_t kMostObservations = 32767;

}  // namespace orv::cli
