#include "xlsx/iso_date.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>

#include "xlsx/reader_numbers.h"

namespace orv {
namespace {

// Days since 1970-01-01 in the proleptic Gregorian calendar.
std::int64_t daysFromCivil(std::int64_t y, std::int64_t m, std::int64_t d) {
  y -= m <= 2 ? 1 : 0;
  const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
  const std::int64_t yoe = y - era * 400;
  const std::int64_t doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
  const std::int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + doe - 719468;
}

// `length` decimal digits at `from`, nothing else.
bool digitsAt(std::string_view text, std::size_t from, std::size_t length, std::int32_t& out) {
  if (from + length > text.size()) return false;
  const std::string_view digits = text.substr(from, length);
  if (!std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; })) return false;
  std::from_chars(digits.data(), digits.data() + digits.size(), out);
  return true;
}

// "YYYY-MM-DD" at the start of the text, as days since 1970-01-01; false for a day that does
// not exist (31 April and friends).
bool civilDays(std::string_view text, std::int64_t& days) {
  std::int32_t year = 0, month = 0, day = 0;
  if (!digitsAt(text, 0, 4, year) || text.size() < 10 || text[4] != '-' || !digitsAt(text, 5, 2, month) ||
      text[7] != '-' || !digitsAt(text, 8, 2, day)) {
    return false;
  }
  if (month < 1 || month > 12 || day < 1 || day > 31) return false;
  days = daysFromCivil(year, month, day);
  return daysFromCivil(year, month, 1) + day - 1 < daysFromCivil(month == 12 ? year + 1 : year, month % 12 + 1, 1);
}

// "Thh:mm[:ss[.fff]][Z]" after the date, as a fraction of a day; an empty rest is midnight.
bool dayFraction(std::string_view rest, double& fraction) {
  fraction = 0;
  if (rest.empty()) return true;
  std::int32_t hour = 0, minute = 0, second = 0;
  if (rest[0] != 'T' || !digitsAt(rest, 1, 2, hour) || rest.size() < 6 || rest[3] != ':' ||
      !digitsAt(rest, 4, 2, minute)) {
    return false;
  }
  std::size_t i = 6;
  double seconds = 0;
  if (i < rest.size() && rest[i] == ':') {
    if (!digitsAt(rest, i + 1, 2, second)) return false;
    seconds = second;
    i += 3;
    if (i < rest.size() && rest[i] == '.') {
      const std::size_t from = i;
      ++i;
      while (i < rest.size() && rest[i] >= '0' && rest[i] <= '9') ++i;
      double part = 0;
      if (i == from + 1 || !parseDouble(std::string("0") + std::string(rest.substr(from, i - from)), part)) {
        return false;
      }
      seconds += part;
    }
  }
  if (i < rest.size() && rest.substr(i) != "Z") return false;
  if (hour > 24 || minute > 59 || seconds >= 61) return false;
  fraction = (hour * 3600.0 + minute * 60.0 + seconds) / 86400.0;
  return true;
}

}  // namespace

bool isoDateSerial(std::string_view text, bool date1904, double& serial) {
  std::int64_t days = 0;
  double fraction = 0;
  if (!civilDays(text, days) || !dayFraction(text.substr(10), fraction)) return false;
  if (date1904) {
    serial = static_cast<double>(days - daysFromCivil(1904, 1, 1)) + fraction;
  } else {
    // Serial 60 is the 29 February 1900 that never was; days before it count one less.
    std::int64_t s = days - daysFromCivil(1899, 12, 30);
    if (s < 61) s -= 1;
    serial = static_cast<double>(s) + fraction;
  }
  return serial >= 0;
}

}  // namespace orv
