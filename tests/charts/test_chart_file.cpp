// Charts drawn by the circular and frequency drivers, turned into chart parts.

#include "chart_fixture.h"
#include "circular/clsDSCirc.h"
#include "frequency/clsFreq.h"
#include "xlsx/writer_chart_part.h"

namespace orv::test {
namespace {

bool has(const std::string& xml, const std::string& part) { return xml.find(part) != std::string::npos; }

TEST_F(ChartTest, ScatterPlotsAndHistogramsBecomeChartParts) {
  row(1, 1, {"Wind", "Length"});
  const double wind[] = {350, 10, 20, 355, 5, 0, 30, 340}, length[] = {5, 12, 15, 18, 22, 25, 27, 33};
  for (std::int32_t r = 0; r < 8; ++r) row(r + 2, 1, {wind[r], length[r]});
  clsDSCirc circ;
  circ.Headers(true);
  circ.Plot(true);
  circ.InputRange("Data!A1:A9");
  circ.Results();
  clsFreq freq;
  freq.Headers(true);
  freq.PlotHistogram(true);
  freq.PlotCumulative(true);
  freq.InputRange("Data!B1:B9");
  freq.Results();

  ASSERT_EQ(book.WorksheetsCount(), 3);
  auto& circular = dynamic_cast<InMemoryWorksheet&>(book.Worksheets(2));
  auto& frequency = dynamic_cast<InMemoryWorksheet&>(book.Worksheets(3));
  ASSERT_EQ(circular.charts().size(), 1U);
  ASSERT_EQ(frequency.charts().size(), 1U);
  const std::string scatter = chartPartXml(circular.charts().front());
  EXPECT_TRUE(has(scatter, "<c:scatterChart>"));
  EXPECT_TRUE(
      has(scatter, "<c:scaling><c:orientation val=\"minMax\"/><c:max val=\"1\"/><c:min val=\"-1\"/></c:scaling>"));
  EXPECT_TRUE(has(scatter, "<c:xVal><c:numRef>"));
  EXPECT_FALSE(has(scatter, "majorGridlines"));
  // Tick labels at the plot's edges, away from the axes' crossing; 5-point points.
  EXPECT_TRUE(has(scatter, "<c:tickLblPos val=\"low\"/>"));
  EXPECT_FALSE(has(scatter, "<c:tickLblPos val=\"nextTo\"/>"));
  EXPECT_TRUE(has(scatter, "<c:symbol val=\"circle\"/><c:size val=\"5\"/>"));
  const std::string histogram = chartPartXml(frequency.charts().front());
  EXPECT_TRUE(has(histogram, "<c:gapWidth val=\"0\"/>"));
  // With the cumulative line, no line is smoothed (a reader may smooth all of a chart's lines).
  EXPECT_FALSE(has(histogram, "<c:smooth val=\"1\"/>"));
  // The legend below the plot in 8-point type; the plot area laid out to leave it room.
  EXPECT_TRUE(has(histogram, "<c:legend><c:legendPos val=\"b\"/>"));
  EXPECT_TRUE(
      has(histogram, "<a:defRPr sz=\"800\" b=\"0\"/></a:pPr><a:endParaRPr lang=\"en-US\"/></a:p></c:txPr></c:legend>"));
  EXPECT_TRUE(has(histogram, "<c:manualLayout>"));
  // The normal curve and the "from - to" labels come from the cells written below the table.
  EXPECT_FALSE(has(histogram, "<c:numLit>") || has(histogram, "<c:strLit>"));
  EXPECT_TRUE(has(histogram, "<c:cat><c:strRef>"));
  EXPECT_TRUE(has(histogram, "<a:srgbClr val=\"FF0000\"/>"));  // the red normal curve
  // The cumulative percentages on their own axis from 0 to 100.
  EXPECT_TRUE(has(histogram, "<c:max val=\"100\"/><c:min val=\"0\"/>"));
  EXPECT_TRUE(has(histogram, "<c:v>Cumulative %</c:v>"));
}

}  // namespace
}  // namespace orv::test
