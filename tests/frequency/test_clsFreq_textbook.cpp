// The frequency driver with Textbook: the header says so, binned tables and the histogram's
// normal curve leave empty cells out, and a change of the option is a new analysis.

#include <cmath>
#include <optional>
#include <vector>

#include "../driver_fixture.h"
#include "frequency/clsFreq.h"
#include "frequency/histogram_series.h"

namespace orv::test {
namespace {

// Data with blanks among them, bins from 10: the kept rules count the blanks as 0, below the bins.
TEST_F(DriverTest, TextbookBinsCountNoEmptyCellAndTheHeaderSaysSo) {
  column(1, 1, {12, {}, 25, 14, {}, 31});
  column(3, 1, {10, 20, 30});
  clsFreq f;
  f.InputRange("Data!A1:A6");
  f.BinRange("Data!C1:C3");
  f.Results();
  EXPECT_EQ(sheetLines(lastSheet()),
            (Lines{"Frequency Distributions for:", "Data Range = Data!$A$1:$A$6", "Bin Range = Data!$C$1:$C$3", "",
                   "Frequency Distribution (Bin)", "Column A|N|Cum. N|%|Cum. %",
                   "10|2|2|33.3333333333333|33.3333333333333", "10|2|4|33.3333333333333|66.6666666666667",
                   "20|1|5|16.6666666666667|83.3333333333333", "30|1|6|16.6666666666667|100"}));

  f.Textbook(true);  // a change drops the finished block: this is counted anew
  f.Results(true);   // over the first table, on the same sheet
  EXPECT_EQ(sheetLines(lastSheet()),
            (Lines{"Frequency Distributions for:", "Data Range = Data!$A$1:$A$6", "Bin Range = Data!$C$1:$C$3",
                   "Textbook arithmetic", "", "Frequency Distribution (Bin)", "Column A|N|Cum. N|%|Cum. %",
                   "10|2|2|50|50", "20|1|3|25|75", "30|1|4|25|100"}));
  EXPECT_EQ(f.tables()[0].headingRow, 7);
  EXPECT_FALSE(f.tables()[0].flags[0].LessThanCatUsed);
}

// The histogram's normal curve is fitted to the observations: 2, blank, 4, 6 has mean 4 and
// variance 4 when the blank is no observation (as 0, charts' HistogramSeries tests cover it).
TEST(SampleMoments, EmptyCellsAreNoObservationWhenSkipped) {
  const ValueArray1D data(Cells{2.0, CellValue(), 4.0, 6.0});
  const std::optional<SampleMoments> skipped = sampleMoments(data, std::nullopt, EmptyCells::Skipped);
  ASSERT_TRUE(skipped.has_value());
  EXPECT_DOUBLE_EQ(skipped->mean, 4.0);
  EXPECT_DOUBLE_EQ(skipped->standardDeviation, 2.0);
  // Weights go with their observations.
  const ValueArray1D weights(Cells{1.0, 5.0, 1.0, 2.0});
  EXPECT_DOUBLE_EQ(sampleMoments(data, weights, EmptyCells::Skipped)->mean, 4.5);
}

}  // namespace
}  // namespace orv::test
