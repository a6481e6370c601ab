#include "support/ordered_parallel.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <vector>

namespace orv {
namespace {

// Uneven amounts of work, so that later pieces often finish before earlier ones.
std::size_t slowSquare(std::size_t i) {
  volatile std::size_t sink = 0;
  for (std::size_t k = 0; k < (i % 7) * 20000; ++k) sink = sink + k;
  return i * i;
}

TEST(OrderedParallel, ConsumesEveryResultInOrderOnTheCallingThread) {
  const auto caller = std::this_thread::get_id();
  std::vector<std::size_t> seen;
  orderedParallel<std::size_t>(200, slowSquare, [&](std::size_t i, std::size_t square) {
    EXPECT_EQ(std::this_thread::get_id(), caller);
    EXPECT_EQ(square, i * i);
    seen.push_back(i);
  });
  ASSERT_EQ(seen.size(), 200U);
  for (std::size_t i = 0; i < seen.size(); ++i) EXPECT_EQ(seen[i], i);
}

TEST(OrderedParallel, TheFirstFailureInOrderIsRethrownWhereTheLoopWouldHaveMetIt) {
  // Pieces 30 and 60 fail; 60 may well fail first in time, but 30 is the one reported, after
  // exactly the pieces before it were consumed.
  std::vector<std::size_t> consumed;
  const auto produce = [](std::size_t i) -> std::size_t {
    if (i == 60) throw std::runtime_error("sixty");
    if (i == 30) {
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
      throw std::runtime_error("thirty");
    }
    return slowSquare(i);
  };
  try {
    orderedParallel<std::size_t>(100, produce, [&](std::size_t i, std::size_t) { consumed.push_back(i); });
    FAIL() << "no failure came through";
  } catch (const std::runtime_error& e) {
    EXPECT_STREQ(e.what(), "thirty");
  }
  EXPECT_EQ(consumed.size(), 30U);
}

TEST(OrderedParallel, AFailingConsumerStopsTheWork) {
  std::size_t produced = 0;
  std::mutex mutex;
  const auto produce = [&](std::size_t i) {
    std::this_thread::sleep_for(std::chrono::microseconds(100));
    const std::lock_guard<std::mutex> lock(mutex);
    ++produced;
    return i;
  };
  EXPECT_THROW(orderedParallel<std::size_t>(100000, produce,
                                            [](std::size_t i, std::size_t) {
                                              if (i == 3) throw std::logic_error("stop");
                                            }),
               std::logic_error);
  // Each thread finishes at most the piece it holds once the consumer has failed; without the
  // stop, the helpers would go on through all the pieces.
  EXPECT_LT(produced, 1000U);
}

TEST(OrderedParallel, NoPiecesAndOnePieceNeedNoHelpers) {
  int calls = 0;
  orderedParallel<int>(0, [](std::size_t) { return 1; }, [&](std::size_t, int) { ++calls; });
  EXPECT_EQ(calls, 0);
  orderedParallel<int>(1, [](std::size_t) { return 7; }, [&](std::size_t, int v) { calls += v; });
  EXPECT_EQ(calls, 7);
}

}  // namespace
}  // namespace orv
