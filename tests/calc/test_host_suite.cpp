// What every host must do for the component, run against the in-memory host and the live one.
// A value or format is checked after reread(), so that on the live host it has made the round
// trip through the office and back.

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include "../frame/raised_number.h"
#include "frame/conversions.h"
#include "frame/errors.h"
#include "frame/range.h"
#include "host_under_test.h"

namespace orv::test {
namespace {

template <class Call>
std::string errorText(Call&& call) {
  try {
    call();
  } catch (const ComponentError& e) {
    return e.description();
  }
  return "";
}

class HostSuite : public HostTest {
 protected:
  void SetUp() override { host = GetParam()({"Data", "My data"}); }
  Worksheet& sheet(const char* name = "Data") { return host->book().Worksheets(name); }
};

TEST_P(HostSuite, ValuesComeBackAsTheyWereStored) {
  std::vector<CellValue> values = {1.5, -0.000123,   1e300, 0.0,   "text",     "=1+1 stays text",
                                   "7", "Ünïcödé ✓", true,  false, CellValue{}};
  for (const ErrorValue e : {ErrorValue::Div0, ErrorValue::NA, ErrorValue::Value, ErrorValue::Ref, ErrorValue::Name,
                             ErrorValue::Num, ErrorValue::Null})
    values.push_back(e);
  for (std::size_t i = 0; i < values.size(); ++i) sheet().pasteValue(static_cast<std::int32_t>(i + 2), 2, values[i]);
  for (const bool again : {false, true}) {
    Worksheet& data = (again ? host->reread() : host->book()).Worksheets("Data");
    const ValueArray2D block = Range(data, CellBlock{2, 2, static_cast<std::int32_t>(values.size() + 1), 2}).Values();
    for (std::size_t i = 0; i < values.size(); ++i) {
      SCOPED_TRACE(describe(values[i]));
      EXPECT_EQ(data.cellValue(static_cast<std::int32_t>(i + 2), 2), values[i]);
      EXPECT_EQ(block(static_cast<std::int64_t>(i + 1), 1), values[i]);
    }
  }
}

TEST_P(HostSuite, AssignedTextsThatReadAsNumbersBecomeNumbersUnlessTheCellIsText) {
  const struct {
    CellValue assigned, stored;
  } cases[] = {{"7", 7.0}, {" -2.5e3 ", -2500.0}, {"7x", "7x"}, {"1,5", "1,5"}, {"", CellValue{}}, {3.0, 3.0}};
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    Range(sheet(), CellBlock{static_cast<std::int32_t>(i + 1), 1, static_cast<std::int32_t>(i + 1), 1})
        .SetValue(cases[i].assigned);
  }
  range("C1").SetNumberFormat("@");
  range("C1").SetValue("7");
  EXPECT_EQ(raisedNumber([&] { range("D1").SetValue(std::numeric_limits<double>::quiet_NaN()); }), 1004);
  EXPECT_EQ(raisedNumber([&] { range("D2").SetValue(HUGE_VAL); }), 1004);
  Worksheet& data = host->reread().Worksheets("Data");
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    SCOPED_TRACE(describe(cases[i].assigned));
    EXPECT_EQ(data.cellValue(static_cast<std::int32_t>(i + 1), 1), cases[i].stored);
  }
  EXPECT_EQ(data.cellValue(1, 3), CellValue("7"));
  EXPECT_EQ(data.cellValue(1, 4), CellValue{});
}

TEST_P(HostSuite, BlocksAreWrittenWholeAndPaddedWithNotAvailable) {
  ValueArray2D values(2, 2);
  values(1, 1) = "a";
  values(1, 2) = 1.0;
  values(2, 1) = "b";
  values(2, 2) = 2.0;
  range("B2:D4").SetValues(values);
  range("F1:F2").SetValue(9.0);
  const ValueArray2D back = host->reread().Worksheets("Data").Parent().application().ResolveRange("B2:D4").Values();
  EXPECT_EQ(back(1, 1), CellValue("a"));
  EXPECT_EQ(back(2, 2), CellValue(2.0));
  EXPECT_EQ(back(1, 3), CellValue(ErrorValue::NA));
  EXPECT_EQ(back(3, 1), CellValue(ErrorValue::NA));
  EXPECT_EQ(range("F2").Value(), CellValue(9.0));
  EXPECT_EQ(range("A1").Values().rows(), 1);
}

