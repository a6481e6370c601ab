#pragma once
// Zip packages built from (part, content) pairs and read back, minimal workbook XML, raw deflate
// helpers, and a scratch folder that disappears with the test.

#include <zip.h>
#include <zlib.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <pugixml.hpp>

namespace orv::test {

namespace fs = std::filesystem;
using Parts = std::vector<std::pair<std::string, std::string>>;

// A bare file name lands, freshly removed, in a folder shared by the tests; a path is taken as is.
inline fs::path tempFile(const fs::path& where) {
  if (where.has_parent_path()) return where;
  const auto dir = fs::temp_directory_path() / "orv_reader_tests";
  fs::create_directories(dir);
  fs::remove(dir / where);
  return dir / where;
}

inline fs::path writeZip(const fs::path& where, const Parts& parts) {
  const fs::path path = tempFile(where);
  int error = 0;
  zip_t* z = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error);
  if (z == nullptr) throw std::runtime_error("cannot create " + path.string());
  for (const auto& [part, content] : parts) {
    zip_source_t* src = zip_source_buffer(z, content.data(), content.size(), 0);
    if (src == nullptr || zip_file_add(z, part.c_str(), src, ZIP_FL_OVERWRITE) < 0)
      throw std::runtime_error("cannot add " + part);
  }
  if (zip_close(z) != 0) throw std::runtime_error("cannot write " + path.string());
  return path;
}

inline fs::path writeBytes(const fs::path& where, const std::string& bytes) {
  const fs::path path = tempFile(where);
  std::ofstream(path, std::ios::binary) << bytes;
  return path;
}

inline std::string readBytes(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Entry name -> uncompressed content, plus the order of the central directory.
struct ZipContents {
  std::vector<std::string> order;
  std::map<std::string, std::string> entries;
  std::string at(const std::string& name) const { return entries.contains(name) ? entries.at(name) : ""; }
};

inline ZipContents readZip(const fs::path& path) {
  ZipContents out;
  int code = 0;
  zip_t* archive = zip_open(path.c_str(), ZIP_RDONLY, &code);
  EXPECT_NE(archive, nullptr) << path;
  if (archive == nullptr) return out;
  for (zip_int64_t i = 0; i < zip_get_num_entries(archive, 0); ++i) {
    zip_stat_t stat;
    zip_stat_index(archive, static_cast<zip_uint64_t>(i), 0, &stat);
    std::string content(static_cast<std::size_t>(stat.size), '\0');
    zip_file_t* file = zip_fopen_index(archive, static_cast<zip_uint64_t>(i), 0);
    zip_fread(file, content.data(), stat.size);
    zip_fclose(file);
    out.order.emplace_back(stat.name);
    out.entries.emplace(stat.name, std::move(content));
  }
  zip_discard(archive);
  return out;
}

inline pugi::xml_document parseXml(const std::string& text) {
  pugi::xml_document document;
  EXPECT_TRUE(document.load_string(text.c_str())) << text.substr(0, 200);
  return document;
}

inline std::uint32_t crcOf(const std::string& text) {
  return static_cast<std::uint32_t>(crc32_z(0, reinterpret_cast<const Bytef*>(text.data()), text.size()));
}

// Inflates a raw deflate stream with zlib alone; one spare output byte shows a stream too long.
inline std::string inflateRaw(const std::string& compressed, std::size_t size) {
  std::string out(size + 1, '\0');
  z_stream s{};
  EXPECT_EQ(inflateInit2(&s, -MAX_WBITS), Z_OK);
  s.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(compressed.data()));
  s.avail_in = static_cast<uInt>(compressed.size());
  s.next_out = reinterpret_cast<Bytef*>(out.data());
  s.avail_out = static_cast<uInt>(out.size());
  EXPECT_EQ(inflate(&s, Z_FINISH), Z_STREAM_END);
  EXPECT_EQ(s.avail_in, 0U) << "bytes after the end of the stream";
  out.resize(s.total_out);
  inflateEnd(&s);
  return out;
}

class ScratchFolder {
 public:
  ScratchFolder() : path_(fs::temp_directory_path() / ("orv-writer-" + std::to_string(std::random_device{}()))) {
    fs::create_directories(path_);
  }
  ~ScratchFolder() {
    std::error_code ignored;
    fs::permissions(path_, fs::perms::owner_all, ignored);
    fs::remove_all(path_, ignored);
  }
  fs::path operator/(const std::string& name) const { return path_ / name; }
  const fs::path& path() const { return path_; }
  std::vector<std::string> files() const {
    std::vector<std::string> names;
    for (const auto& e : fs::directory_iterator(path_)) names.push_back(e.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }

 private:
  fs::path path_;
};

inline const std::string kMainNs = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
inline const std::string kRelNs = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
inline const std::string kPkgRelNs = "http://schemas.openxmlformats.org/package/2006/relationships";

// Relationships (id, type, target); a type without "://" is one of the office document's.
inline std::string workbookRels(const std::vector<std::vector<std::string>>& rels) {
  std::string s = R"(<Relationships xmlns=")" + kPkgRelNs + R"(">)";
  for (const auto& r : rels) {
    const std::string type = r[1].find("://") == std::string::npos ? kRelNs + "/" + r[1] : r[1];
    s += "<Relationship Id=\"" + r[0] + "\" Type=\"" + type + "\" Target=\"" + r[2] + "\"/>";
  }
  return s + "</Relationships>";
}

inline std::string rootRels(const std::string& workbookTarget = "xl/workbook.xml") {
  return workbookRels({{"rId1", "officeDocument", workbookTarget}});
}

// A workbook part listing (name, relationship id) sheets, and its rels listing (id, type, target).
inline std::string workbookXml(const std::vector<std::pair<std::string, std::string>>& sheets,
                               const std::string& extra = "") {
  std::string s = R"(<workbook xmlns=")" + kMainNs + R"(" xmlns:r=")" + kRelNs + R"(">)" + extra + "<sheets>";
  int n = 1;
  for (const auto& [name, id] : sheets) {
    s += "<sheet name=\"" + name + "\" sheetId=\"" + std::to_string(n++) + "\" r:id=\"" + id + "\"/>";
  }
  return s + "</sheets></workbook>";
}

inline std::string sheetXml(const std::string& sheetData, const std::string& before = "") {
  return R"(<?xml version="1.0" encoding="UTF-8"?><worksheet xmlns=")" + kMainNs + R"(">)" + before + "<sheetData>" +
         sheetData + "</sheetData></worksheet>";
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

// A one-sheet package file holding `sheetData`, optional shared strings and the elements `before` it.
inline fs::path sheetFile(const fs::path& where, const std::string& sheetData, const std::string& sharedStrings = "",
                          const std::string& before = "") {
  return writeZip(where, oneSheetPackage(sheetXml(sheetData, before), sharedStrings));
}

}  // namespace orv::test
