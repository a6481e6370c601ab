#pragma once
// The host's classic palette of 56 colours, by colour index (1..56), as cell and chart formats
// name their colours. Indices outside 1..56 (automatic -4105, none -4142, anything else) have no
// colour here; the caller decides what they mean.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace orv {

inline constexpr std::int32_t kPaletteSize = 56;

// As RGB hex ("C0C0C0").
std::optional<std::string> paletteRgb(std::int32_t colorIndex);
// As a number 0xRRGGBB.
std::optional<std::uint32_t> paletteColor(std::int32_t colorIndex);
// The palette entries the host gives the n-th series (0-based) of a chart that has no colour of
// its own: the chart-line entries (indices 25..32) and the chart-fill entries (17..24), cycling.
std::int32_t automaticLineIndex(std::size_t seriesIndex);
std::int32_t automaticFillIndex(std::size_t seriesIndex);

// The index of the palette colour nearest to an RGB colour (0xRRGGBB), the lowest index among
// equals, as the host answers for a colour that is not in its palette.
std::int32_t nearestPaletteIndex(std::uint32_t rgb);

}  // namespace orv
