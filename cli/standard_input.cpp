#include "cli/standard_input.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <mutex>
#include <stdexcept>
#include <vector>

#include "xlsx/csv_reader.h"

namespace orv::cli {
namespace {

// What a reader needs to tell the kinds apart: a zip package's signature, and enough text for
// the delimiter to show.
constexpr std::size_t kSampleBytes = 1 << 16;

std::mutex& copiesMutex() {
  static std::mutex mutex;
  return mutex;
}

std::vector<std::filesystem::path>& copies() {
  static std::vector<std::filesystem::path> folders;
  return folders;
}

std::string fileNameFor(const std::string& sample) {
  if (sample.starts_with("PK\x03\x04") || sample.starts_with("PK\x05\x06")) return "stdin.xlsx";
  if (sample.find('\0') != std::string::npos) return "stdin.bin";  // the reader says what it is
  return detectDelimiter(sample, ',') == '\t' ? "stdin.tsv" : "stdin.csv";
}

// Reads up to `size` bytes from standard input; fewer only at its end.
std::size_t readInput(char* buffer, std::size_t size) {
  std::size_t got = 0;
  while (got < size) {
    const ssize_t n = ::read(STDIN_FILENO, buffer + got, size - got);
    if (n == 0) break;
    if (n < 0) {
      if (errno == EINTR) continue;
      throw std::runtime_error(std::string("cannot read standard input: ") + std::strerror(errno));
    }
    got += static_cast<std::size_t>(n);
  }
  return got;
}

}  // namespace

StandardInputCopy::StandardInputCopy() {
  std::string sample(kSampleBytes, '\0');
  sample.resize(readInput(sample.data(), sample.size()));

  std::string pattern = (std::filesystem::temp_directory_path() / "orvella-stdin-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) {
    throw std::runtime_error(std::string("cannot keep standard input in a temporary folder: ") + std::strerror(errno));
  }
  folder_ = pattern;
  {
    const std::lock_guard lock(copiesMutex());
    copies().push_back(folder_);
  }
  try {
    file_ = folder_ / fileNameFor(sample);
    std::ofstream out(file_, std::ios::binary);
    out.write(sample.data(), static_cast<std::streamsize>(sample.size()));
    std::vector<char> buffer(kSampleBytes);
    for (std::size_t n = sample.size() == kSampleBytes ? kSampleBytes : 0; n > 0;) {
      n = readInput(buffer.data(), buffer.size());
      out.write(buffer.data(), static_cast<std::streamsize>(n));
    }
    if (!out.flush()) throw std::runtime_error("cannot keep standard input in a temporary file: the disk may be full");
  } catch (...) {
    removeFolder();
    throw;
  }
}

void StandardInputCopy::removeFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
  const std::lock_guard lock(copiesMutex());
  std::erase(copies(), folder_);
}

StandardInputCopy::~StandardInputCopy() { removeFolder(); }

std::string sayStandardInput(std::string text) {
  const std::lock_guard lock(copiesMutex());
  for (const std::filesystem::path& folder : copies()) {
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(folder, ignored)) {
      const std::filesystem::path& copy = entry.path();
      for (const std::string& name : {"\"" + copy.string() + "\"", "\"" + copy.filename().string() + "\""}) {
        for (std::size_t at = text.find(name); at != std::string::npos; at = text.find(name, at)) {
          text.replace(at, name.size(), "standard input");
        }
      }
    }
  }
  return text;
}

void removeStandardInputCopies() {
  const std::lock_guard lock(copiesMutex());
  std::error_code ignored;
  for (const std::filesystem::path& folder : copies()) std::filesystem::remove_all(folder, ignored);
}

}  // namespace orv::cli
