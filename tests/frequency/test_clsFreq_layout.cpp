// The frequency driver end to end: the whole written block of each kind of run, its formats,
// the table records, and where it lands.

#include <vector>

#include "../driver_fixture.h"
#include "frequency/clsFreq.h"

namespace orv::test {
namespace {

using Kind = FrequencyTablePlace::Kind;
using Rows = std::vector<std::int32_t>;

TEST_F(DriverTest, RawRunOnANewLastSheet) {
  column(1, 1, {3, 1, 3, 2, 3});
  clsFreq f;
  f.InputRange("Data!A1:A5");
  f.Results();

  ASSERT_EQ(book.WorksheetsCount(), 2);
  Worksheet& out = lastSheet();
  EXPECT_EQ(&app.ActiveSheet(), &out);
  EXPECT_EQ(sheetLines(out),
            (Lines{"Frequency Distributions for:", "Data Range = Data!$A$1:$A$5", "", "Frequency Distribution",
                   "Column A|N|Cum. N|%|Cum. %", "1|1|1|20|20", "2|1|2|20|40", "3|3|5|60|100"}));
  // Headings bold; categories General and landed as numbers, counts "0", percentages "0.00".
  for (std::int32_t row : {1, 4, 5}) EXPECT_TRUE(out.cellFormat(row, 1).bold) << row;
  EXPECT_FALSE(out.cellFormat(2, 1).bold);
  const std::vector<std::string> formats = {"General", "0", "0", "0.00", "0.00"};
  for (std::int32_t c = 1; c <= 5; ++c) EXPECT_EQ(out.cellFormat(8, c).numberFormat, formats[c - 1]);
  EXPECT_EQ(out.cellValue(6, 1), CellValue(1.0));
  ASSERT_EQ(f.tables().size(), 1U);
  EXPECT_EQ(f.tables()[0].kind, Kind::Raw);
  EXPECT_EQ(f.tables()[0].headingRow, 5);
  EXPECT_EQ(f.tables()[0].lastRows, Rows{8});
  EXPECT_EQ(f.resultsBlock()->Address(), "$A$1:$E$10");  // down to the row after the blank line
}

TEST_F(DriverTest, BinnedRunMarksTheOpenCategoriesThroughTheirFormats) {
  column(1, 1, {-1, 0, 5, 10, 29.9999, 30, 45});
  column(3, 1, {0, 10, 20});
  clsFreq f;
  f.InputRange("Data!A1:A7");
  f.BinRange("Data!C1:C3");
  f.OutputRange("Data!E1");
  f.Results();

  EXPECT_EQ(book.WorksheetsCount(), 1);
  EXPECT_EQ(
      lines(data, CellBlock{1, 5, 11, 9}),
      (Lines{"Frequency Distributions for:", "Data Range = Data!$A$1:$A$7", "Bin Range = Data!$C$1:$C$3", "",
             "Frequency Distribution (Bin)", "Column A|N|Cum. N|%|Cum. %", "0|1|1|14.2857142857143|14.2857142857143",
             "0|2|3|28.5714285714286|42.8571428571429", "10|1|4|14.2857142857143|57.1428571428571",
             "20|1|5|14.2857142857143|71.4285714285714", "30|2|7|28.5714285714286|100"}));
  EXPECT_EQ(data.cellFormat(7, 5).numberFormat, "<General");
  EXPECT_EQ(data.cellFormat(8, 5).numberFormat, "General");
  EXPECT_EQ(data.cellFormat(11, 5).numberFormat, ">=General");
  EXPECT_EQ(data.cellValue(11, 5), CellValue(30.0));
  ASSERT_EQ(f.tables().size(), 1U);
  EXPECT_EQ(f.tables()[0].kind, Kind::GivenBins);
  EXPECT_EQ(f.tables()[0].lastRows, Rows{11});
  EXPECT_TRUE(f.tables()[0].flags.at(0).LessThanCatUsed);
  EXPECT_TRUE(f.tables()[0].flags.at(0).GreaterThanCatUsed);
}

TEST_F(DriverTest, VariablesAlongRowsWithHeadersInRawAndBinnedTables) {
  const std::pair<std::int32_t, Cells> rows[] = {
      {2, {"Height", 1, 2, 2, 12}}, {3, {"Width", 5, 15, 15, 15}}, {5, {"Bins", 0, 10}}};
  for (const auto& [row, values] : rows) {
    for (std::size_t i = 0; i < values.size(); ++i) data.storeRaw(row, 2 + static_cast<std::int32_t>(i), values[i]);
  }
  clsFreq f;
  f.DataInRows(true);
  f.Headers(true);
  f.ShowRawData(true);
  f.InputRange("B2:F3");
  f.BinRange("B5:D5");
  f.Results();

  EXPECT_EQ(sheetLines(lastSheet()),
            (Lines{"Frequency Distributions for:", "Data Range = Data!$B$2:$F$3", "Bin Range = Data!$B$5:$D$5", "",
                   "Frequency Distribution", "Height|N|Cum. N|%|Cum. %|Width|N|Cum. N|%|Cum. %",
                   "1|1|1|25|25|5|1|1|25|25", "2|2|3|50|75|15|3|4|75|100", "12|1|4|25|100", "",
                   "Frequency Distribution (Bin)", "Height|N|Cum. N|%|Cum. %|Width|N|Cum. N|%|Cum. %",
                   "0|3|3|75|75|0|1|1|25|25", "10|1|4|25|100|10|3|4|75|100"}));
  ASSERT_EQ(f.tables().size(), 2U);
  EXPECT_EQ(f.tables()[0].lastRows, (Rows{9, 8}));
  EXPECT_EQ(f.tables()[1].headingRow, 12);
  EXPECT_EQ(lastSheet().cellFormat(9, 7).numberFormat, "General");  // plain below the shorter variable
}

TEST_F(DriverTest, FrequenciesWeighTheBinsOrOnlyTheFirstDataVariable) {
  column(3, 1, {0, 10, 20});
  column(4, 1, {4, 0, 6});
  column(5, 1, {1, 2, 1});
  clsFreq counted;
  counted.BinRange("C1:C3");
  counted.FrequencyRange("D1:E3");
  counted.OutputRange("A10");
  counted.Results();
  EXPECT_EQ(lines(data, CellBlock{10, 1, 18, 10}),
            (Lines{"Frequency Distributions for:", "Frequency Range = Data!$D$1:$E$3", "Bin Range = Data!$C$1:$C$3", "",
                   "Frequency Distribution (Bin)", "Column D|N|Cum. N|%|Cum. %|Column E|N|Cum. N|%|Cum. %",
                   "0|4|4|40|40|0|1|1|25|25", "10|0|4|0|40|10|2|3|50|75", "20|6|10|60|100|20|1|4|25|100"}));

  column(7, 1, {5, 7, 5});
  column(8, 1, {2, 2, 4});
  column(9, 1, {9, 9, 9});  // a second data variable: not counted beside frequencies
  clsFreq f;
  f.InputRange("G1:G3,I1:I3");
  f.FrequencyRange("H1:H3");
  f.Results();
  EXPECT_EQ(sheetLines(lastSheet()), (Lines{"Frequency Distributions for:", "Data Range = Data!$G$1:$G$3,$I$1:$I$3",
                                            "Frequency Range = Data!$H$1:$H$3", "", "Frequency Distribution",
                                            "Column G|N|Cum. N|%|Cum. %", "5|6|6|75|75", "7|2|8|25|100"}));
}

TEST_F(DriverTest, AHistogramGetsProposedBinsAndItsOptions) {
  column(1, 1, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
  clsFreq f;
  f.PlotHistogram(true);
  f.CategoryStartPoint(true);
  f.InputRange("A1:A11");
  f.Results();

  // No raw table: the proposed bins 0..9 and the >= category 10, one free row, then the
  // normal curve's expected counts (start-point labels need no category column).
  Worksheet& out = lastSheet();
  EXPECT_EQ(down(out, 1, 4, 6), (Cells{"Frequency Distribution (Bin)", "Column A", 0.0}));
  EXPECT_EQ(lines(out, CellBlock{16, 1, 18, 3}), (Lines{"10|1|11", "", "Data for Histogram"}));
  EXPECT_EQ(out.cellFormat(16, 1).numberFormat, ">=General");
  EXPECT_EQ(lines(out, CellBlock{20, 1, 20, 2}), Lines{"|Normal"});
  EXPECT_EQ(out.usedBlock()->bottom, 20 + 11);
  ASSERT_EQ(f.tables().size(), 1U);
  EXPECT_EQ(f.tables()[0].kind, Kind::ProposedBins);
  EXPECT_EQ(f.tables()[0].lastRows, Rows{16});
  EXPECT_TRUE(f.histogramOptions().normal);  // on without being set
}

}  // namespace
}  // namespace orv::test
