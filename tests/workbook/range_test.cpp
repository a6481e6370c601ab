#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "frame/range.h"
#include "host_fixture.h"

namespace orv::test {
namespace {

TEST_F(HostTest, ReferencesResolveOnTheActiveSheetOrTheNamedOne) {
  const struct {
    std::string reference, sheet, address;
  } cases[] = {{"b2:$C$4", "Data", "$B$2:$C$4"},
               {"data!A1:A3", "Data", "$A$1:$A$3"},
               {"'My data'!A1,'My data'!C1", "My data", "$A$1,$C$1"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.reference);
    const Range r = app.ResolveRange(c.reference);
    EXPECT_EQ(r.Parent().Name(), c.sheet);
    EXPECT_EQ(r.Address(), c.address);
  }
  book.Worksheets("My data").Activate();
  EXPECT_EQ(app.ResolveRange("A1").Parent().Name(), "My data");
  for (const std::string text : {"Nope!A1", "Results!A1", "not a reference"}) {
    const Raised r = raised([&] { app.ResolveRange(text); });
    EXPECT_EQ(r.number, 1004) << text;
    EXPECT_NE(r.description.find(text), std::string::npos) << r.description;
  }
}

TEST_F(HostTest, DefinedNamesResolveSheetLevelFirstThenWorkbookLevel) {
  book.addName({"Heights", std::nullopt, "Data!$A$1:$C$13", false});
  book.addName({"Local", std::nullopt, "Data!$B$2", false});
  book.addName({"local", std::string("My data"), "'My data'!$D$4:$D$6", false});
  book.addName({"Pair", std::nullopt, "=Data!$A$1:$A$3,Data!$C$1:$C$3", false});
  book.addName({"Here", std::nullopt, "$E$1:$E$2", false});  // no sheet: the scope's sheet
  book.addName({"Rate", std::nullopt, "0.05", false});
  const struct {
    const char* active;
    std::string reference, sheet, address;
  } cases[] = {
      {"Data", "Heights", "Data", "$A$1:$C$13"},
      {"Data", "HEIGHTS", "Data", "$A$1:$C$13"},
      {"Data", "Local", "Data", "$B$2"},                    // the active sheet has no sheet-level Local
      {"My data", "Local", "My data", "$D$4:$D$6"},         // its sheet-level name comes first
      {"Data", "'My data'!LOCAL", "My data", "$D$4:$D$6"},  // qualified: that sheet's name
      {"Data", "Pair", "Data", "$A$1:$A$3,$C$1:$C$3"},      // a leading "=" and several areas
      {"My data", "Here", "My data", "$E$1:$E$2"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.reference);
    book.Worksheets(c.active).Activate();
    const Raised failure = raised([&] {
      const Range r = app.ResolveRange(c.reference);
      EXPECT_EQ(r.Parent().Name(), c.sheet);
      EXPECT_EQ(r.Address(), c.address);
    });
    EXPECT_EQ(failure.number, 0) << failure.description;
  }
  book.Worksheets("Data").Activate();
  EXPECT_EQ(raised([&] { app.ResolveRange("Heights!A1"); }).number, 1004);  // no sheet Heights: not a name either
  const struct {
    std::string text, said;
  } failures[] = {
      {"Rate",
       "The name \"Rate\" of the workbook \"Book1.xlsx\" does not stand for cells of the workbook: it is \"0.05\""},
      {"Nameless", "\"Nameless\" is not a valid reference"},
      {"Data!Heights", "\"Data!Heights\" is not a valid reference"},  // a workbook-level name under a sheet
  };
  for (const auto& f : failures) {
    SCOPED_TRACE(f.text);
    const Raised r = raised([&] { app.ResolveRange(f.text); });
    EXPECT_EQ(r.number, 1004);
    EXPECT_EQ(r.description, f.said);
  }
  book.addName({"heights", std::nullopt, "Data!$A$1", false});  // the same name again replaces it
  EXPECT_EQ(book.names().size(), 6u);
  EXPECT_EQ(app.ResolveRange("Heights").Address(), "$A$1");
}

TEST_F(HostTest, CellsRowsColumnsAreasAndAddresses) {
  const Range r = app.ResolveRange("B2:D5");
  EXPECT_EQ(r.Cells(5, 4).Address(), "$E$6");  // relative to the top left, may lie outside
  EXPECT_EQ(raised([&] { app.ResolveRange("A1048576").Cells(2, 1); }).number, 1004);
  EXPECT_EQ(r.Columns(2).Address(), "$C$2:$C$5");
  EXPECT_EQ(r.Rows(4).Address(), "$B$5:$D$5");
  const Range areas = app.ResolveRange("A1:A3,C1:D2");
  EXPECT_EQ(areas.Areas(2).Address(), "$C$1:$D$2");
  EXPECT_EQ(areas.RowsCount(), 3);  // of the first area
  EXPECT_EQ(areas.CellCount(), 7);
  EXPECT_EQ(raised([&] { areas.Areas(3); }).number, 9);
  book.Worksheets("My data").Rename("It's");
  EXPECT_EQ(app.ResolveRange("'It''s'!A1").AddressWithSheet(), "'It''s'!$A$1");
  EXPECT_EQ(Range::Span(app.ResolveRange("C4"), app.ResolveRange("A2")).Address(), "$A$2:$C$4");
  const Range both = Union(app.ResolveRange("A1:A2"), app.ResolveRange("C1"));
  EXPECT_EQ(both.Address(), "$A$1:$A$2,$C$1");
  EXPECT_EQ(raised([&] { Union(both, app.ResolveRange("'It''s'!A1")); }).number, 1004);
}

TEST_F(HostTest, RowHeightsAndColumnWidthsPlaceEveryCell) {
  data.geometry().setRowHeight(3, 30);
  data.geometry().setRowHeight(1000, 0);  // hidden
  data.geometry().setColumnWidth(2, 100);
  // Default rows are 15 points high, columns 48 wide; below row 1000 the changes to rows 3 and 1000 cancel out.
  const struct {
    const char* reference;
    double top, left, width, height;
  } boxes[] = {{"D5:E6", 75, 196, 96, 30},
               {"B2:B4", 15, 48, 100, 60},
               {"A1000", 999.0 * 15 + 15, 0, 48, 0},
               {"A1048576", 1048575.0 * 15, 0, 48, 15},
               {"XFD1", 0, 16382.0 * 48 + 100, 48, 15}};
  for (const auto& b : boxes) {
    SCOPED_TRACE(b.reference);
    const Range r = app.ResolveRange(b.reference);
    EXPECT_DOUBLE_EQ(r.Top(), b.top);
    EXPECT_DOUBLE_EQ(r.Left(), b.left);
    EXPECT_DOUBLE_EQ(r.Width(), b.width);
    EXPECT_DOUBLE_EQ(r.Height(), b.height);
  }
  SheetGeometry& g = data.geometry();
  EXPECT_EQ(raised([&] { g.setRowHeight(2, 409.5); }).number, 0);
  EXPECT_EQ(raised([&] { g.setRowHeight(1, 409.6); }).number, 1004);
  EXPECT_EQ(raised([&] { g.setColumnWidth(1, std::numeric_limits<double>::quiet_NaN()); }).number, 1004);
  EXPECT_EQ(raised([&] { g.setDefaultRowHeight(-0.5); }).number, 1004);
  EXPECT_EQ(g.rowHeight(1), 15);
}

}  // namespace
}  // namespace orv::test
