// The pool alone. The shared library hides it, so this program contains its own copy.
#include "parallel/pool.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cfenv>
#include <set>
#include <thread>
#include <vector>

#include "parallel/modes.h"
#include "parallel/range.h"
#include "parallel/settings.h"
#include "platform/threads.h"
#include "support/modes.h"
#include "support/scale.h"

namespace zeph::parallel {
namespace {

class Pool : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!platform::kThreadsExist) GTEST_SKIP() << "there are no threads";
  }
  void TearDown() override { SetEverybodys(1); }
};

/// Makes `threads` threads work at once: each piece waits until the others have begun.
void MeetInPieces(int threads) {
  std::atomic<int> there{0};
  Share(threads, static_cast<std::size_t>(threads), [&](std::size_t) {
    ++there;
    while (there < threads) std::this_thread::yield();
  });
}

TEST_F(Pool, EveryPieceRunsOnceForAnyNumberOfThreadsAndPieces) {
  for (int threads = 1; threads <= 8; ++threads)
    for (std::size_t pieces = 0; pieces <= 40; ++pieces) {
      std::vector<std::atomic<int>> runs(pieces);
      Share(threads, pieces, [&](std::size_t k) { ++runs[k]; });
      for (const auto& times : runs) ASSERT_EQ(times, 1) << threads << " threads, " << pieces;
    }
}

TEST_F(Pool, WhatPiecesWriteIsThereWhenTheCallReturns) {
  for (std::size_t round = 0; round < test::Scaled<std::size_t>(2000, 200); ++round) {
    std::vector<std::size_t> left(64);  // plain memory
    Share(4, left.size(), [&](std::size_t k) { left[k] = k + round; });
    for (std::size_t k = 0; k < left.size(); ++k) ASSERT_EQ(left[k], k + round);
  }
}

TEST_F(Pool, AsManyThreadsAsAskedForWorkAtOnce) {
  for (int threads : {2, 3, 8, 5}) MeetInPieces(threads);
  EXPECT_EQ(Workers(), 7);
}

TEST_F(Pool, StartsNothingForOneThreadOrOnePiece) {
  SetEverybodys(1);
  Share(1, 100, [](std::size_t) {});
  Share(8, 1, [](std::size_t) {});
  EXPECT_EQ(Workers(), 0);
}

TEST_F(Pool, EndsAndBeginsAnew) {
  for (int round = 0; round < 20; ++round) {
    MeetInPieces(4);
    EXPECT_EQ(Workers(), 3);
    EndWorkers();
    EXPECT_EQ(Workers(), 0);
  }
}

TEST_F(Pool, SeveralCallersShareTheWorkersAndNoneWaitsForAnother) {
  constexpr int kCallers = 8;
  std::vector<std::thread> callers;
  std::atomic<int> wrong{0};
  for (int c = 0; c < kCallers; ++c)
    callers.emplace_back([&wrong] {
      for (std::size_t round = 0; round < test::Scaled<std::size_t>(500, 50); ++round) {
        std::atomic<std::size_t> sum{0};
        Share(4, 16, [&](std::size_t k) { sum += k; });
        if (sum != 120) ++wrong;
      }
    });
  for (auto& caller : callers) caller.join();
  EXPECT_EQ(wrong, 0);
  EXPECT_LE(Workers(), 3);
}

TEST_F(Pool, APieceMayShareItsOwnWork) {
  for (int round = 0; round < 50; ++round) {
    std::atomic<int> runs{0};
    Share(4, 6, [&](std::size_t) {
      Share(4, 6, [&](std::size_t) { Share(3, 3, [&](std::size_t) { ++runs; }); });
    });
    ASSERT_EQ(runs, 108);
  }
}

