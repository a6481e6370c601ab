#include <gtest/gtest.h>

#include <string>

#include "frame/range.h"
#include "host_fixture.h"

namespace orv::test {
namespace {

TEST_F(HostTest, ReferencesResolveOnTheActiveSheetOrTheNamedOne) {
  const struct { std::string reference, sheet, address; } cases[] = {
      {"b2:$C$4", "Data", "$B$2:$C$4"}, {"data!A1:A3", "Data", "$A$1:$A$3"},
      {"'My data'!$B$2:$C$4", "My data", "$B$2:$C$4"}, {"'My data'!A1,'My data'!C1", "My data", "$A$1,$C$1"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.reference);
    const Range r = app.ResolveRange(c.reference);
    EXPECT_EQ(r.Parent().Name(), c.sheet);
    EXPECT_EQ(r.Address(), c.address);
  }
  book.Worksheets("My data").Activate();
  EXPECT_EQ(app.ResolveRange("A1").Parent().Name(), "My data");
  for (const std::string text : {"Nope!A1", "Results!A1", "not a reference", ""}) {
    SCOPED_TRACE(text);
    const Raised r = raised([&] { app.ResolveRange(text); });
    EXPECT_EQ(r.number, 1004);
    EXPECT_NE(r.description.find(text), std::string::npos) << r.description;
  }
}

TEST_F(HostTest, BlockWritesConvertNumberTextsAndReadBackAsTheyWereStored) {
  ValueArray2D in(2, 3);
  in(1, 1) = "12";
  in(1, 2) = "abc";
  in(2, 1) = true;
  in(2, 2) = ErrorValue::NA;
  in(2, 3) = -4.25;
  const Range block = app.ResolveRange("B2:D3");
  block.SetValues(in);
  ValueArray2D expected = in;
  expected(1, 1) = 12.0;
  EXPECT_EQ(block.Values(), expected);
  EXPECT_EQ(data.usedBlock(), (CellBlock{2, 2, 3, 4}));
  const Range areas = app.ResolveRange("A1:B2,D4");
  areas.SetValue("5");
  EXPECT_EQ(data.cellValue(4, 4), CellValue(5.0));
  Range::AllCells(data).Clear();
  EXPECT_EQ(data.usedBlock(), std::nullopt);
}

TEST_F(HostTest, CellsRowsColumnsAndAreas) {
  const Range r = app.ResolveRange("B2:D5");
  EXPECT_EQ(r.Cells(5, 4).Address(), "$E$6");  // relative to the top left, may lie outside
  EXPECT_EQ(r.Cells(1, 1).Cells(3, 1).Address(), "$B$4");
  EXPECT_EQ(raised([&] { app.ResolveRange("A1").Cells(0, 1); }).number, 1004);
  EXPECT_EQ(raised([&] { app.ResolveRange("A1048576").Cells(2, 1); }).number, 1004);
  EXPECT_EQ(r.Columns(2).Address(), "$C$2:$C$5");
  EXPECT_EQ(r.Rows(4).Address(), "$B$5:$D$5");
  const Range areas = app.ResolveRange("A1:A3,C1:D2");
  EXPECT_EQ(areas.Areas(2).Address(), "$C$1:$D$2");
  EXPECT_EQ(areas.RowsCount(), 3);  // of the first area
  EXPECT_EQ(areas.CellCount(), 7);
  EXPECT_EQ(raised([&] { areas.Areas(3); }).number, 9);
  EXPECT_EQ(raised([&] { areas.Areas(0); }).number, 9);
}

TEST_F(HostTest, AddressesSpanAndUnion) {
  EXPECT_EQ(app.ResolveRange("'My data'!B2").AddressWithSheet(), "'My data'!$B$2");
  EXPECT_EQ(app.ResolveRange("A1,B2:C3").AddressLocal(), "$A$1,$B$2:$C$3");
  book.Worksheets("My data").Rename("It's");
  EXPECT_EQ(app.ResolveRange("'It''s'!A1").AddressWithSheet(), "'It''s'!$A$1");
  EXPECT_EQ(Range::Span(app.ResolveRange("C4"), app.ResolveRange("A2")).Address(), "$A$2:$C$4");
  const Range both = Union(app.ResolveRange("A1:A2"), app.ResolveRange("C1"));
  EXPECT_EQ(both.Address(), "$A$1:$A$2,$C$1");
  EXPECT_EQ(raised([&] { Union(both, app.ResolveRange("'It''s'!A1")); }).number, 1004);
}

}  // namespace
}  // namespace orv::test
