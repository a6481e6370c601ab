#pragma once
// The chart part (xl/charts/chartK.xml) of one recorded chart: title, plot area with its chart
// groups and axes, legend, and the chart area's look.
//
// Axes: each axis group in use gets a category (for scatter groups: X value) axis and a value
// axis, from the recorded AxisModel of that kind and group or the host's defaults (visible,
// except the secondary category axis, which the host does not show). The secondary value axis
// sits on the right. A manual plot area becomes a layout in fractions of the chart's size
// (the outer plot area, tick labels included, as the host measures it). Colours: palette
// indices, automatic chart area white.

#include <string>

#include "workbook/chart_model.h"

namespace orv::chartxml {

// <c:plotArea> ... </c:plotArea>
std::string plotArea(const ChartModel& chart);
// <c:layout/> or <c:layout><c:manualLayout>...</c:manualLayout></c:layout>.
std::string plotLayout(const ChartModel& chart);

}  // namespace orv::chartxml

namespace orv {

// The whole part, with its XML declaration.
std::string chartPartXml(const ChartModel& chart);

}  // namespace orv
