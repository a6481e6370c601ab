// Reference texts: parsing never fails other than with a ComponentError, and whatever parses
// prints as an address that parses back to the same blocks.

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "frame/errors.h"
#include "frame/reference.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  orv::ParsedReference parsed;
  try {
    parsed = orv::parseReference(text);
  } catch (const orv::ComponentError&) {
    return 0;
  }
  if (parsed.areas.empty()) std::abort();
  for (const orv::CellBlock& b : parsed.areas) {
    if (b.top < 1 || b.left < 1 || b.top > b.bottom || b.left > b.right || b.bottom > orv::kMaxRows ||
        b.right > orv::kMaxColumns) {
      std::abort();
    }
  }
  const std::string address = orv::absoluteAddress(parsed.areas);
  if (orv::parseReference(address).areas != parsed.areas) std::abort();
  if (parsed.sheet) {
    const orv::ParsedReference again = orv::parseReference(orv::quoteSheetName(*parsed.sheet) + "!" + address);
    if (again.sheet != parsed.sheet || again.areas != parsed.areas) std::abort();
  }
  return 0;
}
