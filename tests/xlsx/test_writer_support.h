#pragma once
// Zip packages for the writer tests: built from (name, content) pairs, read back entry by entry,
// and a scratch folder that disappears with the test.

#include <zip.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <pugixml.hpp>

namespace orv::test {

using Entries = std::vector<std::pair<std::string, std::string>>;

inline void writeZip(const std::filesystem::path& path, const Entries& entries) {
  int code = 0;
  zip_t* archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &code);
  ASSERT_NE(archive, nullptr);
  for (const auto& [name, content] : entries) {
    zip_source_t* source = zip_source_buffer(archive, content.data(), content.size(), 0);
    ASSERT_GE(zip_file_add(archive, name.c_str(), source, 0), 0) << name;
  }
  ASSERT_EQ(zip_close(archive), 0);
}

// Entry name -> uncompressed content, plus the order of the central directory.
struct ZipContents {
  std::vector<std::string> order;
  std::map<std::string, std::string> entries;
  const std::string& at(const std::string& name) const {
    static const std::string kMissing;
    const auto found = entries.find(name);
    return found == entries.end() ? kMissing : found->second;
  }
};

inline ZipContents readZip(const std::filesystem::path& path) {
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

class ScratchFolder {
 public:
  ScratchFolder() {
    std::random_device seed;
    path_ = std::filesystem::temp_directory_path() / ("orv-writer-" + std::to_string(seed()));
    std::filesystem::create_directories(path_);
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }
  const std::filesystem::path& path() const { return path_; }
  std::vector<std::string> files() const {
    std::vector<std::string> names;
    for (const auto& e : std::filesystem::directory_iterator(path_)) names.push_back(e.path().filename().string());
    return names;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace orv::test
