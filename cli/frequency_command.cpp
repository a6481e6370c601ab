#include "cli/frequency_command.h"

#include <fmt/format.h>
#include <CLI/CLI.hpp>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/analysis_run.h"
#include "cli/help_model.h"
#include "cli/reference_text.h"
#include "cli/used_cells.h"
#include "frame/conversions.h"
#include "frame/errors.h"
#include "frame/host.h"
#include "frame/reference.h"
#include "frequency/clsFreq.h"
#include "support/host_session.h"

namespace orv::cli {
namespace {

struct FrequencyOptions {
  FileOptions files;
  std::string input;
  std::string frequencies;
  std::string bins;
  std::string output;
  bool headers = false;
  bool overwrite = false;
  bool nominal = false;
  bool raw = false;
  bool rows = false;
  bool startPoints = false;
  bool textbook = false;
  HistogramOptions histogram;
};

nlohmann::json optionalText(const std::string& s) { return s.empty() ? nlohmann::json(nullptr) : nlohmann::json(s); }

nlohmann::json optionsJson(const FrequencyOptions& o) {
  nlohmann::json j;
  j["headers"] = o.headers;
  j["overwrite"] = o.overwrite;
  j["output"] = optionalText(o.output);
  j["dataType"] = o.nominal ? "nominal" : "numerical";
  j["frequencies"] = optionalText(o.frequencies);
  j["bins"] = optionalText(o.bins);
  j["rawData"] = o.raw;
  j["dataInRows"] = o.rows;
  j["categoryStartPoints"] = o.startPoints;
  j["histogram"] = o.histogram.plot ? nlohmann::json{{"normal", o.histogram.normal},
                                                     {"cumulative", o.histogram.cumulative},
                                                     {"title", o.histogram.title},
                                                     {"xTitle", o.histogram.xTitle},
                                                     {"yTitle", o.histogram.yTitle}}
                                    : nlohmann::json(nullptr);
  if (o.textbook) j["textbook"] = true;
  return j;
}

// Binned counting takes an empty data cell for the value 0, which silently moves counts into
// the bin holding 0. The analysis keeps that rule; the command says when it happened: one line
// per counted variable with empty cells, naming it as the table does.
std::vector<std::string> emptyCellWarnings(const FrequencyOptions& o, const std::optional<Range>& input) {
  // Textbook arithmetic counts no empty cell.
  const bool binned = !o.nominal && !o.textbook && (!o.bins.empty() || o.histogram.plot);
  if (!binned || !input) return {};
  const Range& data = *input;
  const std::int32_t first = o.headers ? 2 : 1;
  std::vector<std::string> warnings;
  for (const CellBlock& area : data.areas()) {
    const ValueArray2D values = Range(data.Parent(), area).Values();
    const std::int32_t count = o.rows ? area.rows() : area.columns();
    const std::int32_t length = o.rows ? area.columns() : area.rows();
    for (std::int32_t v = 1; v <= count; ++v) {
      const auto at = [&](std::int32_t i) -> const CellValue& { return o.rows ? values(v, i) : values(i, v); };
      std::int32_t empty = 0;
      for (std::int32_t i = first; i <= length; ++i) empty += at(i).isEmpty() ? 1 : 0;
      if (empty > 0) {
        const std::string name = o.headers ? toText(at(1))
                                 : o.rows  ? "Row " + std::to_string(area.top + v - 1)
                                           : "Column " + columnLetters(area.left + v - 1);
        const CellBlock cells =
            o.rows ? CellBlock{area.top + v - 1, area.left + first - 1, area.top + v - 1, area.right}
                   : CellBlock{area.top + first - 1, area.left + v - 1, area.bottom, area.left + v - 1};
        warnings.push_back(
            fmt::format("{} empty cell{} of \"{}\" ({}!{}) {} counted as the value 0 in the binned table; "
                        "give --input only the cells that hold data.",
                        empty, empty == 1 ? "" : "s", name, quoteSheetName(data.Parent().Name()),
                        absoluteAddress(cells), empty == 1 ? "is" : "are"));
      }
      // Beside frequencies only the first data variable is counted.
      if (!o.frequencies.empty()) return warnings;
    }
  }
  return warnings;
}

int run(const FrequencyOptions& o) {
  if (o.nominal && !o.bins.empty()) {
    return refuseUsage(o.files,
                       "--nominal counts items, which have no bins; leave out --bins, or --nominal to count numbers in "
                       "bins");
  }
  AnalysisRequest request;
  request.analysis = "frequency";
  request.options = optionsJson(o);
  request.context = ErrorContext{o.input, o.output, request.analysis};
  request.ranges = {{"--input", o.input}, {"--frequencies", o.frequencies}, {"--bins", o.bins}};
  request.headers = o.headers;
  request.rows = o.rows;
  if (o.histogram.plot) request.charts.push_back("--histogram");
  request.run = [&o](RunNotes& notes) {
    Application& app = HostSession::Application();
    const std::string input = usedCells(app, o.input);
    clsFreq freq;
    freq.Headers(o.headers);
    freq.DataType(o.nominal ? ORVDescriptivesFreqNominal : ORVDescriptivesFreqNumerical);
    freq.PlotHistogram(o.histogram.plot);
    freq.PlotNormal(o.histogram.normal);
    freq.PlotCumulative(o.histogram.cumulative);
    freq.HistogramTitle(o.histogram.title);
    freq.HistogramXTitle(o.histogram.xTitle);
    freq.HistogramYTitle(o.histogram.yTitle);
    freq.CategoryStartPoint(o.startPoints);
    freq.ShowRawData(o.raw);
    freq.DataInRows(o.rows);
    freq.Textbook(o.textbook);
    freq.InputRange(input);
    // Resolved before the run: an unqualified reference reads the sheet active now, which the
    // results sheet replaces.
    std::optional<Range> data;
    if (!input.empty()) data = app.ResolveRange(input);
    freq.FrequencyRange(usedCells(app, o.frequencies));
    freq.BinRange(usedCells(app, o.bins));
    freq.OutputRange(o.output);
    try {
      freq.Results(o.overwrite);
    } catch (const ComponentError&) {
      notes.failure = freq.failure();
      throw;
    }
    for (std::string& w : emptyCellWarnings(o, data)) notes.warnings.push_back(std::move(w));
    return *freq.pastedBlock();
  };
  return runAnalysis(o.files, request);
}

// The histogram's options: each shapes the chart only, so it needs --histogram.
void addHistogramOptions(CLI::App& cmd, FrequencyOptions& o) {
  CLI::Option* histogram =
      cmd.add_flag("--histogram", o.histogram.plot,
                   "draw a histogram of the counts beside the tables (bins are proposed when none are given)")
          ->group(kChartsGroup);
  cmd.add_flag("--normal,!--no-normal", o.histogram.normal,
               "draw the normal curve over the histogram (default on; --no-normal leaves it out)")
      ->group(kChartsGroup)
      ->needs(histogram);
  cmd.add_flag("--cumulative", o.histogram.cumulative, "draw the cumulative percentage too")
      ->group(kChartsGroup)
      ->needs(histogram);
  cmd.add_flag("--start-points", o.startPoints,
               "label the histogram's categories by their start values instead of \"from - to\"")
      ->group(kChartsGroup)
      ->needs(histogram);
  cmd.add_option("--title", o.histogram.title, "title of the histogram")
      ->type_name("TEXT")
      ->group(kChartsGroup)
      ->needs(histogram);
  cmd.add_option("--x-title", o.histogram.xTitle, "title of the histogram's category axis")
      ->type_name("TEXT")
      ->group(kChartsGroup)
      ->needs(histogram);
  cmd.add_option("--y-title", o.histogram.yTitle, "title of the histogram's count axis")
      ->type_name("TEXT")
      ->group(kChartsGroup)
      ->needs(histogram);
}

}  // namespace

void addFrequencyCommand(CLI::App& app, int& exitCode) {
  auto options = std::make_shared<FrequencyOptions>();
  FrequencyOptions& o = *options;
  CLI::App* cmd = app.add_subcommand("frequency", "Frequency distributions of numbers or items");
  cmd->footer(R"(Numbers are counted per distinct value, or per bin with --bins (a bin holds the values
from its own bin value up to the next). In binned counting an empty data cell counts as 0; the
command warns when that happens.

Examples:
  orvella frequency survey.xlsx --input "Survey!B1:B31" --headers --nominal
  orvella frequency survey.xlsx -i "Survey!A1:A31" --headers --bins "Survey!C1:C7" -o results.xlsx
  orvella frequency counts.csv --bins "A2:A6" --frequencies "B2:B6" --json)");
  addFileOptions(*cmd, o.files);
  cmd->add_option("-i,--input", o.input,
                  "data to count, one variable per column (per row with --rows), e.g. \"Data!A1:A40\" or a "
                  "name the workbook defines (whole columns such as A:A stop at the last used row)")
      ->type_name("REF")
      ->group(kInputGroup)
      ->transform(referenceText("--input"));
  cmd->add_option("--frequencies", o.frequencies,
                  "how often each data cell counts (weights), or with --bins and no --input the "
                  "counts of each bin")
      ->type_name("REF")
      ->group(kInputGroup)
      ->transform(referenceText("--frequencies"));
  cmd->add_option("--bins", o.bins,
                  "the cells of one variable of rising bin values, each the lower edge of its bin, e.g. "
                  "\"Data!C1:C6\"")
      ->type_name("REF")
      ->group(kInputGroup)
      ->transform(referenceText("--bins"));
  cmd->add_flag("--headers", o.headers, "the first cell of every variable holds its name")->group(kInputGroup);
  cmd->add_flag("--rows", o.rows, "variables run along rows instead of down columns")->group(kInputGroup);
  addOutputOptions(*cmd, o.output, o.overwrite, "the tables go");
  cmd->add_flag("--nominal", o.nominal, "count items (texts, labels) in order of first appearance instead of numbers")
      ->group(kStatisticsGroup);
  cmd->add_flag("--raw", o.raw, "also count every distinct value when bins are used")->group(kStatisticsGroup);
  cmd->add_flag("--textbook", o.textbook,
                "textbook arithmetic: whole sheet columns, and empty cells counted nowhere in binned "
                "tables either (see README)")
      ->group(kStatisticsGroup);
  addHistogramOptions(*cmd, o);
  cmd->callback([options, &exitCode] { exitCode = run(*options); });
}

}  // namespace orv::cli
