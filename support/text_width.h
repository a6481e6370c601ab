#pragma once
// How wide a text is in a sheet's standard font, 11-point Calibri (and Carlito, which shares its
// metrics), at any size, plain or bold: what a column needs to show it without cutting it.
//
// Latin-1 characters have their own widths; East Asian wide characters count one em, combining
// marks and control characters nothing, and any other character the width of a digit. A byte
// that starts no valid UTF-8 sequence counts as the Latin-1 character of its value.

#include <string_view>

namespace orv {

// Points, unrounded.
double textWidthPoints(std::string_view utf8, double fontSize, bool bold);

}  // namespace orv
