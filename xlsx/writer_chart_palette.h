#pragma once
// Colour indices of the host's classic 56-colour palette as RGB hex ("C0C0C0"), for chart parts,
// which carry colours as RGB rather than as palette indices.
//
// Indices 1..56 give their palette entry; automatic (-4105), none (-4142) and anything else
// give nullopt, leaving the choice to the caller.

#include <cstdint>
#include <optional>
#include <string>

namespace orv {

std::optional<std::string> paletteRgb(std::int32_t colorIndex);

// The colours the host gives the n-th series (0-based) of a chart when none is set: the
// palette's chart-line and chart-fill entries (indices 25..32 and 17..24), cycling.
std::string automaticLineRgb(std::size_t seriesIndex);
std::string automaticFillRgb(std::size_t seriesIndex);

}  // namespace orv
