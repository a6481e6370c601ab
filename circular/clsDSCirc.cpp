#include "circular/clsDSCirc.h"

#include <array>
#include <exception>
#include <utility>
#include <vector>

#include "circular/clsDSCircBO.h"
#include "frame/conversions.h"
#include "frame/errors.h"
#include "frame/host.h"
#include "frame/procedure.h"
#include "support/array_tools.h"
#include "support/column_fit.h"
#include "support/host_session.h"
#include "support/input_columns.h"
#include "support/range_checks.h"
#include "support/results_sheet.h"
#include "support/scatter_chart_builder.h"

namespace orv {
namespace {

constexpr std::string_view kClass = "clsDSCirc";

// Every procedure of the class appends its name to a source that already names a line, so the
// caller sees the whole way an engine or writer failure came up.
constexpr Procedures kProc{kClass, SourceRule::AppendAfterLine};

using Switch = CircularStatistic;
using ValueOf = CellValue (*)(clsDSCircBO&);
using KeptOf = std::optional<KeptRuleEffect> (*)(clsDSCircBO&);

struct LayoutRow {
  Switch on;
  std::string_view label;
  ValueOf value;
  KeptOf kept = nullptr;  // where a kept rule can change the value: what it did
};

// The circular results table: order of the rows, their labels and their values. A label exists
// here and nowhere else. The confidence row is the 95 % one whatever CL says.
constexpr std::array<LayoutRow, 10> kLayout{{
    {Switch::Mean, "Mean Angle", [](clsDSCircBO& b) { return CellValue(b.Mean()); },
     [](clsDSCircBO& b) { return b.MeanKeptRule(); }},
    {Switch::MeanVector, "Mean Vector", [](clsDSCircBO& b) { return CellValue(b.MeanVector()); }},
    {Switch::AngularSD, "Ang. S.D.", [](clsDSCircBO& b) { return CellValue(b.AngularSD()); }},
    {Switch::AngularVar, "Ang. Var.", [](clsDSCircBO& b) { return CellValue(b.AngularVar()); }},
    {Switch::CircularSD, "Circ. S.D.", [](clsDSCircBO& b) { return CellValue(b.CircularSD()); }},
    {Switch::CircularVar, "Circ. Var.", [](clsDSCircBO& b) { return CellValue(b.CircularVar()); }},
    {Switch::CL, "95%CL (±)", [](clsDSCircBO& b) { return b.CL(); }},
    {Switch::Count, "Count", [](clsDSCircBO& b) { return CellValue(b.Count()); }},
    {Switch::Rayleigh, "Rayleigh's Z", [](clsDSCircBO& b) { return CellValue(b.Rayleigh()); }},
    {Switch::Rayleigh, "Prob(Z)", [](clsDSCircBO& b) { return CellValue(b.RayleighP()); }},
}};

// The statistics an analysis with nothing selected shows: all but Rayleigh's. They are switched
// on in the options themselves and stay on for later calls.
constexpr std::array<Switch, 8> kDefaultSwitches{Switch::Mean,       Switch::MeanVector, Switch::AngularSD,
                                                 Switch::AngularVar, Switch::CircularSD, Switch::CircularVar,
                                                 Switch::CL,         Switch::Count};

constexpr std::string_view kPlotComment = "Data for Plots";

// The rows of the written plot data above its values: the column names, then "Sin"/"Cos".
constexpr std::int32_t kPlotNamesAboveValues = 2;

// The scatter charts: squares of this side, this far apart, in points.
constexpr std::int32_t kScatterSide = 200;
constexpr std::int32_t kScatterGap = 10;

// The handler of the two range setters: the component's own errors (base + 5000 to base + 5100)
// pass as they are; any other failure, such as a reference the host cannot resolve, becomes
// `replacement`, raised without a source or description of its own.
template <class Body>
void rangeSetterTrap(std::int32_t replacement, Body&& body) {
  try {
    body();
  } catch (const ComponentError& e) {
    const std::int64_t offset = std::int64_t{e.number()} - err::kObjectErrorBase;
    if (offset >= 5000 && offset <= 5100) throw;
    raise(replacement);
  } catch (const std::exception&) {
    raise(replacement);
  }
}

// FormatResults reports under its own name, but appends ".FormatSimpleResults" to a source that
// already names a line: that is the name callers have always seen there, so it is kept.
template <class Body>
decltype(auto) formatResultsTrap(Body&& body) {
  try {
    return body();
  } catch (const ComponentError& e) {
    if (e.source().find("Line ") != std::string::npos) {
      throw restamp(e, kClass, "FormatSimpleResults", SourceRule::AppendAfterLine);
    }
    throw restamp(e, kClass, "FormatResults", SourceRule::Replace);
  }
}

// Every column must pass RangeChecks and hold only values from 0 to 360 (its title too: a text
// title is ignored by Min and Max), and every area must be as high as the first. Nothing has
// been written when this fails.
void checkInput(const Range& input, bool headers) {
  WorksheetFunction& functions = HostSession::Application().worksheetFunction();
  checkInputAreas(input, [&](const Range& column) {
    RangeChecks::CheckInputColumn(column, headers);
    if (functions.Min(column) < 0.0 || functions.Max(column) > 360.0) raise(err::kCircularInput);
  });
}

// What the kept rules did to the column's selected rows, once their values are in.
ColumnFindings keptRuleFindings(clsDSCircBO& bo, const std::vector<const LayoutRow*>& rows,
                                const std::vector<CellValue>& values) {
  ColumnFindings findings;
  for (std::size_t k = 0; k < rows.size(); ++k) {
    if (rows[k]->kept == nullptr) continue;
    findings.observations = static_cast<std::int64_t>(bo.Count());
    findings.add(rows[k]->kept(bo), std::string(rows[k]->label), values[k]);
  }
  return findings;
}

// Every data column's statistics by a fresh clsDSCircBO (on helper threads when the host's
// functions allow it), taken into the table in column order; with `plot`, the columns' plot
// data joined side by side. A failing column is recorded in `failure` by the label of the row it
// failed in, or by the plot data's heading. With the kept rules, `notes` receives what they
// changed.
ValueArray2D fillStatistics(StatisticsTable& table, const DataColumns& data, const std::vector<const LayoutRow*>& rows,
                            bool plot, bool textbook, std::optional<ColumnFailure>& failure,
                            std::vector<ArithmeticNote>& notes) {
  DistributionFunctions& functions = HostSession::Application().worksheetFunction();
  const auto compute = [&](ColumnValues column, const ColumnProgress& progress) {
    clsDSCircBO bo;
    bo.Functions(&functions);
    bo.Textbook(textbook);
    giveData(bo, std::move(column));
    ColumnResults<ValueArray2D> results{rowValues(rows, progress, [&](const LayoutRow& row) { return row.value(bo); })};
    progress.step(rows.size());
    if (plot) results.extra = bo.PlotData();
    if (!textbook) results.findings = keptRuleFindings(bo, rows, results.values);
    return results;
  };
  std::vector<ValueArray2D> plotParts;
  const auto keep = [&](ValueArray2D part) {
    if (plot) plotParts.push_back(std::move(part));
  };
  const auto stepLabel = [&](std::size_t k) { return std::string(k < rows.size() ? rows[k]->label : kPlotComment); };
  fillColumns<ValueArray2D>(table, data, functions.callableFromAnyThread(), compute, keep, stepLabel, failure, notes);
  return plot ? ArrayTools::JoinAll(plotParts) : ValueArray2D();
}

}  // namespace

clsDSCirc::clsDSCirc() {
  kProc("Initialise", [&] {
    input_.reset();
    output_.reset();
    block_.reset();
    cl_ = 95;
    headers_ = plot_ = false;
    switches_ = {};
  });
}

void clsDSCirc::letFlag(std::string_view procedure, bool& field, bool v) {
  kProc(procedure, [&] {
    if (v != field) {
      field = v;
      block_.reset();
    }
  });
}

void clsDSCirc::letSwitch(std::string_view procedure, CircularStatistic which, bool v) {
  letFlag(procedure, switches_[which], v);
}

void clsDSCirc::Headers(bool v) { letFlag("LetHeaders", headers_, v); }
void clsDSCirc::GetMean(bool v) { letSwitch("LetGetMean", Switch::Mean, v); }
void clsDSCirc::GetMeanVector(bool v) { letSwitch("LetGetMeanVector", Switch::MeanVector, v); }
void clsDSCirc::GetCount(bool v) { letSwitch("LetGetCount", Switch::Count, v); }
void clsDSCirc::GetAngularSD(bool v) { letSwitch("LetGetAngularSD", Switch::AngularSD, v); }
void clsDSCirc::GetAngularVar(bool v) { letSwitch("LetGetAngularVar", Switch::AngularVar, v); }
void clsDSCirc::GetCircularSD(bool v) { letSwitch("LetGetCircularSD", Switch::CircularSD, v); }
void clsDSCirc::GetCircularVar(bool v) { letSwitch("LetGetCircularVar", Switch::CircularVar, v); }
void clsDSCirc::GetRayleigh(bool v) { letSwitch("LetGetRayleigh", Switch::Rayleigh, v); }
void clsDSCirc::GetCL(bool v) { letSwitch("LetGetCL", Switch::CL, v); }
void clsDSCirc::Plot(bool v) { letFlag("LetPlot", plot_, v); }
void clsDSCirc::Textbook(bool v) { letFlag("LetTextbook", textbook_, v); }

void clsDSCirc::InputRange(const std::string& reference) {
  rangeSetterTrap(err::kCircularInput, [&] {
    if (reference.empty()) raise(err::kNoInputRange);
    if (reference != inputText_) {
      input_ = HostSession::Application().ResolveRange(reference);
      block_.reset();
    }
    inputText_ = reference;
  });
}

void clsDSCirc::OutputRange(const std::string& reference) {
  // The output place does not change what is written, so the block is kept.
  rangeSetterTrap(err::kOutputRangeInvalid, [&] {
    if (reference.empty()) {
      output_.reset();
    } else {
      output_ = HostSession::Application().ResolveRange(reference);
    }
  });
}

void clsDSCirc::CL(std::uint8_t v) {
  // Stored and compared like every option, but read by nothing: the level stays 95 %.
  kProc("LetCL", [&] {
    if (v != cl_) {
      cl_ = v;
      block_.reset();
    }
  });
}

void clsDSCirc::Results(bool overWrite) {
  kProc("Results", [&] {
    failure_.reset();
    if (!input_) raise(err::kNoInputRange);
    checkInput(*input_, headers_);

    if (!block_) block_ = GetResults(columnCount_, plotPositions_);
    const PastedResults pasted = pasteResults(*block_, output_, overWrite);
    pasted_ = pasted.cells;
    fitColumnWidths({*pasted_}, pasted.ownSheet);

    if (plot_) {
      // The writer's rows are rows of the scratch sheet; the block was pasted with its top-left
      // cell at the output range's, so rows move by the block's own top.
      const std::int32_t first = plotPositions_.first - block_->block().top + 1;
      const std::int32_t last = plotPositions_.last - block_->block().top + 1;
      const std::int32_t width = 2 * static_cast<std::int32_t>(columnCount_.value());
      const std::int32_t names = first - kPlotNamesAboveValues;
      DoScatterPlot(Range::Span(output_->Cells(first, 1), output_->Cells(last, width)),
                    Range::Span(output_->Cells(names, 1), output_->Cells(names, width)));
    }

    output_->Cells(1, 1).Select();
    block_.reset();
  });
}

Range clsDSCirc::GetResults(Int16& columnCount, PlotDataRows& plotPositions) {
  return kProc("GetResults", [&] {
    const Int16 startRow = headers_ ? 2 : 1;
    columnCount = countColumns(*input_);
    notes_.clear();
    const std::vector<const LayoutRow*> rows = selectedRows(kLayout, switches_, kDefaultSwitches);

    StatisticsTable table(Int16::from(rows.size()), columnCount);
    table.writeLabels(rows, [](const LayoutRow& row) { return std::string(row.label); });
    const ValueArray2D plotData =
        fillStatistics(table, DataColumns{*input_, startRow, headers_}, rows, plot_, textbook_, failure_, notes_);

    if (plot_) return FormatResults(table, &plotData, &plotPositions);
    return FormatResults(table);
  });
}

Range clsDSCirc::FormatResults(const StatisticsTable& table, const ValueArray2D* plotData,
                               PlotDataRows* plotPositions) {
  return formatResultsTrap([&] {
    clsDSOutput writer;
    Int16 firstRow = 0;
    writeStatisticsTable(writer, *input_, table, firstRow, textbook_ ? std::string(kTextbookComment) : "");
    if (plotData != nullptr && plotPositions != nullptr) {
      writer.OutputComment(std::string(kPlotComment), 0, false);
      writer.OutputPlotData(table.names, *plotData, *plotPositions);
      writer.InsertBlankLines(1);
    }
    return writer.Results();
  });
}

// One square chart per data column, its X and Y the column's pair of plot-data columns, stacked
// 210 points apart (200 of chart, 10 of gap) in the column after the one left empty beside the
// pasted block.
void clsDSCirc::DoScatterPlot(const Range& plotData, const Range& titles) {
  kProc("DoScatterPlot", [&] {
    scatterSources_ = ScatterSources{plotData, titles};
    const std::int32_t n = plotData.ColumnsCount();
    const std::int32_t anchorColumn = pasted_->ColumnsCount() + 2;
    std::int32_t offset = 0;
    for (std::int32_t i = 1; i <= n; i += 2) {
      ScatterChartBuilder builder;
      builder.VerticalOffset(offset);
      builder.HorizontalOffset(0);
      builder.OutputRange(output_->Cells(1, anchorColumn));
      builder.ChartHeight(kScatterSide);
      builder.ChartWidth(kScatterSide);
      builder.XValuesRange(plotData.Columns(i));
      builder.YValuesRange(plotData.Columns(i + 1));
      builder.ChartTitle(toText(titles.Cells(1, i).Value()));
      builder.CreatePlot();
      offset = (Int32(offset) + kScatterSide + kScatterGap).value();
    }
  });
}

}  // namespace orv
