// The pool alone. The shared library hides it, so this program contains its own copy.
#include "parallel/pool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cfenv>
#include <chrono>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

#include "parallel/modes.h"
#include "parallel/range.h"
#include "parallel/settings.h"
#include "platform/threads.h"
#include "support/modes.h"
#include "support/scale.h"

#ifdef __SSE2__
#include <emmintrin.h>

#include <limits>
#endif

#ifdef __linux__
#include <pthread.h>
#include <signal.h>
#endif

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

TEST_F(Pool, WritesOfAllPiecesAreVisibleWhenTheCallReturns) {
  for (std::size_t round = 0; round < test::Scaled<std::size_t>(2000, 200); ++round) {
    std::vector<std::size_t> left(64);  // plain memory
    Share(4, left.size(), [&](std::size_t k) { left[k] = k + round; });
    for (std::size_t k = 0; k < left.size(); ++k)
      ASSERT_EQ(left[k], k + round) << "round " << round << ", k " << k;
  }
}

TEST_F(Pool, AsManyThreadsAsRequestedWorkAtOnce) {
  for (int threads : {2, 3, 8, 5}) MeetInPieces(threads);
  EXPECT_EQ(Workers(), 7);
}

/// The threads that run the pieces of one call, each of which takes a while.
std::size_t ThreadsAtWork(int threads, std::size_t pieces) {
  std::mutex mutex;
  std::set<std::thread::id> there;
  Share(threads, pieces, [&](std::size_t) {
    std::this_thread::sleep_for(std::chrono::microseconds(500));
    const std::lock_guard<std::mutex> lock(mutex);
    there.insert(std::this_thread::get_id());
  });
  return there.size();
}

TEST_F(Pool, UsesNoMoreThreadsThanRequestedEvenIfMoreAreIdle) {
  for (const int threads : {2, 3, 5})
    for (int round = 0; round < 5; ++round) {
      MeetInPieces(8);  // so all of them are awake
      EXPECT_LE(ThreadsAtWork(threads, 40), static_cast<std::size_t>(threads));
    }
  EXPECT_EQ(Workers(), 7);
}

/// A call that keeps all of its threads, the caller among them, at work until it is released.
class BusyCall {
 public:
  explicit BusyCall(int threads)
      : caller_([this, threads] {
          Share(threads, static_cast<std::size_t>(threads), [this](std::size_t) {
            ++inside_;
            while (!released_) std::this_thread::yield();
          });
        }) {
    while (inside_ < threads) std::this_thread::yield();
  }
  ~BusyCall() { Release(); }
  BusyCall(const BusyCall&) = delete;
  BusyCall& operator=(const BusyCall&) = delete;

  /// Returns when the call has ended.
  void Release() {
    released_ = true;
    if (caller_.joinable()) caller_.join();
  }

 private:
  std::atomic<int> inside_{0};
  std::atomic<bool> released_{false};
  std::thread caller_;
};

/// The workers of a call that ends look for another one: only as many join it as it may have.
TEST_F(Pool, UsesNoMoreThreadsThanRequestedEvenIfMoreBecomeFree) {
  for (const std::size_t threads : {2u, 3u, 5u}) {
    BusyCall first(8);
    std::atomic<bool> end{false};
    std::atomic<std::size_t> in{0};
    std::thread second([&] {
      Share(static_cast<int>(threads), 20, [&](std::size_t) {
        ++in;
        while (!end) std::this_thread::yield();
      });
    });
    while (in < 1) std::this_thread::yield();
    first.Release();
    while (in < threads) std::this_thread::yield();
    for (int wait = 0; wait < 20 && in == threads; ++wait)
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_EQ(in, threads);
    end = true;
    second.join();
  }
}

