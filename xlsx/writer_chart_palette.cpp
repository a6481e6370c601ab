#include "xlsx/writer_chart_palette.h"

namespace orv {

std::string automaticLineRgb(std::size_t seriesIndex) { return *paletteRgb(automaticLineIndex(seriesIndex)); }

std::string automaticFillRgb(std::size_t seriesIndex) { return *paletteRgb(automaticFillIndex(seriesIndex)); }

}  // namespace orv
