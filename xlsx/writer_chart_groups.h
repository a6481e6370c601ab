#pragma once
// How the series of a recorded chart fall into the chart groups of the file format, and the
// XML of each group.
//
// Series go to one group per (drawing type, axis group), in the order the types first appear
// (so columns drawn before the lines laid over them). A stock group holds the primary stock
// series, three or four of them; stock series on the secondary axes, beyond the fourth, or
// too few for a stock group are drawn as a line group, which is how a series moved off a stock
// chart's group is shown. Up-down bars and high-low lines belong to the stock group.

#include <cstdint>
#include <string>
#include <vector>

#include "workbook/chart_model.h"

namespace orv::chartxml {

enum class GroupType : std::uint8_t { Stock, Line, Bar, Scatter };

struct GroupPlan {
  GroupType type = GroupType::Line;
  AxisGroup axes = AxisGroup::Primary;
  std::vector<std::size_t> series;  // indices into ChartModel::series, also their idx
};

std::vector<GroupPlan> planGroups(const ChartModel& chart);

// <c:stockChart>, <c:lineChart>, <c:barChart> or <c:scatterChart>, naming the two axes.
std::string groupXml(const ChartModel& chart, const GroupPlan& group, std::uint32_t categoryAxisId,
                     std::uint32_t valueAxisId);

}  // namespace orv::chartxml
