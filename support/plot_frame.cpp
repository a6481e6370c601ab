#include "support/plot_frame.h"

namespace orv {

void PlotFrame::VerticalOffset(std::int32_t points) {
  (*proc_)("LetVerticalOffset", [&] { verticalOffset_ = points; });
}
std::int32_t PlotFrame::VerticalOffset() const {
  return (*proc_)("GetVerticalOffset", [&] { return verticalOffset_; });
}
void PlotFrame::HorizontalOffset(std::int32_t points) {
  (*proc_)("LetHorizontalOffset", [&] { horizontalOffset_ = points; });
}
std::int32_t PlotFrame::HorizontalOffset() const {
  return (*proc_)("GetHorizontalOffset", [&] { return horizontalOffset_; });
}
void PlotFrame::ChartTitle(const std::string& title) {
  (*proc_)("LetChartTitle", [&] { chartTitle_ = title; });
}
std::string PlotFrame::ChartTitle() const {
  return (*proc_)("GetChartTitle", [&] { return chartTitle_; });
}
void PlotFrame::YAxisTitle(const std::string& title) {
  (*proc_)("LetYAxisTitle", [&] { yAxisTitle_ = title; });
}
std::string PlotFrame::YAxisTitle() const {
  return (*proc_)("GetYAxisTitle", [&] { return yAxisTitle_; });
}
void PlotFrame::ChartHeight(std::int32_t points) {
  (*proc_)("LetChartHeight", [&] { chartHeight_ = points; });
}
std::int32_t PlotFrame::ChartHeight() const {
  return (*proc_)("GetChartHeight", [&] { return chartHeight_; });
}
void PlotFrame::ChartWidth(std::int32_t points) {
  (*proc_)("LetChartWidth", [&] { chartWidth_ = points; });
}
std::int32_t PlotFrame::ChartWidth() const {
  return (*proc_)("GetChartWidth", [&] { return chartWidth_; });
}

}  // namespace orv
