#include "double_array/arrays.h"
#include "oracle/sorts.h"
#include "support/not_finite.h"
#include "support/scale.h"

using namespace zeph;
using namespace zeph::test;

namespace {
using Values = std::vector<double>;
}

TEST(DoubleArrayMedianOf3, PutsTheMedianNextToTheRightEnd) {
  CZEPHDoubleArray a = ArrayOf({3, 1, 2});
  EXPECT_EQ(a.MedianOf3(0, 2), 2.0);  // the centre is exchanged with itself
  EXPECT_TRUE(SameBits(ElementsOf(a), {1, 2, 3}));
  CZEPHDoubleArray b = ArrayOf({5, 9, 1, 8, 3});
  EXPECT_EQ(b.MedianOf3(0, 4), 3.0);
  EXPECT_TRUE(SameBits(ElementsOf(b), {1, 9, 8, 3, 5}));
}

TEST(DoubleArrayPartition, EveryStepAgreesWithItsOracleOnEveryShortArray) {
  for (std::size_t n = 2; n <= Scaled<std::size_t>(6, 4); ++n)
    ForEachArray(Alphabet(), n, [n](const Values& v) {
      const int right = static_cast<int>(n) - 1;
      CZEPHDoubleArray a = ArrayOf(v);
      Values want = v;
      const double pivot = a.MedianOf3(0, right);
      ASSERT_TRUE(SameBits(pivot, oracle::MedianOf3(want, 0, right))) << Show(v);
      ASSERT_TRUE(SameBits(ElementsOf(a), want)) << Show(v);
      if (n > 2) {
        ASSERT_EQ(a.QuickPartition(0, right, pivot), oracle::QuickPartition(want, 0, right, pivot))
            << "n " << n;
        ASSERT_TRUE(SameBits(ElementsOf(a), want)) << Show(v);
      }
      CZEPHDoubleArray manual = ArrayOf(v);
      want = v;
      manual.ManualSort(0, right);
      oracle::ManualSort(want, 0, right);
      ASSERT_TRUE(SameBits(ElementsOf(manual), want)) << Show(v);
      for (double x : Alphabet()) {
        CZEPHDoubleArray parted = ArrayOf(v);
        want = v;
        ASSERT_EQ(parted.Partition(0, right, x), oracle::Partition(want, 0, right, x)) << Show(v);
        ASSERT_TRUE(SameBits(ElementsOf(parted), want)) << Show(v);
      }
    });
}

TEST(DoubleArrayPartition, RangesOfLongArraysAgreeWithTheOracles) {
  zeph::test::Random random(3);
  for (int round = 0; round < Scaled(3000, 300); ++round) {
    SCOPED_TRACE(::testing::Message() << "round " << round);
    const Order& order = Orders()[random.Below(Orders().size())];
    const Values v = order.make(3 + random.Below(500), random.Next());
    const int last = static_cast<int>(v.size()) - 1;
    const int left = random.Int(0, last - 2);
    const int right = random.Int(left + 2, last);
    CZEPHDoubleArray a = ArrayOf(v);
    a.sorted = 1;
    Values want = v;
    const double pivot = a.MedianOf3(left, right);
    ASSERT_TRUE(SameBits(pivot, oracle::MedianOf3(want, left, right)));
    ASSERT_EQ(a.QuickPartition(left, right, pivot),
              oracle::QuickPartition(want, left, right, pivot));
    ASSERT_TRUE(SameBits(ElementsOf(a), want)) << Show(v);
    const double x = AwkwardValue<double>(random);
    ASSERT_EQ(a.Partition(left, right, x), oracle::Partition(want, left, right, x));
    ASSERT_TRUE(SameBits(ElementsOf(a), want)) << Show(v);
    ASSERT_EQ(a.sorted, 1);
  }
}

TEST(DoubleArrayPartition, ReadsNothingOutsideSingleElementAndInvertedRanges) {
  CZEPHDoubleArray a = ArrayOf({5, 6, 7});
  Values want = {5, 6, 7};
  for (double pivot : {5.0, 6.0, 7.0, kNaN}) {
    EXPECT_EQ(a.Partition(1, 1, pivot), oracle::Partition(want, 1, 1, pivot)) << "pivot " << pivot;
    EXPECT_EQ(a.Partition(2, 0, pivot), oracle::Partition(want, 2, 0, pivot)) << "pivot " << pivot;
    EXPECT_EQ(a.Partition(2, 1, pivot), 1)
        << "pivot " << pivot;  // the steps would exchange these two forever
  }
  EXPECT_TRUE(SameBits(ElementsOf(a), want));
}

/// The sum of two indices, or their distance and 1, need not be an int.
TEST(DoubleArrayPartition, WorksAtTheLargestIndices) {
  if (sizeof(void*) < 8) GTEST_SKIP() << "such an index is in no 32-bit address space";
  constexpr int kCount = 12, kLeft = std::numeric_limits<int>::max() - kCount;
  constexpr int kRight = kLeft + kCount - 1, kLast = kCount - 1;
  for (std::uint64_t seed = 0; seed < 20; ++seed) {
    const Values v = Awkward(kCount, seed);
    Values got = v, want = v;
    CZEPHDoubleArray a;
    a.size = std::numeric_limits<int>::max();
    a.data = reinterpret_cast<double*>(reinterpret_cast<std::uintptr_t>(got.data()) -
                                       std::uintptr_t{kLeft} * sizeof(double));
    const double pivot = a.MedianOf3(kLeft, kRight);
    EXPECT_SAME_BITS(pivot, oracle::MedianOf3(want, 0, kLast));
    EXPECT_TRUE(SameBits(got, want));
    EXPECT_EQ(a.QuickPartition(kLeft, kRight, pivot) - kLeft,
              oracle::QuickPartition(want, 0, kLast, pivot));
    EXPECT_TRUE(SameBits(got, want));
    EXPECT_EQ(a.Partition(kLeft, kRight, 1.0) - kLeft, oracle::Partition(want, 0, kLast, 1.0));
    EXPECT_TRUE(SameBits(got, want));
    a.recQuickSort(kLeft, kRight, 3);
    oracle::RecQuickSort(want, 0, kLast, 3);
    EXPECT_TRUE(SameBits(got, want));
    got = want = v;
    a.InsertionSort(kLeft, kRight);
    oracle::InsertionSort(want, 0, kLast);
    EXPECT_TRUE(SameBits(got, want));
    a.ManualSort(kLeft, kLeft + 2);
    oracle::ManualSort(want, 0, 2);
    a.Swap(kLeft, kRight);
    std::swap(want.front(), want.back());
    EXPECT_TRUE(SameBits(got, want));
    a.data = nullptr;
    a.size = 0;
  }
}

TEST(DoubleArraySwap, ExchangesTwoElements) {
  CZEPHDoubleArray a = ArrayOf({1, -0.0, kNaN});
  a.sorted = 1;
  a.Swap(0, 2);
  a.Swap(1, 1);
  EXPECT_TRUE(SameBits(ElementsOf(a), {kNaN, -0.0, 1}));
  EXPECT_EQ(a.sorted, 1);
}
