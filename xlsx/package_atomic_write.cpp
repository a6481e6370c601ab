#include "xlsx/package_atomic_write.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <mutex>
#include <string>
#include <system_error>
#include <vector>

#include "frame/errors.h"

namespace orv {
namespace {

[[noreturn]] void raiseUnwritable(const std::filesystem::path& target, std::string_view why) {
  raise(err::kFileUnwritable, "Cannot write \"" + target.string() + "\": " + std::string(why));
}

// The temporary files of the writes under way, so that an interrupt can take them away.
struct Pending {
  std::mutex mutex;
  std::vector<std::filesystem::path> paths;
};

Pending& pending() {
  static Pending registry;
  return registry;
}

// mkstemp gives a name nobody else holds; the file itself is left for `produce` to overwrite.
std::filesystem::path makeTemporary(const std::filesystem::path& file, const std::filesystem::path& target) {
  const std::filesystem::path folder = file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
  std::string pattern = (folder / ("." + file.filename().string() + ".XXXXXX")).string();
  std::vector<char> buffer(pattern.begin(), pattern.end());
  buffer.push_back('\0');
  const int fd = ::mkstemp(buffer.data());
  if (fd < 0) raiseUnwritable(target, std::strerror(errno));
  ::close(fd);
  return std::filesystem::path(buffer.data());
}

// A temporary file beside `file`, removed unless the rename took it over. It is made and
// registered under one lock, so that an interrupt either comes before it exists or finds it.
class TemporaryFile {
 public:
  TemporaryFile(const std::filesystem::path& file, const std::filesystem::path& target) {
    const std::lock_guard<std::mutex> lock(pending().mutex);
    path_ = makeTemporary(file, target);
    pending().paths.push_back(path_);
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (!path_.empty()) {
      std::error_code ignored;
      std::filesystem::remove(path_, ignored);
      release();
    }
  }
  const std::filesystem::path& path() const { return path_; }
  void release() {
    const std::lock_guard<std::mutex> lock(pending().mutex);
    auto& paths = pending().paths;
    paths.erase(std::remove(paths.begin(), paths.end(), path_), paths.end());
    path_.clear();
  }

 private:
  std::filesystem::path path_;
};

// The new file takes over what the old one had: its permission bits and, where this process may
// set them, its owner and group (in that order, since a change of owner clears set-id bits).
void takeOverAttributes(const std::filesystem::path& temporary, const struct stat* old) {
  if (old == nullptr) {
    // mkstemp creates mode 0600; a new workbook gets the usual permissions of a new file.
    const mode_t mask = ::umask(0);
    ::umask(mask);
    ::chmod(temporary.c_str(), static_cast<mode_t>(0666 & ~mask));
    return;
  }
  if (::chown(temporary.c_str(), old->st_uid, old->st_gid) != 0) {
    // Not the owner's to give: the file stays with this user, as any new file would.
  }
  ::chmod(temporary.c_str(), old->st_mode & 07777);
}

std::function<bool(WriteStage)>& faultHook() {
  static std::function<bool(WriteStage)> hook;
  return hook;
}

}  // namespace

std::filesystem::path writtenFile(const std::filesystem::path& target) {
  // A loop of links ends somewhere after this many steps; the kernel's own limit is 40.
  constexpr int kMostLinks = 40;
  std::filesystem::path file = target;
  for (int step = 0; step < kMostLinks; ++step) {
    std::error_code failure;
    if (!std::filesystem::is_symlink(std::filesystem::symlink_status(file, failure))) return file;
    const std::filesystem::path next = std::filesystem::read_symlink(file, failure);
    if (failure) return file;
    file = next.is_absolute() ? next : file.parent_path() / next;
  }
  return file;
}

std::optional<std::string> refusalToWrite(const std::filesystem::path& target) {
  const std::filesystem::path file = writtenFile(target);
  struct stat st {};
  if (::stat(file.c_str(), &st) != 0) return std::nullopt;
  if (S_ISDIR(st.st_mode)) return "it is a folder";
  // The write bits are the owner's statement that the file is not to be changed; they hold for
  // every user, the superuser included, whom access() would let through.
  if ((st.st_mode & 0222) == 0) return "it is read-only";
  if (::access(file.c_str(), W_OK) != 0) return std::string(std::strerror(errno));
  return std::nullopt;
}

void removeTemporaryFiles() {
  const std::lock_guard<std::mutex> lock(pending().mutex);
  for (const std::filesystem::path& path : pending().paths) {
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
    // The zip library writes its archive to "<name>.XXXXXX" beside the file and renames it.
    const std::string scratch = path.filename().string() + ".";
    const std::filesystem::path folder = path.has_parent_path() ? path.parent_path() : ".";
    for (std::filesystem::directory_iterator it(folder, ignored), end; !ignored && it != end; it.increment(ignored)) {
      if (it->path().filename().string().starts_with(scratch)) std::filesystem::remove(it->path(), ignored);
    }
  }
}

void setWriteFaultHook(std::function<bool(WriteStage)> hook) { faultHook() = std::move(hook); }

bool writeFaultAt(WriteStage stage) { return faultHook() && faultHook()(stage); }

void writeFileAtomically(const std::filesystem::path& target,
                         const std::function<void(const std::filesystem::path&)>& produce) {
  const std::filesystem::path file = writtenFile(target);
  if (const std::optional<std::string> why = refusalToWrite(file)) raiseUnwritable(target, *why);
  struct stat old {};
  const bool replacing = ::stat(file.c_str(), &old) == 0;

  TemporaryFile temporary(file, target);
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
  takeOverAttributes(temporary.path(), replacing ? &old : nullptr);
  std::error_code failure;
  std::filesystem::rename(temporary.path(), file, failure);
  if (failure) raiseUnwritable(target, failure.message());
  temporary.release();
}

}  // namespace orv
