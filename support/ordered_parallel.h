#pragma once
// Independent pieces of work (the data columns of an analysis), done in three stages:
//
//   read(i)        on the calling thread, for i = 0, 1, 2 ... in order: takes what piece i needs
//                  from the host, whose objects belong to that thread (frame/host.h);
//   compute(input) on any thread, in any order: works on the plain input alone;
//   collect(i, r)  on the calling thread, for i = 0, 1, 2 ... in order.
//
// Whatever the threads do, the caller sees what the plain loop
//   for (i = 0; i < count; ++i) collect(i, compute(read(i)));
// shows: collect runs in that order, and a failure of read(i) or compute(i) is rethrown at the
// moment result i would have been collected, so the first failure in column order is the one
// reported and no later piece is read after a failed read. With `parallel` false (a host whose
// functions only its own thread may call), a single piece or a single core, that loop is what
// runs.
//
// The calling thread reads only a few pieces ahead of the one it collects, so the inputs held at
// once stay bounded by the number of threads rather than by the number of pieces. When collect
// throws, the helper threads finish the piece they hold and stop; nothing outlives the call.
// Each piece collected is reported as done (frame/work_progress.h).

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "frame/work_progress.h"

namespace orv {

// The threads to use besides the caller's: one fewer than the cores, at most three.
std::size_t helperThreadCount();

namespace detail {

// The shared state of one parallel run: the pieces read so far, the results, the helpers.
template <class Input, class Result>
class Pipeline {
 public:
  struct Slot {
    std::optional<Input> input;
    std::optional<Result> result;
    std::exception_ptr failure;
    bool done = false;
  };

  template <class Compute>
  Pipeline(std::size_t count, std::size_t helpers, Compute& compute) : slots_(count), end_(count) {
    for (std::size_t t = 0; t < helpers; ++t) {
      try {
        threads_.emplace_back([this, &compute] {
          while (workOrWait(compute)) {
          }
        });
      } catch (const std::system_error&) {
        break;  // no more threads to be had: the calling thread does the rest itself
      }
    }
  }
  Pipeline(const Pipeline&) = delete;
  Pipeline& operator=(const Pipeline&) = delete;
  ~Pipeline() {
    {
      const std::lock_guard<std::mutex> lock(mutex_);
      stop_ = true;
    }
    changed_.notify_all();
    for (std::thread& t : threads_) t.join();
  }

  // The calling thread has read piece i (in order).
  void publish(std::size_t i, Input input) {
    {
      const std::lock_guard<std::mutex> lock(mutex_);
      slots_[i].input.emplace(std::move(input));
      published_ = i + 1;
    }
    changed_.notify_all();
  }

  // Reading piece i failed: it is done with that failure, and no later piece will come.
  void failRead(std::size_t i, std::exception_ptr failure) {
    {
      const std::lock_guard<std::mutex> lock(mutex_);
      slots_[i].failure = std::move(failure);
      slots_[i].done = true;
      end_ = i;
    }
    changed_.notify_all();
  }

  // Piece i once it is done, the calling thread computing other pieces meanwhile.
  template <class Compute>
  Slot await(std::size_t i, Compute& compute) {
    std::unique_lock<std::mutex> lock(mutex_);
    for (;;) {
      if (slots_[i].done) return std::move(slots_[i]);
      if (claimed_ < published_) {
        runClaimed(lock, compute);
        continue;
      }
      changed_.wait(lock, [&] { return slots_[i].done || claimed_ < published_; });
    }
  }

 private:
  // A helper's round: computes the next published piece, or waits for one; false when no piece
  // is left to claim.
  template <class Compute>
  bool workOrWait(Compute& compute) {
    std::unique_lock<std::mutex> lock(mutex_);
    changed_.wait(lock, [&] { return stop_ || claimed_ < published_ || claimed_ >= end_; });
    if (stop_ || claimed_ >= end_) return false;
    runClaimed(lock, compute);
    return true;
  }

  // Claims the next published piece and computes it with the lock released; returns locked.
  template <class Compute>
  void runClaimed(std::unique_lock<std::mutex>& lock, Compute& compute) {
    const std::size_t i = claimed_++;
    Input input = std::move(*slots_[i].input);
    slots_[i].input.reset();
    lock.unlock();
    std::optional<Result> result;
    std::exception_ptr failure;
    try {
      result.emplace(compute(std::move(input)));
    } catch (...) {
      failure = std::current_exception();
    }
    lock.lock();
    slots_[i].result = std::move(result);
    slots_[i].failure = std::move(failure);
    slots_[i].done = true;
    changed_.notify_all();
  }

  std::vector<Slot> slots_;
  std::size_t published_ = 0;  // pieces 0 .. published_ - 1 have been read
  std::size_t claimed_ = 0;    // pieces 0 .. claimed_ - 1 are being or have been computed
  std::size_t end_;            // no piece from here on will be read
  bool stop_ = false;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<std::thread> threads_;  // last: joined before the state above goes
};

}  // namespace detail

template <class Input, class Result, class Read, class Compute, class Collect>
void orderedPipeline(std::size_t count, bool parallel, Read&& read, Compute&& compute, Collect&& collect) {
  const std::size_t helpers = parallel && count > 1 ? std::min(helperThreadCount(), count - 1) : 0;
  if (helpers == 0) {
    for (std::size_t i = 0; i < count; ++i) {
      collect(i, compute(read(i)));
      reportWork(i + 1, count);
    }
    return;
  }
  detail::Pipeline<Input, Result> pipeline(count, helpers, compute);
  const std::size_t readAhead = 2 * (helpers + 1);
  std::size_t next = 0;  // the next piece to read
  bool readFailed = false;
  for (std::size_t i = 0; i < count; ++i) {
    for (; next < count && next < i + readAhead && !readFailed; ++next) {
      try {
        pipeline.publish(next, read(next));
      } catch (...) {
        pipeline.failRead(next, std::current_exception());
        readFailed = true;
      }
    }
    typename detail::Pipeline<Input, Result>::Slot slot = pipeline.await(i, compute);
    if (slot.failure) std::rethrow_exception(slot.failure);
    collect(i, std::move(*slot.result));
    reportWork(i + 1, count);
  }
}

// The pipeline without a host to read from: produce(i) may run on any thread.
template <class Result, class Produce, class Consume>
void orderedParallel(std::size_t count, Produce&& produce, Consume&& consume) {
  orderedPipeline<std::size_t, Result>(
      count, true, [](std::size_t i) { return i; }, produce, consume);
}

}  // namespace orv
