#include "support/chart_style.h"

#include "frame/errors.h"

namespace orv {

ChartPlacement placeChart(const Range& output, std::int32_t verticalOffset, std::int32_t horizontalOffset) {
  const Range cell = output.Cells(1, 1);
  const Range sheet = Range::AllCells(output.Parent());
  const double lastRowTop = sheet.Cells(sheet.RowsCount(), 1).Top();
  const double anchorTop = cell.Top() + verticalOffset;
  return ChartPlacement{cell.Left() + horizontalOffset, anchorTop < lastRowTop ? anchorTop : cell.Top()};
}

void setChartTitle(Chart& chart, const std::string& title) {
  if (title.empty()) {
    chart.SetHasTitle(false);
    return;
  }
  chart.SetHasTitle(true);
  chart.ChartTitle().SetText(title);
  chart.ChartTitle().Font().SetSize(10);
  chart.ChartTitle().Font().SetBold(true);
}

void setAxisTitle(Axis& axis, const std::string& title) {
  if (title.empty()) {
    axis.SetHasTitle(false);
    return;
  }
  axis.SetHasTitle(true);
  axis.AxisTitle().SetText(title);
  axis.AxisTitle().Font().SetSize(10);
  axis.AxisTitle().Font().SetBold(false);
}

void raiseUnsetRange() { raise(91, "Object variable or With block variable not set"); }

}  // namespace orv
