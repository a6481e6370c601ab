// Which threads touch the host. All three analyses, each with its charts, run on a host that
// records the thread of every call: every call into the object model comes from the thread that
// called Results, and so does every call of the distribution functions when the host does not
// allow other threads (as a live spreadsheet does not). Computed column by column or on helper
// threads, the analyses write the same cells and charts.

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "circular/clsDSCirc.h"
#include "descriptive/clsDS.h"
#include "frame/conversions.h"
#include "frequency/clsFreq.h"
#include "recording_host.h"
#include "support/host_session.h"

namespace orv::test {
namespace {

constexpr std::int32_t kRows = 25;  // enough for both shape probabilities and the circular CL
// Columns enough that helper threads, where allowed, take some of them.
constexpr std::int32_t kColumns = 12;

// Columns under headers, every value an angle from 0 to 360 so that the circular analysis takes
// them too; spread unevenly so that no statistic is degenerate.
void fillData(InMemoryWorksheet& sheet) {
  for (std::int32_t c = 1; c <= kColumns; ++c) {
    sheet.storeRaw(1, c, CellValue("Site " + std::to_string(c)));
    for (std::int32_t r = 2; r <= kRows + 1; ++r) {
      sheet.storeRaw(r, c, CellValue(std::fmod(37.0 * r + 11.0 * c * c + 0.5 * r * r, 90.0) + 20.0 * c));
    }
  }
}

// Every analysis with its charts and the statistics that call the distribution functions.
void runTheThreeAnalyses() {
  clsDS ds;
  ds.Headers(true);
  for (auto get : {&clsDS::GetMean, &clsDS::GetMedian, &clsDS::GetMode, &clsDS::GetSE, &clsDS::GetSD,
                   &clsDS::GetVariance, &clsDS::GetCV, &clsDS::GetCL, &clsDS::GetSum, &clsDS::GetSkewness,
                   &clsDS::GetKurtosis, &clsDS::GetMin, &clsDS::GetMax, &clsDS::GetCount, &clsDS::GetRange,
                   &clsDS::GetPercentile, &clsDS::PlotBox, &clsDS::PlotError}) {
    (ds.*get)(true);
  }
  ds.ErrorCentre("Mean");
  ds.ErrorError("Confidence Limits");
  ds.InputRange("Data!A1:L26");
  ds.Results();
  clsDSCirc circ;
  circ.Headers(true);
  circ.GetRayleigh(true);
  circ.GetCL(true);
  circ.GetMean(true);
  circ.Plot(true);
  circ.InputRange("Data!A1:L26");
  circ.Results();
  clsFreq freq;
  freq.Headers(true);
  freq.PlotHistogram(true);
  freq.PlotCumulative(true);
  freq.InputRange("Data!A1:B26");
  freq.Results();
}

// What a run left behind and which threads it came from.
struct Outcome {
  std::vector<std::string> cells;   // every sheet, row by row
  std::vector<std::string> charts;  // every chart: sheet, name, place, series values
  std::set<std::thread::id> objectThreads;
  std::set<std::thread::id> functionThreads;
  std::size_t objectCalls = 0;
  std::size_t functionCalls = 0;
};

std::string chartSummary(const InMemoryWorksheet& sheet, const ChartModel& chart) {
  std::string out =
      sheet.Name() + " " + chart.name + " at " + numberToText(chart.left) + "," + numberToText(chart.top) + ":";
  for (const SeriesModel& s : chart.series) {
    out += " [" + s.name;
    for (const std::optional<double>& v : s.values.cells ? s.values.cached : s.values.literal) {
      out += " " + (v ? numberToText(*v) : std::string("-"));
    }
    out += "]";
  }
  return out;
}

void collect(InMemoryWorkbook& book, Outcome& run) {
  for (std::int32_t i = 1; i <= book.WorksheetsCount(); ++i) {
    InMemoryWorksheet& sheet = book.Worksheets(i);
    const std::optional<CellBlock> used = sheet.usedBlock();
    for (std::int32_t r = 1; used && r <= used->bottom; ++r) {
      std::string line = sheet.Name() + "!" + std::to_string(r);
      for (std::int32_t c = 1; c <= used->right; ++c) line += "|" + toText(sheet.cellValue(r, c));
      run.cells.push_back(line);
    }
    for (const ChartModel& chart : sheet.charts()) run.charts.push_back(chartSummary(sheet, chart));
  }
}

// The three analyses on a fresh recording host whose distribution functions may, or may not, be
// called from any thread.
Outcome analyseEverything(bool anyThread) {
  ThreadLog log;
  InMemoryApplication app;
  InMemoryWorkbook& book = app.AddWorkbook("Book1.xlsx", {"Data"});
  fillData(book.Worksheets("Data"));
  RecApplication host(log, app, anyThread);
  struct Attached {
    explicit Attached(Application& a) { HostSession::Attach(&a); }
    ~Attached() { HostSession::Attach(nullptr); }
  } attached(host);

  runTheThreeAnalyses();

  Outcome run;
  collect(book, run);
  run.objectThreads = log.threads(ThreadLog::Kind::ObjectModel);
  run.functionThreads = log.threads(ThreadLog::Kind::DistributionFunction);
  run.objectCalls = log.calls(ThreadLog::Kind::ObjectModel);
  run.functionCalls = log.calls(ThreadLog::Kind::DistributionFunction);
  return run;
}

// A host that only its own thread may call sees every call from the caller of Results; one whose
// functions may be called from any thread sees only those elsewhere, and the results are the same.
TEST(HostThreads, OnlyTheDistributionFunctionsOfAHostThatAllowsItAreCalledFromOtherThreads) {
  const Outcome sequential = analyseEverything(false);
  const Outcome parallel = analyseEverything(true);
  const std::set<std::thread::id> caller{std::this_thread::get_id()};
  EXPECT_GT(sequential.objectCalls, 0U);
  EXPECT_GT(sequential.functionCalls, 0U);  // TInv, NormDist and ChiInv were all needed
  EXPECT_EQ(sequential.objectThreads, caller);
  EXPECT_EQ(sequential.functionThreads, caller);
  EXPECT_EQ(parallel.objectThreads, caller);
  EXPECT_EQ(parallel.functionCalls, sequential.functionCalls);
  EXPECT_EQ(parallel.cells, sequential.cells);
  EXPECT_EQ(parallel.charts, sequential.charts);
  // Two charts of the descriptive analysis, one per circular column, one histogram per frequency
  // column.
  EXPECT_EQ(sequential.charts.size(), 2U + kColumns + 2U);
}

}  // namespace
}  // namespace orv::test
