#include "workbook/sheet_names.h"

#include <algorithm>
#include <string>

#include "frame/errors.h"
#include "frame/sheet_name.h"

namespace orv {
namespace {

constexpr std::string_view kForbidden = ":\\/?*[]";

std::int32_t utf8Length(std::string_view s) {
  // Continuation bytes (10xxxxxx) do not start a character.
  return static_cast<std::int32_t>(
      std::count_if(s.begin(), s.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

[[noreturn]] void invalidName(std::string_view name, std::string_view why) {
  raiseHost("The sheet name \"" + std::string(name) + "\" is not valid: " + std::string(why));
}

}  // namespace

void checkSheetName(std::string_view name) {
  if (name.empty()) invalidName(name, "a sheet name cannot be empty");
  if (utf8Length(name) > kMaxSheetNameLength) {
    invalidName(name, "a sheet name has at most 31 characters");
  }
  if (name.find_first_of(kForbidden) != std::string_view::npos) {
    invalidName(name, "a sheet name cannot hold any of : \\ / ? * [ ]");
  }
  if (name.front() == '\'' || name.back() == '\'') {
    invalidName(name, "a sheet name cannot begin or end with an apostrophe");
  }
}

}  // namespace orv
