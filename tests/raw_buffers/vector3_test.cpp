#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "oracle/fixed_geometry.h"
#include "raw_buffers.h"
#include "support/bits.h"
#include "support/not_finite.h"
#include "support/numbers.h"

using namespace zeph::test;

namespace {

/// Calls `visit(a, b, out, pool)` with three vectors at every distance within nine doubles.
template <class Visit>
void ForEachPlacing(Visit visit) {
  for (std::size_t a = 0; a <= 6; ++a)
    for (std::size_t b = 0; b <= 6; ++b)
      for (std::size_t out = 0; out <= 6; ++out)
        for (std::uint64_t seed = 0; seed < 4; ++seed) {
          visit(a, b, out, Awkward(9, seed * 343 + a * 49 + b * 7 + out));
          if (::testing::Test::HasFailure())
            FAIL() << "with a at " << a << ", b at " << b << " and the result at " << out
                   << " of the numbers "
                   << ::testing::PrintToString(Awkward(9, seed * 343 + a * 49 + b * 7 + out));
        }
}

}  // namespace

TEST(RawVector3, WorksComponentByComponentForEveryAliasing) {
  ForEachPlacing(
      [](std::size_t a, std::size_t b, std::size_t out, const std::vector<double>& pool) {
        auto got = pool, want = pool;
        ZEPH_VectorAdd3(&got[a], &got[b], &got[out]);
        for (std::size_t k = 0; k < 3; ++k) want[out + k] = want[a + k] + want[b + k];
        EXPECT_TRUE(SameValues(got, want)) << "ZEPH_VectorAdd3";
        got = want = pool;
        ZEPH_VectorSub3(&got[a], &got[b], &got[out]);
        for (std::size_t k = 0; k < 3; ++k) want[out + k] = want[a + k] - want[b + k];
        EXPECT_TRUE(SameValues(got, want)) << "ZEPH_VectorSub3";
        got = want = pool;
        ZEPH_VectorScale3(&got[a], pool[b], &got[out]);
        for (std::size_t k = 0; k < 3; ++k) want[out + k] = pool[b] * want[a + k];
        EXPECT_TRUE(SameValues(got, want)) << "ZEPH_VectorScale3";
        got = want = pool;
        ZEPH_VectorAssign3(&got[a], &got[out]);
        for (std::size_t k = 0; k < 3; ++k) want[out + k] = want[a + k];
        EXPECT_TRUE(SameBits(got, want)) << "ZEPH_VectorAssign3";
      });
}

TEST(RawVectorCrossProduct3, StoresEachComponentBeforeTheNextForEveryAliasing) {
  ForEachPlacing(
      [](std::size_t a, std::size_t b, std::size_t out, const std::vector<double>& pool) {
        auto got = pool, want = pool;
        ZEPH_VectorCrossProduct3(&got[a], &got[b], &got[out]);
        oracle::Cross3(&want[a], &want[b], &want[out]);
        EXPECT_TRUE(SameValues(got, want));
      });
}

TEST(RawVectorAssign3, CopiesTheFirstArgumentIntoTheSecond) {
  double p[] = {1, 2, 3}, q[] = {7, 8, 9};
  ZEPH_VectorAssign3(p, q);
  const double want[] = {1, 2, 3};
  EXPECT_TRUE(SameBits(q, want, 3));
  EXPECT_TRUE(SameBits(p, want, 3));
}

TEST(RawVectorAssign3, SetsAllComponentsToOneValueOrToThree) {
  double v[] = {7, 8, 9, -7};
  ZEPH_VectorAssign3(v, 2.5);
  const double same[] = {2.5, 2.5, 2.5, -7};
  EXPECT_TRUE(SameBits(v, same, 4));
  ZEPH_VectorAssign3(v, 1, 2, 3);
  const double each[] = {1, 2, 3, -7};
  EXPECT_TRUE(SameBits(v, each, 4));
}

TEST(RawVectorDotProduct3, AddsTheSecondProductFirstThenTheFirstThenTheThird) {
  double a[] = {-1e16, 1e16, 1}, ones[] = {1, 1, 1};
  EXPECT_EQ(ZEPH_VectorDotProduct3(a, ones), 1);
  double b[] = {1, 1e16, -1e16};
  EXPECT_EQ(ZEPH_VectorDotProduct3(b, ones), 0);  // x last would give 1
  for (std::uint64_t seed = 0; seed < 3000; ++seed) {
    auto v = Awkward(6, seed);
    EXPECT_SAME_VALUE(ZEPH_VectorDotProduct3(&v[0], &v[3]), oracle::Dot3(&v[0], &v[3])) << seed;
    auto w = Moderate(6, seed);
    EXPECT_SAME_VALUE(ZEPH_VectorDotProduct3(&w[0], &w[3]), oracle::Dot3(&w[0], &w[3])) << seed;
  }
}

TEST(RawVectorGetLength3, AndNormalizeAgreeWithTheOracleToTheBit) {
  for (std::uint64_t seed = 0; seed < 3000; ++seed) {
    for (auto v : {Awkward(3, seed), Moderate(3, seed)}) {
      EXPECT_SAME_VALUE(ZEPH_VectorGetLength3(v.data()), oracle::Length3(v.data())) << seed;
      auto want = v;
      ZEPH_VectorNormalize3(v.data());
      oracle::Normalize3(want.data());
      EXPECT_TRUE(SameValues(v, want)) << seed;
    }
  }
}

TEST(RawVectorNormalize3, LeavesAVectorOfLengthZeroUnchanged) {
  const double nan = kNaN;
  for (const std::vector<double>& start : std::vector<std::vector<double>>{
           {0, 0, 0}, {-0.0, 0.0, -0.0}, {nan, 1, 2}, {1e-200, -1e-200, 0}}) {
    auto v = start;
    ZEPH_VectorNormalize3(v.data());
    EXPECT_TRUE(SameBits(v, start));
  }
  double v[] = {3, 0, 4};
  ZEPH_VectorNormalize3(v);
  const double want[] = {0.6, 0, 0.8};
  EXPECT_TRUE(SameBits(v, want, 3));
}

TEST(RawVectorAssign3, ReadsAnIntegerAsAValueNotAsAPointer) {
  double v[3] = {1, 2, 3};
  ZEPH_VectorAssign3(v, 0);  // not a null destination
  for (const double x : v) EXPECT_SAME_BITS(x, 0.0) << "x " << x;
  ZEPH_VectorAssign3(v, 7L);
  for (const double x : v) EXPECT_EQ(x, 7.0) << "x " << x;
}

TEST(RawVectorAssign3, AcceptsIntegersOfEveryType) {
  const auto expect = [](auto value) {
    using Limits = std::numeric_limits<decltype(value)>;
    for (const auto whole : {Limits::max(), Limits::min(), value}) {
      double v[] = {7, 8, 9};
      ZEPH_VectorAssign3(v, whole);
      for (const double x : v) EXPECT_SAME_BITS(x, static_cast<double>(whole));
    }
  };
  expect(short{5});
  expect(5);
  expect(5u);
  expect(5L);
  expect(5LL);
  expect(5ULL);
}

TEST(RawVector3, LengthsAndProductsChangeNothing) {
  for (std::uint64_t seed = 0; seed < 200; ++seed) {
    const auto before = Awkward(6, seed);
    auto v = before;
    ZEPH_VectorDotProduct3(&v[0], &v[3]);
    ZEPH_VectorGetLength3(&v[0]);
    EXPECT_TRUE(SameBits(v, before)) << seed;
  }
}
