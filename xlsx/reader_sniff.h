#pragma once
// What a file is, from its first bytes (and, for compound files, their directory names), so
// that the loader picks the right reader or says plainly why it cannot read the file.

#include <filesystem>
#include <string_view>

namespace orv {

enum class FileKind {
  Zip,                // a zip archive: .xlsx/.xlsm, or .xlsb/.ods/.docx and the like
  EncryptedWorkbook,  // a compound file holding an EncryptedPackage stream: a password-protected .xlsx
  CompoundDocument,   // any other compound file: legacy .xls, .doc ...
  Utf16Text,          // starts with a UTF-16 byte-order mark
  Text,               // nothing binary in the first bytes: a CSV/TSV/TXT candidate
  Binary,             // anything else
  Empty,
};

// Raises kFileUnreadable naming the file when it cannot be opened. Reads at most the first 4 KiB,
// except for compound files, whose whole directory is searched in fixed-size chunks.
FileKind sniffFile(const std::filesystem::path& file);

}  // namespace orv
