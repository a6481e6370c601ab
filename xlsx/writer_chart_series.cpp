#include "xlsx/writer_chart_series.h"

#include <algorithm>
#include <array>

#include "frame/chart_layout.h"
#include "xlsx/writer_chart_data.h"
#include "xlsx/writer_chart_elements.h"
#include "xlsx/writer_chart_palette.h"

namespace orv::chartxml {
namespace {

constexpr std::int32_t kSeriesLine = 19050;  // 1.5 pt
constexpr std::string_view kBlack = "000000";

// The host cycles through these symbols for series whose marker is automatic.
constexpr std::array<std::string_view, 7> kAutomaticSymbols = {"diamond", "square", "triangle", "x",
                                                               "star",    "circle", "plus"};

std::string head(std::size_t index, const SeriesModel& series) {
  const std::string n = std::to_string(index);
  return valueElement("idx", n) + valueElement("order", n) + seriesText(series);
}

std::string seriesLine(const SeriesModel& series, std::size_t index, bool stock) {
  if (stock || !series.line) return shapeProperties("", line(std::nullopt));
  return shapeProperties("", line(paletteRgb(series.lineColorIndex).value_or(automaticLineRgb(index)), kSeriesLine));
}

std::string_view symbolName(MarkerSymbol symbol, std::size_t index) {
  switch (symbol) {
    case MarkerSymbol::None: return "none";
    case MarkerSymbol::Dash: return "dash";
    case MarkerSymbol::Diamond: return "diamond";
    case MarkerSymbol::Circle: return "circle";
    case MarkerSymbol::Square: return "square";
    case MarkerSymbol::Automatic: break;
  }
  return kAutomaticSymbols[index % kAutomaticSymbols.size()];
}

}  // namespace

std::string marker(const SeriesModel& series, std::size_t index, bool stock) {
  MarkerSymbol symbol = stock && series.marker == MarkerSymbol::Automatic ? MarkerSymbol::None : series.marker;
  if (symbol == MarkerSymbol::None) return "<c:marker>" + valueElement("symbol", "none") + "</c:marker>";
  std::string rgb = symbol == MarkerSymbol::Dash ? std::string(kBlack) : automaticLineRgb(index);
  std::int32_t size = std::clamp(series.markerSize, 2, 72);
  // Points with error bars: a small light marker that the black bars stay visible over.
  if (series.errorBars && symbol == MarkerSymbol::Automatic) {
    symbol = MarkerSymbol::Circle;
    rgb = paletteRgb(kErrorBarsMarkerColorIndex).value_or(rgb);
    size = kErrorBarsMarkerSize;
  }
  return "<c:marker>" + valueElement("symbol", symbolName(symbol, index)) + valueElement("size", std::to_string(size)) +
         shapeProperties(solidFill(rgb), line(rgb)) + "</c:marker>";
}

std::string errorBars(const ErrorBarsModel& bars) {
  if (!bars.plus && !bars.minus) return {};
  const std::string_view type = bars.plus && bars.minus ? "both" : (bars.plus ? "plus" : "minus");
  std::string out = "<c:errBars>" + valueElement("errDir", "y") + valueElement("errBarType", type) +
                    valueElement("errValType", "cust") + boolElement("noEndCap", !bars.endCaps);
  if (bars.plus) out += numberData("plus", bars.plusAmounts);
  if (bars.minus) out += numberData("minus", bars.minusAmounts);
  return out + shapeProperties("", line(std::string(kBlack))) + "</c:errBars>";
}

std::string lineSeries(const SeriesModel& series, std::size_t index, bool stock) {
  return "<c:ser>" + head(index, series) + seriesLine(series, index, stock) + marker(series, index, stock) +
         (series.errorBars ? errorBars(*series.errorBars) : "") + labelData("cat", series.categories) +
         numberData("val", series.values) + boolElement("smooth", series.smooth && !stock) + "</c:ser>";
}

std::string barSeries(const SeriesModel& series, std::size_t index) {
  const std::string fill = paletteRgb(series.fillColorIndex).value_or(automaticFillRgb(index));
  return "<c:ser>" + head(index, series) + shapeProperties(solidFill(fill), line(std::string(kBlack))) +
         boolElement("invertIfNegative", false) + (series.errorBars ? errorBars(*series.errorBars) : "") +
         labelData("cat", series.categories) + numberData("val", series.values) + "</c:ser>";
}

std::string scatterSeries(const SeriesModel& series, std::size_t index) {
  return "<c:ser>" + head(index, series) + seriesLine(series, index, false) + marker(series, index, false) +
         (series.errorBars ? errorBars(*series.errorBars) : "") + numberData("xVal", series.xValues) +
         numberData("yVal", series.values) + boolElement("smooth", series.smooth) + "</c:ser>";
}

}  // namespace orv::chartxml
