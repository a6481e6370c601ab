#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <utility>

#include "host_fixture.h"
#include "workbook/cell_store.h"

namespace orv::test {
namespace {

TEST(CellStore, UsedBlockFollowsWritesAboveBelowAndEmptiedEdges) {
  CellStore store;
  store.set(10, 2, 10.0);
  store.set(3, 2, "three");  // above the stored cells
  store.set(20, 2, true);    // below them
  store.set(5, 4, ErrorValue::NA);
  EXPECT_EQ(store.get(3, 2), CellValue("three"));
  EXPECT_EQ(store.get(20, 2), CellValue(true));
  EXPECT_EQ(store.get(5, 4), CellValue(ErrorValue::NA));
  EXPECT_TRUE(store.get(11, 2).isEmpty());
  EXPECT_EQ(store.usedBlock(), (CellBlock{3, 2, 20, 4}));
  store.set(3, 2, CellValue{});
  store.set(20, 2, CellValue{});
  store.set(10, 2, CellValue{});
  EXPECT_EQ(store.usedBlock(), (CellBlock{5, 4, 5, 4}));
  store.clear(CellBlock{1, 1, 10, 10});
  EXPECT_EQ(store.usedBlock(), std::nullopt);
}

TEST(CellStore, ReadFillsTheBlockAroundTheStoredCells) {
  CellStore store;
  store.set(2, 2, 22.0);
  store.set(3, 3, 33.0);
  store.set(9, 3, 93.0);
  ValueArray2D out(3, 3);
  out(1, 1) = 5.0;  // stale content of a reused array must not survive
  store.read(CellBlock{1, 1, 3, 3}, out);
  ValueArray2D expected(3, 3);
  expected(2, 2) = 22.0;
  expected(3, 3) = 33.0;
  EXPECT_EQ(out, expected);
  store.read(CellBlock{3, 3, 4, 3}, out);
  EXPECT_EQ(out.rows(), 2);
  EXPECT_EQ(out(1, 1), CellValue(33.0));
}

TEST_F(HostTest, AssignedTextsThatReadAsPlainNumbersBecomeNumbers) {
  const struct { CellValue assigned, stored; } cases[] = {
      {"12", 12.0}, {"-.5", -0.5}, {"+2.5E-1", 0.25}, {" 7", 7.0}, {"7 ", 7.0}, {"abc", "abc"}, {"1,000", "1,000"},
      {"12%", "12%"}, {"0x1A", "0x1A"}, {"1e", "1e"}, {"", CellValue{}}, {true, true}, {ErrorValue::Div0, ErrorValue::Div0}};
  for (const auto& c : cases) {
    SCOPED_TRACE(describe(c.assigned));
    data.assignValue(4, 2, c.assigned);
    EXPECT_EQ(data.cellValue(4, 2), c.stored);
  }
  FormatPatch text;  // text-formatted cells and file readers keep texts
  text.numberFormat = "@";
  data.applyFormat(CellBlock{1, 1, 1, 1}, text);
  data.assignValue(1, 1, "12");
  EXPECT_EQ(data.cellValue(1, 1), CellValue("12"));
  data.storeRaw(2, 1, "12");
  EXPECT_EQ(data.cellValue(2, 1), CellValue("12"));
}

TEST_F(HostTest, CellsOffTheSheetAreHostFailures) {
  const CellBlock offSheet[] = {{0, 1, 1, 1}, {1, 0, 1, 1}, {1, 1, kMaxRows + 1, 1}, {1, 1, 1, kMaxColumns + 1}, {3, 1, 2, 1}};
  for (const CellBlock& b : offSheet) {
    SCOPED_TRACE(testing::Message() << b.top << "," << b.left << ":" << b.bottom << "," << b.right);
    ValueArray2D out;
    EXPECT_EQ(raised([&] { data.readBlock(b, out); }).number, 1004);
    EXPECT_EQ(raised([&] { data.clear(b); }).number, 1004);
  }
  for (const auto& [row, column] : {std::pair{0, 1}, {1, 0}, {kMaxRows + 1, 1}, {1, kMaxColumns + 1}}) {
    SCOPED_TRACE(testing::Message() << row << "," << column);
    EXPECT_EQ(raised([&] { data.assignValue(row, column, 1.0); }).number, 1004);
    EXPECT_EQ(raised([&] { data.cellValue(row, column); }).number, 1004);
  }
  data.assignValue(kMaxRows, kMaxColumns, 1.0);
  EXPECT_EQ(data.cellValue(kMaxRows, kMaxColumns), CellValue(1.0));
  EXPECT_EQ(raised([&] { data.assignValue(1, 1, std::numeric_limits<double>::infinity()); }).number, 1004);
}

}  // namespace
}  // namespace orv::test
