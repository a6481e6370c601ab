#pragma once
// Colours of chart parts, which carry colours as RGB hex ("C0C0C0") rather than as palette
// indices: the palette itself (frame/palette.h, paletteRgb) and the colours the host gives series
// that have none set.

#include <cstddef>
#include <string>

#include "frame/palette.h"

namespace orv {

// The colours the host gives the n-th series (0-based) of a chart when none is set
// (automaticLineIndex, automaticFillIndex).
std::string automaticLineRgb(std::size_t seriesIndex);
std::string automaticFillRgb(std::size_t seriesIndex);

}  // namespace orv
