#include "support/cell_formatter.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "workbook/in_memory_application.h"

namespace orv {
namespace {

class CellFormatterTest : public ::testing::Test {
 protected:
  CellFormatterTest() : sheet_(app_.AddWorkbook("Book1.xlsx", {"Out"}).Worksheets("Out")) {}

  Range range(const char* reference) { return app_.ResolveRange(std::string("Out!") + reference); }
  CellFormat at(std::int32_t row, std::int32_t column) { return sheet_.cellFormat(row, column); }

  InMemoryApplication app_;
  InMemoryWorksheet& sheet_;
  CellFormatter formatter_;
};

TEST_F(CellFormatterTest, EachFormatChangesOnlyItsOwnFieldsOnEveryCellOfEveryArea) {
  struct Row {
    const char* name;
    void (*apply)(const CellFormatter&, const Range&);
    CellFormat expected;  // starting from 0.00, centred, 9 pt
  };
  const auto base = [] {
    CellFormat f;
    f.numberFormat = "0.00";
    f.horizontalAlignment = HAlign::Center;
    f.fontSize = 9;
    return f;
  };
  const auto with = [&](auto change) {
    CellFormat f = base();
    change(f);
    return f;
  };
  const std::vector<Row> rows = {
      {"row labels", [](const CellFormatter& f, const Range& r) { f.LabelFormat(r, true); },
       with([](CellFormat& f) { f.bold = true; f.horizontalAlignment = HAlign::Left; })},
      {"column names", [](const CellFormatter& f, const Range& r) { f.LabelFormat(r, false); },
       with([](CellFormat& f) { f.bold = true; f.horizontalAlignment = HAlign::Center; })},
      {"values in General", [](const CellFormatter& f, const Range& r) { f.ValueFormat(r, true); },
       with([](CellFormat& f) { f.horizontalAlignment = HAlign::Right; f.numberFormat = "General"; })},
      {"values keep their format", [](const CellFormatter& f, const Range& r) { f.ValueFormat(r, false); },
       with([](CellFormat& f) { f.horizontalAlignment = HAlign::Right; })},
      {"emphasis", [](const CellFormatter& f, const Range& r) { f.EmphasisFormat(r, true); },
       with([](CellFormat& f) { f.bold = true; })},
      {"no emphasis", [](const CellFormatter& f, const Range& r) { f.EmphasisFormat(r, false); },
       base()},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    // Formats a results cell may already carry from an earlier paste.
    range("A1:D4").ApplyFormat(FormatPatch{"0.00", false, 9.0, std::nullopt, std::nullopt, HAlign::Center});
    row.apply(formatter_, range("A1:B2,D4"));
    for (const auto& [r, c] : std::vector<std::pair<int, int>>{{1, 1}, {1, 2}, {2, 1}, {2, 2}, {4, 4}}) {
      SCOPED_TRACE("R" + std::to_string(r) + "C" + std::to_string(c));
      EXPECT_EQ(at(r, c), row.expected);
    }
    EXPECT_EQ(at(3, 3), base()) << "a cell outside the range changed";
  }
}

}  // namespace
}  // namespace orv
