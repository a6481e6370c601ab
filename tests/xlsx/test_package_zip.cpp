// Writing zip packages: deflated entries with CRC and size, untouched entries copied compressed as
// they were, equal bytes for equal input, nothing written before the commit.

#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "test_packages.h"
#include "xlsx/package_deflate.h"
#include "xlsx/package_zip.h"

namespace orv::test {
namespace {

struct RawEntry {
  zip_int32_t method = -1;
  zip_uint32_t crc = 0;
  zip_uint64_t size = 0;
  std::string compressed;
};

RawEntry rawEntry(const std::filesystem::path& path, const std::string& name) {
  RawEntry raw;
  int code = 0;
  zip_t* archive = zip_open(path.c_str(), ZIP_RDONLY, &code);
  EXPECT_NE(archive, nullptr) << path;
  if (archive == nullptr) return raw;
  zip_stat_t stat;
  zip_file_t* file =
      zip_stat(archive, name.c_str(), 0, &stat) == 0 ? zip_fopen(archive, name.c_str(), ZIP_FL_COMPRESSED) : nullptr;
  EXPECT_NE(file, nullptr) << "no entry " << name;
  if (file != nullptr) {
    std::tie(raw.method, raw.crc, raw.size) = std::tuple(stat.comp_method, stat.crc, stat.size);
    raw.compressed.resize(static_cast<std::size_t>(stat.comp_size));
    EXPECT_EQ(zip_fread(file, raw.compressed.data(), stat.comp_size), static_cast<zip_int64_t>(stat.comp_size));
    zip_fclose(file);
  }
  zip_discard(archive);
  return raw;
}

// Rows of a sheet, varied enough that deflate has work to do, above the fast-level threshold.
std::string largeSheet() {
  std::string xml = "<sheetData>";
  for (int r = 1; xml.size() <= kFastDeflateAbove + 1000; ++r) {
    xml += "<row r=\"" + std::to_string(r) + "\"><c r=\"A" + std::to_string(r) + "\"><v>" +
           std::to_string((r * 7919) % 100003) + "</v></c></row>";
  }
  return xml + "</sheetData>";
}

TEST(PackageZip, PutEntriesInflateBackToTheirContentAndEqualInputGivesEqualFiles) {
  struct Row {
    const char* name;
    std::string content;
  };
  const std::vector<Row> rows = {
      {"empty.xml", ""},
      {"binary.bin", std::string("\0\xFF\x01 zip \0\0 tail", 15)},
      {"xl/worksheets/large.xml", largeSheet()},
  };
  ScratchFolder folder;
  for (const char* name : {"new.zip", "again.zip"}) {
    ZipPackage package = ZipPackage::create(folder / name);
    for (const Row& row : rows) package.put(row.name, row.content);
    package.commit();
  }
  EXPECT_EQ(readBytes(folder / "again.zip"), readBytes(folder / "new.zip"));  // equal input, equal files

  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const RawEntry raw = rawEntry(folder / "new.zip", row.name);
    EXPECT_EQ(raw.method, ZIP_CM_DEFLATE);
    EXPECT_EQ(raw.size, row.content.size());
    EXPECT_EQ(raw.crc, crcOf(row.content));
    EXPECT_EQ(inflateRaw(raw.compressed, row.content.size()), row.content);
  }
}

TEST(PackageZip, ReplacingKeepsOtherEntriesByteForByteAndTheOrder) {
  ScratchFolder folder;
  const Parts original = {
      {"[Content_Types].xml", "<Types/>"},
      {"xl/worksheets/sheet1.xml",
       "<worksheet><sheetView tabSelected=\"1\"/>" + std::string(5000, 'r') + "</worksheet>"},
      {"xl/media/image1.png", std::string("\x89PNG\r\n\x1A\n", 8) + std::string(300, '\x07')},
      {"xl/styles.xml", "<styleSheet>" + std::string(2000, 's') + "</styleSheet>"},
  };
  writeZip(folder / "in.zip", original);
  std::filesystem::copy_file(folder / "in.zip", folder / "out.zip");

  const std::string sheet = "<worksheet><sheetView/>" + std::string(5000, 'r') + "</worksheet>";
  ZipPackage package = ZipPackage::open(folder / "out.zip");
  package.put("XL/Worksheets/Sheet1.xml", sheet);  // names match without case
  package.commit();

  for (const char* name : {"[Content_Types].xml", "xl/media/image1.png", "xl/styles.xml"}) {
    SCOPED_TRACE(name);
    const RawEntry before = rawEntry(folder / "in.zip", name);
    const RawEntry after = rawEntry(folder / "out.zip", name);
    EXPECT_EQ(after.method, before.method);
    EXPECT_EQ(after.crc, before.crc);
    EXPECT_EQ(after.compressed, before.compressed);
  }
  const RawEntry after = rawEntry(folder / "out.zip", "xl/worksheets/sheet1.xml");
  EXPECT_EQ(after.crc, crcOf(sheet));
  EXPECT_EQ(inflateRaw(after.compressed, sheet.size()), sheet);
  EXPECT_EQ(readZip(folder / "out.zip").order,
            (std::vector<std::string>{"[Content_Types].xml", "xl/worksheets/sheet1.xml", "xl/media/image1.png",
                                      "xl/styles.xml"}));
}

TEST(PackageZip, UncommittedPackageLeavesTheFileAlone) {
  ScratchFolder folder;
  writeZip(folder / "in.zip", {{"a.xml", "<a/>"}});
  const std::string before = readBytes(folder / "in.zip");
  {
    ZipPackage package = ZipPackage::open(folder / "in.zip");
    package.put("a.xml", "<b/>");
    package.put("new.xml", "<c/>");
  }
  EXPECT_EQ(readBytes(folder / "in.zip"), before);
}

}  // namespace
}  // namespace orv::test
