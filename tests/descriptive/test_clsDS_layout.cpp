// The descriptive driver end to end on the in-memory host: what it writes, and where.

#include <cmath>

#include "../driver_fixture.h"
#include "descriptive/clsDS.h"

namespace orv::test {
namespace {

const Cells kSample = {2, 4, 4, 4, 5, 5, 7, 9};  // mean 5, variance 32/7

TEST_F(DriverTest, NothingSelectedWritesTheDefaultFourRowsOnANewLastSheet) {
  column(27, 1, kSample);
  column(28, 1, {1, 2, 3, 4, 5, 6, 7, 8});
  clsDS ds;
  ds.InputRange("Data!AA1:AB8");
  ds.Results();

  ASSERT_EQ(book.WorksheetsCount(), 2);
  Worksheet& out = lastSheet();
  EXPECT_EQ(out.Name(), "Sheet1");
  EXPECT_EQ(&app.ActiveSheet(), &out);
  EXPECT_EQ(down(out, 1, 1, 8), (Cells{"Descriptive Statistics for:",
                                       "Input Range = Data!$AA$1:$AB$8",
                                       {},
                                       {},
                                       "Mean",
                                       "Std Error",
                                       "Std Dev.",
                                       "Count"}));
  EXPECT_EQ(lines(out, CellBlock{4, 2, 5, 3}), (Lines{"Column AA|Column AB", "5|4.5"}));
  const double sd = std::sqrt(32.0 / 7.0);
  EXPECT_DOUBLE_EQ(number(out, 6, 2), sd / std::sqrt(8.0));
  EXPECT_DOUBLE_EQ(number(out, 7, 2), sd);
  EXPECT_DOUBLE_EQ(number(out, 8, 2), 8.0);
  EXPECT_EQ(out.usedBlock(), (CellBlock{1, 1, 8, 3}));
  EXPECT_TRUE(out.cellFormat(5, 1).bold);
  EXPECT_EQ(ds.outputRange()->Address(), "$A$1");
}

TEST_F(DriverTest, EverythingSelectedWithHeadersOverTwoAreas) {
  data.storeRaw(1, 1, "Height");
  column(1, 2, kSample);
  data.storeRaw(1, 3, "Weight");
  column(3, 2, {1, 2, 3, 4, 5, 6, 7, 8});
  data.storeRaw(1, 4, 2.5);  // a numeric header: its text names the column
  column(4, 2, {8, 7, 6, 5, 4, 3, 2, 1});

  clsDS ds;
  for (auto set : {&clsDS::GetMean, &clsDS::GetMedian, &clsDS::GetMode, &clsDS::GetSE, &clsDS::GetSD,
                   &clsDS::GetVariance, &clsDS::GetCV, &clsDS::GetCL, &clsDS::GetSum, &clsDS::GetSkewness,
                   &clsDS::GetKurtosis, &clsDS::GetMin, &clsDS::GetMax, &clsDS::GetCount, &clsDS::GetLargest,
                   &clsDS::GetSmallest, &clsDS::GetRange, &clsDS::GetPercentile, &clsDS::Headers}) {
    (ds.*set)(true);
  }
  ds.Smallest(3);
  ds.Largest(2);
  ds.InputRange("Data!A1:A9,C1:D9");
  ds.OutputRange("Data!F2");
  ds.Results();

  EXPECT_EQ(book.WorksheetsCount(), 1);  // pasted at F2: names in row 5, 22 statistics below
  EXPECT_EQ(down(data, 6, 3, 3), Cells{"Input Range = Data!$A$1:$A$9,$C$1:$D$9"});
  EXPECT_EQ((Cells{data.cellValue(5, 7), data.cellValue(5, 8), data.cellValue(5, 9)}),
            (Cells{"Height", "Weight", 2.5}));  // assigned: a numeric text becomes a number
  EXPECT_EQ(down(data, 6, 6, 27),
            (Cells{"Mean",        "Median",      "Mode",         "Std Error",       "Std Dev.",        "Variance",
                   "Coeff. Var.", "Lower 95%CL", "Upper 95%CL",  "25th Percentile", "75th Percentile", "Sum",
                   "Minimum",     "Maximum",     "3rd Smallest", "2nd Largest",     "Range",           "Count",
                   "Skewness",    "P(Skewness)", "Kurtosis",     "P(Kurtosis)"}));

  // Column G, the first area, against direct definitions.
  const double sd = std::sqrt(32.0 / 7.0);
  const double t = 2.36462425159278;                        // two-tailed 95 % t with 7 degrees of freedom
  EXPECT_DOUBLE_EQ(number(data, 7, 7), 4.5);                // median
  EXPECT_EQ(data.cellValue(8, 7), CellValue(4.0));          // mode "4", assigned
  EXPECT_DOUBLE_EQ(number(data, 12, 7), sd / 5.0 * 100.0);  // CV
  EXPECT_NEAR(number(data, 13, 7), 5.0 - t * sd / std::sqrt(8.0), 1e-9);
  EXPECT_NEAR(number(data, 14, 7), 5.0 + t * sd / std::sqrt(8.0), 1e-9);
  EXPECT_DOUBLE_EQ(number(data, 17, 7), 40.0);  // sum
  EXPECT_DOUBLE_EQ(number(data, 20, 7), 4.0);   // 3rd smallest
  EXPECT_DOUBLE_EQ(number(data, 21, 7), 7.0);   // 2nd largest
  EXPECT_DOUBLE_EQ(number(data, 22, 7), 7.0);   // range
  // Eight observations: no skewness or kurtosis test; no value repeats in column H.
  EXPECT_EQ(data.cellValue(25, 7), CellValue("-"));
  EXPECT_EQ(data.cellValue(27, 7), CellValue("-"));
  EXPECT_EQ(data.cellValue(8, 8), CellValue("-"));
  EXPECT_DOUBLE_EQ(number(data, 6, 9), 4.5);
}

TEST_F(DriverTest, PercentileLabelsCarryTheSmallerOrdinalFirst) {
  column(1, 1, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19});
  const struct {
    std::uint8_t percentile;
    const char *lower, *upper;
  } cases[] = {{90, "10th Percentile", "90th Percentile"},
               {50, "50th Percentile", "50th Percentile"},
               {5, "5th Percentile", "95th Percentile"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.percentile);
    clsDS ds;
    ds.GetPercentile(true);
    ds.Percentile(c.percentile);
    ds.InputRange("Data!A1:A19");
    ds.OutputRange("Data!C1");
    ds.Results(true);
    EXPECT_EQ(down(data, 3, 5, 6), (Cells{c.lower, c.upper}));
  }
}

TEST_F(DriverTest, BoxPlotForcesItsRowsAndRecordsThem) {
  column(2, 1, kSample);
  clsDS ds;
  ds.PlotBox(true);
  ds.Percentile(0);
  ds.InputRange("Data!B1:B8");
  ds.Results();
  EXPECT_EQ(down(lastSheet(), 1, 5, 9), (Cells{"Median", "25th Percentile", "75th Percentile", "Minimum", "Maximum"}));
  const PlotRows& r = ds.plotRows();
  EXPECT_EQ((std::vector<std::int32_t>{r.columns, r.header, r.median, r.lowerPercentile, r.upperPercentile, r.minimum,
                                       r.maximum}),
            (std::vector<std::int32_t>{1, 4, 5, 6, 7, 8, 9}));
}

TEST_F(DriverTest, ErrorPlotForcesCentreAndSpreadRows) {
  column(1, 1, kSample);
  const struct {
    const char *centre, *error;
    Cells labels;
    int centreRow, upperRow, lowerRow;  // the table starts at row 5, so unrecorded is 4
  } cases[] = {
      {"Mean", "Standard Error", {"Mean", "Std Error"}, 5, 6, 6},
      {"Median", "Standard Deviation", {"Median", "Std Dev."}, 5, 6, 6},
      {"Mean", "Range", {"Mean", "Minimum", "Maximum"}, 5, 7, 6},
      {"Median", "Interpercentile Range", {"Median", "25th Percentile", "75th Percentile"}, 5, 7, 6},
      {"Mean", "Confidence Limits", {"Mean", "Lower 95%CL", "Upper 95%CL"}, 5, 7, 6},
      // Any other centre means the median, any other error the standard error; neither is recorded.
      {"mean", "", {"Median", "Std Error"}, 4, 4, 4},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.centre) + " / " + c.error);
    clsDS ds;
    ds.PlotError(true);
    ds.ErrorCentre(c.centre);
    ds.ErrorError(c.error);
    ds.InputRange("Data!A1:A8");
    ds.OutputRange("Data!C1");
    ds.Results(true);
    EXPECT_EQ(down(data, 3, 5, 4 + static_cast<std::int32_t>(c.labels.size())), c.labels);
    EXPECT_EQ(ds.plotRows().centre, c.centreRow);
    EXPECT_EQ(ds.plotRows().upperError, c.upperRow);
    EXPECT_EQ(ds.plotRows().lowerError, c.lowerRow);
  }
}

TEST_F(DriverTest, ForcedDefaultsStayForLaterCalls) {
  column(1, 1, kSample);
  clsDS ds;
  ds.PlotError(true);
  ds.ErrorCentre("Mean");
  ds.ErrorError("Confidence Limits");
  ds.CL(0);
  ds.InputRange("Data!A1:A8");
  ds.OutputRange("Data!C1");
  ds.Results();
  EXPECT_EQ(down(data, 3, 6, 7), (Cells{"Lower 25%CL", "Upper 25%CL"}));
  ds.PlotError(false);  // the plot is off, but the level it set stays 25
  ds.GetCL(true);
  ds.Results(true);
  EXPECT_EQ(down(data, 3, 5, 6), (Cells{"Lower 25%CL", "Upper 25%CL"}));
}

}  // namespace
}  // namespace orv::test
