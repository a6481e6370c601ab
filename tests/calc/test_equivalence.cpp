// The same analysis on both hosts gives the same result: the block pasted (values, formats,
// place), the workbook's sheets, and the charts (kinds, sources, axes, error bars, titles,
// sizes, and places: the same anchor cell and the same offset in points from the block's top),
// or the same error. Every analysis and chart kind runs here on one shared workbook file.
//
// Numbers compare to 12 significant digits: the office's TINV, NORMDIST and CHIINV are not
// bit for bit those of the in-memory host (Boost.Math), and statistics built on them (the
// confidence limits, the probabilities) may differ in the last bits. Texts, empty cells, error
// values and formats compare exactly.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include <com/sun/star/util/XCloseable.hpp>

#include "calc/calc_application.h"
#include "chart_probe.h"
#include "circular/clsDSCirc.h"
#include "descriptive/clsDS.h"
#include "frame/conversions.h"
#include "frequency/clsFreq.h"
#include "office_environment.h"
#include "support/host_session.h"
#include "workbook/in_memory_application.h"
#include "xlsx/reader_workbook.h"
#include "xlsx/writer_workbook.h"

namespace orv::test {
namespace {

using Analysis = std::function<std::optional<Range>()>;

// The sheets of the shared workbook, which hold the data.
const std::vector<std::string> kDataSheets = {"Heights", "Angles", "Survey"};

// What one run left behind on its host.
struct Outcome {
  std::string sheet, address;
  ValueArray2D values;
  std::vector<CellFormat> formats;
  std::vector<double> widths;  // of the block's columns
  std::vector<std::string> sheets;
  std::vector<ProbedChart> charts;  // left: the anchor column; top: points below the block's top
  std::int32_t error = 0;
  std::string source, description;
};

// The column whose left edge the chart stands on, found in the host's own geometry: the hosts'
// default column widths differ, the cell does not.
double anchorColumn(Worksheet& sheet, double left) {
  for (std::int32_t c = 1; c <= 200; ++c) {
    if (std::fabs(sheet.columnLeft(c) - left) < 0.05) return c;
  }
  return -left;
}

Outcome collect(const std::optional<Range>& pasted, Workbook& book,
                const std::function<std::vector<ProbedChart>(Worksheet&)>& probe,
                const std::function<Worksheet&(const std::string&)>& reread) {
  Outcome o;
  for (std::int32_t i = 1; i <= book.WorksheetsCount(); ++i) o.sheets.push_back(book.Worksheets(i).Name());
  if (!pasted) return o;
  o.sheet = pasted->Parent().Name();
  o.address = pasted->Address();
  o.charts = probe(pasted->Parent());
  Worksheet& sheet = reread(o.sheet);
  const CellBlock& b = pasted->block();
  o.values = Range(sheet, b).Values();
  for (std::int32_t r = b.top; r <= b.bottom; ++r)
    for (std::int32_t c = b.left; c <= b.right; ++c) o.formats.push_back(sheet.cellFormat(r, c));
  for (std::int32_t c = b.left; c <= b.right; ++c) o.widths.push_back(sheet.columnWidth(c));
  for (ProbedChart& chart : o.charts) {
    chart.left = anchorColumn(sheet, chart.left);
    chart.top -= sheet.rowTop(b.top);
  }
  return o;
}

template <class Run>
void runCatching(Outcome& o, Run&& run) {
  try {
    run();
  } catch (const ComponentError& e) {
    o.error = e.number();
    o.source = e.source();
    o.description = e.description();
  }
}

Outcome inMemory(const std::filesystem::path& file, const Analysis& analysis) {
  InMemoryApplication app;
  Workbook& book = loadWorkbook(app, file);
  HostSession::Attach(&app);
  Outcome o;
  runCatching(o, [&] {
    const std::optional<Range> pasted = analysis();
    o = collect(pasted, book, probeInMemory,
                [&](const std::string& name) -> Worksheet& { return book.Worksheets(name); });
  });
  HostSession::Attach(nullptr);
  return o;
}

Outcome live(const std::filesystem::path& file, const Analysis& analysis) {
  const calc::OfficeConnection& office = OfficeEnvironment::connection();
  const auto document = office.load(file, "", "");
  Outcome o;
  {
    calc::CalcApplication app(office.context());
    Workbook& book = app.openWorkbook(document, file.filename().string());
    HostSession::Attach(&app);
    runCatching(o, [&] {
      const std::optional<Range> pasted = analysis();
      app.finishCall();
      // Cells and formats are read back through new host objects: what the office holds.
      calc::CalcApplication again(office.context());
      Workbook& fresh = again.openWorkbook(document, file.filename().string() + " again");
      o = collect(pasted, book, probeLive,
                  [&](const std::string& name) -> Worksheet& { return fresh.Worksheets(name); });
    });
    HostSession::Attach(nullptr);
  }
  css::uno::Reference<css::util::XCloseable>(document, css::uno::UNO_QUERY_THROW)->close(true);
  return o;
}

bool sameNumber(double a, double b) { return std::fabs(a - b) <= 1e-12 * std::max({1.0, std::fabs(a), std::fabs(b)}); }

void expectSame(const Outcome& memory, const Outcome& calc) {
  EXPECT_EQ(calc.error, memory.error);
  EXPECT_EQ(calc.source, memory.source);
  EXPECT_EQ(calc.description, memory.description);
  EXPECT_EQ(calc.sheets, memory.sheets);
  EXPECT_EQ(calc.sheet, memory.sheet);
  EXPECT_EQ(calc.address, memory.address);
  ASSERT_EQ(calc.values.rows(), memory.values.rows());
  ASSERT_EQ(calc.values.columns(), memory.values.columns());
  for (std::int32_t r = 1; r <= memory.values.rows(); ++r) {
    for (std::int32_t c = 1; c <= memory.values.columns(); ++c) {
      const CellValue& m = memory.values(r, c);
      const CellValue& l = calc.values(r, c);
      SCOPED_TRACE("cell (" + std::to_string(r) + ", " + std::to_string(c) + ") " + describe(m));
      if (m.isNumber() && l.isNumber()) {
        EXPECT_TRUE(sameNumber(m.number(), l.number())) << describe(l);
      } else {
        EXPECT_EQ(l, m);
      }
      const std::size_t i = static_cast<std::size_t>((r - 1) * memory.values.columns() + (c - 1));
      EXPECT_EQ(calc.formats[i], memory.formats[i]);
    }
  }
  // Column widths: the same on a sheet of the run's own. On the data's sheets the office's
  // standard columns are wider than the in-memory host's, so it widens fewer of them; no column
  // is narrower there.
  ASSERT_EQ(calc.widths.size(), memory.widths.size());
  const bool ownSheet = std::find(kDataSheets.begin(), kDataSheets.end(), memory.sheet) == kDataSheets.end();
  for (std::size_t c = 0; c < memory.widths.size(); ++c) {
    SCOPED_TRACE("width of the block's column " + std::to_string(c + 1));
    if (ownSheet) {
      EXPECT_NEAR(calc.widths[c], memory.widths[c], 0.05);
    } else {
      EXPECT_GE(calc.widths[c], memory.widths[c] - 0.05);
    }
  }
  ASSERT_EQ(calc.charts.size(), memory.charts.size());
  for (std::size_t i = 0; i < memory.charts.size(); ++i) expectSameChart(memory.charts[i], calc.charts[i]);
}

// The shared workbook: heights of three groups, homing angles of two lofts, and a survey of
// colours and times with bins and pre-counted frequencies.
std::filesystem::path writeWorkbook(const std::filesystem::path& folder) {
  InMemoryApplication app;
  InMemoryWorkbook& book = app.AddWorkbook("shared.xlsx", kDataSheets);
  std::mt19937 random(20240601);  // fixed seed: the same data every run
  std::normal_distribution<double> height(21.5, 1.7);
  InMemoryWorksheet& heights = book.Worksheets("Heights");
  const char* groups[] = {"Control", "Fertiliser", "Shade"};
  for (std::int32_t c = 1; c <= 3; ++c) {
    heights.storeRaw(1, c, groups[c - 1]);
    for (std::int32_t r = 2; r <= 13; ++r) heights.storeRaw(r, c, std::round((height(random) + 3 * (c - 1)) * 10) / 10);
  }
  InMemoryWorksheet& angles = book.Worksheets("Angles");
  angles.storeRaw(1, 1, "Kestrel");
  angles.storeRaw(1, 2, "Millbrook");
  std::uniform_int_distribution<int> spread(0, 70);
  for (std::int32_t r = 2; r <= 16; ++r) {
    angles.storeRaw(r, 1, static_cast<double>((330 + spread(random)) % 360));
    angles.storeRaw(r, 2, static_cast<double>(100 + spread(random)));
  }
  InMemoryWorksheet& survey = book.Worksheets("Survey");
  const char* colours[] = {"red", "blue", "green", "blue", "red", "blue"};
  std::exponential_distribution<double> time(1.0 / 120);
  survey.storeRaw(1, 1, "Colour");
  survey.storeRaw(1, 2, "Time (ms)");
  for (std::int32_t r = 2; r <= 31; ++r) {
    survey.storeRaw(r, 1, colours[(r * 7) % 6]);
    survey.storeRaw(r, 2, std::round(time(random)));
  }
  survey.storeRaw(1, 4, "Bins");
  survey.storeRaw(1, 5, "Counts");
  for (std::int32_t r = 2; r <= 8; ++r) {
    survey.storeRaw(r, 4, (r - 2) * 50.0);
    survey.storeRaw(r, 5, static_cast<double>((r * 5) % 11));
  }
  const auto path = folder / "shared.xlsx";
  writeNewWorkbook(book, path);
  return path;
}

// An analysis of class A set up by `setUp`, then Results(overWrite); the block it pasted.
template <class A>
Analysis analysis(std::function<void(A&)> setUp, bool overWrite = false) {
  return [setUp, overWrite] {
    A a;
    setUp(a);
    a.Results(overWrite);
    return a.pastedBlock();
  };
}

// `charts` and `fails` are what the in-memory host must show, so that agreement between the
// hosts is not agreement on nothing.
struct Case {
  const char* what;
  Analysis run;
  std::size_t charts = 0;
  bool fails = false;
};

const std::vector<Case>& cases() {
  static const std::vector<Case> all = {
      {"describe: every statistic, headers, a new sheet", analysis<clsDS>([](clsDS& ds) {
         ds.Headers(true);
         for (auto set :
              {&clsDS::GetMean, &clsDS::GetMedian, &clsDS::GetMode, &clsDS::GetSE, &clsDS::GetSD, &clsDS::GetVariance,
               &clsDS::GetCV, &clsDS::GetCL, &clsDS::GetSum, &clsDS::GetSkewness, &clsDS::GetKurtosis, &clsDS::GetMin,
               &clsDS::GetMax, &clsDS::GetCount, &clsDS::GetRange, &clsDS::GetPercentile})
           (ds.*set)(true);
         ds.InputRange("Heights!A1:C13");
       })},
      {"describe: k-th values, 10th percentiles, 99% limits, two areas without headers", analysis<clsDS>([](clsDS& ds) {
         ds.GetLargest(true);
         ds.Largest(2);
         ds.GetSmallest(true);
         ds.Smallest(3);
         ds.GetPercentile(true);
         ds.Percentile(10);
         ds.GetCL(true);
         ds.CL(99);
         ds.InputRange("Heights!A2:A13,C2:C13");
         ds.OutputRange("Heights!F20");
       })},
      {"describe: box plot and error plot of standard errors, on the data's sheet", analysis<clsDS>([](clsDS& ds) {
         ds.Headers(true);
         ds.PlotBox(true);
         ds.PlotError(true);
         ds.BoxTitle("Heights");
         ds.BoxYTitle("cm");
         ds.ErrorTitle("Means");
         ds.ErrorCentre("Mean");
         ds.ErrorError("Standard Error");
         ds.InputRange("Heights!A1:C13");
         ds.OutputRange("Heights!F2");
       }),
       2},
      {"describe: error plots of literal amounts (confidence limits, ranges about the median)",
       analysis<clsDS>(
           [](clsDS& ds) {
             ds.Headers(true);
             ds.PlotError(true);
             ds.ErrorCentre("Median");
             ds.ErrorError("Confidence Limits");
             ds.InputRange("Heights!A1:C13");
             ds.Results();
             ds.ErrorError("Range");
             ds.ErrorYTitle("cm");
           },
           true),  // the same output place, overwritten
       2},
      {"describe: a text among the numbers fails alike",
       analysis<clsDS>([](clsDS& ds) { ds.InputRange("Survey!A1:B31"); }), 0, true},
      {"circular: every statistic with the scatter plots", analysis<clsDSCirc>([](clsDSCirc& circ) {
         circ.Headers(true);
         for (auto set : {&clsDSCirc::GetMean, &clsDSCirc::GetMeanVector, &clsDSCirc::GetAngularSD,
                          &clsDSCirc::GetAngularVar, &clsDSCirc::GetCircularSD, &clsDSCirc::GetCircularVar,
                          &clsDSCirc::GetCL, &clsDSCirc::GetCount, &clsDSCirc::GetRayleigh})
           (circ.*set)(true);
         circ.Plot(true);
         circ.InputRange("Angles!A1:B16");
       }),
       2},
      {"circular: the default rows, no headers, an occupied output refused", analysis<clsDSCirc>([](clsDSCirc& circ) {
         circ.InputRange("Angles!B2:B16");
         circ.OutputRange("Angles!A5");
       }),
       0, true},
      {"frequency: raw numbers", analysis<clsFreq>([](clsFreq& freq) {
         freq.Headers(true);
         freq.InputRange("Survey!B1:B31");
       })},
      {"frequency: nominal items", analysis<clsFreq>([](clsFreq& freq) {
         freq.Headers(true);
         freq.DataType(ORVDescriptivesFreqNominal);
         freq.InputRange("Survey!A1:A31");
       })},
      {"frequency: given bins with the raw table and a histogram with both curves",
       analysis<clsFreq>([](clsFreq& freq) {
         freq.Headers(true);
         freq.InputRange("Survey!B1:B31");
         freq.BinRange("Survey!D1:D8");
         freq.ShowRawData(true);
         freq.PlotHistogram(true);
         freq.PlotCumulative(true);
         freq.HistogramTitle("Times");
         freq.HistogramXTitle("ms");
         freq.HistogramYTitle("n");
       }),
       1},
      {"frequency: proposed bins, labelled by their start points", analysis<clsFreq>([](clsFreq& freq) {
         freq.Headers(true);
         freq.InputRange("Survey!B1:B31");
         freq.PlotHistogram(true);
         freq.PlotNormal(false);
         freq.CategoryStartPoint(true);
         freq.OutputRange("Survey!H1");
       }),
       1},
      {"frequency: pre-counted bins", analysis<clsFreq>([](clsFreq& freq) {
         freq.Headers(true);
         freq.BinRange("Survey!D1:D8");
         freq.FrequencyRange("Survey!E1:E8");
         freq.PlotHistogram(true);
       }),
       1},
      {"describe with textbook arithmetic: every statistic, 1st and 99th percentiles", analysis<clsDS>([](clsDS& ds) {
         ds.Headers(true);
         ds.Textbook(true);
         for (auto set : {&clsDS::GetMean, &clsDS::GetSD, &clsDS::GetSkewness, &clsDS::GetKurtosis,
                          &clsDS::GetPercentile, &clsDS::GetCount})
           (ds.*set)(true);
         ds.Percentile(1);
         ds.InputRange("Heights!A1:C13");
       })},
      {"circular with textbook arithmetic: mean angle and Rayleigh's test", analysis<clsDSCirc>([](clsDSCirc& circ) {
         circ.Headers(true);
         circ.Textbook(true);
         circ.GetMean(true);
         circ.GetRayleigh(true);
         circ.InputRange("Angles!A1:B16");
       })},
      {"frequency with textbook arithmetic: given bins over a range with empty cells",
       analysis<clsFreq>([](clsFreq& freq) {
         freq.Headers(true);
         freq.Textbook(true);
         freq.InputRange("Survey!B1:B40");
         freq.BinRange("Survey!D1:D8");
       })},
  };
  return all;
}

class Equivalence : public ::testing::TestWithParam<std::size_t> {
 protected:
  static void SetUpTestSuite() {
    folder_ = std::filesystem::temp_directory_path() / ("orvella-equivalence-" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder_);
    file_ = writeWorkbook(folder_);
  }
  static void TearDownTestSuite() { std::filesystem::remove_all(folder_); }
  static inline std::filesystem::path folder_, file_;
};

TEST_P(Equivalence, BothHostsGiveTheSameResult) {
  const Case& c = cases()[GetParam()];
  SCOPED_TRACE(c.what);
  const Outcome memory = inMemory(file_, c.run);
  EXPECT_EQ(memory.error != 0, c.fails) << memory.description;
  EXPECT_EQ(memory.charts.size(), c.charts);
  expectSame(memory, live(file_, c.run));
}

INSTANTIATE_TEST_SUITE_P(Analyses, Equivalence, ::testing::Range<std::size_t>(0, cases().size()));

}  // namespace
}  // namespace orv::test
