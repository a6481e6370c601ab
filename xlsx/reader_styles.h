#pragma once
// Which cell formats of a styles part show their numbers as dates or times.
//
// A cell names its format by index into <cellXfs>; each format names a number format, built in
// by id or defined in <numFmts>. Built-in dates and times are ids 14 to 22, 27 to 36, 45 to 47
// and 50 to 58; a defined format is a date or time when, outside quoted text, escaped
// characters and [colour] or [condition] brackets, it uses a day, month, year, hour or second
// code (d, m, y, h, s, elapsed [h], [m], [s]). Parts that cannot be read give no dates: the
// answer only informs a warning.

#include <string>
#include <string_view>
#include <vector>

namespace orv {

// Index i is true when cell format i shows a date or time.
std::vector<bool> readDateStyles(std::string& stylesXml);

// Whether a number format code shows a date or time.
bool isDateFormatCode(std::string_view code);

}  // namespace orv
