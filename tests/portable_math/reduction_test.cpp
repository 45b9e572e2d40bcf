// The remainders that angles are reduced to, compared with 256 bits of them; and the functions where few of a
// thousand arguments would show an error.
#include "portable_math/reduction.h"

#include <gtest/gtest.h>

#include <cmath>

#include "fixed.h"
#include "portable_math/logarithm.h"
#include "portable_math/sine_cosine.h"
#include "support/bits.h"
#include "support/numbers.h"
#include "support/scale.h"

namespace zeph::portable_math {
namespace {

using test::SameBits;
using test::Show;

/// The angle less the steps, in radians: with 250 bits behind the point.
Fixed Remainder(double magnitude, std::uint32_t steps) {
  Fixed turns = QuarterTurns(PartsOf(BitsOf(magnitude)));
  turns.word[0] &= 3;
  Fixed taken = FixedOf(steps / tables::kQuarterSteps & 3);
  taken.word[1] = (steps % tables::kQuarterSteps) << 24;
  Fixed left = Difference(turns, taken);
  if (IsNegative(Sum(left, FixedOf(2)))) left = Sum(left, FixedOf(4));
  if (!IsNegative(Difference(left, FixedOf(2)))) left = Difference(left, FixedOf(4));
  const Fixed radians = Product(Magnitude(left), tables::kQuarterTurn);
  return IsNegative(left) ? Negative(radians) : radians;
}

/// At least `bits` bits of the remainder are right.
void ExpectExact(double magnitude, const Reduced& reduced, int bits) {
  const Fixed want = Remainder(magnitude, reduced.steps);
  const Fixed got = Sum(ToFixed(reduced.rest.head), ToFixed(reduced.rest.tail));
  const int right = LeadingPlace(Magnitude(Difference(want, got))) - LeadingPlace(Magnitude(want));
  ASSERT_GE(right, bits) << Show(magnitude);
  ASSERT_LT(std::fabs(reduced.rest.head), 0.0031) << Show(magnitude);  // half a step
}

/// Angles of every magnitude: any, and next to multiples of a quarter turn.
template <class Visit>
void ForEachMagnitude(int least, int most, int count, Visit visit) {
  test::Random random(23);
  constexpr double kQuarter = 1.5707963267948966;
  for (int exponent = least; exponent < most; ++exponent)
    for (int k = 0; k < count; ++k) {
      const double x = std::ldexp(random.Real(1, 2), exponent);
      visit(x);
      if (exponent < 1 || exponent > 50) continue;
      double next = std::nearbyint(x / kQuarter) * kQuarter;
      for (int ulps = random.Int(0, 3); ulps > 0; --ulps)
        next = std::nextafter(next, random.Int(0, 1) ? 0.0 : 1e300);
      visit(next);
    }
}

TEST(Reduction, LeavesExactRemaindersAtEveryMagnitude) {
  const int count = test::Scaled(60, 12);
  ForEachMagnitude(-27, 15, count, [](double x) {
    ExpectExact(x, Reduce(x), 66);
    ExpectExact(x, ReduceShortly(x), 66);
  });
  ForEachMagnitude(15, 1024, count / 3, [](double x) { ExpectExact(x, ReduceLarge(x), 90); });
}

TEST(Reduction, SineAndCosineMatchTheIntegerFormsAtEveryMagnitude) {
  ForEachMagnitude(-28, 60, test::Scaled(60, 12), [](double x) {
    const SineAndCosine fast = SineCosine(x), whole = SineCosineInWholeNumbers(x);
    ASSERT_TRUE(SameBits(fast.sine, whole.sine)) << Show(x);
    ASSERT_TRUE(SameBits(fast.cosine, whole.cosine)) << Show(x);
  });
}

/// About where one way of reducing them takes over from another, one angle of a thousand shows a lost bit.
TEST(Reduction, AnglesAroundTheSlowPathsBoundMatchTheIntegerForms) {
  test::Random random(25);
  for (int k = 0; k < 9000; ++k) {
    const double x = std::ldexp(random.Real(1, 2), random.Int(13, 17));
    const SineAndCosine fast = SineCosine(x), whole = SineCosineInWholeNumbers(x);
    ASSERT_TRUE(SameBits(fast.sine, whole.sine)) << Show(x);
    ASSERT_TRUE(SameBits(fast.cosine, whole.cosine)) << Show(x);
  }
}

/// About half a step of the table from a multiple of a quarter turn, the last term of the sine counts: one angle of a
/// thousand shows it.
TEST(Reduction, AnglesHalfAStepFromQuarterTurnsMatchTheIntegerForms) {
  test::Random random(26);
  constexpr double kQuarter = 1.5707963267948966;
  for (int k = 0; k < 8000; ++k) {
    const double aside = random.Real(0.0028, 0.0033);
    const double x = k % 2 ? aside : k / 2 % 5 * kQuarter + aside;
    const SineAndCosine fast = SineCosine(x), whole = SineCosineInWholeNumbers(x);
    ASSERT_TRUE(SameBits(fast.sine, whole.sine)) << Show(x);
    ASSERT_TRUE(SameBits(fast.cosine, whole.cosine)) << Show(x);
  }
}

/// Where logarithms are small, the last bits of the number count.
TEST(Reduction, LogarithmsNearOneMatchTheIntegerForm) {
  test::Random random(24);
  for (int k = 0; k < 20'000; ++k) {
    const double distance = std::ldexp(random.Real(-1, 1), -random.Int(5, k % 8 ? 7 : 52));
    const double x = 1.0 + distance;
    ASSERT_TRUE(SameBits(DecimalLogarithm(x), DecimalLogarithmInWholeNumbers(x))) << Show(x);
  }
}

/// Below 1 the remainder of an odd number may have one bit more than a double, here next to its greatest where the
/// logarithm is small: one number of two thousand shows what becomes of the bit.
TEST(Reduction, LogarithmsOfTheLongestRemaindersMatchTheIntegerForm) {
  test::Random random(27);
  for (int k = 0; k < 10'000; ++k) {
    const double x = DoubleOf(BitsOf(1.0 - random.Real(3.5, 3.56) / 128) | 1);
    ASSERT_TRUE(SameBits(DecimalLogarithm(x), DecimalLogarithmInWholeNumbers(x))) << Show(x);
  }
}

}  // namespace
}  // namespace zeph::portable_math
