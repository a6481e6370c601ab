#include "cli/describe_command.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>
#include <vector>

#include "cli/analysis_run.h"
#include "cli/arguments.h"
#include "cli/arithmetic_notes.h"
#include "cli/help_model.h"
#include "cli/reference_text.h"
#include "cli/used_cells.h"
#include "descriptive/clsDS.h"
#include "frame/errors.h"
#include "support/host_session.h"

namespace orv::cli {
namespace {

// A statistic flag: its name on the command line, its help and the option of clsDS it sets.
struct StatisticFlag {
  const char* name;
  const char* help;
  void (clsDS::*set)(bool);
};

const std::vector<StatisticFlag> kFlags = {
    {"--mean", "arithmetic mean", &clsDS::GetMean},
    {"--median", "median", &clsDS::GetMedian},
    {"--mode", "most frequent values", &clsDS::GetMode},
    {"--se", "standard error of the mean", &clsDS::GetSE},
    {"--sd", "standard deviation", &clsDS::GetSD},
    {"--variance", "sample variance", &clsDS::GetVariance},
    {"--cv", "coefficient of variation, percent", &clsDS::GetCV},
    {"--sum", "sum", &clsDS::GetSum},
    {"--min", "minimum", &clsDS::GetMin},
    {"--max", "maximum", &clsDS::GetMax},
    {"--count", "number of observations", &clsDS::GetCount},
    {"--range", "maximum minus minimum", &clsDS::GetRange},
    {"--skewness", "skewness and its normality-test probability", &clsDS::GetSkewness},
    {"--kurtosis", "excess kurtosis and its normality-test probability", &clsDS::GetKurtosis},
};

// The error-bar choices clsDS knows, as its ErrorError option spells them.
const std::vector<std::string> kErrorBars = {"Standard Error", "Standard Deviation",    "Variance",
                                             "Range",          "Interpercentile Range", "Confidence Limits"};

constexpr const char* kInputHelp =
    "range to analyse, e.g. \"Data!A1:C20\", \"A1:A10,C1:C10\" or a name the workbook defines";

struct DescribeOptions {
  FileOptions files;
  std::string input;
  std::string output;
  bool headers = false;
  bool overwrite = false;
  bool all = false;
  bool textbook = false;
  std::vector<int> chosen = std::vector<int>(kFlags.size(), 0);  // times each flag was given
  int cl = 95;
  int percentile = 25;
  int largest = 0;
  int smallest = 0;
  bool boxPlot = false;
  bool errorPlot = false;
  std::string boxTitle, boxYTitle, errorTitle, errorYTitle;
  std::string errorCentre = "Mean";
  std::string errorBars = "Standard Error";
  CLI::Option* clOption = nullptr;
  CLI::Option* percentileOption = nullptr;
  CLI::Option* largestOption = nullptr;
  CLI::Option* smallestOption = nullptr;
};

nlohmann::json optionsJson(const DescribeOptions& o) {
  nlohmann::json j;
  j["headers"] = o.headers;
  j["overwrite"] = o.overwrite;
  j["output"] = o.output.empty() ? nlohmann::json(nullptr) : nlohmann::json(o.output);
  nlohmann::json stats = nlohmann::json::array();
  for (std::size_t i = 0; i < kFlags.size(); ++i) {
    if (o.all || o.chosen[i]) stats.push_back(std::string(kFlags[i].name + 2));
  }
  if (o.all || o.clOption->count() > 0) stats.push_back("cl");
  if (o.all || o.percentileOption->count() > 0) stats.push_back("percentiles");
  if (o.largestOption->count() > 0) stats.push_back("largest");
  if (o.smallestOption->count() > 0) stats.push_back("smallest");
  j["statistics"] = stats;
  j["cl"] = o.cl;
  j["percentile"] = o.percentile;
  j["largest"] = o.largest;
  j["smallest"] = o.smallest;
  j["boxPlot"] = o.boxPlot ? nlohmann::json{{"title", o.boxTitle}, {"yTitle", o.boxYTitle}} : nlohmann::json(nullptr);
  j["errorPlot"] = o.errorPlot ? nlohmann::json{{"title", o.errorTitle},
                                                {"yTitle", o.errorYTitle},
                                                {"centre", o.errorCentre},
                                                {"bars", o.errorBars}}
                               : nlohmann::json(nullptr);
  if (o.textbook) j["textbook"] = true;
  return j;
}

int run(const DescribeOptions& o) {
  AnalysisRequest request;
  request.analysis = "describe";
  request.options = optionsJson(o);
  request.context = ErrorContext{o.input, o.output, request.analysis};
  request.ranges = {{"--input", o.input}};
  request.headers = o.headers;
  if (o.boxPlot) request.charts.push_back("--box-plot");
  if (o.errorPlot) request.charts.push_back("--error-plot");
  request.run = [&o](RunNotes& notes) {
    clsDS ds;
    ds.Headers(o.headers);
    for (std::size_t i = 0; i < kFlags.size(); ++i) {
      if (o.all || o.chosen[i]) (ds.*kFlags[i].set)(true);
    }
    ds.GetCL(o.all || o.clOption->count() > 0);
    ds.CL(static_cast<std::uint8_t>(o.cl));
    ds.GetPercentile(o.all || o.percentileOption->count() > 0);
    ds.Percentile(static_cast<std::uint8_t>(o.percentile));
    ds.GetLargest(o.largestOption->count() > 0);
    ds.Largest(o.largest);
    ds.GetSmallest(o.smallestOption->count() > 0);
    ds.Smallest(o.smallest);
    ds.PlotBox(o.boxPlot);
    ds.BoxTitle(o.boxTitle);
    ds.BoxYTitle(o.boxYTitle);
    ds.PlotError(o.errorPlot);
    ds.ErrorTitle(o.errorTitle);
    ds.ErrorYTitle(o.errorYTitle);
    ds.ErrorCentre(o.errorCentre);
    ds.ErrorError(o.errorBars);
    ds.Textbook(o.textbook);
    ds.InputRange(usedCells(HostSession::Application(), o.input));
    ds.OutputRange(o.output);
    try {
      ds.Results(o.overwrite);
    } catch (const ComponentError&) {
      notes.failure = ds.failure();
      throw;
    }
    addNoteWarnings(ds.notes(), notes.warnings);
    notes.arithmetic = ds.notes();
    return *ds.pastedBlock();
  };
  return runAnalysis(o.files, request);
}

// The box plot's and the error plot's options; each shapes its chart only, so it needs the
// flag that draws that chart.
void addChartOptions(CLI::App& cmd, DescribeOptions& o) {
  CLI::Option* boxPlot =
      cmd.add_flag("--box-plot", o.boxPlot,
                   "draw a box-and-whisker chart (median, percentiles, minimum, maximum) beside the table")
          ->group(kChartsGroup);
  cmd.add_option("--box-title", o.boxTitle, "title of the box plot")
      ->type_name("TEXT")
      ->group(kChartsGroup)
      ->needs(boxPlot);
  cmd.add_option("--box-y-title", o.boxYTitle, "title of the box plot's value axis")
      ->type_name("TEXT")
      ->group(kChartsGroup)
      ->needs(boxPlot);
  CLI::Option* errorPlot =
      cmd.add_flag("--error-plot", o.errorPlot, "draw each column's centre with error bars beside the table")
          ->group(kChartsGroup);
  cmd.add_option("--error-title", o.errorTitle, "title of the error plot")
      ->type_name("TEXT")
      ->group(kChartsGroup)
      ->needs(errorPlot);
  cmd.add_option("--error-y-title", o.errorYTitle, "title of the error plot's value axis")
      ->type_name("TEXT")
      ->group(kChartsGroup)
      ->needs(errorPlot);
  const std::vector<std::string> centres = {"Mean", "Median"};
  setChoices(cmd.add_option("--error-centre", o.errorCentre, "the plotted centre: Mean or Median (default Mean)")
                 ->type_name("CENTRE")
                 ->group(kChartsGroup)
                 ->needs(errorPlot)
                 ->check(oneOf("--error-centre", centres)),
             centres);
  setChoices(cmd.add_option("--error-bars", o.errorBars,
                            "what the bars show: \"Standard Error\" (default), \"Standard Deviation\", "
                            "Variance, Range, \"Interpercentile Range\" or \"Confidence Limits\"")
                 ->type_name("KIND")
                 ->group(kChartsGroup)
                 ->needs(errorPlot)
                 ->check(oneOf("--error-bars", kErrorBars)),
             kErrorBars);
}

}  // namespace

void addDescribeCommand(CLI::App& app, int& exitCode) {
  auto options = std::make_shared<DescribeOptions>();
  DescribeOptions& o = *options;
  CLI::App* cmd = app.add_subcommand("describe", "Descriptive statistics of the columns of a range");
  cmd->footer(R"(With no statistic chosen the table holds Mean, Std Error, Std Dev. and Count.

Examples:
  orvella describe plants.xlsx --input "Heights!A1:C13" --headers
  orvella describe plants.xlsx --input "Heights!A1:C13" --headers --all -o results.xlsx
  orvella describe data.csv --input "A2:A200,C2:C200" --mean --cl 99 --percentiles 10 --json
  orvella describe plants.xlsx -i "Heights!A1:C13" --headers --box-plot --error-plot \
      --error-bars "Confidence Limits" -o charts.xlsx

Charts stand beside the table in the written workbook, the error plot below the box plot.)");
  addFileOptions(*cmd, o.files);
  cmd->add_option("-i,--input", o.input, kInputHelp)
      ->required()
      ->type_name("REF")
      ->group(kInputGroup)
      ->transform(referenceText("--input"));
  cmd->add_flag("--headers", o.headers, "the first row of every column holds its name")->group(kInputGroup);
  addOutputOptions(*cmd, o.output, o.overwrite, "the table goes");
  cmd->add_flag("--all", o.all, "every statistic except the k-th largest and smallest")->group(kStatisticsGroup);
  cmd->add_flag("--textbook", o.textbook,
                "textbook arithmetic: whole sheet columns, moments from deviations, kurtosis test of the signed "
                "statistic, percentiles as R's quantile type 6 (see README)")
      ->group(kStatisticsGroup);
  for (std::size_t i = 0; i < kFlags.size(); ++i) {
    cmd->add_flag(kFlags[i].name, o.chosen[i], kFlags[i].help)->group(kStatisticsGroup);
  }
  o.clOption = cmd->add_option("--cl", o.cl, "confidence limits of the mean at LEVEL percent (default 95)")
                   ->expected(0, 1)
                   ->default_str("95")
                   ->type_name("LEVEL")
                   ->group(kStatisticsGroup)
                   ->check(wholeNumberFrom("--cl", "a confidence level in whole percent", 1, 99));
  o.percentileOption = cmd->add_option("--percentiles", o.percentile,
                                       "the P-th and (100-P)-th percentiles (default 25, giving quartiles)")
                           ->expected(0, 1)
                           ->default_str("25")
                           ->type_name("P")
                           ->group(kStatisticsGroup)
                           ->check(wholeNumberFrom("--percentiles", "a whole percent", 1, 99));
  o.largestOption = cmd->add_option("--largest", o.largest, "the K-th largest value")
                        ->type_name("K")
                        ->group(kStatisticsGroup)
                        ->check(wholeNumberFrom("--largest", "a whole number", 1));
  o.smallestOption = cmd->add_option("--smallest", o.smallest, "the K-th smallest value")
                         ->type_name("K")
                         ->group(kStatisticsGroup)
                         ->check(wholeNumberFrom("--smallest", "a whole number", 1));
  addChartOptions(*cmd, o);
  cmd->callback([options, &exitCode] { exitCode = run(*options); });
}

}  // namespace orv::cli
