#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <thread>

#include "algorithms.h"
#include "support/stream.h"

using namespace zeph::test;

namespace {

/// The reading of two records, in arithmetic that cannot wrap, truncated to 32 bits at the end.
int Reading(const ZEPH_TimeOfDay& start, const ZEPH_TimeOfDay& stop) {
  const auto seconds =
      static_cast<std::uint64_t>(stop.time) - static_cast<std::uint64_t>(start.time);
  return static_cast<int>(
      static_cast<std::uint32_t>(seconds * 1000 - start.millitm + stop.millitm));
}

void Pause(int ms) {
  std::this_thread::sleep_for(std::chrono::milliseconds(ms));
}

/// A watch whose start is moved by so many seconds.
CZEPHDSTimer StartedSecondsAgo(std::int64_t seconds) {
  CZEPHDSTimer watch;
  watch.Start();
  watch.start.time -= seconds;
  return watch;
}

}  // namespace

TEST(Stopwatch, ReturnsMinusAThousandWithoutReadingTheClockIfNeverStarted) {
  CZEPHDSTimer watch;
  std::memset(&watch.stop, 0x5A, sizeof watch.stop);
  ZEPH_TimeOfDay untouched;
  std::memset(&untouched, 0x5A, sizeof untouched);
  EXPECT_EQ(watch.elapsed, -1000);
  EXPECT_EQ(watch.Stop(), -1000);
  EXPECT_EQ(watch.End(), -1000);
  EXPECT_EQ(watch.GetProcessTime(), -1000);
  EXPECT_EQ(std::memcmp(&watch.stop, &untouched, sizeof untouched), 0);
}

TEST(Stopwatch, MeasuresFromStartToEachStop) {
  CZEPHDSTimer watch;
  watch.Start();
  EXPECT_EQ(watch.elapsed, 0);
  Pause(12);
  const long first = watch.Stop();
  EXPECT_EQ(first, watch.elapsed);
  EXPECT_EQ(first, Reading(watch.start, watch.stop));
  EXPECT_GE(first, 11);
  Pause(12);
  const long second = watch.Stop();
  EXPECT_GE(second, first + 11);
  EXPECT_EQ(second, Reading(watch.start, watch.stop));
}

TEST(Stopwatch, BeginAndEndAreSynonymsOfStartAndStop) {
  CZEPHDSTimer watch;
  watch.Begin();
  EXPECT_EQ(watch.elapsed, 0);
  watch.start.time -= 5;
  const long reading = watch.End();
  EXPECT_EQ(reading, watch.elapsed);
  EXPECT_EQ(reading, Reading(watch.start, watch.stop));
  EXPECT_GE(reading, 5000);
}

TEST(Stopwatch, EveryStartForgetsTheReading) {
  for (const std::int64_t seconds : {-5, 0, 5}) {
    CZEPHDSTimer started = StartedSecondsAgo(seconds), begun = StartedSecondsAgo(seconds);
    started.Stop(), begun.End();
    started.Start(), begun.Begin();
    EXPECT_EQ(started.elapsed, 0) << seconds;
    EXPECT_EQ(begun.elapsed, 0) << seconds;
    started.start.time -= 7, begun.start.time -= 7;
    EXPECT_GE(started.GetProcessTime(), 7000) << seconds;
    EXPECT_GE(begun.GetProcessTime(), 7000) << seconds;
  }
}

TEST(Stopwatch, KeepsItsReadingUntilTheNextStop) {
  CZEPHDSTimer watch = StartedSecondsAgo(1);
  const long first = watch.GetProcessTime();  // running: it stops the watch
  EXPECT_GE(first, 1000);
  Pause(5);
  EXPECT_EQ(watch.GetProcessTime(), first);
  EXPECT_GT(watch.Stop(), first);
}

