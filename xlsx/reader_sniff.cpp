#include "xlsx/reader_sniff.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <string>

#include "xlsx/reader_errors.h"

namespace orv {
namespace {

constexpr std::string_view kZipLocal = "PK\x03\x04";
constexpr std::string_view kZipEmpty = "PK\x05\x06";
constexpr std::string_view kZipSpanned = "PK\x07\x08";
constexpr std::string_view kCompound = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";

// The stream name as a compound file's directory stores it (UTF-16LE).
std::string utf16le(std::string_view ascii) {
  std::string s;
  for (const char c : ascii) {
    s.push_back(c);
    s.push_back('\0');
  }
  return s;
}

bool holdsEncryptedPackage(std::ifstream& in) {
  // Directory entries can sit anywhere in the file, so scan all of it, keeping an overlap so
  // that a name split across two chunks is still found.
  const std::string needle = utf16le("EncryptedPackage");
  std::string window;
  std::array<char, 1 << 16> chunk{};
  in.clear();
  in.seekg(0);
  while (in) {
    in.read(chunk.data(), chunk.size());
    const auto got = static_cast<std::size_t>(in.gcount());
    if (got == 0) break;
    window.append(chunk.data(), got);
    if (window.find(needle) != std::string::npos) return true;
    window.erase(0, window.size() - std::min(window.size(), needle.size()));
  }
  return false;
}

}  // namespace

FileKind sniffFile(const std::filesystem::path& file) {
  std::error_code ec;
  if (std::filesystem::is_directory(file, ec)) raiseUnreadable(file, "is a folder, not a file");
  std::ifstream in(file, std::ios::binary);
  if (!in) raiseUnreadable(file, "cannot be opened (it does not exist or may not be read)");
  std::array<char, 4096> head{};
  in.read(head.data(), head.size());
  const std::string_view bytes(head.data(), static_cast<std::size_t>(in.gcount()));
  if (bytes.empty()) return FileKind::Empty;
  if (bytes.starts_with(kZipLocal) || bytes.starts_with(kZipEmpty) || bytes.starts_with(kZipSpanned))
    return FileKind::Zip;
  if (bytes.starts_with(kCompound)) {
    return holdsEncryptedPackage(in) ? FileKind::EncryptedWorkbook : FileKind::CompoundDocument;
  }
  // UTF-16 text starts with its byte-order mark; other text has no NUL bytes.
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) return FileKind::Utf16Text;
  if (bytes.find('\0') != std::string_view::npos) return FileKind::Binary;
  return FileKind::Text;
}

}  // namespace orv
