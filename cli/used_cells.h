#pragma once
// Whole-column and whole-row references cut down to the cells their sheet uses.
//
// "A:A" names 1,048,576 cells, and the analyses read every cell they are given: a whole column
// would stop them with "Overflow" (they count in 16 bits) or, in binned frequency counting, count
// a million empty cells as 0. So every command passes its references through here before they
// reach an analysis: an area spanning whole columns ends at the last used row of its sheet, one
// spanning whole rows at the last used column (an empty sheet: the first row or column). The
// top-left cell stays where it was, so --headers still finds the names in the first row, and the
// sheet-wide limit keeps areas of the same sheet equally high.
//
// Any other reference, and a text the host cannot resolve, comes back unchanged, so that the
// analysis reports a bad reference itself. A cut reference comes back sheet-qualified with
// absolute addresses ("Data!$A$1:$A$40").

#include <string>

namespace orv {
class Application;
}  // namespace orv

namespace orv::cli {

std::string usedCells(Application& app, const std::string& reference);

}  // namespace orv::cli
