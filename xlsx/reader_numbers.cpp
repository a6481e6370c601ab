#include "xlsx/reader_numbers.h"

#include <cmath>

#include "frame/reference.h"

namespace orv {

bool parseDouble(std::string_view s, double& out) {
  s = trimXmlSpace(s);
  if (!s.empty() && s.front() == '+') s.remove_prefix(1);
  auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), out);
  return ec == std::errc() && end == s.data() + s.size() && !s.empty() && std::isfinite(out);
}

bool parseCellRef(std::string_view ref, std::int32_t& row, std::int32_t& column) {
  std::size_t letters = 0;
  while (letters < ref.size() && letters < 4 &&
         ((ref[letters] >= 'A' && ref[letters] <= 'Z') || (ref[letters] >= 'a' && ref[letters] <= 'z'))) {
    ++letters;
  }
  if (letters == 0 || letters > 3) return false;
  column = columnNumber(ref.substr(0, letters));
  if (column == 0) return false;
  if (letters == ref.size()) return true;
  std::int32_t r = 0;
  if (!parseInt(ref.substr(letters), r) || r < 1 || r > kMaxRows) return false;
  row = r;
  return true;
}

}  // namespace orv
