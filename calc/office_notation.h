#pragma once
// References and literals in the office's own notation, as its chart data provider takes them.

#include <string>
#include <string_view>

#include "frame/reference.h"

namespace orv::calc {

// "$'Sheet 1'.$B$4:$D$4": the sheet name always quoted, a quote inside it doubled.
std::string officeRange(std::string_view sheet, const CellBlock& block);
// A literal text: "\"Frequency\"", a double quote inside doubled.
std::string officeText(std::string_view text);

}  // namespace orv::calc
