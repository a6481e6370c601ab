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

TEST_F(DriverTest, AFailingColumnIsRecordedBesideTheUnchangedError) {
  column(1, 1, {"Long", 1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0, 10.0, 11.0, 12.0});
  column(2, 1, {"Short", 1.0, 2.0, 3.0, 4.0});
  data.storeRaw(1, 3, "Empty");
  const struct {
    const char* input;
    std::uint8_t percentile;
    std::int32_t number;
    const char* name;
    const char* cells;
    const char* step;
  } cases[] = {
      {"A1:B13", 10, err::kSubscriptOutOfRange, "Short", "Data!$B$2:$B$13", "10th Percentile"},
      {"A1:C13", 25, err::kOverflow, "Empty", "Data!$C$2:$C$13", "Mean"},  // 0/0
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.input);
    clsDS ds;
    ds.Headers(true);
    ds.GetMean(true);
    ds.GetPercentile(true);
    ds.Percentile(c.percentile);
    ds.InputRange(c.input);
    const ComponentError e = errorOf([&] { ds.Results(); });
    EXPECT_EQ(e.number(), c.number);
    EXPECT_EQ(e.source(), kResultsSource);
    EXPECT_EQ(e.description(), err::standardDescription(c.number));
    ASSERT_TRUE(ds.failure().has_value());
    EXPECT_EQ(ds.failure()->name, c.name);
    EXPECT_EQ(ds.failure()->cells.AddressWithSheet(), c.cells);
    EXPECT_EQ(ds.failure()->step, c.step);
  }
  clsDS fine;
  fine.InputRange("A2:A13");
  fine.Results();
  EXPECT_FALSE(fine.failure().has_value());
}

}  // namespace
}  // namespace orv::test
