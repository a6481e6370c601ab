#include "calc/chart_drawing.h"

#include <com/sun/star/awt/Size.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/chart/ChartAxisLabelPosition.hpp>
#include <com/sun/star/chart/ChartAxisPosition.hpp>
#include <com/sun/star/chart/ChartLegendExpansion.hpp>
#include <com/sun/star/chart/ErrorBarStyle.hpp>
#include <com/sun/star/chart/XAxisYSupplier.hpp>
#include <com/sun/star/chart/XChartDocument.hpp>
#include <com/sun/star/chart/XTwoAxisYSupplier.hpp>
#include <com/sun/star/chart2/AxisType.hpp>
#include <com/sun/star/chart2/CurveStyle.hpp>
#include <com/sun/star/chart2/LegendPosition.hpp>
#include <com/sun/star/chart2/RelativePosition.hpp>
#include <com/sun/star/chart2/RelativeSize.hpp>
#include <com/sun/star/chart2/Symbol.hpp>
#include <com/sun/star/chart2/TickmarkStyle.hpp>
#include <com/sun/star/chart2/XAxis.hpp>
#include <com/sun/star/chart2/XChartTypeContainer.hpp>
#include <com/sun/star/chart2/XCoordinateSystem.hpp>
#include <com/sun/star/chart2/XCoordinateSystemContainer.hpp>
#include <com/sun/star/chart2/XDataSeries.hpp>
#include <com/sun/star/chart2/XDataSeriesContainer.hpp>
#include <com/sun/star/chart2/XDiagram.hpp>
#include <com/sun/star/chart2/XFormattedString.hpp>
#include <com/sun/star/chart2/XTitle.hpp>
#include <com/sun/star/chart2/XTitled.hpp>
#include <com/sun/star/chart2/data/XDataReceiver.hpp>
#include <com/sun/star/chart2/data/XDataSink.hpp>
#include <com/sun/star/chart2/data/XLabeledDataSequence.hpp>
#include <com/sun/star/drawing/Alignment.hpp>
#include <com/sun/star/drawing/FillStyle.hpp>
#include <com/sun/star/drawing/LineStyle.hpp>

#include <array>
#include <cmath>

#include "frame/chart_layout.h"
#include "frame/palette.h"

