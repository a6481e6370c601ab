#include "xlsx/package_deflate.h"

// Makes zlib's input pointer const: the content is only read.
#define ZLIB_CONST
#include <zlib.h>

#include <algorithm>

namespace orv {
namespace {

// zlib counts in 32-bit lengths; longer content goes in slices of this size.
constexpr std::size_t kSlice = std::size_t{1} << 30;
// The output grows by this much whenever zlib has filled what it was given.
constexpr std::size_t kOutputStep = std::size_t{1} << 20;

// Negative window bits ask zlib for a raw stream: a zip entry holds no zlib header or checksum.
constexpr int kRawWindowBits = -15;
constexpr int kMemoryLevel = 8;

class Deflater {
 public:
  explicit Deflater(int level) { ok_ = deflateInit2(&stream_, level, Z_DEFLATED, kRawWindowBits, kMemoryLevel, Z_DEFAULT_STRATEGY) == Z_OK; }
  ~Deflater() {
    if (ok_) deflateEnd(&stream_);
  }
  Deflater(const Deflater&) = delete;
  Deflater& operator=(const Deflater&) = delete;

  // Appends the stream for `content` to `out`; false on a zlib failure.
  bool run(std::string_view content, std::string& out) {
    if (!ok_) return false;
    // The output grows step by step rather than being sized by deflateBound up front: that bound
    // exceeds the input's size, and a large part deflates to a fifth of it.
    std::size_t done = 0;
    int result = Z_OK;
    while (result != Z_STREAM_END) {
      if (stream_.avail_in == 0 && done < content.size()) {
        const std::size_t slice = std::min(kSlice, content.size() - done);
        stream_.next_in = reinterpret_cast<const Bytef*>(content.data() + done);
        stream_.avail_in = static_cast<uInt>(slice);
        done += slice;
      }
      const int flush = done == content.size() ? Z_FINISH : Z_NO_FLUSH;
      const std::size_t before = out.size();
      out.resize(before + kOutputStep);
      stream_.next_out = reinterpret_cast<Bytef*>(out.data() + before);
      stream_.avail_out = static_cast<uInt>(kOutputStep);
      result = deflate(&stream_, flush);
      out.resize(before + kOutputStep - stream_.avail_out);
      if (result != Z_OK && result != Z_STREAM_END && result != Z_BUF_ERROR) return false;
    }
    return true;
  }

 private:
  z_stream stream_{};
  bool ok_ = false;
};

std::uint32_t crcOf(std::string_view content) {
  uLong crc = crc32_z(0L, Z_NULL, 0);
  crc = crc32_z(crc, reinterpret_cast<const Bytef*>(content.data()), content.size());
  return static_cast<std::uint32_t>(crc);
}

}  // namespace

int deflateLevelFor(std::size_t size) { return size > kFastDeflateAbove ? 1 : 6; }

std::optional<DeflatedPart> deflatePart(std::string_view content) {
  DeflatedPart part;
  part.size = content.size();
  part.crc = crcOf(content);
  Deflater deflater(deflateLevelFor(content.size()));
  if (!deflater.run(content, part.bytes)) return std::nullopt;
  return part;
}

}  // namespace orv
