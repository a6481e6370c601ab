// Chart pieces the package tests do not reach: group limits, blank cached points, capped and absent
// markers, one-sided error bars, plot layout, the automatic line colours, anchors, and foreign drawings.

#include <gtest/gtest.h>

#include "workbook/chart_model.h"
#include "xlsx/writer_chart_data.h"
#include "xlsx/writer_chart_groups.h"
#include "xlsx/writer_chart_palette.h"
#include "xlsx/writer_chart_part.h"
#include "xlsx/writer_chart_series.h"
#include "xlsx/writer_drawing.h"
#include "xlsx/writer_drawing_package.h"

namespace orv::chartxml {
namespace {

bool has(const std::string& xml, const std::string& piece) { return xml.find(piece) != std::string::npos; }

TEST(ChartElements, CachesMarkersErrorBarsLayoutAndPalette) {
  ChartData blank;
  blank.cells = SheetRef{"Results", CellBlock{8, 2, 8, 4}};
  blank.cached = {1.5, std::nullopt, 0.1};
  const std::string val = numberData("val", blank);
  EXPECT_TRUE(has(val, R"(<c:ptCount val="3"/><c:pt idx="0"><c:v>1.5</c:v></c:pt><c:pt idx="2">)")) << val;
  SeriesModel fromCell;
  fromCell.name = "Alpha";
  fromCell.nameCell = SheetRef{"My data", CellBlock{1, 2, 1, 2}};
  EXPECT_TRUE(has(seriesText(fromCell), "<c:strRef><c:f>'My data'!$B$1</c:f>")) << seriesText(fromCell);

  SeriesModel automatic;
  automatic.markerSize = 100;
  EXPECT_TRUE(has(marker(automatic, 1, false), R"(<c:symbol val="square"/><c:size val="72"/>)"))
      << marker(automatic, 1, false);
  EXPECT_EQ(marker(SeriesModel{}, 0, true), R"(<c:marker><c:symbol val="none"/></c:marker>)");
  // Points with error bars: a small mid-blue circle, whatever their automatic place would give;
  // a marker that was set stays as it is.
  SeriesModel withBars;
  withBars.errorBars = ErrorBarsModel{};
  EXPECT_EQ(
      marker(withBars, 0, false),
      R"(<c:marker><c:symbol val="circle"/><c:size val="4"/><c:spPr><a:solidFill><a:srgbClr val="3366FF"/>)"
      R"(</a:solidFill><a:ln w="9525"><a:solidFill><a:srgbClr val="3366FF"/></a:solidFill></a:ln></c:spPr></c:marker>)");
  withBars.marker = MarkerSymbol::Dash;
  EXPECT_TRUE(has(marker(withBars, 0, false), R"(<c:symbol val="dash"/><c:size val="7"/>)"));

  ErrorBarsModel bars;
  bars.minus = false;
  bars.endCaps = false;
  bars.plusAmounts.literal = {2};
  const std::string plusOnly = errorBars(bars);
  EXPECT_TRUE(has(plusOnly, R"(<c:errBarType val="plus"/><c:errValType val="cust"/><c:noEndCap val="1"/>)"))
      << plusOnly;
  EXPECT_FALSE(has(plusOnly, "<c:minus>"));
  bars.plus = false;
  EXPECT_EQ(errorBars(bars), "");

  ChartModel chart;
  chart.width = 200;
  chart.height = 180;
  EXPECT_EQ(plotLayout(chart), "<c:layout/>");
  chart.plotArea = {20, 45, 170, 200, true, false, false};  // the height is clipped to the chart
  EXPECT_TRUE(has(plotLayout(chart), R"(<c:x val="0.1"/><c:y val="0.25"/><c:w val="0.85"/><c:h val="1"/>)"));

  EXPECT_EQ(automaticLineRgb(8), "000080");  // the cycle repeats
}

// The box plot and histogram groupings are checked in the written package; these are the limits.
TEST(ChartGroups, AStockGroupTakesFourSeriesAndNeedsMoreThanTwo) {
  const auto stock = [](ChartKind kind, std::size_t n) {
    ChartModel chart;
    chart.series.resize(n);
    for (SeriesModel& s : chart.series) s.kind = kind;
    std::vector<std::pair<GroupType, std::vector<std::size_t>>> out;
    for (const GroupPlan& g : planGroups(chart)) out.emplace_back(g.type, g.series);
    return out;
  };
  EXPECT_EQ(stock(ChartKind::StockOHLC, 5), (std::vector<std::pair<GroupType, std::vector<std::size_t>>>{
                                                {GroupType::Stock, {0, 1, 2, 3}}, {GroupType::Line, {4}}}));
  EXPECT_EQ(stock(ChartKind::StockHLC, 2),
            (std::vector<std::pair<GroupType, std::vector<std::size_t>>>{{GroupType::Line, {0, 1}}}));
}

}  // namespace
}  // namespace orv::chartxml

namespace orv {
namespace {

TEST(ChartAnchor, WalksRowHeightsAndColumnWidthsSkippingHiddenRows) {
  SheetGeometry geometry;
  geometry.setRowHeight(3, 0.0);
  geometry.setRowHeight(4, 45.0);
  geometry.setColumnWidth(2, 100.0);
  struct Case {
    double left, top;
    std::int32_t column;
    std::int64_t columnOffset;
    std::int32_t row;
    std::int64_t rowOffset;
  };
  // Row tops: 1:0 2:15 3:30 (hidden) 4:30 5:75; column lefts: A 0, B 48, C 148.
  const Case cases[] = {
      {148, 30, 2, 0, 3, 0}, {150, 31, 2, 25400, 3, 12700}, {-5, -5, 0, 0, 0, 0}, {47.5, 74.99, 0, 603250, 3, 571373}};
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.left) + "," + std::to_string(c.top));
    const ChartAnchor a = anchorFor(geometry, c.left, c.top, 200, 180);
    EXPECT_EQ(std::tuple(a.column, a.columnOffset, a.row, a.rowOffset),
              std::tuple(c.column, c.columnOffset, c.row, c.rowOffset));
  }
}

// A drawing written with the default namespace keeps it; the anchors declare a: and r:.
TEST(ChartAnchor, AppendsToADrawingWrittenElsewhere) {
  const std::string existing =
      R"(<wsDr xmlns="http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing"><twoCellAnchor>)"
      R"(<pic><nvPicPr><cNvPr id="7" name="Picture 1"/></nvPicPr></pic></twoCellAnchor></wsDr>)";
  const std::string out = drawingWithCharts(existing, "xl/drawings/drawing1.xml", {{{}, "Chart 1", "rId4"}});
  EXPECT_NE(out.find(R"(<oneCellAnchor xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main" )"
                     R"(xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships"><from>)"),
            std::string::npos);
  EXPECT_NE(out.find(R"(<cNvPr id="8" name="Chart 1"/>)"), std::string::npos);
  EXPECT_EQ(out.find("Picture 1"), existing.find("Picture 1"));
}

}  // namespace
}  // namespace orv
