#pragma once
// What the command checks about its files before it reads or writes them, so that a mistake is
// said in one line before any work is done.

#include <filesystem>
#include <optional>
#include <string>

namespace orv {
struct LoadedPackageInfo;
}  // namespace orv

namespace orv::cli {

// Why `file` cannot be read ("no such file or directory", "it is a folder"); nothing when it can.
std::optional<std::string> cannotOpen(const std::filesystem::path& file);

// Whether both names lead to one file, however spelt: relative or absolute, through symbolic
// links, or as two hard links (same device and inode). False when either does not exist.
bool sameFile(const std::filesystem::path& a, const std::filesystem::path& b);

// The extension a file must have for the package that `info` describes: ".xlsm" for a
// macro-enabled workbook, ".xltx" / ".xltm" for templates, ".xlam" for an add-in, ".xlsx" for
// a plain workbook and for anything read from text (which is written as a plain workbook).
std::string packageExtension(const LoadedPackageInfo& info);

// The extension of `file` in lower case (".xlsx").
std::string lowerExtension(const std::filesystem::path& file);

}  // namespace orv::cli
