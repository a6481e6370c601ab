#include <gtest/gtest.h>

#include <limits>
#include <optional>

#include "frame/range.h"
#include "host_fixture.h"
#include "workbook/cell_store.h"

namespace orv::test {
namespace {

TEST(CellStore, UsedBlockAndReadsFollowWritesAboveBelowAndEmptiedEdges) {
  CellStore store;
  store.set(10, 2, 10.0);
  store.set(3, 2, "three");  // above the stored cells
  store.set(20, 2, true);    // below them
  store.set(5, 4, ErrorValue::NA);
  EXPECT_EQ(store.usedBlock(), (CellBlock{3, 2, 20, 4}));
  ValueArray2D out(3, 3);
  out(1, 1) = 5.0;  // stale content of a reused array must not survive
  store.read(CellBlock{1, 1, 3, 3}, out);
  ValueArray2D expected(3, 3);
  expected(3, 2) = "three";
  EXPECT_EQ(out, expected);
  store.set(3, 2, CellValue{});
  store.set(20, 2, CellValue{});
  store.set(10, 2, CellValue{});
  EXPECT_EQ(store.usedBlock(), (CellBlock{5, 4, 5, 4}));
  store.clear(CellBlock{1, 1, 10, 10});
  EXPECT_EQ(store.usedBlock(), std::nullopt);
}

TEST_F(HostTest, AssignedTextsThatReadAsPlainNumbersBecomeNumbers) {
  const struct {
    CellValue assigned, stored;
  } cases[] = {{"12", 12.0},   {"+2.5E-1", 0.25}, {" 7", 7.0}, {"1,000", "1,000"},
               {"12%", "12%"}, {"", CellValue{}}, {true, true}};
  const Range areas = app.ResolveRange("B4,D6:D7");
  for (const auto& c : cases) {
    areas.SetValue(c.assigned);
    EXPECT_EQ(data.cellValue(4, 2), c.stored) << describe(c.assigned);
    EXPECT_EQ(data.cellValue(7, 4), c.stored) << describe(c.assigned);
  }
}

TEST_F(HostTest, CellsOffTheSheetAreHostFailures) {
  for (const CellBlock& b : {CellBlock{0, 1, 1, 1}, CellBlock{1, 1, 1, kMaxColumns + 1}, CellBlock{3, 1, 2, 1}}) {
    ValueArray2D out;
    EXPECT_EQ(raised([&] { data.readBlock(b, out); }).number, 1004) << b.top << "," << b.right;
    EXPECT_EQ(raised([&] { data.clear(b); }).number, 1004) << b.top << "," << b.right;
  }
  EXPECT_EQ(raised([&] { data.assignValue(kMaxRows + 1, 1, 1.0); }).number, 1004);
  EXPECT_EQ(raised([&] { data.cellValue(1, 0); }).number, 1004);
  data.assignValue(kMaxRows, kMaxColumns, 1.0);
  EXPECT_EQ(data.cellValue(kMaxRows, kMaxColumns), CellValue(1.0));
  EXPECT_EQ(raised([&] { data.assignValue(1, 1, std::numeric_limits<double>::infinity()); }).number, 1004);
}

TEST_F(HostTest, SheetAndColumnFormatsComeUnderCellFormatsAndClearResetsThem) {
  data.assignValue(5, 5, 1.0);
  app.ResolveRange("E5").SetBold(true);
  app.ResolveRange("E:F").SetNumberFormat("0%");
  const Range all = Range::AllCells(data);
  all.SetInteriorColorIndex(2);
  CellFormat sheetWide;
  sheetWide.interiorColorIndex = 2;
  EXPECT_EQ(data.cellFormat(kMaxRows, kMaxColumns), sheetWide);
  CellFormat column = sheetWide;
  column.numberFormat = "0%";
  EXPECT_EQ(data.cellFormat(kMaxRows, 6), column);
  column.bold = true;
  EXPECT_EQ(data.cellFormat(5, 5), column);
  app.ResolveRange("B2:E3").Clear();  // a cleared block gets the plain format, not the sheet's or column's
  EXPECT_EQ(data.cellFormat(3, 5), CellFormat{});
  EXPECT_EQ(data.cellFormat(4, 3), sheetWide);
  all.Clear();
  EXPECT_EQ(data.usedBlock(), std::nullopt);
  EXPECT_EQ(data.cellFormat(5, 5), CellFormat{});
  EXPECT_EQ(data.cellFormat(kMaxRows, kMaxColumns), CellFormat{});
}

TEST_F(HostTest, PasteValuesKeepsTheTargetFormatsAndPasteAllCopiesThem) {
  InMemoryWorksheet& results = app.addInWorkbook().Worksheets("Results");
  Range source(results, CellBlock{1, 1, 2, 2});
  Range(results, CellBlock{1, 1, 1, 1}).SetValue("Mean");
  Range(results, CellBlock{2, 2, 2, 2}).SetValue(4.0);
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
    expected(2, 2) = 4.0;
    EXPECT_EQ(pasted, expected);
    EXPECT_EQ(data.cellFormat(4, 4).bold, type == PasteType::Values);
    EXPECT_EQ(data.cellFormat(5, 5).numberFormat, type == PasteType::All ? "0.000" : "General");
  }
}

TEST_F(HostTest, TheWrittenBlockCoversWhatAProgramSetAndNothingAFileReaderStored) {
  data.storeRaw(1, 1, CellValue("read from the file"));
  data.storeRaw(900, 40, CellValue(1.0));
  EXPECT_FALSE(data.writtenBlock().has_value());
  // Each write widens the block by what it touched.
  data.assignValue(5, 3, CellValue(2.0));
  EXPECT_EQ(data.writtenBlock(), (CellBlock{5, 3, 5, 3})) << "an assigned value";
  data.pasteValue(7, 2, CellValue("x"));
  EXPECT_EQ(data.writtenBlock(), (CellBlock{5, 2, 7, 3})) << "a pasted value";
  data.setCellFormat(4, 4, CellFormat{});
  EXPECT_EQ(data.writtenBlock(), (CellBlock{4, 2, 7, 4})) << "a format";
  data.applyFormat({9, 1, 10, 2}, FormatPatch{});
  EXPECT_EQ(data.writtenBlock(), (CellBlock{4, 1, 10, 4})) << "a patch";
  data.clear({2, 6, 2, 6});
  EXPECT_EQ(data.writtenBlock(), (CellBlock{2, 1, 10, 6})) << "a clear";
  data.setColumnWidth(30, 70);
  EXPECT_EQ(data.writtenBlock(), (CellBlock{2, 1, 10, 6})) << "a column width";
}

}  // namespace
}  // namespace orv::test
