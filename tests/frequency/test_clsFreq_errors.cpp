// Failure paths of the frequency driver: checks in order, sources, what the finished block survives.

#include <functional>

#include "../driver_fixture.h"
#include "frequency/clsFreq.h"

namespace orv::test {
namespace {

constexpr const char* kResultsSource = "Line 0 in ORVDescriptives.clsFreq.Results";

TEST_F(DriverTest, EachCheckRaisesItsNumberBeforeAnythingIsWritten) {
  column(1, 1, {1, 2, 3, 4, 5});  // A: data; B, C: frequencies; D: bins; E: bins that do not rise
  column(2, 1, {1, 1, 1, 1, 1});
  column(3, 1, {1, 1, 1, 1, 1});
  column(4, 1, {0, 10, 20});
  column(5, 1, {0, 10, 10});
  const struct {
    const char *input, *frequencies, *bins;
    bool headers;
    std::int32_t number;
  } cases[] = {
      {"", "", "", false, err::kNoInputRange},
      {"", "", "D1:D3", false, err::kBinsWithoutFrequencies},
      {"A1:A5", "B1:C5", "D1:E3", false, err::kFrequencyVariables},  // checked before the bins
      {"A1:A5", "", "D1:E3", false, err::kBinVariables},
      {"A1:A5,C1:C6", "B1:B5", "", false, err::kFrequencyShape},  // a data area longer than the weights
      {"", "B1:B4", "D1:D3", false, err::kBinShape},
      {"A1:A5", "", "D1:D2", true, err::kTooFewBins},  // a header and one bin
      {"A1:A5", "", "E1:E3", false, err::kBinsNotIncreasing},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.input << " / " << c.frequencies << " / " << c.bins);
    clsFreq f;
    f.Headers(c.headers);
    if (*c.input) f.InputRange(c.input);
    if (*c.frequencies) f.FrequencyRange(c.frequencies);
    if (*c.bins) f.BinRange(c.bins);
    const ComponentError e = errorOf([&] { f.Results(); });
    EXPECT_EQ(e.number(), c.number);
    EXPECT_EQ(e.source(), kResultsSource);
    EXPECT_EQ(e.description(), "Application-defined or object-defined error");
    EXPECT_EQ(book.WorksheetsCount(), 1);
  }
}

TEST_F(DriverTest, TheBinListMustBeNumbersRisingInFourDecimalSteps) {
  column(1, 1, {1, 2, 3});
  const struct {
    const char* what;
    Cells bins;
    bool accepted;
  } cases[] = {
      {"an empty cell among them", {0, CellValue(), 10}, false},
      {"a text", {0, "ten"}, false},
      {"equal to four decimals", {0.00001, 0.00002}, false},
      {"a step of 0.0001", {0, 0.0001}, true},
      {"texts that read as numbers", {" 0", "10 "}, true},
      {"empty cells at the end", {0, 10, CellValue(), CellValue()}, true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    data.clear(CellBlock{1, 8, 10, 8});
    column(8, 1, c.bins);
    clsFreq f;
    f.InputRange("A1:A3");
    f.BinRange("H1:H" + std::to_string(c.bins.size()));
    f.OutputRange("J1");
    if (c.accepted) {
      f.Results(true);
      EXPECT_EQ(toText(data.cellValue(7, 10)), "0");  // the first bin heads the table
    } else {
      EXPECT_EQ(errorOf([&] { f.Results(true); }).number(), err::kBinsNotIncreasing);
    }
  }
}

TEST_F(DriverTest, EngineAndSetterFaultsReachTheCaller) {
  column(1, 1, {1, 2});
  column(2, 1, {0, 0});
  clsFreq f;
  f.InputRange("A1:A2");
  f.FrequencyRange("B1:B2");
  const ComponentError zero = errorOf([&] { f.Results(); });  // all weights 0: 0/0
  EXPECT_EQ(zero.number(), err::kOverflow);
  EXPECT_EQ(zero.source(), kResultsSource);
  ASSERT_TRUE(f.failure().has_value());  // the variable and the table, beside the error
  EXPECT_EQ(f.failure()->name, "Column A");
  EXPECT_EQ(f.failure()->cells.AddressWithSheet(), "Data!$A$1:$A$2");
  EXPECT_EQ(f.failure()->step, "Frequency Distribution");

  clsFreq g;  // a setter reports under its own name, except the bin range's
  const std::vector<std::pair<std::function<void()>, std::string>> setters = {
      {[&] { g.InputRange("Nowhere!A1"); }, "LetInputRange"},
      {[&] { g.BinRange("Nowhere!A1"); }, "LetFrequencyRange"},
      {[&] { g.OutputRange("Nowhere!A1"); }, "LetOutputRange"},
  };
  for (const auto& [call, name] : setters) {
    const ComponentError e = errorOf(call);
    EXPECT_EQ(e.number(), err::kHostFailure);
    EXPECT_EQ(e.source(), "Line 0 in ORVDescriptives.clsFreq." + name);
  }
  EXPECT_EQ(errorOf([&] { g.Results(); }).number(), err::kNoInputRange);  // nothing was stored
}

TEST_F(DriverTest, TheFinishedBlockStaysUntilAnAddressChangesItsText) {
  column(1, 1, {1, 1});
  clsFreq f;
  f.InputRange("A1:A2");
  f.OutputRange("C1");
  f.Results();
  EXPECT_EQ(errorOf([&] { f.Results(); }).number(), err::kOutputAreaOccupied);
  data.storeRaw(1, 1, 5.0);
  data.storeRaw(2, 1, 5.0);
  f.InputRange("A1:A2");  // the same text keeps the block, though the data and the type changed
  f.DataType(ORVDescriptivesFreqNominal);
  f.Results(true);
  EXPECT_EQ(toText(data.cellValue(6, 3)), "1");
  f.InputRange("$A$1:$A$2");  // another text for the same cells discards it
  f.Results(true);
  EXPECT_EQ(toText(data.cellValue(6, 3)), "5");
}

}  // namespace
}  // namespace orv::test
