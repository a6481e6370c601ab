// Exact-string tests of the small chart serialisers, the grouping of series into chart groups,
// the palette, and anchor placement.

#include <gtest/gtest.h>

#include "workbook/chart_model.h"
#include "xlsx/writer_chart_data.h"
#include "xlsx/writer_chart_elements.h"
#include "xlsx/writer_chart_groups.h"
#include "xlsx/writer_chart_palette.h"
#include "xlsx/writer_chart_part.h"
#include "xlsx/writer_chart_series.h"
#include "xlsx/writer_drawing.h"
#include "xlsx/writer_drawing_package.h"

namespace orv::chartxml {
namespace {

struct Row {
  const char* what;
  std::string actual;
  std::string expected;
};

void expectRows(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(row.actual, row.expected);
  }
}

ChartData cellData(std::vector<std::optional<double>> cached) {
  ChartData d;
  d.cells = SheetRef{"Results", CellBlock{8, 2, 8, 4}};
  d.cached = std::move(cached);
  return d;
}

ChartData literalData(std::vector<std::optional<double>> values) {
  ChartData d;
  d.literal = std::move(values);
  return d;
}

TEST(ChartElements, ShapesTextsAndTitles) {
  expectRows({
      {"value escaped", valueElement("x", "a\"b"), R"(<c:x val="a&quot;b"/>)"},
      {"font", textProperties({8, false}),
       R"(<c:txPr><a:bodyPr/><a:lstStyle/><a:p><a:pPr><a:defRPr sz="800" b="0"/></a:pPr><a:endParaRPr lang="en-US"/></a:p></c:txPr>)"},
      {"vertical title", title("A & B", {10, true}, true),
       R"(<c:title><c:tx><c:rich><a:bodyPr rot="-5400000" vert="horz"/><a:lstStyle/><a:p><a:pPr><a:defRPr sz="1000" b="1"/></a:pPr>)"
       R"(<a:r><a:rPr lang="en-US" sz="1000" b="1"/><a:t>A &amp; B</a:t></a:r></a:p></c:rich></c:tx><c:overlay val="0"/></c:title>)"},
  });
}

TEST(ChartElements, DataReferencesAndCaches) {
  SeriesModel named;
  named.name = "Frequency";
  SeriesModel fromCell;
  fromCell.name = "Alpha";
  fromCell.nameCell = SheetRef{"My data", CellBlock{1, 2, 1, 2}};
  ChartLabels labels{SheetRef{"Results", CellBlock{1, 2, 1, 3}}, {"x<y", "b"}};
  expectRows({
      {"quoted sheet", formula({"It's", CellBlock{1, 1, 3, 2}}), "'It''s'!$A$1:$B$3"},
      {"range with a blank cell", numberData("val", cellData({1.5, std::nullopt, 0.1})),
       "<c:val><c:numRef><c:f>Results!$B$8:$D$8</c:f><c:numCache><c:formatCode>General</c:formatCode>"
       R"(<c:ptCount val="3"/><c:pt idx="0"><c:v>1.5</c:v></c:pt><c:pt idx="2"><c:v>0.1</c:v></c:pt>)"
       "</c:numCache></c:numRef></c:val>"},
      {"literal", numberData("minus", literalData({1.6, 1e-20})),
       R"(<c:minus><c:numLit><c:formatCode>General</c:formatCode><c:ptCount val="2"/><c:pt idx="0"><c:v>1.6</c:v></c:pt>)"
       R"(<c:pt idx="1"><c:v>1e-20</c:v></c:pt></c:numLit></c:minus>)"},
      {"labels", labelData("cat", labels),
       R"(<c:cat><c:strRef><c:f>Results!$B$1:$C$1</c:f><c:strCache><c:ptCount val="2"/><c:pt idx="0"><c:v>x&lt;y</c:v></c:pt>)"
       R"(<c:pt idx="1"><c:v>b</c:v></c:pt></c:strCache></c:strRef></c:cat>)"},
      {"literal name", seriesText(named), "<c:tx><c:v>Frequency</c:v></c:tx>"},
      {"name from a cell", seriesText(fromCell),
       R"(<c:tx><c:strRef><c:f>'My data'!$B$1</c:f><c:strCache><c:ptCount val="1"/><c:pt idx="0"><c:v>Alpha</c:v></c:pt></c:strCache></c:strRef></c:tx>)"},
  });
}

TEST(ChartElements, MarkersAndErrorBars) {
  SeriesModel median;
  median.marker = MarkerSymbol::Dash;
  median.markerSize = 12;
  SeriesModel automatic;
  automatic.markerSize = 100;
  ErrorBarsModel both;
  both.plusAmounts = cellData({0.8, 0.6, 0.4});
  both.minusAmounts = literalData({1.6});
  ErrorBarsModel plusOnly;
  plusOnly.minus = false;
  plusOnly.endCaps = false;
  plusOnly.plusAmounts = literalData({2});
  ErrorBarsModel neither;
  neither.plus = neither.minus = false;
  const std::string black = R"(<c:spPr><a:ln w="9525"><a:solidFill><a:srgbClr val="000000"/></a:solidFill></a:ln></c:spPr>)";
  expectRows({
      {"median dash", marker(median, 4, true),
       R"(<c:marker><c:symbol val="dash"/><c:size val="12"/><c:spPr><a:solidFill><a:srgbClr val="000000"/></a:solidFill>)"
       R"(<a:ln w="9525"><a:solidFill><a:srgbClr val="000000"/></a:solidFill></a:ln></c:spPr></c:marker>)"},
      {"stock series keep no marker", marker(SeriesModel{}, 0, true), R"(<c:marker><c:symbol val="none"/></c:marker>)"},
      {"automatic: second symbol, second line colour, size capped", marker(automatic, 1, false),
       R"(<c:marker><c:symbol val="square"/><c:size val="72"/><c:spPr><a:solidFill><a:srgbClr val="FF00FF"/></a:solidFill>)"
       R"(<a:ln w="9525"><a:solidFill><a:srgbClr val="FF00FF"/></a:solidFill></a:ln></c:spPr></c:marker>)"},
      {"both directions", errorBars(both),
       R"(<c:errBars><c:errDir val="y"/><c:errBarType val="both"/><c:errValType val="cust"/><c:noEndCap val="0"/>)" +
           numberData("plus", both.plusAmounts) + numberData("minus", both.minusAmounts) + black + "</c:errBars>"},
      {"plus only without caps", errorBars(plusOnly),
       R"(<c:errBars><c:errDir val="y"/><c:errBarType val="plus"/><c:errValType val="cust"/><c:noEndCap val="1"/>)" +
           numberData("plus", plusOnly.plusAmounts) + black + "</c:errBars>"},
      {"no direction", errorBars(neither), ""},
  });
}

TEST(ChartElements, PlotLayoutInFractionsOfTheChart) {
  ChartModel chart;
  chart.width = 200;
  chart.height = 180;
  EXPECT_EQ(plotLayout(chart), "<c:layout/>");
  chart.plotArea = {20, 45, 170, 200, true, false, false};
  EXPECT_EQ(plotLayout(chart),
            R"(<c:layout><c:manualLayout><c:layoutTarget val="outer"/><c:xMode val="edge"/><c:yMode val="edge"/>)"
            R"(<c:x val="0.1"/><c:y val="0.25"/><c:w val="0.85"/><c:h val="1"/></c:manualLayout></c:layout>)");
}

TEST(ChartGroups, SeriesFallIntoGroupsByTypeAndAxisGroup) {
  const auto series = [](ChartKind kind, AxisGroup group) {
    SeriesModel s;
    s.kind = kind;
    s.axisGroup = group;
    return s;
  };
  constexpr auto P = AxisGroup::Primary;
  constexpr auto S = AxisGroup::Secondary;
  using K = ChartKind;
  struct Case {
    const char* what;
    std::vector<SeriesModel> series;
    std::vector<std::tuple<GroupType, AxisGroup, std::vector<std::size_t>>> expected;
  };
  const Case cases[] = {
      {"box plot: medians moved to the secondary axes become a line group",
       {series(K::StockOHLC, P), series(K::StockOHLC, P), series(K::StockOHLC, P), series(K::StockOHLC, P),
        series(K::StockOHLC, S), series(K::StockOHLC, S)},
       {{GroupType::Stock, P, {0, 1, 2, 3}}, {GroupType::Line, S, {4, 5}}}},
      {"a fifth stock series is drawn as a line",
       {series(K::StockOHLC, P), series(K::StockOHLC, P), series(K::StockOHLC, P), series(K::StockOHLC, P),
        series(K::StockOHLC, P)},
       {{GroupType::Stock, P, {0, 1, 2, 3}}, {GroupType::Line, P, {4}}}},
      {"two stock series make no stock group", {series(K::StockHLC, P), series(K::StockHLC, P)},
       {{GroupType::Line, P, {0, 1}}}},
      {"histogram: secondary groups come last",
       {series(K::ColumnClustered, P), series(K::LineMarkers, S), series(K::LineMarkers, P)},
       {{GroupType::Bar, P, {0}}, {GroupType::Line, P, {2}}, {GroupType::Line, S, {1}}}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    ChartModel chart;
    chart.series = c.series;
    std::vector<std::tuple<GroupType, AxisGroup, std::vector<std::size_t>>> actual;
    for (const GroupPlan& g : planGroups(chart)) actual.emplace_back(g.type, g.axes, g.series);
    EXPECT_EQ(actual, c.expected);
  }
}

TEST(ChartPalette, IndicesToRgb) {
  const std::pair<std::int32_t, std::optional<std::string>> rows[] = {
      {1, "000000"}, {56, "333333"}, {0, std::nullopt}, {57, std::nullopt}, {-4105, std::nullopt}};
  for (const auto& [index, rgb] : rows) {
    SCOPED_TRACE(index);
    EXPECT_EQ(paletteRgb(index), rgb);
  }
  EXPECT_EQ(automaticLineRgb(8), "000080");  // the cycle repeats
  EXPECT_EQ(automaticFillRgb(1), "993366");
}

}  // namespace
}  // namespace orv::chartxml

