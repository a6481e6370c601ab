#include "xlsx/package_splice.h"

#include <zlib.h>

#include <climits>

namespace orv {
namespace {

// Deflate's back-references reach at most this far.
constexpr std::size_t kWindow = 32768;
constexpr std::size_t kChunk = std::size_t{1} << 16;
constexpr int kHeadLevel = 6;

// zlib's inflate() reports in data_type the unused bits of the last input byte (below 64), plus
// 64 inside the last block and 128 right after a block's end.
constexpr int kUnusedBits = 63;
constexpr int kLastBlock = 64;
constexpr int kBlockEnd = 128;

struct Inflater {
  z_stream stream{};
  bool ready = false;
  Inflater() { ready = inflateInit2(&stream, -MAX_WBITS) == Z_OK; }
  ~Inflater() {
    if (ready) inflateEnd(&stream);
  }
  Inflater(const Inflater&) = delete;
  Inflater& operator=(const Inflater&) = delete;
};

// The head deflated as the start of a longer stream: a sync flush ends it on a byte boundary
// with a non-final block, so the next block may follow it directly.
std::optional<std::string> deflateHead(std::string_view head) {
  z_stream s{};
  if (deflateInit2(&s, kHeadLevel, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY) != Z_OK) return std::nullopt;
  std::string out(deflateBound(&s, static_cast<uLong>(head.size())) + 16, '\0');
  s.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(head.data()));
  s.avail_in = static_cast<uInt>(head.size());
  s.next_out = reinterpret_cast<Bytef*>(out.data());
  s.avail_out = static_cast<uInt>(out.size());
  const int rc = deflate(&s, Z_SYNC_FLUSH);
  const bool complete = rc == Z_OK && s.avail_in == 0 && s.avail_out > 0;
  out.resize(out.size() - s.avail_out);
  deflateEnd(&s);
  if (!complete) return std::nullopt;
  return out;
}

std::uint32_t crcOf(std::string_view text) {
  return static_cast<std::uint32_t>(crc32_z(0, reinterpret_cast<const Bytef*>(text.data()), text.size()));
}

}  // namespace

HeadSplice spliceDeflatedHead(CompressedEntry entry, std::string_view marker,
                              const std::function<std::optional<std::string>(std::string_view)>& edit,
                              std::size_t headLimit) {
  HeadSplice result;
  if (entry.bytes.size() > UINT_MAX || marker.empty()) return result;
  Inflater inflater;
  if (!inflater.ready) return result;
  z_stream& s = inflater.stream;
  s.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(entry.bytes.data()));
  s.avail_in = static_cast<uInt>(entry.bytes.size());

  // Inflate block by block up to a boundary on a byte boundary far enough past the marker.
  std::string head;
  std::size_t markerAt = std::string::npos;
  for (;;) {
    const std::size_t had = head.size();
    if (had > headLimit) return result;
    head.resize(had + kChunk);
    s.next_out = reinterpret_cast<Bytef*>(head.data() + had);
    s.avail_out = static_cast<uInt>(kChunk);
    const int rc = inflate(&s, Z_BLOCK);
    head.resize(had + kChunk - s.avail_out);
    // Z_STREAM_END: the part is too short to be worth it; anything else: damaged or truncated.
    if (rc != Z_OK) return result;
    if (markerAt == std::string::npos) {
      markerAt = head.find(marker, had >= marker.size() ? had - marker.size() : 0);
    }
    const bool boundary =
        (s.data_type & kBlockEnd) != 0 && (s.data_type & kLastBlock) == 0 && (s.data_type & kUnusedBits) == 0;
    if (boundary && markerAt != std::string::npos && head.size() >= markerAt + kWindow) break;
  }
  const std::size_t consumed = entry.bytes.size() - s.avail_in;
  if (entry.size < head.size()) return result;
  const std::uint64_t restLength = entry.size - head.size();

  const std::optional<std::string> edited = edit(head);
  if (!edited) {
    result.outcome = HeadSplice::Outcome::Unchanged;
    return result;
  }
  // The blocks kept refer back into the last 32 KiB of the head, which must not have moved.
  const std::string_view kept = std::string_view(head).substr(markerAt);
  if (edited->size() < kept.size() || std::string_view(*edited).substr(edited->size() - kept.size()) != kept) {
    return result;
  }
  std::optional<std::string> deflated = deflateHead(*edited);
  if (!deflated) return result;

  // crc32_combine(a, 0, n) is a's contribution to the CRC of a followed by n bytes; taking it out
  // of the whole leaves the CRC of the rest.
  const auto rest = static_cast<z_off_t>(restLength);
  const uLong restCrc = entry.crc ^ crc32_combine(crcOf(head), 0, rest);
  result.part.crc = static_cast<std::uint32_t>(crc32_combine(crcOf(*edited), restCrc, rest));
  result.part.size = edited->size() + restLength;
  result.keptBytes = entry.bytes.size() - consumed;
  // The new head takes the old one's place in the entry's own buffer: the kept blocks move (in
  // place, when the new head is no longer) rather than being copied into a second buffer.
  entry.bytes.replace(0, consumed, *deflated);
  result.part.bytes = std::move(entry.bytes);
  result.outcome = HeadSplice::Outcome::Spliced;
  return result;
}

}  // namespace orv
