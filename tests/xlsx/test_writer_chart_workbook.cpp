// Charts recorded through the host's chart objects reach the written file: on new sheets of a
// new workbook, on new sheets appended to a package, and on a sheet receiving results that
// already has a drawing.

#include <gtest/gtest.h>

#include <cstdlib>

#include "test_writer_chart_fixture.h"
#include "workbook/in_memory_chart_objects.h"
#include "workbook/in_memory_worksheet.h"

namespace orv::test {
namespace {

// Adds a chart object and gives it the model's content (the object keeps its own name).
void record(InMemoryWorksheet& sheet, const ChartModel& model) {
  auto& object = dynamic_cast<InMemoryChartObject&>(sheet.chartObjects().Add(model.left, model.top, model.width, model.height));
  const std::string name = object.model().name;
  object.model() = model;
  object.model().name = name;
}

std::vector<std::string> chartTargets(const ZipContents& zip, const std::string& drawingRels) {
  std::vector<std::string> out;
  const pugi::xml_document rels = parseXml(zip.at(drawingRels));
  for (const pugi::xpath_node& n : rels.select_nodes("//Relationship/@Target")) {
    out.emplace_back(n.attribute().value());
  }
  return out;
}

TEST(ChartWorkbook, NewAndAppendedSheetsGetTheirCharts) {
  InMemoryApplication app;
  ScratchFolder folder;
  InMemoryWorkbook& book = app.AddWorkbook("data.csv", {"data"});
  InMemoryWorksheet& results = book.addSheet(kResults);
  fillResults(results);
  record(results, boxPlot(results, 300, 0));
  record(results, scatterPlot(results, 300, 210));
  writeNewWorkbook(book, folder / "new.xlsx");

  const ZipContents first = readZip(folder / "new.xlsx");
  EXPECT_EQ(first.at("xl/worksheets/_rels/sheet1.xml.rels"), "");  // the data sheet has no charts
  EXPECT_EQ(chartTargets(first, "xl/drawings/_rels/drawing1.xml.rels"),
            (std::vector<std::string>{"../charts/chart1.xml", "../charts/chart2.xml"}));
  EXPECT_NE(first.at("xl/worksheets/sheet2.xml").find("<drawing xmlns:r="), std::string::npos);
  EXPECT_NE(first.at("[Content_Types].xml").find("/xl/charts/chart2.xml"), std::string::npos);

  // Written into that package: the receiving sheet already has drawing1, so the charts it
  // records (here the same two again) are appended to it; the new sheet gets drawing2.
  InMemoryWorksheet& more = book.addSheet("More");
  fillResults(more);
  record(more, histogram(more, 0, 0));
  writeIntoPackage(folder / "new.xlsx", book, {{kResults, CellBlock{1, 1, 1, 1}}}, folder / "again.xlsx");
  const ZipContents second = readZip(folder / "again.xlsx");
  EXPECT_EQ(chartTargets(second, "xl/drawings/_rels/drawing1.xml.rels"),
            (std::vector<std::string>{"../charts/chart1.xml", "../charts/chart2.xml", "../charts/chart3.xml",
                                      "../charts/chart4.xml"}));
  EXPECT_EQ(chartTargets(second, "xl/drawings/_rels/drawing2.xml.rels"), std::vector<std::string>{"../charts/chart5.xml"});
  EXPECT_NE(second.at("xl/charts/chart5.xml").find("<c:barChart>"), std::string::npos);
  EXPECT_EQ(second.at("xl/charts/chart1.xml"), first.at("xl/charts/chart1.xml"));
  const pugi::xml_document drawing = parseXml(second.at("xl/drawings/drawing1.xml"));
  EXPECT_EQ(drawing.select_nodes("//xdr:oneCellAnchor").size(), 4u);
  EXPECT_STREQ(drawing.select_node("(//xdr:cNvPr)[4]/@id").attribute().value(), "5");

  const char* tools = std::getenv("ORV_XLSX_TOOLS");
  if (tools == nullptr || std::system("command -v xmllint >/dev/null") != 0) return;
  for (const char* name : {"new.xlsx", "again.xlsx"}) {
    SCOPED_TRACE(name);
    const std::string file = "'" + (folder / name).string() + "'";
    EXPECT_EQ(std::system((std::string(tools) + "/validate-xlsx " + file + " >/dev/null 2>&1").c_str()), 0);
    EXPECT_EQ(std::system((std::string(tools) + "/xlsx-inspect check " + file + " >/dev/null 2>&1").c_str()), 0);
  }
}

}  // namespace
}  // namespace orv::test
