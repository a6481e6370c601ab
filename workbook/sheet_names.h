#pragma once
// The host's rules for worksheet names: what a name may hold, how names compare, and the
// "SheetN" names that new sheets get.

#include <cstdint>
#include <string>
#include <string_view>

namespace orv {

inline constexpr std::int32_t kMaxSheetNameLength = 31;

// Raises a host failure (1004) naming the fault when `name` cannot name a worksheet: empty,
// longer than 31 characters (UTF-8 characters, not bytes), holding any of : \ / ? * [ ], or
// beginning or ending with an apostrophe.
void checkSheetName(std::string_view name);

// N when the name reads "Sheet" followed by the decimal digits of N > 0 (any case), else 0.
std::int64_t defaultSheetNumber(std::string_view name);

// "Sheet" + n.
std::string defaultSheetName(std::int64_t n);

}  // namespace orv
