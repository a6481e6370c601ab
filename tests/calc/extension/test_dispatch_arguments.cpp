// Dispatch arguments as macros pass them: loosely typed, checked against the option they name.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "calc/extension/dispatch_arguments.h"

namespace orv::extension {
namespace {

struct Accepted {
  Command command;
  Argument argument;
  OptionValue expected;
};

TEST(DispatchArguments, ValuesTakenInTheFormsMacrosPassThem) {
  const std::vector<Accepted> cases = {
      {Command::Describe, {"GetMean", true}, true},
      {Command::Describe, {"CL", std::int64_t{99}}, std::int64_t{99}},
      {Command::Describe, {"CL", std::int64_t{0}}, std::int64_t{0}},
      {Command::Describe, {"CL", std::int64_t{255}}, std::int64_t{255}},
      // A Basic Double without a fraction is a whole number.
      {Command::Describe, {"Percentile", 10.0}, std::int64_t{10}},
      {Command::Describe, {"Largest", std::int64_t{-2147483648LL}}, std::int64_t{-2147483648LL}},
      {Command::Describe, {"Smallest", std::int64_t{2147483647}}, std::int64_t{2147483647}},
      {Command::Describe, {"ErrorError", std::string("Anything")}, std::string("Anything")},
      {Command::Describe, {"InputRange", std::string("'My data'!A1:A9")}, std::string("'My data'!A1:A9")},
      {Command::Describe, {"OverWrite", true}, true},
      {Command::Frequency, {"DataType", std::int64_t{1}}, std::int64_t{1}},
      {Command::Frequency, {"DataType", std::string("ORVDescriptivesFreqNominal")}, std::int64_t{1}},
      {Command::Frequency, {"DataType", std::string("ORVDescriptivesFreqNumerical")}, std::int64_t{0}},
      {Command::Circular, {"CL", 90.0}, std::int64_t{90}},
  };
  for (const Accepted& c : cases) {
    const CommandInfo& command = commandInfo(c.command);
    SCOPED_TRACE(std::string(command.name) + " " + c.argument.name);
    const OptionValues values = optionValuesOf(command, {c.argument});
    ASSERT_EQ(values.size(), 1U);
    EXPECT_EQ(values.at(c.argument.name), c.expected);
  }
}

// The message refusing one argument, or "accepted".
std::string refusal(Command command, const Argument& argument) {
  try {
    optionValuesOf(commandInfo(command), {argument});
  } catch (const ArgumentError& e) {
    return e.what();
  }
  return "accepted";
}

TEST(DispatchArguments, AValueThatDoesNotFitIsRefusedByName) {
  // Each message reads "The argument <name> of vnd.orvella:<command> takes <what>".
  const struct {
    Command command;
    Argument argument;
    std::string takes;
  } cases[] = {
      {Command::Describe, {"CL", std::int64_t{256}}, "a whole number from 0 to 255, not the whole number 256."},
      {Command::Describe, {"Percentile", std::int64_t{-1}}, "a whole number from 0 to 255, not the whole number -1."},
      {Command::Describe, {"Percentile", 12.5}, "a whole number from 0 to 255, not the number 12.5."},
      {Command::Describe,
       {"Largest", std::int64_t{2147483648LL}},
       "a whole number from -2147483648 to 2147483647, not the whole number 2147483648."},
      {Command::Describe, {"GetMean", std::int64_t{1}}, "True or False, not the whole number 1."},
      {Command::Describe, {"Headers", std::monostate()}, "True or False, not nothing."},
      {Command::Describe, {"InputRange", 3.0}, "a reference text, not the number 3."},
      {Command::Describe, {"BoxTitle", true}, "a text, not a Boolean."},
      {Command::Describe, {"OutputRange", OtherType{"[]long"}}, "a reference text, not a value of type []long."},
      {Command::Frequency,
       {"DataType", std::int64_t{2}},
       "0 (ORVDescriptivesFreqNumerical) or 1 (ORVDescriptivesFreqNominal), not the whole number 2."},
      {Command::Frequency,
       {"DataType", std::string("Nominal")},
       "0 (ORVDescriptivesFreqNumerical) or 1 (ORVDescriptivesFreqNominal), not the text \"Nominal\"."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.argument.name);
    EXPECT_EQ(refusal(c.command, c.argument), "The argument " + c.argument.name + " of vnd.orvella:" +
                                                  std::string(commandInfo(c.command).name) + " takes " + c.takes);
  }
  // An unknown name is refused with every name the command takes: the public properties of its class
  // in their member order. Names are case-sensitive like the properties; CL of the circular class,
  // not Percentile; the histogram's Plot*, not the circular Plot.
  EXPECT_EQ(refusal(Command::Describe, {"getmean", true}),
            "vnd.orvella:Describe has no argument named \"getmean\"; it takes Headers, GetMean, GetMedian, GetMode, "
            "GetSE, GetSD, GetVariance, GetCV, GetCL, GetSum, GetSkewness, GetKurtosis, GetMin, GetMax, GetCount, "
            "GetLargest, GetSmallest, GetRange, GetPercentile, PlotBox, PlotError, InputRange, OutputRange, CL, "
            "Percentile, Largest, Smallest, BoxTitle, BoxYTitle, ErrorTitle, ErrorYTitle, ErrorCentre, ErrorError, "
            "OutputFrequencies, Textbook, OverWrite.");
  EXPECT_EQ(refusal(Command::Circular, {"Percentile", std::int64_t{10}}),
            "vnd.orvella:Circular has no argument named \"Percentile\"; it takes Headers, GetMean, GetMeanVector, "
            "GetCount, GetAngularSD, GetAngularVar, GetCircularSD, GetCircularVar, GetRayleigh, GetCL, Plot, "
            "InputRange, OutputRange, CL, Textbook, OverWrite.");
  EXPECT_EQ(refusal(Command::Frequency, {"Plot", true}),
            "vnd.orvella:Frequency has no argument named \"Plot\"; it takes Headers, DataType, PlotHistogram, "
            "PlotNormal, PlotCumulative, HistogramTitle, HistogramXTitle, HistogramYTitle, CategoryStartPoint, "
            "ShowRawData, DataInRows, Textbook, InputRange, FrequencyRange, BinRange, OutputRange, OverWrite.");
}

TEST(DispatchArguments, ALaterArgumentReplacesAnEarlierOne) {
  const OptionValues values = optionValuesOf(commandInfo(Command::Describe),
                                             {{"CL", std::int64_t{90}}, {"GetMean", true}, {"CL", std::int64_t{99}}});
  EXPECT_EQ(values.at("CL"), OptionValue(std::int64_t{99}));
  EXPECT_EQ(values.size(), 2U);
}

TEST(DispatchArguments, WhatTheFrameAddsIsNoArgument) {
  // A menu entry dispatches with the key modifier only: that is a call without arguments.
  EXPECT_TRUE(withoutFrameArguments({{"KeyModifier", std::int64_t{0}}}).empty());
  const std::vector<Argument> left =
      withoutFrameArguments({{"SynchronMode", true}, {"GetMean", true}, {"Referer", std::string("private:user")}});
  ASSERT_EQ(left.size(), 1U);
  EXPECT_EQ(left[0].name, "GetMean");
}

}  // namespace
}  // namespace orv::extension
