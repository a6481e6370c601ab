#pragma once
// The text a cell shows for its value under its number format, in a column wide enough to show
// it whole: what a column must be as wide as.
//
// Numbers under "General" take the form a sheet gives them in at most 11 characters (as many
// decimals as fit, the scientific form for very large or small numbers: 21.64166667,
// 6.25328E-08). Formats of digit placeholders show their fixed decimals, thousands separators and
// percent sign ("0", "0.00", "#,##0", "0.0%"), with the literal characters and quoted texts around
// them ("<0", ">=0.00", 0"%"); a second section serves negative numbers and a third zero. A
// format with anything else (dates, times, fractions, exponents) shows the number as General
// does. Texts show as they are, Booleans as TRUE and FALSE, error values as their text.

#include <string>
#include <string_view>

#include "frame/cell_value.h"

namespace orv {

std::string displayedText(const CellValue& value, std::string_view numberFormat);

// A number as "General" shows it in at most 11 characters.
std::string generalText(double x);

}  // namespace orv
