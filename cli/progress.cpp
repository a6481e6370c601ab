#include "cli/progress.h"

#include <unistd.h>

#include <cstdio>

namespace orv::cli {

Progress::Progress() : enabled_(isatty(STDERR_FILENO) == 1) {}

Progress::~Progress() { clear(); }

void Progress::step(std::string_view what) {
  if (!enabled_) return;
  std::fprintf(stderr, "\r\033[K%.*s", static_cast<int>(what.size()), what.data());
  std::fflush(stderr);
  shown_ = true;
}

void Progress::clear() {
  if (!shown_) return;
  std::fprintf(stderr, "\r\033[K");
  std::fflush(stderr);
  shown_ = false;
}

}  // namespace orv::cli
