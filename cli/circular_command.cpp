#include "cli/circular_command.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "circular/clsDSCirc.h"
#include "cli/analysis_run.h"
#include "cli/arithmetic_notes.h"
#include "cli/column_messages.h"
#include "cli/help_model.h"
#include "cli/input_checks.h"
#include "cli/reference_text.h"
#include "cli/used_cells.h"
#include "frame/errors.h"
#include "frame/host.h"
#include "support/host_session.h"
#include "support/input_columns.h"

namespace orv::cli {
namespace {

// A statistic flag: its name on the command line, its help and the option of clsDSCirc it sets.
struct StatisticFlag {
  const char* name;
  const char* help;
  void (clsDSCirc::*set)(bool);
};

// In the order of the table's rows.
const std::vector<StatisticFlag> kFlags = {
    {"--mean-angle", "direction of the mean vector, degrees", &clsDSCirc::GetMean},
    {"--mean-vector", "length r of the mean vector, 0 (spread) to 1 (all equal)", &clsDSCirc::GetMeanVector},
    {"--angular-sd", "angular deviation, degrees", &clsDSCirc::GetAngularSD},
    {"--angular-var", "angular variance, square degrees", &clsDSCirc::GetAngularVar},
    {"--circular-sd", "circular standard deviation, degrees", &clsDSCirc::GetCircularSD},
    {"--circular-var", "circular variance, square degrees", &clsDSCirc::GetCircularVar},
    {"--cl", "half-width of the 95% confidence interval of the mean angle (from 8 angles)", &clsDSCirc::GetCL},
    {"--count", "number of angles", &clsDSCirc::GetCount},
    {"--rayleigh", "Rayleigh's Z and its probability under uniform directions", &clsDSCirc::GetRayleigh},
};

struct CircularOptions {
  FileOptions files;
  std::string input;
  std::string output;
  bool headers = false;
  bool overwrite = false;
  bool all = false;
  bool plot = false;
  bool textbook = false;
  std::vector<int> chosen = std::vector<int>(kFlags.size(), 0);  // times each flag was given
};

// A column of angles is read down to its first empty cell: angles below it are left out without
// a word from the analysis, so the command says how many and where the gap is.
void noteAnglesBelowGaps(Application& app, const std::string& reference, bool headers,
                         std::vector<std::string>& warnings) {
  std::optional<Range> input;
  try {
    input = app.ResolveRange(reference);
  } catch (const ComponentError&) {
    return;  // the analysis reports the reference
  }
  for (const InputColumn& at : inputColumns(*input)) {
    const Range cells = columnData(*input, at, headers ? 2 : 1);
    const ValueArray2D values = cells.Values();
    std::int32_t gap = 0;
    std::int32_t below = 0;
    for (std::int32_t r = 1; r <= values.rows(); ++r) {
      if (gap == 0 && values(r, 1).isEmpty()) gap = r;
      if (gap != 0 && !values(r, 1).isEmpty()) ++below;
    }
    if (below == 0) continue;
    const CellBlock& block = cells.block();
    warnings.push_back(fmt::format(
        "{} {} of \"{}\" ({}) below its first empty cell, {}, {} not analysed: a column of angles is read down to "
        "its first empty cell",
        below, below == 1 ? "value" : "values", columnName(*input, at, headers), cells.AddressWithSheet(),
        cellName(cells, block.top + gap - 1, block.left), below == 1 ? "is" : "are"));
  }
}

nlohmann::json optionsJson(const CircularOptions& o) {
  nlohmann::json j;
  j["headers"] = o.headers;
  j["overwrite"] = o.overwrite;
  j["output"] = o.output.empty() ? nlohmann::json(nullptr) : nlohmann::json(o.output);
  nlohmann::json stats = nlohmann::json::array();
  for (std::size_t i = 0; i < kFlags.size(); ++i) {
    if (o.all || o.chosen[i]) stats.push_back(std::string(kFlags[i].name + 2));
  }
  j["statistics"] = stats;
  j["plot"] = o.plot;
  if (o.textbook) j["textbook"] = true;
  return j;
}

int run(const CircularOptions& o) {
  AnalysisRequest request;
  request.analysis = "circular";
  request.options = optionsJson(o);
  request.context = ErrorContext{o.input, o.output, request.analysis};
  request.ranges = {{"--input", o.input}};
  request.headers = o.headers;
  if (o.plot) request.charts.push_back("--plot");
  request.run = [&o](RunNotes& notes) {
    Application& app = HostSession::Application();
    const std::string input = usedCells(app, o.input);
    noteAnglesBelowGaps(app, input, o.headers, notes.warnings);
    clsDSCirc circ;
    circ.Headers(o.headers);
    for (std::size_t i = 0; i < kFlags.size(); ++i) {
      if (o.all || o.chosen[i]) (circ.*kFlags[i].set)(true);
    }
    circ.Plot(o.plot);
    circ.Textbook(o.textbook);
    circ.InputRange(input);
    circ.OutputRange(o.output);
    try {
      circ.Results(o.overwrite);
    } catch (const ComponentError& e) {
      notes.failure = circ.failure();
      if (e.number() == err::kCircularInput) notes.cause = angleOutsideSentence(app, input);
      throw;
    }
    addNoteWarnings(circ.notes(), notes.warnings);
    notes.arithmetic = circ.notes();
    return *circ.pastedBlock();
  };
  return runAnalysis(o.files, request);
}

}  // namespace

void addCircularCommand(CLI::App& app, int& exitCode) {
  auto options = std::make_shared<CircularOptions>();
  CircularOptions& o = *options;
  CLI::App* cmd = app.add_subcommand("circular", "Circular statistics of angles in degrees (0 to 360)");
  cmd->footer(R"(Each column holds angles in degrees, read down to its first empty cell. With no
statistic chosen the table holds every row but Rayleigh's.

Examples:
  orvella circular headings.xlsx --input "Pigeons!A1:B16" --headers
  orvella circular headings.xlsx -i "Pigeons!A1:B16" --headers --mean-angle --mean-vector \
      --rayleigh --plot -o results.xlsx
  orvella circular headings.xlsx -i "Pigeons!A:A" --headers --all --json)");
  addFileOptions(*cmd, o.files);
  cmd->add_option("-i,--input", o.input,
                  "range of angles, e.g. \"Data!A1:B20\", \"A1:A10,C1:C10\" or a name the workbook defines "
                  "(whole columns such as A:B stop at the last used row)")
      ->required()
      ->type_name("REF")
      ->group(kInputGroup)
      ->transform(referenceText("--input"));
  cmd->add_flag("--headers", o.headers, "the first row of every column holds its name")->group(kInputGroup);
  addOutputOptions(*cmd, o.output, o.overwrite, "the table goes");
  cmd->add_flag("--all", o.all, "every statistic, Rayleigh's test included")->group(kStatisticsGroup);
  cmd->add_flag("--textbook", o.textbook,
                "textbook arithmetic: whole sheet columns, the mean angle on the whole circle (atan2), "
                "Rayleigh's probability after Zar (see README)")
      ->group(kStatisticsGroup);
  for (std::size_t i = 0; i < kFlags.size(); ++i) {
    cmd->add_flag(kFlags[i].name, o.chosen[i], kFlags[i].help)->group(kStatisticsGroup);
  }
  cmd->add_flag("--plot", o.plot,
                "add the sine and cosine of every angle below the table (\"Data for Plots\") and "
                "draw one circular scatter chart per column beside it")
      ->group(kChartsGroup);
  cmd->callback([options, &exitCode] { exitCode = run(*options); });
}

}  // namespace orv::cli
