#pragma once
// A zip package on disk, opened for reading its entries and for replacing or adding some.
//
// Entries that are not replaced are carried over untouched when the package is committed: libzip
// copies their compressed bytes as they are, so every part the writer did not change stays
// byte-identical. Entry names compare without case, as part names do in a package. New and
// replaced entries are deflated here (see package_deflate.h) and handed to libzip already
// compressed, which it then copies as they are: its own deflate runs at level 9 whatever level
// is asked for, half a minute for a sheet of a hundred megabytes. They carry a fixed time stamp,
// so equal input gives equal output.
//
// Failures to open, read or commit raise kFileUnwritable naming the file. An object that is
// destroyed without commit() leaves the file on disk as it was.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "xlsx/package_deflate.h"
#include "xlsx/package_splice.h"

struct zip;

namespace orv {

class ZipPackage {
 public:
  // An empty package at `path` (an existing file there is replaced on commit).
  static ZipPackage create(const std::filesystem::path& path);
  // The package already at `path`.
  static ZipPackage open(const std::filesystem::path& path);

  ZipPackage(ZipPackage&& other) noexcept;
  ZipPackage& operator=(ZipPackage&&) = delete;
  ZipPackage(const ZipPackage&) = delete;
  ZipPackage& operator=(const ZipPackage&) = delete;
  ~ZipPackage();

  // Names in the order of the package's central directory.
  std::vector<std::string> entryNames() const;
  bool contains(std::string_view name) const;
  // The uncompressed content; none when there is no such entry.
  std::optional<std::string> read(std::string_view name) const;
  // Replaces the entry of that name (keeping its place) or adds one at the end. The content is
  // deflated at once; libzip keeps only the compressed bytes until commit.
  void put(std::string_view name, std::string_view content);
  // The compressed bytes of a deflated entry as they lie in the package; none when there is no
  // such entry, it is stored some other way, or it is smaller than `atLeast` bytes compressed.
  std::optional<CompressedEntry> readDeflated(std::string_view name, std::uint64_t atLeast = 0) const;
  // As put, with content already deflated.
  void putDeflated(std::string_view name, DeflatedPart part);
  // Writes the package to its path.
  void commit();

 private:
  ZipPackage(zip* archive, std::filesystem::path path) : archive_(archive), path_(std::move(path)) {}
  [[noreturn]] void fail(std::string_view what) const;

  zip* archive_;
  std::filesystem::path path_;
};

}  // namespace orv
