#pragma once
// Small packages written by the tests themselves: XML strings put into a zip in a temporary
// folder, so that every fixture shows the exact bytes the reader sees.

#include <zip.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace orv::test {

using Parts = std::vector<std::pair<std::string, std::string>>;

inline std::filesystem::path tempFile(const std::string& name) {
  const auto dir = std::filesystem::temp_directory_path() / "orv_reader_tests";
  std::filesystem::create_directories(dir);
  const auto path = dir / name;
  std::filesystem::remove(path);
  return path;
}

inline std::filesystem::path writeZip(const std::string& name, const Parts& parts) {
  const auto path = tempFile(name);
  int error = 0;
  zip_t* z = zip_open(path.string().c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
  if (z == nullptr) throw std::runtime_error("cannot create " + path.string());
  for (const auto& [part, content] : parts) {
    zip_source_t* src = zip_source_buffer(z, content.data(), content.size(), 0);
    if (src == nullptr || zip_file_add(z, part.c_str(), src, ZIP_FL_OVERWRITE) < 0) {
      zip_source_free(src);
      zip_discard(z);
      throw std::runtime_error("cannot add " + part);
    }
  }
  if (zip_close(z) != 0) throw std::runtime_error("cannot write " + path.string());
  return path;
}

inline std::filesystem::path writeBytes(const std::string& name, const std::string& bytes) {
  const auto path = tempFile(name);
  std::ofstream(path, std::ios::binary) << bytes;
  return path;
}

inline std::string readBytes(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline const std::string kMainNs = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
inline const std::string kRelNs = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";

inline std::string rootRels(const std::string& workbookTarget = "xl/workbook.xml") {
  return R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
         R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">)"
         R"(<Relationship Id="rId1" Type=")" + kRelNs + R"(/officeDocument" Target=")" + workbookTarget +
         R"("/></Relationships>)";
}

// A workbook part listing sheets (name, relationship id) and its relationships part listing
// (id, type, target) triples.
inline std::string workbookXml(const std::vector<std::pair<std::string, std::string>>& sheets,
                               const std::string& extra = "") {
  std::string s = R"(<workbook xmlns=")" + kMainNs + R"(" xmlns:r=")" + kRelNs + R"(">)" + extra + "<sheets>";
  int n = 1;
  for (const auto& [name, id] : sheets) {
    s += "<sheet name=\"" + name + "\" sheetId=\"" + std::to_string(n++) + "\" r:id=\"" + id + "\"/>";
  }
  return s + "</sheets></workbook>";
}

inline std::string workbookRels(const std::vector<std::vector<std::string>>& rels) {
  std::string s = R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">)";
  for (const auto& r : rels) {
    s += "<Relationship Id=\"" + r[0] + "\" Type=\"" + kRelNs + "/" + r[1] + "\" Target=\"" + r[2] + "\"/>";
  }
  return s + "</Relationships>";
}

inline std::string sheetXml(const std::string& sheetData, const std::string& before = "") {
  return R"(<?xml version="1.0" encoding="UTF-8"?><worksheet xmlns=")" + kMainNs + R"(">)" + before +
         "<sheetData>" + sheetData + "</sheetData></worksheet>";
}

// A one-sheet package named "Data" with the given sheet part and optional shared strings.
inline Parts oneSheetPackage(const std::string& sheet, const std::string& sharedStrings = "") {
  Parts parts = {{"_rels/.rels", rootRels()},
                 {"xl/workbook.xml", workbookXml({{"Data", "rId1"}})},
                 {"xl/worksheets/sheet1.xml", sheet}};
  std::vector<std::vector<std::string>> rels = {{"rId1", "worksheet", "worksheets/sheet1.xml"}};
  if (!sharedStrings.empty()) {
    rels.push_back({"rId2", "sharedStrings", "sharedStrings.xml"});
    parts.emplace_back("xl/sharedStrings.xml", sharedStrings);
  }
  parts.emplace_back("xl/_rels/workbook.xml.rels", workbookRels(rels));
  return parts;
}

}  // namespace orv::test
