// Delimited text: any bytes load as a one-sheet workbook or fail with kFileUnreadable.

#include <cstdint>
#include <cstdlib>

#include "frame/errors.h"
#include "fuzz_files.h"
#include "workbook/in_memory_application.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // The first byte picks the extension, which decides the fallback delimiter.
  const bool tsv = size > 0 && (data[0] & 1) != 0;
  const auto file = orv::fuzz::writeInput(tsv ? "input.tsv" : "input.csv", data, size);
  orv::InMemoryApplication app;
  try {
    orv::openWorkbookFile(app, file, orv::fuzz::fuzzLimits());
  } catch (const orv::ComponentError& e) {
    if (e.number() != orv::err::kFileUnreadable) std::abort();
  }
  return 0;
}
