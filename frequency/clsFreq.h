#pragma once
// clsFreq: the public frequency analysis.
//
// Set the options (write-only properties, in the interface's member order below), then call
// Results. Results checks the combination of ranges, reads every variable (a column, or a row
// with DataInRows; the first cell is its name with Headers), counts it with a fresh clsFreqBO,
// writes the tables to the scratch sheet through clsFreqOutput and pastes the block at the output
// place (a new sheet at the end of the workbook when none is given).
//
// Tables: a raw one (one category per distinct value or item) for nominal data, or for data with
// ShowRawData, or for data without bins and without a histogram; a binned one with proposed bins
// for numerical data without bins when a histogram is wanted; a binned one with the given bins
// whenever a BinRange is given. With a FrequencyRange and data, the first data variable is
// counted, weighted by the frequencies; without data every frequency variable is counted over
// the bins (pre-counted data).
//
// With PlotHistogram, Results then draws one histogram per variable of the binned table (of the
// raw table when there is none) one empty column right of the pasted block, 210 points apart:
// the counts as touching columns, with PlotNormal (numerical data) the counts a normal
// distribution of the data's mean and deviation expects per category, with PlotCumulative the
// cumulative percentages on a 0..100 axis; categories labelled by their start values
// (CategoryStartPoint, the table's own cells) or as "from - to" ranges. The ranges and the
// expected counts go into cells under "Data for Histogram" below the pasted block when those
// cells are empty (histogram_data_block.h). No chart is drawn for a variable without categories;
// no normal curve where the data do not vary.
//
// The finished block is kept across Results calls until an address property changes its text.
// Errors leave as ComponentError with source "Line 0 in ORVDescriptives.clsFreq.<procedure>"
// ("Results", "Let<Property>"; the BinRange setter reports as "LetFrequencyRange"). Own numbers,
// checked in this order: 5002 no data and no bins; 5086 bins without data and frequencies; 5052
// more than one frequency variable beside data; 5098 more than one bin variable; 5018 a frequency
// variable whose length differs from a data variable's; 5097 (no data) one whose length differs
// from the bin variable's; 5081 fewer than two bins; 5099 bins that are not numbers rising
// strictly (four-decimal steps), an empty cell among them included. Empty cells at the end of
// the bin range are dropped.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "frame/range.h"
#include "frequency/freq_data_type.h"
#include "frequency/frequency_results.h"
#include "frequency/histogram_data_block.h"
#include "frequency/histogram_series.h"
#include "support/column_failure.h"

namespace orv {

// What the histogram needs besides the pasted block: the options that shape it.
struct HistogramOptions {
  bool plot = false;
  bool normal = true;
  bool cumulative = false;
  std::string title;
  std::string xTitle;
  std::string yTitle;
  bool categoryStartPoints = false;  // labels: start values when true, "from - to" when false
};

// One table of the finished block, with rows and columns counted from the block's top-left
// cell (1-based), which is also the output place's top-left cell after pasting.
struct FrequencyTablePlace {
  enum class Kind { Raw, ProposedBins, GivenBins };
  Kind kind = Kind::Raw;
  std::int32_t headingRow = 0;         // names and "N", "Cum. N", "%", "Cum. %"
  std::vector<std::int32_t> lastRows;  // per variable: the row of its last category
  std::vector<CategoryFlags> flags;    // per variable, binned tables only
};

class clsFreq {
 public:
  clsFreq();

  void Headers(bool v);
  void DataType(ORVDescriptivesFreqDataType v);
  void PlotHistogram(bool v);
  void PlotNormal(bool v);
  void PlotCumulative(bool v);
  void HistogramTitle(const std::string& v);
  void HistogramXTitle(const std::string& v);
  void HistogramYTitle(const std::string& v);
  void CategoryStartPoint(bool v);
  void ShowRawData(bool v);
  void DataInRows(bool v);
  // Textbook arithmetic instead of the kept rules (default false; frequency/clsFreqBO.h): whole
  // sheet columns, and empty data cells left out of binned tables and of the normal curve. The
  // results header then carries the comment line "Textbook arithmetic". A change drops the
  // finished block.
  void Textbook(bool v);
  // Address setters: a text equal to the stored one changes nothing; any other text is resolved
  // at once (empty: no range) and drops the finished block. A bad reference fails the setter
  // and stores nothing.
  void InputRange(const std::string& reference);
  void FrequencyRange(const std::string& reference);
  void BinRange(const std::string& reference);
  void OutputRange(const std::string& reference);
  void Results(bool overWrite = false);

  // For the histogram and for inspection: the options, the finished block on the scratch sheet
  // and its tables, and the place the block was last pasted at.
  const HistogramOptions& histogramOptions() const { return histogram_; }
  const std::optional<Range>& resultsBlock() const { return block_; }
  const std::vector<FrequencyTablePlace>& tables() const { return tables_; }
  const std::optional<Range>& outputRange() const { return output_.range; }
  // The block the last Results call pasted, on the output sheet.
  const std::optional<Range>& pastedBlock() const { return pasted_; }
  // When the last Results call failed while counting one variable: which variable and which
  // table. The error itself is raised as it came; none when no variable failed.
  const std::optional<ColumnFailure>& failure() const { return failure_; }

 private:
  struct AddressProperty {
    std::string text;
    std::optional<Range> range;
  };
  struct Variable;
  struct Analysed;
  struct Table;

  void setAddress(AddressProperty& property, const std::string& reference);
  void CheckRanges() const;
  Range GetResults();
  std::vector<Variable> readVariables(const Range& range) const;
  std::vector<Analysed> analysedVariables() const;
  ValueArray1D CheckBins(const ValueArray1D& column) const;
  struct WorkTally {
    std::uint64_t done;
    std::uint64_t total;
  };
  Table countTable(FrequencyTablePlace::Kind kind, const std::vector<Analysed>& variables,
                   const std::optional<ValueArray1D>& bins, WorkTally& tally);
  Range FormatResults(const std::vector<Table>& tables);
  void PasteResults(bool overWrite);
  void DrawHistogram();
  void fitColumns(const Range* histogramData) const;
  struct PastedTable;
  HistogramExtras histogramExtras(const PastedTable& table, std::size_t v) const;
  std::optional<std::vector<double>> normalCounts(const PastedTable& table, std::size_t v,
                                                  const std::vector<CategoryEdges>& edges) const;
  void drawOneHistogram(const PastedTable& table, std::size_t v, const HistogramExtras& extras,
                        const HistogramExtraCells* written, const Range& anchor) const;

  bool headers_ = false;
  ORVDescriptivesFreqDataType dataType_ = ORVDescriptivesFreqNumerical;
  HistogramOptions histogram_;
  bool showRawData_ = false;
  bool dataInRows_ = false;
  bool textbook_ = false;
  AddressProperty input_;
  AddressProperty frequency_;
  AddressProperty bin_;
  AddressProperty output_;

  std::optional<Range> block_;  // the finished results on the scratch sheet
  std::vector<FrequencyTablePlace> tables_;
  std::optional<Range> pasted_;
  bool pastedOnOwnSheet_ = false;
  std::optional<ColumnFailure> failure_;
  // Per analysed variable, the mean and deviation of its data for the normal curve (nothing for
  // pre-counted data, whose curve is fitted to the table).
  std::vector<std::optional<SampleMoments>> moments_;
};

}  // namespace orv
