#include <functional>
#include <string>

#include "double_array/arrays.h"
#include "oracle/sorts.h"
#include "support/not_finite.h"
#include "support/scale.h"
#include "support/small_stack.h"

using namespace zeph;
using namespace zeph::test;

namespace {

using Values = std::vector<double>;

/// A whole-array sort and its oracle.
struct Method {
  std::string name;
  std::function<void(CZEPHDoubleArray&)> sort;
  std::function<void(Values&)> oracle;
};

const std::vector<int>& Cutoffs() {
  static const std::vector<int> cutoffs = {
      std::numeric_limits<int>::min(), -1, 0, 1, 2, 3, 4, 5, 9, 30, 1000,
      std::numeric_limits<int>::max()};
  return cutoffs;
}

std::vector<Method> MakeMethods() {
  std::vector<Method> methods = {
      {"BubbleSort", [](CZEPHDoubleArray& a) { a.BubbleSort(); }, oracle::BubbleSort},
      {"InsertionSort", [](CZEPHDoubleArray& a) { a.InsertionSort(); },
       [](Values& v) { oracle::InsertionSort(v, 0, oracle::SizeOf(v) - 1); }},
      {"ListInsertSort", [](CZEPHDoubleArray& a) { a.ListInsertSort(); }, oracle::ListInsertSort},
      {"ShellSort", [](CZEPHDoubleArray& a) { a.ShellSort(); }, oracle::ShellSort}};
  for (int cutoff : Cutoffs())
    methods.push_back(
        {"QuickSort(" + std::to_string(cutoff) + ")",
         [cutoff](CZEPHDoubleArray& a) { a.QuickSort(cutoff); },
         [cutoff](Values& v) { oracle::RecQuickSort(v, 0, oracle::SizeOf(v) - 1, cutoff); }});
  return methods;
}
const std::vector<Method>& Methods() {
  static const auto methods = MakeMethods();
  return methods;
}

/// Whether `method` does to `v` what its oracle does, and sets the flag.
void Compare(const Method& method, const Values& v) {
  CZEPHDoubleArray a = ArrayOf(v);
  method.sort(a);
  Values want = v;
  method.oracle(want);
  ASSERT_TRUE(SameBits(ElementsOf(a), want)) << method.name << " of " << Show(v);
  ASSERT_EQ(a.sorted, 1) << method.name;
}

void CompareAll(const Values& v) {
  for (const Method& method : Methods()) ASSERT_NO_FATAL_FAILURE(Compare(method, v));
}

Values AfterBubbleSort(const Values& v) {
  CZEPHDoubleArray a = ArrayOf(v);
  a.BubbleSort();
  return ElementsOf(a);
}

}  // namespace

TEST(DoubleArraySorting, AgreesWithTheOraclesOnEveryShortArray) {
  const std::size_t longest = Scaled<std::size_t>(6, 4);
  for (std::size_t n = 0; n <= longest; ++n)
    ForEachArray(Alphabet(), n, [](const Values& v) {
      if (!testing::Test::HasFatalFailure()) CompareAll(v);
    });
}

TEST(DoubleArraySorting, AgreesWithTheOraclesOnEveryArrayOfSevenWithTheUsualCutOffs) {
  const std::vector<double> alphabet = kFullScale ? Alphabet() : Values{-0.0, 0.0, kNaN};
  ForEachArray(alphabet, 7, [](const Values& v) {
    for (const Method& method : Methods())
      if (method.name.find("Quick") != 0 || method.name == "QuickSort(2)" ||
          method.name == "QuickSort(3)" || method.name == "QuickSort(4)")
        if (!testing::Test::HasFatalFailure()) Compare(method, v);
  });
}

TEST(DoubleArraySorting, AgreesWithTheOraclesOnMediumArraysOfTiesAndNaNs) {
  zeph::test::Random random(1);
  for (int round = 0; round < Scaled(4000, 300); ++round) {
    Values v(random.Below(90));
    const std::size_t letters = 1 + random.Below(Alphabet().size());  // NaN in one of seven
    for (double& x : v) x = Alphabet()[random.Below(letters)];
    ASSERT_NO_FATAL_FAILURE(CompareAll(v));
  }
}

TEST(DoubleArraySorting, AgreesWithTheOraclesOnEveryOrder) {
  const std::vector<std::size_t> sizes = {0, 1, 2, 3, 8, 15, 16, 17, 18, 31, 64, 100, 257, 600};
  for (const Order& order : Orders())
    for (std::size_t n : sizes)
      for (std::uint64_t seed = 0; seed < Scaled<std::uint64_t>(8, 1); ++seed) {
        SCOPED_TRACE(order.name);
        ASSERT_NO_FATAL_FAILURE(CompareAll(order.make(n, seed)));
      }
}

