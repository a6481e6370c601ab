#include <gtest/gtest.h>

#include <optional>

#include "frame/range.h"
#include "host_fixture.h"

namespace orv::test {
namespace {

CellFormat withInterior(std::int32_t index) {
  CellFormat f;
  f.interiorColorIndex = index;
  return f;
}

TEST_F(HostTest, PatchesChangeOnlyTheirFieldsAndOnlyTheirCells) {
  const Range block = app.ResolveRange("B2:C3");
  block.SetNumberFormat("0.00");
  block.SetBold(true);
  app.ResolveRange("C3").SetFontSize(14.0);
  CellFormat expected;
  expected.numberFormat = "0.00";
  expected.bold = true;
  EXPECT_EQ(data.cellFormat(2, 2), expected);
  expected.fontSize = 14.0;
  EXPECT_EQ(data.cellFormat(3, 3), expected);
  EXPECT_EQ(data.cellFormat(1, 2), CellFormat{});
  EXPECT_EQ(data.cellFormat(4, 3), CellFormat{});
}

TEST_F(HostTest, WholeSheetFormatsComeUnderCellFormatsAndClearResetsThem) {
  data.assignValue(5, 5, 1.0);
  app.ResolveRange("E5").SetBold(true);
  const Range all = Range::AllCells(data);
  all.SetInteriorColorIndex(2);
  EXPECT_EQ(data.cellFormat(kMaxRows, kMaxColumns), withInterior(2));
  CellFormat boldOnWhite = withInterior(2);
  boldOnWhite.bold = true;
  EXPECT_EQ(data.cellFormat(5, 5), boldOnWhite);
  data.assignValue(9, 9, 6.0);
  app.ResolveRange("B2:C3").Clear();  // a cleared block gets the plain format, not the sheet's
  EXPECT_EQ(data.cellFormat(3, 3), CellFormat{});
  EXPECT_EQ(data.cellFormat(4, 3), withInterior(2));
  all.Clear();
  EXPECT_EQ(data.usedBlock(), std::nullopt);
  EXPECT_EQ(data.cellFormat(5, 5), CellFormat{});
  EXPECT_EQ(data.cellFormat(kMaxRows, kMaxColumns), CellFormat{});
}

TEST_F(HostTest, WholeColumnFormatsComeUnderCellFormats) {
  app.ResolveRange("B7").SetBold(true);
  app.ResolveRange("B:C").SetNumberFormat("0%");
  CellFormat percent;
  percent.numberFormat = "0%";
  EXPECT_EQ(data.cellFormat(kMaxRows, 3), percent);
  EXPECT_EQ(data.cellFormat(1, 4), CellFormat{});
  percent.bold = true;
  EXPECT_EQ(data.cellFormat(7, 2), percent);
  app.ResolveRange("C5").Clear();
  EXPECT_EQ(data.cellFormat(5, 3), CellFormat{});
  EXPECT_EQ(data.cellFormat(6, 3).numberFormat, "0%");
}

TEST_F(HostTest, PasteValuesKeepsTheTargetFormatsAndPasteAllCopiesThem) {
  InMemoryWorksheet& results = app.addInWorkbook().Worksheets("Results");
  Range source(results, CellBlock{1, 1, 2, 2});
  ValueArray2D values(2, 2);
  values(1, 1) = "Mean";
  values(1, 2) = 2.5;
  values(2, 2) = 4.0;
  source.SetValues(values);
  Range(results, CellBlock{1, 2, 2, 2}).SetNumberFormat("0.000");
  EXPECT_EQ(raised([&] { app.ResolveRange("A1").PasteSpecial(PasteType::Values); }).number, 1004);  // empty clipboard
  for (PasteType type : {PasteType::Values, PasteType::All}) {
    SCOPED_TRACE(type == PasteType::All ? "All" : "Values");
    data.clear(CellBlock{1, 1, 10, 10});
    app.ResolveRange("D4").SetBold(true);
    source.Copy();
    app.ResolveRange("D4").PasteSpecial(type);
    ValueArray2D pasted;
    data.readBlock(CellBlock{4, 4, 6, 6}, pasted);
    ValueArray2D expected(3, 3);
    expected(1, 1) = "Mean";
    expected(1, 2) = 2.5;
    expected(2, 2) = 4.0;
    EXPECT_EQ(pasted, expected);
    EXPECT_EQ(data.cellFormat(4, 4).bold, type == PasteType::Values);
    EXPECT_EQ(data.cellFormat(5, 5).numberFormat, type == PasteType::All ? "0.000" : "General");
  }
}

}  // namespace
}  // namespace orv::test
