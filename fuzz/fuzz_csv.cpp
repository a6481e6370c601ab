// Delimited text: any bytes load as a one-sheet workbook or fail with kFileUnreadable.

#include <cstdint>

#include "fuzz_files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // The first byte picks the extension, which decides the fallback delimiter.
  const bool tsv = size > 0 && (data[0] & 1) != 0;
  const auto file = orv::fuzz::writeInput(tsv ? "input.tsv" : "input.csv", data, size);
  orv::fuzz::openOrRefuse(file);
  return 0;
}
