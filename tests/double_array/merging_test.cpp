#include <algorithm>
#include <numeric>

#include "double_array/arrays.h"
#include "oracle/searches.h"
#include "support/scale.h"

using namespace zeph;
using namespace zeph::test;

namespace {

using Values = std::vector<double>;

Values Merged(Values a, Values b) {
  Values out(a.size() + b.size() + 2, 777);
  CZEPHDoubleArray none;
  const Values beforeA = a, beforeB = b;
  none.MergeSortedArray(a.data(), static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()),
                        out.data());
  EXPECT_TRUE(SameBits(a, beforeA) && SameBits(b, beforeB)) << "the inputs have changed";
  return out;
}

void Compare(const Values& a, const Values& b) {
  Values want(a.size() + b.size() + 2, 777);  // two spare slots guard the end
  oracle::Merge(a.data(), static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()),
                want.data());
  ASSERT_TRUE(SameBits(Merged(a, b), want)) << Show(a) << " with " << Show(b);
}

}  // namespace

TEST(DoubleArrayMerge, TakesEqualElementsFromTheSecondBlockFirst) {
  EXPECT_TRUE(SameBits(Merged({1, 3}, {1, 2}), {1, 1, 2, 3, 777, 777}));
  EXPECT_TRUE(SameBits(Merged({0.0}, {-0.0}), {-0.0, 0.0, 777, 777}));
}

TEST(DoubleArrayMerge, TreatsACountBelowOneAsAnEmptyBlock) {
  double v[] = {1, 2};
  double out[] = {7, 7};
  CZEPHDoubleArray none;
  none.MergeSortedArray(nullptr, 0, v, 2, out);
  EXPECT_TRUE(SameBits(out, v, 2));
  none.MergeSortedArray(v, 1, nullptr, -5, out);
  EXPECT_EQ(out[0], 1.0);
  none.MergeSortedArray(nullptr, -1, nullptr, -1, nullptr);
}

TEST(DoubleArrayMerge, AgreesWithTheOracleOnAllShortBlocksSortedOrNot) {
  const std::size_t longest = Scaled<std::size_t>(3, 2);
  for (std::size_t na = 0; na <= longest; ++na)
    for (std::size_t nb = 0; nb <= longest; ++nb)
      ForEachArray(Alphabet(), na, [nb](const Values& a) {
        ForEachArray(Alphabet(), nb, [&a](const Values& b) {
          if (!testing::Test::HasFatalFailure()) Compare(a, b);
        });
      });
}

TEST(DoubleArrayMerge, AgreesWithTheOracleOnLongAscendingBlocks) {
  zeph::test::Random random(8);
  for (int round = 0; round < 300; ++round) {
    Values a(random.Below(400)), b(random.Below(400));
    for (Values* v : {&a, &b}) {
      for (double& x : *v) x = random.Int(-50, 50);
      std::sort(v->begin(), v->end());
    }
    ASSERT_NO_FATAL_FAILURE(Compare(a, b));
  }
}

TEST(DoubleArrayMerge, AgreesWithTheOracleOnLongBlocksWithOneDescent) {
  Values ascending(300);
  std::iota(ascending.begin(), ascending.end(), 0.0);
  for (const std::size_t at : {0u, 1u, 17u, 254u, 255u, 256u, 257u, 298u}) {
    Values broken = ascending;
    std::swap(broken[at], broken[at + 1]);
    ASSERT_NO_FATAL_FAILURE(Compare(ascending, broken));
    ASSERT_NO_FATAL_FAILURE(Compare(broken, ascending));
    broken[0] = broken[at] = 1e3;  // above all that follows
    ASSERT_NO_FATAL_FAILURE(Compare(ascending, broken));
    ASSERT_NO_FATAL_FAILURE(Compare(broken, ascending));
  }
}

TEST(DoubleArrayMerge, WritesFrontToBackWhereLongAscendingBlocksOverlap) {
  zeph::test::Random random(10);
  for (int round = 0; round < 1000; ++round) {
    Values got(400);
    for (double& x : got) x = random.Int(0, 99);
    std::sort(got.begin() + 120, got.begin() + 170);
    std::sort(got.begin() + 250, got.begin() + 300);
    Values want = got;
    const std::size_t out = random.Below(300);  // meets one block, both or none
    const bool swapped = random.Below(2) != 0;
    const std::size_t a = swapped ? 250 : 120, b = swapped ? 120 : 250;
    CZEPHDoubleArray none;
    none.MergeSortedArray(&got[a], 50, &got[b], 50, &got[out]);
    oracle::Merge(&want[a], 50, &want[b], 50, &want[out]);
    ASSERT_TRUE(SameBits(got, want)) << out;
  }
}

TEST(DoubleArrayMerge, WritesFrontToBackWhereItsBlocksOverlap) {
  zeph::test::Random random(9);
  for (int round = 0; round < 3000; ++round) {
    Values got(40);
    for (double& x : got) x = random.Int(0, 9);
    Values want = got;
    const std::size_t a = random.Below(20), b = random.Below(20), out = random.Below(20);
    const int na = random.Int(0, 10), nb = random.Int(0, 10);
    CZEPHDoubleArray none;
    none.MergeSortedArray(&got[a], na, &got[b], nb, &got[out]);
    oracle::Merge(&want[a], na, &want[b], nb, &want[out]);
    ASSERT_TRUE(SameBits(got, want)) << a << " " << na << ", " << b << " " << nb << ", " << out;
  }
}
