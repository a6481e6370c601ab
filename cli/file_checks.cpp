#include "cli/file_checks.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstring>

#include "xlsx/reader_workbook.h"

namespace orv::cli {

std::optional<std::string> cannotOpen(const std::filesystem::path& file) {
  const int fd = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) {
    std::string why = std::strerror(errno);
    if (!why.empty()) why[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(why[0])));
    return why;
  }
  struct stat st {};
  const bool folder = ::fstat(fd, &st) == 0 && S_ISDIR(st.st_mode);
  ::close(fd);
  if (folder) return std::string("it is a folder, not a file");
  return std::nullopt;
}

bool sameFile(const std::filesystem::path& a, const std::filesystem::path& b) {
  struct stat first {};
  struct stat second {};
  if (::stat(a.c_str(), &first) != 0 || ::stat(b.c_str(), &second) != 0) return false;
  return first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

std::string packageExtension(const LoadedPackageInfo& info) {
  // The workbook part's content type says what the package is; the file's name may not.
  const std::string& type = info.workbookContentType;
  if (type == "application/vnd.ms-excel.sheet.macroEnabled.main+xml") return ".xlsm";
  if (type == "application/vnd.openxmlformats-officedocument.spreadsheetml.template.main+xml") return ".xltx";
  if (type == "application/vnd.ms-excel.template.macroEnabled.main+xml") return ".xltm";
  if (type == "application/vnd.ms-excel.addin.macroEnabled.main+xml") return ".xlam";
  return ".xlsx";
}

std::string lowerExtension(const std::filesystem::path& file) {
  std::string ext = file.extension().string();
  std::transform(ext.begin(), ext.end(), ext.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return ext;
}

}  // namespace orv::cli