TEST_F(Pool, MayBeEndedWhileOthersWork) {
  std::atomic<bool> stop{false};
  std::atomic<int> wrong{0};
  std::vector<std::thread> callers;
  for (int c = 0; c < 3; ++c)
    callers.emplace_back([&] {
      while (!stop) {
        std::atomic<int> runs{0};
        Share(3, 9, [&](std::size_t) { ++runs; });
        if (runs != 9) ++wrong;
      }
    });
  std::thread other([&] {
    for (int k = 0; k < 100; ++k) EndWorkers();
  });
  for (int k = 0; k < 100; ++k) EndWorkers();
  other.join();
  stop = true;
  for (auto& caller : callers) caller.join();
  EXPECT_EQ(wrong, 0);
}

#if defined(FE_DOWNWARD)
TEST_F(Pool, PiecesRunInTheCallersFloatingPointModes) {
  const volatile double one = 1, three = 3, tiny = 1e-310;
  for (const test::Mode& mode : test::Modes()) {
    double here[2] = {}, there[8][2] = {};
    const auto measure = [&](double* to) {
      to[0] = one / three;
      to[1] = tiny * three;
    };
    test::RaisedBy(mode, [&] {
      measure(here);
      std::atomic<int> begun{0};
      Share(8, 8, [&](std::size_t k) {
        ++begun;
        while (begun < 8) std::this_thread::yield();
        measure(there[k]);
      });
    });
    for (const auto& one_of : there) {
      EXPECT_EQ(one_of[0], here[0]) << mode.name;
      EXPECT_EQ(one_of[1], here[1]) << mode.name;
    }
  }
}

TEST_F(Pool, ExceptionsRaisedByAnyPieceAreTheCallers) {
  if (!test::HasFloatingPointEnvironment())
    GTEST_SKIP() << "this processor's environment is not a whole one";
  const volatile double one = 1, zero = 0;
  const test::Mode& usual = test::Modes().front();
  for (std::size_t raising = 0; raising < 4; ++raising) {
    volatile double sink = 0;
    const int raised = test::RaisedBy(usual, [&] {
      std::atomic<int> begun{0};
      Share(4, 4, [&](std::size_t k) {
        ++begun;
        while (begun < 4) std::this_thread::yield();
        if (k == raising) sink = one / zero;
      });
    });
    EXPECT_EQ(raised, FE_DIVBYZERO);
  }
  EXPECT_EQ(test::RaisedBy(usual, [] { MeetInPieces(4); }), 0);
}
#endif

TEST(Ranges, PartsCoverEverythingOnceAndBeginAtGrains) {
  for (std::size_t n : {1u, 7u, 8u, 9u, 64u, 100u, 1000u, 1003u})
    for (std::size_t grain : {1u, 4u, 8u})
      for (std::size_t parts = 1; parts <= (n + grain - 1) / grain && parts <= 20; ++parts) {
        std::size_t next = 0, shortest = n, longest = 0;
        for (std::size_t k = 0; k < parts; ++k) {
          const Part part = PartOf(n, grain, parts, k);
          ASSERT_EQ(part.first, next);
          ASSERT_EQ(part.first % grain, 0u);
          ASSERT_GT(part.count, 0u);
          shortest = std::min(shortest, part.count);
          longest = std::max(longest, part.count);
          next += part.count;
        }
        ASSERT_EQ(next, n);
        ASSERT_LT(longest - shortest, 2 * grain);
      }
}

TEST(Ranges, LittleWorkAsksForNoThread) {
  if (!platform::kThreadsExist) GTEST_SKIP() << "there are no threads";
  EXPECT_EQ(ThreadsFor(1'000'000, 1000), 1);
  SetEverybodys(6);
  EXPECT_EQ(ThreadsFor(999, 1000), 1);
  EXPECT_EQ(ThreadsFor(1000, 1000), 2);
  EXPECT_EQ(ThreadsFor(1999, 1000), 3);
  EXPECT_EQ(ThreadsFor(1'000'000, 1000), 6);
  SetEverybodys(1);
  EXPECT_EQ(ThreadsFor(1'000'000, 1000), 1);
}

}  // namespace
}  // namespace zeph::parallel
