#pragma once
// The programs outside the project that check written workbooks, found where CI and
// scripts/install-deps put them, and a way to run one with a time limit. A missing program
// fails the test that needs it, naming the Debian package to install.

#include <gtest/gtest.h>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

extern char** environ;

namespace orv::test {

// True when a shell finds the command.
inline bool onPath(const std::string& command) {
  return std::system(("command -v " + command + " >/dev/null 2>&1").c_str()) == 0;
}

// A python3 that imports openpyxl: Debian's, since a version manager's python3 may come first
// on PATH without the system's packages. Empty when there is none.
inline std::string pythonWithOpenpyxl() {
  for (const char* candidate : {"python3", "/usr/bin/python3"}) {
    if (std::system((std::string(candidate) + " -c 'import openpyxl' >/dev/null 2>&1").c_str()) == 0) return candidate;
  }
  return {};
}

// The folder holding validate-xlsx and xlsx-inspect: ORV_XLSX_TOOLS from the environment, else
// the one the build was configured with (the CMake cache variable of the same name).
inline std::filesystem::path xlsxToolsFolder() {
  if (const char* set = std::getenv("ORV_XLSX_TOOLS"); set != nullptr && *set != '\0') return set;
#ifdef ORV_XLSX_TOOLS_DIR
  return ORV_XLSX_TOOLS_DIR;
#else
  return {};
#endif
}

struct ProcessResult {
  int exitCode = -1;  // -1 when the process was stopped or could not start
  bool timedOut = false;
  std::string output;  // stdout and stderr together
};

// Runs `argv` with HOME set to `home`, in a process group of its own so that everything it
// starts can be stopped with it; after `limit` the group is killed by its id.
inline ProcessResult runProcess(const std::vector<std::string>& argv, const std::filesystem::path& home,
                                std::chrono::seconds limit) {
  const std::filesystem::path log = home / "process.log";
  std::vector<std::string> env{"HOME=" + home.string()};
  for (char** e = environ; *e != nullptr; ++e) {
    if (std::string_view(*e).substr(0, 5) != "HOME=") env.emplace_back(*e);
  }
  std::vector<char*> args;
  std::vector<char*> envp;
  for (const std::string& a : argv) args.push_back(const_cast<char*>(a.c_str()));
  for (const std::string& e : env) envp.push_back(const_cast<char*>(e.c_str()));
  args.push_back(nullptr);
  envp.push_back(nullptr);

  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, log.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  posix_spawn_file_actions_adddup2(&files, STDOUT_FILENO, STDERR_FILENO);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
  posix_spawnattr_setpgroup(&attributes, 0);
  pid_t pid = 0;
  ProcessResult result;
  const int failed = posix_spawnp(&pid, args[0], &files, &attributes, args.data(), envp.data());
  posix_spawn_file_actions_destroy(&files);
  posix_spawnattr_destroy(&attributes);
  if (failed != 0) {
    result.output = "cannot start " + argv[0];
    return result;
  }
  const auto deadline = std::chrono::steady_clock::now() + limit;
  int status = 0;
  while (waitpid(pid, &status, WNOHANG) == 0) {
    if (std::chrono::steady_clock::now() > deadline) {
      kill(-pid, SIGKILL);
      waitpid(pid, &status, 0);
      result.timedOut = true;
      break;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  // Whatever the process left running in its group goes with it.
  kill(-pid, SIGKILL);
  if (!result.timedOut && WIFEXITED(status)) result.exitCode = WEXITSTATUS(status);
  std::ifstream in(log);
  std::ostringstream text;
  text << in.rdbuf();
  result.output = text.str();
  return result;
}

}  // namespace orv::test