TEST_P(HostSuite, TheUsedBlockFollowsWritesAndClears) {
  EXPECT_EQ(sheet().usedBlock(), std::nullopt);
  range("C3").SetValue(1.0);
  range("E7").SetValue("x");
  EXPECT_EQ(sheet().usedBlock(), (CellBlock{3, 3, 7, 5}));
  range("E7").Clear();
  EXPECT_EQ(sheet().usedBlock(), (CellBlock{3, 3, 3, 3}));
  EXPECT_EQ(host->reread().Worksheets("Data").usedBlock(), (CellBlock{3, 3, 3, 3}));
  Range::AllCells(sheet()).Clear();
  EXPECT_EQ(sheet().usedBlock(), std::nullopt);
}

TEST_P(HostSuite, FormatsComeBackAsTheyWereSetAndClearGoesBackToTheDefault) {
  const CellFormat standard = sheet().cellFormat(30, 30);
  range("A1:B2").SetNumberFormat("0.00");
  range("A1").SetBold(true);
  range("A2").SetFontSize(14);
  range("B1").SetFontColorIndex(3);
  range("B2").SetInteriorColorIndex(6);
  range("A1:A2").SetHorizontalAlignment(HAlign::Right);
  range("B1").SetHorizontalAlignment(HAlign::Center);
  range("C1").SetNumberFormat("<0");
  range("C2").SetNumberFormat("0\"%\"");
  CellFormat whole = standard;
  whole.numberFormat = "0.000";
  whole.bold = true;
  whole.horizontalAlignment = HAlign::Left;
  sheet().setCellFormat(5, 5, whole);

  Worksheet& data = host->reread().Worksheets("Data");
  CellFormat a1 = standard, a2 = standard, b1 = standard, b2 = standard;
  a1.numberFormat = a2.numberFormat = b1.numberFormat = b2.numberFormat = "0.00";
  a1.bold = true;
  a1.horizontalAlignment = a2.horizontalAlignment = HAlign::Right;
  a2.fontSize = 14;
  b1.fontColorIndex = 3;
  b1.horizontalAlignment = HAlign::Center;
  b2.interiorColorIndex = 6;
  EXPECT_EQ(data.cellFormat(1, 1), a1);
  EXPECT_EQ(data.cellFormat(2, 1), a2);
  EXPECT_EQ(data.cellFormat(1, 2), b1);
  EXPECT_EQ(data.cellFormat(2, 2), b2);
  EXPECT_EQ(data.cellFormat(1, 3).numberFormat, "<0");
  EXPECT_EQ(data.cellFormat(2, 3).numberFormat, "0\"%\"");
  EXPECT_EQ(data.cellFormat(5, 5), whole);

  Range(data, CellBlock{1, 1, 2, 2}).Clear();
  EXPECT_EQ(host->reread().Worksheets("Data").cellFormat(1, 2), standard);
}

