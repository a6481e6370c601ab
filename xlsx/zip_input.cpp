#include "xlsx/zip_input.h"

#include <zip.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "xlsx/reader_errors.h"

namespace orv {
namespace {

std::string zipErrorText(int code) {
  zip_error_t error;
  zip_error_init_with_code(&error, code);
  std::string text = zip_error_strerror(&error);
  zip_error_fini(&error);
  return text;
}

struct FileCloser {
  void operator()(zip_file_t* f) const { zip_fclose(f); }
};

std::string partText(std::string_view part) { return "the part \"" + std::string(part) + "\""; }

}  // namespace

ZipInput::ZipInput(const std::filesystem::path& file, ZipLimits limits) : limits_(limits) {
  int code = 0;
  archive_ = zip_open(file.string().c_str(), ZIP_RDONLY, &code);
  if (archive_ == nullptr) {
    if (code == ZIP_ER_OPEN || code == ZIP_ER_READ || code == ZIP_ER_NOENT) {
      raiseDamaged("cannot be read (" + zipErrorText(code) + ")");
    }
    raiseDamaged("is a damaged or truncated zip archive (" + zipErrorText(code) + ")");
  }
}

ZipInput::~ZipInput() {
  if (archive_ != nullptr) zip_discard(archive_);
}

std::optional<std::uint64_t> ZipInput::locate(std::string_view part) const {
  if (!part.empty() && part.front() == '/') part.remove_prefix(1);
  const std::string name(part);
  const zip_int64_t index = zip_name_locate(archive_, name.c_str(), ZIP_FL_NOCASE);
  if (index < 0) return std::nullopt;
  return static_cast<std::uint64_t>(index);
}

bool ZipInput::contains(std::string_view part) const { return locate(part).has_value(); }

std::uint64_t ZipInput::declaredSize(std::string_view part) const {
  const auto index = locate(part);
  zip_stat_t st;
  zip_stat_init(&st);
  if (!index || zip_stat_index(archive_, *index, 0, &st) != 0 || (st.valid & ZIP_STAT_SIZE) == 0) return 0;
  return st.size;
}

std::vector<std::string> ZipInput::partNames() const {
  std::vector<std::string> names;
  const zip_int64_t count = zip_get_num_entries(archive_, 0);
  for (zip_int64_t i = 0; i < count; ++i) {
    if (const char* name = zip_get_name(archive_, static_cast<zip_uint64_t>(i), 0)) names.emplace_back(name);
  }
  return names;
}

std::optional<std::string> ZipInput::read(std::string_view part) {
  std::string out;
  const bool found = readPieces(part, [&out](std::string_view piece, std::uint64_t declared) {
    // The declared size only sizes the first allocation, and never beyond a modest amount.
    if (out.empty()) out.reserve(static_cast<std::size_t>(std::min<std::uint64_t>(declared, std::uint64_t{64} << 20)));
    out.append(piece);
  });
  if (!found) return std::nullopt;
  return out;
}

bool ZipInput::readPieces(std::string_view part, const PieceSink& sink) {
  const auto index = locate(part);
  if (!index) return false;
  zip_stat_t st;
  zip_stat_init(&st);
  if (zip_stat_index(archive_, *index, 0, &st) != 0) {
    raiseDamaged("is a damaged zip archive: " + partText(part) + " cannot be read");
  }
  if ((st.valid & ZIP_STAT_ENCRYPTION_METHOD) != 0 && st.encryption_method != ZIP_EM_NONE) {
    raiseDamaged("is a password-protected zip archive");
  }
  const std::uint64_t compressed = (st.valid & ZIP_STAT_COMP_SIZE) != 0 ? st.comp_size : 0;
  const std::uint64_t declared = (st.valid & ZIP_STAT_SIZE) != 0 ? st.size : 0;

  std::unique_ptr<zip_file_t, FileCloser> in(zip_fopen_index(archive_, *index, 0));
  if (!in) {
    const int code = zip_error_code_zip(zip_get_error(archive_));
    if (code == ZIP_ER_NOPASSWD || code == ZIP_ER_WRONGPASSWD) raiseDamaged("is a password-protected zip archive");
    raiseDamaged("is a damaged zip archive: " + partText(part) + " cannot be opened (" + zipErrorText(code) + ")");
  }
  std::uint64_t size = 0;
  std::vector<char> buffer(kPieceBytes);
  for (;;) {
    const zip_int64_t n = zip_fread(in.get(), buffer.data(), buffer.size());
    if (n < 0) {
      const int code = zip_error_code_zip(zip_file_get_error(in.get()));
      raiseDamaged("is a damaged or truncated zip archive: " + partText(part) + " cannot be inflated (" +
                   zipErrorText(code) + ")");
    }
    if (n == 0) break;
    const auto got = static_cast<std::uint64_t>(n);
    size += got;
    const bool ratioExceeded = size > limits_.ratioFloorBytes && size / limits_.maxRatio > compressed;
    std::string limit;
    if (size > limits_.maxPartBytes) {
      limit = "the part size limit of " + std::to_string(limits_.maxPartBytes) + " bytes";
    } else if (totalRead_ + got > limits_.maxTotalBytes) {
      limit = "the package size limit of " + std::to_string(limits_.maxTotalBytes) + " bytes";
    } else if (ratioExceeded) {
      limit = "the compression ratio limit of " + std::to_string(limits_.maxRatio) + ":1";
    }
    if (!limit.empty()) {
      raiseDamaged("is refused: " + partText(part) + " inflates beyond " + limit +
                   " (a zip bomb or a damaged archive)");
    }
    totalRead_ += got;
    sink(std::string_view(buffer.data(), static_cast<std::size_t>(got)), declared);
  }
  return true;
}

}  // namespace orv
