#pragma once
// A look over the data ranges before an analysis runs: what the analysis would misread is
// refused, and what it reads in a way a person may not expect is said as a warning.
//
// For every range given (whole columns cut to the used cells, as the analyses get them):
//   - with --headers, a range without a data row below its header row (data column right of
//     it, with --rows) is refused: the analysis would read past the range's end;
//   - with --headers, header cells that hold numbers: is the first row data?
//   - formula cells without a saved value, which are read as empty;
//   - numbers in date or time formats among the data, which are analysed as serial day numbers.
// A reference that does not resolve is left for the analysis to report.

#include <stdexcept>
#include <string>
#include <vector>

#include "cli/analysis_run.h"

namespace orv {
class Application;
struct LoadedWorkbook;
}  // namespace orv

namespace orv::cli {

// The input refused before the analysis: the sentence after "orvella: ", exit status 1.
class InputRefused : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// `loaded` gives what the file reader noted (formulas without values, date cells); a host that
// reads the cells itself (the live one, whose formulas always carry values) gives nullptr.
void inspectInputs(Application& app, const LoadedWorkbook* loaded, const AnalysisRequest& request,
                   std::vector<std::string>& warnings);

}  // namespace orv::cli
