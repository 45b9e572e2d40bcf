#include "double_array/arrays.h"
#include "oracle/sorts.h"
#include "support/not_finite.h"
#include "support/scale.h"

using namespace zeph;
using namespace zeph::test;

namespace {
using Values = std::vector<double>;
}

TEST(DoubleArrayMedianOf3, ParksTheMedianBesideTheRightEnd) {
  CZEPHDoubleArray a = ArrayOf({3, 1, 2});
  EXPECT_EQ(a.MedianOf3(0, 2), 2.0);  // the centre is exchanged with itself
  EXPECT_TRUE(SameBits(ElementsOf(a), {1, 2, 3}));
  CZEPHDoubleArray b = ArrayOf({5, 9, 1, 8, 3});
  EXPECT_EQ(b.MedianOf3(0, 4), 3.0);
  EXPECT_TRUE(SameBits(ElementsOf(b), {1, 9, 8, 3, 5}));
}

TEST(DoubleArrayPartition, EveryPartAgreesWithItsOracleOnEveryShortArray) {
  for (std::size_t n = 2; n <= Scaled<std::size_t>(6, 4); ++n)
    ForEachArray(Alphabet(), n, [n](const Values& v) {
      const int right = static_cast<int>(n) - 1;
      CZEPHDoubleArray a = ArrayOf(v);
      Values want = v;
      const double pivot = a.MedianOf3(0, right);
      ASSERT_TRUE(SameBits(pivot, oracle::MedianOf3(want, 0, right))) << Show(v);
      ASSERT_TRUE(SameBits(ElementsOf(a), want)) << Show(v);
      if (n > 2) {
        ASSERT_EQ(a.QuickPartition(0, right, pivot), oracle::QuickPartition(want, 0, right, pivot));
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

TEST(DoubleArrayPartition, OneElementAndInvertedRangesReadNothingElse) {
  CZEPHDoubleArray a = ArrayOf({5, 6, 7});
  Values want = {5, 6, 7};
  for (double pivot : {5.0, 6.0, 7.0, kNaN}) {
    EXPECT_EQ(a.Partition(1, 1, pivot), oracle::Partition(want, 1, 1, pivot));
    EXPECT_EQ(a.Partition(2, 0, pivot), oracle::Partition(want, 2, 0, pivot));
    EXPECT_EQ(a.Partition(2, 1, pivot), 1);  // the steps would exchange these two forever
  }
  EXPECT_TRUE(SameBits(ElementsOf(a), want));
}

TEST(DoubleArraySwap, ExchangesTwoElements) {
  CZEPHDoubleArray a = ArrayOf({1, -0.0, kNaN});
  a.sorted = 1;
  a.Swap(0, 2);
  a.Swap(1, 1);
  EXPECT_TRUE(SameBits(ElementsOf(a), {kNaN, -0.0, 1}));
  EXPECT_EQ(a.sorted, 1);
}
