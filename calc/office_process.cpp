#include "calc/office_process.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

extern char** environ;

namespace orv::calc {
namespace {

constexpr std::chrono::milliseconds kPoll{50};
constexpr std::chrono::seconds kGracefulStop{5};
constexpr std::size_t kLogTailBytes = 2000;

std::string systemMessage(int error) { return std::generic_category().message(error); }

std::filesystem::path makeTemporaryFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "orvella-office-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) {
    throw OfficeError("cannot make a temporary folder for LibreOffice's profile: " + systemMessage(errno));
  }
  return pattern;
}

// A port nobody listens on now: the kernel's choice for a socket bound to port 0. Another program
// could take it before the office does; the office then fails to listen and the connection
// attempt reports it.
int freeLocalPort() {
  const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
  if (fd < 0) throw OfficeError("cannot find a free local port: " + systemMessage(errno));
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = 0;
  socklen_t length = sizeof address;
  const bool ok = ::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 &&
                  ::getsockname(fd, reinterpret_cast<sockaddr*>(&address), &length) == 0;
  const int error = errno;
  ::close(fd);
  if (!ok) throw OfficeError("cannot find a free local port: " + systemMessage(error));
  return ntohs(address.sin_port);
}

// The offices of this process that run, for stopAll: the process id and the temporary folder of
// each, by owner.
struct Running {
  const OfficeProcess* owner;
  pid_t pid;
  std::filesystem::path folder;
};

std::mutex& runningLock() {
  static std::mutex lock;
  return lock;
}

std::vector<Running>& running() {
  static std::vector<Running> list;
  return list;
}

void enlist(const OfficeProcess* owner, pid_t pid, const std::filesystem::path& folder) {
  const std::lock_guard<std::mutex> hold(runningLock());
  for (Running& r : running()) {
    if (r.owner == owner) {
      r.pid = pid;
      return;
    }
  }
  running().push_back(Running{owner, pid, folder});
}

void delist(const OfficeProcess* owner) {
  const std::lock_guard<std::mutex> hold(runningLock());
  std::erase_if(running(), [&](const Running& r) { return r.owner == owner; });
}

// Settings of the private profile, in place before the office makes the rest of it: no lock
// files beside the documents it opens (an office stopped mid-run would leave them behind).
void writeProfileSettings(const std::filesystem::path& profile) {
  std::filesystem::create_directories(profile / "user");
  std::ofstream out(profile / "user" / "registrymodifications.xcu");
  out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<oor:items xmlns:oor=\"http://openoffice.org/2001/registry\" "
         "xmlns:xs=\"http://www.w3.org/2001/XMLSchema\" "
         "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">\n"
         "<item oor:path=\"/org.openoffice.Office.Common/Misc\"><prop oor:name=\"UseLocking\" "
         "oor:op=\"fuse\"><value>false</value></prop></item>\n"
         "</oor:items>\n";
  if (!out) throw OfficeError("cannot prepare LibreOffice's profile in " + profile.string());
}

}  // namespace

OfficeProcess::OfficeProcess() : folder_(makeTemporaryFolder()) {
  try {
    writeProfileSettings(folder_ / "profile");
    port_ = freeLocalPort();
    spawn();
  } catch (...) {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
    throw;
  }
}

OfficeProcess::~OfficeProcess() { stop(); }

std::string OfficeProcess::connectionDescription() const {
  return "socket,host=127.0.0.1,port=" + std::to_string(port_) + ";urp";
}

void OfficeProcess::spawn() {
  const std::string program = std::string(ORV_OFFICE_PROGRAM_DIR) + "/soffice.bin";
  std::vector<std::string> args = {
      program,
      "--headless",
      "--invisible",
      "--nologo",
      "--norestore",
      "--nodefault",
      "--nolockcheck",
      "-env:UserInstallation=file://" + (folder_ / "profile").string(),
      "--accept=" + connectionDescription() + ";StarOffice.ComponentContext",
  };
  std::vector<char*> argv;
  for (std::string& a : args) argv.push_back(a.data());
  argv.push_back(nullptr);

  const std::string log = (folder_ / "office.log").string();
  const pid_t parent = ::getpid();
  const pid_t child = ::fork();
  if (child < 0) throw OfficeError("cannot start LibreOffice (" + program + "): " + systemMessage(errno));
  if (child == 0) {
    // Only async-signal-safe calls from here to exec. The office dies with us even when we are
    // killed outright, so that no office outlives the command that started it; it gets a
    // process group of its own, so that a Ctrl-C at the terminal reaches us and not it (we
    // stop it ourselves); and it starts with no signal blocked, whatever the caller blocks.
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) ::_exit(127);
    ::setpgid(0, 0);
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    for (int s : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) ::signal(s, SIG_DFL);
    const int in = ::open("/dev/null", O_RDONLY);
    const int out = ::open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    if (in < 0 || out < 0) ::_exit(127);
    ::dup2(in, STDIN_FILENO);
    ::dup2(out, STDOUT_FILENO);
    ::dup2(out, STDERR_FILENO);
    ::execve(program.c_str(), argv.data(), environ);
    ::_exit(127);
  }
  pid_ = child;
  exitCode_.reset();
  enlist(this, pid_, folder_);
}

std::optional<int> OfficeProcess::exitCode() {
  if (exitCode_ || pid_ < 0) return exitCode_;
  int status = 0;
  const pid_t done = ::waitpid(pid_, &status, WNOHANG);
  if (done == pid_) exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  if (done < 0) exitCode_ = -1;  // not our child any more: treat it as gone
  return exitCode_;
}

void OfficeProcess::respawn() {
  if (!exitCode()) throw OfficeError("the office was asked to start again while it still runs");
  spawn();
}

void OfficeProcess::stop() {
  delist(this);
  if (pid_ > 0 && !exitCode()) {
    ::kill(pid_, SIGTERM);
    const auto deadline = std::chrono::steady_clock::now() + kGracefulStop;
    while (!exitCode() && std::chrono::steady_clock::now() < deadline) std::this_thread::sleep_for(kPoll);
    if (!exitCode()) {
      ::kill(pid_, SIGKILL);
      int status = 0;
      ::waitpid(pid_, &status, 0);
      exitCode_ = -1;
    }
  }
  if (!folder_.empty()) {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
    folder_.clear();
  }
}

void OfficeProcess::stopAll() {
  const std::lock_guard<std::mutex> hold(runningLock());
  for (const Running& r : running()) {
    ::kill(r.pid, SIGKILL);
    int status = 0;
    ::waitpid(r.pid, &status, 0);
    std::error_code ignored;
    std::filesystem::remove_all(r.folder, ignored);
  }
  running().clear();
}

std::string OfficeProcess::logTail() const {
  if (folder_.empty()) return {};
  std::ifstream in(folder_ / "office.log", std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (text.size() > kLogTailBytes) text.erase(0, text.size() - kLogTailBytes);
  while (!text.empty() && (text.back() == '\n' || text.back() == ' ')) text.pop_back();
  return text;
}

}  // namespace orv::calc
