// What the library asks of the system's clock and sleep, observed by functions of this program that
// replace them.
#include <gtest/gtest.h>

#include <cstdint>

#if defined(__linux__) && defined(__GLIBC__) && SIZE_MAX > 0xFFFFFFFFu
#include <errno.h>
#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "algorithms.h"
#include "support/random_source.h"
#include "support/scale.h"
#include "support/stream.h"

namespace {

/// During its lifetime the clock shows what it is told, and sleeping takes no time.
struct Clock {
  Clock() { now = this; }
  ~Clock() { now = nullptr; }
  Clock(const Clock&) = delete;
  Clock& operator=(const Clock&) = delete;

  void Show(time_t seconds, long nanoseconds) { shown = {seconds, nanoseconds}; }

  /// Every reading is followed by so many milliseconds.
  void Tick() {
    const long long then = shown.tv_sec * 1000LL + shown.tv_nsec / 1'000'000 + step;
    Show(static_cast<time_t>(then / 1000), static_cast<long>(then % 1000 * 1'000'000));
  }

  timespec shown = {1'700'000'000, 0};
  long step = 0;
  std::vector<timespec> slept;
  int interruptions = 0;  // of the next sleeps
  int asked = 0;
  static Clock* now;
};
Clock* Clock::now = nullptr;

}  // namespace

extern "C" __attribute__((visibility("default"))) int clock_gettime(clockid_t clock,
                                                                    timespec* to) noexcept {
  if (!Clock::now || clock != CLOCK_REALTIME)
    return static_cast<int>(syscall(SYS_clock_gettime, clock, to));
  ++Clock::now->asked;
  *to = Clock::now->shown;
  Clock::now->Tick();
  return 0;
}

extern "C" __attribute__((visibility("default"))) int nanosleep(const timespec* wanted,
                                                                timespec* left) {
  if (!Clock::now) return static_cast<int>(syscall(SYS_nanosleep, wanted, left));
  Clock::now->slept.push_back(*wanted);
  if (Clock::now->interruptions > 0) {
    --Clock::now->interruptions;
    *left = {wanted->tv_sec / 2, wanted->tv_nsec / 2};
    errno = EINTR;
    return -1;
  }
  return 0;
}

namespace {

using zeph::test::Written;

/// The sleeps of one demonstration.
std::vector<std::pair<long, long>> SleepsOf(long ms, int interruptions = 0) {
  Clock clock;
  clock.interruptions = interruptions;
  Written([ms](FILE* f) { CZEPHDSTimer::Test1(ms, f); });
  std::vector<std::pair<long, long>> all;
  for (const timespec& one : clock.slept) all.emplace_back(one.tv_sec, one.tv_nsec);
  return all;
}
using Sleeps = std::vector<std::pair<long, long>>;

}  // namespace

TEST(Clock, IsTruncatedToMilliseconds) {
  Clock clock;
  CZEPHDSTimer watch;
  for (const long nanoseconds :
       {0L, 999'999L, 1'000'000L, 500'000'000L, 998'999'999L, 999'000'000L, 999'999'999L}) {
    clock.Show(1'600'000'000, nanoseconds);
    watch.Start();
    EXPECT_EQ(1'600'000'000, watch.start.time);
    EXPECT_EQ(nanoseconds / 1'000'000, watch.start.millitm);
    EXPECT_EQ(0, watch.start.timezone);
    EXPECT_EQ(0, watch.start.dstflag);
  }
}

TEST(Clock, IsReadOnceByEachStartAndStop) {
  Clock clock;
  CZEPHDSTimer watch;
  EXPECT_EQ(-1000, watch.Stop());
  EXPECT_EQ(-1000, watch.GetProcessTime());
  EXPECT_EQ(0, clock.asked);
  watch.Start();
  EXPECT_EQ(1, clock.asked);
  watch.Stop();
  EXPECT_EQ(2, clock.asked);
  clock.Show(1'700'000'002, 345'000'000);
  EXPECT_EQ(2345, watch.GetProcessTime());  // a reading of 0 is taken again
  EXPECT_EQ(3, clock.asked);
  EXPECT_EQ(2345, watch.GetProcessTime());
  EXPECT_EQ(3, clock.asked);
}

TEST(Clock, EveryStopCountsFromTheOneStart) {
  for (const long step : {0L, 1L, 999L, 86'400'000L, 2'000'000'000L}) {
    Clock clock;
    clock.step = step;
    CZEPHDSTimer watch;
    watch.Start();
    const ZEPH_TimeOfDay start = watch.start;
    for (long stops = 1; stops <= 5; ++stops) {
      const auto want =
          static_cast<int>(static_cast<unsigned>(stops) * static_cast<unsigned>(step));
      if (watch.elapsed < 0) break;  // such a reading stays
      EXPECT_EQ(want, stops % 2 ? watch.Stop() : watch.End()) << step;
      EXPECT_EQ(want, watch.elapsed) << step;
      EXPECT_EQ(start.time, watch.start.time) << step;
      EXPECT_EQ(start.millitm, watch.start.millitm) << step;
      EXPECT_EQ(start.time * 1000 + start.millitm + stops * step,
                watch.stop.time * 1000 + watch.stop.millitm)
          << step;
    }
  }
}

TEST(Clock, SteppedBackGivesNegativeReadings) {
  Clock clock;
  CZEPHDSTimer watch;
  clock.Show(1'700'000'000, 250'000'000);
  watch.Start();
  clock.Show(1'699'999'999, 251'000'000);
  EXPECT_EQ(-999, watch.Stop());
  EXPECT_EQ(-999, watch.End());
  watch.Begin();
  clock.Show(1'700'000'000, 250'000'000);
  EXPECT_EQ(999, watch.End());
}

TEST(Clock, SeedsWithItsLowBitsAfterTheYear2038) {
  Clock clock;
  clock.Show((time_t{1} << 32) + 77, 999'999'999);
  ZEPH_MathRandomInit();
  const int drawn = ZEPH_MathRandom(0);
  EXPECT_EQ(zeph::test::DrawsAfterSeed(77, 1)[0], drawn);
}

TEST(Sleep, LastsAtLeastAsLongAsRequested) {
  EXPECT_EQ((Sleeps{{0, 1'000'000}}), SleepsOf(1));
  EXPECT_EQ((Sleeps{{0, 999'000'000}}), SleepsOf(999));
  EXPECT_EQ((Sleeps{{1, 0}}), SleepsOf(1000));
  EXPECT_EQ((Sleeps{{61, 1'000'000}}), SleepsOf(61'001));
  EXPECT_EQ((Sleeps{}), SleepsOf(0));
  EXPECT_EQ((Sleeps{{4'294'967, 295'000'000}}), SleepsOf(-1));  // as Windows takes it
}

TEST(Sleep, ContinuesAfterASignal) {
  EXPECT_EQ((Sleeps{{10, 0}, {5, 0}, {2, 0}, {1, 0}}), SleepsOf(10'000, 3));
}

TEST(Sleep, IsTimedByTheClockInTheReport) {
  Clock clock;
  EXPECT_EQ(
      "@@@( CZEPHDSTimer::Test1()...BEGIN\n...Processing time = 0 msec\n@@@( "
      "CZEPHDSTimer::Test1()...END\n",
      Written([](FILE* f) { EXPECT_EQ(1, CZEPHDSTimer::Test1(50, f)); }));
}

TEST(Sleep, IsTimedByTheTickingClockWhateverTheWait) {
  for (const long wait : {0L, 1L, 50L, 60'000L, -1L})
    for (const long step : {0L, 1L, 999L, 123'456L, -1L, -2'500L}) {
      Clock clock;
      clock.step = step;
      EXPECT_EQ(Written([&](FILE* f) { EXPECT_EQ(1, CZEPHDSTimer::Test1(wait, f)); }),
                "@@@( CZEPHDSTimer::Test1()...BEGIN\n...Processing time = " + std::to_string(step) +
                    " msec\n@@@( CZEPHDSTimer::Test1()...END\n");
      EXPECT_EQ(2, clock.asked);
    }
}

// A row reads its clock when it starts, when it stops, and, if it repeats, once more: a clock that
// was set back stays at its first reading.
TEST(Clock, TimesEveryRowOfTheReportOfSearches) {
  const struct {
    int n, repetitions;
  } rows[] = {{0, 300000},  {10, 300000}, {20, 200000}, {30, 200000}, {40, 100000},
              {50, 100000}, {60, 100000}, {70, 80000},  {80, 80000},  {90, 50000},
              {100, 50000}, {200, 25000}, {300, 15000}, {400, 15000}, {500, 10000},
              {600, 7500},  {700, 7000},  {800, 6000},  {900, 5000},  {1000, 5000}};
  for (const long step : {0L, 7L, 1'001L, 987'654L, -40L}) {
    std::string single = "n\tRunTime\tFindID\n", repeated = "n\tTotal\tRunTime\tFindID\n";
    for (const auto& [n, repetitions] : rows) {
      const int found = n == 0 ? -1000 : n < 25 ? -1 : 25;
      const float each = static_cast<float>(step) / static_cast<float>(repetitions);
      char line[200];
      std::snprintf(line, sizeof line, "%d\t%ld\t%d\n", n, step, found);
      single += line;
      std::snprintf(line, sizeof line, "%d\t%ld\t%f\t%d\n", n, step < 0 ? step : 2 * step,
                    static_cast<double>(each), found);
      repeated += line;
    }
    if (!zeph::test::kFullScale && step != 7 && step != -40) continue;
    Clock clock;
    clock.step = step;
    const std::string text = Written([](FILE* f) { CZEPHIntegralSearch::Test1(f); });
    EXPECT_NE(text.find(single), std::string::npos) << "step " << step << "\n" << text;
    EXPECT_NE(text.find(repeated), std::string::npos) << "step " << step << "\n" << text;
  }
}

TEST(Clock, SeedsWhatTheSortTesterDrawsWithItsSecondsAndADraw) {
  for (const time_t seconds : {time_t{0}, time_t{1'700'000'000}, (time_t{1} << 32) + 5}) {
    Clock clock;
    clock.Show(seconds, 999'000'000);
    const auto first = static_cast<unsigned>(zeph::test::DrawsAfterSeed(3, 1)[0]);
    zeph::test::Seed(3);
    int drawn[20];
    CZEPHSortTester::Randomize(drawn, 20, 0);
    const std::vector<int> want =
        zeph::test::DrawsAfterSeed(static_cast<unsigned>(seconds) + first, 20);
    EXPECT_EQ(std::vector<int>(drawn, drawn + 20), want) << "at " << seconds;
    EXPECT_EQ(1, clock.asked);
  }
}

TEST(Clock, SeedsTheNumbersThatTheSelectionSortLists) {
  constexpr int kCount = 12;
  Clock clock;
  clock.Show(1'700'000'000, 0);
  const auto first = static_cast<unsigned>(zeph::test::DrawsAfterSeed(3, 1)[0]);
  const std::vector<int> draws = zeph::test::DrawsAfterSeed(1'700'000'000u + first, 2 * kCount);
  std::string ints = "===Before Sorting===\n";
  for (int i = 0; i < kCount; ++i) {  // a draw for the sign, one for the number
    const auto at = static_cast<std::size_t>(2 * i);
    const int x = draws[at] >= 16383 ? -draws[at + 1] : draws[at + 1];
    char line[64];
    std::snprintf(line, sizeof line, "Array[%2d]= %d\n", i, x);
    ints += line;
  }
  zeph::test::Seed(3);
  const std::string text = Written([](FILE* f) { CZEPHSelectionSort::Test1(kCount, f); });
  EXPECT_NE(text.find(ints), std::string::npos) << text;
}
#endif
