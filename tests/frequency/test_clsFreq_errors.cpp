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
    const char* what;
    std::function<void(clsFreq&)> set;
    std::int32_t number;
  } cases[] = {
      {"nothing given", [](clsFreq&) {}, err::kNoInputRange},
      {"only frequencies", [](clsFreq& f) { f.FrequencyRange("B1:B5"); }, err::kNoInputRange},
      {"only bins", [](clsFreq& f) { f.BinRange("D1:D3"); }, err::kBinsWithoutFrequencies},
      {"two frequency variables beside data",
       [](clsFreq& f) { f.InputRange("A1:A5"); f.FrequencyRange("B1:C5"); }, err::kFrequencyVariables},
      {"5052 before 5098",
       [](clsFreq& f) { f.InputRange("A1:A5"); f.FrequencyRange("B1:C5"); f.BinRange("D1:E3"); },
       err::kFrequencyVariables},
      {"two bin variables", [](clsFreq& f) { f.InputRange("A1:A5"); f.BinRange("D1:E3"); },
       err::kBinVariables},
      {"two bin variables along rows",
       [](clsFreq& f) { f.DataInRows(true); f.InputRange("A1:E1"); f.BinRange("D1:E2"); },
       err::kBinVariables},
      {"frequencies shorter than the data",
       [](clsFreq& f) { f.InputRange("A1:A5"); f.FrequencyRange("B1:B4"); }, err::kFrequencyShape},
      {"a data area longer than the frequencies",
       [](clsFreq& f) { f.InputRange("A1:A5,C1:C6"); f.FrequencyRange("B1:B5"); },
       err::kFrequencyShape},
      {"pre-counted frequencies longer than the bins",
       [](clsFreq& f) { f.BinRange("D1:D3"); f.FrequencyRange("B1:B4"); }, err::kBinShape},
      {"5097 for any frequency variable",
       [](clsFreq& f) { f.BinRange("D1:D3"); f.FrequencyRange("B1:B3,C1:C4"); }, err::kBinShape},
      {"one bin", [](clsFreq& f) { f.InputRange("A1:A5"); f.BinRange("D1"); }, err::kTooFewBins},
      {"one bin and trailing empty cells",
       [](clsFreq& f) { f.InputRange("A1:A5"); f.BinRange("D3:D9"); }, err::kTooFewBins},
      {"a header and one bin",
       [](clsFreq& f) { f.Headers(true); f.InputRange("A1:A5"); f.BinRange("D1:D2"); },
       err::kTooFewBins},
      {"bins 0, 10, 10", [](clsFreq& f) { f.InputRange("A1:A5"); f.BinRange("E1:E3"); },
       err::kBinsNotIncreasing},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    clsFreq f;
    c.set(f);
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
    std::int32_t number;  // 0: accepted
  } cases[] = {
      {"falling", {10, 0}, err::kBinsNotIncreasing},
      {"an empty cell among them", {0, CellValue(), 10}, err::kBinsNotIncreasing},
      {"a text", {0, "ten"}, err::kBinsNotIncreasing},
      {"a Boolean", {0, true}, err::kBinsNotIncreasing},
      {"equal to four decimals", {0.00001, 0.00002}, err::kBinsNotIncreasing},
      {"texts that read as numbers", {" 0", "10 "}, 0},
      {"empty cells at the end", {0, 10, CellValue(), CellValue()}, 0},
      {"a step of 0.0001", {0, 0.0001}, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    data.clear(CellBlock{1, 8, 10, 8});
    column(8, 1, c.bins);
    clsFreq f;
    f.InputRange("A1:A3");
    f.BinRange("H1:H" + std::to_string(c.bins.size()));
    f.OutputRange("J1");
    if (c.number == 0) {
      f.Results(true);
      EXPECT_EQ(toText(data.cellValue(7, 10)), "0");  // the first bin heads the table
    } else {
      EXPECT_EQ(errorOf([&] { f.Results(true); }).number(), c.number);
    }
  }
}

TEST_F(DriverTest, EngineFaultsReachTheCallerFromResults) {
  column(1, 1, {1, 2});
  column(2, 1, {0, 0});
  clsFreq f;
  f.InputRange("A1:A2");
  f.FrequencyRange("B1:B2");
  const ComponentError zero = errorOf([&] { f.Results(); });
  EXPECT_EQ(zero.number(), err::kOverflow);
  EXPECT_EQ(zero.source(), kResultsSource);

  // Nominal data are counted from data only: pre-counted input has none to count.
  column(4, 1, {0, 10});
  clsFreq nominal;
  nominal.DataType(ORVDescriptivesFreqNominal);
  nominal.BinRange("D1:D2");
  nominal.FrequencyRange("B1:B2");
  EXPECT_EQ(errorOf([&] { nominal.Results(); }).number(), err::kTypeMismatch);
}

TEST_F(DriverTest, SettersReportUnderTheirOwnNamesExceptTheBinRange) {
  clsFreq f;
  const std::vector<std::pair<std::function<void()>, std::string>> cases = {
      {[&] { f.InputRange("Nowhere!A1"); }, "LetInputRange"},
      {[&] { f.FrequencyRange("Nowhere!A1"); }, "LetFrequencyRange"},
      {[&] { f.BinRange("Nowhere!A1"); }, "LetFrequencyRange"},
      {[&] { f.OutputRange("Nowhere!A1"); }, "LetOutputRange"},
  };
  for (const auto& [call, name] : cases) {
    SCOPED_TRACE(name);
    const ComponentError e = errorOf(call);
    EXPECT_EQ(e.number(), err::kHostFailure);
    EXPECT_EQ(e.source(), "Line 0 in ORVDescriptives.clsFreq." + name);
  }
  // Nothing was stored: Results still has no input.
  EXPECT_EQ(errorOf([&] { f.Results(); }).number(), err::kNoInputRange);
}

TEST_F(DriverTest, TheFinishedBlockStaysUntilAnAddressChangesItsText) {
  column(1, 1, {1, 1});
  clsFreq f;
  f.InputRange("A1:A2");
  f.OutputRange("C1");
  f.Results();
  EXPECT_EQ(toText(data.cellValue(6, 3)), "1");

  // The same text keeps the block, even though the data changed and the type did too.
  data.storeRaw(1, 1, 5.0);
  data.storeRaw(2, 1, 5.0);
  f.InputRange("A1:A2");
  f.DataType(ORVDescriptivesFreqNominal);
  f.Results(true);
  EXPECT_EQ(toText(data.cellValue(6, 3)), "1");
  // Another text for the same cells discards it.
  f.InputRange("$A$1:$A$2");
  f.Results(true);
  EXPECT_EQ(toText(data.cellValue(6, 3)), "5");
  EXPECT_EQ(toText(data.cellValue(2, 3)), "Data Range = Data!$A$1:$A$2");
}

TEST_F(DriverTest, AnOccupiedOutputNeedsOverWriteAndTheNewSheetIsReused) {
  column(1, 1, {1, 2});
  clsFreq f;
  f.InputRange("A1:A2");
  f.Results();
  EXPECT_EQ(book.WorksheetsCount(), 2);
  const ComponentError e = errorOf([&] { f.Results(); });
  EXPECT_EQ(e.number(), err::kOutputAreaOccupied);
  EXPECT_EQ(e.source(), kResultsSource);
  f.Results(true);
  EXPECT_EQ(book.WorksheetsCount(), 2);
}

}  // namespace
}  // namespace orv::test
