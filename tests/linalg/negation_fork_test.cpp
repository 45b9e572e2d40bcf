// What negation keeps for threads, where several have something at once and where the process forks.
#if defined(__linux__)
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <thread>

#include "linalg.h"
#include "support/allocation.h"
#include "support/child.h"
#include "support/scale.h"

TEST(NegationLifetime, TheResultsOfSeveralThreadsAtOnceAreReleasedInAnyOrder) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  CZEPHDoubleMatrix mine(1, 1, 2.0);
  -mine;
  for (const bool earliestFirst : {true, false}) {
    const long before = zeph::test::LiveBlocks();
    {
      std::thread threads[4];
      std::atomic<int> there{0}, mayEnd{-1};
      for (int k = 0; k < 4; ++k) {
        threads[k] = std::thread([&, k] {
          CZEPHDoubleMatrix b(1, 1, 2.0);
          -b;
          ++there;
          while (mayEnd != k) std::this_thread::yield();
        });
        while (there <= k) std::this_thread::yield();
      }
      for (int k = 0; k < 4; ++k) {
        const int next = earliestFirst ? k : 3 - k;
        mayEnd = next;
        threads[next].join();
      }
    }
    EXPECT_EQ(before, zeph::test::LiveBlocks());
  }
}

TEST(NegationLifetime, TheChildOfAForkCanNegateWhileOtherThreadsStartAndEnd) {
#ifdef ZEPH_TEST_SANITIZED
  GTEST_SKIP() << "a fork of a program with threads disturbs the sanitizer's allocator";
#endif
  if (zeph::test::ChildrenAreEmulated())
    GTEST_SKIP() << "the emulator has threads of its own, which a fork disturbs";
  std::atomic<bool> stop{false};
  std::thread others[4];
  for (std::thread& other : others)
    other = std::thread([&stop] {
      while (!stop)
        std::thread([] {
          CZEPHDoubleMatrix b(1, 1, 2.0);
          -b;
        }).join();
    });
  const int forks = zeph::test::Scaled(150, 10);
  int right = 0;
  for (int k = 0; k < forks && right == k; ++k) {
    const pid_t child = fork();
    if (child == 0) {
      alarm(5);
      int wrong = 0;
      std::thread([&wrong] {  // a new one, whose results have to be kept too
        CZEPHDoubleMatrix b(1, 1, 2.0);
        wrong = (-b)[0][0] != -2.0;
      })
          .join();
      if (!wrong) kill(getpid(), SIGKILL);  // an exit would have memcheck count what the fork left
      _exit(1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    right += WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  }
  stop = true;
  for (std::thread& other : others) other.join();
  EXPECT_EQ(forks, right);
}

/// By handlers of the fork: one that comes before them still lets nobody begin.
TEST(NegationLifetime, NobodyBeginsToKeepResultsDuringAFork) {
#ifdef ZEPH_TEST_SANITIZED
  GTEST_SKIP() << "a fork of a program with threads disturbs the sanitizer's allocator";
#endif
  if (zeph::test::ChildrenAreEmulated())
    GTEST_SKIP() << "the emulator has threads of its own, which a fork disturbs";
  const auto result = zeph::test::RunChild("zeph_linalg_negation_end_child", {"fork"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out, "ok: nobody begins to keep results during a fork\n");
}

TEST(NegationLifetime, AForkDuringTheFirstNegationLeavesAUsableChild) {
#ifdef ZEPH_TEST_SANITIZED
  GTEST_SKIP() << "a fork of a program with threads disturbs the sanitizer's allocator";
#endif
  if (zeph::test::ChildrenAreEmulated())
    GTEST_SKIP() << "the emulator has threads of its own, which a fork disturbs";
  for (int k = 0; k < zeph::test::Scaled(100, 20) && !HasFailure(); ++k)
    EXPECT_EQ(zeph::test::RunChild("zeph_linalg_negation_end_child", {"first"}).out,
              "ok: child of the first negation\n");
}
#endif
