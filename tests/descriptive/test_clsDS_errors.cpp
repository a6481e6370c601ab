// Failure paths of the descriptive driver: numbers, sources, and that nothing is written.

#include "../driver_fixture.h"
#include "descriptive/clsDS.h"

namespace orv::test {
namespace {

constexpr const char* kResultsSource = "Line 0 in ORVDescriptives.clsDS.Results";

TEST_F(DriverTest, MissingOrUnresolvableInput) {
  clsDS ds;
  const ComponentError fromSetter = errorOf([&] { ds.InputRange(""); });
  EXPECT_EQ(fromSetter.number(), -2147216502);
  EXPECT_EQ(fromSetter.description(), "Application-defined or object-defined error");
  const ComponentError bad = errorOf([&] { ds.InputRange("Nowhere!A1"); });
  EXPECT_EQ(bad.number(), err::kHostFailure);
  EXPECT_NE(bad.description().find("Nowhere!A1"), std::string::npos) << bad.description();
  const ComponentError fromResults = errorOf([&] { ds.Results(); });  // neither setter stored anything
  EXPECT_EQ(fromResults.number(), -2147216502);
  EXPECT_EQ(fromResults.source(), kResultsSource);
  EXPECT_EQ(book.WorksheetsCount(), 1);
}

TEST_F(DriverTest, InputFaultsFailTheWholeAnalysisBeforeAnythingIsWritten) {
  column(1, 1, Cells(12, 1.0));
  column(3, 1, Cells(12, 1.0));
  column(2, 1, {1.0, "n/a"});
  const struct {
    const char* input;
    std::int32_t number;
    const char* inDescription;
  } cases[] = {
      {"A1:A10,C1:C12", -2147216466, ""},                   // areas of different heights
      {"Data!B1:B3", err::kInputColumnNotNumeric, "$B$2"},  // names the text's cell
      {"Data!E1:E3", err::kOverflow, "Overflow"},           // empty cells: 0/0 deep in the engine
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.input);
    clsDS ds;
    ds.InputRange(c.input);
    const ComponentError e = errorOf([&] { ds.Results(); });
    EXPECT_EQ(e.number(), c.number);
    EXPECT_EQ(e.source(), kResultsSource);
    EXPECT_NE(e.description().find(c.inDescription), std::string::npos) << e.description();
    EXPECT_EQ(book.WorksheetsCount(), 1);
    EXPECT_FALSE(scratch().usedBlock().has_value());
  }
}

TEST_F(DriverTest, AnOccupiedOutputNeedsOverWrite) {
  column(1, 1, {1.0, 2.0});
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

TEST_F(DriverTest, ComputedBlocksAreKeptAfterAFailureAndDroppedAfterASuccessOrNewInput) {
  column(1, 1, {1.0, 2.0});
  data.storeRaw(1, 2, 10.0);
  clsDS ds;
  ds.InputRange("Data!A1:A2");
  ds.Results();
  // The new sheet became the output place, so a second call finds it occupied ...
  EXPECT_EQ(errorOf([&] { ds.Results(); }).number(), err::kOutputAreaOccupied);
  ds.GetSum(true);
  ds.Results(true);  // ... and keeps the block it computed: the new selection does not show yet
  EXPECT_EQ(book.WorksheetsCount(), 2);
  EXPECT_EQ(lastSheet().cellValue(5, 1), CellValue("Mean"));
  ds.Results(true);
  EXPECT_EQ(lastSheet().cellValue(5, 1), CellValue("Sum"));
  EXPECT_EQ(errorOf([&] { ds.Results(); }).number(), err::kOutputAreaOccupied);
  ds.InputRange("Data!B1");
  ds.Results(true);
  EXPECT_EQ(lastSheet().cellValue(5, 2), CellValue(10.0));
}

}  // namespace
}  // namespace orv::test
