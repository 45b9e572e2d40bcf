#include <gtest/gtest.h>

#include <climits>
#include <limits>

#include "algorithms.h"
#include "support/bits.h"
#include "support/not_finite.h"
#include "support/numbers.h"

using namespace zeph::test;

namespace {}  // namespace

TEST(MathAbs, NegatesWhateverIsNotPositive) {
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
      EXPECT_EQ(Bits(ZEPH_MathAbs(x)), Bits(x) ^ (std::uint64_t{1} << 63)) << "x " << x;
    }
}

TEST(MathClamp, AppliesTheLowerBoundThenTheUpper) {
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

TEST(MathClamp, WithCrossedBoundsGivesTheUpperAndClampedTheLower) {
  double v = 1.0;
  ZEPH_MathClamp(v, 10.0, 5.0);
  EXPECT_EQ(v, 5.0);
  EXPECT_EQ(ZEPH_MathClamped(1.0, 10.0, 5.0), 10.0);
  EXPECT_EQ(ZEPH_MathClamped(12.0, 10.0, 5.0), 5.0);
}

TEST(MathClamp, RereadsABoundThatAliasesTheValue) {
  double v = 1.0;
  ZEPH_MathClamp(v, 10.0, v);  // the upper bound rises with the value
  EXPECT_EQ(v, 10.0);
}

TEST(MathClamped, ReturnsABoundOrTheValue) {
  EXPECT_SAME_BITS(ZEPH_MathClamped(7, 0, 5), 5.0);
  EXPECT_SAME_BITS(ZEPH_MathClamped(-7, 0, 5), 0.0);
  EXPECT_SAME_BITS(ZEPH_MathClamped(-0.0, 0, 5), -0.0);
  EXPECT_SAME_BITS(ZEPH_MathClamped(-0.0, -5, 0.0), -0.0);
  EXPECT_SAME_BITS(ZEPH_MathClamped(0.0, -5, -0.0), 0.0);
  EXPECT_SAME_BITS(ZEPH_MathClamped(kNaN, 0, 5), kNaN);
}

namespace {

/// Each kind of number; every pair of them as bounds, also crossed ones.
std::vector<double> EveryKind() {
  return {0.0,    -0.0,      1.0,        -1.0,   2.5,
          5e-324, -5e-324,   1e300,      -1e300, kNaN,
          -kNaN,  kInfinity, -kInfinity, 3.0,    FromBits<double>(0x7FF8000000012345u)};
}

}  // namespace

TEST(MathClamp, TakesItsStepsForEveryValueAndPairOfBounds) {
  for (const double v : EveryKind())
    for (const double lo : EveryKind())
      for (const double hi : EveryKind()) {
        SCOPED_TRACE(::testing::Message() << v << " in " << lo << " to " << hi);
        const double* want = &v;  // bits are pointed to, not moved
        if (lo > *want) want = &lo;
        if (*want > hi) want = &hi;
        double got = v;
        ZEPH_MathClamp(got, lo, hi);
        EXPECT_SAME_BITS(got, *want);
        EXPECT_SAME_BITS(ZEPH_MathClamped(v, lo, hi), lo > v ? lo : v > hi ? hi : v);
      }
}

TEST(MathClamp, TakesItsStepsWhereTheValueIsABound) {
  for (const double v : EveryKind())
    for (const double bound : EveryKind()) {
      SCOPED_TRACE(::testing::Message() << v << " and " << bound);
      double low = v, high = v, both = v;
      ZEPH_MathClamp(low, low, bound);
      EXPECT_SAME_BITS(low, v > bound ? bound : v);
      ZEPH_MathClamp(high, bound, high);
      EXPECT_SAME_BITS(high, bound > v ? bound : v);
      ZEPH_MathClamp(both, both, both);
      EXPECT_SAME_BITS(both, v);
      EXPECT_SAME_BITS(ZEPH_MathClamped(low, low, low), low);
    }
}

TEST(MathIntegerDivision, AgreesWithLongerArithmetic) {
  const std::vector<int> numbers = {
      0,  1,   -1,  2,     -2,     3,     -3,     7,       -7,          10,      -10,
      99, -99, 100, 12345, -12345, 65536, -65536, INT_MAX, INT_MAX - 1, INT_MIN, INT_MIN + 1};
  for (const int a : numbers) {
    EXPECT_EQ(ZEPH_MathGetRightMostDigit(a), static_cast<int>(std::int64_t{a} % 10)) << a;
    for (const int b : numbers) {
      if (b == 0 || (a == INT_MIN && b == -1)) continue;
      int quotient = 77, remainder = 77;
      ZEPH_MathIntegerDivision(a, b, quotient, remainder);
      EXPECT_EQ(quotient, static_cast<int>(std::int64_t{a} / b)) << a << " by " << b;
      EXPECT_EQ(remainder, static_cast<int>(std::int64_t{a} % b)) << a << " by " << b;
    }
  }
}

TEST(MathAngles, UseConversionFactorsOfThirteenDigits) {
  EXPECT_SAME_BITS(ZEPH_MathRadToDeg(1.0), 57.29577951308);
  EXPECT_SAME_BITS(ZEPH_MathDegToRad(1.0), 0.01745329251994);
  for (const double x : Awkward(2000, 1)) {
    SCOPED_TRACE(::testing::Message() << "x " << x);
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

TEST(MathIntegerDivision, MayStoreItsResultsInItsArguments) {
  int a = 17, b = 5;
  ZEPH_MathIntegerDivision(a, b, b, a);
  EXPECT_EQ(b, 3);
  EXPECT_EQ(a, 2);
}

TEST(MathIntegerDivision, StoresTheRemainderLast) {
  for (const int a : {17, -17, 3, 0, INT_MAX})
    for (const int b : {5, -5, 1, 17}) {
      int both = 77;
      ZEPH_MathIntegerDivision(a, b, both, both);
      EXPECT_EQ(both, a % b) << a << " by " << b;
    }
}

TEST(MathGetExponent, ChangesNeitherArgument) {
  for (double x : SpecialValues<double>()) {
    const double before = x;
    int exponent = 12345;
    ZEPH_MathGetExponent(x, 3.0, exponent);
    EXPECT_SAME_BITS(x, before) << "x " << x;
    EXPECT_EQ(exponent, 12345) << "x " << x;
  }
}
