// Reads the live host's charts back from the office's chart documents, for chart_probe.h.

#include <com/sun/star/awt/Point.hpp>
#include <com/sun/star/awt/Size.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/chart/ChartAxisLabelPosition.hpp>
#include <com/sun/star/chart2/LegendPosition.hpp>
#include <com/sun/star/chart2/Symbol.hpp>
#include <com/sun/star/chart2/XAxis.hpp>
#include <com/sun/star/chart2/XChartType.hpp>
#include <com/sun/star/chart2/XChartTypeContainer.hpp>
#include <com/sun/star/chart2/XCoordinateSystemContainer.hpp>
#include <com/sun/star/chart2/XDataSeriesContainer.hpp>
#include <com/sun/star/chart2/XFormattedString.hpp>
#include <com/sun/star/chart2/XTitled.hpp>
#include <com/sun/star/chart2/data/XDataSource.hpp>
#include <com/sun/star/chart2/data/XLabeledDataSequence.hpp>
#include <com/sun/star/drawing/LineStyle.hpp>

#include <cmath>

#include "calc/calc_chart_objects.h"
#include "calc/calc_worksheet.h"
#include "calc/chart_data_sheet.h"
#include "calc/uno_support.h"
#include "chart_probe.h"
#include "frame/conversions.h"

