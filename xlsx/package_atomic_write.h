#pragma once
// Writing a file so that readers see either the old file or the complete new one.
//
// `produce` writes the whole content to the path it is given: a fresh temporary file in the
// target's own folder (same file system, so the final rename is atomic). When `produce` returns,
// the temporary file replaces `target`; when it throws, the temporary file is removed and the
// exception goes on, leaving `target` as it was. A folder that cannot take the temporary file or
// a failing rename raises kFileUnwritable naming the target.

#include <filesystem>
#include <functional>

namespace orv {

void writeFileAtomically(const std::filesystem::path& target,
                         const std::function<void(const std::filesystem::path& temporary)>& produce);

}  // namespace orv
