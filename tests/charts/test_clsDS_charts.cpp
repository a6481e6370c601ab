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

  // The sheet row of the pasted table whose label (output column `labelColumn`) is `label`.
  std::int32_t rowOf(const std::string& label, std::int32_t labelColumn = 4) {
    for (std::int32_t r = 1; r <= 40; ++r) {
      const CellValue v = data.cellValue(r, labelColumn);
      if (v.isText() && v.text() == label) return r;
    }
    ADD_FAILURE() << "no row labelled " << label;
    return 0;
  }
  double at(std::int32_t r, std::int32_t c) { return data.cellValue(r, c).number(); }
};

TEST_F(DriverChartTest, TheBoxPlotStandsOneColumnRightOfTheTableAndReadsItsRows) {
  clsDS ds;
  ds.PlotBox(true);
  analyse(ds, "Data!D1");  // a table of 3 columns, D:F
  const ChartModel& box = onlyChart(data);
  EXPECT_DOUBLE_EQ(box.left, 7 * 48);  // column H
  EXPECT_DOUBLE_EQ(box.top, 0);
  EXPECT_DOUBLE_EQ(box.width, 50 * 3 + 50);
  EXPECT_DOUBLE_EQ(box.height, 180);
  EXPECT_EQ(box.kind, ChartKind::StockOHLC);
  const std::int32_t names = rowOf("Median") - 1;
  const std::vector<std::string> order = {"25th Percentile", "Minimum", "Maximum", "75th Percentile",
                                          "Median", "Median"};
  ASSERT_EQ(box.series.size(), order.size());
  for (std::size_t i = 0; i < order.size(); ++i) {
    SCOPED_TRACE(order[i]);
    const std::int32_t r = rowOf(order[i]);
    EXPECT_EQ(box.series[i].values.cells, ref(r, 5, r, 6));
    EXPECT_EQ(box.series[i].categories.cells, ref(names, 5, names, 6));
  }
  EXPECT_EQ(box.series.front().categories.cached, (std::vector<std::string>{"Height", "Weight"}));
}

TEST_F(DriverChartTest, ChartHeightsAndTheOffsetThatStacksTheErrorPlot) {
  struct Case {
    std::string boxTitle, errorTitle;
    double boxHeight, errorTop, errorHeight;
  };
  const std::vector<Case> cases = {
      {"", "", 180, 198, 180},
      {"Spread", "", 200, 220, 180},
      {"", "Means", 180, 198, 200},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.boxTitle + " / " + c.errorTitle);
    InMemoryWorksheet& sheet = book.addSheet("Run " + std::to_string(book.WorksheetsCount()));
    clsDS ds;
    ds.PlotBox(true);
    ds.PlotError(true);
    ds.ErrorCentre("Mean");
    ds.ErrorError("Standard Error");
    ds.BoxTitle(c.boxTitle);
    ds.ErrorTitle(c.errorTitle);
    analyse(ds, "'" + sheet.Name() + "'!B2");
    ASSERT_EQ(sheet.charts().size(), 2U);
    const ChartModel& box = sheet.charts()[0];
    const ChartModel& error = sheet.charts()[1];
    EXPECT_DOUBLE_EQ(box.top, 15);
    EXPECT_DOUBLE_EQ(box.height, c.boxHeight);
    EXPECT_DOUBLE_EQ(error.top, 15 + c.errorTop);
    EXPECT_DOUBLE_EQ(error.height, c.errorHeight);
    EXPECT_DOUBLE_EQ(error.left, box.left);
    EXPECT_DOUBLE_EQ(error.width, 200);
  }
}

