#pragma once
// Runs independent pieces of work on the machine's cores and hands their results back one by one
// in their own order, on the calling thread.
//
// The drivers compute one column after another, and the first failure in column order is the
// one the caller sees. Here `produce(i)` may run on any thread and in any order, but
// `consume(i, result)` runs on the calling thread for i = 0, 1, 2 ... exactly as a plain loop
// would call it, and a failure of produce(i) is rethrown at the moment result i would have been
// consumed. Whatever consume does (writing a table, raising the first error) is therefore the
// same as in the sequential loop. produce must only read shared state.
//
// When consume throws, the other threads finish the piece they hold and stop; nothing outlives
// the call.

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <vector>

namespace orv {

// The threads to use besides the caller's: one fewer than the cores, at most three.
std::size_t helperThreadCount();

template <class Result, class Produce, class Consume>
void orderedParallel(std::size_t count, Produce&& produce, Consume&& consume) {
  struct Slot {
    std::optional<Result> result;
    std::exception_ptr failure;
    bool done = false;
  };
  std::vector<Slot> slots(count);
  std::atomic<std::size_t> next{0};
  std::atomic<bool> stop{false};
  std::mutex mutex;
  std::condition_variable finished;

  // Claims the next unstarted piece and computes it; false when none is left.
  const auto work = [&]() -> bool {
    const std::size_t i = next.fetch_add(1);
    if (i >= count || stop.load()) return false;
    std::optional<Result> result;
    std::exception_ptr failure;
    try {
      result.emplace(produce(i));
    } catch (...) {
      failure = std::current_exception();
    }
    {
      const std::lock_guard<std::mutex> lock(mutex);
      slots[i].result = std::move(result);
      slots[i].failure = failure;
      slots[i].done = true;
    }
    finished.notify_all();
    return true;
  };

  std::vector<std::thread> helpers;
  const std::size_t extra = count > 1 ? std::min(helperThreadCount(), count - 1) : 0;
  // Stops and joins the helpers however this function is left.
  struct Joiner {
    std::vector<std::thread>& threads;
    std::atomic<bool>& stop;
    ~Joiner() {
      stop.store(true);
      for (std::thread& t : threads) t.join();
    }
  } joiner{helpers, stop};
  for (std::size_t t = 0; t < extra; ++t) {
    try {
      helpers.emplace_back([&work] {
        while (work()) {
        }
      });
    } catch (const std::system_error&) {
      break;  // no more threads to be had: the calling thread does the rest itself
    }
  }

  for (std::size_t i = 0; i < count; ++i) {
    // Help with the remaining pieces until piece i is ready.
    for (;;) {
      {
        const std::lock_guard<std::mutex> lock(mutex);
        if (slots[i].done) break;
      }
      if (!work()) {
        // Every piece is taken: piece i is being computed elsewhere.
        std::unique_lock<std::mutex> lock(mutex);
        finished.wait(lock, [&] { return slots[i].done; });
        break;
      }
    }
    Slot slot;
    {
      const std::lock_guard<std::mutex> lock(mutex);
      slot = std::move(slots[i]);
    }
    if (slot.failure) std::rethrow_exception(slot.failure);
    consume(i, std::move(*slot.result));
  }
}

}  // namespace orv
