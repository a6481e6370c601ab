#include "support/ordered_parallel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <mutex>
#include <numeric>
#include <set>
#include <stdexcept>
#include <string>
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

std::vector<std::size_t> upTo(std::size_t count) {
  std::vector<std::size_t> all(count);
  std::iota(all.begin(), all.end(), std::size_t{0});
  return all;
}

TEST(OrderedParallel, ConsumesEveryResultInOrderOnTheCallingThread) {
  const auto caller = std::this_thread::get_id();
  for (const std::size_t count : {0, 1, 200}) {  // none and one need no helpers
    std::vector<std::size_t> seen;
    orderedParallel<std::size_t>(count, slowSquare, [&](std::size_t i, std::size_t square) {
      EXPECT_EQ(std::this_thread::get_id(), caller);
      EXPECT_EQ(square, i * i);
      seen.push_back(i);
    });
    EXPECT_EQ(seen, upTo(count));
  }
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

// The pipeline in both modes: serial (a host only its own thread may call) and parallel.
class OrderedPipeline : public ::testing::TestWithParam<bool> {};
INSTANTIATE_TEST_SUITE_P(SerialAndParallel, OrderedPipeline, ::testing::Bool());

TEST_P(OrderedPipeline, ReadsAndCollectsOnTheCallingThreadAndComputesThereOnlyWhenSerial) {
  const bool parallel = GetParam();
  const auto caller = std::this_thread::get_id();
  std::mutex mutex;
  std::vector<std::size_t> read;
  std::set<std::thread::id> computedOn;
  std::vector<std::size_t> collected;
  orderedPipeline<std::size_t, std::size_t>(
      64, parallel,
      [&](std::size_t i) {
        EXPECT_EQ(std::this_thread::get_id(), caller);
        read.push_back(i);
        return i;
      },
      [&](std::size_t i) {
        {
          const std::lock_guard<std::mutex> lock(mutex);
          computedOn.insert(std::this_thread::get_id());
        }
        return slowSquare(i);
      },
      [&](std::size_t i, std::size_t square) {
        EXPECT_EQ(std::this_thread::get_id(), caller);
        EXPECT_EQ(square, i * i);
        collected.push_back(i);
      });
  EXPECT_EQ(read, upTo(64));
  EXPECT_EQ(collected, upTo(64));
  if (!parallel) {
    EXPECT_EQ(computedOn, std::set<std::thread::id>{caller});
  }
}

TEST_P(OrderedPipeline, TheFirstFailureInOrderWinsWhetherItCameFromReadingOrComputing) {
  const struct {
    std::size_t readFails, computeFails;
    const char* reported;
  } rows[] = {
      {20, 40, "read 20"},     // nothing after a failed read is read, let alone computed
      {40, 20, "compute 20"},  // an earlier computation fails before the later read
      {20, 20, "read 20"},     // a piece that cannot be read is never computed
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.reported);
    std::size_t lastRead = 0;
    std::vector<std::size_t> collected;
    try {
      orderedPipeline<std::size_t, std::size_t>(
          60, GetParam(),
          [&](std::size_t i) {
            lastRead = i;
            if (i == row.readFails) throw std::runtime_error("read " + std::to_string(i));
            return i;
          },
          [&](std::size_t i) {
            if (i == row.computeFails) throw std::runtime_error("compute " + std::to_string(i));
            return slowSquare(i);
          },
          [&](std::size_t i, std::size_t) { collected.push_back(i); });
      ADD_FAILURE() << "no failure came through";
    } catch (const std::runtime_error& e) {
      EXPECT_STREQ(e.what(), row.reported);
    }
    EXPECT_EQ(collected.size(), 20U);
    EXPECT_LE(lastRead, row.readFails);
  }
}

TEST_P(OrderedPipeline, ReadsOnlyAFewPiecesAheadOfTheOneItCollects) {
  std::size_t read = 0;
  std::size_t mostAhead = 0;
  orderedPipeline<std::size_t, std::size_t>(
      2000, GetParam(),
      [&](std::size_t i) {
        read = i + 1;
        return i;
      },
      slowSquare, [&](std::size_t i, std::size_t) { mostAhead = std::max(mostAhead, read - i); });
  // However many pieces there are, the inputs held at once stay near the number of threads.
  EXPECT_LE(mostAhead, 16U);
}

}  // namespace
}  // namespace orv
