#include "calc/extension/command_options.h"

#include <array>
#include <limits>
#include <stdexcept>

#include "circular/clsDSCirc.h"
#include "cli/used_cells.h"
#include "descriptive/clsDS.h"
#include "frequency/clsFreq.h"

namespace orv::extension {
namespace {

// A property setter of an analysis class, by the type it takes; none for OverWrite.
template <class A>
using Setter = std::variant<std::monostate, void (A::*)(bool), void (A::*)(std::uint8_t), void (A::*)(std::int32_t),
                            void (A::*)(const std::string&), void (A::*)(ORVDescriptivesFreqDataType)>;

template <class A>
struct Option {
  PropertyInfo info;
  Setter<A> set;
};

OptionValue text() { return std::string(); }
OptionValue whole(std::int64_t v) { return v; }

// The texts clsDS compares ErrorCentre and ErrorError with; any other text is taken too.
constexpr std::array<std::string_view, 2> kErrorCentres = {"Mean", "Median"};
constexpr std::array<std::string_view, 6> kErrorBars = {"Standard Error", "Standard Deviation",    "Variance",
                                                        "Range",          "Interpercentile Range", "Confidence Limits"};

template <class A>
Option<A> overWrite() {
  return {{kOverWrite, Kind::Flag, false}, {}};
}

const std::vector<Option<clsDS>>& describeOptions() {
  static const std::vector<Option<clsDS>> options = {
      {{"Headers", Kind::Flag, false}, &clsDS::Headers},
      {{"GetMean", Kind::Flag, false}, &clsDS::GetMean},
      {{"GetMedian", Kind::Flag, false}, &clsDS::GetMedian},
      {{"GetMode", Kind::Flag, false}, &clsDS::GetMode},
      {{"GetSE", Kind::Flag, false}, &clsDS::GetSE},
      {{"GetSD", Kind::Flag, false}, &clsDS::GetSD},
      {{"GetVariance", Kind::Flag, false}, &clsDS::GetVariance},
      {{"GetCV", Kind::Flag, false}, &clsDS::GetCV},
      {{"GetCL", Kind::Flag, false}, &clsDS::GetCL},
      {{"GetSum", Kind::Flag, false}, &clsDS::GetSum},
      {{"GetSkewness", Kind::Flag, false}, &clsDS::GetSkewness},
      {{"GetKurtosis", Kind::Flag, false}, &clsDS::GetKurtosis},
      {{"GetMin", Kind::Flag, false}, &clsDS::GetMin},
      {{"GetMax", Kind::Flag, false}, &clsDS::GetMax},
      {{"GetCount", Kind::Flag, false}, &clsDS::GetCount},
      {{"GetLargest", Kind::Flag, false}, &clsDS::GetLargest},
      {{"GetSmallest", Kind::Flag, false}, &clsDS::GetSmallest},
      {{"GetRange", Kind::Flag, false}, &clsDS::GetRange},
      {{"GetPercentile", Kind::Flag, false}, &clsDS::GetPercentile},
      {{"PlotBox", Kind::Flag, false}, &clsDS::PlotBox},
      {{"PlotError", Kind::Flag, false}, &clsDS::PlotError},
      {{"InputRange", Kind::DataRange, text()}, &clsDS::InputRange},
      {{"OutputRange", Kind::OutputRange, text()}, &clsDS::OutputRange},
      {{"CL", Kind::Byte, whole(95)}, &clsDS::CL},
      {{"Percentile", Kind::Byte, whole(25)}, &clsDS::Percentile},
      {{"Largest", Kind::Long, whole(0)}, &clsDS::Largest},
      {{"Smallest", Kind::Long, whole(0)}, &clsDS::Smallest},
      {{"BoxTitle", Kind::Text, text()}, &clsDS::BoxTitle},
      {{"BoxYTitle", Kind::Text, text()}, &clsDS::BoxYTitle},
      {{"ErrorTitle", Kind::Text, text()}, &clsDS::ErrorTitle},
      {{"ErrorYTitle", Kind::Text, text()}, &clsDS::ErrorYTitle},
      {{"ErrorCentre", Kind::Choice, text(), kErrorCentres}, &clsDS::ErrorCentre},
      {{"ErrorError", Kind::Choice, text(), kErrorBars}, &clsDS::ErrorError},
      // Stored and never read by the class.
      {{"OutputFrequencies", Kind::Flag, false, {}, false}, &clsDS::OutputFrequencies},
      {{"Textbook", Kind::Flag, false}, &clsDS::Textbook},
      overWrite<clsDS>(),
  };
  return options;
}

const std::vector<Option<clsDSCirc>>& circularOptions() {
  static const std::vector<Option<clsDSCirc>> options = {
      {{"Headers", Kind::Flag, false}, &clsDSCirc::Headers},
      {{"GetMean", Kind::Flag, false}, &clsDSCirc::GetMean},
      {{"GetMeanVector", Kind::Flag, false}, &clsDSCirc::GetMeanVector},
      {{"GetCount", Kind::Flag, false}, &clsDSCirc::GetCount},
      {{"GetAngularSD", Kind::Flag, false}, &clsDSCirc::GetAngularSD},
      {{"GetAngularVar", Kind::Flag, false}, &clsDSCirc::GetAngularVar},
      {{"GetCircularSD", Kind::Flag, false}, &clsDSCirc::GetCircularSD},
      {{"GetCircularVar", Kind::Flag, false}, &clsDSCirc::GetCircularVar},
      {{"GetRayleigh", Kind::Flag, false}, &clsDSCirc::GetRayleigh},
      {{"GetCL", Kind::Flag, false}, &clsDSCirc::GetCL},
      {{"Plot", Kind::Flag, false}, &clsDSCirc::Plot},
      {{"InputRange", Kind::DataRange, text()}, &clsDSCirc::InputRange},
      {{"OutputRange", Kind::OutputRange, text()}, &clsDSCirc::OutputRange},
      // Stored, but the confidence row is always the 95 % one.
      {{"CL", Kind::Byte, whole(95), {}, false}, &clsDSCirc::CL},
      {{"Textbook", Kind::Flag, false}, &clsDSCirc::Textbook},
      overWrite<clsDSCirc>(),
  };
  return options;
}

const std::vector<Option<clsFreq>>& frequencyOptions() {
  static const std::vector<Option<clsFreq>> options = {
      {{"Headers", Kind::Flag, false}, &clsFreq::Headers},
      {{"DataType", Kind::DataType, whole(ORVDescriptivesFreqNumerical)}, &clsFreq::DataType},
      {{"PlotHistogram", Kind::Flag, false}, &clsFreq::PlotHistogram},
      {{"PlotNormal", Kind::Flag, true}, &clsFreq::PlotNormal},
      {{"PlotCumulative", Kind::Flag, false}, &clsFreq::PlotCumulative},
      {{"HistogramTitle", Kind::Text, text()}, &clsFreq::HistogramTitle},
      {{"HistogramXTitle", Kind::Text, text()}, &clsFreq::HistogramXTitle},
      {{"HistogramYTitle", Kind::Text, text()}, &clsFreq::HistogramYTitle},
      {{"CategoryStartPoint", Kind::Flag, false}, &clsFreq::CategoryStartPoint},
      {{"ShowRawData", Kind::Flag, false}, &clsFreq::ShowRawData},
      {{"DataInRows", Kind::Flag, false}, &clsFreq::DataInRows},
      {{"Textbook", Kind::Flag, false}, &clsFreq::Textbook},
      {{"InputRange", Kind::DataRange, text()}, &clsFreq::InputRange},
      {{"FrequencyRange", Kind::DataRange, text()}, &clsFreq::FrequencyRange},
      {{"BinRange", Kind::DataRange, text()}, &clsFreq::BinRange},
      {{"OutputRange", Kind::OutputRange, text()}, &clsFreq::OutputRange},
      overWrite<clsFreq>(),
  };
  return options;
}

template <class A>
std::vector<PropertyInfo> infosOf(const std::vector<Option<A>>& options) {
  std::vector<PropertyInfo> infos;
  for (const Option<A>& o : options) infos.push_back(o.info);
  return infos;
}

// Calls the setter with the value in the type it takes; the value has the option's kind.
template <class A>
void set(A& analysis, const Option<A>& option, const OptionValue& value, Application& app) {
  std::visit(
      [&](auto setter) {
        using S = decltype(setter);
        if constexpr (std::is_same_v<S, void (A::*)(bool)>) {
          (analysis.*setter)(std::get<bool>(value));
        } else if constexpr (std::is_same_v<S, void (A::*)(std::uint8_t)>) {
          (analysis.*setter)(static_cast<std::uint8_t>(std::get<std::int64_t>(value)));
        } else if constexpr (std::is_same_v<S, void (A::*)(std::int32_t)>) {
          (analysis.*setter)(static_cast<std::int32_t>(std::get<std::int64_t>(value)));
        } else if constexpr (std::is_same_v<S, void (A::*)(ORVDescriptivesFreqDataType)>) {
          (analysis.*setter)(static_cast<ORVDescriptivesFreqDataType>(std::get<std::int64_t>(value)));
        } else if constexpr (std::is_same_v<S, void (A::*)(const std::string&)>) {
          const std::string& given = std::get<std::string>(value);
          if (option.info.kind == Kind::DataRange) {
            if (given.empty()) return;
            (analysis.*setter)(cli::usedCells(app, given));
            return;
          }
          (analysis.*setter)(given);
        }
      },
      option.set);
}

template <class A>
void applyAll(A& analysis, const std::vector<Option<A>>& options, const OptionValues& values, Application& app) {
  for (const Option<A>& option : options) {
    const auto given = values.find(option.info.name);
    if (given != values.end()) set(analysis, option, given->second, app);
  }
}

}  // namespace

const std::vector<CommandInfo>& allCommands() {
  static const std::vector<CommandInfo> commands = {
      {Command::Describe, "Describe", "Descriptive Statistics", "describe", infosOf(describeOptions())},
      {Command::Circular, "Circular", "Circular Statistics", "circular", infosOf(circularOptions())},
      {Command::Frequency, "Frequency", "Frequency Distribution", "frequency", infosOf(frequencyOptions())},
  };
  return commands;
}

const CommandInfo& commandInfo(Command command) { return allCommands().at(static_cast<std::size_t>(command)); }

std::optional<Command> commandNamed(std::string_view name) {
  for (const CommandInfo& c : allCommands()) {
    if (c.name == name) return c.command;
  }
  return std::nullopt;
}

const PropertyInfo* findOption(const CommandInfo& command, std::string_view name) {
  for (const PropertyInfo& p : command.options) {
    if (p.name == name) return &p;
  }
  return nullptr;
}

WholeRange wholeRangeOf(Kind kind) {
  switch (kind) {
    case Kind::Byte: return {0, std::numeric_limits<std::uint8_t>::max()};
    case Kind::Long: return {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()};
    case Kind::DataType: return {ORVDescriptivesFreqNumerical, ORVDescriptivesFreqNominal};
    default: throw std::logic_error("not a whole-number option");
  }
}

OptionValues initialValues(const CommandInfo& command) {
  OptionValues values;
  for (const PropertyInfo& p : command.options) values.emplace(p.name, p.initial);
  return values;
}

void applyOptions(clsDS& analysis, const OptionValues& values, Application& app) {
  applyAll(analysis, describeOptions(), values, app);
}

void applyOptions(clsDSCirc& analysis, const OptionValues& values, Application& app) {
  applyAll(analysis, circularOptions(), values, app);
}

void applyOptions(clsFreq& analysis, const OptionValues& values, Application& app) {
  applyAll(analysis, frequencyOptions(), values, app);
}

bool overWriteOf(const OptionValues& values) {
  const auto given = values.find(kOverWrite);
  return given != values.end() && std::get<bool>(given->second);
}

}  // namespace orv::extension
