// The portable sine, cosine, tangent and logarithm, compared with correctly rounded results.
//
// The reference is MPFR. Where the runtime has a long double with 64 bits, its function is tried
// first: if the result may vary by 2^-60 of itself, some 16 units of its last place, without
// changing the rounding, it decides. All others, and one in 1024 in any case, are compared with
// MPFR.
#include "prove/proof.h"

#ifdef ZEPH_HAVE_MPFR

#include <mpfr.h>

#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "portable_math/bits.h"
#include "portable_math/logarithm.h"
#include "portable_math/sine_cosine.h"
#include "portable_math/tangent.h"
#include "support/numbers.h"

namespace zeph::prove {
namespace {

using portable_math::BitsOf;
using portable_math::DoubleOf;

class Mpfr {
 public:
  explicit Mpfr(mpfr_prec_t precision) { mpfr_init2(x_, precision); }
  ~Mpfr() { mpfr_clear(x_); }
  Mpfr(const Mpfr&) = delete;
  Mpfr& operator=(const Mpfr&) = delete;
  operator mpfr_ptr() { return x_; }

 private:
  mpfr_t x_;
};

using MpfrFunction = int (*)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);

/// `function` of x rounded to a T, which is the argument's type too. No result is denormal except
/// where the function returns its argument.
template <class T>
double Judged(MpfrFunction function, T x) {
  thread_local Mpfr argument(DBL_MANT_DIG),
      result(std::is_same_v<T, float> ? FLT_MANT_DIG : DBL_MANT_DIG);
  mpfr_set_d(argument, x, MPFR_RNDN);
  function(result, argument, MPFR_RNDN);
  return mpfr_get_d(result, MPFR_RNDN);
}

/// Compares results with the long double where that is certain, else with MPFR.
class Comparison {
 public:
  explicit Comparison(Case& seen) : seen_(seen) {}

  /// `wide` is the runtime's function of x with more digits than a T, correct within `error` of it.
  template <class T, class Wide>
  void Compare(const char* name, MpfrFunction function, T x, T got, Wide wide, Wide error) {
    const T low = static_cast<T>(wide * (1 - error)), high = static_cast<T>(wide * (1 + error));
    const bool sure = low == high && ++asked_ % 1024 != 0;
    const T want = sure ? low : static_cast<T>(Judged(function, x));
    Same(name, x, got, want);
  }

  void Angle(double x) {
    const auto got = portable_math::SineCosine(x);
    const long double wide = x;
    Compare("sine", mpfr_sin, x, got.sine, std::sin(wide), kError);
    Compare("cosine", mpfr_cos, x, got.cosine, std::cos(wide), kError);
  }

  void Logarithm(double x) {
    const double got = portable_math::DecimalLogarithm(x);
    Compare("log10", mpfr_log10, x, got, std::log10(static_cast<long double>(x)), kError);
  }

  void Tangent(float x) {
    Compare("tangent", mpfr_tan, x, portable_math::Tangent(x), std::tan(static_cast<double>(x)),
            0x1p-46);
  }

  /// The last step of sine, cosine and logarithm, which other arguments hardly ever reach.
  void WholeNumbers(double x) {
    const auto got = portable_math::SineCosineInWholeNumbers(x);
    const auto want = portable_math::SineCosine(x);
    Same("sine in whole numbers", x, got.sine, want.sine);
    Same("cosine in whole numbers", x, got.cosine, want.cosine);
    const double magnitude = std::fabs(x);
    Same("log10 in whole numbers", magnitude,
         portable_math::DecimalLogarithmInWholeNumbers(magnitude),
         portable_math::DecimalLogarithm(magnitude));
  }

 private:
  static constexpr long double kError = LDBL_MANT_DIG >= 64 ? 0x1p-60L : 1.0L;

  template <class T>
  void Same(const char* name, T x, T got, T want) {
    const bool failed = seen_.Failed();
    seen_.Expect(test::SameBits(got, want), name);
    if (seen_.Failed() && !failed) seen_.Describe(test::Show(x));
  }

