#include "descriptive/clsDS.h"

#include <array>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "charts/clsPlotBox.h"
#include "charts/clsPlotError.h"
#include "descriptive/clsDSBO.h"
#include "descriptive/clsDSOutput.h"
#include "descriptive/error_amounts_block.h"
#include "frame/conversions.h"
#include "frame/errors.h"
#include "frame/host.h"
#include "frame/procedure.h"
#include "support/column_fit.h"
#include "support/host_session.h"
#include "support/input_columns.h"
#include "support/ordinal.h"
#include "support/range_checks.h"
#include "support/results_sheet.h"

namespace orv {
namespace {

const Procedures kProc{"clsDS"};

using Want = DescriptiveStatistic;

// Rows whose sheet position a chart or the error-row choice needs.
enum class Slot {
  None,
  Mean,
  Median,
  SE,
  SD,
  Variance,
  LowerLimit,
  UpperLimit,
  LowerPercentile,
  UpperPercentile,
  Minimum,
  Maximum,
  kCount
};

// Labels that depend on the options.
enum class Label { Fixed, LowerCL, UpperCL, LowerPercentile, UpperPercentile, Smallest, Largest };

struct Options {
  std::uint8_t cl;
  std::uint8_t percentile;
  std::int32_t smallest;
  std::int32_t largest;
};

using ValueOf = CellValue (*)(clsDSBO&, const Options&);
using KeptOf = std::optional<KeptRuleEffect> (*)(clsDSBO&, const Options&);

struct LayoutRow {
  Want on;
  Label labelKind;
  std::string_view label;  // the label itself for Label::Fixed
  ValueOf value;
  Slot slot;
  KeptOf kept = nullptr;  // where a kept rule can change the value: what it did
};

// The descriptive results table: order of the rows, their labels, their values, and which rows
// are remembered for the charts. A label exists here and nowhere else.
constexpr std::array<LayoutRow, 22> kLayout{{
    {Want::Mean, Label::Fixed, "Mean", [](clsDSBO& b, const Options&) { return CellValue(b.Mean()); }, Slot::Mean},
    {Want::Median, Label::Fixed, "Median", [](clsDSBO& b, const Options&) { return CellValue(b.Median()); },
     Slot::Median},
    {Want::Mode, Label::Fixed, "Mode", [](clsDSBO& b, const Options&) { return b.Mode(); }, Slot::None},
    {Want::SE, Label::Fixed, "Std Error", [](clsDSBO& b, const Options&) { return CellValue(b.SE()); }, Slot::SE},
    {Want::SD, Label::Fixed, "Std Dev.", [](clsDSBO& b, const Options&) { return CellValue(b.SD()); }, Slot::SD},
    {Want::Variance, Label::Fixed, "Variance", [](clsDSBO& b, const Options&) { return CellValue(b.Variance()); },
     Slot::Variance},
    {Want::CV, Label::Fixed, "Coeff. Var.", [](clsDSBO& b, const Options&) { return CellValue(b.CV()); }, Slot::None},
    {Want::CL, Label::LowerCL, "", [](clsDSBO& b, const Options& o) { return CellValue(b.LCL(o.cl)); },
     Slot::LowerLimit},
    {Want::CL, Label::UpperCL, "", [](clsDSBO& b, const Options& o) { return CellValue(b.UCL(o.cl)); },
     Slot::UpperLimit},
    {Want::Percentile, Label::LowerPercentile, "",
     [](clsDSBO& b, const Options& o) { return CellValue(b.LP(o.percentile)); }, Slot::LowerPercentile,
     [](clsDSBO& b, const Options& o) { return b.LPKeptRule(o.percentile); }},
    {Want::Percentile, Label::UpperPercentile, "",
     [](clsDSBO& b, const Options& o) { return CellValue(b.UP(o.percentile)); }, Slot::UpperPercentile,
     [](clsDSBO& b, const Options& o) { return b.UPKeptRule(o.percentile); }},
    {Want::Sum, Label::Fixed, "Sum", [](clsDSBO& b, const Options&) { return CellValue(b.Sum()); }, Slot::None},
    {Want::Min, Label::Fixed, "Minimum", [](clsDSBO& b, const Options&) { return CellValue(b.Min()); }, Slot::Minimum},
    {Want::Max, Label::Fixed, "Maximum", [](clsDSBO& b, const Options&) { return CellValue(b.Max()); }, Slot::Maximum},
    {Want::Smallest, Label::Smallest, "",
     [](clsDSBO& b, const Options& o) { return CellValue(b.Smallest(o.smallest)); }, Slot::None},
    {Want::Largest, Label::Largest, "", [](clsDSBO& b, const Options& o) { return CellValue(b.Largest(o.largest)); },
     Slot::None},
    {Want::Range, Label::Fixed, "Range", [](clsDSBO& b, const Options&) { return CellValue(b.rng()); }, Slot::None},
    {Want::Count, Label::Fixed, "Count",
     [](clsDSBO& b, const Options&) { return CellValue(static_cast<double>(b.Count())); }, Slot::None},
    {Want::Skewness, Label::Fixed, "Skewness", [](clsDSBO& b, const Options&) { return b.Skewness(); }, Slot::None,
     [](clsDSBO& b, const Options&) { return b.SkewnessKeptRule(); }},
    {Want::Skewness, Label::Fixed, "P(Skewness)", [](clsDSBO& b, const Options&) { return b.SkewnessP(); }, Slot::None},
    {Want::Kurtosis, Label::Fixed, "Kurtosis", [](clsDSBO& b, const Options&) { return b.Kurtosis(); }, Slot::None,
     [](clsDSBO& b, const Options&) { return b.KurtosisKeptRule(); }},
    {Want::Kurtosis, Label::Fixed, "P(Kurtosis)", [](clsDSBO& b, const Options&) { return b.KurtosisP(); }, Slot::None,
     [](clsDSBO& b, const Options&) { return b.KurtosisPKeptRule(); }},
}};

// Nothing selected: the four rows every user expects.
constexpr std::array<Want, 4> kDefaultRows{Want::Mean, Want::SE, Want::SD, Want::Count};

// What each ErrorCentre text means: the statistic the error plot forces into the table, and the
// row recorded as the plot's centre. The last row stands for the empty text and any other.
struct CentreRow {
  ErrorCentreChoice choice;
  std::string_view text;
  Want forced;
  Slot centre;
};
constexpr std::array<CentreRow, 3> kErrorCentres{{
    {ErrorCentreChoice::Mean, "Mean", Want::Mean, Slot::Mean},
    {ErrorCentreChoice::Median, "Median", Want::Median, Slot::Median},
    {ErrorCentreChoice::Other, "", Want::Median, Slot::None},
}};

// What each ErrorError text means: the statistics it forces into the table, the rows its bars
// reach to, and whether those rows hold the limits themselves rather than a spread about the
// centre. The last row stands for the empty text and any other: the standard error is forced all
// the same, but no error rows are recorded. Kept as users have always had it.
struct BarsRow {
  ErrorBarsChoice choice;
  std::string_view text;
  Want forced;
  Want alsoForced;
  Slot upper;
  Slot lower;
  bool limits;
};
constexpr std::array<BarsRow, 7> kErrorBars{{
    {ErrorBarsChoice::StandardError, "Standard Error", Want::SE, Want::SE, Slot::SE, Slot::SE, false},
    {ErrorBarsChoice::StandardDeviation, "Standard Deviation", Want::SD, Want::SD, Slot::SD, Slot::SD, false},
    {ErrorBarsChoice::Variance, "Variance", Want::Variance, Want::Variance, Slot::Variance, Slot::Variance, false},
    {ErrorBarsChoice::Range, "Range", Want::Max, Want::Min, Slot::Maximum, Slot::Minimum, true},
    {ErrorBarsChoice::InterpercentileRange, "Interpercentile Range", Want::Percentile, Want::Percentile,
     Slot::UpperPercentile, Slot::LowerPercentile, true},
    {ErrorBarsChoice::ConfidenceLimits, "Confidence Limits", Want::CL, Want::CL, Slot::UpperLimit, Slot::LowerLimit,
     true},
    {ErrorBarsChoice::Other, "", Want::SE, Want::SE, Slot::None, Slot::None, false},
}};

// The row of a choice table whose text is `text` (exact, case-sensitive); the last row for any
// text not listed.
template <class Row, std::size_t N>
const Row& rowForText(const std::array<Row, N>& rows, std::string_view text) {
  for (const Row& row : rows) {
    if (row.text == text) return row;
  }
  return rows.back();
}

template <class Row, std::size_t N, class Choice>
const Row& rowForChoice(const std::array<Row, N>& rows, Choice choice) {
  for (const Row& row : rows) {
    if (row.choice == choice) return row;
  }
  return rows.back();
}

std::string labelOf(const LayoutRow& row, const Options& o) {
  const int p = o.percentile;
  switch (row.labelKind) {
    case Label::Fixed: return std::string(row.label);
    case Label::LowerCL: return "Lower " + std::to_string(o.cl) + "%CL";
    case Label::UpperCL: return "Upper " + std::to_string(o.cl) + "%CL";
    // The lower row always carries the smaller of P and 100 - P.
    case Label::LowerPercentile: return Ordinal(std::to_string(p > 50 ? 100 - p : p)) + " Percentile";
    case Label::UpperPercentile: return Ordinal(std::to_string(p > 50 ? p : 100 - p)) + " Percentile";
    case Label::Smallest: return Ordinal(std::to_string(o.smallest)) + " Smallest";
    case Label::Largest: return Ordinal(std::to_string(o.largest)) + " Largest";
  }
  return {};
}

// The matrix row of each Slot among the selected rows; Slot::None and unselected slots stay 0.
using SlotRows = std::array<Int16, static_cast<std::size_t>(Slot::kCount)>;

SlotRows slotRowsOf(const std::vector<const LayoutRow*>& rows) {
  SlotRows rowOf{};
  for (std::size_t r = 0; r < rows.size(); ++r) {
    if (rows[r]->slot != Slot::None) rowOf[static_cast<std::size_t>(rows[r]->slot)] = Int16::from(r + 1);
  }
  return rowOf;
}

// The matrix rows that the box and error plots read (step 8 chooses the centre and error rows).
PlotRows plotRowsOf(Int16 columns, const SlotRows& rowOf, ErrorCentreChoice centre, ErrorBarsChoice bars) {
  const auto at = [&](Slot s) { return rowOf[static_cast<std::size_t>(s)]; };
  PlotRows rows;
  rows.columns = columns;
  rows.median = at(Slot::Median);
  rows.lowerPercentile = at(Slot::LowerPercentile);
  rows.upperPercentile = at(Slot::UpperPercentile);
  rows.minimum = at(Slot::Minimum);
  rows.maximum = at(Slot::Maximum);
  rows.centre = at(rowForChoice(kErrorCentres, centre).centre);
  const BarsRow& extent = rowForChoice(kErrorBars, bars);
  rows.upperError = at(extent.upper);
  rows.lowerError = at(extent.lower);
  return rows;
}

// Matrix rows become sheet rows, the table's first row being sheet row `first`; the header row
// (0) becomes the names row above the table.
void toSheetRows(PlotRows& rows, Int16 first) {
  for (Int16* field : {&rows.header, &rows.lowerPercentile, &rows.upperPercentile, &rows.minimum, &rows.maximum,
                       &rows.median, &rows.centre, &rows.upperError, &rows.lowerError}) {
    *field = first + *field - 1;
  }
}

// What the kept rules did to the column's selected rows, once their values are in.
ColumnFindings keptRuleFindings(clsDSBO& bo, const std::vector<const LayoutRow*>& rows,
                                const std::vector<CellValue>& values, const Options& options) {
  ColumnFindings findings;
  for (std::size_t k = 0; k < rows.size(); ++k) {
    if (rows[k]->kept == nullptr) continue;
    findings.observations = bo.Count();
    findings.add(rows[k]->kept(bo, options), labelOf(*rows[k], options), values[k]);
  }
  return findings;
}

// Every data column's statistics by a fresh clsDSBO (on helper threads when the host's
// functions allow it), taken into the table in column order; a failing column is recorded in
// `failure` by the label of the row it failed in. With the kept rules, `notes` receives what
// they changed.
void fillStatistics(StatisticsTable& table, const DataColumns& data, const std::vector<const LayoutRow*>& rows,
                    const Options& options, bool textbook, std::optional<ColumnFailure>& failure,
                    std::vector<ArithmeticNote>& notes) {
  DistributionFunctions& functions = HostSession::Application().worksheetFunction();
  const auto compute = [&](ColumnValues column, const ColumnProgress& progress) {
    clsDSBO bo;
    bo.Functions(&functions);
    bo.Textbook(textbook);
    giveData(bo, std::move(column));
    ColumnResults<std::monostate> results{
        rowValues(rows, progress, [&](const LayoutRow& row) { return row.value(bo, options); })};
    if (!textbook) results.findings = keptRuleFindings(bo, rows, results.values, options);
    return results;
  };
  fillColumns<std::monostate>(
      table, data, functions.callableFromAnyThread(), compute, [](std::monostate) {},
      [&](std::size_t k) { return labelOf(*rows[k], options); }, failure, notes);
}

// Cell (1, W + 2) of the output range, one empty column right of the pasted block of W columns;
// cell (1, W) when that lies beyond the sheet's last column.
template <class Builder>
void anchorBesideBlock(Builder& builder, const Range& output, std::int32_t blockColumns) {
  try {
    builder.OutputRange(output.Cells(1, std::int64_t{blockColumns} + 2));
  } catch (const ComponentError&) {
    builder.OutputRange(output.Cells(1, blockColumns));
  }
}

// Columns 2 to C + 1 of one row of the output range: the data columns of the pasted table.
Range tableRow(const Range& output, Int16 row, Int16 columns) {
  return Range::Span(output.Cells(row, 2), output.Cells(row, std::int64_t{columns} + 1));
}

// For i = 1 .. C the value of cell (from, i + 1) minus that of cell (to, i + 1) of the output
// range; a cell that holds no number raises "Type mismatch".
ValueArray1D distancesBetween(const Range& output, Int16 from, Int16 to, Int16 columns) {
  const auto number = [&](Int16 row, std::int32_t column) {
    const CellValue v = output.Cells(row, column).Value();
    if (!v.isNumber()) raise(err::kTypeMismatch);
    return v.number();
  };
  ValueArray1D distances(columns);
  for (std::int32_t i = 1; i <= columns; ++i) distances(i) = subtract(number(from, i + 1), number(to, i + 1));
  return distances;
}

// The list the error plot's builder takes, tied to the cells that hold the same numbers when
// there are such cells.
AmountList listOf(ValueArray1D distances, const Range* cells) {
  return cells ? AmountList(std::move(distances), *cells) : AmountList(std::move(distances));
}

// Error bars that reach to limits get their distances from the centre written below the table
// (descriptive/error_amounts_block.h). A limit or centre that is no number writes nothing:
// drawing the error plot then fails on it.
std::optional<ErrorAmountCells> writeAmountsBelow(const Range& output, const Range& pasted, const PlotRows& rows,
                                                  ErrorBarsChoice bars) {
  if (!rowForChoice(kErrorBars, bars).limits) return std::nullopt;
  ValueArray1D above, below;
  try {
    above = distancesBetween(output, rows.upperError, rows.centre, rows.columns);
    below = distancesBetween(output, rows.centre, rows.lowerError, rows.columns);
  } catch (const ComponentError&) {
    return std::nullopt;
  }
  return writeErrorAmounts(pasted, rows.header.value(), rows.centre.value(), above, below);
}

}  // namespace

clsDS::clsDS() {
  kProc("Class_Initialize", [] {});
}

void clsDS::select(std::string_view procedure, DescriptiveStatistic statistic, bool v) {
  kProc(procedure, [&] { selected_[statistic] = v; });
}

void clsDS::Headers(bool v) {
  kProc("LetHeaders", [&] { headers_ = v; });
}
void clsDS::GetMean(bool v) { select("LetGetMean", Want::Mean, v); }
void clsDS::GetMedian(bool v) { select("LetGetMedian", Want::Median, v); }
void clsDS::GetMode(bool v) { select("LetGetMode", Want::Mode, v); }
void clsDS::GetSE(bool v) { select("LetGetSE", Want::SE, v); }
void clsDS::GetSD(bool v) { select("LetGetSD", Want::SD, v); }
void clsDS::GetVariance(bool v) { select("LetGetVariance", Want::Variance, v); }
void clsDS::GetCV(bool v) { select("LetGetCV", Want::CV, v); }
void clsDS::GetCL(bool v) { select("LetGetCL", Want::CL, v); }
void clsDS::GetSum(bool v) { select("LetGetSum", Want::Sum, v); }
void clsDS::GetSkewness(bool v) { select("LetGetSkewness", Want::Skewness, v); }
void clsDS::GetKurtosis(bool v) { select("LetGetKurtosis", Want::Kurtosis, v); }
void clsDS::GetMin(bool v) { select("LetGetMin", Want::Min, v); }
void clsDS::GetMax(bool v) { select("LetGetMax", Want::Max, v); }
void clsDS::GetCount(bool v) { select("LetGetCount", Want::Count, v); }
void clsDS::GetLargest(bool v) { select("LetGetLargest", Want::Largest, v); }
void clsDS::GetSmallest(bool v) { select("LetGetSmallest", Want::Smallest, v); }
void clsDS::GetRange(bool v) { select("LetGetRange", Want::Range, v); }
void clsDS::GetPercentile(bool v) { select("LetGetPercentile", Want::Percentile, v); }
void clsDS::PlotBox(bool v) {
  kProc("LetPlotBox", [&] { plotBox_ = v; });
}
void clsDS::PlotError(bool v) {
  kProc("LetPlotError", [&] { plotError_ = v; });
}

// The two range setters have no trap: their failures reach the caller as raised.
void clsDS::InputRange(const std::string& reference) {
  if (reference.empty()) raise(err::kNoInputRange);
  if (reference != inputText_) {
    input_ = HostSession::Application().ResolveRange(reference);
    block_.reset();
  }
  inputText_ = reference;
}

void clsDS::OutputRange(const std::string& reference) {
  if (reference.empty()) {
    output_.reset();
  } else {
    output_ = HostSession::Application().ResolveRange(reference);
  }
}

void clsDS::CL(std::uint8_t v) {
  kProc("LetCL", [&] { cl_ = v; });
}
void clsDS::Percentile(std::uint8_t v) {
  kProc("LetPercentile", [&] { percentile_ = v; });
}
void clsDS::Largest(std::int32_t v) {
  kProc("LetLargest", [&] { largest_ = v; });
}
void clsDS::Smallest(std::int32_t v) {
  kProc("LetSmallest", [&] { smallest_ = v; });
}
void clsDS::BoxTitle(const std::string& v) {
  kProc("LetBoxTitle", [&] { boxTitle_ = v; });
}
void clsDS::BoxYTitle(const std::string& v) {
  kProc("LetBoxYTitle", [&] { boxYTitle_ = v; });
}
void clsDS::ErrorTitle(const std::string& v) {
  kProc("LetErrorTitle", [&] { errorTitle_ = v; });
}
void clsDS::ErrorYTitle(const std::string& v) {
  kProc("LetErrorYTitle", [&] { errorYTitle_ = v; });
}

// A changed text drops the block even when it means the same (two texts that are not listed).
void clsDS::ErrorCentre(const std::string& v) {
  kProc("LetErrorCentre", [&] {
    if (v != errorCentreText_) {
      errorCentreText_ = v;
      errorCentre_ = rowForText(kErrorCentres, v).choice;
      block_.reset();
    }
  });
}

void clsDS::ErrorError(const std::string& v) {
  kProc("LetErrorError", [&] {
    if (v != errorBarsText_) {
      errorBarsText_ = v;
      errorBars_ = rowForText(kErrorBars, v).choice;
      block_.reset();
    }
  });
}

void clsDS::Textbook(bool v) {
  kProc("LetTextbook", [&] { textbook_ = v; });
}

void clsDS::OutputFrequencies(bool v) {
  kProc("LetOutputFrequencies", [&] { outputFrequencies_ = v; });
}

void clsDS::Results(bool overWrite) {
  kProc("Results", [&] {
    failure_.reset();
    if (!input_) raise(err::kNoInputRange);
    // Every column acceptable and every area as high as the first, before anything is written.
    checkInputAreas(*input_, [&](const Range& column) { RangeChecks::CheckInputColumn(column, headers_); });
    if (!block_) block_ = GetResults();
    const PastedResults pasted = pasteResults(*block_, output_, overWrite);
    pasted_ = pasted.cells;
    // Everything is written before any chart is placed: widening a column moves what stands
    // right of it.
    errorAmounts_ = plotError_ ? writeAmountsBelow(*output_, *pasted_, plotRows_, errorBars_) : std::nullopt;
    std::vector<Range> written{*pasted_};
    if (errorAmounts_) written.push_back(errorAmounts_->area);
    fitColumnWidths(written, pasted.ownSheet);
    if (plotBox_) {
      DrawBoxPlot(plotRows_.columns, plotRows_.header, plotRows_.lowerPercentile, plotRows_.upperPercentile,
                  plotRows_.minimum, plotRows_.maximum, plotRows_.median);
    }
    if (plotError_) {
      DrawErrorPlot(plotRows_.columns, plotRows_.header, plotRows_.centre, plotRows_.upperError, plotRows_.lowerError);
    }
    output_->Cells(1, 1).Select();
    block_.reset();
  });
}

// What the charts force into the table, with the defaults they give a percentile or confidence
// level of 0: 25 for both (not 95 for the level: kept as users have always seen it).
clsDS::Statistics clsDS::chartNeeds() {
  Statistics forced;
  if (plotBox_) {
    forced[Want::Percentile] = forced[Want::Median] = forced[Want::Min] = forced[Want::Max] = true;
  }
  if (plotError_) {
    forced[rowForChoice(kErrorCentres, errorCentre_).forced] = true;
    const BarsRow& bars = rowForChoice(kErrorBars, errorBars_);
    forced[bars.forced] = forced[bars.alsoForced] = true;
  }
  if (forced[Want::Percentile] && percentile_ == 0) percentile_ = 25;
  if (forced[Want::CL] && cl_ == 0) cl_ = 25;
  return forced;
}

Range clsDS::GetResults() {
  return kProc("GetResults", [&] {
    plotRows_ = PlotRows{};
    notes_.clear();
    Statistics want = selected_;
    want |= chartNeeds();
    const Int16 firstDataRow = headers_ ? 2 : 1;
    const Int16 columns = countColumns(*input_);
    const std::vector<const LayoutRow*> rows = selectedRows(kLayout, want, kDefaultRows);
    const Options options{cl_, percentile_, smallest_, largest_};

    StatisticsTable table(Int16::from(rows.size()), columns);
    table.writeLabels(rows, [&](const LayoutRow& row) { return labelOf(row, options); });
    fillStatistics(table, DataColumns{*input_, firstDataRow, headers_}, rows, options, textbook_, failure_, notes_);
    plotRows_ = plotRowsOf(columns, slotRowsOf(rows), errorCentre_, errorBars_);

    Int16 first = 0;
    Range written = FormatResults(table, first);
    toSheetRows(plotRows_, first);
    return written;
  });
}

Range clsDS::FormatResults(const StatisticsTable& table, Int16& firstRow) {
  return kProc("FormatResults", [&] {
    clsDSOutput writer;
    writeStatisticsTable(writer, *input_, table, firstRow, textbook_ ? std::string(kTextbookComment) : "");
    return writer.Results();
  });
}

void clsDS::DrawBoxPlot(Int16 columns, Int16 headerRow, Int16 lowerPercentileRow, Int16 upperPercentileRow,
                        Int16 minimumRow, Int16 maximumRow, Int16 medianRow) {
  kProc("DrawBoxPlot", [&] {
    clsPlotBox plot;
    const Range& output = *output_;
    const std::int32_t blockColumns = block_->ColumnsCount();
    anchorBesideBlock(plot, output, blockColumns);

    plot.HeadersRange(tableRow(output, headerRow, columns));
    plot.LPRange(tableRow(output, lowerPercentileRow, columns));
    plot.UPRange(tableRow(output, upperPercentileRow, columns));
    plot.MinRange(tableRow(output, minimumRow, columns));
    plot.MaxRange(tableRow(output, maximumRow, columns));
    plot.MedianRange(tableRow(output, medianRow, columns));
    plot.ChartTitle(boxTitle_);
    plot.YAxisTitle(boxYTitle_);
    // A title takes 20 points of its own.
    plot.ChartHeight(boxTitle_.empty() ? 180 : 200);
    plot.ChartWidth((Int32(blockColumns) * 50 + 50).value());
    plot.CreatePlot();

    chartOffset_ = toInt32(chartOffset_ + 1.1 * plot.ChartHeight());
  });
}

void clsDS::DrawErrorPlot(Int16 columns, Int16 headerRow, Int16 centreRow, Int16 upperErrorRow, Int16 lowerErrorRow) {
  kProc("DrawErrorPlot", [&] {
    clsPlotError plot;
    const Range& output = *output_;
    const std::int32_t blockColumns = block_->ColumnsCount();
    anchorBesideBlock(plot, output, blockColumns);

    plot.HeadersRange(tableRow(output, headerRow, columns));
    plot.CentreRange(tableRow(output, centreRow, columns));
    if (!rowForChoice(kErrorBars, errorBars_).limits) {
      // A spread: the bar reaches the spread's own value above and below the centre.
      plot.ErrorNegRange(tableRow(output, lowerErrorRow, columns));
      plot.ErrorPosRange(tableRow(output, upperErrorRow, columns));
    } else {
      // The rows hold the limits themselves; the bars need their distances from the centre,
      // which stand below the table too when there was room for them.
      const ErrorAmountCells* written = errorAmounts_ ? &*errorAmounts_ : nullptr;
      plot.ErrorPosArray(
          listOf(distancesBetween(output, upperErrorRow, centreRow, columns), written ? &written->above : nullptr));
      plot.ErrorNegArray(
          listOf(distancesBetween(output, centreRow, lowerErrorRow, columns), written ? &written->below : nullptr));
    }
    plot.ChartHeight(errorTitle_.empty() ? 180 : 200);
    plot.ChartWidth((Int32(blockColumns) * 50 + 50).value());
    plot.ChartTitle(errorTitle_);
    plot.YAxisTitle(errorYTitle_);
    plot.VerticalOffset(chartOffset_);
    plot.CreatePlot();
  });
}

}  // namespace orv
