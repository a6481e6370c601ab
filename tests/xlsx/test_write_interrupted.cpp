// A write that fails at any point leaves the target as it was, the input untouched and no temporary file.

#include <gtest/gtest.h>
#include <unistd.h>

#include <set>

#include "frame/errors.h"
#include "test_packages.h"
#include "workbook/in_memory_application.h"
#include "xlsx/package_atomic_write.h"
#include "xlsx/reader_workbook.h"
#include "xlsx/writer_workbook.h"

namespace orv::test {
namespace {

struct FaultAt {
  FaultAt(WriteStage stage, int occurrence) {
    setWriteFaultHook(
        [stage, occurrence, seen = 0](WriteStage s) mutable { return s == stage && ++seen == occurrence; });
  }
  ~FaultAt() { setWriteFaultHook({}); }
  FaultAt(const FaultAt&) = delete;
  FaultAt& operator=(const FaultAt&) = delete;
};

std::set<std::string> folderListing(const fs::path& folder) {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename().string());
  return names;
}

struct Scene {
  fs::path folder, input, target;
  std::string inputBytes;
  std::optional<std::string> oldTarget;  // none: there is no file at the target yet
};

enum class Way { NewFile, OverOldResult, InPlace, FreshWorkbook };

void writeWorkbook(const fs::path& path, int cells) {
  InMemoryApplication app;
  InMemoryWorkbook& book = app.AddWorkbook(path.filename().string(), {"Data"});
  for (int c = 1; c <= cells; ++c) book.Worksheets(1).storeRaw(1, c, c * 1.0);
  writeNewWorkbook(book, path);
}

Scene makeScene(Way way) {
  const std::string tag = std::to_string(::getpid());
  Scene s;
  s.folder = fs::temp_directory_path() / ("orv_interrupted_" + tag);
  fs::remove_all(s.folder);
  fs::create_directories(s.folder);
  s.input = s.folder / "input.xlsx";
  writeWorkbook(s.input, 2);
  s.inputBytes = readBytes(s.input);
  s.target = way == Way::InPlace ? s.input : s.folder / "results.xlsx";
  if (way == Way::OverOldResult) writeWorkbook(s.target, 1);
  if (fs::exists(s.target)) s.oldTarget = readBytes(s.target);
  return s;
}

void writeResults(const Scene& s, Way way) {
  InMemoryApplication app;
  InMemoryWorkbook& book = loadWorkbook(app, s.input);
  InMemoryWorksheet& results = book.addSheet("Results");
  for (std::int32_t r = 1; r <= 20; ++r) results.storeRaw(r, 1, r * 1.5);
  if (way == Way::FreshWorkbook) writeNewWorkbook(book, s.target);
  else writeIntoPackage(s.input, book, {}, s.target);
}

// Every point a write can fail at: the temporary file made, each entry written, before the rename.
std::vector<std::pair<WriteStage, int>> faultPoints(Way way) {
  const Scene s = makeScene(way);
  int entries = 0;
  setWriteFaultHook([&entries](WriteStage stage) {
    entries += stage == WriteStage::WritingEntry ? 1 : 0;
    return false;
  });
  writeResults(s, way);
  setWriteFaultHook({});
  fs::remove_all(s.folder);
  EXPECT_GE(entries, 3);  // at least the workbook, its rels and the new sheet
  std::vector<std::pair<WriteStage, int>> points = {{WriteStage::TemporaryCreated, 1}, {WriteStage::BeforeRename, 1}};
  for (int k = 1; k <= entries; ++k) points.emplace_back(WriteStage::WritingEntry, k);
  return points;
}

TEST(WriteInterrupted, EveryStageOfEveryWayLeavesTheOldFileAndNoTemporary) {
  const struct {
    const char* name;
    Way way;
  } ways[] = {{"new file", Way::NewFile},
              {"over an old result", Way::OverOldResult},
              {"in place", Way::InPlace},
              {"fresh workbook", Way::FreshWorkbook}};
  for (const auto& w : ways) {
    for (const auto& [stage, occurrence] : faultPoints(w.way)) {
      SCOPED_TRACE(std::string(w.name) + ", stage " + std::to_string(static_cast<int>(stage)) + " #" +
                   std::to_string(occurrence));
      const Scene s = makeScene(w.way);
      const std::set<std::string> before = folderListing(s.folder);
      try {
        FaultAt fault(stage, occurrence);
        writeResults(s, w.way);
        ADD_FAILURE() << "the write did not fail";
      } catch (const ComponentError& e) {
        EXPECT_EQ(e.number(), err::kFileUnwritable);
        EXPECT_NE(e.description().find(s.target.string()), std::string::npos) << e.description();
      }
      EXPECT_EQ(folderListing(s.folder), before);
      EXPECT_EQ(readBytes(s.input), s.inputBytes);
      if (s.oldTarget) EXPECT_EQ(readBytes(s.target), *s.oldTarget);
      else EXPECT_FALSE(fs::exists(s.target));
      fs::remove_all(s.folder);
    }
  }
}

}  // namespace
}  // namespace orv::test