TEST(DoubleArraySorting, AgreesWithTheOraclesOnLongArrays) {
  for (const Order& order : Orders()) {
    SCOPED_TRACE(order.name);
    const Values v = order.make(Scaled<std::size_t>(5000, 900), 77);
    for (const Method& method : Methods()) {
      const bool once = method.name.find("Quick") != 0 || method.name == "QuickSort(3)" ||
                        method.name == "QuickSort(9)" || method.name == "QuickSort(1000)";
      if (once) {
        ASSERT_NO_FATAL_FAILURE(Compare(method, v));
      }
    }
  }
}

TEST(DoubleArraySorting, RangesAgreeWithTheOraclesAndLeaveTheRestAndTheSortedFlagAlone) {
  zeph::test::Random random(2);
  for (int round = 0; round < Scaled(4000, 400); ++round) {
    const Order& order = Orders()[random.Below(Orders().size())];
    const Values v = order.make(1 + random.Below(120), random.Next());
    const int last = static_cast<int>(v.size()) - 1;
    const int left = random.Int(0, last);
    const int right = random.Int(left - 1, last);
    const int cutoff = Cutoffs()[random.Below(Cutoffs().size())];
    CZEPHDoubleArray inserted = ArrayOf(v), quick = ArrayOf(v), manual = ArrayOf(v);
    const int flag = random.Int(0, 1);
    inserted.sorted = quick.sorted = manual.sorted = flag;
    inserted.InsertionSort(left, right);
    quick.recQuickSort(left, right, cutoff);
    manual.ManualSort(left, right);
    Values want = v;
    oracle::InsertionSort(want, left, right);
    ASSERT_TRUE(SameBits(ElementsOf(inserted), want)) << left << ".." << right << Show(v);
    want = v;
    oracle::RecQuickSort(want, left, right, cutoff);
    ASSERT_TRUE(SameBits(ElementsOf(quick), want))
        << left << ".." << right << " by " << cutoff << Show(v);
    want = v;
    oracle::ManualSort(want, left, right);
    ASSERT_TRUE(SameBits(ElementsOf(manual), want)) << left << ".." << right << Show(v);
    ASSERT_EQ(inserted.sorted, flag) << "round " << round;
    ASSERT_EQ(quick.sorted, flag) << "round " << round;
    ASSERT_EQ(manual.sorted, flag) << "round " << round;
  }
}

TEST(DoubleArraySorting, InvertedRangesAreLeftAlone) {
  const Values v = {3, 2, 1};
  CZEPHDoubleArray a = ArrayOf(v);
  a.InsertionSort(2, 0);
  a.InsertionSort(std::numeric_limits<int>::max(), std::numeric_limits<int>::min());
  a.recQuickSort(2, 1, 3);
  a.recQuickSort(2, -5, 9);
  a.ManualSort(2, 0);
  EXPECT_TRUE(SameBits(ElementsOf(a), v));
}

TEST(DoubleArrayBubbleSort, RunsOnePassTooFew) {
  EXPECT_TRUE(SameBits(AfterBubbleSort({2, 1}), {2, 1}));
  EXPECT_TRUE(SameBits(AfterBubbleSort({3, 2, 1}), {2, 1, 3}));
  EXPECT_TRUE(SameBits(AfterBubbleSort({4, 3, 2, 1}), {2, 1, 3, 4}));
  EXPECT_TRUE(SameBits(AfterBubbleSort({1, 3, 2}), {1, 2, 3}));
}

TEST(DoubleArrayBubbleSort, LeavesALastMinimumAtIndexOneInLongArraysToo) {
  Values v(1000, 5.0);
  v.back() = 4.0;
  const Values sorted = AfterBubbleSort(v);
  EXPECT_EQ(sorted[0], 5.0);
  EXPECT_EQ(sorted[1], 4.0);
  v.front() = 4.0;  // no longer the unique minimum
  EXPECT_EQ(AfterBubbleSort(v)[0], 4.0);
  EXPECT_EQ(AfterBubbleSort(v)[1], 4.0);
}

TEST(DoubleArraySorting, ANaNDividesTheArrayForBubbleAndInsertionAndTheListForListInsertion) {
  const Values v = {3, 1, kNaN, 2, 1};
  CZEPHDoubleArray bubble = ArrayOf(v), insertion = ArrayOf(v), list = ArrayOf(v);
  bubble.BubbleSort();
  insertion.InsertionSort();
  list.ListInsertSort();
  EXPECT_TRUE(SameBits(ElementsOf(bubble), {1, 3, kNaN, 1, 2}));
  EXPECT_TRUE(SameBits(ElementsOf(insertion), {1, 3, kNaN, 1, 2}));
  EXPECT_TRUE(SameBits(ElementsOf(list), {1, 2, kNaN, 1, 3}));
}