namespace orv {
namespace {

TEST(ChartAnchor, WalksRowHeightsAndColumnWidths) {
  SheetGeometry geometry;
  geometry.setRowHeight(3, 0.0);   // hidden: never the anchor row
  geometry.setRowHeight(4, 45.0);
  geometry.setColumnWidth(2, 100.0);
  struct Case {
    double left, top;
    std::int32_t column;
    std::int64_t columnOffset;
    std::int32_t row;
    std::int64_t rowOffset;
  };
  // Row tops: 1:0 2:15 3:30 (hidden) 4:30 5:75 6:90; column lefts: A 0, B 48, C 148, D 196.
  const Case cases[] = {
      {0, 0, 0, 0, 0, 0},           {148, 30, 2, 0, 3, 0},           {150, 31, 2, 25400, 3, 12700},
      {-5, -5, 0, 0, 0, 0},         {196, 198, 3, 0, 12, 38100},     {47.5, 74.99, 0, 603250, 3, 571373},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.left) + "," + std::to_string(c.top));
    const ChartAnchor a = anchorFor(geometry, c.left, c.top, 200, 180);
    EXPECT_EQ(a.column, c.column);
    EXPECT_EQ(a.columnOffset, c.columnOffset);
    EXPECT_EQ(a.row, c.row);
    EXPECT_EQ(a.rowOffset, c.rowOffset);
    EXPECT_EQ(a.width, 2540000);
    EXPECT_EQ(a.height, 2286000);
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

TEST(ChartPackageNames, RelativeTargets) {
  const std::tuple<const char*, const char*, const char*> rows[] = {
      {"xl/worksheets/sheet1.xml", "xl/drawings/drawing1.xml", "../drawings/drawing1.xml"},
      {"xl/drawings/drawing1.xml", "xl/charts/chart2.xml", "../charts/chart2.xml"},
      {"xl/workbook.xml", "xl/worksheets/sheet3.xml", "worksheets/sheet3.xml"},
      {"sheet.xml", "xl/drawings/d.xml", "xl/drawings/d.xml"},
      {"a/b/c/sheet.xml", "a/d.xml", "../../d.xml"},
  };
  for (const auto& [from, to, expected] : rows) {
    SCOPED_TRACE(from);
    EXPECT_EQ(relativeTarget(from, to), expected);
  }
}

}  // namespace
}  // namespace orv
