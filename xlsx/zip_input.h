#pragma once
// A zip package opened for reading, with the inflated size of what it hands out kept in bounds.
//
// Sizes the archive declares are never trusted: a part is inflated in chunks and refused as soon
// as it passes ZipLimits (each part, all parts together, and a compression ratio no real
// spreadsheet part reaches), so a zip bomb costs at most the limit. Part names compare without
// case and may carry a leading "/", as package part names do.
//
// Errors raise kFileUnreadable through raiseDamaged (reader_errors.h) with a detail that says
// what is wrong (damaged archive, password-protected part, part too large); the loader adds the
// file name.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct zip;

namespace orv {

struct ZipLimits {
  std::uint64_t maxPartBytes = std::uint64_t{2} << 30;   // one inflated part
  std::uint64_t maxTotalBytes = std::uint64_t{2} << 30;  // everything read from one package
  // A part that inflates beyond ratioFloorBytes must stay within maxRatio times its compressed
  // size; deflate itself cannot pass about 1030:1, other methods can.
  std::uint64_t ratioFloorBytes = std::uint64_t{16} << 20;
  std::uint64_t maxRatio = 1000;
};

class ZipInput {
 public:
  // Raises when the file cannot be opened or is no intact zip archive.
  explicit ZipInput(const std::filesystem::path& file, ZipLimits limits = {});
  ZipInput(const ZipInput&) = delete;
  ZipInput& operator=(const ZipInput&) = delete;
  ~ZipInput();

  bool contains(std::string_view part) const;
  // The inflated size the archive declares for a part (a hint, never trusted); 0 when it
  // declares none or has no such part.
  std::uint64_t declaredSize(std::string_view part) const;
  // The inflated part; none when the package has no such part.
  std::optional<std::string> read(std::string_view part);
  // The inflated part handed to `sink` piece by piece (at most kPieceBytes each, in order) as it
  // is inflated, with the size the archive declares (a hint, never trusted); false when the
  // package has no such part. The limits apply as for read(); what `sink` raises propagates.
  using PieceSink = std::function<void(std::string_view piece, std::uint64_t declared)>;
  static constexpr std::size_t kPieceBytes = std::size_t{1} << 18;
  bool readPieces(std::string_view part, const PieceSink& sink);
  std::vector<std::string> partNames() const;

 private:
  std::optional<std::uint64_t> locate(std::string_view part) const;

  zip* archive_ = nullptr;
  ZipLimits limits_;
  std::uint64_t totalRead_ = 0;
};

}  // namespace orv
