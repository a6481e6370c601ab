// An interrupted run removes its temporary files, leaves the output as it was, and exits with
// 128 plus the signal's number.

#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "cli/interrupts.h"
#include "cli_fixture.h"
#include "xlsx/package_atomic_write.h"

namespace orv::test {
namespace {

namespace fs = std::filesystem;

// Writes a workbook over `target` and, once the package is being written, signals the process
// and waits for the end the signal brings.
void writeInterruptedBy(int signal, const fs::path& target) {
  cli::installInterruptHandling();
  setWriteFaultHook([signal](WriteStage stage) {
    if (stage == WriteStage::WritingEntry) {
      ::kill(::getpid(), signal);
      std::this_thread::sleep_for(std::chrono::seconds(30));
    }
    return false;
  });
  InMemoryApplication app;
  InMemoryWorkbook& book = app.AddWorkbook("new.xlsx", {"Data"});
  for (std::int32_t r = 1; r <= 100; ++r) book.Worksheets(1).storeRaw(r, 1, r * 1.0);
  writeNewWorkbook(book, target);
}

TEST_F(CliTest, AnInterruptedWriteLeavesNoTemporaryFileAndExitsWith128PlusTheSignal) {
  // "fast" forks at the check itself: the child reuses this fixture's folder instead of making one
  // of its own that nothing would remove.
  GTEST_FLAG_SET(death_test_style, "fast");
  const fs::path target = workbook("old.xlsx", {{"A", {1.0}}});
  const std::string before = readFile(target);
  const std::vector<std::string> files = listing(dir);
  for (const auto& [signal, status] : {std::pair{SIGINT, 130}, std::pair{SIGTERM, 143}, std::pair{SIGHUP, 129}}) {
    SCOPED_TRACE(signal);
    EXPECT_EXIT(writeInterruptedBy(signal, target), ::testing::ExitedWithCode(status), "orvella: interrupted");
    EXPECT_EQ(listing(dir), files);
    EXPECT_EQ(readFile(target), before);
  }
}

// The command itself handles the signals: interrupted while it waits for its input (a pipe that
// nothing is written to), it still ends with its own status and line.
TEST_F(CliTest, TheCommandEndsOnAnInterruptWithItsOwnStatus) {
  const fs::path pipe = dir / "input.csv";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const pid_t child = start({"describe", pipe.string(), "-i", "A1:A3"});
  // The pipe opens for writing once the command has opened it for reading: by then it runs main.
  int writer = -1;
  for (int tries = 0; writer < 0 && tries < 3000; ++tries) {
    writer = ::open(pipe.c_str(), O_WRONLY | O_NONBLOCK);
    if (writer < 0) std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  ASSERT_GE(writer, 0) << "the command never opened its input";
  ::kill(child, SIGTERM);
  const int status = waitStatus(child);
  ::close(writer);
  ASSERT_TRUE(WIFEXITED(status)) << "ended by signal " << WTERMSIG(status);
  EXPECT_EQ(WEXITSTATUS(status), 143);
  EXPECT_EQ(readFile(dir / "stderr.txt"), "orvella: interrupted\n");
}

}  // namespace
}  // namespace orv::test
