// Column widths of pasted results, for all three analyses: on a sheet of their own every column
// of the table is as wide as its widest label or value as shown; on the user's sheet only
// columns without a width of their own widen; the charts stand beside the widened table.

#include "chart_fixture.h"
#include "circular/clsDSCirc.h"
#include "descriptive/clsDS.h"
#include "frequency/clsFreq.h"
#include "support/column_fit.h"
#include "support/displayed_text.h"
#include "support/text_width.h"

namespace orv::test {
namespace {

class ResultWidthTest : public ChartTest {
 protected:
  ResultWidthTest() {
    row(1, 1, {"Height of the plants (cm)", "Weight"});
    const std::vector<double> a = {2, 4, 4, 4, 5, 5, 7, 9};
    const std::vector<double> b = {1, 2, 3, 4, 5, 6, 7, 8};
    for (std::size_t i = 0; i < a.size(); ++i) row(static_cast<std::int32_t>(i) + 2, 1, {a[i], b[i]});
  }

  // The width a cell's shown text needs, or 0 for a text that runs on into an empty cell.
  static double needed(Worksheet& sheet, std::int32_t r, std::int32_t c) {
    const CellValue v = sheet.cellValue(r, c);
    const CellFormat f = sheet.cellFormat(r, c);
    if (v.isEmpty()) return 0;
    const bool runsOn = v.isText() && f.horizontalAlignment != HAlign::Center &&
                        f.horizontalAlignment != HAlign::Right && sheet.cellValue(r, c + 1).isEmpty();
    return runsOn ? 0 : fittedColumnWidth(textWidthPoints(displayedText(v, f.numberFormat), f.fontSize, f.bold));
  }

  // Every column of the block exactly as wide as its widest cell needs (at least the standard
  // width), on the block's own sheet.
  static void expectFitted(const Range& block) {
    Worksheet& sheet = block.Parent();
    const CellBlock& b = block.block();
    for (std::int32_t c = b.left; c <= b.right; ++c) {
      double widest = kFittedColumnMinimum;
      for (std::int32_t r = b.top; r <= b.bottom; ++r) widest = std::max(widest, needed(sheet, r, c));
      EXPECT_DOUBLE_EQ(sheet.columnWidth(c), widest) << "column " << c;
    }
  }
};

TEST_F(ResultWidthTest, OnTheirOwnSheetTablesOfEveryAnalysisShowEveryCellWhole) {
  clsDS ds;
  ds.Headers(true);
  ds.GetMean(true);
  ds.GetCV(true);
  ds.GetCL(true);
  ds.GetPercentile(true);
  ds.GetSkewness(true);
  ds.PlotBox(true);
  ds.InputRange("Data!A1:B9");
  ds.Results();
  const Range& described = *ds.pastedBlock();
  expectFitted(described);
  Worksheet& sheet = described.Parent();
  EXPECT_GT(sheet.columnWidth(1), kFittedColumnMinimum) << "\"25th Percentile\" in bold";
  EXPECT_GT(sheet.columnWidth(2), kFittedColumnMinimum) << "the long column name, centred";
  // The chart stands one empty column right of the widened table.
  ASSERT_EQ(book.Worksheets(sheet.Name()).charts().size(), 1U);
  EXPECT_DOUBLE_EQ(book.Worksheets(sheet.Name()).charts().front().left, sheet.columnLeft(5));

  clsDSCirc circ;
  circ.Headers(true);
  circ.Plot(true);
  circ.InputRange("Data!A1:B9");
  circ.Results();
  expectFitted(*circ.pastedBlock());

  clsFreq freq;
  freq.Headers(true);
  freq.InputRange("Data!B1:B9");
  freq.Results();
  expectFitted(*freq.pastedBlock());
}

TEST_F(ResultWidthTest, OnTheUsersSheetColumnsSizedByThemStayAsTheyAre) {
  data.setColumnWidth(5, 30);  // the label column, narrower than its labels
  clsDS ds;
  ds.Headers(true);
  ds.GetSum(true);
  ds.InputRange("Data!A1:B9");
  ds.OutputRange("Data!E1");
  ds.Results();
  EXPECT_DOUBLE_EQ(data.columnWidth(5), 30);
  EXPECT_DOUBLE_EQ(data.columnWidth(6), needed(data, 4, 6)) << "the long name widens its column";
  EXPECT_GT(data.columnWidth(6), kFittedColumnMinimum);
  EXPECT_DOUBLE_EQ(data.columnWidth(7), kFittedColumnMinimum) << "\"Weight\" and its sum fit already";
  EXPECT_FALSE(data.columnWidthSet(7));
}

}  // namespace
}  // namespace orv::test
