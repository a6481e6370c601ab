#pragma once
// What a chart shows, read back the same way from both hosts: from the in-memory host's recorded
// model, and from the office's chart document through UNO. Sources read as "Sheet!$B$4:$D$4";
// literal lists (and the live host's copies of them on its chart data sheet) as "=1;2;3".

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "frame/chart.h"

namespace orv::test {

struct ProbedSeries {
  std::string kind{};  // "line", "column", "scatter", "stock" (a price series)
  std::string values{};
  std::string categories{};  // category labels, or the X values of a scatter series
  std::string name{};
  bool secondary = false;
  bool line = true;
  std::string plusErrors{}, minusErrors{};
  double markerSize = 0;  // as drawn; 0 without markers (price series have none)
  friend bool operator==(const ProbedSeries&, const ProbedSeries&) = default;
};

struct ProbedAxis {
  std::string which{};  // "category", "value", "secondary value"
  bool shown = true;
  std::string title{};
  double titleSize = 0;
  double tickLabelSize = 0;
  std::string numberFormat{};
  bool majorGridlines = false;
  bool line = true;
  bool labelsLow = false;  // tick labels at the plot's edge rather than next to the axis
  std::optional<double> minimum{}, maximum{};
  friend bool operator==(const ProbedAxis&, const ProbedAxis&) = default;
};

struct ProbedChart {
  std::string name{};
  double left = 0, top = 0, width = 0, height = 0;
  std::string title{};
  double titleSize = 0;
  bool titleBold = false;
  bool legend = false;
  std::string legendAt{};  // "right" or "bottom" with a legend
  double legendSize = 0;
  bool upDownBars = false;
  std::vector<ProbedSeries> series{};
  std::vector<ProbedAxis> axes{};
};

std::ostream& operator<<(std::ostream& out, const ProbedSeries& s);
std::ostream& operator<<(std::ostream& out, const ProbedAxis& a);

// The chart objects of a sheet as the host has them now.
std::vector<ProbedChart> probeInMemory(Worksheet& sheet);
std::vector<ProbedChart> probeLive(Worksheet& sheet);

// Positions and sizes to 0.05 point (the office keeps 1/100 mm), everything else exactly.
void expectSameChart(const ProbedChart& expected, const ProbedChart& actual);

}  // namespace orv::test
