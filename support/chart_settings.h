#pragma once
// ChartSettings: colour indices of the house chart style.

#include <cstdint>

namespace orv {

class ChartSettings {
 public:
  // White chart areas and light grey boxes, readable on screen and in print.
  std::int16_t ChartAreaColorIndex() const { return 2; }
  std::int16_t BoxFillColorIndex() const { return 15; }
};

}  // namespace orv
