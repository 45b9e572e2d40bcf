#include <climits>

#include "double_array/arrays.h"
#include "oracle/searches.h"
#include "support/not_finite.h"
#include "support/scale.h"

using namespace zeph;
using namespace zeph::test;

namespace {

using Values = std::vector<double>;

void CompareBinarySearch(const Values& v, int sorted, double x) {
  CZEPHDoubleArray a = ArrayOf(v);
  a.sorted = sorted;
  int index = -77;
  const int result = a.BinarySearch(x, index);
  const auto want = oracle::BinarySearch(v, sorted != 0, x, -77);
  ASSERT_EQ(result, want.result) << Show(x) << " in " << Show(v);
  ASSERT_EQ(index, want.index) << Show(x) << " in " << Show(v);
  ASSERT_TRUE(SameBits(ElementsOf(a), v)) << Show(x) << " in " << Show(v);
}

void CompareRemove(const Values& v, double x) {
  CZEPHDoubleArray a = ArrayOf(v);
  a.sorted = 1;
  Values want = v;
  ASSERT_EQ(a.Find(x), oracle::Find(v, x)) << Show(x) << " in " << Show(v);
  ASSERT_EQ(a.Remove(x), oracle::Remove(want, x)) << Show(x) << " in " << Show(v);
  ASSERT_TRUE(SameBits(ElementsOf(a), want)) << Show(x) << " in " << Show(v);
  ASSERT_EQ(a.sorted, 1) << Show(x) << " in " << Show(v);
}

}  // namespace

TEST(DoubleArrayFind, ReturnsTheIndexOfTheFirstEqualElement) {
  EXPECT_EQ(CZEPHDoubleArray().Find(1), -1);
  EXPECT_EQ(ArrayOf({1, 5, 5}).Find(5), 1);
  EXPECT_EQ(ArrayOf({1, 0.0}).Find(-0.0), 1);
  EXPECT_EQ(ArrayOf({kNaN}).Find(kNaN), -1);
  EXPECT_EQ(WithoutStorage(3).Find(0), -1);
}

TEST(DoubleArrayBinarySearch, ScansLinearlyWithoutTheSortedFlag) {
  CZEPHDoubleArray a = ArrayOf({9, 7});
  int index = -77;
  EXPECT_EQ(a.BinarySearch(7, index), 1);
  EXPECT_EQ(index, 1);
  EXPECT_EQ(a.BinarySearch(8, index), 0);
  EXPECT_EQ(index, -1);
  a.InsertionSort();
  EXPECT_EQ(a.BinarySearch(7, index), 1);
  EXPECT_EQ(index, 0);
}

TEST(DoubleArrayBinarySearch, LeavesTheIndexUnchangedAfterAMissInASortedArray) {
  CZEPHDoubleArray a = ArrayOf({1, 2, 3});
  a.InsertionSort();
  int index = -77;
  EXPECT_EQ(a.BinarySearch(4, index), 0);
  EXPECT_EQ(index, -77);
}

TEST(DoubleArrayBinarySearch, MissesInASortedEmptyArray) {
  int index = -77;
  for (int size : {-1, 0, 3}) {
    SCOPED_TRACE(::testing::Message() << "size " << size);
    CZEPHDoubleArray a = WithoutStorage(size);
    a.sorted = 1;
    EXPECT_EQ(a.BinarySearch(0, index), 0);
    EXPECT_EQ(index, -77);
    a.sorted = 0;
    EXPECT_EQ(a.BinarySearch(0, index), 0);
    EXPECT_EQ(index, -1);
    index = -77;
  }
}

TEST(DoubleArrayBinarySearch, AgreesWithTheOracleOnEveryShortArraySortedOrNot) {
  for (std::size_t n = 0; n <= Scaled<std::size_t>(5, 4); ++n)
    ForEachArray(Alphabet(), n, [](const Values& v) {
      for (double x : {-kInfinity, -2.0, -1.0, 0.0, 0.5, 1.0, kInfinity, kNaN})
        for (int sorted : {0, 1})
          if (!testing::Test::HasFatalFailure()) CompareBinarySearch(v, sorted, x);
    });
}

TEST(DoubleArrayBinarySearch, TakesEveryFlagOtherThanZeroForSorted) {
  for (int sorted : {0, 1, 2, -1, 256, 65'536, INT_MIN, INT_MAX}) {
    SCOPED_TRACE(::testing::Message() << "sorted " << sorted);
    for (double x : {1.0, 2.0, 3.0, 4.0}) CompareBinarySearch({3, 1, 2}, sorted, x);
  }
}

TEST(DoubleArrayBinarySearch, FindsTheEqualElementItProbesFirst) {
  zeph::test::Random random(6);
  for (int round = 0; round < Scaled(5000, 500); ++round) {
    Values v(1 + random.Below(200));
    const int distinct = random.Int(1, 30);
    for (double& x : v) x = random.Int(0, distinct);
    std::sort(v.begin(), v.end());
    ASSERT_NO_FATAL_FAILURE(CompareBinarySearch(v, 1, random.Int(-1, distinct + 1)));
  }
}

TEST(DoubleArrayRemove, MovesTheElementsAfterItDown) {
  CZEPHDoubleArray a = ArrayOf({1, 2, 3});
  double* const block = a.data;
  EXPECT_EQ(a.Remove(9), 0);
  EXPECT_EQ(a.Remove(2), 1);
  EXPECT_TRUE(SameBits(ElementsOf(a), {1, 3}));
  EXPECT_EQ(a.data, block);
  EXPECT_EQ(a.Remove(3), 1);
  EXPECT_EQ(a.Remove(1), 1);
  EXPECT_EQ(a.size, 0);
  EXPECT_EQ(a.data, block);
  EXPECT_EQ(a.Remove(1), 0);
  EXPECT_EQ(WithoutStorage(3).Remove(0), 0);
}

TEST(DoubleArrayRemove, AgreesWithTheOracle) {
  for (std::size_t n = 0; n <= 5; ++n)
    ForEachArray(Alphabet(), n, [](const Values& v) {
      for (double x : Alphabet())
        if (!testing::Test::HasFatalFailure()) CompareRemove(v, x);
    });
  zeph::test::Random random(7);
  for (std::size_t n : std::vector<std::size_t>{15, 16, 17, 63, 64, 65, 1000})
    for (int round = 0; round < 50; ++round) {
      const Values v = Awkward(n, random.Next());
      ASSERT_NO_FATAL_FAILURE(CompareRemove(v, v[random.Below(n)]));
      ASSERT_NO_FATAL_FAILURE(CompareRemove(v, AwkwardValue<double>(random)));
    }
}
