#pragma once
// ResultsStyle: the house look of the results sheet.

#include <cstdint>

#include "frame/cell_format.h"

namespace orv {

class ResultsStyle {
 public:
  // Background colour index of the results sheet: no fill, so a pasted block looks like the
  // user's own cells.
  std::int16_t BackgroundColorIndex() const { return static_cast<std::int16_t>(kColorIndexNone); }
};

}  // namespace orv