namespace orv::calc {
namespace {

using css::uno::Any;
using css::uno::Sequence;
using css::uno::UNO_QUERY_THROW;
using Properties = Reference<css::beans::XPropertySet>;

constexpr sal_Int32 kWhite = 0xFFFFFF;
constexpr sal_Int32 kBlack = 0x000000;
// The office's standard marker symbols.
constexpr sal_Int32 kSymbolHorizontalBar = 13;
constexpr sal_Int32 kSymbolCircle = 8;
// Automatic markers cycle as the in-memory host's files have them: diamond, square, triangle,
// x, star, circle, plus.
constexpr std::array<sal_Int32, 7> kAutomaticSymbols = {1, 0, 3, 10, 9, 8, 11};

sal_Int32 hundredths(double points) { return static_cast<sal_Int32>(std::lround(points * 2540.0 / 72.0)); }

sal_Int32 colorOr(std::int32_t index, sal_Int32 otherwise) {
  const std::optional<std::uint32_t> rgb = paletteColor(index);
  return rgb ? static_cast<sal_Int32>(*rgb) : otherwise;
}

Any lineStyle(bool drawn) { return Any(drawn ? css::drawing::LineStyle_SOLID : css::drawing::LineStyle_NONE); }

template <class T>
Sequence<T> sequenceOf(const std::vector<T>& items) {
  return Sequence<T>(items.data(), static_cast<sal_Int32>(items.size()));
}

css::chart2::Symbol symbolOf(PlanMarker marker, double size, std::size_t index) {
  css::chart2::Symbol symbol;
  symbol.Style = css::chart2::SymbolStyle_STANDARD;
  symbol.Size = css::awt::Size(hundredths(size), hundredths(size));
  switch (marker) {
    case PlanMarker::Automatic: symbol.StandardSymbol = kAutomaticSymbols[index % kAutomaticSymbols.size()]; break;
    case PlanMarker::None: symbol.Style = css::chart2::SymbolStyle_NONE; break;
    case PlanMarker::Dash: symbol.StandardSymbol = kSymbolHorizontalBar; break;
    case PlanMarker::Circle: symbol.StandardSymbol = kSymbolCircle; break;
  }
  return symbol;
}

sal_Int32 tickmarks(host::TickMark mark) {
  switch (mark) {
    case host::TickMark::None: return css::chart2::TickmarkStyle::NONE;
    case host::TickMark::Inside: return css::chart2::TickmarkStyle::INNER;
    case host::TickMark::Outside: return css::chart2::TickmarkStyle::OUTER;
    case host::TickMark::Cross: return css::chart2::TickmarkStyle::INNER | css::chart2::TickmarkStyle::OUTER;
  }
  return css::chart2::TickmarkStyle::OUTER;
}

Any optionalNumber(const std::optional<double>& v) { return v ? Any(*v) : Any(); }

// The chart types of the drawing, in the order they are drawn, and the series each takes.
struct TypeGroup {
  const char* service;
  bool smooth = false;
  bool prices = false;  // the price series of a stock chart, drawn as one series
  std::vector<const PlanSeries*> members;
};

// Groups stand in the order of their first series, so that the office lists the series in the
// order they were added.
std::vector<TypeGroup> typeGroups(const ChartPlan& plan) {
  // The first series of a stock chart are its prices when there are as many as its kind takes;
  // otherwise (a price series was deleted) they are drawn as marks like the rest.
  const std::size_t priceCount = priceSeries(plan.kind);
  std::size_t stockSeries = 0;
  for (const PlanSeries& s : plan.series) stockSeries += s.kind == plan.kind && priceCount > 0 ? 1 : 0;
  std::vector<TypeGroup> groups;
  const auto join = [&](TypeGroup group, const PlanSeries& s) {
    for (TypeGroup& g : groups) {
      if (std::string_view(g.service) == group.service && g.smooth == group.smooth && g.prices == group.prices) {
        g.members.push_back(&s);
        return;
      }
    }
    group.members.push_back(&s);
    groups.push_back(std::move(group));
  };
  std::size_t prices = 0;
  for (const PlanSeries& s : plan.series) {
    const bool price = priceSeries(s.kind) > 0;
    if (price && stockSeries >= priceCount && prices < priceCount && s.kind == plan.kind) {
      ++prices;
      join({"com.sun.star.chart2.CandleStickChartType", false, true, {}}, s);
    } else if (price || s.kind == PlanKind::Line) {
      // Series beyond a stock chart's prices are drawn as marks of a line group.
      join({"com.sun.star.chart2.LineChartType", s.smooth, false, {}}, s);
    } else if (s.kind == PlanKind::Column) {
      join({"com.sun.star.chart2.ColumnChartType", false, false, {}}, s);
    } else {
      join({"com.sun.star.chart2.ScatterChartType", false, false, {}}, s);
    }
  }
  return groups;
}

}  // namespace

ChartDrawing::ChartDrawing(Reference<css::uno::XComponentContext> context, Reference<css::chart2::XChartDocument> chart,
                           const Reference<css::lang::XMultiServiceFactory>& document)
    : context_(std::move(context)), chart_(std::move(chart)), numbers_(chart_) {
  remote("give a chart its data", [&] {
    data_.set(document->createInstance("com.sun.star.chart2.data.DataProvider"), UNO_QUERY_THROW);
    Reference<css::chart2::data::XDataReceiver>(chart_, UNO_QUERY_THROW)->attachDataProvider(data_);
  });
}

Reference<css::uno::XInterface> ChartDrawing::make(const char* service) const {
  Reference<css::uno::XInterface> made =
      context_->getServiceManager()->createInstanceWithContext(OUString::createFromAscii(service), context_);
  if (!made.is()) raiseHost(std::string("The office has no service ") + service);
  return made;
}

Reference<css::uno::XInterface> ChartDrawing::sequence(const std::string& range, const char* role) const {
  const Reference<css::chart2::data::XDataSequence> values =
      data_->createDataSequenceByRangeRepresentation(toUno(range));
  Properties(values, UNO_QUERY_THROW)->setPropertyValue("Role", Any(OUString::createFromAscii(role)));
  const Reference<css::chart2::data::XLabeledDataSequence> labeled(make("com.sun.star.chart2.data.LabeledDataSequence"),
                                                                   UNO_QUERY_THROW);
  labeled->setValues(values);
  return labeled;
}

Reference<css::uno::XInterface> ChartDrawing::title(const PlanTitle& plan) const {
  const Reference<css::chart2::XFormattedString> text(make("com.sun.star.chart2.FormattedString"), UNO_QUERY_THROW);
  text->setString(toUno(plan.text));
  const Properties font(text, UNO_QUERY_THROW);
  font->setPropertyValue("CharHeight", Any(static_cast<float>(plan.font.size)));
  font->setPropertyValue("CharWeight", Any(plan.font.bold ? 150.0f : 100.0f));
  const Reference<css::chart2::XTitle> title(make("com.sun.star.chart2.Title"), UNO_QUERY_THROW);
  title->setText(Sequence<Reference<css::chart2::XFormattedString>>(&text, 1));
  return title;
}

Reference<css::uno::XInterface> ChartDrawing::series(const std::vector<const PlanSeries*>& members, bool prices,
                                                     std::size_t index) const {
  const PlanSeries& first = *members.front();
  std::vector<Reference<css::chart2::data::XLabeledDataSequence>> data;
  const auto add = [&](const std::optional<PlanData>& source, const char* role) {
    if (source) data.emplace_back(sequence(source->range, role), UNO_QUERY_THROW);
  };
  if (prices) {
    // The price series of a stock chart: open, high, low, close in the order they were added.
    static const char* const kFour[] = {"values-first", "values-max", "values-min", "values-last"};
    static const char* const kThree[] = {"values-max", "values-min", "values-last"};
    for (std::size_t i = 0; i < members.size(); ++i)
      add(members[i]->values, members.size() == 4 ? kFour[i] : kThree[i]);
  } else {
    if (first.kind == PlanKind::Scatter) add(first.xValues, "values-x");
    add(first.values, "values-y");
    if (!first.name.empty() && !data.empty()) {
      const Reference<css::chart2::data::XLabeledDataSequence> label(sequence(first.name, "label"), UNO_QUERY_THROW);
      data.back()->setLabel(label->getValues());
    }
  }
  const Reference<css::chart2::XDataSeries> made(make("com.sun.star.chart2.DataSeries"), UNO_QUERY_THROW);
  Reference<css::chart2::data::XDataSink>(made, UNO_QUERY_THROW)->setData(sequenceOf(data));

  const Properties props(made, UNO_QUERY_THROW);
  // A stock chart draws its high-low lines (the whiskers) with its price series' line.
  props->setPropertyValue("LineStyle", lineStyle(first.line || prices));
  // Points with error bars: a small light marker that the black bars stay visible over.
  const bool barsMarker = first.errorBars && first.marker == PlanMarker::Automatic;
  if (barsMarker) {
    props->setPropertyValue("Symbol", Any(symbolOf(PlanMarker::Circle, kErrorBarsMarkerSize, index)));
  } else {
    props->setPropertyValue("Symbol", Any(symbolOf(prices ? PlanMarker::None : first.marker, first.markerSize, index)));
  }
  props->setPropertyValue("AttachedAxisIndex", Any(sal_Int32{first.secondary ? 1 : 0}));
  // The host's colours: black whiskers and marks, columns and lines from the palette's chart
  // entries by the series' place, as the in-memory host writes them.
  sal_Int32 color = colorOr(first.lineColorIndex, colorOr(automaticLineIndex(index), 0));
  if (prices || first.marker == PlanMarker::Dash) color = kBlack;
  if (barsMarker) color = colorOr(kErrorBarsMarkerColorIndex, color);
  if (first.kind == PlanKind::Column) {
    color = colorOr(automaticFillIndex(index), kWhite);
    props->setPropertyValue("BorderStyle", Any(css::drawing::LineStyle_SOLID));
    props->setPropertyValue("BorderColor", Any(kBlack));
  }
  props->setPropertyValue("Color", Any(color));
  if (first.errorBars && (!first.errorBars->plusRange.empty() || !first.errorBars->minusRange.empty())) {
    const PlanErrorBars& bars = *first.errorBars;
    const Properties errorBar(make("com.sun.star.chart2.ErrorBar"), UNO_QUERY_THROW);
    errorBar->setPropertyValue("ErrorBarStyle", Any(css::chart::ErrorBarStyle::FROM_DATA));
    errorBar->setPropertyValue("ShowPositiveError", Any(bars.plus));
    errorBar->setPropertyValue("ShowNegativeError", Any(bars.minus));
    errorBar->setPropertyValue("LineColor", Any(kBlack));
    std::vector<Reference<css::chart2::data::XLabeledDataSequence>> amounts;
    if (bars.plus) amounts.emplace_back(sequence(bars.plusRange, "error-bars-y-positive"), UNO_QUERY_THROW);
    if (bars.minus) amounts.emplace_back(sequence(bars.minusRange, "error-bars-y-negative"), UNO_QUERY_THROW);
    Reference<css::chart2::data::XDataSink>(errorBar, UNO_QUERY_THROW)->setData(sequenceOf(amounts));
    props->setPropertyValue("ErrorBarY", Any(errorBar));
  }
  return made;
}

Reference<css::uno::XInterface> ChartDrawing::axis(const ChartPlan& plan, const PlanAxis& a, bool categories) const {
  const Reference<css::chart2::XAxis> made(make("com.sun.star.chart2.Axis"), UNO_QUERY_THROW);
  const Properties props(made, UNO_QUERY_THROW);
  props->setPropertyValue("Show", Any(a.shown));
  props->setPropertyValue("CharHeight", Any(static_cast<float>(a.tickLabelFont.size)));
  props->setPropertyValue("CharWeight", Any(a.tickLabelFont.bold ? 150.0f : 100.0f));
  props->setPropertyValue("LineStyle", lineStyle(a.line));
  props->setPropertyValue("MajorTickmarks", Any(tickmarks(a.majorTickMark)));
  if (a.tickLabels == host::TickLabelPosition::Low) {
    props->setPropertyValue("LabelPosition", Any(css::chart::ChartAxisLabelPosition_OUTSIDE_START));
  }
  // A secondary value axis stands on the right, where the other side's axis ends.
  if (a.group == host::AxisGroup::Secondary) {
    props->setPropertyValue("CrossoverPosition", Any(css::chart::ChartAxisPosition_END));
  }
  if (a.numberFormat != "General") {
    props->setPropertyValue("NumberFormat", Any(numbers_.keyOf(a.numberFormat)));
    props->setPropertyValue("LinkNumberFormatToSource", Any(false));
  }
  css::chart2::ScaleData scale = made->getScaleData();
  scale.AxisType = categories ? css::chart2::AxisType::CATEGORY : css::chart2::AxisType::REALNUMBER;
  // Points stand in the middle of their category, between the tick marks, as columns do.
  scale.ShiftedCategoryPosition = categories;
  scale.Minimum = optionalNumber(a.minimum);
  scale.Maximum = optionalNumber(a.maximum);
  if (a.majorUnit) scale.IncrementData.Distance = Any(*a.majorUnit);
  if (categories) {
    for (const PlanSeries& s : plan.series) {
      if (!s.categories) continue;
      scale.Categories.set(sequence(*s.categories, "categories"), UNO_QUERY_THROW);
      break;
    }
  }
  made->setScaleData(scale);
  Properties(made->getGridProperties(), UNO_QUERY_THROW)->setPropertyValue("Show", Any(a.majorGridlines));
  const Sequence<Reference<css::beans::XPropertySet>> minor = made->getSubGridProperties();
  if (minor.getLength() > 0) minor[0]->setPropertyValue("Show", Any(a.minorGridlines));
  if (a.title)
    Reference<css::chart2::XTitled>(made, UNO_QUERY_THROW)
        ->setTitleObject(Reference<css::chart2::XTitle>(title(*a.title), UNO_QUERY_THROW));
  return made;
}

void ChartDrawing::drawAxes(const ChartPlan& plan, const Reference<css::uno::XInterface>& system) const {
  const Reference<css::chart2::XCoordinateSystem> cs(system, UNO_QUERY_THROW);
  const bool scatter = plan.kind == PlanKind::Scatter;
  for (const PlanAxis& a : plan.axes) {
    const sal_Int32 dimension = a.type == host::AxisType::Category ? 0 : 1;
    const sal_Int32 index = a.group == host::AxisGroup::Secondary ? 1 : 0;
    const bool categories = dimension == 0 && !scatter;
    cs->setAxisByDimension(dimension, Reference<css::chart2::XAxis>(axis(plan, a, categories), UNO_QUERY_THROW), index);
  }
}

void ChartDrawing::drawFills(const ChartPlan& plan, const Reference<css::uno::XInterface>& diagramObject, double width,
                             double height) const {
  const Reference<css::chart2::XDiagram> diagram(diagramObject, UNO_QUERY_THROW);
  const Properties wall = diagram->getWall();
  if (!plan.plotArea.filled) wall->setPropertyValue("FillStyle", Any(css::drawing::FillStyle_NONE));
  wall->setPropertyValue("LineStyle", lineStyle(plan.plotArea.border));
  const PlanPlotArea& plot = plan.plotArea;
  if (plot.left && plot.top && plot.width && plot.height && width > 0 && height > 0) {
    const Properties props(diagram, UNO_QUERY_THROW);
    props->setPropertyValue(
        "RelativePosition",
        Any(css::chart2::RelativePosition(*plot.left / width, *plot.top / height, css::drawing::Alignment_TOP_LEFT)));
    props->setPropertyValue("RelativeSize", Any(css::chart2::RelativeSize(*plot.width / width, *plot.height / height)));
    props->setPropertyValue("PosSizeExcludeAxes", Any(false));
  }
  const Properties page = chart_->getPageBackground();
  page->setPropertyValue("FillStyle", Any(css::drawing::FillStyle_SOLID));
  page->setPropertyValue("FillColor", Any(colorOr(plan.chartAreaColorIndex, kWhite)));
  // The chart area is framed, as the in-memory host draws it.
  page->setPropertyValue("LineStyle", lineStyle(true));
  page->setPropertyValue("LineColor", Any(kBlack));
}

void ChartDrawing::draw(const ChartPlan& plan, double width, double height) {
  remote("draw a chart", [&] {
    const Reference<css::chart2::XDiagram> diagram(make("com.sun.star.chart2.Diagram"), UNO_QUERY_THROW);
    const Reference<css::chart2::XCoordinateSystem> system(make("com.sun.star.chart2.CartesianCoordinateSystem2d"),
                                                           UNO_QUERY_THROW);
    Reference<css::chart2::XCoordinateSystemContainer>(diagram, UNO_QUERY_THROW)
        ->setCoordinateSystems(Sequence<Reference<css::chart2::XCoordinateSystem>>(&system, 1));

    std::vector<Reference<css::chart2::XChartType>> types;
    for (const TypeGroup& group : typeGroups(plan)) {
      const Reference<css::chart2::XChartType> type(make(group.service), UNO_QUERY_THROW);
      const Properties props(type, UNO_QUERY_THROW);
      std::vector<Reference<css::chart2::XDataSeries>> members;
      const auto place = [&](const PlanSeries* s) { return static_cast<std::size_t>(s - plan.series.data()); };
      if (group.prices) {
        members.emplace_back(series(group.members, true, place(group.members.front())), UNO_QUERY_THROW);
      } else {
        for (const PlanSeries* s : group.members) members.emplace_back(series({s}, false, place(s)), UNO_QUERY_THROW);
      }
      if (group.prices) {
        props->setPropertyValue("Japanese", Any(plan.upDownBars));
        props->setPropertyValue("ShowFirst", Any(plan.kind == PlanKind::StockOHLC));
        props->setPropertyValue("ShowHighLow", Any(plan.highLowLines));
        for (const char* day : {"WhiteDay", "BlackDay"}) {
          Properties bars;
          props->getPropertyValue(OUString::createFromAscii(day)) >>= bars;
          if (!bars.is()) continue;
          bars->setPropertyValue("FillColor", Any(colorOr(plan.upBarsColorIndex, kWhite)));
          bars->setPropertyValue("LineWidth", Any(hundredths(plan.upBarsBorderWeight)));
        }
      } else if (std::string_view(group.service).ends_with("ColumnChartType")) {
        const std::vector<sal_Int32> gaps{plan.gapWidth, plan.gapWidth};  // one per axis index
        props->setPropertyValue("GapwidthSequence", Any(sequenceOf(gaps)));
      } else if (group.smooth) {
        props->setPropertyValue("CurveStyle", Any(css::chart2::CurveStyle_CUBIC_SPLINES));
      }
      Reference<css::chart2::XDataSeriesContainer>(type, UNO_QUERY_THROW)->setDataSeries(sequenceOf(members));
      types.push_back(type);
    }
    Reference<css::chart2::XChartTypeContainer>(system, UNO_QUERY_THROW)->setChartTypes(sequenceOf(types));
    drawAxes(plan, system);
    if (plan.legend) {
      const Properties legend(make("com.sun.star.chart2.Legend"), UNO_QUERY_THROW);
      legend->setPropertyValue("Show", Any(true));
      legend->setPropertyValue("CharHeight", Any(static_cast<float>(plan.legendFont.size)));
      legend->setPropertyValue("CharWeight", Any(plan.legendFont.bold ? 150.0f : 100.0f));
      if (plan.legendPosition == host::LegendPosition::Bottom) {
        legend->setPropertyValue("AnchorPosition", Any(css::chart2::LegendPosition_PAGE_END));
        legend->setPropertyValue("Expansion", Any(css::chart::ChartLegendExpansion_WIDE));
      }
      diagram->setLegend(Reference<css::chart2::XLegend>(legend, UNO_QUERY_THROW));
    }
    drawFills(plan, diagram, width, height);
    chart_->setFirstDiagram(diagram);
    const Reference<css::chart2::XTitled> titled(chart_, UNO_QUERY_THROW);
    titled->setTitleObject(plan.title ? Reference<css::chart2::XTitle>(title(*plan.title), UNO_QUERY_THROW)
                                      : Reference<css::chart2::XTitle>());
  });
}

double ChartDrawing::automaticMaximum(host::AxisGroup group) {
  return remote("read a chart's automatic scale", [&] {
    const Reference<css::chart::XChartDocument> old(chart_, UNO_QUERY_THROW);
    Properties axis;
    if (group == host::AxisGroup::Secondary) {
      axis = Reference<css::chart::XTwoAxisYSupplier>(old->getDiagram(), UNO_QUERY_THROW)->getSecondaryYAxis();
    } else {
      axis = Reference<css::chart::XAxisYSupplier>(old->getDiagram(), UNO_QUERY_THROW)->getYAxis();
    }
    double maximum = 0;
    if (!axis.is() || !(axis->getPropertyValue("Max") >>= maximum)) raiseHost("The chart has no such value axis");
    return maximum;
  });
}

}  // namespace orv::calc
