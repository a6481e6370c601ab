// Whole .xlsx packages: the zip container and every part in it, as a file on disk.

#include <cstdint>

#include "fuzz_files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto file = orv::fuzz::writeInput("input.xlsx", data, size);
  orv::fuzz::openOrRefuse(file);
  return 0;
}
