#include "descriptive/clsDS.h"

#include <array>
#include <string_view>
#include <utility>
#include <vector>

#include "charts/clsPlotBox.h"
#include "charts/clsPlotError.h"
#include "descriptive/clsDSBO.h"
#include "descriptive/clsDSOutput.h"
#include "frame/conversions.h"
#include "frame/errors.h"
#include "frame/host.h"
#include "frame/procedure.h"
#include "support/host_session.h"
#include "support/input_columns.h"
#include "support/ordinal.h"
#include "support/ordered_parallel.h"
#include "support/range_checks.h"
#include "support/results_sheet.h"

namespace orv {
namespace {

const Procedures kProc{"clsDS"};

// What a row of the table is selected by: a Get* option, possibly forced by a chart.
enum class Want {
  Mean, Median, Mode, SE, SD, Variance, CV, CL, Percentile, Sum, Min, Max, Smallest, Largest,
  Range, Count, Skewness, Kurtosis, kCount
};

// Rows whose sheet position a chart or the error-row choice needs.
enum class Slot {
  None, Mean, Median, SE, SD, Variance, LowerLimit, UpperLimit, LowerPercentile,
  UpperPercentile, Minimum, Maximum, kCount
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

struct LayoutRow {
  Want want;
  Label labelKind;
  std::string_view label;  // the label itself for Label::Fixed
  ValueOf value;
  Slot slot;
};

// The descriptive results table: order of the rows, their labels, their values, and which rows
// are remembered for the charts. A label exists here and nowhere else.
constexpr std::array<LayoutRow, 22> kLayout{{
    {Want::Mean, Label::Fixed, "Mean", [](clsDSBO& b, const Options&) { return CellValue(b.Mean()); }, Slot::Mean},
    {Want::Median, Label::Fixed, "Median", [](clsDSBO& b, const Options&) { return CellValue(b.Median()); }, Slot::Median},
    {Want::Mode, Label::Fixed, "Mode", [](clsDSBO& b, const Options&) { return b.Mode(); }, Slot::None},
    {Want::SE, Label::Fixed, "Std Error", [](clsDSBO& b, const Options&) { return CellValue(b.SE()); }, Slot::SE},
    {Want::SD, Label::Fixed, "Std Dev.", [](clsDSBO& b, const Options&) { return CellValue(b.SD()); }, Slot::SD},
    {Want::Variance, Label::Fixed, "Variance", [](clsDSBO& b, const Options&) { return CellValue(b.Variance()); }, Slot::Variance},
    {Want::CV, Label::Fixed, "Coeff. Var.", [](clsDSBO& b, const Options&) { return CellValue(b.CV()); }, Slot::None},
    {Want::CL, Label::LowerCL, "", [](clsDSBO& b, const Options& o) { return CellValue(b.LCL(o.cl)); }, Slot::LowerLimit},
    {Want::CL, Label::UpperCL, "", [](clsDSBO& b, const Options& o) { return CellValue(b.UCL(o.cl)); }, Slot::UpperLimit},
    {Want::Percentile, Label::LowerPercentile, "", [](clsDSBO& b, const Options& o) { return CellValue(b.LP(o.percentile)); }, Slot::LowerPercentile},
    {Want::Percentile, Label::UpperPercentile, "", [](clsDSBO& b, const Options& o) { return CellValue(b.UP(o.percentile)); }, Slot::UpperPercentile},
    {Want::Sum, Label::Fixed, "Sum", [](clsDSBO& b, const Options&) { return CellValue(b.Sum()); }, Slot::None},
    {Want::Min, Label::Fixed, "Minimum", [](clsDSBO& b, const Options&) { return CellValue(b.Min()); }, Slot::Minimum},
    {Want::Max, Label::Fixed, "Maximum", [](clsDSBO& b, const Options&) { return CellValue(b.Max()); }, Slot::Maximum},
    {Want::Smallest, Label::Smallest, "", [](clsDSBO& b, const Options& o) { return CellValue(b.Smallest(o.smallest)); }, Slot::None},
    {Want::Largest, Label::Largest, "", [](clsDSBO& b, const Options& o) { return CellValue(b.Largest(o.largest)); }, Slot::None},
    {Want::Range, Label::Fixed, "Range", [](clsDSBO& b, const Options&) { return CellValue(b.rng()); }, Slot::None},
    {Want::Count, Label::Fixed, "Count", [](clsDSBO& b, const Options&) { return CellValue(static_cast<double>(b.Count())); }, Slot::None},
    {Want::Skewness, Label::Fixed, "Skewness", [](clsDSBO& b, const Options&) { return b.Skewness(); }, Slot::None},
    {Want::Skewness, Label::Fixed, "P(Skewness)", [](clsDSBO& b, const Options&) { return b.SkewnessP(); }, Slot::None},
    {Want::Kurtosis, Label::Fixed, "Kurtosis", [](clsDSBO& b, const Options&) { return b.Kurtosis(); }, Slot::None},
    {Want::Kurtosis, Label::Fixed, "P(Kurtosis)", [](clsDSBO& b, const Options&) { return b.KurtosisP(); }, Slot::None},
}};

std::string labelOf(const LayoutRow& row, const Options& o) {
  const int p = o.percentile;
  switch (row.labelKind) {
    case Label::Fixed: return std::string(row.label);
    case Label::LowerCL: return "Lower " + std::to_string(o.cl) + "%CL";
    case Label::UpperCL: return "Upper " + std::to_string(o.cl) + "%CL";
    // The lower row always carries the smaller of P and 100 - P.
    case Label::LowerPercentile:
      return Ordinal(std::to_string(p > 50 ? 100 - p : p)) + " Percentile";
    case Label::UpperPercentile:
      return Ordinal(std::to_string(p > 50 ? p : 100 - p)) + " Percentile";
    case Label::Smallest: return Ordinal(std::to_string(o.smallest)) + " Smallest";
    case Label::Largest: return Ordinal(std::to_string(o.largest)) + " Largest";
  }
  return {};
}

}  // namespace

struct clsDS::Selection {
  std::array<bool, static_cast<std::size_t>(Want::kCount)> on{};
  bool& operator[](Want w) { return on[static_cast<std::size_t>(w)]; }
  bool operator[](Want w) const { return on[static_cast<std::size_t>(w)]; }
};

clsDS::clsDS() {
  kProc("Class_Initialize", [] {});
}

void clsDS::Headers(bool v) { kProc("LetHeaders", [&] { headers_ = v; }); }
void clsDS::GetMean(bool v) { kProc("LetGetMean", [&] { getMean_ = v; }); }
void clsDS::GetMedian(bool v) { kProc("LetGetMedian", [&] { getMedian_ = v; }); }
void clsDS::GetMode(bool v) { kProc("LetGetMode", [&] { getMode_ = v; }); }
void clsDS::GetSE(bool v) { kProc("LetGetSE", [&] { getSE_ = v; }); }
void clsDS::GetSD(bool v) { kProc("LetGetSD", [&] { getSD_ = v; }); }
void clsDS::GetVariance(bool v) { kProc("LetGetVariance", [&] { getVariance_ = v; }); }
void clsDS::GetCV(bool v) { kProc("LetGetCV", [&] { getCV_ = v; }); }
void clsDS::GetCL(bool v) { kProc("LetGetCL", [&] { getCL_ = v; }); }
void clsDS::GetSum(bool v) { kProc("LetGetSum", [&] { getSum_ = v; }); }
void clsDS::GetSkewness(bool v) { kProc("LetGetSkewness", [&] { getSkewness_ = v; }); }
void clsDS::GetKurtosis(bool v) { kProc("LetGetKurtosis", [&] { getKurtosis_ = v; }); }
void clsDS::GetMin(bool v) { kProc("LetGetMin", [&] { getMin_ = v; }); }
void clsDS::GetMax(bool v) { kProc("LetGetMax", [&] { getMax_ = v; }); }
void clsDS::GetCount(bool v) { kProc("LetGetCount", [&] { getCount_ = v; }); }
void clsDS::GetLargest(bool v) { kProc("LetGetLargest", [&] { getLargest_ = v; }); }
void clsDS::GetSmallest(bool v) { kProc("LetGetSmallest", [&] { getSmallest_ = v; }); }
void clsDS::GetRange(bool v) { kProc("LetGetRange", [&] { getRange_ = v; }); }
void clsDS::GetPercentile(bool v) { kProc("LetGetPercentile", [&] { getPercentile_ = v; }); }
void clsDS::PlotBox(bool v) { kProc("LetPlotBox", [&] { plotBox_ = v; }); }
void clsDS::PlotError(bool v) { kProc("LetPlotError", [&] { plotError_ = v; }); }

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

void clsDS::CL(std::uint8_t v) { kProc("LetCL", [&] { cl_ = v; }); }
void clsDS::Percentile(std::uint8_t v) { kProc("LetPercentile", [&] { percentile_ = v; }); }
void clsDS::Largest(std::int32_t v) { kProc("LetLargest", [&] { largest_ = v; }); }
void clsDS::Smallest(std::int32_t v) { kProc("LetSmallest", [&] { smallest_ = v; }); }
void clsDS::BoxTitle(const std::string& v) { kProc("LetBoxTitle", [&] { boxTitle_ = v; }); }
void clsDS::BoxYTitle(const std::string& v) { kProc("LetBoxYTitle", [&] { boxYTitle_ = v; }); }
void clsDS::ErrorTitle(const std::string& v) { kProc("LetErrorTitle", [&] { errorTitle_ = v; }); }
void clsDS::ErrorYTitle(const std::string& v) { kProc("LetErrorYTitle", [&] { errorYTitle_ = v; }); }

void clsDS::ErrorCentre(const std::string& v) {
  kProc("LetErrorCentre", [&] {
    if (v != errorCentre_) {
      errorCentre_ = v;
      block_.reset();
    }
  });
}

void clsDS::ErrorError(const std::string& v) {
  kProc("LetErrorError", [&] {
    if (v != errorError_) {
      errorError_ = v;
      block_.reset();
    }
  });
}

void clsDS::OutputFrequencies(bool v) {
  kProc("LetOutputFrequencies", [&] { outputFrequencies_ = v; });
}

void clsDS::Results(bool overWrite) {
  kProc("Results", [&] {
    failure_.reset();
    if (!input_) raise(err::kNoInputRange);

    // Every column must be acceptable and every area as high as the first, before anything is
    // written. The row count is the host's own (32-bit): a column of 32767 observations under a
    // header row spans 32768 rows. The 16-bit limit is on the observations, in the engine.
    std::int32_t rowCount = input_->RowsCount();
    const std::int32_t areas = input_->AreasCount();
    for (std::int32_t a = 1; a <= areas; ++a) {
      const Range area = input_->Areas(a);
      for (std::int32_t c = 1; c <= area.ColumnsCount(); ++c) {
        RangeChecks::CheckInputColumn(area.Columns(c), headers_);
      }
      if (area.RowsCount() != rowCount) raise(err::kAreaHeights);
      rowCount = area.RowsCount();
    }

    if (!block_) block_ = GetResults();

    pasted_ = pasteResults(*block_, output_, overWrite);

    if (plotBox_) {
      DrawBoxPlot(plotRows_.columns, plotRows_.header, plotRows_.lowerPercentile,
                  plotRows_.upperPercentile, plotRows_.minimum, plotRows_.maximum,
                  plotRows_.median);
    }
    if (plotError_) {
      DrawErrorPlot(plotRows_.columns, plotRows_.header, plotRows_.centre, plotRows_.upperError,
                    plotRows_.lowerError);
    }

    output_->Cells(1, 1).Select();
    block_.reset();
  });
}

clsDS::Selection clsDS::chartNeeds() {
  Selection forced;
  if (plotBox_) {
    forced[Want::Percentile] = true;
    if (percentile_ == 0) percentile_ = 25;
    forced[Want::Median] = forced[Want::Min] = forced[Want::Max] = true;
  }
  if (plotError_) {
    forced[errorCentre_ == "Mean" ? Want::Mean : Want::Median] = true;
    if (errorError_ == "Standard Deviation") {
      forced[Want::SD] = true;
    } else if (errorError_ == "Variance") {
      forced[Want::Variance] = true;
    } else if (errorError_ == "Range") {
      forced[Want::Max] = forced[Want::Min] = true;
    } else if (errorError_ == "Interpercentile Range") {
      forced[Want::Percentile] = true;
      if (percentile_ == 0) percentile_ = 25;
    } else if (errorError_ == "Confidence Limits") {
      forced[Want::CL] = true;
      // The same fallback as the percentile's, not 95: kept as users have always seen it.
      if (cl_ == 0) cl_ = 25;
    } else {
      forced[Want::SE] = true;
    }
  }
  return forced;
}

Range clsDS::GetResults() {
  return kProc("GetResults", [&] {
    plotRows_ = PlotRows{};
    Selection want = chartNeeds();
    want[Want::Mean] |= getMean_;
    want[Want::Median] |= getMedian_;
    want[Want::Mode] |= getMode_;
    want[Want::SE] |= getSE_;
    want[Want::SD] |= getSD_;
    want[Want::Variance] |= getVariance_;
    want[Want::CV] |= getCV_;
    want[Want::CL] |= getCL_;
    want[Want::Percentile] |= getPercentile_;
    want[Want::Sum] |= getSum_;
    want[Want::Min] |= getMin_;
    want[Want::Max] |= getMax_;
    want[Want::Smallest] |= getSmallest_;
    want[Want::Largest] |= getLargest_;
    want[Want::Range] |= getRange_;
    want[Want::Count] |= getCount_;
    want[Want::Skewness] |= getSkewness_;
    want[Want::Kurtosis] |= getKurtosis_;

    const Int16 firstDataRow = headers_ ? 2 : 1;

    Int16 columns = 0;
    for (std::int32_t a = 1; a <= input_->AreasCount(); ++a) {
      columns += Int16::from(input_->Areas(a).ColumnsCount());
    }

    Int16 rows = 0;
    for (const LayoutRow& row : kLayout) {
      if (want[row.want]) rows += 1;
    }
    if (rows < 1) {
      // Nothing selected: the four rows every user expects.
      want[Want::Mean] = want[Want::SD] = want[Want::SE] = want[Want::Count] = true;
      rows = 4;
    }

    ValueArray2D matrix(rows, columns + 1);
    Array1D<std::string> names(columns);
    std::array<Int16, static_cast<std::size_t>(Slot::kCount)> rowOf{};
    const Options options{cl_, percentile_, smallest_, largest_};

    // The columns are independent: their statistics are computed on every core, and taken
    // into the table strictly in column order, so the first failing column is still the one
    // reported and the names are read in the same order as the values.
    const std::vector<InputColumn> places = inputColumns(*input_);
    DistributionFunctions& functions = HostSession::Application().worksheetFunction();
    ColumnSteps steps(places.size());
    const auto statistics = [&](std::size_t i) {
      clsDSBO bo;
      bo.Functions(&functions);
      steps.reading(i);
      bo.Data(columnData(*input_, places[i], firstDataRow).Values());
      std::vector<CellValue> values;
      for (std::size_t k = 0; k < kLayout.size(); ++k) {
        if (!want[kLayout[k].want]) continue;
        steps.step(i, static_cast<std::int32_t>(k));
        values.push_back(kLayout[k].value(bo, options));
      }
      steps.done(i);
      return values;
    };
    const auto take = [&](std::size_t i, std::vector<CellValue> values) {
      const std::int32_t j = static_cast<std::int32_t>(i) + 2;
      Int16 r = 0;
      for (const LayoutRow& row : kLayout) {
        if (!want[row.want]) continue;
        r += 1;
        matrix(r, j) = std::move(values[static_cast<std::size_t>(r.value() - 1)]);
        matrix(r, 1) = labelOf(row, options);
        if (row.slot != Slot::None) rowOf[static_cast<std::size_t>(row.slot)] = r;
      }
      names(j - 1) = columnName(*input_, places[i], headers_);
    };
    try {
      orderedParallel<std::vector<CellValue>>(places.size(), statistics, take);
    } catch (const ComponentError&) {
      // Kept beside the error, which goes on unchanged.
      if (const auto failed = steps.firstUnfinished()) {
        const auto [i, k] = *failed;
        failure_ = ColumnFailure{
            columnName(*input_, places[i], headers_), columnData(*input_, places[i], firstDataRow),
            k == ColumnSteps::kReading ? std::string() : labelOf(kLayout[static_cast<std::size_t>(k)], options)};
      }
      throw;
    }

    const auto slot = [&](Slot s) { return rowOf[static_cast<std::size_t>(s)]; };
    plotRows_.columns = columns;
    plotRows_.median = slot(Slot::Median);
    plotRows_.lowerPercentile = slot(Slot::LowerPercentile);
    plotRows_.upperPercentile = slot(Slot::UpperPercentile);
    plotRows_.minimum = slot(Slot::Minimum);
    plotRows_.maximum = slot(Slot::Maximum);
    if (errorCentre_ == "Mean") {
      plotRows_.centre = slot(Slot::Mean);
    } else if (errorCentre_ == "Median") {
      plotRows_.centre = slot(Slot::Median);
    }
    Slot upper = Slot::None;
    Slot lower = Slot::None;
    if (errorError_ == "Standard Error") {
      upper = lower = Slot::SE;
    } else if (errorError_ == "Standard Deviation") {
      upper = lower = Slot::SD;
    } else if (errorError_ == "Variance") {
      upper = lower = Slot::Variance;
    } else if (errorError_ == "Range") {
      upper = Slot::Maximum;
      lower = Slot::Minimum;
    } else if (errorError_ == "Interpercentile Range") {
      upper = Slot::UpperPercentile;
      lower = Slot::LowerPercentile;
    } else if (errorError_ == "Confidence Limits") {
      upper = Slot::UpperLimit;
      lower = Slot::LowerLimit;
    }
    if (upper != Slot::None) {
      plotRows_.upperError = slot(upper);
      plotRows_.lowerError = slot(lower);
    }

    Int16 first = 0;
    Range written = FormatResults(names, matrix, first);

    // Matrix rows become sheet rows; the header row (0) becomes the names row above the table.
    for (Int16* field : {&plotRows_.header, &plotRows_.lowerPercentile, &plotRows_.upperPercentile,
                         &plotRows_.minimum, &plotRows_.maximum, &plotRows_.median,
                         &plotRows_.centre, &plotRows_.upperError, &plotRows_.lowerError}) {
      *field = first + *field - 1;
    }
    return written;
  });
}

Range clsDS::FormatResults(const Array1D<std::string>& columnNames, const ValueArray2D& matrix,
                           Int16& firstRow) {
  return kProc("FormatResults", [&] {
    clsDSOutput writer;
    writer.OutputHeader(input_->Parent().Name() + "!" + input_->Address(), "");
    writer.InsertBlankLines(1);
    writer.OutputMatrix(columnNames, matrix, firstRow);
    writer.InsertBlankLines(1);
    return writer.Results();
  });
}

namespace {

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

}  // namespace

void clsDS::DrawBoxPlot(Int16 columns, Int16 headerRow, Int16 lowerPercentileRow,
                        Int16 upperPercentileRow, Int16 minimumRow, Int16 maximumRow,
                        Int16 medianRow) {
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

void clsDS::DrawErrorPlot(Int16 columns, Int16 headerRow, Int16 centreRow, Int16 upperErrorRow,
                          Int16 lowerErrorRow) {
  kProc("DrawErrorPlot", [&] {
    clsPlotError plot;
    const Range& output = *output_;
    const std::int32_t blockColumns = block_->ColumnsCount();
    anchorBesideBlock(plot, output, blockColumns);

    plot.HeadersRange(tableRow(output, headerRow, columns));
    plot.CentreRange(tableRow(output, centreRow, columns));
    if (errorError_ != "Range" && errorError_ != "Interpercentile Range" &&
        errorError_ != "Confidence Limits") {
      // A spread: the bar reaches the spread's own value above and below the centre.
      plot.ErrorNegRange(tableRow(output, lowerErrorRow, columns));
      plot.ErrorPosRange(tableRow(output, upperErrorRow, columns));
    } else {
      // The rows hold the limits themselves; the bars need their distances from the centre.
      const auto number = [&](Int16 row, std::int32_t column) {
        const CellValue v = output.Cells(row, column).Value();
        if (!v.isNumber()) raise(err::kTypeMismatch);
        return v.number();
      };
      ValueArray1D distances(columns);
      for (std::int32_t i = 1; i <= columns; ++i) {
        distances(i) = subtract(number(upperErrorRow, i + 1), number(centreRow, i + 1));
      }
      plot.ErrorPosArray(distances);
      for (std::int32_t i = 1; i <= columns; ++i) {
        distances(i) = subtract(number(centreRow, i + 1), number(lowerErrorRow, i + 1));
      }
      plot.ErrorNegArray(distances);
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
