// The circular driver end to end: written blocks, plot data and positions, errors and sources.

#include "circular/clsDSCirc.h"

#include <cmath>
#include <functional>
#include <numbers>

#include "circular_fixture.h"

namespace orv::test {
namespace {

TEST_F(CircularTest, NothingSelectedWritesTheEightDefaultsAndThePlotDataOnANewLastSheet) {
  const std::vector<double> north = {350, 0, 10, 20, 5}, east = {80, 90, 100};
  column(1, 1, {"North", 350.0, 0.0, 10.0, 20.0, 5.0});
  column(3, 1, {"East", 80.0, 90.0, 100.0});
  clsDSCirc circ;
  circ.Headers(true);
  circ.Plot(true);
  circ.InputRange("Data!A1:A6,C1:C6");
  circ.Results();
  ASSERT_EQ(book.WorksheetsCount(), 2);
  Worksheet& out = lastSheet();
  EXPECT_EQ(down(out, 1, 1, 12), (Cells{"Descriptive Statistics for:",
                                        "Input Range = Data!$A$1:$A$6,$C$1:$C$6",
                                        {},
                                        {},
                                        "Mean Angle",
                                        "Mean Vector",
                                        "Ang. S.D.",
                                        "Ang. Var.",
                                        "Circ. S.D.",
                                        "Circ. Var.",
                                        "95%CL (±)",
                                        "Count"}));
  for (std::int32_t col : {2, 3}) {
    clsDSCircBO bo = engineOf(col == 2 ? north : east);  // the shorter column ends at its first empty cell
    EXPECT_EQ(down(out, col, 4, 12), (Cells{col == 2 ? "North" : "East", bo.Mean(), bo.MeanVector(), bo.AngularSD(),
                                            bo.AngularVar(), bo.CircularSD(), bo.CircularVar(), bo.CL(), bo.Count()}));
  }
  // Asked for afterwards, Rayleigh's test joins the defaults; the plot data follow after a free row.
  circ.GetRayleigh(true);
  circ.Results(true);
  clsDSCircBO bo = engineOf(north);
  EXPECT_EQ(down(out, 1, 13, 14), (Cells{"Rayleigh's Z", "Prob(Z)"}));
  EXPECT_EQ(down(out, 2, 13, 14), (Cells{bo.Rayleigh(), bo.RayleighP()}));
  EXPECT_EQ(lines(out, CellBlock{15, 1, 18, 4}), (Lines{"", "Data for Plots", "North||East", "Sin|Cos|Sin|Cos"}));
  for (std::size_t i = 0; i < north.size(); ++i) {
    SCOPED_TRACE(i);
    const auto row = static_cast<std::int32_t>(19 + i);
    const auto radians = [](double d) { return d * std::numbers::pi / 180.0; };
    EXPECT_EQ(out.cellValue(row, 1), CellValue(std::sin(radians(north[i]))));
    EXPECT_EQ(out.cellValue(row, 2), CellValue(std::cos(radians(north[i]))));
    EXPECT_EQ(out.cellValue(row, 3), i < east.size() ? CellValue(std::sin(radians(east[i]))) : CellValue());
    EXPECT_EQ(out.cellValue(row, 4), i < east.size() ? CellValue(std::cos(radians(east[i]))) : CellValue());
  }
  EXPECT_EQ(out.usedBlock(), (CellBlock{1, 1, 23, 4}));
  EXPECT_EQ(circ.scatterSources()->data.AddressWithSheet(), "Sheet1!$A$19:$D$23");
  EXPECT_EQ(circ.scatterSources()->titles.AddressWithSheet(), "Sheet1!$A$17:$D$17");
}

TEST_F(CircularTest, NoInputAndUnresolvableReferences) {
  column(1, 1, {10.0, 20.0});
  clsDSCirc circ;
  const ComponentError none = errorOf([&] { circ.Results(); });
  EXPECT_EQ(none.number(), -2147216502);
  EXPECT_EQ(none.source(), source("clsDSCirc.Results"));
  const std::pair<std::function<void()>, std::int32_t> rows[] = {
      {[&] { circ.InputRange(""); }, -2147216502},
      {[&] { circ.InputRange("Nowhere!A1:A2"); }, -2147216480},
      {[&] { circ.OutputRange("Nowhere!C1"); }, -2147216503},
  };
  circ.InputRange("Data!A1:A2");
  for (const auto& [set, number] : rows) {
    const ComponentError e = errorOf(set);
    EXPECT_EQ(e.number(), number);
    EXPECT_EQ(e.source(), "ORVDescriptives");  // the setters' own handler adds no procedure
    EXPECT_EQ(e.description(), err::kGenericDescription);
  }
  circ.Results();  // the failed setters changed nothing
  EXPECT_EQ(lastSheet().cellValue(2, 1), CellValue("Input Range = Data!$A$1:$A$2"));
}

// A failure that already names a line gets each procedure's name appended on its way up.
TEST_F(CircularTest, FailuresWriteNothingAndNameTheirSource) {
  const std::string results = source("clsDSCirc.Results"), mean = source("clsDSCircBO.Mean.GetResults.Results");
  const struct {
    Cells cells;  // column B, beside a good column A: every column is tested
    std::int32_t number;
    std::string source;
    std::string failedName, failedCells;  // the column failure recorded beside the error; empty for none
  } rows[] = {
      {{"Bearing", 0.0, 360.5}, -2147216480, results, "", ""},
      {{"Bearing", 10.0, -0.1}, -2147216480, results, "", ""},
      {{400.0, 10.0, 20.0}, -2147216480, results, "", ""},  // a numeric title is tested too
      {{"Bearing", 10.0, "NE"}, err::kInputColumnNotNumeric, source("RangeChecks.CheckInputColumn.Results"), "", ""},
      {{"Bearing", 0.0, 180.0}, err::kDivisionByZero, mean, "Bearing", "Data!$B$2:$B$3"},
      // One data cell, in both columns of A1:B2: no array, and the first column is the one named.
      {{"Bearing", 10.0}, err::kTypeMismatch, mean, "Good", "Data!$A$2"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(::testing::PrintToString(row.cells));
    scratch().clear(CellBlock{1, 1, 40, 20});
    data.clear(CellBlock{1, 1, 40, 20});
    column(1, 1, {"Good", 10.0, 20.0});
    column(2, 1, row.cells);
    clsDSCirc circ;
    circ.Headers(true);
    circ.GetMean(true);
    circ.InputRange("A1:B" + std::to_string(row.cells.size()));
    circ.OutputRange("Data!D1");
    const ComponentError e = errorOf([&] { circ.Results(); });
    EXPECT_EQ(e.number(), row.number);
    EXPECT_EQ(e.source(), row.source);
    EXPECT_EQ(circ.failure().has_value(), !row.failedCells.empty());
    if (circ.failure()) {
      EXPECT_EQ(circ.failure()->name, row.failedName);
      EXPECT_EQ(circ.failure()->cells.AddressWithSheet(), row.failedCells);
      EXPECT_EQ(circ.failure()->step, "Mean Angle");
    }
    EXPECT_FALSE(scratch().usedBlock().has_value());
    EXPECT_TRUE(data.cellValue(1, 4).isEmpty());
  }
  data.storeRaw(3, 2, 360.0);  // the last angle accepted
  clsDSCirc accepted;
  accepted.Headers(true);
  accepted.InputRange("A1:B3");
  accepted.OutputRange("Data!D1");
  accepted.Results();
  EXPECT_EQ(data.cellValue(1, 4), CellValue("Descriptive Statistics for:"));

  InMemoryWorkbook& addIn = app.addInWorkbook();  // no scratch sheet of the expected name
  addIn.renameSheet(addIn.Worksheets("Results"), "Scratch");
  clsDSCirc circ;
  circ.Headers(true);
  circ.InputRange("A1:A3");
  const ComponentError e = errorOf([&] { circ.Results(); });
  EXPECT_EQ(e.number(), err::kSubscriptOutOfRange);
  EXPECT_EQ(e.source(), source("clsDSOutput.Class_Initialize.FormatSimpleResults.GetResults.Results"));
}

}  // namespace
}  // namespace orv::test
