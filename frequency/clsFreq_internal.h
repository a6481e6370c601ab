#pragma once
// The driver's working records, shared by its source files; not part of the component's surface.

#include <optional>
#include <string>
#include <vector>

#include "frame/procedure.h"
#include "frame/value_array.h"
#include "frequency/clsFreq.h"
#include "frequency/frequency_results.h"

namespace orv {

namespace detail {
inline constexpr Procedures kFreq{"clsFreq"};
}  // namespace detail

// One column (row, with DataInRows) of a given range: its name and its cells below the header.
struct clsFreq::Variable {
  std::string name;
  ValueArray1D cells;
  std::optional<Range> place;  // where the cells are; none for a variable of no cells
};

// What one engine counts: data (absent for pre-counted input) and weights (absent: 1 each).
struct clsFreq::Analysed {
  std::string name;
  std::optional<ValueArray1D> data;
  std::optional<ValueArray1D> weights;
  std::optional<Range> place;  // the cells counted: the data's, or the weights' without data
};

// One results table: a heading and the five arrays of every variable, side by side.
struct clsFreq::Table {
  FrequencyTablePlace::Kind kind = FrequencyTablePlace::Kind::Raw;
  Array1D<std::string> names;
  Array1D<VariableDistribution> results;
  std::vector<CategoryFlags> flags;  // binned tables only
};

}  // namespace orv
