#include "xlsx/package_zip.h"

#include <zip.h>

#include <algorithm>
#include <cstring>
#include <ctime>
#include <memory>

#include "frame/errors.h"
#include "xlsx/package_atomic_write.h"
#include "xlsx/package_deflate.h"

namespace orv {
namespace {

// 2000-01-01 00:00:00 UTC: a fixed stamp inside the range of DOS dates in every time zone.
constexpr std::time_t kFixedStamp = 946684800;

[[noreturn]] void raiseFor(const std::filesystem::path& path, std::string_view what) {
  raise(err::kFileUnwritable, "Cannot write \"" + path.string() + "\": " + std::string(what));
}

zip* openArchive(const std::filesystem::path& path, int flags) {
  int code = 0;
  zip* archive = zip_open(path.c_str(), flags, &code);
  if (archive == nullptr) {
    zip_error_t error;
    zip_error_init_with_code(&error, code);
    const std::string message = zip_error_strerror(&error);
    zip_error_fini(&error);
    raiseFor(path, message);
  }
  return archive;
}

// An entry's content, already deflated, as a libzip source. Its stat names deflate as the method
// and gives both sizes and the CRC, so zip_close writes the bytes read from it as they are,
// without inflating or deflating again. The source owns this state and frees it with itself.
struct DeflatedSource {
  DeflatedPart part;
  std::size_t readAt = 0;
  int error = ZIP_ER_OK;

  zip_int64_t fail(int code) {
    error = code;
    return -1;
  }
};

zip_int64_t serveDeflated(void* state, void* data, zip_uint64_t length, zip_source_cmd_t command) {
  auto* source = static_cast<DeflatedSource*>(state);
  switch (command) {
    case ZIP_SOURCE_OPEN:
      if (writeFaultAt(WriteStage::WritingEntry)) return source->fail(ZIP_ER_CANCELLED);
      source->readAt = 0;
      return 0;
    case ZIP_SOURCE_READ: {
      const std::size_t count = std::min<std::size_t>(length, source->part.bytes.size() - source->readAt);
      if (count > 0) std::memcpy(data, source->part.bytes.data() + source->readAt, count);
      source->readAt += count;
      return static_cast<zip_int64_t>(count);
    }
    case ZIP_SOURCE_CLOSE: return 0;
    case ZIP_SOURCE_STAT: {
      if (length < sizeof(zip_stat_t)) return source->fail(ZIP_ER_INVAL);
      auto* stat = static_cast<zip_stat_t*>(data);
      zip_stat_init(stat);
      stat->size = source->part.size;
      stat->comp_size = source->part.bytes.size();
      stat->crc = source->part.crc;
      stat->comp_method = ZIP_CM_DEFLATE;
      stat->encryption_method = ZIP_EM_NONE;
      stat->valid =
          ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE | ZIP_STAT_CRC | ZIP_STAT_COMP_METHOD | ZIP_STAT_ENCRYPTION_METHOD;
      return sizeof(zip_stat_t);
    }
    case ZIP_SOURCE_ERROR: {
      zip_error_t error;
      zip_error_init_with_code(&error, source->error);
      const zip_int64_t written = zip_error_to_data(&error, data, length);
      zip_error_fini(&error);
      return written;
    }
    case ZIP_SOURCE_FREE: delete source; return 0;
    case ZIP_SOURCE_SUPPORTS:
      return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT,
                                            ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE, ZIP_SOURCE_SUPPORTS, -1);
    default: return source->fail(ZIP_ER_OPNOTSUPP);
  }
}

}  // namespace

ZipPackage ZipPackage::create(const std::filesystem::path& path) {
  return ZipPackage(openArchive(path, ZIP_CREATE | ZIP_TRUNCATE), path);
}

ZipPackage ZipPackage::open(const std::filesystem::path& path) {
  return ZipPackage(openArchive(path, ZIP_CHECKCONS), path);
}

ZipPackage::ZipPackage(ZipPackage&& other) noexcept : archive_(other.archive_), path_(std::move(other.path_)) {
  other.archive_ = nullptr;
}

ZipPackage::~ZipPackage() {
  if (archive_ != nullptr) zip_discard(archive_);
}

void ZipPackage::fail(std::string_view what) const {
  raiseFor(path_, std::string(what) + ": " + zip_strerror(archive_));
}

