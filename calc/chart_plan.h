#pragma once
// ChartPlan: what a chart of the live host shows, as the chart builders set it through the
// frame's chart interface (calc_chart.h). The office's chart document is drawn from it whole
// (chart_drawing.h) whenever the office must answer something (the automatic scale of a value
// axis) and when the component's call ends, so that the order in which the
// builders set things (four price series first, the stock type after) never has to be replayed
// into the office's own model step by step.
//
// Data come from cells, as the office's charts take them: a range in the office's notation
// ("$'Sheet1'.$B$4:$D$4"). Values given as literal lists are written to the workbook's chart
// data sheet first (chart_data_sheet.h) and referred to there. Sizes are in points; colours are
// palette indices (automatic -4105, none -4142).

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "frame/cell_format.h"
#include "frame/chart.h"

namespace orv::calc {

enum class PlanKind : std::uint8_t { Line, Column, Scatter, StockHLC, StockOHLC };
enum class PlanMarker : std::uint8_t { Automatic, None, Dash, Circle };

// A range of cells in the office's notation, with the values it held when it was set (for the
// automatic scale and for tests).
struct PlanData {
  std::string range;
  std::vector<std::optional<double>> numbers;
};

struct PlanFont {
  double size = 10;
  bool bold = false;
};

struct PlanTitle {
  std::string text;
  PlanFont font{10, false};
};

struct PlanErrorBars {
  bool plus = true;
  bool minus = true;
  bool endCaps = true;
  std::string plusRange;  // distances from the points
  std::string minusRange;
};

struct PlanSeries {
  PlanKind kind = PlanKind::Column;
  bool secondary = false;
  std::optional<PlanData> values;
  std::optional<std::string> categories;  // labels of a category axis
  std::optional<PlanData> xValues;        // scatter charts
  std::string name;                       // a cell's range, or a quoted literal ("\"Frequency\"")
  bool line = true;
  bool smooth = false;
  PlanMarker marker = PlanMarker::Automatic;
  double markerSize = 7;
  std::optional<PlanErrorBars> errorBars;
  std::int32_t lineColorIndex = kColorIndexAutomatic;
};

struct PlanAxis {
  host::AxisType type = host::AxisType::Value;
  host::AxisGroup group = host::AxisGroup::Primary;
  bool shown = true;
  std::optional<PlanTitle> title;
  PlanFont tickLabelFont;
  std::string numberFormat = "General";
  bool majorGridlines = false;
  bool minorGridlines = false;
  bool line = true;
  host::TickMark majorTickMark = host::TickMark::Outside;
  host::TickLabelPosition tickLabels = host::TickLabelPosition::NextToAxis;
  std::optional<double> minimum, maximum, majorUnit;
};

// A rectangle inside the chart area, points from its top-left corner; automatic until set.
struct PlanPlotArea {
  std::optional<double> left, top, width, height;
  bool filled = true;
  bool border = true;
};

struct ChartPlan {
  PlanKind kind = PlanKind::Column;  // a new chart is a clustered column chart
  std::vector<PlanSeries> series;
  std::optional<PlanTitle> title;
  bool legend = true;
  host::LegendPosition legendPosition = host::LegendPosition::Right;
  PlanFont legendFont;
  bool upDownBars = false;
  std::int32_t upBarsColorIndex = kColorIndexAutomatic;
  double upBarsBorderWeight = 0.75;
  bool highLowLines = false;
  std::int32_t gapWidth = 150;
  bool autoScaleFont = true;
  std::int32_t chartAreaColorIndex = kColorIndexAutomatic;
  PlanPlotArea plotArea;
  std::vector<PlanAxis> axes;  // the axes the chart has now
};

// The number of price series of a stock kind (4 or 3); 0 for other kinds.
inline std::size_t priceSeries(PlanKind kind) {
  return kind == PlanKind::StockOHLC ? 4 : kind == PlanKind::StockHLC ? 3 : 0;
}

}  // namespace orv::calc
