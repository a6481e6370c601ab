#include "frame/sheet_name.h"

namespace orv {
namespace {

// N when the name reads "Sheet" followed by the decimal digits of N > 0 (any case), else 0.
std::int64_t defaultSheetNumber(std::string_view name) {
  constexpr std::string_view kPrefix = "sheet";
  // Up to 15 digits keeps N well inside 64 bits.
  if (name.size() <= kPrefix.size() || name.size() > kPrefix.size() + 15) return 0;
  if (!sameSheetName(name.substr(0, kPrefix.size()), kPrefix)) return 0;
  std::int64_t n = 0;
  for (char c : name.substr(kPrefix.size())) {
    if (c < '0' || c > '9') return 0;
    n = n * 10 + (c - '0');
  }
  return n;
}

}  // namespace

std::string nextDefaultSheetName(std::int64_t& counter, const std::vector<std::string>& names) {
  for (const std::string& name : names) counter = std::max(counter, defaultSheetNumber(name));
  std::string name;
  do {
    name = "Sheet" + std::to_string(++counter);
  } while (std::any_of(names.begin(), names.end(), [&](const std::string& n) { return sameSheetName(n, name); }));
  return name;
}

}  // namespace orv
