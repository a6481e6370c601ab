#pragma once
// FILE given as "-": the input comes from standard input. The readers take files, so the bytes
// are copied to a private temporary folder first, under a name that tells the readers what they
// are: "stdin.xlsx" for a zip package (a workbook, recognised by its content as any file is),
// "stdin.tsv" for text whose fields are separated by tabs, "stdin.csv" for other text. A text
// from standard input is thus a one-sheet workbook whose sheet is named "stdin".
//
// The copy is removed when the object goes, and by removeStandardInputCopies when an interrupt
// ends the process.

#include <filesystem>
#include <string>

namespace orv::cli {

inline constexpr const char* kStandardInputName = "-";
inline constexpr const char* kEmptyStandardInput =
    "standard input is empty: pipe a workbook or CSV text into orvella, or give a FILE";

class StandardInputCopy {
 public:
  // Copies all of standard input. Throws std::runtime_error with the reason when the copy cannot
  // be made.
  StandardInputCopy();
  ~StandardInputCopy();
  StandardInputCopy(const StandardInputCopy&) = delete;
  StandardInputCopy& operator=(const StandardInputCopy&) = delete;

  const std::filesystem::path& path() const { return file_; }

 private:
  void removeFolder();

  std::filesystem::path folder_;
  std::filesystem::path file_;
};

// `text` with every mention of a copy still on disk (its path or file name in quotes, as messages
// quote files) said as "standard input", so that messages do not name a temporary file.
std::string sayStandardInput(std::string text);

// For the interrupt handler: removes every copy still on disk. Thread-safe.
void removeStandardInputCopies();

}  // namespace orv::cli
