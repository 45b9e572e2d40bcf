#include <cmath>

#include "double_array/arrays.h"
#include "support/not_finite.h"

using namespace zeph::test;

namespace {

using Values = std::vector<double>;

double AbsoluteValue(double x) {
  return FromBits<double>(Bits(x) & ~Bits(-0.0));
}

/// The sum in index order, rounded to double after every addition.
template <class Term>
double SumOf(const Values& v, Term term) {
  if (v.empty()) return 0.0;
  volatile double sum = term(v[0]);
  for (std::size_t i = 1; i < v.size(); ++i) sum = sum + term(v[i]);
  return sum;
}

double MaxOf(const Values& v) {
  if (v.empty()) return 0.0;
  double m = AbsoluteValue(v[0]);
  for (std::size_t i = 1; i < v.size(); ++i)
    if (AbsoluteValue(v[i]) > m) m = AbsoluteValue(v[i]);
  return m;
}

void Compare(const Values& v) {
  const CZEPHDoubleArray a = ArrayOf(v);
  const auto square = [](double x) {
    volatile double product = x * x;
    return static_cast<double>(product);
  };
  ASSERT_TRUE(SameValue(a.OneNorm(), SumOf(v, AbsoluteValue))) << Show(v);
  ASSERT_TRUE(SameValue(a.TwoNorm(), std::sqrt(SumOf(v, square)))) << Show(v);
  ASSERT_TRUE(SameBits(a.MaxNorm(), MaxOf(v))) << Show(v);
  ASSERT_TRUE(SameValue(ZEPH_ArrayDotProduct(a, a), SumOf(v, square))) << Show(v);
}

}  // namespace

TEST(DoubleArrayNorms, GiveTheUsualValues) {
  const CZEPHDoubleArray a = ArrayOf({-5, 3}), b = ArrayOf({3, 4});
  EXPECT_EQ(a.MaxNorm(), 5.0);
  EXPECT_EQ(a.OneNorm(), 8.0);
  EXPECT_EQ(b.TwoNorm(), 5.0);
  EXPECT_EQ(ZEPH_ArrayDotProduct(a, b), -3.0);
}

TEST(DoubleArrayNorms, AddInIndexOrder) {
  for (std::size_t n = 0; n < 70; ++n) {
    ASSERT_NO_FATAL_FAILURE(Compare(Moderate(n, n)));
    ASSERT_NO_FATAL_FAILURE(Compare(Awkward(n, n)));
  }
  for (std::uint64_t seed = 0; seed < 20; ++seed) {
    ASSERT_NO_FATAL_FAILURE(Compare(Moderate(5000, seed)));
    ASSERT_NO_FATAL_FAILURE(Compare(Awkward(300, seed)));
  }
  const CZEPHDoubleArray a = ArrayOf({1e16, 1, -1e16});
  EXPECT_EQ(ZEPH_ArrayDotProduct(a, ArrayOf({1, 1, 1})), 0.0);  // 1 is lost on the way
}

TEST(DoubleArrayNorms, AgreeWithTheOracleOnEveryShortArray) {
  for (std::size_t n = 0; n <= 5; ++n)
    ForEachArray(Alphabet(), n, [](const Values& v) {
      if (!testing::Test::HasFatalFailure()) Compare(v);
    });
}

TEST(DoubleArrayNorms, DoNotScale) {
  EXPECT_EQ(ArrayOf({1e200, 1e200}).TwoNorm(), kInfinity);
  EXPECT_EQ(ArrayOf({1e-200, 1e-200}).TwoNorm(), 0.0);
}

TEST(DoubleArrayNorms, SquareWhateverTheCount) {
  for (std::size_t n = 1; n <= 20; ++n)
    for (std::size_t at = 0; at < n; ++at)
      for (const double x : {1e200, -1e200, 1e-200, -3e-162, 5e-324}) {
        Values v(n, 0.0);
        v[at] = x;
        ASSERT_NO_FATAL_FAILURE(Compare(v));
      }
}

TEST(DoubleArrayNorms, TheMaximumIsNaNOnlyIfTheFirstElementIs) {
  EXPECT_SAME_BITS(ArrayOf({-kNaN, 9}).MaxNorm(), AbsoluteValue(kNaN));
  EXPECT_EQ(ArrayOf({1, kNaN, -9, kNaN}).MaxNorm(), 9.0);
  EXPECT_SAME_BITS(ArrayOf({-0.0}).MaxNorm(), 0.0);
}

TEST(DoubleArrayNorms, ANaNInFrontIsTheMaximumWithoutItsSignAtEveryLength) {
  for (std::size_t n = 1; n <= 70; ++n)
    for (const double nan : {kNaN, -kNaN, FromBits<double>(0xFFF8'0000'0000'0123)}) {
      Values v(n, -2.0);
      v[0] = nan;
      EXPECT_TRUE(SameBits(ArrayOf(v).MaxNorm(), AbsoluteValue(nan))) << n;
    }
}

TEST(DoubleArrayNorms, OfAnEmptyArrayAreZero) {
  for (int size : {-1, 0, 4}) {
    SCOPED_TRACE(::testing::Message() << "size " << size);
    const CZEPHDoubleArray a = WithoutStorage(size), one = ArrayOf({1, 1, 1, 1});
    EXPECT_SAME_BITS(a.OneNorm(), 0.0);
    EXPECT_SAME_BITS(a.TwoNorm(), 0.0);
    EXPECT_SAME_BITS(a.MaxNorm(), 0.0);
    EXPECT_SAME_BITS(ZEPH_ArrayDotProduct(a, one), 0.0);
    EXPECT_SAME_BITS(ZEPH_ArrayDotProduct(one, a), 0.0);
  }
  EXPECT_SAME_BITS(CZEPHDoubleArray(0, 0.0).TwoNorm(), 0.0);
}

TEST(DoubleArrayDotProduct, AddsTheTermsOfBothOperandsFromTheFirst) {
  const auto check = [](const Values& v, const Values& w) {
    volatile double sum = v[0] * w[0];
    for (std::size_t i = 1; i < v.size(); ++i) {
      volatile double term = v[i] * w[i];
      sum = sum + term;
    }
    const double want = sum;
    EXPECT_SAME_VALUE(ZEPH_ArrayDotProduct(ArrayOf(v), ArrayOf(w)), want);
  };
  for (std::size_t n = 1; n <= 40; ++n) {
    check(Values(n, -0.0), Values(n, 1.0));  // -0.0, as no 0.0 takes part
    for (std::uint64_t seed = 0; seed < 10; ++seed) {
      check(Awkward(n, seed), Awkward(n, seed + 100));
      check(Moderate(n, seed), Moderate(n, seed + 100));
    }
  }
}

TEST(DoubleArrayDotProduct, TakesItsCountFromTheLeftOperand) {
  EXPECT_EQ(ZEPH_ArrayDotProduct(ArrayOf({1, 2}), ArrayOf({3, 4, kNaN})), 11.0);
}
