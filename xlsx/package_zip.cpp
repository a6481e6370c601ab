#include "xlsx/package_zip.h"

#include <zip.h>

#include <ctime>

#include "frame/errors.h"

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

}  // namespace

ZipPackage ZipPackage::create(const std::filesystem::path& path) {
  return ZipPackage(openArchive(path, ZIP_CREATE | ZIP_TRUNCATE), path);
}

ZipPackage ZipPackage::open(const std::filesystem::path& path) {
  return ZipPackage(openArchive(path, ZIP_CHECKCONS), path);
}

ZipPackage::ZipPackage(ZipPackage&& other) noexcept
    : archive_(other.archive_), path_(std::move(other.path_)), contents_(std::move(other.contents_)) {
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

void ZipPackage::put(std::string_view name, std::string content) {
  const std::string key(name);
  contents_.push_back(std::move(content));
  const std::string& data = contents_.back();
  zip_source_t* source = zip_source_buffer(archive_, data.data(), data.size(), 0);
  if (source == nullptr) fail(key);
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
