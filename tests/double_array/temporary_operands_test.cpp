// Sums and differences of temporaries equal those of named arrays, in storage that is reused.
#include <gtest/gtest.h>

#include <utility>

#include "double_array.h"
#include "support/allocation.h"
#include "support/bits.h"
#include "support/numbers.h"

namespace zeph::test {
namespace {

CZEPHDoubleArray AwkwardArray(int n, std::uint64_t seed) {
  return CZEPHDoubleArray(n, Awkward(static_cast<std::size_t>(n), seed).data());
}

void ExpectSame(const CZEPHDoubleArray& got, const CZEPHDoubleArray& want) {
  ASSERT_EQ(got.size, want.size);
  EXPECT_EQ(got.sorted, 0);
  EXPECT_TRUE(SameValues(got.data, want.data, static_cast<std::size_t>(want.size)));
}

/// With storage, or without, as `want`; its elements may be undefined.
void ExpectSameStorage(const CZEPHDoubleArray& got, const CZEPHDoubleArray& want) {
  EXPECT_EQ(got.data != nullptr, want.data != nullptr);
  EXPECT_EQ(got.size, want.size);
}

TEST(DoubleArrayTemporaryOperands, GiveTheSameResultsAsNamedOnes) {
  for (int n : {1, 2, 7, 67, 1000}) {
    const CZEPHDoubleArray a = AwkwardArray(n, 1), b = AwkwardArray(n, 2), c = AwkwardArray(n, 3);
    const CZEPHDoubleArray sum = a + b, difference = a - b;
    ExpectSame(CZEPHDoubleArray(a) + b, sum);
    ExpectSame(a + CZEPHDoubleArray(b), sum);
    ExpectSame(CZEPHDoubleArray(a) + CZEPHDoubleArray(b), sum);
    ExpectSame(CZEPHDoubleArray(a) - b, difference);
    ExpectSame(CZEPHDoubleArray(a) - CZEPHDoubleArray(b), difference);
    ExpectSame(a - CZEPHDoubleArray(b), difference);
    ExpectSame(a + b - c + a, CZEPHDoubleArray((sum - c) + a));
    ExpectSame(c + (a + b), c + sum);
  }
}

TEST(DoubleArrayTemporaryOperands, GiveTheSameResultsIfOnlyOneOperandHasStorage) {
  const CZEPHDoubleArray none, some(3, 1.0);
  for (const CZEPHDoubleArray* a : {&none, &some})
    for (const CZEPHDoubleArray* b : {&none, &some}) {
      if (a->size != b->size) continue;
      const CZEPHDoubleArray sum = *a + *b, difference = *a - *b;
      ExpectSame(CZEPHDoubleArray(*a) + *b, sum);
      ExpectSame(*a + CZEPHDoubleArray(*b), sum);
      ExpectSame(CZEPHDoubleArray(*a) - *b, difference);
    }
  // Counts that agree while only one of them has storage.
  CZEPHDoubleArray hollow;
  hollow.size = 3;
  const CZEPHDoubleArray& left = hollow;
  ExpectSameStorage(left + CZEPHDoubleArray(some), left + some);
  ExpectSame(CZEPHDoubleArray(some) + left, some + left);
  ExpectSame(CZEPHDoubleArray(some) - left, some - left);
  CZEPHDoubleArray dying;
  dying.size = 3;
  ExpectSameStorage(std::move(dying) - some, left - some);
  CZEPHDoubleArray last;
  last.size = 3;
  const CZEPHDoubleArray kept = some + std::move(last);
  ASSERT_NE(kept.data, nullptr);
  ExpectSame(kept, some + left);
}

TEST(DoubleArrayTemporaryOperands, HandOverTheirStorage) {
  const CZEPHDoubleArray named(3, 1.0);
  CZEPHDoubleArray left(3, 2.0), right(3, 4.0), minuend(3, 8.0);
  const double *l = left.data, *r = right.data, *m = minuend.data;
  EXPECT_EQ((std::move(left) + named).data, l);
  EXPECT_EQ((named + std::move(right)).data, r);
  EXPECT_EQ((std::move(minuend) - named).data, m);
  EXPECT_EQ(left.data, nullptr);
  EXPECT_EQ(right.data, nullptr);
}

TEST(DoubleArrayTemporaryOperands, HandOverTheStorageOfOneOfBoth) {
  CZEPHDoubleArray left(3, 2.0), right(3, 4.0), minuend(3, 8.0), subtrahend(3, 1.0);
  const double *l = left.data, *r = right.data, *m = minuend.data;
  const CZEPHDoubleArray sum = std::move(left) + std::move(right);
  EXPECT_TRUE(sum.data == l || sum.data == r);
  EXPECT_EQ(sum[2], 6.0);
  const CZEPHDoubleArray difference = std::move(minuend) - std::move(subtrahend);
  EXPECT_EQ(difference.data, m);
  EXPECT_EQ(difference[2], 7.0);
}

TEST(DoubleArrayTemporaryOperands, MakeALongSumAllocateOnce) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  const CZEPHDoubleArray a(100, 1.0), b(100, 2.0), c(100, 3.0), d(100, 4.0);
  const long before = AllocationCount();
  const CZEPHDoubleArray sum = a + b + c - d;
  EXPECT_EQ(AllocationCount() - before, 1);
  EXPECT_EQ(sum[99], 2.0);
}

TEST(DoubleArrayTemporaryOperands, GiveResultsWithoutTheSortedFlag) {
  CZEPHDoubleArray a(3, 1.0);
  const CZEPHDoubleArray b(3, 1.0);
  a.sorted = 1;
  EXPECT_EQ((std::move(a) + b).sorted, 0);
}

TEST(DoubleArrayTemporaryOperands, MayBeBothOperandsAtOnce) {
  CZEPHDoubleArray a(3, 1.5), b(3, 1.5);
  const CZEPHDoubleArray twice = std::move(a) + a;
  EXPECT_EQ(twice[0], 3.0);
  const CZEPHDoubleArray none = std::move(b) - b;
  EXPECT_SAME_BITS(none[2], 0.0);
}

TEST(DoubleArrayTemporaryOperands, GiveTheSameResultsWithoutStorage) {
  CZEPHDoubleArray bare;
  bare.size = 2;
  const CZEPHDoubleArray full(2, 5.0);
  EXPECT_EQ((CZEPHDoubleArray() + CZEPHDoubleArray()).size, 0);
  EXPECT_EQ((CZEPHDoubleArray(full) + bare)[1], 5.0);
  EXPECT_EQ((CZEPHDoubleArray(full) - bare)[1], 5.0);
}

}  // namespace
}  // namespace zeph::test
