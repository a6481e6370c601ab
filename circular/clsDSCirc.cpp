#include "circular/clsDSCirc.h"

#include <exception>
#include <utility>
#include <vector>

#include "circular/clsDSCircBO.h"
#include "frame/conversions.h"
#include "frame/errors.h"
#include "frame/host.h"
#include "frame/procedure.h"
#include "support/array_tools.h"
#include "support/host_session.h"
#include "support/input_columns.h"
#include "support/ordered_parallel.h"
#include "support/range_checks.h"
#include "support/results_sheet.h"
#include "support/scatter_chart_builder.h"

namespace orv {
namespace {

constexpr std::string_view kClass = "clsDSCirc";

// Every procedure of the class appends its name to a source that already names a line, so the
// caller sees the whole way an engine or writer failure came up.
constexpr Procedures kProc{kClass, SourceRule::AppendAfterLine};

// The Get* options, in the order of the rows they select.
enum Switch : std::uint8_t {
  kMean, kMeanVector, kAngularSD, kAngularVar, kCircularSD, kCircularVar, kCL, kCount, kRayleigh,
  kSwitches
};

using ValueOf = CellValue (*)(clsDSCircBO&);

struct LayoutRow {
  Switch on;
  std::string_view label;
  ValueOf value;
};

// The circular results table: order of the rows, their labels and their values. A label exists
// here and nowhere else. The confidence row is the 95 % one whatever CL says.
constexpr std::array<LayoutRow, 10> kLayout{{
    {kMean, "Mean Angle", [](clsDSCircBO& b) { return CellValue(b.Mean()); }},
    {kMeanVector, "Mean Vector", [](clsDSCircBO& b) { return CellValue(b.MeanVector()); }},
    {kAngularSD, "Ang. S.D.", [](clsDSCircBO& b) { return CellValue(b.AngularSD()); }},
    {kAngularVar, "Ang. Var.", [](clsDSCircBO& b) { return CellValue(b.AngularVar()); }},
    {kCircularSD, "Circ. S.D.", [](clsDSCircBO& b) { return CellValue(b.CircularSD()); }},
    {kCircularVar, "Circ. Var.", [](clsDSCircBO& b) { return CellValue(b.CircularVar()); }},
    {kCL, "95%CL (±)", [](clsDSCircBO& b) { return b.CL(); }},
    {kCount, "Count", [](clsDSCircBO& b) { return CellValue(b.Count()); }},
    {kRayleigh, "Rayleigh's Z", [](clsDSCircBO& b) { return CellValue(b.Rayleigh()); }},
    {kRayleigh, "Prob(Z)", [](clsDSCircBO& b) { return CellValue(b.RayleighP()); }},
}};

// The statistics an analysis with nothing selected shows: all but Rayleigh's.
constexpr std::array<Switch, 8> kDefaultSwitches{kMean,        kMeanVector, kAngularSD, kAngularVar,
                                                 kCircularSD,  kCircularVar, kCL,       kCount};

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
  std::int32_t rowCount = input.RowsCount();
  for (std::int32_t a = 1; a <= input.AreasCount(); ++a) {
    const Range area = input.Areas(a);
    for (std::int32_t c = 1; c <= area.ColumnsCount(); ++c) {
      const Range column = area.Columns(c);
      RangeChecks::CheckInputColumn(column, headers);
      if (functions.Min(column) < 0.0 || functions.Max(column) > 360.0) raise(err::kCircularInput);
    }
    if (area.RowsCount() != rowCount) raise(err::kAreaHeights);
    rowCount = area.RowsCount();
  }
}

// A new sheet behind the last one of its workbook; the block goes to its cell A1.
}  // namespace

