#pragma once
// Conversions between cell values, numbers and texts with the platform's rules.

#include <optional>
#include <string>
#include <string_view>

#include "frame/cell_value.h"

namespace orv {

// A plain number written as text: optional blanks, optional sign, digits with an optional decimal
// point (at least one digit), optional exponent (E or e, optional sign, digits), optional blanks.
// No thousands separators, no hexadecimal, no currency or percent signs.
std::optional<double> parsePlainNumber(std::string_view text);

// Cell value to number: a number as itself, empty as 0, True as -1 and False as 0, a text that
// parses as a plain number as that number. Any other text, and an error value, raise
// "Type mismatch" (13).
double toNumber(const CellValue& v);

// The default number-to-text form: at most 15 significant digits, no trailing zeros, no thousands
// separator; scientific form ("1E+15", "1.5E-05") for exponents from 15 up and below -4. Minus
// zero prints as "0".
std::string numberToText(double x);

// Cell value to text: numbers by numberToText, Booleans as "True"/"False", error values by their
// text ("#DIV/0!"), empty as "".
std::string toText(const CellValue& v);

}  // namespace orv
