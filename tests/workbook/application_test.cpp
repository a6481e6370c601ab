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
  EXPECT_TRUE(addIn.isAddIn());
  EXPECT_EQ(addIn.Worksheets("RESULTS").Name(), "Results");
  EXPECT_EQ(&app.ActiveWorkbook(), &addIn);

  InMemoryWorkbook& book = app.AddWorkbook("Book1.xlsx", {"Sheet1"});
  EXPECT_EQ(&app.ActiveWorkbook(), &book);
  EXPECT_EQ(app.ActiveSheet().Name(), "Sheet1");
  addIn.Activate();
  EXPECT_EQ(&app.ActiveWorkbook(), &book);

  InMemoryWorkbook& second = app.AddWorkbook("Book2.xlsx", {"Sheet1"});
  EXPECT_EQ(&app.ActiveWorkbook(), &second);
  book.Activate();
  EXPECT_EQ(&app.ActiveWorkbook(), &book);
  EXPECT_EQ(app.WorkbooksCount(), 3);
}

TEST(Application, WorkbookLookupFailures) {
  InMemoryApplication app;
  app.AddWorkbook("Book1.xlsx", {"Sheet1"});
  EXPECT_EQ(raised([&] { app.Workbooks("Book2.xlsx"); }).number, 9);
  EXPECT_EQ(raised([&] { app.Workbooks(4); }).number, 9);
  EXPECT_EQ(raised([&] { app.Workbooks("book1.XLSX").Worksheets("Nope"); }).number, 9);
  EXPECT_EQ(raised([&] { app.Workbooks("Book1.xlsx").Worksheets(2); }).number, 9);
  EXPECT_EQ(raised([&] { app.AddWorkbook("BOOK1.xlsx"); }).number, 1004);
  // A bad sheet name leaves no half-opened workbook behind.
  EXPECT_EQ(raised([&] { app.AddWorkbook("Book3.xlsx", {"a", "A"}); }).number, 1004);
  EXPECT_EQ(raised([&] { app.Workbooks("Book3.xlsx"); }).number, 9);
}

TEST(Application, ActiveSheetOfAWorkbookWithoutSheetsIsMissing) {
  InMemoryApplication app;
  app.AddWorkbook("Empty.xlsx");
  EXPECT_EQ(raised([&] { app.ActiveSheet(); }).number, 91);
}

TEST(Application, NewSheetNamesContinueTheHighestSheetNumber) {
  struct Case {
    std::vector<std::string> existing;
    std::string expected;
  };
  const Case cases[] = {
      {{"Sheet1", "Sheet2", "Sheet3"}, "Sheet4"},
      {{"Data"}, "Sheet1"},
      {{"Data", "sheet7"}, "Sheet8"},
      {{"Sheet2", "Sheet10", "Sheet9"}, "Sheet11"},
      {{"Sheet01x", "Sheet 3", "Sheet"}, "Sheet1"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.expected);
    InMemoryApplication app;
    app.AddWorkbook("Book.xlsx", c.existing);
    EXPECT_EQ(app.AddWorksheet().Name(), c.expected);
  }
}

TEST(Application, NewSheetNumbersKeepCountingAfterARename) {
  InMemoryApplication app;
  app.AddWorkbook("Book.xlsx", {"Sheet1"});
  app.AddWorksheet().Rename("Output");
  EXPECT_EQ(app.AddWorksheet().Name(), "Sheet3");
}