clsDSCirc::clsDSCirc() {
  static_assert(kSwitches == kSwitchCount, "one Get* option per statistic");
  kProc("Initialise", [&] {
    input_.reset();
    output_.reset();
    block_.reset();
    cl_ = 95;
    headers_ = plot_ = false;
    switches_.fill(false);
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

void clsDSCirc::letSwitch(std::string_view procedure, std::size_t which, bool v) {
  letFlag(procedure, switches_[which], v);
}

void clsDSCirc::Headers(bool v) { letFlag("LetHeaders", headers_, v); }
void clsDSCirc::GetMean(bool v) { letSwitch("LetGetMean", kMean, v); }
void clsDSCirc::GetMeanVector(bool v) { letSwitch("LetGetMeanVector", kMeanVector, v); }
void clsDSCirc::GetCount(bool v) { letSwitch("LetGetCount", kCount, v); }
void clsDSCirc::GetAngularSD(bool v) { letSwitch("LetGetAngularSD", kAngularSD, v); }
void clsDSCirc::GetAngularVar(bool v) { letSwitch("LetGetAngularVar", kAngularVar, v); }
void clsDSCirc::GetCircularSD(bool v) { letSwitch("LetGetCircularSD", kCircularSD, v); }
void clsDSCirc::GetCircularVar(bool v) { letSwitch("LetGetCircularVar", kCircularVar, v); }
void clsDSCirc::GetRayleigh(bool v) { letSwitch("LetGetRayleigh", kRayleigh, v); }
void clsDSCirc::GetCL(bool v) { letSwitch("LetGetCL", kCL, v); }
void clsDSCirc::Plot(bool v) { letFlag("LetPlot", plot_, v); }

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
    pasted_ = pasteResults(*block_, output_, overWrite);

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
    columnCount = 0;
    const Int16 startRow = headers_ ? 2 : 1;
    for (std::int32_t a = 1; a <= input_->AreasCount(); ++a) {
      columnCount += Int16::from(input_->Areas(a).ColumnsCount());
    }

    Int16 rows = 0;
    for (const LayoutRow& row : kLayout) {
      if (switches_[row.on]) rows += 1;
    }
    if (rows == 0) {
      // Nothing selected: the options themselves are switched on, and stay on for later calls.
      for (Switch s : kDefaultSwitches) switches_[s] = true;
      rows = static_cast<std::int16_t>(kDefaultSwitches.size());
    }

    ValueArray2D matrix(rows, columnCount + 1);
    Array1D<std::string> columnHeaders(columnCount);
    ValueArray2D plotData;

    // The columns are computed on every core and taken in column order, so the first failing
    // column is still the one reported. Their plot data are joined once at the end.
    const std::vector<InputColumn> places = inputColumns(*input_);
    struct Computed {
      std::vector<CellValue> values;
      ValueArray2D plot;
    };
    DistributionFunctions& functions = HostSession::Application().worksheetFunction();
    ColumnSteps steps(places.size());
    const auto statistics = [&](std::size_t i) {
      clsDSCircBO bo;
      bo.Functions(&functions);
      steps.reading(i);
      const Range data = columnData(*input_, places[i], startRow);
      // The host reads a one-cell range as a single value, not as an array.
      if (data.CellCount() == 1) {
        bo.Data(data.Value());
      } else {
        bo.Data(data.Values());
      }
      Computed computed;
      for (std::size_t k = 0; k < kLayout.size(); ++k) {
        if (!switches_[kLayout[k].on]) continue;
        steps.step(i, static_cast<std::int32_t>(k));
        computed.values.push_back(kLayout[k].value(bo));
      }
      steps.step(i, static_cast<std::int32_t>(kLayout.size()));
      if (plot_) computed.plot = bo.PlotData();
      steps.done(i);
      return computed;
    };
    std::vector<ValueArray2D> plotParts;
    const auto take = [&](std::size_t i, Computed computed) {
      const std::int32_t j = static_cast<std::int32_t>(i) + 2;
      Int16 r = 0;
      for (const LayoutRow& row : kLayout) {
        if (!switches_[row.on]) continue;
        r += 1;
        matrix(r, j) = std::move(computed.values[static_cast<std::size_t>(r.value() - 1)]);
        matrix(r, 1) = std::string(row.label);
      }
      if (plot_) plotParts.push_back(std::move(computed.plot));
      columnHeaders(j - 1) = columnName(*input_, places[i], headers_);
    };
    try {
      orderedParallel<Computed>(places.size(), statistics, take);
    } catch (const ComponentError&) {
      // Kept beside the error, which goes on unchanged.
      if (const auto failed = steps.firstUnfinished()) {
        const auto [i, k] = *failed;
        const auto row = static_cast<std::size_t>(k);
        failure_ = ColumnFailure{columnName(*input_, places[i], headers_), columnData(*input_, places[i], startRow),
                                 k == ColumnSteps::kReading ? std::string()
                                 : row < kLayout.size()     ? std::string(kLayout[row].label)
                                                            : std::string(kPlotComment)};
      }
      throw;
    }
    if (plot_) plotData = ArrayTools::JoinAll(plotParts);

    if (plot_) return FormatResults(columnHeaders, matrix, &plotData, &plotPositions);
    return FormatResults(columnHeaders, matrix);
  });
}

Range clsDSCirc::FormatResults(const Array1D<std::string>& columnHeaders,
                               const ValueArray2D& matrix, const ValueArray2D* plotData,
                               PlotDataRows* plotPositions) {
  return formatResultsTrap([&] {
    clsDSOutput writer;
    writer.OutputHeader(input_->Parent().Name() + "!" + input_->Address(), "");
    writer.InsertBlankLines(1);
    Int16 firstRow = 0;
    writer.OutputMatrix(columnHeaders, matrix, firstRow);
    writer.InsertBlankLines(1);
    if (plotData != nullptr && plotPositions != nullptr) {
      writer.OutputComment(std::string(kPlotComment), 0, false);
      writer.OutputPlotData(columnHeaders, *plotData, *plotPositions);
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
