// One fuzzed worksheet part in an otherwise valid one-sheet package.

#include <cstdint>
#include <string_view>

#include "fuzz_files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto file = orv::fuzz::packageAround(text, orv::fuzz::sharedStringsXml(), orv::fuzz::workbookXml());
  orv::fuzz::openOrRefuse(file);
  return 0;
}
