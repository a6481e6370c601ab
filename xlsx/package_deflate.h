#pragma once
// A part's content deflated for a zip entry: raw deflate (no zlib or gzip wrapper), as a zip
// entry of method 8 stores it, together with the CRC-32 and length of the uncompressed content.
//
// Large parts are deflated at level 1 and others at level 6: a rewritten sheet of a hundred
// megabytes then takes about a second and a half rather than the half minute of level 9 (level 6
// would take six), for a compressed part about a quarter larger. Such a part is deflated as two
// halves on two threads, joined into one stream (the second half does not refer back into the
// first, which costs a few bytes). The same content always gives the same bytes.
//
// None when zlib fails, which only happens when it cannot get memory.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orv {

struct DeflatedPart {
  std::string bytes;       // the raw deflate stream
  std::uint32_t crc = 0;   // CRC-32 of the uncompressed content
  std::uint64_t size = 0;  // length of the uncompressed content in bytes
};

// Content longer than this many bytes is deflated at the fastest level.
inline constexpr std::size_t kFastDeflateAbove = std::size_t{4} << 20;

// The zlib level (1..9) used for content of `size` bytes.
int deflateLevelFor(std::size_t size);

std::optional<DeflatedPart> deflatePart(std::string_view content);

}  // namespace orv
