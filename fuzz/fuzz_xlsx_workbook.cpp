// One fuzzed workbook part in an otherwise valid one-sheet package.

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "frame/errors.h"
#include "fuzz_files.h"
#include "workbook/in_memory_application.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto file = orv::fuzz::packageAround(orv::fuzz::sheetXml(), orv::fuzz::sharedStringsXml(), text);
  orv::InMemoryApplication app;
  try {
    orv::openWorkbookFile(app, file, orv::fuzz::fuzzLimits());
  } catch (const orv::ComponentError& e) {
    if (e.number() != orv::err::kFileUnreadable) std::abort();
  }
  return 0;
}
