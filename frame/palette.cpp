#include "frame/palette.h"

#include <array>
#include <limits>

namespace orv {
namespace {

constexpr std::array<std::uint32_t, kPaletteSize> kPalette = {
    0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00, 0xFF00FF, 0x00FFFF,  // 1..8
    0x800000, 0x008000, 0x000080, 0x808000, 0x800080, 0x008080, 0xC0C0C0, 0x808080,  // 9..16
    0x9999FF, 0x993366, 0xFFFFCC, 0xCCFFFF, 0x660066, 0xFF8080, 0x0066CC, 0xCCCCFF,  // 17..24
    0x000080, 0xFF00FF, 0xFFFF00, 0x00FFFF, 0x800080, 0x800000, 0x008080, 0x0000FF,  // 25..32
    0x00CCFF, 0xCCFFFF, 0xCCFFCC, 0xFFFF99, 0x99CCFF, 0xFF99CC, 0xCC99FF, 0xFFCC99,  // 33..40
    0x3366FF, 0x33CCCC, 0x99CC00, 0xFFCC00, 0xFF9900, 0xFF6600, 0x666699, 0x969696,  // 41..48
    0x003366, 0x339966, 0x003300, 0x333300, 0x993300, 0x993366, 0x333399, 0x333333,  // 49..56
};

std::int64_t channel(std::uint32_t rgb, int shift) { return (rgb >> shift) & 0xFF; }

constexpr std::int32_t kFirstLine = 25;
constexpr std::int32_t kFirstFill = 17;
constexpr std::size_t kCycle = 8;

}  // namespace

std::optional<std::uint32_t> paletteColor(std::int32_t colorIndex) {
  if (colorIndex < 1 || colorIndex > kPaletteSize) return std::nullopt;
  return kPalette[static_cast<std::size_t>(colorIndex - 1)];
}

std::optional<std::string> paletteRgb(std::int32_t colorIndex) {
  const std::optional<std::uint32_t> rgb = paletteColor(colorIndex);
  if (!rgb) return std::nullopt;
  static constexpr char kHex[] = "0123456789ABCDEF";
  std::string text(6, '0');
  for (int i = 5, v = static_cast<int>(*rgb); i >= 0; --i, v >>= 4) text[static_cast<std::size_t>(i)] = kHex[v & 0xF];
  return text;
}

std::int32_t automaticLineIndex(std::size_t seriesIndex) {
  return kFirstLine + static_cast<std::int32_t>(seriesIndex % kCycle);
}

std::int32_t automaticFillIndex(std::size_t seriesIndex) {
  return kFirstFill + static_cast<std::int32_t>(seriesIndex % kCycle);
}

std::int32_t nearestPaletteIndex(std::uint32_t rgb) {
  std::int32_t best = 1;
  std::int64_t bestDistance = std::numeric_limits<std::int64_t>::max();
  for (std::int32_t i = 1; i <= kPaletteSize; ++i) {
    const std::uint32_t p = kPalette[static_cast<std::size_t>(i - 1)];
    std::int64_t distance = 0;
    for (int shift : {16, 8, 0}) {
      const std::int64_t d = channel(p, shift) - channel(rgb, shift);
      distance += d * d;
    }
    if (distance < bestDistance) {
      best = i;
      bestDistance = distance;
    }
  }
  return best;
}

}  // namespace orv
