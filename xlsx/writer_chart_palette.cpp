#include "xlsx/writer_chart_palette.h"

namespace orv {
namespace {

constexpr std::int32_t kFirstLine = 25;
constexpr std::int32_t kFirstFill = 17;
constexpr std::size_t kCycle = 8;

std::string cycled(std::int32_t first, std::size_t seriesIndex) {
  return *paletteRgb(first + static_cast<std::int32_t>(seriesIndex % kCycle));
}

}  // namespace

std::string automaticLineRgb(std::size_t seriesIndex) { return cycled(kFirstLine, seriesIndex); }

std::string automaticFillRgb(std::size_t seriesIndex) { return cycled(kFirstFill, seriesIndex); }

}  // namespace orv
