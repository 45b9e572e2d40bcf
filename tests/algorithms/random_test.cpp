#include <gtest/gtest.h>

#include <climits>
#include <ctime>
#include <limits>

#include "algorithms.h"
#include "support/bits.h"
#include "support/not_finite.h"
#include "support/random_source.h"
#include "support/second.h"

using namespace zeph::test;

TEST(MathRandom, DrawsFifteenBitsFromTheRuntimesOrThePortableGenerator) {
  const auto draws = DrawsAfterSeed(7, 1000);
  for (const int n : {0, -5, INT_MIN}) {
    Seed(7);
    for (const int draw : draws)
      EXPECT_EQ(ZEPH_MathRandom(n), draw) << "n " << n << ", draw " << draw;
  }
  for (const int n : {1, 2, 6, 32767, 32768, INT_MAX}) {
    Seed(7);
    for (const int draw : draws)
      EXPECT_EQ(ZEPH_MathRandom(n), draw % n) << "n " << n << ", draw " << draw;
  }
}

TEST(MathRandom, CoversAllFifteenBits) {
  int lowest = 32767, highest = 0;
  for (const int draw : DrawsAfterSeed(7, 20000)) {
    lowest = std::min(lowest, draw);
    highest = std::max(highest, draw);
  }
  EXPECT_LT(lowest, 100);
  EXPECT_GT(highest, 32667);
  EXPECT_LE(highest, 32767);
}

TEST(MathRandom, DrawsBetweenTwoBoundsInEitherOrder) {
  const auto draws = DrawsAfterSeed(9, 1000);
  const double bounds[][2] = {{2.0, 1.0}, {-1.0, 3.5}, {0.1, 0.7}, {-1e308, 1e308}};
  for (const auto& [lo, hi] : bounds) {
    Seed(9);
    for (const int draw : draws) {
      const double span = hi - lo;
      const double product = static_cast<double>(draw) * span;
      const double quotient = product / 32767.0;
      EXPECT_SAME_VALUE(ZEPH_MathRandom(lo, hi), quotient + lo) << "draw " << draw;
    }
  }
}

// Whatever the arguments are, so that programs keep their sequences.
TEST(MathRandom, TakesOneDrawOfTheGeneratorForEachNumber) {
  constexpr double kGreatest = std::numeric_limits<double>::max();
  const auto draws = DrawsAfterSeed(11, 2);
  const auto expectOneDraw = [&](auto call) {
    Seed(11);
    call();
    EXPECT_EQ(ZEPH_MathRandom(0), draws[1]);
  };
  for (const int n : {INT_MIN, -1, 0, 1, 2, 32767, 32768, INT_MAX}) {
    SCOPED_TRACE(n);
    expectOneDraw([n] { EXPECT_GE(ZEPH_MathRandom(n), 0); });
  }
  for (const double lo : {0.0, -0.0, 1.0, -2.5, kGreatest, -kGreatest, kInfinity, kNaN})
    for (const double hi : {0.0, -0.0, 1.0, -2.5, kGreatest, -kGreatest, kInfinity, kNaN}) {
      SCOPED_TRACE(::testing::Message() << lo << " to " << hi);
      expectOneDraw([=] {
        volatile double span = hi - lo;
        volatile double product = 0.0;
        Seed(11);
        product = ZEPH_MathRandom(0) * span;
        volatile double quotient = product / 32767.0;
        Seed(11);
        EXPECT_SAME_VALUE(ZEPH_MathRandom(lo, hi), quotient + lo);
      });
    }
}

TEST(MathRandomInit, SeedsWithTheTimeInSeconds) {
  for (int attempt = 0; attempt < 10; ++attempt) {
    const std::time_t before = SecondAwayFromItsTurn();
    ZEPH_MathRandomInit();
    const int first = ZEPH_MathRandom(0), second = ZEPH_MathRandom(0);
    if (std::time(nullptr) != before) continue;  // the second changed in between
    const auto draws = DrawsAfterSeed(static_cast<unsigned>(before), 2);
    EXPECT_EQ(first, draws[0]) << "attempt " << attempt;
    EXPECT_EQ(second, draws[1]) << "attempt " << attempt;
    return;
  }
  FAIL() << "no attempt stayed within a second";
}

TEST(MathRandomSeed, StartsTheSequenceOfTheSeed) {
  for (const unsigned seed : {0u, 1u, 12345u, 4294967295u}) {
    const auto draws = DrawsAfterSeed(seed, 50);
    ZEPH_MathRandomSeed(seed);
    for (const int draw : draws)
      EXPECT_EQ(ZEPH_MathRandom(0), draw) << "seed " << seed << ", draw " << draw;
  }
}

TEST(MathIsPortable, AgreesWithThePackagesVariable) {
  EXPECT_EQ(ZEPH_MathIsPortable(), ZEPH_PortableMath ? 1 : 0);
}