TEST_F(DriverChartTest, TheOffsetKeepsGrowingOverResultsCalls) {
  clsDS ds;
  ds.PlotBox(true);
  ds.PlotError(true);
  ds.ErrorCentre("Median");
  ds.ErrorError("Standard Deviation");
  analyse(ds, "Data!D1");
  analyse(ds, "Data!D1");
  std::vector<double> tops;
  for (const ChartModel& chart : data.charts()) tops.push_back(chart.top);
  // Box plots always start at the table's first row; error plots go 198 points lower every call.
  EXPECT_EQ(tops, (std::vector<double>{0, 198, 0, 396}));
}

TEST_F(DriverChartTest, AtTheLastColumnsTheChartFallsBackIntoTheTable) {
  struct Case {
    std::string output;
    std::int32_t outputColumn, anchorColumn;
  };
  // A table of 2 columns: the chart wants output column 4, else the table's last column.
  const std::vector<Case> cases = {
      {"XFA1", 16381, 16384},
      {"XFB1", 16382, 16383},
      {"XFC1", 16383, 16384},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.output);
    InMemoryWorksheet& sheet = book.addSheet("At " + c.output);
    clsDS ds;
    ds.PlotBox(true);
    ds.Headers(true);
    ds.InputRange("Data!A1:A9");
    ds.OutputRange("'" + sheet.Name() + "'!" + c.output);
    ds.Results();
    const ChartModel& box = onlyChart(sheet);
    EXPECT_DOUBLE_EQ(box.left, (c.anchorColumn - 1) * 48.0);
    EXPECT_DOUBLE_EQ(box.width, 150);
    EXPECT_EQ(box.series.front().values.cells->block.left, c.outputColumn + 1);
  }
}

TEST_F(DriverChartTest, ErrorAmountsAreRangesForSpreadsAndDistancesForLimits) {
  struct Case {
    std::string centre, error;
    std::string upperLabel, lowerLabel;  // rows the amounts come from
    bool distances;
  };
  const std::vector<Case> cases = {
      {"Mean", "Standard Error", "Std Error", "Std Error", false},
      {"Median", "Standard Deviation", "Std Dev.", "Std Dev.", false},
      {"Mean", "Variance", "Variance", "Variance", false},
      {"Mean", "Range", "Maximum", "Minimum", true},
      {"Median", "Interpercentile Range", "75th Percentile", "25th Percentile", true},
      {"Mean", "Confidence Limits", "Upper 95%CL", "Lower 95%CL", true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.error);
    const std::size_t before = data.charts().size();
    clsDS ds;
    ds.PlotError(true);
    ds.ErrorCentre(c.centre);
    ds.ErrorError(c.error);
    analyse(ds, "Data!D1");
    ASSERT_EQ(data.charts().size(), before + 1);
    const SeriesModel& s = data.charts().back().series.front();
    const std::int32_t centre = rowOf(c.centre), upper = rowOf(c.upperLabel), lower = rowOf(c.lowerLabel);
    EXPECT_EQ(s.values.cells, ref(centre, 5, centre, 6));
    const ErrorBarsModel& bars = *s.errorBars;
    if (!c.distances) {
      EXPECT_EQ(bars.plusAmounts.cells, ref(upper, 5, upper, 6));
      EXPECT_EQ(bars.minusAmounts.cells, ref(lower, 5, lower, 6));
      continue;
    }
    EXPECT_FALSE(bars.plusAmounts.cells.has_value());
    EXPECT_FALSE(bars.minusAmounts.cells.has_value());
    EXPECT_EQ(bars.plusAmounts.literal, (Cached{at(upper, 5) - at(centre, 5), at(upper, 6) - at(centre, 6)}));
    EXPECT_EQ(bars.minusAmounts.literal, (Cached{at(centre, 5) - at(lower, 5), at(centre, 6) - at(lower, 6)}));
  }
  // "Range" about the mean: up to the maximum and down to the minimum.
  const ErrorBarsModel& range = *data.charts()[3].series.front().errorBars;
  EXPECT_EQ(range.plusAmounts.literal, (Cached{4.0, 3.5}));
  EXPECT_EQ(range.minusAmounts.literal, (Cached{3.0, 3.5}));
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