TEST_F(Pool, StartsNoMoreThreadsThanThereArePieces) {
  for (const std::size_t pieces : {2u, 3u, 5u}) {
    Share(8, pieces, [](std::size_t) {});
    EXPECT_EQ(Workers(), static_cast<int>(pieces) - 1);
  }
  SetEverybodys(1);
  Share(100'000, 3, [](std::size_t) {});
  EXPECT_EQ(Workers(), 2);
}

/// Two calls wait for threads that a third one releases: each of them gets some.
TEST_F(Pool, DividesIdleWorkersEvenlyAmongCallers) {
  BusyCall first(5);
  std::atomic<bool> end{false};
  std::atomic<int> in[2] = {{0}, {0}};
  std::vector<std::thread> callers;
  for (std::atomic<int>& mine : in) {
    callers.emplace_back([&] {
      Share(5, 20, [&](std::size_t) {
        ++mine;
        while (!end) std::this_thread::yield();
      });
    });
    while (mine < 1) std::this_thread::yield();
  }
  first.Release();
  while (in[0] + in[1] < 6) std::this_thread::yield();  // the two callers and the four workers
  EXPECT_EQ(in[0], 3);
  EXPECT_EQ(in[1], 3);
  end = true;
  for (auto& caller : callers) caller.join();
}

/// While one call keeps its threads busy, another one wakes as many of the others as it may have.
TEST_F(Pool, WakesIdleWorkersForACallWhileOthersAreBusy) {
  for (const std::size_t threads : {2u, 3u, 4u}) {
    MeetInPieces(8);
    const BusyCall first(4);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));  // the other four fall asleep
    std::atomic<bool> alone{false};
    std::atomic<std::size_t> in{0};
    Share(static_cast<int>(threads), threads, [&](std::size_t) {
      ++in;
      for (int wait = 0; in < threads && !alone && wait < 2000; ++wait)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
      if (in < threads) alone = true;
    });
    EXPECT_FALSE(alone) << threads << " threads";
  }
}

#ifdef __linux__
/// Signals that a thread's own instructions raise reach it; those sent to the process do not. The caller's own
/// mask, and whether it may be cancelled, stay as they were.
TEST_F(Pool, WorkersReceiveOnlyTheSignalsTheyRaise) {
  sigset_t before, after, seen[4];
  pthread_sigmask(SIG_SETMASK, nullptr, &before);
  std::atomic<int> begun{0};
  Share(4, 4, [&](std::size_t k) {
    ++begun;
    while (begun < 4) std::this_thread::yield();
    pthread_sigmask(SIG_SETMASK, nullptr, &seen[k]);
  });
  pthread_sigmask(SIG_SETMASK, nullptr, &after);
  int workers = 0;
  for (const sigset_t& set : seen) {
    if (!sigismember(&set, SIGUSR1)) continue;  // the caller
    ++workers;
    for (const int raised : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP})
      EXPECT_EQ(0, sigismember(&set, raised)) << raised;
    for (const int sent : {SIGUSR1, SIGUSR2, SIGTERM, SIGINT, SIGHUP, SIGALRM, SIGCHLD, SIGPIPE,
                           SIGQUIT, SIGABRT, SIGPROF, SIGWINCH})
      EXPECT_EQ(1, sigismember(&set, sent)) << sent;
  }
  EXPECT_EQ(3, workers);
  for (int signal = 1; signal < 32; ++signal)
    EXPECT_EQ(sigismember(&before, signal), sigismember(&after, signal)) << signal;
  for (const int state : {PTHREAD_CANCEL_DISABLE, PTHREAD_CANCEL_ENABLE}) {
    pthread_setcancelstate(state, nullptr);
    MeetInPieces(4);
    int left = -1;
    pthread_setcancelstate(PTHREAD_CANCEL_ENABLE, &left);
    EXPECT_EQ(state, left);
  }
}

/// Whatever signals the caller has blocked: no more and no others where threads were started, worked and ended.
TEST_F(Pool, LeavesTheCallersOwnBlockedSignals) {
  sigset_t before;
  pthread_sigmask(SIG_SETMASK, nullptr, &before);
  const auto blocked = [] {
    sigset_t now;
    pthread_sigmask(SIG_SETMASK, nullptr, &now);
    std::vector<int> signals;
    for (int signal = 1; signal < 32; ++signal)
      if (sigismember(&now, signal) == 1) signals.push_back(signal);
    return signals;
  };
  for (const int own : {0, SIGUSR1, SIGTERM, SIGSEGV, SIGTRAP}) {
    sigset_t set;
    sigemptyset(&set);
    if (own) sigaddset(&set, own);
    const std::vector<int> want = own ? std::vector<int>{own} : std::vector<int>{};
    pthread_sigmask(SIG_SETMASK, &set, nullptr);
    for (int round = 0; round < 2; ++round) {
      MeetInPieces(3);  // starts the workers
      EXPECT_EQ(want, blocked());
      SetEverybodys(1);  // ends them
      EXPECT_EQ(want, blocked());
    }
  }
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
}
#endif

TEST_F(Pool, StartsNothingForOneThreadOrOnePiece) {
  SetEverybodys(1);
  Share(1, 100, [](std::size_t) {});
  Share(8, 1, [](std::size_t) {});
  EXPECT_EQ(Workers(), 0);
}

