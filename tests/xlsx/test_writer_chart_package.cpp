// Charts written into packages and read back: parts, relationships, anchors, groups, references.

#include <gtest/gtest.h>

#include "test_writer_chart_fixture.h"
#include "xlsx/package_parts.h"
#include "xlsx/writer_drawing_package.h"

namespace orv::test {
namespace {

std::vector<std::string> texts(const pugi::xml_node& root, const char* xpath) {
  std::vector<std::string> out;
  for (const pugi::xpath_node& n : root.select_nodes(xpath)) {
    out.emplace_back(n.attribute() ? n.attribute().value() : n.node().text().get());
  }
  return out;
}

class ChartPackage : public ::testing::Test {
 protected:
  void SetUp() override {
    book_ = &app_.AddWorkbook("data.csv", {"data"});
    results_ = &book_->addSheet(kResults);
    fillResults(*results_);
    results_->geometry().setRowHeight(5, 30.0);  // the anchor walk must see it
    for (const ChartModel& chart : allCharts(*results_)) record(*results_, chart);
    writeNewWorkbook(*book_, folder_ / "charts.xlsx");
    zip_ = readZip(folder_ / "charts.xlsx");
  }

  pugi::xml_document part(const std::string& name) { return parseXml(zip_.at(name)); }

  InMemoryApplication app_;
  InMemoryWorkbook* book_ = nullptr;
  InMemoryWorksheet* results_ = nullptr;
  ScratchFolder folder_;
  ZipContents zip_;
};

TEST_F(ChartPackage, PartsRelationshipsAndContentTypes) {
  EXPECT_EQ(zip_.at("xl/worksheets/_rels/sheet1.xml.rels"), "");  // the data sheet has no charts
  EXPECT_EQ(texts(part("xl/worksheets/sheet2.xml").document_element(), "//drawing/@r:id"),
            std::vector<std::string>{"rId1"});
  EXPECT_EQ(texts(part("xl/worksheets/_rels/sheet2.xml.rels").document_element(), "//Relationship/@Target"),
            std::vector<std::string>{"../drawings/drawing1.xml"});
  EXPECT_EQ(texts(part("xl/drawings/_rels/drawing1.xml.rels").document_element(), "//Relationship/@Target"),
            (std::vector<std::string>{"../charts/chart1.xml", "../charts/chart2.xml", "../charts/chart3.xml",
                                      "../charts/chart4.xml", "../charts/chart5.xml"}));
  const pugi::xml_document types = part("[Content_Types].xml");
  EXPECT_EQ(texts(types.document_element(), "//Override[@PartName='/xl/charts/chart5.xml']/@ContentType"),
            std::vector<std::string>{std::string(kChartContentType)});
  EXPECT_EQ(texts(types.document_element(), "//Override[@PartName='/xl/drawings/drawing1.xml']/@ContentType"),
            std::vector<std::string>{std::string(kDrawingContentType)});
}

// Rows are 15 pt but row 5 is 30 pt: 198 pt down is row 13 (0-based 12), whose top is at 195 pt.
TEST_F(ChartPackage, AnchorsWalkRowHeightsInEmu) {
  std::vector<std::string> anchors;
  const pugi::xml_document drawing = part("xl/drawings/drawing1.xml");
  for (const pugi::xpath_node& a : drawing.select_nodes("//xdr:oneCellAnchor")) {
    std::string line;
    for (const char* q : {".//xdr:cNvPr/@name", ".//xdr:cNvPr/@id", "xdr:from/xdr:col", "xdr:from/xdr:colOff",
                          "xdr:from/xdr:row", "xdr:from/xdr:rowOff", "xdr:ext/@cx", "xdr:ext/@cy"}) {
      line += texts(a.node(), q).at(0) + " ";
    }
    anchors.push_back(line);
  }
  EXPECT_EQ(anchors,
            (std::vector<std::string>{"Chart 1 2 5 0 0 0 2540000 2286000 ", "Chart 2 3 5 0 12 38100 2540000 2540000 ",
                                      "Chart 3 4 5 0 25 76200 2540000 2540000 ", "Chart 4 5 11 0 0 0 2540000 2540000 ",
                                      "Chart 5 6 11 0 13 0 3810000 2540000 "}));
}

TEST_F(ChartPackage, BoxPlotIsAStockChartWithMediansOnDeletedSecondaryAxis) {
  const pugi::xml_document chart = part("xl/charts/chart1.xml");
  const pugi::xml_node plot = chart.select_node("//c:plotArea").node();
  EXPECT_EQ(texts(plot, "c:stockChart/c:ser/c:val/c:numRef/c:f"),
            (std::vector<std::string>{"'Results & O''Neil'!$B$2:$D$2", "'Results & O''Neil'!$B$3:$D$3",
                                      "'Results & O''Neil'!$B$4:$D$4", "'Results & O''Neil'!$B$5:$D$5"}));
  EXPECT_TRUE(plot.select_node("c:stockChart/c:hiLowLines"));
  EXPECT_TRUE(plot.select_node("c:stockChart/c:upDownBars/c:upBars"));
  EXPECT_EQ(texts(plot, "c:lineChart/c:ser/c:val/c:numRef/c:f"),
            (std::vector<std::string>{"'Results & O''Neil'!$B$6:$D$6", "'Results & O''Neil'!$B$6:$D$6"}));
  EXPECT_EQ(texts(plot, "c:lineChart/c:ser/c:marker/c:symbol/@val"), (std::vector<std::string>{"dash", "dash"}));
  EXPECT_EQ(texts(plot, "c:lineChart/c:axId/@val"), (std::vector<std::string>{"1003", "1004"}));
  EXPECT_EQ(texts(plot, "c:valAx[c:axId/@val='1004']/c:delete/@val"), std::vector<std::string>{"1"});
  EXPECT_EQ(texts(plot, "c:stockChart/c:ser[1]/c:val/c:numRef/c:numCache/c:pt/c:v"),
            (std::vector<std::string>{"3", "4", "2"}));
}

TEST_F(ChartPackage, ErrorPlotsCarryRangesAndLiteralDistances) {
  for (const char* name : {"xl/charts/chart2.xml", "xl/charts/chart3.xml"}) {
    SCOPED_TRACE(name);
    const pugi::xml_document chart = part(name);
    const pugi::xml_node ser = chart.select_node("//c:lineChart/c:ser").node();
    EXPECT_TRUE(ser.select_node("c:spPr/a:ln/a:noFill"));
    EXPECT_EQ(texts(ser, "c:errBars/c:errValType/@val"), std::vector<std::string>{"cust"});
    EXPECT_EQ(texts(ser, "c:errBars/c:plus/c:numRef/c:f"), std::vector<std::string>{"'Results & O''Neil'!$B$8:$D$8"});
  }
  EXPECT_EQ(texts(part("xl/charts/chart2.xml").document_element(), "//c:minus/c:numRef/c:numCache/c:pt/c:v"),
            (std::vector<std::string>{"0.8", "0.6", "0.4"}));
  EXPECT_EQ(texts(part("xl/charts/chart3.xml").document_element(), "//c:minus/c:numLit/c:pt/c:v"),
            (std::vector<std::string>{"1.6", "1.1", "1.2"}));
}

TEST_F(ChartPackage, ScatterAndHistogramGroupsAndAxes) {
  const pugi::xml_document scatter = part("xl/charts/chart4.xml");
  EXPECT_EQ(texts(scatter.document_element(), "//c:scatterChart/c:ser/c:xVal/c:numRef/c:f"),
            std::vector<std::string>{"'Results & O''Neil'!$A$14:$A$19"});
  EXPECT_EQ(texts(scatter.document_element(), "//c:valAx/c:scaling/c:min/@val"),
            (std::vector<std::string>{"-1", "-1"}));
  EXPECT_TRUE(scatter.select_node("//c:catAx").node().empty());

  const pugi::xml_document histogram = part("xl/charts/chart5.xml");
  const pugi::xml_node plot = histogram.select_node("//c:plotArea").node();
  std::vector<std::string> groups;
  for (pugi::xml_node n = plot.first_child(); n; n = n.next_sibling()) groups.emplace_back(n.name());
  EXPECT_EQ(groups, (std::vector<std::string>{"c:layout", "c:barChart", "c:lineChart", "c:lineChart", "c:catAx",
                                              "c:valAx", "c:valAx", "c:catAx", "c:spPr"}));
  EXPECT_EQ(texts(plot, "c:barChart/c:gapWidth/@val"), std::vector<std::string>{"0"});
  EXPECT_EQ(texts(plot, "c:lineChart/c:ser/c:smooth/@val"), (std::vector<std::string>{"1", "0"}));
  EXPECT_EQ(texts(plot, "c:lineChart[2]/c:ser/c:tx/c:v"), std::vector<std::string>{"Cumulative Frequency"});
  EXPECT_EQ(texts(plot, "c:valAx[c:axId/@val='1004']/c:scaling/c:max/@val"), std::vector<std::string>{"100"});
  EXPECT_EQ(texts(plot, "c:valAx[c:axId/@val='1004']/c:numFmt/@formatCode"), std::vector<std::string>{"0\"%\""});
}

// Where <drawing> goes in sheets written elsewhere: before the elements the schema puts after it,
// with the sheet's own prefix; a <drawing> whose relationship leads nowhere is reused.
TEST(ChartSheetPart, DrawingElementTakesItsSchemaPlace) {
  const std::string head = R"(<x:worksheet xmlns:x="http://schemas.openxmlformats.org/spreadsheetml/2006/main">)";
  const std::string margins =
      R"(<x:sheetData/><x:pageMargins left="1" right="1" top="1" bottom="1" header="0" footer="0"/>)";
  const std::string drawing =
      R"(<x:drawing xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships" r:id="rId1"/>)";
  const std::tuple<const char*, std::string, std::string> rows[] = {
      {"at the end", head + margins + "</x:worksheet>", head + margins + drawing + "</x:worksheet>"},
      {"before legacy drawing and table parts",
       head + margins + R"(<x:legacyDrawing r:id="rId9"/><x:tableParts count="0"/></x:worksheet>)",
       head + margins + drawing + R"(<x:legacyDrawing r:id="rId9"/><x:tableParts count="0"/></x:worksheet>)"},
      {"stale drawing reused", head + margins + R"(<x:drawing r:id="rId7"/></x:worksheet>)",
       head + margins + R"(<x:drawing r:id="rId1"/></x:worksheet>)"},
  };
  for (const auto& [what, sheet, expected] : rows) {
    SCOPED_TRACE(what);
    std::map<std::string, std::string> edited{{"xl/worksheets/sheet1.xml", sheet}};
    PartSet::Overrides overrides;
    PartSet parts(nullptr, edited, overrides, {});
    attachCharts(parts, "xl/worksheets/sheet1.xml", SheetGeometry{}, {ChartModel{}});
    EXPECT_EQ(edited["xl/worksheets/sheet1.xml"], expected);
    EXPECT_EQ(overrides.size(), 2u);  // chart1 and drawing1
  }
}

// Written into the package: the receiving sheet already has drawing1, so the five charts it
// records (the same again) are appended to it; a new sheet gets drawing2.
TEST_F(ChartPackage, AppendedSheetsAndAReceivingSheetWithADrawingGetTheirCharts) {
  InMemoryWorksheet& more = book_->addSheet("More");
  fillResults(more);
  record(more, histogram(more, 0, 0));
  writeIntoPackage(folder_ / "charts.xlsx", *book_, {{kResults, CellBlock{1, 1, 1, 1}}}, folder_ / "again.xlsx");
  const ZipContents again = readZip(folder_ / "again.xlsx");
  std::vector<std::string> appended;
  for (int n = 1; n <= 10; ++n) appended.push_back("../charts/chart" + std::to_string(n) + ".xml");
  EXPECT_EQ(
      texts(parseXml(again.at("xl/drawings/_rels/drawing1.xml.rels")).document_element(), "//Relationship/@Target"),
      appended);
  EXPECT_EQ(
      texts(parseXml(again.at("xl/drawings/_rels/drawing2.xml.rels")).document_element(), "//Relationship/@Target"),
      std::vector<std::string>{"../charts/chart11.xml"});
  EXPECT_NE(again.at("xl/charts/chart11.xml").find("<c:barChart>"), std::string::npos);
  EXPECT_EQ(again.at("xl/charts/chart1.xml"), zip_.at("xl/charts/chart1.xml"));
  const pugi::xml_document drawing = parseXml(again.at("xl/drawings/drawing1.xml"));
  EXPECT_EQ(drawing.select_nodes("//xdr:oneCellAnchor").size(), 10u);
  EXPECT_STREQ(drawing.select_node("(//xdr:cNvPr)[10]/@id").attribute().value(), "11");
}

}  // namespace
}  // namespace orv::test
