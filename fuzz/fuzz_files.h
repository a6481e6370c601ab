#pragma once
// What the fuzz targets share: a scratch folder of their own, fuzzed bytes put into files (the
// readers take paths), and minimal packages around one fuzzed XML part.
//
// Each process gets its own folder (in /dev/shm when there is one, so that writing a file per
// input costs no disk), removed when the process exits normally.

#include <unistd.h>
#include <zip.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "frame/errors.h"
#include "workbook/in_memory_application.h"
#include "xlsx/reader_workbook.h"

namespace orv::fuzz {

using Parts = std::vector<std::pair<std::string, std::string_view>>;

inline const std::filesystem::path& scratchFolder() {
  static const std::filesystem::path folder = [] {
    const std::filesystem::path shm = "/dev/shm";
    const std::filesystem::path base =
        std::filesystem::is_directory(shm) ? shm : std::filesystem::temp_directory_path();
    std::filesystem::path f = base / ("orv-fuzz-" + std::to_string(::getpid()));
    std::filesystem::create_directories(f);
    static const std::filesystem::path removeAtExit = f;
    std::atexit([] {
      std::error_code ignored;
      std::filesystem::remove_all(removeAtExit, ignored);
    });
    return f;
  }();
  return folder;
}

inline std::filesystem::path writeInput(const std::string& name, const std::uint8_t* data, std::size_t size) {
  const std::filesystem::path path = scratchFolder() / name;
  std::ofstream(path, std::ios::binary | std::ios::trunc)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  return path;
}

// Entries are stored, not deflated: the fuzzed bytes reach the XML parsers as they are, and
// writing costs no compression.
inline std::filesystem::path writePackage(const std::string& name, const Parts& parts) {
  const std::filesystem::path path = scratchFolder() / name;
  std::filesystem::remove(path);
  int error = 0;
  zip_t* z = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
  if (z == nullptr) std::abort();
  for (const auto& [part, content] : parts) {
    zip_source_t* source = zip_source_buffer(z, content.data(), content.size(), 0);
    const zip_int64_t index = source == nullptr ? -1 : zip_file_add(z, part.c_str(), source, ZIP_FL_OVERWRITE);
    if (index < 0 || zip_set_file_compression(z, static_cast<zip_uint64_t>(index), ZIP_CM_STORE, 0) != 0) std::abort();
  }
  if (zip_close(z) != 0) std::abort();
  return path;
}

inline constexpr std::string_view kMainNs = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";

inline const std::string& rootRels() {
  static const std::string s =
      R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">)"
      R"(<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument" Target="xl/workbook.xml"/>)"
      R"(</Relationships>)";
  return s;
}

inline const std::string& workbookRels() {
  static const std::string s =
      R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">)"
      R"(<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet" Target="worksheets/sheet1.xml"/>)"
      R"(<Relationship Id="rId2" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/sharedStrings" Target="sharedStrings.xml"/>)"
      R"(</Relationships>)";
  return s;
}

inline const std::string& workbookXml() {
  static const std::string s = R"(<workbook xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main" )"
                               R"(xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships">)"
                               R"(<sheets><sheet name="Data" sheetId="1" r:id="rId1"/></sheets></workbook>)";
  return s;
}

inline const std::string& sheetXml() {
  static const std::string s =
      R"(<worksheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main"><sheetData>)"
      R"(<row r="1"><c r="A1" t="s"><v>0</v></c><c r="B1" t="s"><v>1</v></c></row>)"
      R"(<row r="2"><c r="A2"><v>1.5</v></c><c r="B2"><v>2</v></c></row>)"
      R"(</sheetData></worksheet>)";
  return s;
}

inline const std::string& sharedStringsXml() {
  static const std::string s =
      R"(<sst xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main"><si><t>x</t></si><si><t>y</t></si></sst>)";
  return s;
}

// A one-sheet package whose parts are the fixed ones above except those given.
inline std::filesystem::path packageAround(std::string_view sheet, std::string_view sharedStrings,
                                           std::string_view workbook) {
  return writePackage("part.xlsx", {{"_rels/.rels", rootRels()},
                                    {"xl/workbook.xml", workbook},
                                    {"xl/_rels/workbook.xml.rels", workbookRels()},
                                    {"xl/worksheets/sheet1.xml", sheet},
                                    {"xl/sharedStrings.xml", sharedStrings}});
}

// Limits small enough that no input can push a fuzzing process past its memory limit (libFuzzer
// stops at 2 GB), large enough for every shape of sheet a small input can describe.
inline ReadLimits fuzzLimits() {
  ReadLimits limits;
  limits.zip.maxPartBytes = std::uint64_t{64} << 20;
  limits.zip.maxTotalBytes = std::uint64_t{128} << 20;
  limits.maxStoredCells = 2'000'000;
  return limits;
}

// Opens the file into a fresh host. Refusing it as unreadable is a right answer; any other error
// number, or anything else thrown, is a finding (abort, so that libFuzzer keeps the input).
inline void openOrRefuse(const std::filesystem::path& file) {
  InMemoryApplication app;
  try {
    openWorkbookFile(app, file, fuzzLimits());
  } catch (const ComponentError& e) {
    if (e.number() != err::kFileUnreadable) std::abort();
  }
}

}  // namespace orv::fuzz