std::vector<std::string> ZipPackage::entryNames() const {
  std::vector<std::string> names;
  const zip_int64_t count = zip_get_num_entries(archive_, 0);
  for (zip_int64_t i = 0; i < count; ++i) {
    const char* name = zip_get_name(archive_, static_cast<zip_uint64_t>(i), 0);
    if (name != nullptr) names.emplace_back(name);
  }
  return names;
}

bool ZipPackage::contains(std::string_view name) const {
  return zip_name_locate(archive_, std::string(name).c_str(), ZIP_FL_NOCASE) >= 0;
}

std::optional<std::string> ZipPackage::read(std::string_view name) const {
  const std::string key(name);
  const zip_int64_t index = zip_name_locate(archive_, key.c_str(), ZIP_FL_NOCASE);
  if (index < 0) return std::nullopt;
  zip_stat_t stat;
  if (zip_stat_index(archive_, static_cast<zip_uint64_t>(index), 0, &stat) != 0) fail(key);
  zip_file_t* file = zip_fopen_index(archive_, static_cast<zip_uint64_t>(index), 0);
  if (file == nullptr) fail(key);
  std::string content(static_cast<std::size_t>(stat.size), '\0');
  const zip_int64_t got = zip_fread(file, content.data(), stat.size);
  zip_fclose(file);
  if (got < 0 || static_cast<zip_uint64_t>(got) != stat.size) fail(key);
  return content;
}

void ZipPackage::put(std::string_view name, std::string_view content) {
  std::optional<DeflatedPart> deflated = deflatePart(content);
  if (!deflated) raiseFor(path_, std::string(name) + ": out of memory while compressing");
  putDeflated(name, std::move(*deflated));
}

std::optional<CompressedEntry> ZipPackage::readDeflated(std::string_view name, std::uint64_t atLeast) const {
  const std::string key(name);
  const zip_int64_t index = zip_name_locate(archive_, key.c_str(), ZIP_FL_NOCASE);
  if (index < 0) return std::nullopt;
  zip_stat_t stat;
  if (zip_stat_index(archive_, static_cast<zip_uint64_t>(index), 0, &stat) != 0) fail(key);
  constexpr zip_uint64_t kNeeded = ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE | ZIP_STAT_CRC | ZIP_STAT_COMP_METHOD;
  if ((stat.valid & kNeeded) != kNeeded || stat.comp_method != ZIP_CM_DEFLATE || stat.comp_size < atLeast) {
    return std::nullopt;
  }
  zip_file_t* file = zip_fopen_index(archive_, static_cast<zip_uint64_t>(index), ZIP_FL_COMPRESSED);
  if (file == nullptr) fail(key);
  CompressedEntry entry;
  entry.bytes.assign(static_cast<std::size_t>(stat.comp_size), '\0');
  const zip_int64_t got = zip_fread(file, entry.bytes.data(), stat.comp_size);
  zip_fclose(file);
  if (got < 0 || static_cast<zip_uint64_t>(got) != stat.comp_size) fail(key);
  entry.crc = stat.crc;
  entry.size = stat.size;
  return entry;
}

void ZipPackage::putDeflated(std::string_view name, DeflatedPart part) {
  const std::string key(name);
  auto state = std::make_unique<DeflatedSource>();
  state->part = std::move(part);
  zip_source_t* source = zip_source_function(archive_, serveDeflated, state.get());
  if (source == nullptr) fail(key);
  state.release();  // the source frees it
  zip_int64_t index = zip_name_locate(archive_, key.c_str(), ZIP_FL_NOCASE);
  if (index >= 0) {
    if (zip_file_replace(archive_, static_cast<zip_uint64_t>(index), source, 0) != 0) {
      zip_source_free(source);
      fail(key);
    }
  } else {
    index = zip_file_add(archive_, key.c_str(), source, ZIP_FL_ENC_UTF_8);
    if (index < 0) {
      zip_source_free(source);
      fail(key);
    }
  }
  // The method must be deflate, as the source's stat says: an entry stored uncompressed in the
  // original would otherwise have its new bytes inflated back to be stored.
  const auto at = static_cast<zip_uint64_t>(index);
  if (zip_set_file_compression(archive_, at, ZIP_CM_DEFLATE, 0) != 0 ||
      zip_file_set_mtime(archive_, at, kFixedStamp, 0) != 0) {
    fail(key);
  }
}

void ZipPackage::commit() {
  if (zip_close(archive_) != 0) fail("writing the package");
  archive_ = nullptr;
}

}  // namespace orv
