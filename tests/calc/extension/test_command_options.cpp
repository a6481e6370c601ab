// The options of the extension's commands: every option reaches its own property, and the
// options a dialog opens with are the ones a new object has. Each case runs the command through
// its table on one in-memory host and the class with its setters called directly on another,
// on the same data, and compares what they leave: the pasted block, the charts beside it and the
// notes on kept arithmetic rules, or the failure.

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "calc/extension/command_options.h"
#include "calc/extension/command_run.h"
#include "circular/clsDSCirc.h"
#include "cli/arithmetic_notes.h"
#include "descriptive/clsDS.h"
#include "frame/conversions.h"
#include "frame/errors.h"
#include "frequency/clsFreq.h"
#include "support/host_session.h"
#include "workbook/in_memory_application.h"

namespace orv::extension {
namespace {

constexpr const char* kInput = "Data!A1:B12";

// A workbook "Book1.xlsx" with numbers in Data!A1:B12 (angles of 0 to 350 degrees), bins in
// D1:D4 and counts in E1:E12, attached for as long as it lives.
struct Host {
  InMemoryApplication app;
  InMemoryWorkbook& book;
  Host() : book(app.AddWorkbook("Book1.xlsx", {"Data"})) {
    InMemoryWorksheet& data = book.Worksheets("Data");
    for (std::int32_t r = 1; r <= 12; ++r) {
      data.storeRaw(r, 1, CellValue(static_cast<double>((r * 37) % 350)));
      data.storeRaw(r, 2, CellValue(static_cast<double>((r * r * 11) % 300 + 5)));
      data.storeRaw(r, 5, CellValue(static_cast<double>(r % 3 + 1)));
    }
    for (std::int32_t r = 1; r <= 4; ++r) data.storeRaw(r, 4, CellValue(static_cast<double>((r - 1) * 100)));
    HostSession::Attach(&app);
  }
  ~Host() { HostSession::Attach(nullptr); }
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;
};

// What a run left, as text: the pasted block row by row, every chart on its sheet and the notes,
// or that it failed.
std::string outcomeOf(const std::optional<Range>& pasted, const std::vector<std::string>& notes) {
  if (!pasted) return "failed";
  std::string text = pasted->AddressWithSheet() + "\n";
  const ValueArray2D values = pasted->Values();
  for (std::int32_t r = 1; r <= values.rows(); ++r) {
    for (std::int32_t c = 1; c <= values.columns(); ++c) text += toText(values(r, c)) + "|";
    text += "\n";
  }
  const auto& sheet = dynamic_cast<const InMemoryWorksheet&>(pasted->Parent());
  for (const ChartModel& chart : sheet.charts()) {
    text += "chart " + chart.title.value_or("-") + " at " + std::to_string(chart.top) + ", " +
            std::to_string(chart.series.size()) + " series;";
    for (const AxisModel& axis : chart.axes) text += " axis " + axis.title.value_or("-");
    text += "\n";
  }
  for (const std::string& note : notes) text += "note: " + note + "\n";
  return text;
}

template <class A>
struct Case {
  OptionValues options;            // given to the command besides the input range
  std::function<void(A&)> direct;  // the same through the class's setters
  bool overWrite = false;          // the direct run's Results(OverWrite)
};

// One case per Boolean option that needs nothing else: the option True, and its setter called.
template <class A>
using Flag = std::pair<const char*, void (A::*)(bool)>;
#define ORV_FLAG(A, name) Flag<A>(#name, &A::name)

template <class A>
void addFlags(std::vector<Case<A>>& cases, std::initializer_list<Flag<A>> flags) {
  for (const auto& [name, set] : flags) cases.push_back({{{name, true}}, [set = set](A& a) { (a.*set)(true); }});
}

template <class A>
std::string runDirectly(const Case<A>& c) {
  Host host;
  A analysis;
  c.direct(analysis);
  try {
    analysis.InputRange(kInput);
    analysis.Results(c.overWrite);
  } catch (const ComponentError&) {
    return "failed";
  }
  std::vector<std::string> notes;
  if constexpr (requires { analysis.notes(); }) {
    for (const ArithmeticNote& note : analysis.notes()) notes.push_back(cli::noteSentence(note));
  }
  return outcomeOf(analysis.pastedBlock(), notes);
}

std::string runThroughTable(Command command, OptionValues options) {
  Host host;
  options.insert_or_assign("InputRange", std::string(kInput));
  const RunOutcome outcome = runCommand(command, options);
  if (!outcome.succeeded) return "failed";
  return outcomeOf(host.app.ResolveRange(outcome.text), outcome.notes);
}

template <class A>
void expectSameRuns(Command command, const std::vector<Case<A>>& cases) {
  std::set<std::string> covered;
  for (const Case<A>& c : cases) {
    std::string names;
    for (const auto& [name, value] : c.options) {
      names += name + " ";
      covered.insert(name);
    }
    SCOPED_TRACE(names);
    EXPECT_EQ(runThroughTable(command, c.options), runDirectly(c));
  }
  for (const PropertyInfo& option : commandInfo(command).options) {
    if (option.name == "InputRange") continue;
    EXPECT_TRUE(covered.contains(std::string(option.name))) << option.name;
  }
}

TEST(CommandOptions, DescribeOptionsReachTheirProperties) {
  using S = std::string;
  std::vector<Case<clsDS>> cases = {
      {initialValues(commandInfo(Command::Describe)), [](clsDS&) {}},
      {{{"GetCL", true}, {"CL", std::int64_t{90}}},
       [](clsDS& a) {
         a.GetCL(true);
         a.CL(90);
       }},
      {{{"GetLargest", true}, {"Largest", std::int64_t{2}}},
       [](clsDS& a) {
         a.GetLargest(true);
         a.Largest(2);
       }},
      {{{"GetSmallest", true}, {"Smallest", std::int64_t{3}}},
       [](clsDS& a) {
         a.GetSmallest(true);
         a.Smallest(3);
       }},
      // The 90th percentile of 12 values lies next to the last one: the kept rule leaves a note.
      {{{"GetPercentile", true}, {"Percentile", std::int64_t{10}}},
       [](clsDS& a) {
         a.GetPercentile(true);
         a.Percentile(10);
       }},
      {{{"PlotBox", true}, {"BoxTitle", S("Box")}, {"BoxYTitle", S("cm")}},
       [](clsDS& a) {
         a.PlotBox(true);
         a.BoxTitle("Box");
         a.BoxYTitle("cm");
       }},
      {{{"PlotError", true},
        {"ErrorTitle", S("Bars")},
        {"ErrorYTitle", S("g")},
        {"ErrorCentre", S("Mean")},
        {"ErrorError", S("Range")}},
       [](clsDS& a) {
         a.PlotError(true);
         a.ErrorTitle("Bars");
         a.ErrorYTitle("g");
         a.ErrorCentre("Mean");
         a.ErrorError("Range");
       }},
      // The 5th percentile of 12 values fails with the kept rules and is the smallest value with
      // textbook arithmetic.
      {{{"Textbook", true}, {"GetKurtosis", true}, {"GetPercentile", true}, {"Percentile", std::int64_t{5}}},
       [](clsDS& a) {
         a.Textbook(true);
         a.GetKurtosis(true);
         a.GetPercentile(true);
         a.Percentile(5);
       }},
      {{{"OutputRange", S("Data!G3")}}, [](clsDS& a) { a.OutputRange("Data!G3"); }},
      // Data!A1 holds data: only with OverWrite does the table go there.
      {{{"OutputRange", S("Data!A1")}, {"OverWrite", true}}, [](clsDS& a) { a.OutputRange("Data!A1"); }, true},
      {{{"OutputRange", S("Data!A1")}, {"OverWrite", false}}, [](clsDS& a) { a.OutputRange("Data!A1"); }},
  };
  addFlags<clsDS>(
      cases, {ORV_FLAG(clsDS, Headers), ORV_FLAG(clsDS, GetMean), ORV_FLAG(clsDS, GetMedian), ORV_FLAG(clsDS, GetMode),
              ORV_FLAG(clsDS, GetSE), ORV_FLAG(clsDS, GetSD), ORV_FLAG(clsDS, GetVariance), ORV_FLAG(clsDS, GetCV),
              ORV_FLAG(clsDS, GetSum), ORV_FLAG(clsDS, GetSkewness), ORV_FLAG(clsDS, GetKurtosis),
              ORV_FLAG(clsDS, GetMin), ORV_FLAG(clsDS, GetMax), ORV_FLAG(clsDS, GetCount), ORV_FLAG(clsDS, GetRange),
              ORV_FLAG(clsDS, OutputFrequencies)});
  expectSameRuns(Command::Describe, cases);
}

TEST(CommandOptions, CircularOptionsReachTheirProperties) {
  std::vector<Case<clsDSCirc>> cases = {
      {initialValues(commandInfo(Command::Circular)), [](clsDSCirc&) {}},
      {{{"GetCL", true}, {"CL", std::int64_t{90}}},
       [](clsDSCirc& a) {
         a.GetCL(true);
         a.CL(90);
       }},
      {{{"Textbook", true}, {"GetMean", true}, {"GetRayleigh", true}},
       [](clsDSCirc& a) {
         a.Textbook(true);
         a.GetMean(true);
         a.GetRayleigh(true);
       }},
      {{{"OutputRange", std::string("Data!G3")}}, [](clsDSCirc& a) { a.OutputRange("Data!G3"); }},
      {{{"OutputRange", std::string("Data!A1")}, {"OverWrite", true}},
       [](clsDSCirc& a) { a.OutputRange("Data!A1"); },
       true},
  };
  addFlags<clsDSCirc>(
      cases, {ORV_FLAG(clsDSCirc, Headers), ORV_FLAG(clsDSCirc, GetMean), ORV_FLAG(clsDSCirc, GetMeanVector),
              ORV_FLAG(clsDSCirc, GetCount), ORV_FLAG(clsDSCirc, GetAngularSD), ORV_FLAG(clsDSCirc, GetAngularVar),
              ORV_FLAG(clsDSCirc, GetCircularSD), ORV_FLAG(clsDSCirc, GetCircularVar), ORV_FLAG(clsDSCirc, GetRayleigh),
              ORV_FLAG(clsDSCirc, Plot)});
  expectSameRuns(Command::Circular, cases);
}

TEST(CommandOptions, FrequencyOptionsReachTheirProperties) {
  using S = std::string;
  std::vector<Case<clsFreq>> cases = {
      {initialValues(commandInfo(Command::Frequency)), [](clsFreq&) {}},
      {{{"DataType", std::int64_t{1}}}, [](clsFreq& a) { a.DataType(ORVDescriptivesFreqNominal); }},
      {{{"PlotHistogram", true},
        {"PlotNormal", false},
        {"PlotCumulative", true},
        {"HistogramTitle", S("H")},
        {"HistogramXTitle", S("x")},
        {"HistogramYTitle", S("n")}},
       [](clsFreq& a) {
         a.PlotHistogram(true);
         a.PlotNormal(false);
         a.PlotCumulative(true);
         a.HistogramTitle("H");
         a.HistogramXTitle("x");
         a.HistogramYTitle("n");
       }},
      {{{"PlotHistogram", true}, {"CategoryStartPoint", true}},
       [](clsFreq& a) {
         a.PlotHistogram(true);
         a.CategoryStartPoint(true);
       }},
      {{{"BinRange", S("Data!D1:D4")}, {"ShowRawData", true}},
       [](clsFreq& a) {
         a.BinRange("Data!D1:D4");
         a.ShowRawData(true);
       }},
      {{{"FrequencyRange", S("Data!E1:E12")}}, [](clsFreq& a) { a.FrequencyRange("Data!E1:E12"); }},
      {{{"Textbook", true}, {"BinRange", S("Data!D1:D4")}},
       [](clsFreq& a) {
         a.Textbook(true);
         a.BinRange("Data!D1:D4");
       }},
      {{{"OutputRange", S("Data!G3")}}, [](clsFreq& a) { a.OutputRange("Data!G3"); }},
      {{{"OutputRange", S("Data!A1")}, {"OverWrite", true}}, [](clsFreq& a) { a.OutputRange("Data!A1"); }, true},
  };
  addFlags<clsFreq>(cases, {ORV_FLAG(clsFreq, Headers), ORV_FLAG(clsFreq, DataInRows)});
  expectSameRuns(Command::Frequency, cases);
}

#undef ORV_FLAG

// The values each option has on a new object, as the classes document their defaults: every
// Boolean False but PlotNormal, every text empty, CL 95, Percentile 25, Largest and Smallest 0,
// DataType numerical; OverWrite False as Results takes it when omitted. The runs above show that
// these values change nothing; this names them, so that a table that agreed with a wrong class
// would still be caught.
TEST(CommandOptions, DialogsOpenWithTheValuesOfANewObject) {
  const std::map<std::string, OptionValue> exceptions = {
      {"Describe.CL", std::int64_t{95}},     {"Describe.Percentile", std::int64_t{25}},
      {"Describe.Largest", std::int64_t{0}}, {"Describe.Smallest", std::int64_t{0}},
      {"Circular.CL", std::int64_t{95}},     {"Frequency.DataType", std::int64_t{0}},
      {"Frequency.PlotNormal", true},
  };
  for (const CommandInfo& command : allCommands()) {
    for (const PropertyInfo& option : command.options) {
      const std::string key = std::string(command.name) + "." + std::string(option.name);
      SCOPED_TRACE(key);
      const auto exception = exceptions.find(key);
      if (exception != exceptions.end()) {
        EXPECT_EQ(option.initial, exception->second);
      } else if (option.kind == Kind::Flag) {
        EXPECT_EQ(option.initial, OptionValue(false));
      } else {
        EXPECT_EQ(option.initial, OptionValue(std::string()));
      }
    }
  }
}

}  // namespace
}  // namespace orv::extension
