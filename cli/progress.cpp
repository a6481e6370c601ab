#include "cli/progress.h"

#include <unistd.h>

#include <cstdio>

#include "frame/work_progress.h"

namespace orv::cli {
namespace {

constexpr std::chrono::milliseconds kRedrawEvery{100};

}  // namespace

Progress::Progress() : enabled_(isatty(STDERR_FILENO) == 1) {
  if (enabled_) setWorkObserver([this](std::uint64_t done, std::uint64_t total) { advance(done, total); });
}

Progress::~Progress() {
  if (enabled_) setWorkObserver({});
  clear();
}

void Progress::step(std::string_view what) {
  if (!enabled_) return;
  const std::lock_guard lock(mutex_);
  what_ = what;
  percent_ = -1;
  draw();
}

void Progress::clear() {
  const std::lock_guard lock(mutex_);
  if (!shown_) return;
  std::fprintf(stderr, "\r\033[K");
  std::fflush(stderr);
  shown_ = false;
}

void Progress::advance(std::uint64_t done, std::uint64_t total) {
  if (total == 0 || done > total) return;
  const int percent = static_cast<int>(done * 100 / total);
  const std::lock_guard lock(mutex_);
  if (!shown_ || percent == percent_) return;
  if (percent < 100 && std::chrono::steady_clock::now() - drawn_ < kRedrawEvery) return;
  percent_ = percent;
  draw();
}

void Progress::draw() {
  std::string line = "\r\033[K" + what_;
  if (percent_ >= 0) line += " " + std::to_string(percent_) + "%";
  std::fputs(line.c_str(), stderr);
  std::fflush(stderr);
  shown_ = true;
  drawn_ = std::chrono::steady_clock::now();
}

}  // namespace orv::cli
