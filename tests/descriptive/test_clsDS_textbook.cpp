// The descriptive driver with Textbook, and the notes it keeps on the kept rules without it.

#include "../driver_fixture.h"
#include "descriptive/clsDS.h"
#include "reference_samples.h"

namespace orv::test {
namespace {

using samples::kFaithfulWaiting;
using samples::kIrisPetalLength;
using samples::kLakeHuron;

Cells cellsOf(const std::vector<double>& values) { return Cells(values.begin(), values.end()); }

class DescriptiveNotes : public DriverTest {
 protected:
  // Three published samples under their names in A, B and C.
  void threeSamples() {
    data.storeRaw(1, 1, "Petal");
    column(1, 2, cellsOf(kIrisPetalLength));
    data.storeRaw(1, 2, "Huron");
    column(2, 2, cellsOf(kLakeHuron));
    data.storeRaw(1, 3, "Waiting");
    column(3, 2, cellsOf(kFaithfulWaiting));
  }
  void shapeAndPercentiles(clsDS& ds, std::uint8_t percentile) {
    ds.Headers(true);
    ds.GetSkewness(true);
    ds.GetKurtosis(true);
    ds.GetPercentile(true);
    ds.Percentile(percentile);
    ds.InputRange("Data!A1:C273");
  }
};

struct ExpectedNote {
  KeptRule rule;
  std::string column;
  std::string cells;
  std::int64_t observations;
  std::vector<std::string> statistics;
};

// One note per column and rule, in column order and, within a column, in the order of the rows:
// iris's kurtosis test of size (its kurtosis is -1.40); Lake Huron's 98th percentile (position
// 97.02 of 98), its power sums (values near 579, spread 1.3) and its test of size (-0.46); the
// 272 waiting times' kurtosis and its probability, "-" from 217 observations.
TEST_F(DescriptiveNotes, KeptRulesThatChangedAValueAreNotedOncePerColumnAndRule) {
  threeSamples();
  clsDS ds;
  shapeAndPercentiles(ds, 2);
  ds.Results();

  const ExpectedNote expected[] = {
      {KeptRule::KurtosisTestOfSize, "Petal", "Data!$A$2:$A$273", 150, {"P(Kurtosis)"}},
      {KeptRule::PercentileBesideLast, "Huron", "Data!$B$2:$B$273", 98, {"98th Percentile"}},
      {KeptRule::PowerSumPrecision, "Huron", "Data!$B$2:$B$273", 98, {"Kurtosis"}},
      {KeptRule::KurtosisTestOfSize, "Huron", "Data!$B$2:$B$273", 98, {"P(Kurtosis)"}},
      {KeptRule::KurtosisSampleSize, "Waiting", "Data!$C$2:$C$273", 272, {"Kurtosis", "P(Kurtosis)"}},
  };
  const std::vector<ArithmeticNote>& notes = ds.notes();
  ASSERT_EQ(notes.size(), std::size(expected));
  for (std::size_t i = 0; i < notes.size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(notes[i].rule, expected[i].rule);
    EXPECT_EQ(notes[i].column, expected[i].column);
    EXPECT_EQ(notes[i].cells.AddressWithSheet(), expected[i].cells);
    EXPECT_EQ(notes[i].observations, expected[i].observations);
    std::vector<std::string> statistics;
    for (const ChangedValue& v : notes[i].values) statistics.push_back(v.statistic);
    EXPECT_EQ(statistics, expected[i].statistics);
  }
  // What each note says the table shows is what the table holds; the sheet holds no note.
  Worksheet& out = lastSheet();
  EXPECT_EQ(notes[4].values[0].shown, CellValue("-"));
  EXPECT_EQ(notes[0].values[0].shown, out.cellValue(10, 2));
  // scipy.stats.kurtosistest of iris$Petal.Length and R's quantile(LakeHuron, 0.98, type = 6)
  // (see test_clsDSBO_textbook.cpp).
  EXPECT_LT(std::fabs(notes[0].values[0].textbook / 1.0370372230866573e-49 - 1), 1e-9);
  EXPECT_DOUBLE_EQ(notes[1].values[0].textbook, 581.68359999999996);
  EXPECT_EQ(notes[1].values[0].shown, out.cellValue(6, 3));
}

TEST_F(DescriptiveNotes, TextbookLeavesNoNoteAndSaysSoInTheHeader) {
  threeSamples();
  clsDS ds;
  shapeAndPercentiles(ds, 1);
  ds.Textbook(true);
  ds.Results();
  EXPECT_TRUE(ds.notes().empty());
  Worksheet& out = lastSheet();
  // The comment line pushes the table down by one row.
  EXPECT_EQ(down(out, 1, 1, 5),
            (Cells{"Descriptive Statistics for:", "Input Range = Data!$A$1:$C$273", "Textbook arithmetic", {}, {}}));
  EXPECT_EQ(down(out, 1, 6, 7), (Cells{"1st Percentile", "99th Percentile"}));
  EXPECT_TRUE(out.cellFormat(3, 1).bold);
  // R's quantile(type = 6) of iris$Petal.Length at 0.99; scipy's kurtosis of faithful$waiting.
  EXPECT_DOUBLE_EQ(number(out, 7, 2), 6.7980000000000018);
  EXPECT_NEAR(number(out, 10, 4), -1.1415288031601762, 1e-13);
  // The 1st percentile of Lake Huron's 98 levels lies before the first: the smallest (the kept
  // rules read row 0 there and fail).
  EXPECT_DOUBLE_EQ(number(out, 6, 3), 575.96);
}

// The box plot reads its rows below the comment line.
TEST_F(DescriptiveNotes, ChartRowsFollowTheCommentLine) {
  column(1, 1, {3, 1, 4, 1, 5, 9, 2, 6});
  for (const bool textbook : {false, true}) {
    SCOPED_TRACE(textbook);
    clsDS ds;
    ds.PlotBox(true);
    ds.Textbook(textbook);
    ds.InputRange("Data!A1:A8");
    ds.Results();
    Worksheet& out = lastSheet();
    EXPECT_EQ(out.cellValue(ds.plotRows().median, 1), CellValue("Median"));
    EXPECT_EQ(out.cellValue(ds.plotRows().maximum, 1), CellValue("Maximum"));
    EXPECT_EQ(ds.plotRows().header, textbook ? 5 : 4);
  }
}

}  // namespace
}  // namespace orv::test