  Case& seen_;
  unsigned asked_ = 0;
};

constexpr int kBlock = 1000;

/// Any exponent, or one of the range where the function matters most.
double Drawn(test::Random& random, int least, int most) {
  const std::uint64_t bits = random.Next();
  if (random.Below(2) == 0) {
    const double x = DoubleOf(bits);
    return std::isfinite(x) ? x : 1.0;
  }
  const double fraction = DoubleOf((bits & ~portable_math::kInfinityBits) | BitsOf(1.0));
  return std::ldexp(fraction, random.Int(least, most));
}

void CheckSines(std::uint64_t k, Case& seen) {
  test::Random random(k * 8 + 9);
  Comparison comparison(seen);
  for (int i = 0; i < kBlock; ++i) comparison.Angle(Drawn(random, -30, 40));
}

void CheckLogarithms(std::uint64_t k, Case& seen) {
  test::Random random(k * 8 + 10);
  Comparison comparison(seen);
  for (int i = 0; i < kBlock; ++i) {
    const double x = std::fabs(Drawn(random, -6, 6));
    if (x != 0) comparison.Logarithm(x);
  }
}

/// 0.01 apart from -36000 to 36000, converted as the library converts.
constexpr std::uint64_t kDegreeBlocks = 7201;
void CheckDegrees(std::uint64_t k, Case& seen) {
  Comparison comparison(seen);
  for (int i = 0; i < kBlock; ++i) {
    const double degrees = (static_cast<double>(k) * kBlock + i - 3600000) / 100.0;
    comparison.Angle(degrees * 3.141592653589793 / 180.0);
  }
}

void CheckTangents(std::uint64_t k, Case& seen) {
  Comparison comparison(seen);
  for (std::uint32_t i = 0; i < 65536; ++i) {
    const auto bits = static_cast<std::uint32_t>(k << 16) | i;
    float x;
    std::memcpy(&x, &bits, sizeof x);
    if (std::isfinite(x)) comparison.Tangent(x);
  }
}

void CheckWholeNumbers(std::uint64_t k, Case& seen) {
  test::Random random(k * 8 + 11);
  Comparison comparison(seen);
  for (int i = 0; i < 10; ++i) {
    const double x = Drawn(random, -27, 40);
    if (std::fabs(x) >= 0x1p-27) comparison.WholeNumbers(x);  // smaller angles need no last step
  }
}

/// The doubles significand * 2^e that come nearest to multiples of pi/2: the significands are
/// denominators of the convergents of 2^e * 2/pi, their small multiples, and neighbours.
void CheckMultiples(std::uint64_t k, Case& seen) {
  constexpr mpfr_prec_t kPrecision = 1300;
  const int exponent = static_cast<int>(k) - 80;
  Comparison comparison(seen);
  Mpfr x(kPrecision), whole(kPrecision);
  mpfr_const_pi(x, MPFR_RNDN);
  mpfr_ui_div(x, 2, x, MPFR_RNDN);
  mpfr_mul_2si(x, x, exponent, MPFR_RNDN);
  double before = 0, denominator = 1;  // whole numbers below 2^53
  for (;;) {
    mpfr_floor(whole, x);
    mpfr_sub(x, x, whole, MPFR_RNDN);
    if (mpfr_zero_p(static_cast<mpfr_ptr>(x))) return;
    mpfr_ui_div(x, 1, x, MPFR_RNDN);
    const double quotient = std::floor(mpfr_get_d(x, MPFR_RNDZ));
    const double next = quotient * denominator + before;
    for (int times = 1; times <= 4; ++times)
      for (int off = -1; off <= 1; ++off) {
        const double significand = denominator * times + off;
        if (significand >= 1 && significand <= 0x1p53)
          comparison.Angle(std::ldexp(significand, exponent));
      }
    if (next >= 0x1p53) return;
    before = denominator;
    denominator = next;
  }
}

/// The doubles about each power of ten, and about 1.
void CheckPowersOfTen(std::uint64_t k, Case& seen) {
  Comparison comparison(seen);
  char text[16];
  std::snprintf(text, sizeof text, "1e%d", static_cast<int>(k) - 323);
  const std::uint64_t middle = BitsOf(std::strtod(text, nullptr));
  for (std::uint64_t i = 0; i < 20000; ++i) {
    const double x = DoubleOf(middle + i - 10000);
    if (middle + i > 10000 && std::isfinite(x)) comparison.Logarithm(x);
  }
}

TEST(Proof, SineAndCosineAreCorrectlyRounded) {
  Prove(100'000, CheckSines);
}
TEST(Proof, SineAndCosineOfDegreesAreCorrectlyRounded) {
  Prove(kDegreeBlocks, CheckDegrees);
}
TEST(Proof, SineAndCosineNearMultiplesOfHalfPiAreCorrectlyRounded) {
  Prove(1052, CheckMultiples);
}
TEST(Proof, DecimalLogarithmIsCorrectlyRounded) {
  Prove(100'000, CheckLogarithms);
}
TEST(Proof, DecimalLogarithmNearPowersOfTenIsCorrectlyRounded) {
  Prove(632, CheckPowersOfTen);
}
TEST(Proof, TangentOfEveryFloatIsCorrectlyRounded) {
  Prove(65'536, CheckTangents);
}
TEST(Proof, IntegerFormsAreCorrectlyRounded) {
  Prove(100'000, CheckWholeNumbers);
}

}  // namespace
}  // namespace zeph::prove

#endif  // ZEPH_HAVE_MPFR
