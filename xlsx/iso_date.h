#pragma once
// Dates as sheet XML writes them in cells of type "d".

#include <string_view>

namespace orv {

// An ISO 8601 date or date-time ("2024-03-01", "2024-03-01T12:30:00.5", an optional final "Z")
// as a serial day number in the 1900 date system (with its phantom 29 February 1900) or the 1904
// one; false when the text is no such date, names a day that does not exist, carries a time
// zone offset, or lies before the start of the date system.
bool isoDateSerial(std::string_view text, bool date1904, double& serial);

}  // namespace orv
