// Failure paths of the descriptive driver: numbers, sources, and that nothing is written.

#include "descriptive/clsDS.h"
#include "driver_fixture.h"

namespace orv::test {
namespace {

constexpr const char* kResultsSource = "Line 0 in ORVDescriptives.clsDS.Results";

TEST_F(DriverTest, MissingInputIs5002) {
  clsDS ds;
  const ComponentError fromSetter = errorOf([&] { ds.InputRange(""); });
  EXPECT_EQ(fromSetter.number(), -2147216502);
  EXPECT_EQ(fromSetter.description(), "Application-defined or object-defined error");

  const ComponentError fromResults = errorOf([&] { ds.Results(); });
  EXPECT_EQ(fromResults.number(), -2147216502);
  EXPECT_EQ(fromResults.source(), kResultsSource);
  EXPECT_EQ(book.WorksheetsCount(), 1);
}

TEST_F(DriverTest, AreasOfDifferentHeightsAre5038BeforeAnythingIsWritten) {
  for (std::int32_t r = 1; r <= 12; ++r) {
    data.storeRaw(r, 1, r);
    data.storeRaw(r, 3, r);
  }
  clsDS ds;
  ds.InputRange("A1:A10,C1:C12");
  const ComponentError e = errorOf([&] { ds.Results(); });
  EXPECT_EQ(e.number(), -2147216466);
  EXPECT_EQ(e.source(), kResultsSource);
  EXPECT_EQ(book.WorksheetsCount(), 1);
  EXPECT_FALSE(app.Workbooks("Orvella.xla").Worksheets("Results").usedBlock().has_value());
}

TEST_F(DriverTest, ATextAmongNumbersIsRefusedNamingTheCell) {
  data.storeRaw(1, 2, 1.0);
  data.storeRaw(2, 2, "n/a");
  clsDS ds;
  ds.InputRange("Data!B1:B3");
  const ComponentError e = errorOf([&] { ds.Results(); });
  EXPECT_EQ(e.number(), err::kInputColumnNotNumeric);
  EXPECT_EQ(e.source(), kResultsSource);
  EXPECT_NE(e.description().find("$B$2"), std::string::npos) << e.description();
  EXPECT_EQ(book.WorksheetsCount(), 1);
}

TEST_F(DriverTest, AnEngineFailureFailsTheWholeAnalysis) {
  // A column of empty cells has no mean: 0/0 is an overflow deep in the engine.
  clsDS ds;
  ds.InputRange("Data!B1:B3");
  const ComponentError e = errorOf([&] { ds.Results(); });
  EXPECT_EQ(e.number(), err::kOverflow);
  EXPECT_EQ(e.description(), "Overflow");
  EXPECT_EQ(e.source(), kResultsSource);
}

TEST_F(DriverTest, AnOccupiedOutputNeedsOverWrite) {
  data.storeRaw(1, 1, 1.0);
  data.storeRaw(2, 1, 2.0);
  data.storeRaw(7, 4, "keep me");
  clsDS ds;
  ds.InputRange("A1:A2");
  ds.OutputRange("C1");
  const ComponentError e = errorOf([&] { ds.Results(); });
  EXPECT_EQ(e.number(), err::kOutputAreaOccupied);
  EXPECT_EQ(e.source(), kResultsSource);
  EXPECT_EQ(data.cellValue(7, 4), CellValue("keep me"));

  ds.Results(true);
  EXPECT_EQ(data.cellValue(5, 3), CellValue("Mean"));
}

TEST_F(DriverTest, ASecondCallPastesAtTheSamePlace) {
  data.storeRaw(1, 1, 1.0);
  data.storeRaw(2, 1, 2.0);
  clsDS ds;
  ds.InputRange("Data!A1:A2");
  ds.Results();
  EXPECT_EQ(book.WorksheetsCount(), 2);
  // The new sheet became the output place; a second call finds it occupied.
  EXPECT_EQ(errorOf([&] { ds.Results(); }).number(), err::kOutputAreaOccupied);
  // The failed call kept its computed block, so a new selection alone does not show ...
  ds.GetSum(true);
  ds.Results(true);
  EXPECT_EQ(book.WorksheetsCount(), 2);
  EXPECT_EQ(lastSheet().cellValue(5, 1), CellValue("Mean"));
  // ... but a completed call drops it, and the next one computes afresh.
  ds.Results(true);
  EXPECT_EQ(lastSheet().cellValue(5, 1), CellValue("Sum"));
}

TEST_F(DriverTest, ABadReferenceFailsInTheSetter) {
  clsDS ds;
  const ComponentError e = errorOf([&] { ds.InputRange("Nowhere!A1"); });
  EXPECT_EQ(e.number(), err::kHostFailure);
  EXPECT_NE(e.description().find("Nowhere!A1"), std::string::npos) << e.description();
  // The setter stored nothing: Results still has no input.
  EXPECT_EQ(errorOf([&] { ds.Results(); }).number(), err::kNoInputRange);
}

TEST_F(DriverTest, CachedBlockIsDroppedWhenTheInputChanges) {
  data.storeRaw(1, 1, 1.0);
  data.storeRaw(1, 2, 10.0);
  clsDS ds;
  ds.GetMean(true);
  ds.InputRange("A1");
  ds.OutputRange("D1");
  ds.Results();
  EXPECT_EQ(data.cellValue(5, 5), CellValue(1.0));
  ds.InputRange("B1");
  ds.Results(true);
  EXPECT_EQ(data.cellValue(5, 5), CellValue(10.0));
}

}  // namespace
}  // namespace orv::test