TEST(DoubleArraySorting, ZerosOfBothSignsShowWhichSortsAreStable) {
  for (std::size_t padding : std::vector<std::size_t>{0, 50}) {
    Values v = {0.0, -0.0, 0.0, 0.0, -0.0};
    const Values kept = v;
    const Values reversed(v.rbegin(), v.rend());
    v.resize(v.size() + padding, 7.0);
    CZEPHDoubleArray bubble = ArrayOf(v), insertion = ArrayOf(v), list = ArrayOf(v);
    bubble.BubbleSort();
    insertion.InsertionSort();
    list.ListInsertSort();
    EXPECT_TRUE(SameBits(bubble.data, kept.data(), kept.size())) << "padding " << padding;
    EXPECT_TRUE(SameBits(insertion.data, reversed.data(), reversed.size()))
        << "padding " << padding;
    EXPECT_TRUE(SameBits(list.data, reversed.data(), reversed.size())) << "padding " << padding;
  }
}

TEST(DoubleArraySorting, OnlySetsTheSortedFlagOfArraysWithoutStorage) {
  for (const Method& method : Methods())
    for (int size : {-3, 0, 1, 100}) {
      CZEPHDoubleArray a = WithoutStorage(size);
      method.sort(a);
      EXPECT_EQ(a.sorted, 1) << method.name;
      EXPECT_EQ(a.size, size) << method.name;
      EXPECT_EQ(a.data, nullptr) << method.name;
    }
}

TEST(DoubleArraySorting, OnlySetsTheSortedFlagOfArraysWithANegativeCount) {
  for (const Method& method : Methods()) {
    CZEPHDoubleArray a = ArrayOf({2, 1});
    a.size = -2;
    method.sort(a);
    EXPECT_EQ(a.sorted, 1) << method.name;
    EXPECT_TRUE(a.data[0] == 2 && a.data[1] == 1) << method.name;
  }
}

// Unoptimised frames are large: the wide kernels alone fill the smaller stack.
const std::size_t kSmallStack = Scaled<std::size_t>(256 * 1024, 1024 * 1024);

TEST(DoubleArraySorting, IsFastAndShallowOnAMillionElementsInAnyOrder) {
  const std::size_t n = Scaled<std::size_t>(1000000, 50000);
  for (const Order& order : Orders()) {
    if (order.name == std::string("awkward")) continue;  // its NaNs: see the next test
    const Values v = order.make(n, 5);
    Values want = v;
    std::sort(want.begin(), want.end());
    const bool unique =
        order.name != std::string("one NaN") && order.name != std::string("signed zeros");
    for (int cutoff : {3, 10}) {
      CZEPHDoubleArray a = ArrayOf(v);
      ASSERT_TRUE(RunOnSmallStack(kSmallStack, [&] { a.QuickSort(cutoff); }))
          << order.name << ", cutoff " << cutoff;
      if (!unique) continue;
      EXPECT_TRUE(SameBits(a.data, want.data(), n)) << order.name;
    }
  }
}

TEST(DoubleArrayQuickSort, IsShallowOnZerosOfBothSignsAndNaNs) {
  const std::size_t n = Scaled<std::size_t>(1000000, 50000);
  for (const Order& order : Orders()) {
    const bool killer = order.name == std::string("median-of-three killer");
    Values v = order.make(killer ? 20000 : n, 5);  // the killer takes quadratic time
    v.push_back(0.0);
    v.push_back(-0.0);
    CZEPHDoubleArray a = ArrayOf(v);
    ASSERT_TRUE(RunOnSmallStack(kSmallStack, [&] { a.QuickSort(3); })) << order.name;
    if (order.name == std::string("awkward") || order.name == std::string("one NaN")) continue;
    EXPECT_TRUE(std::is_sorted(a.begin(), a.end())) << order.name;
  }
}

TEST(DoubleArrayCheckSorted, DoesNotCompareTheLastPair) {
  const auto check = [](const Values& v) {
    CZEPHDoubleArray a = ArrayOf(v);
    a.sorted = -7;
    const int result = a.CheckSorted();
    EXPECT_EQ(a.sorted, result);
    return result;
  };
  EXPECT_EQ(check({1, 2, 4, 3}), 1);
  EXPECT_EQ(check({2, 1, 3, 4}), 0);
  EXPECT_EQ(check({}), 1);
  EXPECT_EQ(check({2, 1}), 1);
  EXPECT_EQ(check({1, 3, 2, 4}), 0);
}

TEST(DoubleArrayCheckSorted, AgreesWithTheOracle) {
  for (std::size_t n = 0; n <= 6; ++n)
    ForEachArray(Alphabet(), n, [](const Values& v) {
      CZEPHDoubleArray a = ArrayOf(v);
      a.sorted = 1 - oracle::CheckSorted(v);
      ASSERT_EQ(a.CheckSorted(), oracle::CheckSorted(v)) << Show(v);
      ASSERT_EQ(a.sorted, oracle::CheckSorted(v)) << Show(v);
    });
  for (std::size_t descent = 0; descent < 99; ++descent) {
    Values v(100);
    for (std::size_t i = 0; i < v.size(); ++i) v[i] = static_cast<double>(i);
    std::swap(v[descent], v[descent + 1]);
    EXPECT_EQ(ArrayOf(v).CheckSorted(), descent == 98 ? 1 : 0) << "descent " << descent;
  }
  EXPECT_EQ(WithoutStorage(9).CheckSorted(), 1);
}