// The results writers fill the add-in's sheet and paste the block into the user's workbook.
TEST_P(HostSuite, PastingCopiesFromTheResultsSheetIntoTheUserWorkbook) {
  Worksheet& results = host->app().Workbooks("ORVELLA.XLA").Worksheets("results");
  const Range all = Range::AllCells(results);
  all.Clear();
  all.SetInteriorColorIndex(kColorIndexNone);
  Range(results, CellBlock{1, 1, 1, 1}).SetValue("Mean");
  Range(results, CellBlock{1, 2, 1, 2}).SetValue(2.5);
  Range(results, CellBlock{2, 1, 2, 1}).SetValue("-");
  Range(results, CellBlock{1, 1, 2, 1}).SetBold(true);
  Range(results, CellBlock{1, 2, 1, 2}).SetNumberFormat("0.0");
  const CellFormat label = results.cellFormat(1, 1), number = results.cellFormat(1, 2);
  range("D4").SetNumberFormat("0.000");
  range("D4").SetValue(1.0);

  Range(results, CellBlock{1, 1, 2, 2}).Copy();
  range("C3").PasteSpecial(PasteType::All);
  range("F3").PasteSpecial(PasteType::Values);
  range("J3").PasteSpecial(PasteType::Formats);

  Worksheet& data = host->reread().Worksheets("Data");
  EXPECT_EQ(data.cellValue(3, 3), CellValue("Mean"));
  EXPECT_EQ(data.cellValue(3, 4), CellValue(2.5));
  EXPECT_EQ(data.cellValue(4, 3), CellValue("-"));
  EXPECT_EQ(data.cellValue(4, 4), CellValue{});  // an empty source cell clears its target
  EXPECT_EQ(data.cellFormat(3, 3), label);
  EXPECT_EQ(data.cellFormat(3, 4), number);
  EXPECT_EQ(data.cellValue(3, 7), CellValue(2.5));
  EXPECT_FALSE(data.cellFormat(3, 6).bold);
  EXPECT_EQ(data.cellValue(3, 10), CellValue{});
  EXPECT_TRUE(data.cellFormat(3, 10).bold);
}

TEST_P(HostSuite, NewSheetsStandBeforeTheActiveOneAndMoveToTheEnd) {
  Application& app = host->app();
  Worksheet& added = app.AddWorksheet();
  EXPECT_EQ(added.Name(), "Sheet1");
  EXPECT_EQ(&app.ActiveSheet(), &added);
  Workbook& book = added.Parent();
  EXPECT_EQ(&book, &host->book());
  EXPECT_EQ(book.Worksheets(1).Name(), "Sheet1");
  added.MoveAfter(book.Worksheets(book.WorksheetsCount()));
  EXPECT_EQ(app.AddWorksheet().Name(), "Sheet2");  // before the active, moved one

  Workbook& again = host->reread();
  std::vector<std::string> names;
  for (std::int32_t i = 1; i <= again.WorksheetsCount(); ++i) names.push_back(again.Worksheets(i).Name());
  EXPECT_EQ(names, (std::vector<std::string>{"Data", "My data", "Sheet2", "Sheet1"}));
  EXPECT_EQ(&again.Worksheets("sheet2"), &again.Worksheets(3));
  EXPECT_EQ(raisedNumber([&] { again.Worksheets("Sheet9"); }), 9);
  EXPECT_EQ(raisedNumber([&] { again.Worksheets(5); }), 9);
  EXPECT_EQ(raisedNumber([&] { host->app().Workbooks("Book2.xlsx"); }), 9);
  EXPECT_EQ(host->app().Workbooks("orvella.xla").Worksheets(1).Name(), "Results");
}

TEST_P(HostSuite, OnlyTheActiveSheetTakesASelection) {
  EXPECT_EQ(raisedNumber([&] { range("'My data'!A1").Select(); }), 1004);
  sheet("My data").Activate();
  EXPECT_EQ(&host->app().ActiveSheet(), &sheet("My data"));
  EXPECT_EQ(raisedNumber([&] { range("'My data'!B2:C3,E5").Select(); }), 0);
  EXPECT_EQ(raisedNumber([&] { range("Data!A1").Select(); }), 1004);
  // The add-in workbook never becomes the active workbook while a user workbook is open.
  host->app().Workbooks("Orvella.xla").Activate();
  EXPECT_EQ(&host->app().ActiveWorkbook(), &host->book());
}

