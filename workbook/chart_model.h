#pragma once
// The recorded form of a chart: what the chart builders set through the host's chart object
// model, kept as plain data so that tests can inspect it and the .xlsx writer can turn it into
// DrawingML. Positions and sizes are in points; colours are palette colour indices.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "frame/reference.h"

namespace orv {

// A block of cells on a named sheet, as a chart series refers to it.
struct SheetRef {
  std::string sheet;
  CellBlock block;
  friend bool operator==(const SheetRef&, const SheetRef&) = default;
};

// Numbers that come from cells (the chart follows edits of the sheet) or literal values.
// `cached` holds the cells' values when the chart was made (empty cells as nullopt), so that a
// writer can fill caches without reading the sheet again.
struct ChartData {
  std::optional<SheetRef> cells;
  std::vector<std::optional<double>> literal;  // used when `cells` is empty
  std::vector<std::optional<double>> cached;
};

// Category labels (texts or numbers shown as text) from cells; without cells, `cached` holds
// literal labels.
struct ChartLabels {
  std::optional<SheetRef> cells;
  std::vector<std::string> cached;
};

enum class ChartKind : std::uint8_t {
  LineMarkers,      // points joined by lines, with markers (a line's look is per series)
  StockHLC,         // high-low-close
  StockOHLC,        // open-high-low-close: up-down bars from the first to the last series
  ColumnClustered,  // vertical bars
  XYScatter,        // points at (x, y)
};

enum class AxisGroup : std::uint8_t { Primary = 1, Secondary = 2 };
enum class AxisKind : std::uint8_t { Category = 1, Value = 2 };
enum class MarkerSymbol : std::uint8_t { Automatic, None, Dash, Diamond, Circle, Square };
enum class TickMark : std::uint8_t { None, Inside, Outside, Cross };
enum class TickLabelPlace : std::uint8_t { NextToAxis, Low };
enum class LegendPlace : std::uint8_t { Right, Bottom };

struct FontModel {
  double size = 10.0;
  bool bold = false;
};

struct ErrorBarsModel {
  bool plus = true;   // bars above the point
  bool minus = true;  // bars below the point
  bool endCaps = true;
  ChartData plusAmounts;  // distances from the point, not limits
  ChartData minusAmounts;
};

struct SeriesModel {
  std::string name;                         // literal name, e.g. "Frequency"; empty for none
  std::optional<SheetRef> nameCell;         // or the cell that holds it
  ChartKind kind = ChartKind::LineMarkers;  // the group the series is drawn in
  AxisGroup axisGroup = AxisGroup::Primary;
  ChartLabels categories;  // category labels (line, stock, column charts)
  ChartData xValues;       // X values (scatter charts)
  ChartData values;        // the plotted values (Y)
  bool line = true;        // false: points not joined
  bool smooth = false;
  MarkerSymbol marker = MarkerSymbol::Automatic;
  std::int32_t markerSize = 7;
  std::optional<ErrorBarsModel> errorBars;
  std::int32_t fillColorIndex = -4105;  // bars; automatic by default
  std::int32_t lineColorIndex = -4105;  // the joining line; automatic by default
};

struct AxisModel {
  AxisKind kind = AxisKind::Value;
  AxisGroup group = AxisGroup::Primary;
  bool deleted = false;
  std::optional<std::string> title;  // none when nullopt
  FontModel titleFont{10.0, false};
  FontModel tickLabelFont{10.0, false};
  std::string tickLabelNumberFormat = "General";
  bool majorGridlines = false;
  bool minorGridlines = false;
  bool line = true;  // false: the axis line is not drawn
  TickMark majorTickMark = TickMark::Outside;
  TickLabelPlace tickLabels = TickLabelPlace::NextToAxis;
  std::optional<double> minimumScale;  // explicit scale; nullopt = automatic
  std::optional<double> maximumScale;
  std::optional<double> majorUnit;
  bool crossesAtCentre = true;  // value axes cross their partner at zero
};

// A rectangle inside the chart area, in points from the chart's top-left corner.
struct PlotAreaModel {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
  bool manual = false;  // set by a builder; false = the host's automatic layout
  bool filled = true;
  bool border = true;
};

struct ChartModel {
  std::string name;  // "Chart 1"; the sheet-qualified form is "<sheet> Chart 1"
  double left = 0, top = 0, width = 0, height = 0;

  ChartKind kind = ChartKind::LineMarkers;  // the chart's main type
  std::vector<SeriesModel> series;

  std::optional<std::string> title;  // none when nullopt
  FontModel titleFont{10.0, true};
  bool legend = true;
  LegendPlace legendPlace = LegendPlace::Right;
  FontModel legendFont{10.0, false};

  bool upDownBars = false;  // stock charts: boxes from open to close
  std::int32_t upBarsColorIndex = -4105;
  double upBarsBorderWeight = 0.75;  // outline of the boxes, points
  bool highLowLines = false;         // stock charts: whiskers
  std::int32_t gapWidth = 150;       // space between bars, percent of a bar

  bool autoScaleFont = true;
  std::int32_t chartAreaColorIndex = -4105;
  PlotAreaModel plotArea;
  std::vector<AxisModel> axes;
};

}  // namespace orv
