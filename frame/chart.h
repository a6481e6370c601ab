#pragma once
// The host's chart object model, as far as the chart builders drive it: chart objects on a
// worksheet, their chart with its series, chart groups, axes, error bars, titles, chart and plot
// areas. A host implements these classes (the in-memory host records what is set as a plain
// chart model); the builders hold only references handed out here.
//
// Sizes and positions are in points. Every call that the host cannot carry out (an axis the chart
// does not have, a series index out of range, error amounts that are neither a range nor an array
// of numbers, an unsupported option) is a host failure (1004). Objects stay owned by the host and
// live as long as their worksheet; using a deleted series or axis is a host failure too.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "frame/range.h"
#include "frame/value_array.h"

namespace orv {

// The host's enumeration values for chart options.
namespace host {

enum class RowCol : std::int32_t { Rows = 1, Columns = 2 };
enum class ChartType : std::int32_t {
  Line = 4,
  ColumnClustered = 51,
  LineMarkers = 65,
  StockHLC = 88,
  StockOHLC = 89,
  XYScatter = -4169,
};
enum class AxisType : std::int32_t { Category = 1, Value = 2 };
enum class AxisGroup : std::int32_t { Primary = 1, Secondary = 2 };
enum class BorderWeight : std::int32_t { Hairline = 1, Thin = 2, Medium = -4138, Thick = 4 };
enum class LineStyle : std::int32_t { Continuous = 1, Dash = -4115, Dot = -4118, None = -4142 };
enum class TickMark : std::int32_t { Cross = 4, Inside = 2, None = -4142, Outside = 3 };
enum class TriState : std::int32_t { False = 0, True = -1 };
enum class ErrorBarDirection : std::int32_t { X = -4168, Y = 1 };
enum class ErrorBarInclude : std::int32_t { Both = 1, PlusValues = 2, MinusValues = 3, None = -4142 };
enum class ErrorBarType : std::int32_t {
  FixedValue = 1,
  Percent = 2,
  StDev = -4155,
  StError = 4,
  Custom = -4114,
};
enum class EndStyle : std::int32_t { Cap = 1, NoCap = 2 };
enum class MarkerStyle : std::int32_t { Automatic = -4105, None = -4142, Circle = 8 };
// Where an axis' tick labels stand: next to the axis line, or at the low end of the crossing
// axis (the plot area's left or bottom edge), away from where the axes cross.
enum class TickLabelPosition : std::int32_t { NextToAxis = 4, Low = -4134 };
enum class LegendPosition : std::int32_t { Bottom = -4107, Right = -4152 };

}  // namespace host

// Error amounts handed over as a list of numbers (distances from the points). When a program
// has also written the same numbers into one row or column of cells, `cells` names them: a host
// then ties the bars to those cells, as it does for amounts given as a range, so that every
// reader draws them and an edit of a cell moves its bar. Otherwise the host keeps the numbers.
struct AmountList {
  AmountList(ValueArray1D list) : values(std::move(list)) {}  // NOLINT(google-explicit-constructor)
  AmountList(ValueArray1D list, Range written) : values(std::move(list)), cells(std::move(written)) {}
  ValueArray1D values;
  std::optional<Range> cells;
};

// Custom error-bar amounts: nothing (which ErrorBar refuses), a range of cells, or a list.
using ErrorAmount = std::variant<std::monostate, Range, AmountList>;

// The values, X values or category labels of a series: the cells of one row or column (the
// chart follows edits of the sheet), or literal values (numbers; texts for category labels).
using SeriesSource = std::variant<Range, ValueArray1D>;

class ChartFont {
 public:
  virtual ~ChartFont() = default;
  virtual void SetSize(double points) = 0;
  virtual void SetBold(bool bold) = 0;
};

class ChartBorder {
 public:
  virtual ~ChartBorder() = default;
  virtual void SetLineStyle(host::LineStyle style) = 0;
  virtual void SetWeight(host::BorderWeight weight) = 0;
  // Palette index 1 to 56 of the line's colour.
  virtual void SetColorIndex(std::int32_t index) = 0;
};

class ChartInterior {
 public:
  virtual ~ChartInterior() = default;
  virtual void SetColorIndex(std::int32_t index) = 0;
};

class ChartFill {
 public:
  virtual ~ChartFill() = default;
  virtual void SetVisible(host::TriState visible) = 0;
};

// The chart title and the axis titles.
class ChartTitle {
 public:
  virtual ~ChartTitle() = default;
  virtual void SetText(const std::string& text) = 0;
  virtual ChartFont& Font() = 0;
};

class TickLabels {
 public:
  virtual ~TickLabels() = default;
  virtual ChartFont& Font() = 0;
  virtual std::string NumberFormat() const = 0;
  virtual void SetNumberFormat(const std::string& format) = 0;
};

class Legend {
 public:
  virtual ~Legend() = default;
  virtual void SetPosition(host::LegendPosition position) = 0;
  virtual ChartFont& Font() = 0;
};

class Axis {
 public:
  virtual ~Axis() = default;
  virtual void Delete() = 0;
  virtual void SetHasTitle(bool on) = 0;
  // Fails while the axis has no title.
  virtual ChartTitle& AxisTitle() = 0;
  virtual orv::TickLabels& TickLabels() = 0;
  virtual void SetHasMajorGridlines(bool on) = 0;
  virtual void SetHasMinorGridlines(bool on) = 0;
  virtual ChartBorder& Border() = 0;
  virtual void SetMajorTickMark(host::TickMark mark) = 0;
  virtual void SetTickLabelPosition(host::TickLabelPosition position) = 0;
  // Fixed scale limits and step of a value axis; finite numbers only, the minimum below the
  // maximum once both are set.
  virtual void SetMinimumScale(double value) = 0;
  virtual void SetMaximumScale(double value) = 0;
  virtual void SetMajorUnit(double value) = 0;
  // The scale's maximum: the one set, or the host's automatic maximum for the values plotted on
  // the axis as they stand now.
  virtual double MaximumScale() const = 0;
};

class ErrorBars {
 public:
  virtual ~ErrorBars() = default;
  virtual void Delete() = 0;
  virtual void SetEndStyle(host::EndStyle style) = 0;
};

class Series {
 public:
  virtual ~Series() = default;
  virtual void Delete() = 0;
  virtual host::AxisGroup AxisGroup() const = 0;
  virtual void SetAxisGroup(host::AxisGroup group) = 0;
  // True gives the host's default bars; False removes any bars.
  virtual void SetHasErrorBars(bool on) = 0;
  // Fails while the series has no error bars.
  virtual orv::ErrorBars& ErrorBars() = 0;
  // Replaces the series' error bars. Only vertical bars of custom amounts are drawn by every
  // host; `amount` and `minusValues` are the plus and minus distances, one per point.
  virtual void ErrorBar(host::ErrorBarDirection direction, host::ErrorBarInclude include, host::ErrorBarType type,
                        const ErrorAmount& amount, const ErrorAmount& minusValues) = 0;
  // The line that joins the points.
  virtual ChartBorder& Border() = 0;
  virtual void SetName(const std::string& name) = 0;
  // Draws this series alone in another type (a line over columns, say); stock types are refused.
  virtual void SetChartType(host::ChartType type) = 0;
  virtual void SetValues(const SeriesSource& values) = 0;
  // X values of a scatter series; category labels of any other series.
  virtual void SetXValues(const SeriesSource& values) = 0;
  virtual void SetSmooth(bool on) = 0;
  virtual void SetMarkerStyle(host::MarkerStyle style) = 0;
  // Points, 2 to 72.
  virtual void SetMarkerSize(std::int32_t points) = 0;
};

class SeriesCollection {
 public:
  virtual ~SeriesCollection() = default;
  virtual std::int32_t Count() const = 0;
  // 1-based.
  virtual Series& Item(std::int32_t index) = 0;
  // Adds series from the source's areas, each one row or one column of cells. With
  // `categoryLabels` and two or more areas, the first area holds the category labels and every
  // further area is one series; otherwise every area is one series, and a chart that already has
  // series lends the first one's categories. With `seriesLabels`, the first cell of each series
  // area is the series' name. Returns the last series added.
  virtual Series& Add(const Range& source, host::RowCol rowcol = host::RowCol::Columns, bool seriesLabels = false,
                      bool categoryLabels = false, bool replace = false) = 0;
  // A series without values, to be given them through SetValues.
  virtual Series& NewSeries() = 0;
};

class UpDownBars {
 public:
  virtual ~UpDownBars() = default;
  virtual ChartBorder& Border() = 0;
  virtual ChartInterior& Interior() = 0;
};

// A set of series drawn together; group 1 is the chart's main group.
class ChartGroup {
 public:
  virtual ~ChartGroup() = default;
  // Up-down bars exist for line and stock groups only.
  virtual void SetHasUpDownBars(bool on) = 0;
  virtual UpDownBars& UpBars() = 0;
  // Space between neighbouring bars of a column group, 0 to 500 percent of a bar's width.
  virtual void SetGapWidth(std::int32_t percent) = 0;
};

class ChartArea {
 public:
  virtual ~ChartArea() = default;
  virtual void SetAutoScaleFont(bool on) = 0;
  virtual ChartInterior& Interior() = 0;
  virtual double Width() const = 0;
};

// The plot area's rectangle, in points from the chart area's top-left corner. Until a value is
// set, the host lays the plot area out itself and reports that layout.
class PlotArea {
 public:
  virtual ~PlotArea() = default;
  virtual ChartFill& Fill() = 0;
  virtual ChartBorder& Border() = 0;
  virtual double Left() const = 0;
  virtual double Top() const = 0;
  virtual double Width() const = 0;
  virtual double Height() const = 0;
  virtual void SetLeft(double points) = 0;
  virtual void SetTop(double points) = 0;
  virtual void SetWidth(double points) = 0;
  virtual void SetHeight(double points) = 0;
};

class Chart {
 public:
  virtual ~Chart() = default;
  // The sheet-qualified name, such as "Sheet1 Chart 3".
  virtual std::string Name() const = 0;
  virtual orv::SeriesCollection& SeriesCollection() = 0;
  // Gives every series the type; a stock type needs exactly its number of series in order (four
  // for open-high-low-close, three for high-low-close).
  virtual void SetChartType(host::ChartType type) = 0;
  // 1-based: 1 is the primary group, 2 the secondary one once a series is on the secondary axis.
  virtual ChartGroup& ChartGroups(std::int32_t index) = 0;
  virtual Axis& Axes(host::AxisType type, host::AxisGroup group = host::AxisGroup::Primary) = 0;
  virtual void SetHasTitle(bool on) = 0;
  // Fails while the chart has no title.
  virtual orv::ChartTitle& ChartTitle() = 0;
  virtual void SetHasLegend(bool on) = 0;
  // Fails while the chart has no legend.
  virtual orv::Legend& Legend() = 0;
  virtual orv::ChartArea& ChartArea() = 0;
  virtual orv::PlotArea& PlotArea() = 0;
};

// A drawing object of a worksheet, found by its name.
class Shape {
 public:
  virtual ~Shape() = default;
  virtual std::string Name() const = 0;
  virtual double Left() const = 0;
  virtual double Top() const = 0;
  virtual void SetLeft(double points) = 0;
  virtual void SetTop(double points) = 0;
};

// The frame that holds a chart on a worksheet; named "Chart 1", "Chart 2", ... per sheet.
class ChartObject : public Shape {
 public:
  virtual orv::Chart& Chart() = 0;
  virtual double Width() const = 0;
  virtual double Height() const = 0;
  virtual void SetWidth(double points) = 0;
  virtual void SetHeight(double points) = 0;
  // Only on the active sheet of the active workbook.
  virtual void Select() = 0;
};

class ChartObjects {
 public:
  virtual ~ChartObjects() = default;
  virtual std::int32_t Count() const = 0;
  // 1-based, in the order of adding; by name without regard to case.
  virtual ChartObject& Item(std::int32_t index) = 0;
  virtual ChartObject& Item(std::string_view name) = 0;
  // A new, empty chart at the given place and size.
  virtual ChartObject& Add(double left, double top, double width, double height) = 0;
};

}  // namespace orv