// References: t tables (two-tailed 5 %, 10 degrees of freedom: 2.228), the normal table
// (Phi(1.96) = 0.97500), chi-square tables (upper 5 %, 1 degree of freedom: 3.841).
TEST_P(HostSuite, WorksheetFunctionsComputeTheDistributionsAndRefuseBadArguments) {
  WorksheetFunction& f = host->app().worksheetFunction();
  EXPECT_NEAR(f.TInv(0.05, 10), 2.228138851986274, 1e-9);
  EXPECT_NEAR(f.NormDist(1.96, 0, 1, true), 0.9750021048517795, 1e-12);
  EXPECT_NEAR(f.NormDist(0, 0, 1, false), 0.3989422804014327, 1e-12);
  EXPECT_NEAR(f.ChiInv(0.05, 1), 3.841458820694124, 1e-9);
  const struct {
    const char* name;
    std::function<void()> call;
  } faults[] = {{"TInv", [&] { f.TInv(0, 10); }},
                {"TInv", [&] { f.TInv(0.05, 0.5); }},
                {"NormDist", [&] { f.NormDist(1, 0, 0, true); }},
                {"ChiInv", [&] { f.ChiInv(1.5, 1); }}};
  for (const auto& fault : faults) {
    SCOPED_TRACE(fault.name);
    EXPECT_EQ(errorText(fault.call),
              "Unable to get the " + std::string(fault.name) + " property of the WorksheetFunction class");
  }
  range("A1").SetValue("angle");
  range("A2").SetValue(350.0);
  range("A3").SetValue(-0.5);
  range("C1").SetValue(5.0);
  EXPECT_EQ(f.Min(range("A1:A5")), -0.5);
  EXPECT_EQ(f.Max(range("A1:A5,C1")), 350.0);
  EXPECT_EQ(f.Max(range("B1:B9")), 0.0);
  sheet().pasteValue(4, 1, ErrorValue::Div0);
  EXPECT_EQ(raisedNumber([&] { f.Min(range("A1:A5")); }), 1004);
  // From another thread the functions answer exactly when the host says they may be called there.
  std::int32_t fromThread = -1;
  std::thread([&] { fromThread = raisedNumber([&] { f.TInv(0.05, 10); }); }).join();
  EXPECT_EQ(fromThread, f.callableFromAnyThread() ? 0 : 1004);
}

TEST_P(HostSuite, GeometryAddsUpRowsAndColumns) {
  Worksheet& data = sheet();
  const Range block = range("C4:D6");
  EXPECT_DOUBLE_EQ(block.Top(), data.rowHeight(1) + data.rowHeight(2) + data.rowHeight(3));
  EXPECT_DOUBLE_EQ(block.Left(), data.columnWidth(1) + data.columnWidth(2));
  EXPECT_DOUBLE_EQ(block.Width(), data.columnWidth(3) + data.columnWidth(4));
  EXPECT_DOUBLE_EQ(range("A1048576").Top(), data.rowTop(1048576));
  EXPECT_GT(data.rowTop(1048576), 1048575 * 10.0);
  EXPECT_EQ(raisedNumber([&] { range("XFD1").Cells(1, 2); }), 1004);
}

TEST_P(HostSuite, ColumnsTakeWidthsOfTheirOwnAndSaySo) {
  Worksheet& data = sheet();
  const double standard = data.columnWidth(5);
  EXPECT_FALSE(data.columnWidthSet(5));
  const double before = data.columnLeft(7);
  data.setColumnWidth(5, standard + 30.75);  // whole pixels, which every host keeps exactly
  EXPECT_TRUE(data.columnWidthSet(5));
  EXPECT_FALSE(data.columnWidthSet(6));
  EXPECT_DOUBLE_EQ(data.columnWidth(5), standard + 30.75);
  EXPECT_DOUBLE_EQ(data.columnLeft(7), before + 30.75) << "the columns to the right move";
  EXPECT_DOUBLE_EQ(range("F1").Left(), data.columnLeft(5) + standard + 30.75);
  for (const double bad : {-1.0, std::numeric_limits<double>::infinity()}) {
    EXPECT_EQ(raisedNumber([&] { data.setColumnWidth(5, bad); }), 1004) << bad;
  }
  EXPECT_EQ(raisedNumber([&] { data.setColumnWidth(16385, 50); }), 1004);
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Hosts, HostSuite, bothHosts(), hostName);

}  // namespace orv::test
