// Processes in which the library has threads: they end, fork and receive signals like any other.
#include <gtest/gtest.h>

#include <string>

#include "support/child.h"
#include "support/scale.h"

using zeph::test::ChildrenAreEmulated;
using zeph::test::ChildResult;
using zeph::test::RunChild;

namespace {

// The sanitizer's allocator does not support fork: a child may wait forever for a lock held by a
// thread that it does not have.
#ifdef ZEPH_TEST_SANITIZED
constexpr bool kForksWithThreads = false;
#else
constexpr bool kForksWithThreads = true;
#endif
constexpr const char* kNoFork =
    "a fork of a program with threads disturbs the sanitizer's allocator";
constexpr const char* kOtherThreads =
    "the emulator's own threads would be counted, which a fork disturbs";

void ExpectAllWell(const ChildResult& child, int lines) {
  EXPECT_EQ(child.status, 0) << child.err;
  EXPECT_EQ(child.out.find("NOT"), std::string::npos) << child.out;
  int said = 0;
  for (std::size_t at = 0; (at = child.out.find("ok: ", at)) != std::string::npos; ++at) ++said;
  EXPECT_EQ(said, lines) << child.out;
}
void ExpectAllWell(const char* name, int lines) {
  ExpectAllWell(RunChild("zeph_parallel_life_child", {name}), lines);
}

}  // namespace

#ifndef __EMSCRIPTEN__

TEST(WorkerThreads, AreStartedOnlyOnRequestAndAsManyAsRequested) {
  if (ChildrenAreEmulated()) GTEST_SKIP() << kOtherThreads;
  ExpectAllWell("counts", 7);
}

TEST(WorkerThreads, AreStartedWhereAScopeIsTheFirstToAsk) {
  if (ChildrenAreEmulated()) GTEST_SKIP() << kOtherThreads;
  ExpectAllWell("scope first", 5);
}

#ifdef __linux__
TEST(WorkerThreads, LeaveNothingBehindWhereTheyAreEnded) {
  if (ChildrenAreEmulated()) GTEST_SKIP() << kOtherThreads;
#ifdef ZEPH_TEST_SANITIZED
  GTEST_SKIP() << "the sanitizers keep memory for threads that have ended";
#endif
  ExpectAllWell("often", 1);
}
#endif

#ifndef _WIN32  // whose runtime's clock() tells the time that has passed
TEST(WorkerThreads, SleepWhileThereIsNoWork) {
  ExpectAllWell("idle", 1);
}
#endif

TEST(WorkerThreads, ProcessEndsWhileTheySleep) {
  ExpectAllWell("live", 1);
}

TEST(WorkerThreads, ProcessMayBeEndedByAnotherThreadWhileTheyWork) {
  for (int k = 0; k < 10; ++k) ExpectAllWell("elsewhere", 1);
}

TEST(WorkerThreads, StaticDestructorsMayUseThem) {
#if defined(__ELF__) && defined(ZEPH_TEST_SHARED)
  ExpectAllWell("static", 5);
#elif defined(__ELF__)
  ExpectAllWell("static library", 5);
#else
  ExpectAllWell("static", 4);
#endif
}

#ifndef _WIN32

TEST(WorkerThreads, TheChildOfAForkHasNone) {
  if (!kForksWithThreads) GTEST_SKIP() << kNoFork;
  if (ChildrenAreEmulated()) GTEST_SKIP() << kOtherThreads;
  ExpectAllWell("fork", 6);
}

TEST(WorkerThreads, AForkDisturbsNoneAtWork) {
  if (!kForksWithThreads) GTEST_SKIP() << kNoFork;
  if (ChildrenAreEmulated()) GTEST_SKIP() << kOtherThreads;
  ExpectAllWell("fork at work", 2);
}

TEST(WorkerThreads, AForkWhileTheyEndLeavesAUsableChild) {
  if (!kForksWithThreads) GTEST_SKIP() << kNoFork;
  if (ChildrenAreEmulated()) GTEST_SKIP() << kOtherThreads;
  ExpectAllWell("fork at ends", 2);
}

TEST(WorkerThreads, AForkDuringTheFirstRequestLeavesAUsableChild) {
  if (!kForksWithThreads) GTEST_SKIP() << kNoFork;
  if (ChildrenAreEmulated()) GTEST_SKIP() << kOtherThreads;
  for (int k = 0; k < zeph::test::Scaled(100, 20) && !HasFailure(); ++k)
    ExpectAllWell("fork at first", 1);
}

TEST(WorkerThreads, SignalsGoToTheProgramsThreads) {
  ExpectAllWell("signals", 3);
}

TEST(WorkerThreads, CancelledCallersEndBetweenCalls) {
  ExpectAllWell("cancel", 1);
}

TEST(WorkerThreads, ACancelledThreadStillEndsAllOfThem) {
  ExpectAllWell("cancel at ends", 1);
}

TEST(WorkerThreads, TheCallerDoesTheWorkIfNoneCanBeStarted) {
  if (ChildrenAreEmulated()) GTEST_SKIP() << kOtherThreads;
#ifdef ZEPH_TEST_SANITIZED
  GTEST_SKIP() << "the sanitizer replaces pthread_create itself";
#endif
#ifdef __GLIBC__
  ExpectAllWell(RunChild("zeph_parallel_refused_child", {}), 9);
#else
  ExpectAllWell(RunChild("zeph_parallel_refused_child", {}), 8);
#endif
}

#endif
#endif
