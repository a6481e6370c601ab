#pragma once
// References and literals in the office's own notation, as its chart data provider takes them.

#include <optional>
#include <string>
#include <string_view>

#include "frame/reference.h"

namespace orv::calc {

// "$'Sheet 1'.$B$4:$D$4": the sheet name always quoted, a quote inside it doubled.
std::string officeRange(std::string_view sheet, const CellBlock& block);
// A literal text: "\"Frequency\"", a double quote inside doubled.
std::string officeText(std::string_view text);

// The A1 reference ("'My data'!$A$1:$C$13,Data!$E$1") that the office's own reference stands
// for ("$'My data'.$A$1:$C$13;$Data.$E$1"): areas joined by ";", "~" or ",", each sheet-qualified
// with a ".", the sheet repeated or not after ":". None for anything else (a constant, a formula).
std::optional<std::string> a1FromOffice(std::string_view reference);

}  // namespace orv::calc
