#pragma once
// Progress of long work on standard error, shown only when standard error is a terminal, so that
// pipes and logs stay clean.

#include <string_view>

namespace orv::cli {

class Progress {
 public:
  Progress();
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // Replaces the current status line.
  void step(std::string_view what);
  // Clears the status line before ordinary output follows.
  void clear();

 private:
  bool enabled_;
  bool shown_ = false;
};

}  // namespace orv::cli
