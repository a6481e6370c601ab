#pragma once
// clsFreqOutput: writes frequency tables onto the add-in's scratch sheet "Results" of
// "Orvella.xla", then hands back the written block for pasting and for the histogram.
//
// A header block ("Frequency Distributions for:" and one "... Range = " line per given range),
// comment lines, and tables. A table is one heading row (per variable: its name, "N", "Cum. N",
// "%", "Cum. %" in five adjacent columns, variables side by side) and the categories below it,
// one row each. Counts take the format "0", percentages (percent numbers) "0.00", categories
// "General"; a "<" or ">=" category shows its mark through its number format, the cell keeps its
// number.
//
// Creating a writer clears the scratch sheet: one writer per analysis. Errors leave with the
// writer's procedure names as their source ("Line 0 in ORVDescriptives.clsFreqOutput.<proc>").

#include <cstdint>
#include <string>
#include <vector>

#include "frame/numerics.h"
#include "frame/range.h"
#include "frame/value_array.h"
#include "frequency/frequency_results.h"
#include "support/cell_formatter.h"
#include "support/results_cursor.h"
#include "support/results_style.h"

namespace orv {

// The sheet rows of the first and the last category row that OutputMatrix wrote (the heading
// row is the one above the first).
struct CategoryRows {
  std::int32_t first = 0;
  std::int32_t last = 0;
};

class clsFreqOutput {
 public:
  clsFreqOutput();

  // Lines for the ranges that are not empty, in the order data, frequency, bin; a non-empty
  // comment goes on the line after them.
  void OutputHeader(const std::string& dataRange = {}, const std::string& binRange = {},
                    const std::string& frequencyRange = {}, const std::string& comment = {});
  // One table of as many variables as `results` holds; `headings` names them. With `flags`
  // (binned tables), the "<" and ">=" marks of each variable.
  void OutputMatrix(const Array1D<std::string>& headings, const Array1D<VariableDistribution>& results,
                    CategoryRows& rows, const std::vector<CategoryFlags>* flags = nullptr);
  void OutputComment(const std::string& comment, std::int16_t numBlankLines = 0, bool heading = false);
  void InsertBlankLines(std::int16_t n);

  // The written block, from A1 to the current row and the last column used (six columns when
  // no table was written).
  Range Results();

 private:
  void writeLine(const std::string& text, bool heading);

  ResultsStyle style_;
  CellFormatter formatter_;
  ResultsCursor cursor_;
};

}  // namespace orv
