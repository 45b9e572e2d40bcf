#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <limits>
#include <vector>

#include "raw_buffers.h"
#include "support/bits.h"
#include "support/not_finite.h"
#include "support/numbers.h"

using namespace zeph::test;

namespace {

/// The documented steps. Keys encode their origin: the sign of a zero, a NaN's payload.
template <class T>
std::vector<T> Merged(const std::vector<T>& a, const std::vector<T>& b) {
  std::vector<T> out;
  std::size_t i = 0, j = 0;
  while (i < a.size() && j < b.size()) out.push_back(b[j] > a[i] ? a[i++] : b[j++]);
  while (i < a.size()) out.push_back(a[i++]);
  while (j < b.size()) out.push_back(b[j++]);
  return out;
}

template <class T>
std::vector<T> MergedByLibrary(std::vector<T> a, std::vector<T> b) {
  std::vector<T> out(a.size() + b.size() + 1, T(77));
  const std::vector<T> beforeA = a, beforeB = b;
  ZEPH_ArrayMergeSorted(a.data(), static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()),
                        out.data());
  EXPECT_EQ(out.back(), T(77));  // one past the end stays
  EXPECT_TRUE(SameBits(a, beforeA) && SameBits(b, beforeB)) << "the inputs have changed";
  out.pop_back();
  return out;
}

}  // namespace

TEST(RawArrayMergeSorted, MergesEverySmallPairOfIntArrays) {
  for (std::size_t na = 0; na <= 4; ++na)
    for (std::size_t nb = 0; nb <= 4; ++nb)
      ForEachArray<int>({1, 2, 3}, na, [&](std::vector<int> a) {
        std::sort(a.begin(), a.end());
        ForEachArray<int>({1, 2, 3}, nb, [&](std::vector<int> b) {
          std::sort(b.begin(), b.end());
          ASSERT_EQ(MergedByLibrary(a, b), Merged(a, b)) << "na " << na << ", nb " << nb;
        });
      });
}

TEST(RawArrayMergeSorted, PutsTheSecondArraysElementFirstAmongEquals) {
  // Zeros of both signs are equal and reveal their origin.
  const auto got = MergedByLibrary<double>({-0.0, 1}, {0.0, 0.0});
  EXPECT_TRUE(SameBits(got, {0.0, 0.0, -0.0, 1}));
}

TEST(RawArrayMergeSorted, TakesFromTheSecondArrayWhenEitherElementIsNaN) {
  const double nan = kNaN;
  EXPECT_TRUE(SameBits(MergedByLibrary<double>({nan, 1}, {2, 3}), {2, 3, nan, 1}));
  EXPECT_TRUE(SameBits(MergedByLibrary<double>({1, 5}, {nan, 3}), {nan, 1, 3, 5}));
}

TEST(RawArrayMergeSorted, AgreesWithTheStepsOnGeneratedArrays) {
  for (std::uint64_t seed = 0; seed < 200; ++seed) {
    Random random(seed);
    auto a = Awkward(random.Below(100), seed), b = Awkward(random.Below(100), seed + 1000);
    EXPECT_TRUE(SameBits(MergedByLibrary(a, b), Merged(a, b))) << seed;  // unsorted, with NaN
    std::vector<int> c, d;
    for (std::size_t i = random.Below(50); i-- > 0;) c.push_back(random.Int(INT_MIN, INT_MAX));
    for (std::size_t i = random.Below(50); i-- > 0;) d.push_back(random.Int(-9, 9));
    std::sort(c.begin(), c.end());
    std::sort(d.begin(), d.end());
    EXPECT_EQ(MergedByLibrary(c, d), Merged(c, d)) << seed;
  }
}

TEST(RawArrayMergeSorted, TreatsACountBelowOneAsAnEmptyArray) {
  int a[] = {1, 2}, out[] = {7, 7, 7};
  ZEPH_ArrayMergeSorted(a, 2, nullptr, -5, out);
  EXPECT_EQ(out[0], 1);
  EXPECT_EQ(out[1], 2);
  ZEPH_ArrayMergeSorted(nullptr, INT_MIN, a + 1, 1, out);
  EXPECT_EQ(out[0], 2);
  ZEPH_ArrayMergeSorted(a, 0, a, 0, out);
  EXPECT_EQ(out[0], 2);
  EXPECT_EQ(out[2], 7);
}
