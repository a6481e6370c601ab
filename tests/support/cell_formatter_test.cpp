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
  using Apply = void (*)(const CellFormatter&, const Range&);
  const auto with = [](bool bold, HAlign align, const char* numberFormat) {
    CellFormat f;  // starting from 0.00, centred, 9 pt
    f.numberFormat = numberFormat;
    f.horizontalAlignment = align;
    f.fontSize = 9;
    f.bold = bold;
    return f;
  };
  const struct { const char* name; Apply apply; CellFormat expected; } rows[] = {
      {"row labels", [](const CellFormatter& f, const Range& r) { f.LabelFormat(r, true); }, with(true, HAlign::Left, "0.00")},
      {"column names", [](const CellFormatter& f, const Range& r) { f.LabelFormat(r, false); }, with(true, HAlign::Center, "0.00")},
      {"values in General", [](const CellFormatter& f, const Range& r) { f.ValueFormat(r, true); }, with(false, HAlign::Right, "General")},
      {"values keep their format", [](const CellFormatter& f, const Range& r) { f.ValueFormat(r, false); }, with(false, HAlign::Right, "0.00")},
      {"emphasis", [](const CellFormatter& f, const Range& r) { f.EmphasisFormat(r, true); }, with(true, HAlign::Center, "0.00")},
      {"no emphasis", [](const CellFormatter& f, const Range& r) { f.EmphasisFormat(r, false); }, with(false, HAlign::Center, "0.00")},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    // Formats a results cell may already carry from an earlier paste.
    range("A1:D4").ApplyFormat(FormatPatch{"0.00", false, 9.0, std::nullopt, std::nullopt, HAlign::Center});
    row.apply(formatter_, range("A1:B2,D4"));
    for (const auto& [r, c] : std::vector<std::pair<int, int>>{{1, 1}, {1, 2}, {2, 1}, {2, 2}, {4, 4}}) {
      EXPECT_EQ(at(r, c), row.expected) << "R" << r << "C" << c;
    }
    EXPECT_EQ(at(3, 3), with(false, HAlign::Center, "0.00")) << "a cell outside the range changed";
  }
}

}  // namespace
}  // namespace orv
