// Values by MPFR; the long proof compares with MPFR itself on far more.
#include <gtest/gtest.h>

#include <cerrno>
#include <cfenv>
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "hard_cases.h"
#include "portable_math/logarithm.h"
#include "portable_math/sine_cosine.h"
#include "portable_math/tangent.h"
#include "support/bits.h"
#include "support/modes.h"
#include "support/not_finite.h"
#include "support/numbers.h"
#include "support/scale.h"

namespace zeph::test {
namespace {

using portable_math::DecimalLogarithm;
using portable_math::DecimalLogarithmInWholeNumbers;
using portable_math::SineCosine;
using portable_math::SineCosineInWholeNumbers;
using portable_math::Tangent;
using portable_math::TangentInWholeNumbers;

template <std::size_t n, class Function>
void ExpectCases(const HardCase (&cases)[n], Function function) {
  for (const HardCase& one : cases)
    EXPECT_TRUE(SameBits(function(one.x), one.result))
        << Show(one.x) << ": " << Show(function(one.x));
}

/// Where the fast logarithm falls on the wrong side of the midpoint: one in sixty million
/// arguments.
constexpr HardCase kDoubtfulLogarithms[] = {{0x1.c60fcc4f367ap+0, 0x1.fdb221d1568e1p-3}};

/// All hard cases, by the functions themselves and by their last step.
void ExpectHardCases() {
  for (const auto angle : {SineCosine, SineCosineInWholeNumbers}) {
    const auto sine = [&](double x) { return angle(x).sine; };
    const auto cosine = [&](double x) { return angle(x).cosine; };
    ExpectCases(kHardSines, sine);
    ExpectCases(kSinesNextToMultiples, sine);
    ExpectCases(kHardCosines, cosine);
    ExpectCases(kCosinesNextToMultiples, cosine);
  }
  for (const auto logarithm : {DecimalLogarithm, DecimalLogarithmInWholeNumbers}) {
    ExpectCases(kHardLogarithms, logarithm);
    ExpectCases(kDoubtfulLogarithms, logarithm);
  }
  for (const auto tangent : {Tangent, TangentInWholeNumbers})
    ExpectCases(kHardTangents, [&](double x) { return double{tangent(static_cast<float>(x))}; });
}

struct Arguments {
  double angle, number;
  float narrow;
};

std::vector<Arguments> RandomArguments(std::size_t count) {
  Random random(17);
  std::vector<Arguments> all;
  for (std::size_t i = 0; i < count; ++i) {
    const auto any = FromBits<double>(random.Next());
    const double x = i % 2 == 0 || !std::isfinite(any) ? random.Real(-700, 700) : any;
    all.push_back({x, std::fabs(x), static_cast<float>(random.Real(-100, 100))});
  }
  return all;
}

/// A digest of the functions of all arguments.
std::uint64_t DigestOver(const std::vector<Arguments>& all) {
  std::uint64_t digest = 0;
  const auto take = [&](std::uint64_t bits) {
    digest = (digest ^ bits) * 0x9fb21c651e98df25u;
    digest ^= digest >> 29;
  };
  for (const Arguments& one : all) {
    const auto angle = SineCosine(one.angle);
    take(Bits(angle.sine));
    take(Bits(angle.cosine));
    take(Bits(Tangent(one.narrow)));
    take(Bits(DecimalLogarithm(one.number)));
  }
  return digest;
}

TEST(PortableMath, RoundsTheHardestKnownCasesCorrectly) {
  ExpectHardCases();
}

TEST(PortableMath, RoundsToNearestInEveryRoundingDirection) {
  if (!test::HasFloatingPointEnvironment())
    GTEST_SKIP() << "the floating-point environment is incomplete here";
  const auto arguments = RandomArguments(300);
  const std::uint64_t nearest = DigestOver(arguments);
#ifdef FE_UPWARD
  for (const int direction : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
    SCOPED_TRACE(::testing::Message() << "direction " << direction);
    std::fesetround(direction);
    const std::uint64_t digest = DigestOver(arguments);
    const auto tiny = SineCosine(0x1.8p-30);
    const double one = DecimalLogarithm(10.0), zero = DecimalLogarithm(1.0);
    std::fesetround(FE_TONEAREST);
    EXPECT_EQ(digest, nearest) << direction;
    EXPECT_TRUE(SameBits(tiny.sine, 0x1.8p-30));
    EXPECT_TRUE(SameBits(tiny.cosine, 1.0));
    EXPECT_TRUE(SameBits(one, 1.0));
    EXPECT_TRUE(SameBits(zero, 0.0));
  }
#endif
}

TEST(PortableMath, RoundsToNearestInEveryMode) {
  if (!test::HasFloatingPointEnvironment())
    GTEST_SKIP() << "the floating-point environment is incomplete here";
  std::vector<Arguments> arguments = RandomArguments(60);
  for (const double x : {0x1p-1074, 0x1.8p-1060, 0x1.fffp-1023, 0x1p-1022})
    for (const double angle : {x, -x})
      arguments.push_back({angle, x, static_cast<float>(std::ldexp(angle, 900))});
  arguments.push_back({0x1p-60, 1.0, 0x1p-149f});
  arguments.push_back({-0x1p-60, 10.0, -0x1.8p-130f});
  const std::uint64_t nearest = DigestOver(arguments);
  for (const Mode& mode : Modes()) {
    std::uint64_t digest = 0;
    const int raised = RaisedBy(mode, [&] { digest = DigestOver(arguments); });
    EXPECT_EQ(digest, nearest) << mode.name;
    EXPECT_EQ(raised, 0) << mode.name << ": " << ExceptionNames(raised);
  }
}

/// Computed once and confirmed by the long proof; here it shows that every build gives these bits.
TEST(PortableMath, GivesTheSameBitsOnEverySystem) {
  EXPECT_EQ(DigestOver(RandomArguments(20000)), 0x8738cc622bd95d09u);
}

TEST(PortableMath, FastAndIntegerFormsAgree) {
  Random random(18);
  for (std::size_t i = 0; i < Scaled(20000); ++i) {
    const double x = std::ldexp(random.Real(-1, 1), random.Int(-20, i % 4 == 0 ? 1000 : 12));
    const auto fast = SineCosine(x), whole = SineCosineInWholeNumbers(x);
    ASSERT_TRUE(SameBits(fast.sine, whole.sine)) << Show(x);
    ASSERT_TRUE(SameBits(fast.cosine, whole.cosine)) << Show(x);
    const double magnitude = std::fabs(x);
    ASSERT_TRUE(SameBits(DecimalLogarithm(magnitude), DecimalLogarithmInWholeNumbers(magnitude)))
        << Show(x);
    const auto narrow = static_cast<float>(std::ldexp(random.Real(0.5, 1), random.Int(-11, 128)));
    ASSERT_TRUE(SameBits(Tangent(narrow), TangentInWholeNumbers(narrow))) << Show(narrow);
  }
}

TEST(PortableMath, SineIsOddAndCosineEven) {
  Random random(19);
  for (int i = 0; i < 2000; ++i) {
    const double x = std::ldexp(random.Real(0.5, 1), random.Int(-1070, 1024));
    const auto plus = SineCosine(x), minus = SineCosine(-x);
    ASSERT_TRUE(SameBits(plus.sine, -minus.sine)) << Show(x);
    ASSERT_TRUE(SameBits(plus.cosine, minus.cosine)) << Show(x);
    const auto narrow = static_cast<float>(std::ldexp(random.Real(0.5, 1), random.Int(-148, 128)));
    ASSERT_TRUE(SameBits(Tangent(narrow), -Tangent(-narrow))) << Show(narrow);
  }
}

TEST(PortableMath, TinyAnglesAreTheirOwnSineAndTangent) {
  for (const double x : {0.0, -0.0, 0x1p-1074, -0x1p-1074, 0x1p-1022, 0x1.fffffffffffffp-28}) {
    EXPECT_TRUE(SameBits(SineCosine(x).sine, x)) << "x " << x;
    EXPECT_TRUE(SameBits(SineCosine(x).cosine, 1.0)) << "x " << x;
  }
  for (const float x : {0.0f, -0.0f, 0x1p-149f, 0x1p-126f, 0x1.fffffep-13f})
    EXPECT_TRUE(SameBits(Tangent(x), x)) << "x " << x;
}

TEST(PortableMath, PowersOfTenHaveWholeLogarithms) {
  for (int power = -323; power <= 308; ++power) {
    const double x = std::strtod(("1e" + std::to_string(power)).c_str(), nullptr);
    if (power >= 0 && power <= 22)
      EXPECT_TRUE(SameBits(DecimalLogarithm(x), static_cast<double>(power))) << power;
    else
      EXPECT_EQ(std::nearbyint(DecimalLogarithm(x)), power) << "power " << power;
  }
}

TEST(PortableMath, LogarithmOfDenormalsIsThatOfTheirValue) {
  EXPECT_TRUE(SameBits(DecimalLogarithm(0x1p-1074), -0x1.434e6420f4374p+8));
  EXPECT_TRUE(SameBits(DecimalLogarithm(0x1.8p-1073), DecimalLogarithmInWholeNumbers(0x1.8p-1073)));
}

TEST(PortableMath, LogarithmIsExactWithX87ExtendedPrecision) {
  EXPECT_TRUE(SameBits(DecimalLogarithm(FromBits<double>(0x4077a5112fceaeab)),
                       FromBits<double>(0x40049f72b569c065)));
  EXPECT_TRUE(SameBits(DecimalLogarithm(FromBits<double>(0x406ce2dd97821821)),
                       FromBits<double>(0x4002e905a639e96b)));
}

/// The value, and the flags raised for it.
template <class Function>
auto WithFlags(int expected, Function function) {
  std::feclearexcept(FE_ALL_EXCEPT);
  const auto value = function();
  const int raised = std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW);
  EXPECT_EQ(raised, expected);
  return value;
}

TEST(PortableMath, LeavesErrnoAsItIs) {
  for (const double special : {0.0, -0.0, 1.0, -2.5, 1e300, kInfinity, -kInfinity, kNaN}) {
    volatile double x = special;
    errno = 77;
    for (const double result :
         {SineCosine(x).sine, double{Tangent(static_cast<float>(x))}, DecimalLogarithm(x)})
      x = result;
    EXPECT_EQ(errno, 77) << special;
  }
  errno = 0;
}

TEST(PortableMath, RaisesInvalidAndDivideByZeroWhereIeee754Says) {
  if (!test::HasFloatingPointEnvironment())
    GTEST_SKIP() << "the floating-point environment is incomplete here";
  volatile double x = kInfinity;
  EXPECT_TRUE(std::isnan(WithFlags(FE_INVALID, [&] { return SineCosine(x).sine; })));
  EXPECT_TRUE(std::isnan(WithFlags(FE_INVALID, [&] { return SineCosine(-x).cosine; })));
  EXPECT_TRUE(std::isnan(WithFlags(FE_INVALID, [&] { return Tangent(static_cast<float>(x)); })));
  EXPECT_TRUE(std::isnan(WithFlags(FE_INVALID, [&] { return DecimalLogarithm(-x); })));
  EXPECT_EQ(WithFlags(0, [&] { return DecimalLogarithm(x); }), kInfinity);
  x = -2.5;
  EXPECT_TRUE(std::isnan(WithFlags(FE_INVALID, [&] { return DecimalLogarithm(x); })));
  x = 0.0;
  EXPECT_EQ(WithFlags(FE_DIVBYZERO, [&] { return DecimalLogarithm(x); }), -kInfinity);
  EXPECT_EQ(WithFlags(FE_DIVBYZERO, [&] { return DecimalLogarithm(-x); }), -kInfinity);
  x = kNaN;
  EXPECT_TRUE(std::isnan(WithFlags(0, [&] { return SineCosine(x).sine; })));
  EXPECT_TRUE(std::isnan(WithFlags(0, [&] { return SineCosine(x).cosine; })));
  EXPECT_TRUE(std::isnan(WithFlags(0, [&] { return Tangent(static_cast<float>(x)); })));
  EXPECT_TRUE(std::isnan(WithFlags(0, [&] { return DecimalLogarithm(x); })));
}

#ifndef __EMSCRIPTEN__  // whose machine may give any NaN for one
TEST(PortableMath, LogarithmsOfNansAreTheSameNans) {
  for (std::uint64_t sign : {0u, 1u})
    for (std::uint64_t payload : {0x0u, 0x1u, 0x12345678u, 0x7FFFFFFFu}) {
      const auto nan = FromBits<double>(sign << 63 | 0x7FF8000000000000u | payload << 19 | payload);
      EXPECT_TRUE(SameBits(DecimalLogarithm(nan), nan)) << sign << ", payload " << payload;
    }
}
#endif

TEST(PortableMath, RaisesNoOtherFlag) {
  Random random(20);
  for (int i = 0; i < 3000; ++i) {
    volatile double x = std::ldexp(random.Real(0.5, 1), random.Int(-1073, 1024));
    WithFlags(0, [&] { return SineCosine(x).sine; });
    WithFlags(0, [&] { return DecimalLogarithm(x); });
    volatile float y = static_cast<float>(std::ldexp(random.Real(0.5, 1), random.Int(-148, 128)));
    WithFlags(0, [&] { return Tangent(y); });
  }
  WithFlags(0, [] {
    ExpectHardCases();
    return 0;
  });
}

}  // namespace
}  // namespace zeph::test
