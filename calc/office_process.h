#pragma once
// OfficeProcess: a headless office of our own for one session.
//
// The office runs from ORV_OFFICE_PROGRAM_DIR with a user profile in a fresh temporary folder (so
// it never touches the user's own settings or a running office) and listens on a free local port
// for one UNO connection. It is stopped by its process id, never by name: SIGTERM, then SIGKILL
// if it has not gone within a few seconds; the temporary folder goes with it. Should the starting
// process be killed outright, the kernel stops the office too (a parent-death signal), so start
// it from a thread that lives as long as the office is needed.
//
// The office's first start in a new profile ends with exit code 81 once the profile is made and
// asks to be started again; OfficeConnection (office_connection.h) does that through respawn().
// What the office prints goes to a log file in the temporary folder, quoted by failures.
//
// Failures to start raise OfficeError. stopAll() stops every running office at once, for a
// program ended by an interrupt.

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>

namespace orv::calc {

// The office could not be started, reached or used; the message says why, for people.
class OfficeError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class OfficeProcess {
 public:
  // Exit code of an office that has made its profile and wants to be started again.
  static constexpr int kRestartCode = 81;

  OfficeProcess();   // starts the office
  ~OfficeProcess();  // stop()
  OfficeProcess(const OfficeProcess&) = delete;
  OfficeProcess& operator=(const OfficeProcess&) = delete;

  pid_t pid() const { return pid_; }
  int port() const { return port_; }
  // The UNO connection description ("socket,host=127.0.0.1,port=N;urp").
  std::string connectionDescription() const;

  // The exit code once the process has ended (-1 when a signal ended it), nothing while it runs.
  std::optional<int> exitCode();
  // Starts the office again after it ended, on the same profile and port.
  void respawn();
  // Stops the office and removes the temporary folder; safe to call more than once.
  void stop();

  // The last lines the office wrote to its log, for messages.
  std::string logTail() const;

  // Kills every office of this process that is not stopped yet, by its process id, and removes
  // its temporary folder; for a program that is about to end on an interrupt. Thread-safe: it may
  // run while the offices are in use; their owners then find them gone.
  static void stopAll();

 private:
  void spawn();

  std::filesystem::path folder_;
  int port_ = 0;
  pid_t pid_ = -1;
  std::optional<int> exitCode_;
};

}  // namespace orv::calc
