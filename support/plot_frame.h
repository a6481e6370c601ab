#pragma once
// PlotFrame: the placement, size and titles that every chart builder shares.
// Offsets and sizes are in points (both sizes default to 200); an empty title means none. Each
// property reports failures under the owning builder's class ("... clsPlotBox.LetChartTitle").

#include <cstdint>
#include <string>

#include "frame/procedure.h"

namespace orv {

class PlotFrame {
 public:
  void VerticalOffset(std::int32_t points);
  std::int32_t VerticalOffset() const;
  void HorizontalOffset(std::int32_t points);
  std::int32_t HorizontalOffset() const;
  void ChartTitle(const std::string& title);
  std::string ChartTitle() const;
  void YAxisTitle(const std::string& title);
  std::string YAxisTitle() const;
  void ChartHeight(std::int32_t points);
  std::int32_t ChartHeight() const;
  void ChartWidth(std::int32_t points);
  std::int32_t ChartWidth() const;

 protected:
  explicit PlotFrame(const Procedures& procedures) : proc_(&procedures) {}

  const Procedures* proc_;
  std::int32_t verticalOffset_ = 0;
  std::int32_t horizontalOffset_ = 0;
  std::string chartTitle_;
  std::string yAxisTitle_;
  std::int32_t chartHeight_ = 200;
  std::int32_t chartWidth_ = 200;
};

}  // namespace orv
