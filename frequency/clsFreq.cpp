// clsFreq: properties, the checks, the tables, and placing the block.

#include "frequency/clsFreq.h"

#include <string_view>

#include "frame/errors.h"
#include "frame/host.h"
#include "frame/work_progress.h"
#include "frequency/clsFreqBO.h"
#include "frequency/clsFreqOutput.h"
#include "frequency/clsFreq_internal.h"
#include "support/host_session.h"
#include "support/kept_rules.h"
#include "support/range_checks.h"
#include "support/results_sheet.h"

namespace orv {

using detail::kFreq;

namespace {

using Kind = FrequencyTablePlace::Kind;

// The comment line above each table.
std::string_view headingOf(Kind kind) {
  return kind == Kind::Raw ? "Frequency Distribution" : "Frequency Distribution (Bin)";
}

// "Data!$A$1:$A$20" for the header block; nothing for a range not given.
std::string addressText(const std::optional<Range>& range) {
  if (!range) return {};
  return range->Parent().Name() + "!" + range->Address();
}

}  // namespace

clsFreq::clsFreq() {
  kFreq("Class_Initialize", [] {});
}

void clsFreq::Headers(bool v) {
  kFreq("LetHeaders", [&] { headers_ = v; });
}
void clsFreq::DataType(ORVDescriptivesFreqDataType v) {
  kFreq("LetDataType", [&] { dataType_ = v; });
}
void clsFreq::PlotHistogram(bool v) {
  kFreq("LetPlotHistogram", [&] { histogram_.plot = v; });
}
void clsFreq::PlotNormal(bool v) {
  kFreq("LetPlotNormal", [&] { histogram_.normal = v; });
}
void clsFreq::PlotCumulative(bool v) {
  kFreq("LetPlotCumulative", [&] { histogram_.cumulative = v; });
}
void clsFreq::HistogramTitle(const std::string& v) {
  kFreq("LetHistogramTitle", [&] { histogram_.title = v; });
}
void clsFreq::HistogramXTitle(const std::string& v) {
  kFreq("LetHistogramXTitle", [&] { histogram_.xTitle = v; });
}
void clsFreq::HistogramYTitle(const std::string& v) {
  kFreq("LetHistogramYTitle", [&] { histogram_.yTitle = v; });
}
void clsFreq::CategoryStartPoint(bool v) {
  kFreq("LetCategoryStartPoint", [&] { histogram_.categoryStartPoints = v; });
}
void clsFreq::ShowRawData(bool v) {
  kFreq("LetShowRawData", [&] { showRawData_ = v; });
}
void clsFreq::DataInRows(bool v) {
  kFreq("LetDataInRows", [&] { dataInRows_ = v; });
}
// Unlike the older options, a change drops the finished block: it changes the counts.
void clsFreq::Textbook(bool v) {
  kFreq("LetTextbook", [&] {
    if (v != textbook_) {
      textbook_ = v;
      block_.reset();
      tables_.clear();
    }
  });
}

void clsFreq::InputRange(const std::string& reference) {
  kFreq("LetInputRange", [&] { setAddress(input_, reference); });
}
void clsFreq::FrequencyRange(const std::string& reference) {
  kFreq("LetFrequencyRange", [&] { setAddress(frequency_, reference); });
}
// Reports under the frequency setter's name, as the component always has.
void clsFreq::BinRange(const std::string& reference) {
  kFreq("LetFrequencyRange", [&] { setAddress(bin_, reference); });
}
void clsFreq::OutputRange(const std::string& reference) {
  kFreq("LetOutputRange", [&] { setAddress(output_, reference); });
}

// The range is resolved before anything is stored, so a bad reference leaves the property and
// the finished block as they were.
void clsFreq::setAddress(AddressProperty& property, const std::string& reference) {
  if (reference != property.text) {
    std::optional<Range> resolved;
    if (!reference.empty()) resolved = HostSession::Application().ResolveRange(reference);
    property.range = std::move(resolved);
    block_.reset();
    tables_.clear();
  }
  property.text = reference;
}

void clsFreq::Results(bool overWrite) {
  kFreq("Results", [&] {
    failure_.reset();
    if (!block_) {
      CheckRanges();
      block_ = GetResults();
    }
    PasteResults(overWrite);
    // The histogram's data go below the table first, and the columns are fitted before any chart
    // is placed beside them.
    if (histogram_.plot) {
      DrawHistogram();
    } else {
      fitColumns(nullptr);
    }
    output_.range->Cells(1, 1).Select();
  });
}

void clsFreq::CheckRanges() const {
  kFreq("CheckRanges", [&] {
    const std::optional<Range>& data = input_.range;
    const std::optional<Range>& frequencies = frequency_.range;
    const std::optional<Range>& bins = bin_.range;
    if (!data && !bins) raise(err::kNoInputRange);
    if (!data && !frequencies) raise(err::kBinsWithoutFrequencies);
    if (data && frequencies && RangeChecks::CountVariables(*frequencies, headers_, dataInRows_) > 1) {
      raise(err::kFrequencyVariables);
    }
    if (bins && RangeChecks::CountVariables(*bins, headers_, dataInRows_) > 1) {
      raise(err::kBinVariables);
    }

    // The cells of one variable of an area: its rows, or its columns with DataInRows.
    const auto length = [&](const CellBlock& area) { return dataInRows_ ? area.columns() : area.rows(); };
    if (data && frequencies) {
      const std::int32_t weights = length(frequencies->block());
      for (const CellBlock& area : data->areas()) {
        if (length(area) != weights) raise(err::kFrequencyShape);
      }
    }
    if (!data) {
      const std::int32_t binCells = length(bins->block());
      for (const CellBlock& area : frequencies->areas()) {
        if (length(area) != binCells) raise(err::kBinShape);
      }
    }
  });
}

Range clsFreq::GetResults() {
  return kFreq("GetResults", [&] {
    const std::vector<Analysed> variables = analysedVariables();
    std::optional<ValueArray1D> bins;
    if (bin_.range) bins = CheckBins(readVariables(*bin_.range).front().cells);

    const bool numerical = dataType_ == ORVDescriptivesFreqNumerical;
    std::vector<Kind> kinds;
    if (!numerical || (input_.range && (showRawData_ || (!bin_.range && !histogram_.plot)))) {
      kinds.push_back(Kind::Raw);
    }
    if (!bin_.range && histogram_.plot && numerical) kinds.push_back(Kind::ProposedBins);
    if (bin_.range) kinds.push_back(Kind::GivenBins);
    // Every variable counted for a table is a step of the run's progress (frame/work_progress.h).
    WorkTally tally{0, kinds.size() * variables.size()};
    std::vector<Table> tables;
    for (const Kind kind : kinds) {
      tables.push_back(countTable(kind, variables, kind == Kind::GivenBins ? bins : std::nullopt, tally));
    }
    // Taken once the engines have accepted the data, for the histogram's normal curve.
    moments_.clear();
    for (const Analysed& v : variables) {
      moments_.push_back(histogram_.plot && numerical && v.data
                             ? sampleMoments(*v.data, v.weights, textbook_ ? EmptyCells::Skipped : EmptyCells::Zero)
                             : std::nullopt);
    }
    return FormatResults(tables);
  });
}

clsFreq::Table clsFreq::countTable(Kind kind, const std::vector<Analysed>& variables,
                                   const std::optional<ValueArray1D>& bins, WorkTally& tally) {
  return kFreq("CountTable", [&] {
    Table table;
    table.kind = kind;
    for (const Analysed& v : variables) {
      clsFreqBO bo;
      try {
        bo.DataType(dataType_);
        bo.DataAreStartPoints(histogram_.categoryStartPoints);
        bo.Textbook(textbook_);
        if (v.data) bo.Data(*v.data);
        if (v.weights) bo.Frequencies(*v.weights);
        if (kind == Kind::ProposedBins) {
          // All values equal: no bins, and the table counts the one distinct value.
          const std::optional<ValueArray1D> proposed = bo.ProposeBins(*v.data);
          if (proposed) bo.Bin(*proposed);
        }
        if (kind == Kind::GivenBins) bo.Bin(*bins);
        bo.Analyse();
      } catch (const ComponentError&) {
        // Kept beside the error, which goes on unchanged.
        if (v.place) failure_ = ColumnFailure{v.name, *v.place, std::string(headingOf(kind))};
        throw;
      }

      table.names.items().push_back(v.name);
      table.results.items().push_back({bo.Values(), bo.Counts(), bo.CumCounts(), bo.Percents(), bo.CumPercents()});
      if (kind != Kind::Raw) table.flags.push_back({bo.LessThanCatUsed(), bo.GreaterThanCatUsed()});
      reportWork(++tally.done, tally.total);
    }
    return table;
  });
}

Range clsFreq::FormatResults(const std::vector<Table>& tables) {
  return kFreq("FormatResults", [&] {
    clsFreqOutput writer;
    writer.OutputHeader(addressText(input_.range), addressText(bin_.range), addressText(frequency_.range),
                        textbook_ ? std::string(kTextbookComment) : "");
    writer.InsertBlankLines(1);
    tables_.clear();
    for (const Table& table : tables) {
      writer.OutputComment(std::string(headingOf(table.kind)), 0, true);
      CategoryRows rows;
      const bool binned = table.kind != Kind::Raw;
      writer.OutputMatrix(table.names, table.results, rows, binned ? &table.flags : nullptr);
      writer.InsertBlankLines(1);

      FrequencyTablePlace place;
      place.kind = table.kind;
      place.headingRow = rows.first - 1;
      for (const VariableDistribution& d : table.results.items()) {
        place.lastRows.push_back(rows.first + d.Values.size() - 1);
      }
      place.flags = table.flags;
      tables_.push_back(std::move(place));
    }
    return writer.Results();
  });
}

void clsFreq::PasteResults(bool overWrite) {
  kFreq("PasteResults", [&] {
    const PastedResults pasted = pasteResults(*block_, output_.range, overWrite);
    pasted_ = pasted.cells;
    pastedOnOwnSheet_ = pasted.ownSheet;
  });
}

}  // namespace orv
