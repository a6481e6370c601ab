#pragma once
// Progress of long work on standard error, shown only when standard error is a terminal, so that
// pipes and logs stay clean: one status line ("Reading large.xlsx ... 43%") that each step
// replaces and that is cleared before ordinary output follows.
//
// The percentage comes from what the reading, the analysis and the writing report
// (frame/work_progress.h) while a Progress exists; it is redrawn at most ten times a second, and
// always when a step reaches 100%. A step that reports nothing shows its name alone.

#include <chrono>
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>

namespace orv::cli {

class Progress {
 public:
  Progress();
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // Replaces the current status line; the percentage starts afresh.
  void step(std::string_view what);
  // Clears the status line before ordinary output follows.
  void clear();

 private:
  void advance(std::uint64_t done, std::uint64_t total);
  void draw();  // with mutex_ held

  bool enabled_;
  std::mutex mutex_;
  bool shown_ = false;
  std::string what_;
  int percent_ = -1;  // none shown yet
  std::chrono::steady_clock::time_point drawn_;
};

}  // namespace orv::cli
