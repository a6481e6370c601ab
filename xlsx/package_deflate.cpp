#include "xlsx/package_deflate.h"

// Makes zlib's input pointer const: the content is only read.
#define ZLIB_CONST
#include <zlib.h>

#include <algorithm>
#include <exception>
#include <thread>

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
  explicit Deflater(int level) {
    ok_ = deflateInit2(&stream_, level, Z_DEFLATED, kRawWindowBits, kMemoryLevel, Z_DEFAULT_STRATEGY) == Z_OK;
  }
  ~Deflater() {
    if (ok_) deflateEnd(&stream_);
  }
  Deflater(const Deflater&) = delete;
  Deflater& operator=(const Deflater&) = delete;

  // Appends the stream for `content` to `out`; false on a zlib failure. With `last` false the
  // stream ends in a sync flush instead of a final block: byte-aligned and open, so that another
  // stream can follow it and both read as one.
  bool run(std::string_view content, std::string& out, bool last = true) {
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
      const int flush = done == content.size() ? (last ? Z_FINISH : Z_SYNC_FLUSH) : Z_NO_FLUSH;
      const std::size_t before = out.size();
      out.resize(before + kOutputStep);
      stream_.next_out = reinterpret_cast<Bytef*>(out.data() + before);
      stream_.avail_out = static_cast<uInt>(kOutputStep);
      result = deflate(&stream_, flush);
      out.resize(before + kOutputStep - stream_.avail_out);
      if (result != Z_OK && result != Z_STREAM_END && result != Z_BUF_ERROR) return false;
      // A sync flush is complete once zlib has input left to take and room left over.
      if (!last && flush == Z_SYNC_FLUSH && stream_.avail_in == 0 && stream_.avail_out != 0) break;
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
  const int level = deflateLevelFor(content.size());
  if (content.size() <= kFastDeflateAbove) {
    part.crc = crcOf(content);
    Deflater deflater(level);
    if (!deflater.run(content, part.bytes)) return std::nullopt;
    return part;
  }
  // Two halves on two threads. The second starts without the first's history, so neither refers
  // into the other; the first ends byte-aligned and open, and the second simply follows it. The
  // split depends on the size alone, so equal content still gives equal bytes.
  const std::size_t split = content.size() / 2;
  const std::string_view front = content.substr(0, split);
  const std::string_view back = content.substr(split);
  std::string backBytes;
  std::uint32_t backCrc = 0;
  bool backOk = false;
  std::exception_ptr backError;
  std::thread second([&] {
    try {
      backCrc = crcOf(back);
      Deflater deflater(level);
      backOk = deflater.run(back, backBytes);
    } catch (...) {
      backError = std::current_exception();
    }
  });
  bool frontOk = false;
  try {
    part.crc = crcOf(front);
    Deflater deflater(level);
    frontOk = deflater.run(front, part.bytes, false);
  } catch (...) {
    second.join();
    throw;
  }
  second.join();
  if (backError) std::rethrow_exception(backError);
  if (!frontOk || !backOk) return std::nullopt;
  part.crc = static_cast<std::uint32_t>(crc32_combine(part.crc, backCrc, static_cast<z_off_t>(back.size())));
  part.bytes.append(backBytes);
  return part;
}

}  // namespace orv
