// The functions of parallel.h.
#include <gtest/gtest.h>

#include <climits>
#include <thread>

#include "parallel.h"
#include "parallel/work.h"
#include "platform/threads.h"
#include "support/modes.h"

namespace {

class Settings : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!zeph::platform::kThreadsExist) GTEST_SKIP() << "there are no threads";
  }
  void TearDown() override { ZEPH_SetThreads(1); }
};

int ThreadsOfAnotherThread() {
  int threads = 0;
  std::thread([&threads] { threads = ZEPH_GetThreads(); }).join();
  return threads;
}

}  // namespace

TEST(SettingsWithoutThreads, StayOneWhateverIsRequested) {
  if (zeph::platform::kThreadsExist) GTEST_SKIP() << "there are threads";
  EXPECT_EQ(ZEPH_SetThreads(4), 1);
  EXPECT_EQ(ZEPH_SetThreads(0), 1);
  const ZEPH_ThreadScope scope(4);
  EXPECT_EQ(ZEPH_GetThreads(), 1);
}

TEST_F(Settings, StartAtOneThread) {
  EXPECT_EQ(ZEPH_GetThreads(), 1);
}

TEST_F(Settings, ReturnTheNumberInForce) {
  EXPECT_EQ(ZEPH_SetThreads(3), 3);
  EXPECT_EQ(ZEPH_GetThreads(), 3);
  EXPECT_EQ(ThreadsOfAnotherThread(), 3);
  EXPECT_EQ(ZEPH_SetThreads(256), 256);
  EXPECT_EQ(ZEPH_SetThreads(257), 256);
  EXPECT_EQ(ZEPH_SetThreads(INT_MAX), 256);
  EXPECT_EQ(ZEPH_SetThreads(1), 1);
  EXPECT_EQ(ZEPH_GetThreads(), 1);
}

TEST_F(Settings, NegativeNumbersChangeNothing) {
  ZEPH_SetThreads(3);
  EXPECT_EQ(ZEPH_SetThreads(-1), 3);
  EXPECT_EQ(ZEPH_SetThreads(INT_MIN), 3);
  {
    const ZEPH_ThreadScope scope(-1);
    EXPECT_EQ(ZEPH_GetThreads(), 3);
  }
  EXPECT_EQ(ZEPH_GetThreads(), 3);
}

TEST_F(Settings, ZeroMeansTheUsableProcessors) {
  const int threads = ZEPH_SetThreads(0);
  EXPECT_GE(threads, 1);
  EXPECT_LE(threads, static_cast<int>(std::thread::hardware_concurrency()));
  EXPECT_EQ(ZEPH_GetThreads(), threads);
}

TEST_F(Settings, ScopesApplyToTheirThreadAndNest) {
  {
    const ZEPH_ThreadScope outer(4);
    EXPECT_EQ(ZEPH_GetThreads(), 4);
    EXPECT_EQ(ThreadsOfAnotherThread(), 1);
    {
      const ZEPH_ThreadScope inner(1);
      EXPECT_EQ(ZEPH_GetThreads(), 1);
      EXPECT_EQ(ZEPH_SetThreads(8), 8);
      EXPECT_EQ(ZEPH_GetThreads(), 1) << "the scope's number takes precedence";
      EXPECT_EQ(ThreadsOfAnotherThread(), 8);
    }
    EXPECT_EQ(ZEPH_GetThreads(), 4);
  }
  EXPECT_EQ(ZEPH_GetThreads(), 8);
}

TEST_F(Settings, AScopesNumberIsWhatTheSameRequestGivesTheProcess) {
  for (const int n : {0, 1, 2, 255, 256, 257, INT_MAX}) {
    const int want = ZEPH_SetThreads(n);
    ZEPH_SetThreads(3);
    const ZEPH_ThreadScope scope(n);
    EXPECT_EQ(ZEPH_GetThreads(), want) << n;
  }
}

/// Its threads end with the others; the next call starts them anew.
TEST_F(Settings, AScopeOutlivesARequestForOneThread) {
  zeph::test::Work work;
  const ZEPH_ThreadScope scope(4);
  EXPECT_TRUE(work.Right());
  EXPECT_EQ(ZEPH_SetThreads(1), 1);
  EXPECT_EQ(ZEPH_GetThreads(), 4);
  EXPECT_TRUE(work.Right());
  const int threads = zeph::test::ThreadsOfTheProcess();
  EXPECT_TRUE(threads < 0 || threads >= 4) << threads;
}

TEST_F(Settings, AScopeThatSetsNothingKeepsTheOuterOne) {
  const ZEPH_ThreadScope outer(4);
  {
    const ZEPH_ThreadScope nothing(-1);
    EXPECT_EQ(ZEPH_GetThreads(), 4);
  }
  EXPECT_EQ(ZEPH_GetThreads(), 4);
  EXPECT_LT(ZEPH_BeginThreadScope(INT_MIN), 0);
  EXPECT_EQ(ZEPH_GetThreads(), 4);
}

/// Calls stay on their thread then, which is no setting.
TEST_F(Settings, StayAsTheyAreWhileFloatingPointExceptionsTrap) {
  ZEPH_SetThreads(3);
  for (const zeph::test::Mode& mode : zeph::test::Modes()) {
    int set = 0, all = 0, own = 0, after = 0;
    zeph::test::RaisedBy(
        mode,
        [&] {
          all = ZEPH_GetThreads();
          set = ZEPH_SetThreads(4);
          {
            const ZEPH_ThreadScope scope(5);
            own = ZEPH_GetThreads();
          }
          after = ZEPH_GetThreads();
          ZEPH_SetThreads(3);
        },
        true);
    EXPECT_EQ(all, 3) << mode.name;
    EXPECT_EQ(set, 4) << mode.name;
    EXPECT_EQ(own, 5) << mode.name;
    EXPECT_EQ(after, 4) << mode.name;
  }
}
