#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "frame/range.h"
#include "host_fixture.h"

namespace orv::test {
namespace {

// Top, left, width and height of a reference, in points.
void expectBox(InMemoryApplication& app, const std::string& reference, double top, double left, double width, double height) {
  SCOPED_TRACE(reference);
  const Range r = app.ResolveRange(reference);
  EXPECT_DOUBLE_EQ(r.Top(), top);
  EXPECT_DOUBLE_EQ(r.Left(), left);
  EXPECT_DOUBLE_EQ(r.Width(), width);
  EXPECT_DOUBLE_EQ(r.Height(), height);
}

TEST_F(HostTest, DefaultAndCustomSizesPlaceEveryCell) {
  expectBox(app, "B2:D11", 15, 48, 144, 150);  // rows 15 points high, columns 48 wide
  expectBox(app, "XFD1", 0, 16383.0 * 48, 48, 15);
  data.geometry().setRowHeight(3, 30);
  data.geometry().setRowHeight(1000, 0);  // hidden
  data.geometry().setColumnWidth(2, 100);
  expectBox(app, "C5", 75, 148, 48, 15);
  expectBox(app, "B2:B4", 15, 48, 100, 60);
  // Below row 1000, the 15 points row 3 gains and the 15 row 1000 loses cancel out.
  expectBox(app, "A1000", 999.0 * 15 + 15, 0, 48, 0);
  expectBox(app, "A1048576", 1048575.0 * 15, 0, 48, 15);
  data.geometry().setDefaultRowHeight(20);
  data.geometry().setDefaultColumnWidth(64);
  expectBox(app, "C3", 40, 164, 64, 30);
}

TEST_F(HostTest, ImpossibleSizesAreHostFailures) {
  SheetGeometry& g = data.geometry();
  EXPECT_EQ(raised([&] { g.setRowHeight(1, -1); }).number, 1004);
  EXPECT_EQ(raised([&] { g.setRowHeight(1, 410); }).number, 1004);
  EXPECT_EQ(raised([&] { g.setColumnWidth(1, std::numeric_limits<double>::quiet_NaN()); }).number, 1004);
  EXPECT_EQ(raised([&] { g.setDefaultRowHeight(-0.5); }).number, 1004);
  EXPECT_EQ(g.rowHeight(1), 15);
  EXPECT_EQ(raised([&] { data.rowTop(0); }).number, 1004);
  EXPECT_DOUBLE_EQ(data.rowTop(kMaxRows + 1), kMaxRows * 15.0);
}

}  // namespace
}  // namespace orv::test
