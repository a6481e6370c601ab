#include "frame/work_progress.h"

#include <atomic>
#include <memory>
#include <utility>

namespace orv {
namespace {

// Replaced whole, never changed in place, so that a reporter holding the old one finishes safely.
std::shared_ptr<const WorkObserver>& current() {
  static std::shared_ptr<const WorkObserver> observer;
  return observer;
}

}  // namespace

WorkObserver setWorkObserver(WorkObserver observer) {
  std::shared_ptr<const WorkObserver> next =
      observer ? std::make_shared<const WorkObserver>(std::move(observer)) : nullptr;
  std::shared_ptr<const WorkObserver> previous = std::atomic_exchange(&current(), std::move(next));
  return previous ? *previous : WorkObserver{};
}

void reportWork(std::uint64_t done, std::uint64_t total) {
  const std::shared_ptr<const WorkObserver> observer = std::atomic_load(&current());
  if (observer) (*observer)(done, total);
}

}  // namespace orv
