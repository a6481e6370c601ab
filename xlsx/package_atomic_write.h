#pragma once
// Writing a file so that readers see either the old file or the complete new one.
//
// `produce` writes the whole content to the path it is given: a fresh temporary file in the
// target's own folder (same file system, so the final rename is atomic). When `produce` returns,
// the temporary file replaces `target`; when it throws, the temporary file is removed and the
// exception goes on, leaving `target` as it was. A folder that cannot take the temporary file or
// a failing rename raises kFileUnwritable naming the target; so does a kFileUnwritable from
// `produce`, whose mentions of the temporary file are turned into the target.
//
// A target that is a symbolic link is written through: the file the link leads to is replaced
// and the link stays a link. A file that exists already keeps its permission bits (and, where the
// process may set them, its owner and group); a new file gets 0666 less the umask. A file that
// exists but may not be written (no write permission for this user, or no write bit at all) is
// refused with kFileUnwritable before anything is made, since replacing it by rename would
// otherwise succeed in a writable folder.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace orv {

void writeFileAtomically(const std::filesystem::path& target,
                         const std::function<void(const std::filesystem::path& temporary)>& produce);

// The file a write of `target` replaces: `target` itself, or where its chain of symbolic links
// leads (a link to a file not yet there leads to that name).
std::filesystem::path writtenFile(const std::filesystem::path& target);

// Why an existing `target` may not be replaced ("it is read-only", "Permission denied"); nothing
// when it may, or when it does not exist yet.
std::optional<std::string> refusalToWrite(const std::filesystem::path& target);

// Removes every temporary file of a write under way (and the scratch files that the zip library
// makes beside it), for a process that is about to end on an interrupt. Thread-safe; the writes
// themselves are left to be ended by the process's exit.
void removeTemporaryFiles();

// Points of a write at which a test can make it fail, as a full disk or a lost device would:
// the temporary file exists but holds nothing; a compressed entry is about to be copied into the
// package (once per new or replaced entry, in package order); the temporary file is complete
// and about to replace the target.
enum class WriteStage : std::uint8_t { TemporaryCreated, WritingEntry, BeforeRename };

// For tests only: `hook` is asked at every stage of every write from now on and fails the write
// there when it returns true; the write then raises kFileUnwritable naming the target, like any
// other failure. An empty function removes the hook. Not thread-safe.
void setWriteFaultHook(std::function<bool(WriteStage)> hook);

// Whether the hook asks for a failure at `stage` (false when there is no hook).
bool writeFaultAt(WriteStage stage);

}  // namespace orv