TEST_F(Pool, EndsAndStartsAgain) {
  for (int round = 0; round < 20; ++round) {
    MeetInPieces(4);
    EXPECT_EQ(Workers(), 3) << "round " << round;
    EndWorkers();
    EXPECT_EQ(Workers(), 0) << "round " << round;
  }
}

/// For every caller that ends them: when the call returns, they have ended.
TEST_F(Pool, EveryCallerThatEndsTheWorkersWaitsForTheirEnd) {
  std::atomic<int> left{0};
  for (int round = 0; round < 50; ++round) {
    MeetInPieces(8);
    std::atomic<int> ready{0};
    const auto end = [&] {
      ++ready;
      while (ready < 3) std::this_thread::yield();
      EndWorkers();
      left += Workers();
    };
    std::thread first(end), second(end);
    end();
    first.join();
    second.join();
  }
  EXPECT_EQ(left, 0);
}

TEST_F(Pool, SeveralCallersShareTheWorkersWithoutWaitingForEachOther) {
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

TEST_F(Pool, APieceMayStartParallelWorkItself) {
  for (int round = 0; round < 50; ++round) {
    std::atomic<int> runs{0};
    Share(4, 6, [&](std::size_t) {
      Share(4, 6, [&](std::size_t) { Share(3, 3, [&](std::size_t) { ++runs; }); });
    });
    ASSERT_EQ(runs, 108) << "round " << round;
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

TEST_F(Pool, FloatingPointExceptionsOfAnyPieceReachTheCaller) {
  if (!test::HasFloatingPointEnvironment())
    GTEST_SKIP() << "the floating-point environment is incomplete here";
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
    EXPECT_EQ(raised, FE_DIVBYZERO) << "raising " << raising;
  }
  EXPECT_EQ(test::RaisedBy(usual, [] { MeetInPieces(4); }), 0);
}

#ifdef __SSE2__
/// Of x86, beside those of the standard.
TEST_F(Pool, TheDenormalExceptionReachesTheCallerToo) {
  if (!test::HasFloatingPointEnvironment())
    GTEST_SKIP() << "the floating-point environment is incomplete here";
  const volatile double denormal = std::numeric_limits<double>::denorm_min();
  const std::thread::id caller = std::this_thread::get_id();
  const unsigned before = _mm_getcsr();
  _mm_setcsr(before & ~0x3Fu);
  std::atomic<int> begun{0};
  Share(4, 4, [&](std::size_t) {
    ++begun;
    while (begun < 4) std::this_thread::yield();
    if (std::this_thread::get_id() == caller) return;
    volatile double sum = _mm_cvtsd_f64(_mm_add_sd(_mm_set_sd(denormal), _mm_set_sd(1.0)));
    static_cast<void>(sum);
  });
  const unsigned after = _mm_getcsr();
  _mm_setcsr(before);
  EXPECT_EQ(after & 0x3Fu, 0x22u) << "denormal and inexact";
}

/// Any one of the six.
TEST_F(Pool, EachExceptionThatTrapsKeepsCallsOnTheirThread) {
  for (unsigned mask = 0x80; mask <= 0x1000; mask *= 2) {
    const unsigned before = _mm_getcsr();
    _mm_setcsr((before & ~0x3Fu) & ~mask);
    const bool set = (_mm_getcsr() & mask) == 0, trap = Modes().Trap();
    _mm_setcsr(before);
    EXPECT_TRUE(trap || !set) << mask;
  }
  EXPECT_FALSE(Modes().Trap());
}
#endif

/// Each piece raises another one, on a thread of its own.
TEST_F(Pool, FloatingPointExceptionsOfAllPiecesReachTheCaller) {
  if (!test::HasFloatingPointEnvironment())
    GTEST_SKIP() << "the floating-point environment is incomplete here";
  const volatile double one = 1, zero = 0, huge = 1e300;
  for (int round = 0; round < 20; ++round) {
    volatile double sink[4] = {};
    const int raised = test::RaisedBy(test::Modes().front(), [&] {
      std::atomic<int> begun{0};
      Share(4, 4, [&](std::size_t k) {
        ++begun;
        while (begun < 4) std::this_thread::yield();
        if (k == 1) sink[k] = one / zero;
        if (k == 2) sink[k] = zero / zero;
        if (k == 3) sink[k] = huge * huge;
      });
    });
    ASSERT_EQ(raised, FE_DIVBYZERO | FE_INVALID | FE_OVERFLOW) << "round " << round;
  }
}

/// An exception that the caller has raised before stays, and is not another caller's.
TEST_F(Pool, KeepsTheCallersOwnFloatingPointExceptions) {
  if (!test::HasFloatingPointEnvironment())
    GTEST_SKIP() << "the floating-point environment is incomplete here";
  const volatile double one = 1, zero = 0;
  volatile double sink = 0;
  std::feclearexcept(FE_ALL_EXCEPT);
  sink = one / zero;
  MeetInPieces(4);
  EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), FE_DIVBYZERO);
  const volatile double three = 3;
  std::atomic<int> begun{0};
  const std::thread::id caller = std::this_thread::get_id();
  Share(4, 4, [&](std::size_t) {
    ++begun;
    while (begun < 4) std::this_thread::yield();
    if (std::this_thread::get_id() == caller) return;
    const volatile double third = one / three;
    static_cast<void>(third);
  });
  EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), FE_DIVBYZERO | FE_INEXACT);
  std::feclearexcept(FE_ALL_EXCEPT);
  std::thread([&] { sink = one / zero; }).join();
  MeetInPieces(4);
  EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), 0);
}
#endif