namespace orv::test {
namespace {

using namespace orv::calc;
using css::uno::Any;
using css::uno::Reference;
using css::uno::Sequence;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;
using Properties = Reference<css::beans::XPropertySet>;
using Labeled = Reference<css::chart2::data::XLabeledDataSequence>;

double points(sal_Int32 hundredths) { return hundredths * 72.0 / 2540.0; }

template <class T>
T property(const Reference<css::uno::XInterface>& object, const char* name) {
  T value{};
  Properties(object, UNO_QUERY_THROW)->getPropertyValue(OUString::createFromAscii(name)) >>= value;
  return value;
}

// "$'My data'.$B$4:$D$4" as "'My data'!$B$4:$D$4"; a quoted literal as its text.
std::string sheetRange(const std::string& office) {
  if (!office.empty() && office.front() == '"') return office.substr(1, office.size() - 2);
  std::size_t i = office.front() == '$' ? 1 : 0;
  std::string sheet;
  if (office[i] == '\'') {
    for (++i; i < office.size(); ++i) {
      if (office[i] == '\'' && i + 1 < office.size() && office[i + 1] == '\'') {
        sheet += '\'';
        ++i;
      } else if (office[i] == '\'') {
        ++i;
        break;
      } else {
        sheet += office[i];
      }
    }
  } else {
    while (i < office.size() && office[i] != '.') sheet += office[i++];
  }
  std::string cells = office.substr(i + 1);
  // A range may name its sheet again after the colon.
  const std::string again = ":" + office.substr(0, i + 1);
  if (const std::size_t at = cells.find(again); at != std::string::npos) cells.replace(at, again.size(), ":");
  return quoteSheetName(sheet) + "!" + cells;
}

// A sequence's source; what the live host keeps on its chart data sheet reads as the literal list
// it came from.
std::string sourceOf(const Reference<css::chart2::data::XDataSequence>& sequence) {
  if (!sequence.is()) return "";
  const std::string range = sheetRange(fromUno(sequence->getSourceRangeRepresentation()));
  if (range.find(std::string(ChartDataSheet::kName)) == std::string::npos) return range;
  std::string out = "=";
  const Sequence<Any> data = sequence->getData();
  for (sal_Int32 i = 0; i < data.getLength(); ++i) {
    if (i > 0) out += ";";
    double number = 0;
    OUString text;
    if (data[i] >>= number) out += numberToText(number);
    else if (data[i] >>= text) out += fromUno(text);
  }
  return out;
}

Reference<css::chart2::data::XDataSequence> withRole(const Sequence<Labeled>& data, const char* role) {
  for (const Labeled& l : data) {
    if (!l.is() || !l->getValues().is()) continue;
    if (property<OUString>(l->getValues(), "Role").equalsAscii(role)) return l->getValues();
  }
  return {};
}

std::string titleOf(const Reference<css::uno::XInterface>& titled, double* size, bool* bold) {
  const Reference<css::chart2::XTitle> title =
      Reference<css::chart2::XTitled>(titled, UNO_QUERY_THROW)->getTitleObject();
  if (!title.is()) return "";
  std::string text;
  for (const Reference<css::chart2::XFormattedString>& part : title->getText()) {
    text += fromUno(part->getString());
    if (size) *size = property<float>(part, "CharHeight");
    if (bold) *bold = property<float>(part, "CharWeight") >= 150;
  }
  return text;
}

ProbedSeries seriesOf(const Reference<css::uno::XInterface>& series, const std::string& kind,
                      const std::string& categories) {
  const Sequence<Labeled> data = Reference<css::chart2::data::XDataSource>(series, UNO_QUERY_THROW)->getDataSequences();
  ProbedSeries p;
  p.kind = kind;
  p.values = sourceOf(withRole(data, "values-y"));
  p.categories = kind == "scatter" ? sourceOf(withRole(data, "values-x")) : categories;
  for (const Labeled& l : data) {
    if (l.is() && l->getLabel().is()) p.name = sourceOf(l->getLabel());
  }
  p.secondary = property<sal_Int32>(series, "AttachedAxisIndex") == 1;
  const css::chart2::Symbol symbol = property<css::chart2::Symbol>(series, "Symbol");
  if (symbol.Style != css::chart2::SymbolStyle_NONE) p.markerSize = std::round(points(symbol.Size.Height));
  css::drawing::LineStyle style = css::drawing::LineStyle_SOLID;
  Properties(series, UNO_QUERY_THROW)->getPropertyValue("LineStyle") >>= style;
  p.line = style != css::drawing::LineStyle_NONE;
  Properties bars;
  Properties(series, UNO_QUERY_THROW)->getPropertyValue("ErrorBarY") >>= bars;
  if (bars.is()) {
    const Sequence<Labeled> amounts =
        Reference<css::chart2::data::XDataSource>(bars, UNO_QUERY_THROW)->getDataSequences();
    p.plusErrors = sourceOf(withRole(amounts, "error-bars-y-positive"));
    p.minusErrors = sourceOf(withRole(amounts, "error-bars-y-negative"));
  }
  return p;
}

ProbedAxis axisOf(const Reference<css::chart2::XAxis>& axis, const std::string& which,
                  const Reference<css::uno::XInterface>& chart) {
  ProbedAxis p;
  p.which = which;
  p.shown = property<bool>(axis, "Show");
  p.title = titleOf(axis, &p.titleSize, nullptr);
  p.tickLabelSize = property<float>(axis, "CharHeight");
  p.numberFormat = "General";
  if (!property<bool>(axis, "LinkNumberFormatToSource")) {
    NumberFormatTable formats(chart);
    p.numberFormat = formats.codeOf(property<sal_Int32>(axis, "NumberFormat"));
  }
  p.majorGridlines = property<bool>(axis->getGridProperties(), "Show");
  p.line = property<css::drawing::LineStyle>(axis, "LineStyle") != css::drawing::LineStyle_NONE;
  p.labelsLow = property<css::chart::ChartAxisLabelPosition>(axis, "LabelPosition") ==
                css::chart::ChartAxisLabelPosition_OUTSIDE_START;
  const css::chart2::ScaleData scale = axis->getScaleData();
  double v = 0;
  if (scale.Minimum >>= v) p.minimum = v;
  if (scale.Maximum >>= v) p.maximum = v;
  return p;
}

ProbedChart chartOf(CalcChartObject& object) {
  ProbedChart c;
  c.name = object.Name();
  const css::awt::Point at = object.shape()->getPosition();
  const css::awt::Size size = object.shape()->getSize();
  c.left = points(at.X);
  c.top = points(at.Y);
  c.width = points(size.Width);
  c.height = points(size.Height);
  const Reference<css::chart2::XChartDocument> document = object.chart().drawing().chart();
  c.title = titleOf(document, &c.titleSize, &c.titleBold);
  const Reference<css::chart2::XDiagram> diagram = document->getFirstDiagram();
  if (!diagram.is()) return c;
  c.legend = diagram->getLegend().is() && property<bool>(diagram->getLegend(), "Show");
  if (c.legend) {
    const bool bottom = property<css::chart2::LegendPosition>(diagram->getLegend(), "AnchorPosition") ==
                        css::chart2::LegendPosition_PAGE_END;
    c.legendAt = bottom ? "bottom" : "right";
    c.legendSize = property<float>(diagram->getLegend(), "CharHeight");
  }
  const auto systems =
      Reference<css::chart2::XCoordinateSystemContainer>(diagram, UNO_QUERY_THROW)->getCoordinateSystems();
  if (systems.getLength() == 0) return c;
  const auto& system = systems[0];
  std::string categories;
  if (system->getMaximumAxisIndexByDimension(0) >= 0) {
    const Reference<css::chart2::XAxis> x = system->getAxisByDimension(0, 0);
    if (x.is() && x->getScaleData().Categories.is()) categories = sourceOf(x->getScaleData().Categories->getValues());
  }
  for (const auto& type : Reference<css::chart2::XChartTypeContainer>(system, UNO_QUERY_THROW)->getChartTypes()) {
    const std::string service = fromUno(type->getChartType());
    const auto members = Reference<css::chart2::XDataSeriesContainer>(type, UNO_QUERY_THROW)->getDataSeries();
    if (service.ends_with("CandleStickChartType")) {
      c.upDownBars = property<bool>(type, "Japanese");
      for (const auto& s : members) {
        const auto data = Reference<css::chart2::data::XDataSource>(s, UNO_QUERY_THROW)->getDataSequences();
        for (const char* role : {"values-first", "values-max", "values-min", "values-last"}) {
          const auto sequence = withRole(data, role);
          if (!sequence.is()) continue;
          c.series.push_back({.kind = "stock",
                              .values = sourceOf(sequence),
                              .categories = categories,
                              .secondary = property<sal_Int32>(s, "AttachedAxisIndex") == 1,
                              .line = false});
        }
      }
      continue;
    }
    const std::string kind = service.ends_with("ColumnChartType")    ? "column"
                             : service.ends_with("ScatterChartType") ? "scatter"
                                                                     : "line";
    for (const auto& s : members) c.series.push_back(seriesOf(s, kind, categories));
  }
  const std::pair<std::pair<sal_Int32, sal_Int32>, const char*> axes[] = {
      {{0, 0}, "category"}, {{1, 0}, "value"}, {{1, 1}, "secondary value"}};
  for (const auto& [where, which] : axes) {
    if (system->getMaximumAxisIndexByDimension(where.first) < where.second) continue;
    const Reference<css::chart2::XAxis> axis = system->getAxisByDimension(where.first, where.second);
    if (axis.is()) c.axes.push_back(axisOf(axis, which, document));
  }
  return c;
}

}  // namespace

std::vector<ProbedChart> probeLive(Worksheet& worksheet) {
  auto& sheet = dynamic_cast<CalcWorksheet&>(worksheet);
  sheet.flush();
  std::vector<ProbedChart> charts;
  try {
    for (const auto& object : dynamic_cast<CalcChartObjects&>(sheet.chartObjects()).objects()) {
      charts.push_back(chartOf(*object));
    }
  } catch (const css::uno::Exception& e) {
    ADD_FAILURE() << "reading the charts back from the office failed: " << fromUno(e.Message);
  }
  return charts;
}

}  // namespace orv::test
