// The sorts on elements whose order is not unique, in adversarial orders.
#include <gtest/gtest.h>

#include <algorithm>

#include "double_array/arrays.h"
#include "oracle/sorts.h"
#include "support/allocation.h"
#include "support/hostile.h"
#include "support/scale.h"
#include "support/small_stack.h"

namespace zeph::test {
namespace {

using Values = std::vector<double>;

struct Method {
  const char* name;
  void (*sort)(CZEPHDoubleArray&);
  void (*oracle)(Values&);
};
const Method kQuadratic[] = {
    {"BubbleSort", [](CZEPHDoubleArray& a) { a.BubbleSort(); }, oracle::BubbleSort},
    {"InsertionSort", [](CZEPHDoubleArray& a) { a.InsertionSort(); },
     [](Values& v) { oracle::InsertionSort(v, 0, oracle::SizeOf(v) - 1); }},
    {"ListInsertSort", [](CZEPHDoubleArray& a) { a.ListInsertSort(); }, oracle::ListInsertSort},
    {"ShellSort", [](CZEPHDoubleArray& a) { a.ShellSort(); }, oracle::ShellSort},
};

void Compare(const Values& v, const Method& method, const std::string& name) {
  CZEPHDoubleArray a = ArrayOf(v);
  method.sort(a);
  Values want = v;
  method.oracle(want);
  ASSERT_TRUE(SameBits(ElementsOf(a), want)) << method.name << " of " << name;
}
void CompareQuickSort(const Values& v, int cutoff, const std::string& name) {
  CZEPHDoubleArray a = ArrayOf(v);
  a.QuickSort(cutoff);
  Values want = v;
  oracle::RecQuickSort(want, 0, oracle::SizeOf(want) - 1, cutoff);
  ASSERT_TRUE(SameBits(ElementsOf(a), want)) << "QuickSort(" << cutoff << ") of " << name;
}

TEST(DoubleArrayHostileSorting, MatchesTheDocumentedStepsAtEveryLength) {
  for (std::size_t n = 0; n <= 200; n += kFullScale || n < 40 ? 1 : 9)
    ForEachHostile(n, 7 * n, [](const Values& v, const std::string& name) {
      for (const Method& method : kQuadratic) ASSERT_NO_FATAL_FAILURE(Compare(v, method, name));
      for (int cutoff : {2, 3, 4, 10, 60})
        ASSERT_NO_FATAL_FAILURE(CompareQuickSort(v, cutoff, name));
    });
}

TEST(DoubleArrayHostileSorting, MatchesTheDocumentedStepsAtLengthsUpTo20000) {
  Random random(12);
  for (int round = 0; round < Scaled(4, 1); ++round) {
    ForEachHostile(1 + random.Below(20000), random.Next(),
                   [round](const Values& v, const std::string& name) {
                     CompareQuickSort(v, round % 2 ? 3 : 10, name);
                   });
    ForEachHostile(1 + random.Below(2500), random.Next(),
                   [](const Values& v, const std::string& name) {
                     for (const Method& method : kQuadratic) Compare(v, method, name);
                     CompareQuickSort(v, 2, name);
                     CompareQuickSort(v, 300, name);
                   });
  }
}

/// Checks the generator: the documented steps read and exchange far more than n log n elements.
TEST(DoubleArrayHostileSorting, OrdersMoreZerosOfBothSignsThanItsTableHolds) {
  Random random(21);
  Values v(5500);
  for (double& x : v) x = random.Below(6) ? random.Below(2) ? 0.0 : -0.0 : random.Int(-3, 3);
  for (const Method& method : kQuadratic) Compare(v, method, "zeros of both signs");
}

/// As many zeros as signs are kept of, and a word's bits and more beyond.
TEST(DoubleArrayHostileSorting, OrdersAsManyZerosAsItsTableHoldsAndAFewMore) {
  Random random(22);
  for (const std::size_t zeros : {4095u, 4096u, 4097u, 4130u, 4160u}) {
    Values v(zeros + 40);
    for (std::size_t i = 0; i < v.size(); ++i)
      v[i] = i < 40 ? random.Real(-3, 3) : random.Below(2) ? 0.0 : -0.0;
    for (std::size_t k = v.size() - 1; k > 0; --k) std::swap(v[k], v[random.Below(k + 1)]);
    for (const Method& method : kQuadratic) Compare(v, method, "zeros of both signs");
  }
}

TEST(DoubleArrayHostileSorting, DoesNotTreatALastZeroAsLessThanAnEqualOne) {
  for (const std::size_t n : {12u, 50u, 300u})
    for (const double last : {0.0, -0.0})
      for (const std::size_t at : {std::size_t{0}, n / 2, n - 2}) {
        Values v(n, 3.0);
        v[at] = -last;
        v.back() = last;
        for (const Method& method : kQuadratic) Compare(v, method, "two zeros, one of them last");
      }
}

/// Each partition of these takes off a few elements only, and no piece can be sorted otherwise: a recursion into the
/// larger side would be as deep as half of the elements.
TEST(DoubleArrayHostileSorting, QuickSortIsShallowWhereEachPartitionIsLopsided) {
  constexpr std::size_t kStack = 1024 * 1024;
  for (const Content content : {Content::kPlain, Content::kBothZeros, Content::kHalfZeros}) {
    const Values v = Hostile(content, Arrangement::kKiller, Scaled<std::size_t>(60'000, 40'000), 1);
    CZEPHDoubleArray a = ArrayOf(v);
    ASSERT_TRUE(RunOnSmallStack(kStack, [&] { a.QuickSort(10); }));
    EXPECT_TRUE(std::is_sorted(a.begin(), a.end())) << kContentNames[static_cast<int>(content)];
  }
}

/// More zeros than signs are kept of, and pieces of every kind: what needs room has its own or borrows it.
TEST(DoubleArrayHostileSorting, CallsNoAllocationOperator) {
  for (const std::size_t n : {300u, 9000u})
    ForEachHostile(n, 17, [](const Values& v, const std::string& name) {
      const auto requests = [&v](auto sort) {
        CZEPHDoubleArray a = ArrayOf(v);
        const long before = AllocationCount();
        sort(a);
        return AllocationCount() - before;
      };
      for (const Method& method : kQuadratic)
        EXPECT_EQ(requests(method.sort), 0) << method.name << " of " << name;
      for (const int cutoff : {2, 10})
        EXPECT_EQ(requests([cutoff](CZEPHDoubleArray& a) { a.QuickSort(cutoff); }), 0)
            << "QuickSort of " << name;
    });
}

TEST(HostileInputs, KillersMakeThePlainQuickSortQuadratic) {
  for (std::size_t n : {500u, 1001u, 5000u})
    for (Content content : {Content::kPlain, Content::kBothZeros, Content::kHalfZeros}) {
      Values v = Hostile(content, Arrangement::kKiller, n, 1);
      std::size_t partitions = 0;
      int left = 0, right = oracle::SizeOf(v) - 1;
      while (right - left > 9 && partitions < n) {
        const double pivot = oracle::MedianOf3(v, left, right);
        const int p = oracle::QuickPartition(v, left, right, pivot);
        if (p - left < right - p) {
          left = p + 1;
        } else {
          right = p - 1;
        }
        ++partitions;
      }
      EXPECT_GT(partitions, n / 8) << n << " " << kContentNames[static_cast<int>(content)];
    }
}

}  // namespace
}  // namespace zeph::test
