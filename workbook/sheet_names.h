#pragma once
// The host's rules for worksheet names: what a name may hold. How names compare and the "SheetN"
// names that new sheets get are frame/sheet_name.h.

#include <cstdint>
#include <string>
#include <string_view>

namespace orv {

inline constexpr std::int32_t kMaxSheetNameLength = 31;

// Raises a host failure (1004) naming the fault when `name` cannot name a worksheet: empty,
// longer than 31 characters (UTF-8 characters, not bytes), holding any of : \ / ? * [ ], or
// beginning or ending with an apostrophe.
void checkSheetName(std::string_view name);

}  // namespace orv
