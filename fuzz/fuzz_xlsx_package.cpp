// Whole .xlsx packages: the zip container and every part in it, as a file on disk.

#include <cstdint>
#include <cstdlib>

#include "frame/errors.h"
#include "fuzz_files.h"
#include "workbook/in_memory_application.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto file = orv::fuzz::writeInput("input.xlsx", data, size);
  orv::InMemoryApplication app;
  try {
    orv::openWorkbookFile(app, file, orv::fuzz::fuzzLimits());
  } catch (const orv::ComponentError& e) {
    if (e.number() != orv::err::kFileUnreadable) std::abort();
  }
  return 0;
}