TEST(Ranges, PartsCoverEverythingOnceAndStartAtMultiplesOfTheGrain) {
  for (std::size_t n : {1u, 7u, 8u, 9u, 64u, 100u, 1000u, 1003u})
    for (std::size_t grain : {1u, 4u, 8u})
      for (std::size_t parts = 1; parts <= (n + grain - 1) / grain && parts <= 20; ++parts) {
        std::size_t next = 0, shortest = n, longest = 0;
        for (std::size_t k = 0; k < parts; ++k) {
          const Part part = PartOf(n, grain, parts, k);
          ASSERT_EQ(part.first, next) << "grain " << grain << ", parts " << parts << ", k " << k;
          ASSERT_EQ(part.first % grain, 0u)
              << "grain " << grain << ", parts " << parts << ", k " << k;
          ASSERT_GT(part.count, 0u) << "grain " << grain << ", parts " << parts << ", k " << k;
          shortest = std::min(shortest, part.count);
          longest = std::max(longest, part.count);
          next += part.count;
        }
        ASSERT_EQ(next, n) << "n " << n << ", grain " << grain << ", parts " << parts;
        ASSERT_LT(longest - shortest, 2 * grain)
            << "n " << n << ", grain " << grain << ", parts " << parts;
      }
}

/// Several parts for each thread where each is long enough, eight at most; one otherwise.
TEST(Ranges, LongWorkIsDividedIntoSeveralPartsPerThread) {
  const auto parts = [](int threads, std::size_t n, std::size_t grain, std::size_t enough) {
    std::atomic<std::size_t> count{0}, sum{0};
    ShareParts(threads, n, grain, enough, [&](std::size_t, std::size_t length) {
      ++count;
      sum += length;
    });
    EXPECT_EQ(sum, n);
    return count.load();
  };
  EXPECT_EQ(parts(1, 1000, 1, 1), 1u);
  EXPECT_EQ(parts(2, 1000, 1, 1000), 2u);
  EXPECT_EQ(parts(2, 1000, 1, 501), 2u);
  EXPECT_EQ(parts(2, 1000, 1, 250), 4u);
  EXPECT_EQ(parts(2, 1000, 1, 100), 10u);
  EXPECT_EQ(parts(2, 1000, 1, 1), 16u);
  EXPECT_EQ(parts(3, 1000, 1, 1), 24u);
  EXPECT_EQ(parts(3, 1000, 500, 1), 2u);
  EXPECT_EQ(parts(3, 1001, 500, 1), 3u);
  SetEverybodys(1);
}

TEST(Ranges, LittleWorkUsesNoOtherThread) {
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

/// Counts of multiplications exceed 32 bits.
TEST(Ranges, WorkOfAnySizeUsesAllThreads) {
  if (!platform::kThreadsExist) GTEST_SKIP() << "there are no threads";
  SetEverybodys(6);
  for (int bit = 12; bit < 64; ++bit) {
    const std::uint64_t work = std::uint64_t{1} << bit;
    for (const std::uint64_t more : {0u, 1u, 999u}) {
      EXPECT_TRUE(MayShare(work + more, 1000)) << "bit " << bit << " and " << more;
      EXPECT_EQ(ThreadsFor(work + more, 1000), 6) << "bit " << bit << " and " << more;
    }
  }
  SetEverybodys(1);
}

}  // namespace
}  // namespace zeph::parallel
