#include "xlsx/package_atomic_write.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <system_error>
#include <vector>

#include "frame/errors.h"

namespace orv {
namespace {

[[noreturn]] void raiseUnwritable(const std::filesystem::path& target, std::string_view why) {
  raise(err::kFileUnwritable, "Cannot write \"" + target.string() + "\": " + std::string(why));
}

// Removes the temporary file unless the rename took it over.
class TemporaryFile {
 public:
  explicit TemporaryFile(std::filesystem::path path) : path_(std::move(path)) {}
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (!path_.empty()) {
      std::error_code ignored;
      std::filesystem::remove(path_, ignored);
    }
  }
  const std::filesystem::path& path() const { return path_; }
  void release() { path_.clear(); }

 private:
  std::filesystem::path path_;
};

// mkstemp gives a name nobody else holds; the file itself is left for `produce` to overwrite.
std::filesystem::path makeTemporary(const std::filesystem::path& target) {
  const std::filesystem::path folder =
      target.has_parent_path() ? target.parent_path() : std::filesystem::path(".");
  std::string pattern = (folder / ("." + target.filename().string() + ".XXXXXX")).string();
  std::vector<char> buffer(pattern.begin(), pattern.end());
  buffer.push_back('\0');
  const int fd = ::mkstemp(buffer.data());
  if (fd < 0) raiseUnwritable(target, std::strerror(errno));
  ::close(fd);
  return std::filesystem::path(buffer.data());
}

std::function<bool(WriteStage)>& faultHook() {
  static std::function<bool(WriteStage)> hook;
  return hook;
}

}  // namespace

void setWriteFaultHook(std::function<bool(WriteStage)> hook) { faultHook() = std::move(hook); }

bool writeFaultAt(WriteStage stage) { return faultHook() && faultHook()(stage); }

void writeFileAtomically(const std::filesystem::path& target,
                         const std::function<void(const std::filesystem::path&)>& produce) {
  TemporaryFile temporary(makeTemporary(target));
  if (writeFaultAt(WriteStage::TemporaryCreated)) raiseUnwritable(target, "the write was interrupted");
  try {
    produce(temporary.path());
  } catch (const ComponentError& e) {
    // The writer names the file it was writing: a hidden temporary name means nothing to the
    // person who asked for `target`.
    if (e.number() != err::kFileUnwritable) throw;
    std::string description = e.description();
    const std::string hidden = temporary.path().string();
    for (auto at = description.find(hidden); at != std::string::npos; at = description.find(hidden, at)) {
      description.replace(at, hidden.size(), target.string());
      at += target.string().size();
    }
    throw ComponentError(e.number(), e.source(), description);
  }
  if (writeFaultAt(WriteStage::BeforeRename)) raiseUnwritable(target, "the write was interrupted");
  // mkstemp creates mode 0600; a workbook should get the usual permissions of a new file.
  const mode_t mask = ::umask(0);
  ::umask(mask);
  ::chmod(temporary.path().c_str(), static_cast<mode_t>(0666 & ~mask));
  std::error_code failure;
  std::filesystem::rename(temporary.path(), target, failure);
  if (failure) raiseUnwritable(target, failure.message());
  temporary.release();
}

}  // namespace orv
