// The circular driver end to end: written blocks, plot data and positions, errors and sources.

#include "circular/clsDSCirc.h"

#include <cmath>
#include <functional>
#include <numbers>

#include "circular_fixture.h"

namespace orv::test {
namespace {

const std::vector<double> kNarrow = {10, 20, 30, 40, 50, 60, 70, 80};          // mean 45
const std::vector<double> kWide = {100, 110, 120, 130, 140, 150, 160, 170};    // mean 135
Cells cellsOf(const std::vector<double>& x) { return Cells(x.begin(), x.end()); }

TEST_F(CircularTest, NothingSelectedWritesTheEightDefaultRowsOnANewLastSheet) {
  column(2, 1, cellsOf(kNarrow));
  column(3, 1, cellsOf(kWide));
  clsDSCirc circ;
  circ.InputRange("Data!B1:C8");
  circ.Results();

  ASSERT_EQ(book.WorksheetsCount(), 2);
  Worksheet& out = lastSheet();
  EXPECT_EQ(down(out, 1, 1, 14),
            (Cells{"Descriptive Statistics for:", "Input Range = Data!$B$1:$C$8", {}, {}, "Mean Angle",
                   "Mean Vector", "Ang. S.D.", "Ang. Var.", "Circ. S.D.", "Circ. Var.", "95%CL (±)",
                   "Count", {}, {}}));
  EXPECT_EQ(out.cellValue(4, 2), CellValue("Column B"));
  EXPECT_EQ(out.cellValue(4, 3), CellValue("Column C"));
  for (std::int32_t col : {2, 3}) {
    clsDSCircBO bo = engineOf(col == 2 ? kNarrow : kWide);
    EXPECT_EQ(down(out, col, 5, 12), (Cells{bo.Mean(), bo.MeanVector(), bo.AngularSD(), bo.AngularVar(),
                                            bo.CircularSD(), bo.CircularVar(), bo.CL(), bo.Count()}));
  }
  EXPECT_NEAR(out.cellValue(5, 3).number(), 135.0, 1e-9);
  EXPECT_TRUE(out.cellValue(11, 2).isNumber());  // eight concentrated angles: a half-width
  EXPECT_EQ(out.usedBlock(), (CellBlock{1, 1, 12, 3}));
  EXPECT_EQ(circ.outputRange()->Address(), "$A$1");
  EXPECT_FALSE(circ.scatterSources().has_value());
}

TEST_F(CircularTest, RayleighAloneWritesItsTwoRowsUnderTheColumnTitle) {
  column(1, 1, {"Wind"});
  column(1, 2, cellsOf(kNarrow));
  clsDSCirc circ;
  circ.Headers(true);
  circ.GetRayleigh(true);
  circ.InputRange("A1:A9");
  circ.OutputRange("Data!D2");
  circ.Results();
  clsDSCircBO bo = engineOf(kNarrow);
  EXPECT_EQ(down(data, 4, 2, 9), (Cells{"Descriptive Statistics for:", "Input Range = Data!$A$1:$A$9", {},
                                        {}, "Rayleigh's Z", "Prob(Z)", {}, {}}));
  EXPECT_EQ(down(data, 5, 5, 7), (Cells{"Wind", bo.Rayleigh(), bo.RayleighP()}));
  EXPECT_EQ(data.usedBlock(), (CellBlock{1, 1, 9, 5}));
  EXPECT_EQ(data.selection(), (std::vector<CellBlock>{CellBlock{2, 4, 2, 4}}));
}

TEST_F(CircularTest, PlotDataOverTwoAreasOfDifferentLengths) {
  const Cells north = {"North", 350.0, 0.0, 10.0, 20.0, 5.0};
  const Cells east = {"East", 80.0, 90.0, 100.0};
  column(1, 1, north);
  column(3, 1, east);
  clsDSCirc circ;
  circ.Headers(true);
  circ.GetCount(true);
  circ.Plot(true);
  circ.InputRange("Data!A1:A6,C1:C6");
  circ.OutputRange("Data!F3");
  circ.Results();

  // Scratch rows 10..14 hold the values; pasted at F3 they land two rows down, five across.
  EXPECT_EQ(circ.plotPositions().first, 10);
  EXPECT_EQ(circ.plotPositions().last, 14);
  EXPECT_EQ(down(data, 6, 6, 11), (Cells{{}, "Count", {}, "Data for Plots", "North", "Sin"}));
  EXPECT_EQ(down(data, 7, 6, 11), (Cells{"North", 5.0, {}, {}, {}, "Cos"}));
  EXPECT_EQ(down(data, 8, 6, 11), (Cells{"East", 3.0, {}, {}, "East", "Sin"}));
  EXPECT_EQ(down(data, 9, 10, 11), (Cells{{}, "Cos"}));
  const auto radians = [](const CellValue& d) { return d.number() * std::numbers::pi / 180.0; };
  for (std::size_t i = 1; i <= 5; ++i) {
    SCOPED_TRACE(i);
    const auto row = static_cast<std::int32_t>(11 + i);
    EXPECT_EQ(data.cellValue(row, 6), CellValue(std::sin(radians(north[i]))));
    EXPECT_EQ(data.cellValue(row, 7), CellValue(std::cos(radians(north[i]))));
    // The shorter column is padded with empty cells.
    EXPECT_EQ(data.cellValue(row, 8), i <= 3 ? CellValue(std::sin(radians(east[i]))) : CellValue());
    EXPECT_EQ(data.cellValue(row, 9), i <= 3 ? CellValue(std::cos(radians(east[i]))) : CellValue());
  }
  EXPECT_EQ(data.usedBlock(), (CellBlock{1, 1, 16, 9}));
  ASSERT_TRUE(circ.scatterSources().has_value());
  EXPECT_EQ(circ.scatterSources()->data.AddressWithSheet(), "Data!$F$12:$I$16");
  EXPECT_EQ(circ.scatterSources()->titles.AddressWithSheet(), "Data!$F$10:$I$10");
}

TEST_F(CircularTest, OptionsAcrossCalls) {
  InMemoryWorksheet& other = book.addSheet("Other");
  column(1, 1, cellsOf(kNarrow));
  clsDSCirc circ;
  circ.InputRange("A1:A8");  // on the active sheet, Data
  other.Activate();
  circ.InputRange("A1:A8");  // the same text again: still Data's cells
  circ.OutputRange("Other!A1");
  circ.Results();
  EXPECT_EQ(other.cellValue(2, 1), CellValue("Input Range = Data!$A$1:$A$8"));
  const CellValue cl95 = other.cellValue(11, 2);
  // The eight defaults stay on; the level 90 changes neither the confidence label nor value.
  circ.GetRayleigh(true);
  circ.CL(90);
  circ.Results(true);
  EXPECT_EQ(down(other, 1, 11, 14), (Cells{"95%CL (±)", "Count", "Rayleigh's Z", "Prob(Z)"}));
  EXPECT_EQ(other.cellValue(11, 2), cl95);
  EXPECT_TRUE(cl95.isNumber());
}

TEST_F(CircularTest, NoInputAndUnresolvableReferences) {
  column(1, 1, {10.0, 20.0});
  clsDSCirc circ;
  const ComponentError none = errorOf([&] { circ.Results(); });
  EXPECT_EQ(none.number(), -2147216502);
  EXPECT_EQ(none.source(), source("clsDSCirc.Results"));
  // The range setters' own handler adds no source: the library's name is all there is.
  const std::pair<std::function<void()>, std::int32_t> rows[] = {
      {[&] { circ.InputRange(""); }, -2147216502},
      {[&] { circ.InputRange("Nowhere!A1:A2"); }, -2147216480},
      {[&] { circ.InputRange("A1:"); }, -2147216480},
      {[&] { circ.OutputRange("Nowhere!C1"); }, -2147216503},
  };
  circ.InputRange("Data!A1:A2");
  for (const auto& [set, number] : rows) {
    const ComponentError e = errorOf(set);
    EXPECT_EQ(e.number(), number);
    EXPECT_EQ(e.source(), "ORVDescriptives");
    EXPECT_EQ(e.description(), err::kGenericDescription);
  }
  circ.Results();  // the failed setters changed nothing
  EXPECT_EQ(lastSheet().cellValue(2, 1), CellValue("Input Range = Data!$A$1:$A$2"));
}

TEST_F(CircularTest, AnglesOutside0To360OrUnevenAreasFailBeforeAnythingIsWritten) {
  const std::pair<Cells, bool> rows[] = {
      {{"Bearing", 0.0, 360.0, 90.0}, true},
      {{"over 360", 10.0, 20.0, 30.0}, true},  // a text title is ignored
      {{"Bearing", 0.0, 360.5, 90.0}, false},
      {{"Bearing", 10.0, -0.1, 90.0}, false},
      {{400.0, 10.0, 20.0, 30.0}, false},              // a numeric title is tested too
      {{"Bearing", 10.0, CellValue(), 361.0}, false},  // and cells below the observations
  };
  column(1, 1, {10.0, 20.0, 30.0, 40.0});  // a good first column: the second is tested as well
  for (const auto& [cells, accepted] : rows) {
    SCOPED_TRACE(::testing::PrintToString(cells));
    scratch().clear(CellBlock{1, 1, 40, 20});
    data.clear(CellBlock{1, 2, 40, 20});
    column(2, 1, cells);
    clsDSCirc circ;
    circ.Headers(true);
    circ.InputRange("A1:B4");
    circ.OutputRange("Data!D1");
    if (accepted) {
      circ.Results();
      EXPECT_EQ(data.cellValue(1, 4), CellValue("Descriptive Statistics for:"));
      continue;
    }
    const ComponentError e = errorOf([&] { circ.Results(); });
    EXPECT_EQ(e.number(), -2147216480);
    EXPECT_EQ(e.source(), source("clsDSCirc.Results"));
    EXPECT_FALSE(scratch().usedBlock().has_value());
    EXPECT_TRUE(data.cellValue(1, 4).isEmpty());
  }
  // Areas of different heights are 5038, but only after their values passed.
  data.clear(CellBlock{1, 1, 40, 20});
  column(1, 1, Cells(20, 10.0));
  column(3, 1, Cells(21, 20.0));
  clsDSCirc circ;
  circ.InputRange("A1:A20,C1:C21");
  const ComponentError e = errorOf([&] { circ.Results(); });
  EXPECT_EQ(e.number(), -2147216466);
  EXPECT_EQ(e.source(), source("clsDSCirc.Results"));
  EXPECT_FALSE(scratch().usedBlock().has_value());
  data.storeRaw(5, 3, 400.0);
  EXPECT_EQ(errorOf([&] { circ.Results(); }).number(), err::kCircularInput);
}

// A failure that already names a line gets each procedure's name appended on its way up.
TEST_F(CircularTest, SourcesOfFailuresBelowTheDriver) {
  const struct {
    Cells cells;  // column A from row 1
    bool headers;
    std::int32_t number;
    std::string source;
  } rows[] = {
      {{0.0, 180.0}, false, err::kDivisionByZero, source("clsDSCircBO.Mean.GetResults.Results")},
      // One data cell under the title: no array.
      {{"Bearing", 10.0}, true, err::kTypeMismatch, source("clsDSCircBO.Mean.GetResults.Results")},
      {{10.0, "NE"}, false, err::kInputColumnNotNumeric, source("RangeChecks.CheckInputColumn.Results")},
      {{ErrorValue::NA, 10.0}, true, err::kHostFailure, source("clsDSCirc.Results")},  // Min fails
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.source);
    column(1, 1, row.cells);
    clsDSCirc circ;
    circ.GetMean(true);
    circ.Headers(row.headers);
    circ.InputRange("A1:A2");
    const ComponentError e = errorOf([&] { circ.Results(); });
    EXPECT_EQ(e.number(), row.number);
    EXPECT_EQ(e.source(), row.source);
  }
  column(1, 1, {10.0, 20.0});
  InMemoryWorkbook& addIn = app.addInWorkbook();
  addIn.renameSheet(addIn.Worksheets("Results"), "Scratch");
  clsDSCirc circ;
  circ.InputRange("A1:A2");
  const ComponentError e = errorOf([&] { circ.Results(); });
  EXPECT_EQ(e.number(), err::kSubscriptOutOfRange);
  EXPECT_EQ(e.source(), source("clsDSOutput.Class_Initialize.FormatSimpleResults.GetResults.Results"));
}

}  // namespace
}  // namespace orv::test
