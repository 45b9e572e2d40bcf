#include <gtest/gtest.h>

#include <climits>
#include <limits>

#include "algorithms.h"
#include "support/bits.h"
#include "support/not_finite.h"
#include "support/numbers.h"

using namespace zeph::test;

namespace {}  // namespace

TEST(MathAbs, NegatesWhateverIsNotAboveZero) {
  EXPECT_SAME_BITS(ZEPH_MathAbs(2.5), 2.5);
  EXPECT_SAME_BITS(ZEPH_MathAbs(-2.5), 2.5);
  EXPECT_SAME_BITS(ZEPH_MathAbs(-kInfinity), kInfinity);
  EXPECT_SAME_BITS(ZEPH_MathAbs(-0.0), 0.0);
}

TEST(MathAbs, OfPositiveZeroIsNegativeZero) {
  EXPECT_SAME_BITS(ZEPH_MathAbs(0.0), -0.0);
}

TEST(MathAbs, FlipsTheSignOfANaNAndKeepsItsPayload) {
  for (const double x : SpecialValues<double>())
    if (x != x) {
      EXPECT_EQ(Bits(ZEPH_MathAbs(x)), Bits(x) ^ (std::uint64_t{1} << 63));
    }
}

TEST(MathClamp, RaisesThenLowers) {
  const auto clamp = [](double v, double lo, double hi) {
    ZEPH_MathClamp(v, lo, hi);
    return v;
  };
  EXPECT_SAME_BITS(clamp(7, 0, 5), 5.0);
  EXPECT_SAME_BITS(clamp(-7, 0, 5), 0.0);
  EXPECT_SAME_BITS(clamp(3, 0, 5), 3.0);
  EXPECT_SAME_BITS(clamp(-0.0, 0.0, 5), -0.0);
  EXPECT_SAME_BITS(clamp(-0.0, -5, 0.0), -0.0);
  EXPECT_SAME_BITS(clamp(0.0, -5, -0.0), 0.0);
  EXPECT_SAME_BITS(clamp(kNaN, 0, 5), kNaN);
  EXPECT_SAME_BITS(clamp(3, kNaN, kNaN), 3.0);
}

TEST(MathClamp, WithCrossedBoundsEndsAtTheUpperWhereClampedGivesTheLower) {
  double v = 1.0;
  ZEPH_MathClamp(v, 10.0, 5.0);
  EXPECT_EQ(v, 5.0);
  EXPECT_EQ(ZEPH_MathClamped(1.0, 10.0, 5.0), 10.0);
  EXPECT_EQ(ZEPH_MathClamped(12.0, 10.0, 5.0), 5.0);
}

TEST(MathClamp, ReadsABoundThatIsTheValueItselfAsItChanges) {
  double v = 1.0;
  ZEPH_MathClamp(v, 10.0, v);  // the upper bound rises with the value
  EXPECT_EQ(v, 10.0);
}

TEST(MathClamped, GivesABoundOrTheValue) {
  EXPECT_SAME_BITS(ZEPH_MathClamped(7, 0, 5), 5.0);
  EXPECT_SAME_BITS(ZEPH_MathClamped(-7, 0, 5), 0.0);
  EXPECT_SAME_BITS(ZEPH_MathClamped(-0.0, 0, 5), -0.0);
  EXPECT_SAME_BITS(ZEPH_MathClamped(-0.0, -5, 0.0), -0.0);
  EXPECT_SAME_BITS(ZEPH_MathClamped(0.0, -5, -0.0), 0.0);
  EXPECT_SAME_BITS(ZEPH_MathClamped(kNaN, 0, 5), kNaN);
}

TEST(MathAngles, UseFactorsOfThirteenDigits) {
  EXPECT_SAME_BITS(ZEPH_MathRadToDeg(1.0), 57.29577951308);
  EXPECT_SAME_BITS(ZEPH_MathDegToRad(1.0), 0.01745329251994);
  for (const double x : Awkward(2000, 1)) {
    EXPECT_SAME_VALUE(ZEPH_MathRadToDeg(x), x * 57.29577951308);
    EXPECT_SAME_VALUE(ZEPH_MathDegToRad(x), x * 0.01745329251994);
    double degrees = x, radians = x;
    ZEPH_MathConvertToDeg(degrees);
    ZEPH_MathConvertToRad(radians);
    EXPECT_SAME_VALUE(degrees, x * 57.29577951308);
    EXPECT_SAME_VALUE(radians, x * 0.01745329251994);
  }
}

TEST(MathGetRightMostDigit, CarriesTheSignOfTheNumber) {
  EXPECT_EQ(ZEPH_MathGetRightMostDigit(123), 3);
  EXPECT_EQ(ZEPH_MathGetRightMostDigit(-123), -3);
  EXPECT_EQ(ZEPH_MathGetRightMostDigit(-7), -7);
  EXPECT_EQ(ZEPH_MathGetRightMostDigit(40), 0);
  EXPECT_EQ(ZEPH_MathGetRightMostDigit(INT_MAX), 7);
  EXPECT_EQ(ZEPH_MathGetRightMostDigit(INT_MIN), -8);
}

TEST(MathIntegerDivision, TruncatesTowardZero) {
  const auto expect = [](int a, int b, int quotient, int remainder) {
    int q = 99, r = 99;
    ZEPH_MathIntegerDivision(a, b, q, r);
    EXPECT_EQ(q, quotient) << a << " / " << b;
    EXPECT_EQ(r, remainder) << a << " / " << b;
  };
  expect(-7, 2, -3, -1);
  expect(7, -2, -3, 1);
  expect(-7, -2, 3, -1);
  expect(7, 2, 3, 1);
  expect(INT_MIN, 1, INT_MIN, 0);
  expect(INT_MIN, 10, -214748364, -8);
}

TEST(MathIntegerDivision, MayGiveItsResultsInItsArguments) {
  int a = 17, b = 5;
  ZEPH_MathIntegerDivision(a, b, b, a);
  EXPECT_EQ(b, 3);
  EXPECT_EQ(a, 2);
}

TEST(MathGetExponent, ChangesNothingTheCallerCanSee) {
  for (double x : SpecialValues<double>()) {
    const double before = x;
    int exponent = 12345;
    ZEPH_MathGetExponent(x, 3.0, exponent);
    EXPECT_SAME_BITS(x, before);
    EXPECT_EQ(exponent, 12345);
  }
}
