#pragma once
// clsDSCirc: the public analysis of circular data, angles in degrees.
//
// Set the options (write-only properties, in the interface's member order below), then call
// Results. Results checks every input column (acceptable to RangeChecks, every value from 0 to
// 360, title cell included), computes the selected statistics of every column of every area with
// a fresh clsDSCircBO, writes the table (and with Plot the sine/cosine plot data under
// "Data for Plots") to the scratch sheet through clsDSOutput, and pastes the block at the output
// place (a new sheet at the end of the input's workbook when none is given); with Plot it then
// draws one 200 x 200 point scatter chart of every column's plot data, stacked 210 points apart
// one empty column right of the pasted block (ScatterChartBuilder). With nothing
// selected the table holds the eight single-row statistics; Rayleigh's rows come only on request.
// The confidence row is always the 95 % one: CL is stored but changes no result.
//
// Errors leave as ComponentError. Own numbers: 5002 (no input range), 5024 (a value outside 0 to
// 360; a reference the host cannot resolve), 5038 (areas of different heights), 5001 (an output
// reference the host cannot resolve). Sources: "Line 0 in ORVDescriptives.clsDSCirc.<procedure>"
// for a failure of the class itself; a failure that arrives already carrying a "Line ..." source
// (from the engine, the writer, the support services) gets ".<procedure>" appended at every level
// instead, FormatResults appending ".FormatSimpleResults". The range setters have their own
// handler: the component's own numbers pass unchanged, any other failure becomes 5024 (input) or
// 5001 (output) with the library's name as source.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "descriptive/clsDSOutput.h"
#include "frame/numerics.h"
#include "frame/range.h"
#include "frame/value_array.h"
#include "support/column_failure.h"
#include "support/kept_rules.h"
#include "support/statistics_table.h"

namespace orv {

// The statistics a Get* option of clsDSCirc selects, in the order of their rows; Rayleigh's
// selects two.
enum class CircularStatistic : std::uint8_t {
  Mean,
  MeanVector,
  AngularSD,
  AngularVar,
  CircularSD,
  CircularVar,
  CL,
  Count,
  Rayleigh,
  kCount
};

class clsDSCirc {  // NOLINT(readability-identifier-naming): the component's own class name
 public:
  clsDSCirc();

  void Headers(bool v);
  void GetMean(bool v);
  void GetMeanVector(bool v);
  void GetCount(bool v);
  void GetAngularSD(bool v);
  void GetAngularVar(bool v);
  void GetCircularSD(bool v);
  void GetCircularVar(bool v);
  void GetRayleigh(bool v);
  void GetCL(bool v);
  void Plot(bool v);
  // Resolves the reference at once; an empty text raises 5002. The same text again keeps the
  // range resolved before; a different one drops the results block.
  void InputRange(const std::string& reference);
  // Resolves the reference at once; an empty text means "a new sheet".
  void OutputRange(const std::string& reference);
  void CL(std::uint8_t v);
  // Textbook arithmetic instead of the kept rules (default false; circular/clsDSCircBO.h); the
  // results header then carries the comment line "Textbook arithmetic". A change drops the
  // results block.
  void Textbook(bool v);
  void Results(bool overWrite = false);

  // For the chart layer and for inspection: the sheet rows of the plot values in the last
  // written block (scratch-sheet rows), the place the last block was pasted at, and the two
  // ranges on the output sheet the scatter plot was last asked to draw from (plot values, two
  // columns per data column; the row of column names above the "Sin"/"Cos" row).
  struct ScatterSources {
    Range data;
    Range titles;
  };
  const PlotDataRows& plotPositions() const { return plotPositions_; }
  const std::optional<Range>& outputRange() const { return output_; }
  // The block the last Results call pasted, on the output sheet.
  const std::optional<Range>& pastedBlock() const { return pasted_; }
  // When the last Results call failed inside a column: which column and which row. The error
  // itself is raised as it came; none when no column failed.
  const std::optional<ColumnFailure>& failure() const { return failure_; }
  const std::optional<ScatterSources>& scatterSources() const { return scatterSources_; }
  // With the kept rules: where they changed a value of the last results from its textbook value,
  // one note per column and rule (support/kept_rules.h). Never on the sheet; always empty with
  // Textbook.
  const std::vector<ArithmeticNote>& notes() const { return notes_; }

 private:
  void letSwitch(std::string_view procedure, CircularStatistic which, bool v);
  void letFlag(std::string_view procedure, bool& field, bool v);

  Range GetResults(Int16& columnCount, PlotDataRows& plotPositions);
  // With plot data (and the positions it reports) the "Data for Plots" block follows the table.
  Range FormatResults(const StatisticsTable& table, const ValueArray2D* plotData = nullptr,
                      PlotDataRows* plotPositions = nullptr);
  void DoScatterPlot(const Range& plotData, const Range& titles);

  bool headers_ = false;
  Selection<CircularStatistic> switches_;  // the Get* options; an empty selection gets defaults
  bool plot_ = false;
  bool textbook_ = false;
  std::uint8_t cl_ = 95;

  std::string inputText_;
  std::optional<Range> input_;
  std::optional<Range> output_;
  std::optional<Range> block_;
  std::optional<Range> pasted_;
  std::optional<ColumnFailure> failure_;
  std::vector<ArithmeticNote> notes_;
  Int16 columnCount_ = 0;
  PlotDataRows plotPositions_;
  std::optional<ScatterSources> scatterSources_;
};

}  // namespace orv
