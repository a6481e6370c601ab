// DrawBoxPlot and DrawErrorPlot through clsDS.Results: placement, the pasted rows they read, and
// the offset that stacks the charts.

#include "chart_fixture.h"
#include "descriptive/clsDS.h"

namespace orv::test {
namespace {

class DriverChartTest : public ChartTest {
 protected:
  DriverChartTest() {
    row(1, 1, {"Height", "Weight"});
    const std::vector<double> a = {2, 4, 4, 4, 5, 5, 7, 9};  // mean 5
    const std::vector<double> b = {1, 2, 3, 4, 5, 6, 7, 8};  // mean 4.5
    for (std::size_t i = 0; i < a.size(); ++i) row(static_cast<std::int32_t>(i) + 2, 1, {a[i], b[i]});
  }

  // A descriptive analysis of Data!A1:B9 (with headers) pasted at `output`.
  void analyse(clsDS& ds, const std::string& output) {
    ds.Headers(true);
    ds.InputRange("Data!A1:B9");
    ds.OutputRange(output);
    ds.Results(true);
  }

  // The sheet row of the table pasted at column D whose label is `label`.
  std::int32_t rowOf(const std::string& label) {
    for (std::int32_t r = 1; r <= 40; ++r) {
      const CellValue v = data.cellValue(r, 4);
      if (v.isText() && v.text() == label) return r;
    }
    ADD_FAILURE() << "no row labelled " << label;
    return 0;
  }
};

TEST_F(DriverChartTest, TheBoxPlotStandsOneColumnRightOfTheTableAndReadsItsRows) {
  clsDS ds;
  ds.PlotBox(true);
  analyse(ds, "Data!D1");  // a table of 3 columns, D:F
  const ChartModel& box = onlyChart(data);
  EXPECT_DOUBLE_EQ(box.left, data.columnLeft(8));  // column H
  EXPECT_DOUBLE_EQ(box.top, 0);
  EXPECT_DOUBLE_EQ(box.width, 50 * 3 + 50);
  EXPECT_DOUBLE_EQ(box.height, 180);
  EXPECT_EQ(box.kind, ChartKind::StockOHLC);
  const std::int32_t names = rowOf("Median") - 1;
  const std::vector<std::string> order = {"25th Percentile", "Minimum", "Maximum",
                                          "75th Percentile", "Median",  "Median"};
  ASSERT_EQ(box.series.size(), order.size());
  for (std::size_t i = 0; i < order.size(); ++i) {
    SCOPED_TRACE(order[i]);
    const std::int32_t r = rowOf(order[i]);
    EXPECT_EQ(box.series[i].values.cells, ref(r, 5, r, 6));
    EXPECT_EQ(box.series[i].categories.cells, ref(names, 5, names, 6));
  }
}

TEST_F(DriverChartTest, TheErrorPlotGoesBelowTheBoxPlotLowerOnEveryResultsCall) {
  clsDS ds;
  ds.PlotBox(true);
  ds.PlotError(true);
  ds.BoxTitle("Spread");  // a title makes the box plot 20 points taller
  ds.ErrorCentre("Median");
  ds.ErrorError("Standard Deviation");
  analyse(ds, "Data!D1");
  analyse(ds, "Data!D1");
  std::vector<double> tops, heights;
  for (const ChartModel& chart : data.charts()) {
    tops.push_back(chart.top);
    heights.push_back(chart.height);
    EXPECT_DOUBLE_EQ(chart.left, data.columnLeft(8));
  }
  EXPECT_EQ(tops, (std::vector<double>{0, 220, 0, 440}));
  EXPECT_EQ(heights, (std::vector<double>{200, 180, 200, 180}));
}

TEST_F(DriverChartTest, AtTheLastColumnsTheChartFallsBackIntoTheTable) {
  // A table of 2 columns: the chart wants output column + 3, else the table's last column.
  const std::vector<std::pair<std::string, std::int32_t>> cases = {{"XFA1", 16384}, {"XFB1", 16383}};
  for (const auto& [output, anchorColumn] : cases) {
    SCOPED_TRACE(output);
    InMemoryWorksheet& sheet = book.addSheet("At " + output);
    clsDS ds;
    ds.PlotBox(true);
    ds.Headers(true);
    ds.InputRange("Data!A1:A9");
    ds.OutputRange("'" + sheet.Name() + "'!" + output);
    ds.Results();
    EXPECT_DOUBLE_EQ(onlyChart(sheet).left, sheet.columnLeft(anchorColumn));
  }
}

TEST_F(DriverChartTest, ErrorAmountsAreRangesForSpreadsAndDistancesForLimits) {
  for (const std::string error : {"Standard Error", "Range"}) {
    SCOPED_TRACE(error);
    clsDS ds;
    ds.PlotError(true);
    ds.ErrorCentre("Mean");
    ds.ErrorError(error);
    analyse(ds, "Data!D1");
    const SeriesModel& s = data.charts().back().series.front();
    EXPECT_EQ(s.values.cells, ref(rowOf("Mean"), 5, rowOf("Mean"), 6));
    const ErrorBarsModel& bars = *s.errorBars;
    if (error == "Standard Error") {
      const std::int32_t r = rowOf("Std Error");
      EXPECT_EQ(bars.plusAmounts.cells, ref(r, 5, r, 6));
      EXPECT_EQ(bars.minusAmounts.cells, ref(r, 5, r, 6));
      EXPECT_TRUE(data.cellValue(r + 2, 4).isEmpty()) << "nothing written below for spreads";
    } else {  // up to the maximum and down to the minimum: distances written below the table
      const std::int32_t heading = rowOf("Maximum") + 2;  // the table's last row
      EXPECT_EQ(data.cellValue(heading, 4), CellValue("Data for Error Bars"));
      EXPECT_EQ(data.cellValue(heading + 1, 5), CellValue("Height"));
      EXPECT_EQ(data.cellValue(heading + 1, 6), CellValue("Weight"));
      EXPECT_EQ(data.cellValue(heading + 2, 4), CellValue("Above Mean"));
      EXPECT_EQ(data.cellValue(heading + 3, 4), CellValue("Below Mean"));
      EXPECT_EQ(bars.plusAmounts.cells, ref(heading + 2, 5, heading + 2, 6));
      EXPECT_EQ(bars.minusAmounts.cells, ref(heading + 3, 5, heading + 3, 6));
      EXPECT_EQ(bars.plusAmounts.cached, (Cached{4.0, 3.5}));
      EXPECT_EQ(bars.minusAmounts.cached, (Cached{3.0, 3.5}));
    }
  }
}

TEST_F(DriverChartTest, WithoutRoomBelowTheTableTheDistancesStayInTheChart) {
  // Where the distances would go: under the table pasted at D1 (rows 1-7 used, heading in row 9),
  // and under a table pasted so low that they would pass the sheet's last row.
  const struct {
    const char* what;
    std::string output;
    std::int32_t takenRow;  // 0: nothing in the way
  } cases[] = {{"a cell of the user's below the table", "Data!D1", 12}, {"the sheet's last row", "Data!D1048568", 0}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    if (c.takenRow != 0) data.storeRaw(c.takenRow, 6, CellValue("kept"));
    clsDS ds;
    ds.PlotError(true);
    ds.ErrorCentre("Mean");
    ds.ErrorError("Range");
    analyse(ds, c.output);
    const ErrorBarsModel& bars = *data.charts().back().series.front().errorBars;
    EXPECT_FALSE(bars.plusAmounts.cells.has_value() || bars.minusAmounts.cells.has_value());
    EXPECT_EQ(bars.plusAmounts.literal, (Cached{4.0, 3.5}));
    EXPECT_EQ(bars.minusAmounts.literal, (Cached{3.0, 3.5}));
    const std::int32_t top = ds.pastedBlock()->block().top;
    EXPECT_TRUE(data.cellValue(top + 8, 4).isEmpty()) << "no heading written";
    if (c.takenRow != 0) {
      EXPECT_EQ(data.cellValue(c.takenRow, 6), CellValue("kept"));
    }
  }
}

TEST_F(DriverChartTest, ATextInALimitOrCentreRowFailsTheErrorPlotAfterThePaste) {
  // An unknown centre records no centre row: the names row stands in for it.
  clsDS ds;
  ds.PlotError(true);
  ds.ErrorCentre("mean");
  ds.ErrorError("Range");
  const ComponentError e = errorOf([&] { analyse(ds, "Data!D1"); });
  EXPECT_EQ(e.number(), err::kTypeMismatch);
  EXPECT_EQ(e.source(), "Line 0 in ORVDescriptives.clsDS.Results");
  EXPECT_TRUE(data.charts().empty());
  EXPECT_EQ(data.cellValue(1, 4), CellValue("Descriptive Statistics for:"));
}

}  // namespace
}  // namespace orv::test
