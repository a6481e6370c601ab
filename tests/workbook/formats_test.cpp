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
  EXPECT_EQ(data.cellFormat(1, 1), CellFormat{});
  EXPECT_EQ(data.cellFormat(1, 1).numberFormat, "General");
  const Range block = app.ResolveRange("B2:C3");
  block.SetNumberFormat("0.00");
  block.SetBold(true);
  app.ResolveRange("C3").SetFontSize(14.0);

  CellFormat expected;
  expected.numberFormat = "0.00";
  expected.bold = true;
  EXPECT_EQ(data.cellFormat(2, 2), expected);
  EXPECT_EQ(block.NumberFormat(), "0.00");
  expected.fontSize = 14.0;
  EXPECT_EQ(data.cellFormat(3, 3), expected);
  EXPECT_EQ(data.cellFormat(1, 2), CellFormat{});
  EXPECT_EQ(data.cellFormat(4, 3), CellFormat{});
}

TEST_F(HostTest, WholeSheetFormatAndClearReachEveryCell) {
  data.assignValue(5, 5, 1.0);
  app.ResolveRange("E5").SetBold(true);
  const Range all = Range::AllCells(data);
  all.SetInteriorColorIndex(2);
  EXPECT_EQ(data.cellFormat(kMaxRows, kMaxColumns), withInterior(2));
  CellFormat boldOnWhite = withInterior(2);
  boldOnWhite.bold = true;
  EXPECT_EQ(data.cellFormat(5, 5), boldOnWhite);
  // A cell formatted after the sheet starts from the sheet's format.
  app.ResolveRange("A1").SetFontColorIndex(3);
  CellFormat redOnWhite = withInterior(2);
  redOnWhite.fontColorIndex = 3;
  EXPECT_EQ(data.cellFormat(1, 1), redOnWhite);

  all.Clear();
  EXPECT_EQ(data.usedBlock(), std::nullopt);
  EXPECT_EQ(data.cellFormat(5, 5), CellFormat{});
  EXPECT_EQ(data.cellFormat(1, 1), CellFormat{});
  EXPECT_EQ(data.cellFormat(kMaxRows, kMaxColumns), CellFormat{});
}

TEST_F(HostTest, ClearingABlockOnAFormattedSheetGivesItThePlainFormat) {
  Range::AllCells(data).SetInteriorColorIndex(2);
  data.assignValue(2, 2, 5.0);
  data.assignValue(9, 9, 6.0);
  app.ResolveRange("B2:C3").Clear();
  EXPECT_TRUE(data.cellValue(2, 2).isEmpty());
  EXPECT_EQ(data.cellValue(9, 9), CellValue(6.0));
  EXPECT_EQ(data.cellFormat(3, 3), CellFormat{});
  EXPECT_EQ(data.cellFormat(4, 3), withInterior(2));
  EXPECT_EQ(data.usedBlock(), (CellBlock{9, 9, 9, 9}));
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
  app.ResolveRange("B:B").Clear();
  EXPECT_EQ(data.cellFormat(7, 2), CellFormat{});
}

class CopyPasteTest : public HostTest {
 protected:
  CopyPasteTest() {
    InMemoryWorksheet& results = app.addInWorkbook().Worksheets("Results");
    source.emplace(results, CellBlock{1, 1, 2, 2});
    source->SetValues([] {
      ValueArray2D v(2, 2);
      v(1, 1) = "Mean";
      v(1, 2) = 2.5;
      v(2, 1) = "Count";
      v(2, 2) = 4.0;
      return v;
    }());
    Range(results, CellBlock{1, 2, 2, 2}).SetNumberFormat("0.000");
    // The target cell carries a format of its own before the paste.
    app.ResolveRange("D4").SetBold(true);
  }

  void expectPastedValues() const {
    EXPECT_EQ(data.cellValue(4, 4), CellValue("Mean"));
    EXPECT_EQ(data.cellValue(4, 5), CellValue(2.5));
    EXPECT_EQ(data.cellValue(5, 4), CellValue("Count"));
    EXPECT_EQ(data.cellValue(5, 5), CellValue(4.0));
    EXPECT_TRUE(data.cellValue(6, 4).isEmpty());
    EXPECT_TRUE(data.cellValue(4, 6).isEmpty());
  }

  std::optional<Range> source;
};

TEST_F(CopyPasteTest, ValuesOnlyKeepTheTargetFormats) {
  source->Copy();
  app.ResolveRange("D4").PasteSpecial(PasteType::Values);
  expectPastedValues();
  EXPECT_TRUE(data.cellFormat(4, 4).bold);
  EXPECT_EQ(data.cellFormat(4, 5).numberFormat, "General");
}

TEST_F(CopyPasteTest, AllCopiesTheFormatsToo) {
  source->Copy();
  app.ResolveRange("D4").PasteSpecial(PasteType::All);
  expectPastedValues();
  EXPECT_FALSE(data.cellFormat(4, 4).bold);
  EXPECT_EQ(data.cellFormat(4, 5).numberFormat, "0.000");
  EXPECT_EQ(data.cellFormat(5, 5).numberFormat, "0.000");
}

TEST_F(HostTest, PastingWithAnEmptyClipboardFails) {
  EXPECT_EQ(raised([&] { app.ResolveRange("A1").PasteSpecial(PasteType::Values); }).number, 1004);
}

}  // namespace
}  // namespace orv::test
