#pragma once
// clsDS: the public descriptive analysis of linear data.
//
// Set the options (write-only properties, in the interface's member order below), then call
// Results. Results checks the input, computes every selected statistic of every column of every
// area with a fresh clsDSBO, writes the table to the scratch sheet through clsDSOutput, and pastes
// it at the output place (a new sheet at the end of the active workbook when none is given).
//
// Errors leave as ComponentError with the source of the procedure the caller called
// ("Line 0 in ORVDescriptives.clsDS.Results", "... clsDS.LetHeaders"). Own numbers: 5002 (no input
// range), 5038 (areas of different heights). The InputRange and OutputRange setters have no trap of
// their own: a bad reference reaches the caller with the host's error as it stands.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "descriptive/clsDS_options.h"
#include "descriptive/error_amounts_block.h"
#include "descriptive/plot_rows.h"
#include "frame/range.h"
#include "support/column_failure.h"
#include "support/kept_rules.h"
#include "support/statistics_table.h"

namespace orv {

class clsDS {
 public:
  clsDS();

  void Headers(bool v);
  void GetMean(bool v);
  void GetMedian(bool v);
  void GetMode(bool v);
  void GetSE(bool v);
  void GetSD(bool v);
  void GetVariance(bool v);
  void GetCV(bool v);
  void GetCL(bool v);
  void GetSum(bool v);
  void GetSkewness(bool v);
  void GetKurtosis(bool v);
  void GetMin(bool v);
  void GetMax(bool v);
  void GetCount(bool v);
  void GetLargest(bool v);
  void GetSmallest(bool v);
  void GetRange(bool v);
  void GetPercentile(bool v);
  void PlotBox(bool v);
  void PlotError(bool v);
  // Resolves the reference at once; an empty text raises 5002. A different text drops the cached
  // results block.
  void InputRange(const std::string& reference);
  // Resolves the reference at once; an empty text means "a new sheet".
  void OutputRange(const std::string& reference);
  void CL(std::uint8_t v);
  void Percentile(std::uint8_t v);
  void Largest(std::int32_t v);
  void Smallest(std::int32_t v);
  void BoxTitle(const std::string& v);
  void BoxYTitle(const std::string& v);
  void ErrorTitle(const std::string& v);
  void ErrorYTitle(const std::string& v);
  // A changed text drops the cached results block.
  void ErrorCentre(const std::string& v);
  void ErrorError(const std::string& v);
  void Results(bool overWrite = false);
  // Kept for the public surface; it has no effect on any output.
  void OutputFrequencies(bool v);
  // Textbook arithmetic instead of the kept rules (default false; descriptive/clsDSBO.h); the
  // results header then carries the comment line "Textbook arithmetic".
  void Textbook(bool v);

  // For the chart drivers and for callers that report what was written: the rows recorded by the
  // last Results call, the output place, and the block pasted there.
  const PlotRows& plotRows() const { return plotRows_; }
  const std::optional<Range>& outputRange() const { return output_; }
  const std::optional<Range>& pastedBlock() const { return pasted_; }
  // When the last Results call failed inside a column: which column and which row. The error
  // itself is raised as it came; none when no column failed.
  const std::optional<ColumnFailure>& failure() const { return failure_; }
  // With the kept rules: where they changed a value of the last Results call from its textbook
  // value, one note per column and rule, in table order (support/kept_rules.h). Never on the
  // sheet; always empty with Textbook.
  const std::vector<ArithmeticNote>& notes() const { return notes_; }

 private:
  using Statistics = Selection<DescriptiveStatistic>;

  void select(std::string_view procedure, DescriptiveStatistic statistic, bool v);
  Statistics chartNeeds();
  Range GetResults();
  Range FormatResults(const StatisticsTable& table, Int16& firstRow);
  void DrawBoxPlot(Int16 columns, Int16 headerRow, Int16 lowerPercentileRow, Int16 upperPercentileRow, Int16 minimumRow,
                   Int16 maximumRow, Int16 medianRow);
  void DrawErrorPlot(Int16 columns, Int16 headerRow, Int16 centreRow, Int16 upperErrorRow, Int16 lowerErrorRow);

  bool headers_ = false;
  Statistics selected_;  // the Get* options
  bool plotBox_ = false, plotError_ = false, outputFrequencies_ = false;
  std::uint8_t cl_ = 95;
  std::uint8_t percentile_ = 25;
  std::int32_t largest_ = 0;
  std::int32_t smallest_ = 0;
  std::string boxTitle_, boxYTitle_, errorTitle_, errorYTitle_;
  // The error plot's texts as set (a changed text drops the block) and as understood.
  std::string errorCentreText_, errorBarsText_;
  ErrorCentreChoice errorCentre_ = ErrorCentreChoice::Other;
  ErrorBarsChoice errorBars_ = ErrorBarsChoice::Other;

  std::string inputText_;
  std::optional<Range> input_;
  std::optional<Range> output_;
  std::optional<Range> block_;
  std::optional<Range> pasted_;
  // The error bars' distances as written below the pasted table by this Results call, if they were.
  std::optional<ErrorAmountCells> errorAmounts_;
  std::optional<ColumnFailure> failure_;
  bool textbook_ = false;
  std::vector<ArithmeticNote> notes_;
  PlotRows plotRows_;
  // Points below the output cell where the next error plot goes: grows by 1.1 times the height
  // of every box plot this object draws and is never reset, so that a second Results call
  // stacks its charts below the first call's.
  std::int32_t chartOffset_ = 0;
};

}  // namespace orv