TEST(Stopwatch, CountsTheMillisecondsWithinTheSecond) {
  for (const int millitm : {0, 1, 499, 995, 999}) {
    CZEPHDSTimer watch = StartedSecondsAgo(1);
    watch.start.millitm = static_cast<unsigned short>(millitm);
    const long reading = watch.Stop();
    EXPECT_EQ(reading, (watch.stop.time - watch.start.time) * 1000 - millitm + watch.stop.millitm)
        << "millitm " << millitm;
  }
}

TEST(Stopwatch, CountsSecondsModuloTwoToThe32) {
  for (const std::int64_t seconds :
       {std::int64_t{2147484}, std::int64_t{1} << 31, (std::int64_t{1} << 32) + 3,
        -(std::int64_t{1} << 40), std::int64_t{4294968}}) {
    CZEPHDSTimer watch = StartedSecondsAgo(seconds);
    const long reading = watch.Stop();
    EXPECT_EQ(reading, Reading(watch.start, watch.stop)) << seconds;
  }
  EXPECT_GE(StartedSecondsAgo((std::int64_t{1} << 32) + 3).Stop(), 3000);
}

TEST(Stopwatch, KeepsANegativeReadingUntilTheNextStart) {
  CZEPHDSTimer watch = StartedSecondsAgo(-100);  // as if the clock had been set back
  const long reading = watch.Stop();
  EXPECT_LT(reading, -99000);
  watch.start.time -= 1000;
  EXPECT_EQ(watch.Stop(), reading);
  EXPECT_EQ(watch.GetProcessTime(), reading);
  watch.Start();
  EXPECT_GE(watch.Stop(), 0);
}

TEST(Stopwatch, CopiesBothRecordsAndTheReading) {
  CZEPHDSTimer watch = StartedSecondsAgo(7);
  watch.Stop();
  const CZEPHDSTimer copy(watch);
  CZEPHDSTimer assigned;
  assigned = watch;
  for (const CZEPHDSTimer* other : {&copy, static_cast<const CZEPHDSTimer*>(&assigned)}) {
    EXPECT_EQ(other->start.time, watch.start.time);
    EXPECT_EQ(other->start.millitm, watch.start.millitm);
    EXPECT_EQ(other->stop.time, watch.stop.time);
    EXPECT_EQ(other->stop.millitm, watch.stop.millitm);
    EXPECT_EQ(other->elapsed, watch.elapsed);
  }
}

TEST(Stopwatch, PrintsItsDemonstrationReport) {
  const auto before = std::chrono::steady_clock::now();
  const std::string text = Written([](FILE* f) { EXPECT_EQ(CZEPHDSTimer::Test1(20, f), 1); });
  EXPECT_GE(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(19));
  long reading = -1;
  int end = 0;
  ASSERT_EQ(std::sscanf(text.c_str(),
                        "@@@( CZEPHDSTimer::Test1()...BEGIN\n...Processing time = %ld msec\n%n",
                        &reading, &end),
            1)
      << text;
  EXPECT_EQ(text, "@@@( CZEPHDSTimer::Test1()...BEGIN\n...Processing time = " +
                      std::to_string(reading) + " msec\n@@@( CZEPHDSTimer::Test1()...END\n");
  EXPECT_GE(reading, 19);
  EXPECT_LT(reading, 5000);
}

TEST(Stopwatch, DemonstratesAWaitOfZero) {
  const auto before = std::chrono::steady_clock::now();
  const std::string text = Written([](FILE* f) { EXPECT_EQ(CZEPHDSTimer::Test1(0, f), 1); });
  EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(30));
  EXPECT_EQ(text.rfind("@@@( CZEPHDSTimer::Test1()...BEGIN\n...Processing time = ", 0), 0u) << text;
}

TEST(Stopwatch, NeitherPrintsNorSleepsForANullStream) {
  const auto before = std::chrono::steady_clock::now();
  EXPECT_EQ(CZEPHDSTimer::Test1(60000, nullptr), 0);
  EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(30));
}
