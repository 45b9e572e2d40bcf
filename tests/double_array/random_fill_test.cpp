#include <algorithm>
#include <cmath>
#include <ctime>

#include "algorithms.h"
#include "double_array/arrays.h"
#include "support/random_source.h"
#include "support/second.h"

using namespace zeph::test;

TEST(DoubleArrayRandom, FillsWithWholeNumbersBelow999AndClearsTheSortedFlag) {
  CZEPHDoubleArray a(5000, -1.0);
  a.sorted = 1;
  a.Random();
  EXPECT_EQ(a.sorted, 0);
  double largest = 0;
  for (double x : a) {
    ASSERT_TRUE(x >= 0 && x <= 998 && x == std::floor(x)) << x;
    largest = std::max(largest, x);
  }
  EXPECT_GT(largest, 900.0);
}

TEST(DoubleArrayRandom, IsSeededWithTheTimeOnEveryCall) {
  CZEPHDoubleArray a(100, -1.0);
  const auto from = static_cast<unsigned>(SecondAwayFromItsTurn());
  a.Random();
  const auto to = static_cast<unsigned>(std::time(nullptr));
  bool met = false;
  for (unsigned second = from; second <= to && !met; ++second) {
    std::vector<double> want;
    for (int draw : DrawsAfterSeed(second, 100)) want.push_back(draw % 999);
    met = static_cast<bool>(SameBits(ElementsOf(a), want));
  }
  EXPECT_TRUE(met);
}

TEST(DoubleArrayRandom, UsesTheStopwatchsTimeInSeconds) {
  const auto second = [] {
    CZEPHDSTimer watch;
    watch.Start();
    return watch.start.time;
  };
  const auto before = second();
  auto now = before;
  while (now == before) now = second();
  CZEPHDoubleArray a(100, -1.0);
  a.Random();  // right after the second changes, when a lagging clock still has the one before
  std::vector<double> want;
  for (int draw : DrawsAfterSeed(static_cast<unsigned>(now), 100)) want.push_back(draw % 999);
  EXPECT_TRUE(SameBits(ElementsOf(a), want));
}

TEST(DoubleArrayRandom, ClearsTheSortedFlagOfAnEmptyArrayToo) {
  for (int size : {-1, 0, 4}) {
    CZEPHDoubleArray a = WithoutStorage(size);
    a.sorted = 1;
    a.Random();
    EXPECT_EQ(a.sorted, 0) << "size " << size;
    EXPECT_EQ(a.size, size) << "size " << size;
  }
}

// The generator is the process's: what is drawn next shows how it was seeded and how much was drawn.
TEST(DoubleArrayRandom, SeedsAlwaysAndDrawsOneNumberForEachElement) {
  for (const int n : {-2, -1, 0, 1, 7, 100}) {
    SCOPED_TRACE(::testing::Message() << n << " elements");
    CZEPHDoubleArray a = n < 0 ? WithoutStorage(n == -1 ? 5 : n) : CZEPHDoubleArray(n, -1.0);
    const auto from = static_cast<unsigned>(SecondAwayFromItsTurn());
    a.Random();
    const auto to = static_cast<unsigned>(std::time(nullptr));
    const int next = ZEPH_MathRandom(0);
    const auto drawn = static_cast<std::size_t>(std::max(n, 0));
    bool met = false;
    for (unsigned second = from; second <= to && !met; ++second)
      met = DrawsAfterSeed(second, drawn + 1)[drawn] == next;
    EXPECT_TRUE(met);
  }
}
