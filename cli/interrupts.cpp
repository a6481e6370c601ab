#include "cli/interrupts.h"

#include <pthread.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <mutex>
#include <string_view>
#include <thread>
#include <vector>

#include "cli/standard_input.h"
#include "xlsx/package_atomic_write.h"

namespace orv::cli {
namespace {

// 128 + the signal's number: what a shell reports for a command a signal ended.
constexpr int kSignalExitBase = 128;

sigset_t interrupts() {
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, SIGINT);
  sigaddset(&set, SIGTERM);
  sigaddset(&set, SIGHUP);
  return set;
}

std::mutex& actionsLock() {
  static std::mutex lock;
  return lock;
}

std::vector<void (*)()>& actions() {
  static std::vector<void (*)()> list;
  return list;
}

// Runs as an ordinary thread, not in a signal handler, so it may take locks and walk folders.
[[noreturn]] void awaitInterrupt(sigset_t set) {
  int signal = 0;
  while (sigwait(&set, &signal) != 0) {
  }
  {
    const std::lock_guard<std::mutex> hold(actionsLock());
    for (void (*action)() : actions()) action();
  }
  removeTemporaryFiles();
  removeStandardInputCopies();
  constexpr std::string_view kSaid = "orvella: interrupted\n";
  if (::write(STDERR_FILENO, kSaid.data(), kSaid.size()) < 0) {
    // Nothing more can be said; the exit status still tells.
  }
  ::_exit(kSignalExitBase + signal);
}

}  // namespace

void atInterrupt(void (*action)()) {
  const std::lock_guard<std::mutex> hold(actionsLock());
  if (std::find(actions().begin(), actions().end(), action) == actions().end()) actions().push_back(action);
}

void installInterruptHandling() {
  const sigset_t set = interrupts();
  pthread_sigmask(SIG_BLOCK, &set, nullptr);
  std::thread(awaitInterrupt, set).detach();
}

}  // namespace orv::cli
