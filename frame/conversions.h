#pragma once
// Conversions between cell values, numbers and texts with the platform's rules.

#include <cmath>
#include <optional>
#include <string>
#include <string_view>

#include "frame/cell_value.h"
#include "frame/errors.h"

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

// What a cell holds once a program assigns `value` to it (Range.Value = ...): a text that reads
// as a plain number becomes that number unless the cell's number format is text ("@"); an empty
// text empties the cell; anything else is stored as given. A number that is not finite is a host
// failure. `numberFormatOf()` gives the cell's number format; it is asked only for a text that
// reads as a number, so that a host that must look the format up does so rarely.
template <class NumberFormatOf>
CellValue assignedValue(const CellValue& value, NumberFormatOf&& numberFormatOf) {
  if (value.isNumber() && !std::isfinite(value.number())) raise(err::kHostFailure);
  if (!value.isText()) return value;
  if (value.text().empty()) return CellValue{};
  const std::optional<double> number = parsePlainNumber(value.text());
  if (number && numberFormatOf() != "@") return *number;
  return value;
}

}  // namespace orv
