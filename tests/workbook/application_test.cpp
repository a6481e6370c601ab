#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host_fixture.h"
#include "workbook/in_memory_application.h"

namespace orv::test {
namespace {

std::vector<std::string> sheetNames(InMemoryWorkbook& book) {
  std::vector<std::string> names;
  for (std::int32_t i = 1; i <= book.WorksheetsCount(); ++i) names.push_back(book.Worksheets(i).Name());
  return names;
}

TEST(Application, AddInWorkbookIsOpenFromTheStartAndActiveOnlyWhileAlone) {
  InMemoryApplication app;
  InMemoryWorkbook& addIn = app.Workbooks("orvella.XLA");
  EXPECT_EQ(addIn.Worksheets("RESULTS").Name(), "Results");
  EXPECT_EQ(&app.ActiveWorkbook(), &addIn);
  InMemoryWorkbook& book = app.AddWorkbook("Book1.xlsx", {"Sheet1", "Sheet2"});
  addIn.Activate();
  EXPECT_EQ(&app.ActiveWorkbook(), &book);
  EXPECT_EQ(&app.ActiveWorkbook(), &app.AddWorkbook("Book2.xlsx", {"Sheet1"}));
  book.Worksheets("Sheet2").Activate();  // activating a sheet activates its workbook
  EXPECT_EQ(&app.ActiveWorkbook(), &book);
  EXPECT_EQ(app.ActiveSheet().Name(), "Sheet2");
}

TEST(Application, LookupFailures) {
  InMemoryApplication app;
  InMemoryWorkbook& book = app.AddWorkbook("Book1.xlsx", {"Sheet1"});
  EXPECT_EQ(raised([&] { app.Workbooks("Book2.xlsx"); }).number, 9);
  EXPECT_EQ(raised([&] { app.Workbooks("book1.XLSX").Worksheets("Nope"); }).number, 9);
  EXPECT_EQ(raised([&] { app.AddWorkbook("BOOK1.xlsx"); }).number, 1004);
  // A bad sheet name leaves no half-opened workbook behind.
  EXPECT_EQ(raised([&] { app.AddWorkbook("Book3.xlsx", {"a", "A"}); }).number, 1004);
  EXPECT_EQ(raised([&] { app.Workbooks("Book3.xlsx"); }).number, 9);
  const Raised moved = raised([&] { book.Worksheets(1).MoveAfter(app.addInWorkbook().Worksheets(1)); });
  EXPECT_EQ(moved.number, 1004);
  EXPECT_NE(moved.description.find("\"Sheet1\""), std::string::npos) << moved.description;
  app.AddWorkbook("Empty.xlsx");
  EXPECT_EQ(raised([&] { app.ActiveSheet(); }).number, 91);
}

TEST(Application, NewSheetsContinueTheHighestSheetNumberBeforeTheActiveSheet) {
  const struct {
    std::vector<std::string> existing;
    std::string expected;
  } cases[] = {{{"Data", "sheet7"}, "Sheet8"},
               {{"Sheet2", "Sheet10", "Sheet9"}, "Sheet11"},
               {{"Sheet01x", "Sheet 3", "Sheet"}, "Sheet1"}};
  for (const auto& c : cases) {
    InMemoryApplication app;
    app.AddWorkbook("Book.xlsx", c.existing);
    EXPECT_EQ(app.AddWorksheet().Name(), c.expected);
  }
  InMemoryApplication app;
  InMemoryWorkbook& book = app.AddWorkbook("Book.xlsx", {"Sheet1", "Sheet2", "Sheet3"});
  book.Worksheets("Sheet2").Activate();
  InMemoryWorksheet& added = app.AddWorksheet();
  EXPECT_EQ(sheetNames(book), (std::vector<std::string>{"Sheet1", "Sheet4", "Sheet2", "Sheet3"}));
  EXPECT_EQ(&app.ActiveSheet(), &added);
  added.Rename("Output");
  EXPECT_EQ(app.AddWorksheet().Name(), "Sheet5");  // the count survives a rename
  book.Worksheets(1).MoveAfter(book.Worksheets(book.WorksheetsCount()));
  EXPECT_EQ(sheetNames(book), (std::vector<std::string>{"Sheet5", "Output", "Sheet2", "Sheet3", "Sheet1"}));
}

TEST(Application, SheetNamesAreCheckedAndUniqueWithoutCase) {
  const struct {
    std::string name;
    bool valid;
  } cases[] = {{"", false},
               {std::string(31, 'x'), true},
               {std::string(32, 'x'), false},
               {"\xC3\xA9t\xC3\xA9" + std::string(28, 'x'), true},  // 31 characters in 33 bytes
               {"a:b", false},
               {"[a", false},
               {"'a", false},
               {"a'", false},
               {"It's", true},
               {"data", false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    InMemoryApplication app;
    InMemoryWorkbook& book = app.AddWorkbook("Book.xlsx", {"Data", "My data"});
    const Raised r = raised([&] { book.Worksheets("My data").Rename(c.name); });
    EXPECT_EQ(r.number, c.valid ? 0 : 1004) << r.description;
    EXPECT_EQ(book.Worksheets(2).Name(), c.valid ? c.name : "My data");
    if (!c.valid) {
      EXPECT_NE(r.description.find("\"" + c.name + "\""), std::string::npos) << r.description;
    }
  }
}

}  // namespace
}  // namespace orv::test