TEST(Application, WorksheetsAddGoesBeforeTheActiveSheetAndMoveAfterTheLast) {
  InMemoryApplication app;
  InMemoryWorkbook& book = app.AddWorkbook("Book.xlsx", {"Sheet1", "Sheet2", "Sheet3"});
  book.Worksheets("Sheet2").Activate();
  InMemoryWorksheet& added = app.AddWorksheet();
  EXPECT_EQ(sheetNames(book), (std::vector<std::string>{"Sheet1", "Sheet4", "Sheet2", "Sheet3"}));
  EXPECT_EQ(&app.ActiveSheet(), &added);
  EXPECT_EQ(app.addInWorkbook().WorksheetsCount(), 1);

  added.MoveAfter(book.Worksheets(book.WorksheetsCount()));
  EXPECT_EQ(sheetNames(book), (std::vector<std::string>{"Sheet1", "Sheet2", "Sheet3", "Sheet4"}));
  EXPECT_EQ(book.indexOf(added), 4);
  book.Worksheets(1).MoveAfter(book.Worksheets("Sheet2"));
  EXPECT_EQ(sheetNames(book), (std::vector<std::string>{"Sheet2", "Sheet1", "Sheet3", "Sheet4"}));
}

TEST(Application, MovingASheetToAnotherWorkbookFails) {
  InMemoryApplication app;
  InMemoryWorkbook& book = app.AddWorkbook("Book.xlsx", {"Data"});
  const Raised r = raised([&] { book.Worksheets(1).MoveAfter(app.addInWorkbook().Worksheets(1)); });
  EXPECT_EQ(r.number, 1004);
  EXPECT_NE(r.description.find("\"Data\""), std::string::npos) << r.description;
}

TEST(Application, SheetNamesAreCheckedAndUniqueWithoutCase) {
  struct Case {
    std::string name;
    bool valid;
  };
  const Case cases[] = {
      {"", false},
      {std::string(31, 'x'), true},
      {std::string(32, 'x'), false},
      {"\xC3\xA9t\xC3\xA9" + std::string(28, 'x'), true},  // 31 characters in 33 bytes
      {"a:b", false},
      {"a\\b", false},
      {"a/b", false},
      {"a?b", false},
      {"a*b", false},
      {"[a", false},
      {"a]", false},
      {"'a", false},
      {"a'", false},
      {"It's", true},
      {"data", false},  // taken by "Data"
      {"My Data ", true},
      {"MY DATA", true},  // its own name in another case
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    InMemoryApplication app;
    InMemoryWorkbook& book = app.AddWorkbook("Book.xlsx", {"Data", "My data"});
    const Raised r = raised([&] { book.Worksheets("My data").Rename(c.name); });
    if (c.valid) {
      EXPECT_EQ(r.number, 0) << r.description;
      EXPECT_EQ(book.Worksheets(2).Name(), c.name);
    } else {
      EXPECT_EQ(r.number, 1004);
      EXPECT_NE(r.description.find("\"" + c.name + "\""), std::string::npos) << r.description;
      EXPECT_EQ(book.Worksheets(2).Name(), "My data");
    }
  }
}

TEST_F(HostTest, SelectIsRecordedOnTheActiveSheetOnly) {
  data.select({CellBlock{2, 3, 4, 5}});
  EXPECT_EQ(data.selection(), (std::vector<CellBlock>{CellBlock{2, 3, 4, 5}}));

  InMemoryWorksheet& other = book.Worksheets("My data");
  EXPECT_EQ(raised([&] { other.select({CellBlock{}}); }).number, 1004);
  other.Activate();
  other.select({CellBlock{1, 1, 1, 1}, CellBlock{3, 3, 3, 3}});
  EXPECT_EQ(other.selection().size(), 2U);
  // Results lies in the hidden add-in workbook, which never becomes active.
  InMemoryWorksheet& results = app.addInWorkbook().Worksheets(1);
  results.Activate();
  EXPECT_EQ(raised([&] { results.select({CellBlock{}}); }).number, 1004);
}

TEST_F(HostTest, ActivatingASheetActivatesItsWorkbook) {
  InMemoryWorkbook& other = app.AddWorkbook("Other.xlsx", {"Sheet1"});
  EXPECT_EQ(&app.ActiveWorkbook(), &other);
  book.Worksheets("My data").Activate();
  EXPECT_EQ(&app.ActiveWorkbook(), &book);
  EXPECT_EQ(app.ActiveSheet().Name(), "My data");
}

}  // namespace
}  // namespace orv::test
