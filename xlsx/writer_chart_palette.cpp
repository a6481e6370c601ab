#include "xlsx/writer_chart_palette.h"

#include <array>

namespace orv {
namespace {

constexpr std::array<const char*, 56> kPalette = {
    "000000", "FFFFFF", "FF0000", "00FF00", "0000FF", "FFFF00", "FF00FF", "00FFFF",  // 1..8
    "800000", "008000", "000080", "808000", "800080", "008080", "C0C0C0", "808080",  // 9..16
    "9999FF", "993366", "FFFFCC", "CCFFFF", "660066", "FF8080", "0066CC", "CCCCFF",  // 17..24
    "000080", "FF00FF", "FFFF00", "00FFFF", "800080", "800000", "008080", "0000FF",  // 25..32
    "00CCFF", "CCFFFF", "CCFFCC", "FFFF99", "99CCFF", "FF99CC", "CC99FF", "FFCC99",  // 33..40
    "3366FF", "33CCCC", "99CC00", "FFCC00", "FF9900", "FF6600", "666699", "969696",  // 41..48
    "003366", "339966", "003300", "333300", "993300", "993366", "333399", "333333",  // 49..56
};

constexpr std::int32_t kFirstLine = 25;
constexpr std::int32_t kFirstFill = 17;
constexpr std::size_t kCycle = 8;

}  // namespace

std::optional<std::string> paletteRgb(std::int32_t colorIndex) {
  if (colorIndex < 1 || colorIndex > static_cast<std::int32_t>(kPalette.size())) return std::nullopt;
  return kPalette[static_cast<std::size_t>(colorIndex - 1)];
}

std::string automaticLineRgb(std::size_t seriesIndex) {
  return kPalette[static_cast<std::size_t>(kFirstLine - 1) + seriesIndex % kCycle];
}

std::string automaticFillRgb(std::size_t seriesIndex) {
  return kPalette[static_cast<std::size_t>(kFirstFill - 1) + seriesIndex % kCycle];
}

}  // namespace orv
