// A run shows its steps with a percentage on standard error when that is a terminal, and clears
// the line before the table; a pipe gets nothing of it.

#include <fcntl.h>
#include <pty.h>
#include <unistd.h>

#include <cerrno>

#include "cli_fixture.h"

namespace orv::test {
namespace {

// Runs orvella with standard error on a pseudo-terminal; returns what the terminal received.
std::string stderrOnTerminal(const std::vector<std::string>& args, const std::filesystem::path& out) {
  int master = -1;
  int slave = -1;
  if (openpty(&master, &slave, nullptr, nullptr, nullptr) != 0) return "openpty failed";
  const pid_t child = fork();
  if (child == 0) {
    ::dup2(slave, STDERR_FILENO);
    const int file = ::open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    ::dup2(file, STDOUT_FILENO);
    ::close(master);
    std::vector<char*> argv{const_cast<char*>(ORVELLA_BINARY)};
    for (const std::string& a : args) argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    ::execv(ORVELLA_BINARY, argv.data());
    ::_exit(127);
  }
  ::close(slave);
  std::string seen;
  char buffer[4096];
  for (;;) {
    const ssize_t n = ::read(master, buffer, sizeof buffer);
    if (n > 0) {
      seen.append(buffer, static_cast<std::size_t>(n));
    } else if (n < 0 && errno == EINTR) {
      continue;
    } else {
      break;  // EIO once the child has closed the terminal
    }
  }
  ::close(master);
  int status = 0;
  ::waitpid(child, &status, 0);
  return seen;
}

TEST_F(CliTest, ProgressShowsPercentagesOnATerminalOnly) {
  std::vector<std::pair<std::string, std::vector<CellValue>>> columns;
  for (int c = 0; c < 5; ++c) columns.push_back({"C" + std::to_string(c), {1.0, 2.0, 3.0, 5.0}});
  const auto file = workbook("p.xlsx", columns);
  const auto written = dir / "p-out.xlsx";
  const std::vector<std::string> args = {"describe", file.string(),   "-i", "Data!A1:E5", "--headers",
                                         "-o",       written.string()};
  const std::string terminal = stderrOnTerminal(args, dir / "stdout.txt");
  EXPECT_NE(terminal.find("Reading " + file.string() + " ... 100%"), std::string::npos) << terminal;
  EXPECT_NE(terminal.find("Analysing Data!A1:E5 ... 100%"), std::string::npos) << terminal;
  EXPECT_NE(terminal.find("Writing " + written.string() + " ..."), std::string::npos) << terminal;
  // The status line is cleared before the closing line.
  EXPECT_NE(terminal.find("\r\033[KResults written to"), std::string::npos) << terminal;
  EXPECT_NE(readFile(dir / "stdout.txt").find("Mean"), std::string::npos);

  const RunResult piped = run(args);
  ASSERT_EQ(piped.exitCode, 0) << piped.err;
  EXPECT_EQ(piped.err.find('%'), std::string::npos) << piped.err;
  EXPECT_EQ(piped.err.find('\r'), std::string::npos) << piped.err;

  // A frequency analysis counts variable after variable, each a step of its percentage.
  const std::string counting =
      stderrOnTerminal({"frequency", file.string(), "-i", "Data!A1:E5", "--headers"}, dir / "stdout.txt");
  EXPECT_NE(counting.find("Analysing Data!A1:E5 ... 100%"), std::string::npos) << counting;
}

}  // namespace
}  // namespace orv::test
