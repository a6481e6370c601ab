#include "support/cell_formatter.h"

#include <gtest/gtest.h>

#include <optional>
#include <utility>

#include "workbook/in_memory_application.h"

namespace orv {
namespace {

CellFormat with(bool bold, HAlign align, const char* numberFormat) {  // starting from 0.00, centred, 9 pt
  return CellFormat{.numberFormat = numberFormat, .bold = bold, .fontSize = 9, .horizontalAlignment = align};
}

TEST(CellFormatter, EachFormatChangesOnlyItsOwnFieldsOnEveryCellOfEveryArea) {
  InMemoryApplication app;
  InMemoryWorksheet& sheet = app.AddWorkbook("Book1.xlsx", {"Out"}).Worksheets("Out");
  const struct {
    const char* name;
    void (*apply)(const Range&);
    CellFormat expected;
  } rows[] = {
      {"row labels", [](const Range& r) { CellFormatter().LabelFormat(r, true); }, with(true, HAlign::Left, "0.00")},
      {"column names", [](const Range& r) { CellFormatter().LabelFormat(r, false); },
       with(true, HAlign::Center, "0.00")},
      {"values in General", [](const Range& r) { CellFormatter().ValueFormat(r, true); },
       with(false, HAlign::Right, "General")},
      {"values keep their format", [](const Range& r) { CellFormatter().ValueFormat(r, false); },
       with(false, HAlign::Right, "0.00")},
      {"emphasis", [](const Range& r) { CellFormatter().EmphasisFormat(r, true); }, with(true, HAlign::Center, "0.00")},
      {"no emphasis", [](const Range& r) { CellFormatter().EmphasisFormat(r, false); },
       with(false, HAlign::Center, "0.00")},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    // Formats a results cell may already carry from an earlier paste.
    app.ResolveRange("Out!A1:D4")
        .ApplyFormat(FormatPatch{"0.00", false, 9.0, std::nullopt, std::nullopt, HAlign::Center});
    row.apply(app.ResolveRange("Out!A1:B2,D4"));
    for (const auto& [r, c] : {std::pair{1, 1}, {2, 2}, {4, 4}})
      EXPECT_EQ(sheet.cellFormat(r, c), row.expected) << r << "," << c;
    EXPECT_EQ(sheet.cellFormat(3, 3), with(false, HAlign::Center, "0.00")) << "a cell outside the range changed";
  }
}

}  // namespace
}  // namespace orv
