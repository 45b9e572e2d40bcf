// The references that the member unary minus of the double matrix returns.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "linalg/matrices.h"
#include "support/allocation.h"
#include "support/child.h"

using namespace zeph::test;

TEST(NegationLifetime, TheLastSixteenResultsStayValid) {
  std::vector<CZEPHDoubleMatrix*> results;
  for (int n = 1; n <= 100; ++n) {
    CZEPHDoubleMatrix a(2, 2, n);
    results.push_back(&-a);
    for (int back = 0; back < 16 && back < n; ++back) {
      CZEPHDoubleMatrix& old = *results[results.size() - 1 - static_cast<std::size_t>(back)];
      ASSERT_EQ(old.m_nRows, 2) << "n " << n << ", back " << back;
      EXPECT_EQ(old[1][1], back - n) << "n " << n << ", back " << back;
    }
  }
}

TEST(NegationLifetime, TheOldestValidResultCanBeNegatedAndStaysUnchanged) {
  CZEPHDoubleMatrix a(1, 1, 1.0);
  CZEPHDoubleMatrix& oldest = -a;
  for (int i = 0; i < 15; ++i) -a;
  CZEPHDoubleMatrix& again = -oldest;
  EXPECT_EQ(oldest[0][0], -1.0);
  EXPECT_EQ(again[0][0], 1.0);
}

TEST(NegationLifetime, OtherThreadsDoNotTouchThisThreadsResults) {
  CZEPHDoubleMatrix a(1, 1, 5.0);
  CZEPHDoubleMatrix& mine = -a;
  std::thread([] {
    CZEPHDoubleMatrix b(1, 1, 7.0);
    for (int i = 0; i < 100; ++i) EXPECT_EQ((-b)[0][0], -7.0) << "i " << i;
  }).join();
  EXPECT_EQ(mine[0][0], -5.0);
}

TEST(NegationLifetime, AThreadsResultsAreReleasedWhenItEnds) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  const auto negateInAThread = [] {
    std::thread([] {
      CZEPHDoubleMatrix b(3, 3, 7.0);
      for (int i = 0; i < 20; ++i) -b;
    }).join();
  };
  negateInAThread();
  const long before = LiveBlocks();
  for (int i = 0; i < 10; ++i) negateInAThread();
  EXPECT_EQ(LiveBlocks(), before);
}

TEST(NegationLifetime, AThreadHoldsSeventeenMatricesAtMost) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  std::thread([] {
    constexpr int kPlaces = 17, kRows = 3;
    CZEPHDoubleMatrix a(kRows, 3, 7.0), rowless(0, 3, 7.0);
    const auto negate = [](CZEPHDoubleMatrix& m, int times) {
      for (int i = 0; i < times; ++i) -m;
      return LiveBlocks();
    };
    const long full = negate(a, kPlaces);
    EXPECT_EQ(negate(a, 100), full);
    EXPECT_EQ(full - negate(rowless, kPlaces), kPlaces * kRows);
  }).join();
}

TEST(NegationLifetime, ManyThreadsMayNegateAtOnce) {
  std::vector<std::thread> threads;
  std::atomic<int> wrong{0};
  for (int t = 0; t < 8; ++t)
    threads.emplace_back([t, &wrong] {
      CZEPHDoubleMatrix b(2, 3, t);
      for (int i = 0; i < 200; ++i)
        if ((-b)[1][2] != 0.0 - t) ++wrong;
    });
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(wrong, 0);
}

TEST(NegationLifetime, FallsBackToSharedStorageWithoutMemoryForTheThreads) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  for (const Failure how : {Failure::kBadAlloc, Failure::kMemoryException})
    std::thread([how] {  // has no storage for results yet
      CZEPHDoubleMatrix b(2, 2, 3.0);
      CZEPHDoubleMatrix* result = nullptr;
      bool fired;
      {
        FailAllocation failing(4, false, how);  // after the result's table and rows
        result = &-b;
        fired = failing.Fired();
      }
      EXPECT_TRUE(fired) << how;
      EXPECT_EQ((*result)[1][1], -3.0) << how;
      EXPECT_EQ((-b)[0][0], -3.0) << how;
    })
        .join();
}

TEST(NegationLifetime, OtherThreadsKeepTheirResultsWhileTheProcessEnds) {
  const auto result = RunChild("zeph_linalg_exit_child", {});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "0 wrong\n");
}

TEST(NegationLifetime, StaticObjectsMayNegateAfterTheResultsWereReleased) {
  const auto result = RunChild("zeph_linalg_negation_end_child", {"end"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out, "ok: at the end\n");
}
