// What a write does to the file it replaces: permission bits kept, symbolic links written
// through, read-only files refused, and temporary files removable by an interrupt.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "frame/errors.h"
#include "test_packages.h"
#include "xlsx/package_atomic_write.h"

namespace orv::test {
namespace {

void writeText(const fs::path& target, const std::string& text) {
  writeFileAtomically(target, [&](const fs::path& temporary) { std::ofstream(temporary, std::ios::binary) << text; });
}

mode_t modeOf(const fs::path& p) {
  struct stat st {};
  EXPECT_EQ(::stat(p.c_str(), &st), 0) << p;
  return st.st_mode & 07777;
}

TEST(AtomicWriteFiles, AReplacedFileKeepsItsPermissionBitsAndANewOneGetsTheUmasks) {
  ScratchFolder folder;
  for (const mode_t mode : {mode_t{0600}, mode_t{0640}, mode_t{0755}, mode_t{0604}}) {
    SCOPED_TRACE(mode);
    const fs::path file = folder / "kept.xlsx";
    std::ofstream(file) << "old";
    ASSERT_EQ(::chmod(file.c_str(), mode), 0);
    writeText(file, "new");
    EXPECT_EQ(readBytes(file), "new");
    EXPECT_EQ(modeOf(file), mode);
  }
  const mode_t mask = ::umask(022);
  writeText(folder / "fresh.xlsx", "new");
  ::umask(mask);
  EXPECT_EQ(modeOf(folder / "fresh.xlsx"), mode_t{0644});
  EXPECT_EQ(folder.files(), (std::vector<std::string>{"fresh.xlsx", "kept.xlsx"}));
}

TEST(AtomicWriteFiles, ASymbolicLinkIsWrittenThroughAndStaysALink) {
  ScratchFolder folder;
  fs::create_directories(folder / "real");
  const fs::path target = folder / "real" / "book.xlsx";
  std::ofstream(target) << "old";
  ASSERT_EQ(::chmod(target.c_str(), 0600), 0);
  struct Case {
    const char* name;
    fs::path link;
    fs::path pointsTo;
  };
  const Case cases[] = {{"relative link", folder / "rel.xlsx", "real/book.xlsx"},
                        {"absolute link", folder / "abs.xlsx", target},
                        {"link to a link", folder / "twice.xlsx", "rel.xlsx"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    fs::create_symlink(c.pointsTo, c.link);
    writeText(c.link, c.name);
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(c.link)));
    EXPECT_EQ(readBytes(target), c.name);
    EXPECT_EQ(modeOf(target), mode_t{0600});
  }
  EXPECT_EQ(folder.files(), (std::vector<std::string>{"abs.xlsx", "real", "rel.xlsx", "twice.xlsx"}));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder / "real"), fs::directory_iterator()), 1);
}

TEST(AtomicWriteFiles, AFileThatMayNotBeWrittenIsRefusedAndLeftAlone) {
  ScratchFolder folder;
  const fs::path readOnly = folder / "locked.xlsx";
  std::ofstream(readOnly) << "old";
  ASSERT_EQ(::chmod(readOnly.c_str(), 0444), 0);
  fs::create_symlink("locked.xlsx", folder / "link.xlsx");
  fs::create_directories(folder / "dir.xlsx");
  const struct {
    fs::path target;
    const char* why;
  } cases[] = {{readOnly, "it is read-only"},
               {folder / "link.xlsx", "it is read-only"},
               {folder / "dir.xlsx", "it is a folder"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.target);
    EXPECT_EQ(refusalToWrite(c.target).value_or(""), c.why);
    try {
      writeText(c.target, "new");
      ADD_FAILURE() << "the write was not refused";
    } catch (const ComponentError& e) {
      EXPECT_EQ(e.number(), err::kFileUnwritable);
      EXPECT_NE(e.description().find(c.target.string()), std::string::npos) << e.description();
      EXPECT_NE(e.description().find(c.why), std::string::npos) << e.description();
    }
  }
  EXPECT_EQ(readBytes(readOnly), "old");
  EXPECT_EQ(folder.files(), (std::vector<std::string>{"dir.xlsx", "link.xlsx", "locked.xlsx"}));
  EXPECT_FALSE(refusalToWrite(folder / "absent.xlsx").has_value());
}

TEST(AtomicWriteFiles, AnInterruptRemovesTheTemporaryFileAndTheZipLibrarysScratchFile) {
  ScratchFolder folder;
  const fs::path target = folder / "out.xlsx";
  std::ofstream(target) << "old";
  try {
    writeFileAtomically(target, [&](const fs::path& temporary) {
      std::ofstream(temporary) << "half";
      std::ofstream(temporary.string() + ".a1B2c3") << "the zip library's own scratch copy";
      EXPECT_EQ(folder.files().size(), 3U);
      removeTemporaryFiles();
    });
    ADD_FAILURE() << "the rename of a removed file succeeded";
  } catch (const ComponentError& e) {
    EXPECT_EQ(e.number(), err::kFileUnwritable);
  }
  EXPECT_EQ(folder.files(), (std::vector<std::string>{"out.xlsx"}));
  EXPECT_EQ(readBytes(target), "old");
}

}  // namespace
}  // namespace orv::test
