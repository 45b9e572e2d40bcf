#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

#include "algorithms.h"
#include "oracle/decimal.h"
#include "support/bits.h"
#include "support/not_finite.h"
#include "support/numbers.h"
#include "support/scale.h"

using namespace zeph::test;

namespace {

// Whole numbers, halves, their neighbours, the edges of int, and anything else.
std::vector<double> Candidates() {
  std::vector<double> values = Awkward(3000, 5);
  for (const double base : {0.0, 1.0, 2.0, 3.0, 7.0, 100.0, 2147483647.0, 2147483648.0})
    for (const double part : {0.0, 0.2, 0.4, 0.5, 0.6, 0.7})
      for (const double sign : {1.0, -1.0}) {
        const double x = sign * (base + part);
        for (const double y : {x, std::nextafter(x, kInfinity), std::nextafter(x, -kInfinity)})
          values.push_back(y);
      }
  for (const double x : Moderate(3000, 6)) values.push_back(x);
  return values;
}
}  // namespace

TEST(MathRoundOff, RoundsToDecimalPlacesAndToPowersOfTen) {
  EXPECT_SAME_BITS(ZEPH_MathRoundOff(2.3456, 2), 2.35);
  EXPECT_SAME_BITS(ZEPH_MathRoundOff(0.5, 0), 1.0);
  EXPECT_SAME_BITS(ZEPH_MathRoundOff(1234, -2), 1200.0);
}

TEST(MathRoundOff, TruncatesNegativeValuesTowardZero) {
  EXPECT_EQ(ZEPH_MathRoundOff(-2.6, 0), -2.0);
  EXPECT_EQ(ZEPH_MathRoundOff(-2.4, 0), -1.0);
}

TEST(MathRoundOff, ReturnsIntMinOutOfRange) {
  for (const double x : {kNaN, kInfinity, -kInfinity, 3e9, -3e9, 2147483647.5})
    EXPECT_EQ(ZEPH_MathRoundOff(x, 0), -2147483648.0) << x;
  EXPECT_EQ(ZEPH_MathRoundOff(2147483646.5, 0), 2147483647.0);
  EXPECT_EQ(ZEPH_MathRoundOff(30000000.0, 2), -21474836.48);
}

TEST(MathRoundOff, MultipliesPowersOfTenInOneFixedOrder) {
  // 1e-9 times an int makes the rounding of the power visible.
  for (int places = -340; places <= 340; ++places)
    for (const double x : {1.0, 1.5, 123456.0, 4.9e-320})
      EXPECT_SAME_VALUE(ZEPH_MathRoundOff(x, places), oracle::RoundOff(x, places))
          << "places " << places << ", x " << x;
  for (const int places : {INT_MIN, INT_MIN + 1, INT_MAX})
    EXPECT_SAME_VALUE(ZEPH_MathRoundOff(1.0, places), oracle::RoundOff(1.0, places))
        << "places " << places;
}

TEST(MathRoundOff, AgreesWithTheOracle) {
  for (const double x : Candidates())
    for (int places = -12; places <= 12; ++places)
      EXPECT_SAME_VALUE(ZEPH_MathRoundOff(x, places), oracle::RoundOff(x, places))
          << "x " << x << ", places " << places;
}

TEST(RoundOffToInt, RoundsToNearestWithHalvesUp) {
  EXPECT_EQ(ZEPH_RoundOffToInt(2.5), 3);
  EXPECT_EQ(ZEPH_RoundOffToInt(2.4), 2);
  EXPECT_EQ(ZEPH_RoundOffToInt(-2.5), -2);
  EXPECT_EQ(ZEPH_RoundOffToInt(-2.7), -3);
  EXPECT_EQ(ZEPH_RoundOffToInt(-0.2), 0);
  EXPECT_EQ(ZEPH_RoundOffToInt(-0.0), 0);
}

TEST(RoundOffToInt, LowersANegativeWholeNumberByOne) {
  EXPECT_EQ(ZEPH_RoundOffToInt(-2.0), -3);
  EXPECT_EQ(ZEPH_RoundOffToInt(-1.0), -2);
  EXPECT_EQ(ZEPH_RoundOffToInt(2.0), 2);
}

TEST(RoundOffToInt, ReturnsIntMinOutOfRange) {
  for (const double x : {kNaN, kInfinity, -kInfinity, 1e300, -1e300, 2147483648.0, -2147483648.0})
    EXPECT_EQ(ZEPH_RoundOffToInt(x), INT_MIN) << x;
  EXPECT_EQ(ZEPH_RoundOffToInt(2147483647.0), INT_MAX);
}

TEST(RoundOffToInt, AgreesWithTheOracle) {
  for (const double x : Candidates())
    EXPECT_EQ(ZEPH_RoundOffToInt(x), oracle::RoundOffToInt(x)) << Show(x);
}

// Around every half and whole number of units, where one rounding too many or too few decides.
TEST(MathRoundOff, AgreesWithTheOracleAroundHalvesOfEveryUnit) {
  Random random(9);
  for (int places = -15; places <= 15; ++places) {
    const double unit = std::pow(10.0, -places);
    for (int k = 0; k < Scaled(200, 30); ++k) {
      const double whole = k < 20 ? k - 10 : random.Int(-2'000'000, 2'000'000);
      for (const double part : {0.0, 0.5}) {
        double x = (whole + part) * unit;
        for (int step = 0; step < 3; ++step) x = std::nextafter(x, -kInfinity);
        for (int step = 0; step < 7; ++step, x = std::nextafter(x, kInfinity))
          ASSERT_TRUE(SameValue(ZEPH_MathRoundOff(x, places), oracle::RoundOff(x, places)))
              << "x " << Show(x) << ", places " << places;
      }
    }
  }
}

TEST(RoundOffToInt, AgreesWithTheOracleAroundEveryHalf) {
  Random random(10);
  for (int k = 0; k < 3000; ++k) {
    double x = (k < 100 ? k - 50 : random.Int(INT_MIN, INT_MAX)) + (k % 2 ? 0.5 : 0.0);
    for (int step = 0; step < 3; ++step) x = std::nextafter(x, -kInfinity);
    for (int step = 0; step < 7; ++step, x = std::nextafter(x, kInfinity))
      ASSERT_EQ(ZEPH_RoundOffToInt(x), oracle::RoundOffToInt(x)) << Show(x);
  }
}
