#include "chart_probe.h"

#include "frame/chart_layout.h"

#include "frame/conversions.h"
#include "workbook/in_memory_chart.h"
#include "workbook/in_memory_worksheet.h"

namespace orv::test {
namespace {

std::string refText(const SheetRef& ref) { return quoteSheetName(ref.sheet) + "!" + absoluteAddress(ref.block); }

std::string numbersText(const std::vector<std::optional<double>>& numbers) {
  std::string out = "=";
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    if (i > 0) out += ";";
    if (numbers[i]) out += numberToText(*numbers[i]);
  }
  return out;
}

std::string dataText(const ChartData& data) {
  if (data.cells) return refText(*data.cells);
  return data.literal.empty() ? "" : numbersText(data.literal);
}

std::string labelsText(const ChartLabels& labels) {
  if (labels.cells) return refText(*labels.cells);
  if (labels.cached.empty()) return "";
  std::string out = "=";
  for (std::size_t i = 0; i < labels.cached.size(); ++i) out += (i > 0 ? ";" : "") + labels.cached[i];
  return out;
}

std::string kindText(ChartKind kind) {
  switch (kind) {
    case ChartKind::LineMarkers: return "line";
    case ChartKind::ColumnClustered: return "column";
    case ChartKind::XYScatter: return "scatter";
    case ChartKind::StockHLC:
    case ChartKind::StockOHLC: return "stock";
  }
  return "?";
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const ProbedSeries& s) {
  return out << "{" << s.kind << " values=" << s.values << " categories=" << s.categories << " name=" << s.name
             << (s.secondary ? " secondary" : "") << (s.line ? " line" : "") << " +" << s.plusErrors << " -"
             << s.minusErrors << " marker=" << s.markerSize << "}";
}

std::ostream& operator<<(std::ostream& out, const ProbedAxis& a) {
  out << "{" << a.which << (a.shown ? "" : " hidden") << " title=" << a.title << "/" << a.titleSize
      << " ticks=" << a.tickLabelSize << " format=" << a.numberFormat << (a.majorGridlines ? " grid" : "")
      << (a.line ? "" : " no-line") << (a.labelsLow ? " labels-low" : "");
  if (a.minimum) out << " min=" << *a.minimum;
  if (a.maximum) out << " max=" << *a.maximum;
  return out << "}";
}

std::vector<ProbedChart> probeInMemory(Worksheet& worksheet) {
  auto& sheet = dynamic_cast<InMemoryWorksheet&>(worksheet);
  std::vector<ProbedChart> charts;
  for (const ChartModel& m : sheet.charts()) {
    ProbedChart c{.name = m.name,
                  .left = m.left,
                  .top = m.top,
                  .width = m.width,
                  .height = m.height,
                  .title = m.title.value_or(""),
                  .titleSize = m.title ? m.titleFont.size : 0,
                  .titleBold = m.title && m.titleFont.bold,
                  .legend = m.legend,
                  .legendAt = !m.legend                              ? ""
                              : m.legendPlace == LegendPlace::Bottom ? "bottom"
                                                                     : "right",
                  .legendSize = m.legend ? m.legendFont.size : 0,
                  .upDownBars = m.upDownBars};
    const std::size_t prices = priceSeriesCount(m.kind);
    for (std::size_t i = 0; i < m.series.size(); ++i) {
      const SeriesModel& s = m.series[i];
      // Series past a stock chart's prices are drawn as marks, as a line group draws them.
      ProbedSeries p{.kind = priceSeriesCount(s.kind) > 0 && i >= prices ? "line" : kindText(s.kind),
                     .values = dataText(s.values),
                     .categories = s.kind == ChartKind::XYScatter ? dataText(s.xValues) : labelsText(s.categories),
                     .name = s.nameCell ? refText(*s.nameCell) : s.name,
                     .secondary = s.axisGroup == AxisGroup::Secondary,
                     .line = s.line};
      if (p.kind != "stock" && s.marker != MarkerSymbol::None) {
        const bool barsMarker = s.errorBars && s.marker == MarkerSymbol::Automatic;
        p.markerSize = barsMarker ? kErrorBarsMarkerSize : s.markerSize;
      }
      if (s.errorBars) {
        p.plusErrors = s.errorBars->plus ? dataText(s.errorBars->plusAmounts) : "";
        p.minusErrors = s.errorBars->minus ? dataText(s.errorBars->minusAmounts) : "";
      }
      c.series.push_back(p);
    }
    for (const AxisModel& a : m.axes) {
      // The secondary category axis is never shown; the live host has none.
      if (a.kind == AxisKind::Category && a.group == AxisGroup::Secondary) continue;
      c.axes.push_back({.which = a.kind == AxisKind::Category      ? "category"
                                 : a.group == AxisGroup::Secondary ? "secondary value"
                                                                   : "value",
                        .shown = !a.deleted,
                        .title = a.title.value_or(""),
                        .titleSize = a.title ? a.titleFont.size : 0,
                        .tickLabelSize = a.tickLabelFont.size,
                        .numberFormat = a.tickLabelNumberFormat,
                        .majorGridlines = a.majorGridlines,
                        .line = a.line,
                        .labelsLow = a.tickLabels == TickLabelPlace::Low,
                        .minimum = a.minimumScale,
                        .maximum = a.maximumScale});
    }
    charts.push_back(std::move(c));
  }
  return charts;
}

void expectSameChart(const ProbedChart& expected, const ProbedChart& actual) {
  SCOPED_TRACE("chart " + expected.name);
  EXPECT_EQ(actual.name, expected.name);
  EXPECT_NEAR(actual.left, expected.left, 0.05);
  EXPECT_NEAR(actual.top, expected.top, 0.05);
  EXPECT_NEAR(actual.width, expected.width, 0.05);
  EXPECT_NEAR(actual.height, expected.height, 0.05);
  EXPECT_EQ(actual.title, expected.title);
  EXPECT_EQ(actual.titleSize, expected.titleSize);
  EXPECT_EQ(actual.titleBold, expected.titleBold);
  EXPECT_EQ(actual.legend, expected.legend);
  EXPECT_EQ(actual.legendAt, expected.legendAt);
  EXPECT_EQ(actual.legendSize, expected.legendSize);
  EXPECT_EQ(actual.upDownBars, expected.upDownBars);
  EXPECT_EQ(actual.series, expected.series);
  EXPECT_EQ(actual.axes, expected.axes);
}

}  // namespace orv::test
