#pragma once
// Column widths for written results: each column as wide as the widest thing it shows, so that
// no label is cut off and no number is shortened or turned into "###".
//
// A cell needs the width of its text as displayed (support/displayed_text.h) in its font size and
// weight (support/text_width.h), plus a margin of 8 pixels, rounded up to whole pixels; a column
// takes what its widest cell needs, held between the standard width of 48 points and 252 points.
// A text that is neither centred nor right-aligned needs no room of its own when the cell to its
// right is empty: the sheet lets it run on into that cell (the heading lines above a table).
//
// On a sheet the run added (`ownSheet`) every measured column gets that width. On a sheet that
// was there before, a column gets wider only when it has no width of its own (a person or the
// file sized it otherwise), and never narrower. Columns without any measured cell keep theirs.
//
// Both hosts get the same widths: they are computed here from the cells, not by the host.

#include <vector>

#include "frame/range.h"

namespace orv {

// The widest any cell makes its column, and the narrowest a measured column becomes.
inline constexpr double kFittedColumnMaximum = 252;  // 336 pixels
inline constexpr double kFittedColumnMinimum = 48;

// The width in points that a text of the given width in points needs.
double fittedColumnWidth(double textPoints);

// Fits every column that the areas (each area of each range; all on one sheet) cover.
void fitColumnWidths(const std::vector<Range>& areas, bool ownSheet);

}  // namespace orv
