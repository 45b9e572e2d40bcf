// SPDX-License-Identifier: MIT
#include "kernels/sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "kernels/sort_limits.h"
#include "support/not_finite.h"
#include "support/numbers.h"

namespace zeph::kernels {
namespace {

using test::kInfinity;
using test::kNaN;
using test::Random;

/// Every form this machine can run, each named for the failure message.
class SortKernel : public testing::TestWithParam<const Table*> {
 protected:
  const Sorting& form() const { return *GetParam()->sorting; }

  /// Sorts a copy that lies `skew` elements into a guarded block.
  template <class T>
  void Check(std::vector<T> v, std::size_t skew, const char* what) const {
    constexpr std::size_t kGuard = 16;
    const T guard = T(-77777);
    std::vector<T> block(skew + kGuard, guard);
    block.insert(block.end(), v.begin(), v.end());
    block.insert(block.end(), kGuard, guard);
    T* at = block.data() + skew + kGuard;
    Sort(at, v.size());
    std::sort(v.begin(), v.end());
    for (std::size_t i = 0; i < v.size(); ++i)
      ASSERT_TRUE(Same(at[i], v[i]))
          << what << ", n = " << v.size() << ", skew " << skew << ", at " << i;
    for (std::size_t i = 0; i < kGuard; ++i) {
      ASSERT_EQ(at[-1 - static_cast<std::ptrdiff_t>(i)], guard) << what << ", n = " << v.size();
      ASSERT_EQ(at[v.size() + i], guard) << what << ", n = " << v.size();
    }
  }

 private:
  static bool Same(int a, int b) { return a == b; }
  static bool Same(double a, double b) { return test::Bits(a) == test::Bits(b); }
  void Sort(double* v, std::size_t n) const { form().sort_doubles(v, n); }
  void Sort(int* v, std::size_t n) const { form().sort_ints(v, n); }
};

INSTANTIATE_TEST_SUITE_P(Forms, SortKernel, testing::ValuesIn(RunnableTables()),
                         [](const auto& form) { return std::string(form.param->name); });

/// Lengths around every threshold of a form.
std::vector<std::size_t> AwkwardLengths() {
  std::vector<std::size_t> lengths;
  for (std::size_t n = 0; n <= 290; ++n) lengths.push_back(n);
  for (std::size_t power = 512; power <= 16384; power *= 2)
    for (std::size_t n : {power - 1, power, power + 1, power + 7, power + power / 3})
      lengths.push_back(n);
  return lengths;
}

/// Any value whose place is unique: no NaN and no negative zero.
double OrderedValue(Random& random) {
  const double x = test::AwkwardValue<double>(random);
  return x != x || x == 0 ? 0.0 : x;
}

TEST_P(SortKernel, SortsEveryShortArrayOfFewValues) {
  for (std::size_t n = 0; n <= 7; ++n)
    test::ForEachArray<double>({-kInfinity, 1, 2, kInfinity}, n, [&](const std::vector<double>& v) {
      if (!HasFatalFailure()) Check(v, 0, "exhaustive");
    });
}

TEST_P(SortKernel, SortsAwkwardValuesAtEveryLengthAndAlignment) {
  for (std::size_t n : AwkwardLengths())
    for (std::size_t skew : {0u, 1u, 3u}) {
      Random random(n * 8 + skew);
      std::vector<double> v(n);
      for (double& x : v) x = OrderedValue(random);
      ASSERT_NO_FATAL_FAILURE(Check(v, skew, "awkward"));
      for (double& x : v) x = random.Real();
      ASSERT_NO_FATAL_FAILURE(Check(v, skew, "random"));
      for (double& x : v) x = -0.0;
      ASSERT_NO_FATAL_FAILURE(Check(v, skew, "negative zeros"));
    }
}

TEST_P(SortKernel, SortsIntsAtEveryLengthAndAlignment) {
  constexpr int kLeast = std::numeric_limits<int>::min(), kMost = std::numeric_limits<int>::max();
  for (std::size_t n : AwkwardLengths())
    for (std::size_t skew : {0u, 1u, 3u}) {
      Random random(n * 8 + skew);
      std::vector<int> v(n);
      for (int& x : v) x = random.Int(kLeast, kMost);
      if (n) v[n / 2] = kLeast, v[n / 3] = kMost;
      ASSERT_NO_FATAL_FAILURE(Check(v, skew, "any"));
      for (int& x : v) x = random.Int(-3, 3);
      ASSERT_NO_FATAL_FAILURE(Check(v, skew, "few distinct"));
    }
}

TEST_P(SortKernel, SortsEveryOrder) {
  for (const test::Order& order : test::Orders())
    for (std::size_t n : {31u, 200u, 1000u, 4097u, 100'000u}) {
      std::vector<double> v = order.make(n, 5);
      for (double& x : v)
        if (x != x || x == 0) x = 0.0;
      ASSERT_NO_FATAL_FAILURE(Check(v, 1, order.name));
    }
}

TEST_P(SortKernel, SortsAnyNumberOfDistinctValues) {
  for (int distinct : {1, 2, 3, 5, 8, 9, 16, 17, 33, 100, 1000})
    for (std::size_t n : {100u, 1000u, 20'000u}) {
      Random random(n);
      std::vector<double> v(n);
      for (double& x : v) x = random.Int(1, distinct) * 0.1;
      ASSERT_NO_FATAL_FAILURE(Check(v, 1, "distinct"));
      if (n > 1) v[n - 1] = 1e9, v[n / 2] = -1e9;
      ASSERT_NO_FATAL_FAILURE(Check(v, 1, "distinct but for two"));
    }
}

TEST_P(SortKernel, SortsFewValuesByCountingAndFallsBackIfThereAreMore) {
  Random random(11);
  for (std::size_t n : {8000u, 8001u, 20'003u, 70'000u})
    for (int distinct : {2, 4, 5, 8, 9, 60, 255, 256, 257, 300, 900}) {
      std::vector<double> v(n);
      std::vector<int> whole(n);
      for (std::size_t i = 0; i < n; ++i) {
        whole[i] = random.Int(0, distinct - 1) - distinct / 2;
        v[i] = whole[i] * 0.01;
      }
      ASSERT_NO_FATAL_FAILURE(Check(v, 1, "few"));
      ASSERT_NO_FATAL_FAILURE(Check(whole, 1, "few"));
      for (std::size_t i = n - n / 10; i < n; ++i) v[i] = random.Real();  // the tail has many
      ASSERT_NO_FATAL_FAILURE(Check(v, 1, "few, then many"));
      v[n / 2 + 1] = kInfinity, v[n / 3] = -kInfinity,
                v[n - 1] = std::numeric_limits<double>::denorm_min();
      whole[n / 2 + 1] = std::numeric_limits<int>::min(), whole[n - 2] = 12'345'678;
      ASSERT_NO_FATAL_FAILURE(Check(v, 1, "and some that no sample has"));
      ASSERT_NO_FATAL_FAILURE(Check(whole, 1, "and some that no sample has"));
    }
  std::vector<double> zeros(20'000, -0.0);
  for (std::size_t i = 0; i < zeros.size(); i += 3) zeros[i] = i % 2 ? 1.0 : -1.0;
  ASSERT_NO_FATAL_FAILURE(Check(zeros, 1, "negative zeros"));
}

/// Two zeros of different signs at any distance, the first of any block among them.
TEST_P(SortKernel, OrderIsUniqueComparesZerosOfDifferentBlocks) {
  std::vector<double> v(2100, 1.0);
  for (const std::size_t first :
       {std::size_t{0}, std::size_t{3}, std::size_t{511}, std::size_t{512}})
    for (std::size_t second = first + 1; second < v.size(); ++second) {
      v[first] = -0.0, v[second] = 0.0;
      ASSERT_FALSE(form().order_is_unique(v.data(), v.size())) << first << ' ' << second;
      v[second] = -0.0;
      ASSERT_TRUE(form().order_is_unique(v.data(), v.size())) << first << ' ' << second;
      v[first] = v[second] = 1.0;
    }
}

/// The values of the last few elements are too many for the count that all others allowed.
TEST_P(SortKernel, SortsIfOnlyTheLastElementsHaveTooManyValues) {
  Random random(12);
  for (std::size_t n : {8064u, 8192u, 8193u, 8319u})
    for (std::size_t fresh : {20u, 75u, 76u, 77u, 100u, 127u, 128u, 200u}) {
      std::vector<double> v(n);
      std::vector<int> whole(n);
      for (std::size_t i = 0; i < n; ++i) {
        whole[i] = i + fresh < n ? random.Int(1, 180) : 1000 + static_cast<int>(i);
        v[i] = whole[i] * 0.5;
      }
      ASSERT_NO_FATAL_FAILURE(Check(v, 1, "too many at the end"));
      ASSERT_NO_FATAL_FAILURE(Check(whole, 1, "too many at the end"));
    }
}

/// Ten thousand values in all: some of them begin at any place of the table that counts them.
TEST_P(SortKernel, SortsAnyFewValuesAndZeroByCounting) {
  Random random(13);
  for (int round = 0; round < 50; ++round) {
    std::vector<double> values(200), v(8000);
    std::vector<int> numbers(200), whole(8000);
    for (double& x : values) x = random.Real(-1, 1);
    for (int& x : numbers) x = static_cast<int>(random.Next());
    values[7] = 0.0;
    numbers[7] = 0;
    for (double& x : v) x = values[random.Below(values.size())];
    for (int& x : whole) x = numbers[random.Below(numbers.size())];
    ASSERT_NO_FATAL_FAILURE(Check(v, 1, "values beside zero"));
    ASSERT_NO_FATAL_FAILURE(Check(whole, 1, "values beside zero"));
  }
}

TEST_P(SortKernel, SortsAlmostSortedAndReversedInput) {
  std::vector<std::size_t> lengths = {1000, 5000};
  for (std::size_t n = 25; n <= 70; ++n) lengths.push_back(n);
  for (std::size_t n : lengths)
    for (std::size_t at = 0; at < n; at += n <= 70 ? 1 : n / 13 + 1)
      for (double x : {-1.0, 1e9}) {
        std::vector<double> v(n);
        for (std::size_t i = 0; i < n; ++i) v[i] = static_cast<double>(i);
        v[at] = x;
        ASSERT_NO_FATAL_FAILURE(Check(v, 0, "one out of place"));
        std::reverse(v.begin(), v.end());
        ASSERT_NO_FATAL_FAILURE(Check(v, 0, "one out of place, reversed"));
      }
}

TEST_P(SortKernel, OrderIsUniqueWithoutNaNAndWithZerosOfOneSign) {
  const auto unique = [&](const std::vector<double>& v) {
    return form().order_is_unique(v.data(), v.size());
  };
  for (std::size_t n = 0; n <= 130; ++n) {
    std::vector<double> v(n, 1.0);
    ASSERT_TRUE(unique(v)) << "n " << n;
    for (std::size_t i = 0; i < n; ++i) {
      for (double nan : {kNaN, -kNaN}) {
        v[i] = nan;
        ASSERT_FALSE(unique(v)) << n << " NaN at " << i;
      }
      for (double zero : {0.0, -0.0}) {
        v[i] = zero;
        ASSERT_TRUE(unique(v)) << n << " one zero at " << i;
        for (std::size_t k = 0; k < i; k += 1 + i / 9) {
          v[k] = -zero;
          ASSERT_FALSE(unique(v)) << n << " zeros at " << i << " and " << k;
          v[k] = zero;
          ASSERT_TRUE(unique(v)) << n << " equal zeros at " << i << " and " << k;
          v[k] = 1.0;
        }
      }
      for (double x : {kInfinity, -kInfinity, std::numeric_limits<double>::denorm_min(), -1.0})
        v[i] = x;
      v[i] = 1.0;
    }
  }
}

TEST_P(SortKernel, OrderIsUniqueReadsEveryElementOfALongArray) {
  std::vector<double> v(5000, -0.0);
  for (std::size_t i = 0; i < v.size(); i += 97) {
    v[i] = kNaN;
    ASSERT_FALSE(form().order_is_unique(v.data(), v.size())) << i;
    v[i] = 0.0;
    ASSERT_FALSE(form().order_is_unique(v.data(), v.size())) << i;
    v[i] = -0.0;
  }
  EXPECT_TRUE(form().order_is_unique(v.data(), v.size()));
}

TEST_P(SortKernel, SortsLongInputsThatMisleadTheChoiceOfPivots) {
  const std::size_t n = 200'000;
  std::vector<double> v(n);
  for (std::size_t i = 0; i < n; ++i) v[i] = static_cast<double>(i < n / 2 ? n - i : i);
  ASSERT_NO_FATAL_FAILURE(Check(v, 0, "valley"));
  v = test::MedianOfThreeKiller(n);
  ASSERT_NO_FATAL_FAILURE(Check(v, 0, "killer"));
}

TEST_P(SortKernel, PartitionsByAnyPivot) {
  for (std::size_t n : {kSplitFrom, kSplitFrom + 1, std::size_t{200}, std::size_t{1003}}) {
    Random random(n);
    std::vector<double> doubles(n);
    std::vector<int> ints(n);
    for (double& x : doubles) x = OrderedValue(random);
    for (int& x : ints) x = random.Int(-20, 20);
    for (std::size_t k = 0; k < n; k += 7) {
      SCOPED_TRACE(::testing::Message() << "n " << n << ", k " << k);
      std::vector<double> v = doubles;
      const double pivot = doubles[k];
      const std::size_t less = form().split_doubles(v.data(), n, pivot);
      EXPECT_TRUE(std::all_of(v.begin(), v.begin() + static_cast<std::ptrdiff_t>(less),
                              [pivot](double x) { return x < pivot; }));
      EXPECT_TRUE(std::none_of(v.begin() + static_cast<std::ptrdiff_t>(less), v.end(),
                               [pivot](double x) { return x < pivot; }));
      std::vector<double> want = doubles;
      std::sort(want.begin(), want.end());
      std::sort(v.begin(), v.end());
      EXPECT_TRUE(test::SameBits(v, want)) << n;

      std::vector<int> w = ints;
      const int limit = ints[k];
      const std::size_t below = form().split_ints(w.data(), n, limit);
      EXPECT_TRUE(std::is_partitioned(w.begin(), w.end(), [limit](int x) { return x < limit; }));
      EXPECT_EQ(below, static_cast<std::size_t>(std::count_if(
                           ints.begin(), ints.end(), [limit](int x) { return x < limit; })));
      std::vector<int> all = ints;
      std::sort(all.begin(), all.end());
      std::sort(w.begin(), w.end());
      EXPECT_EQ(w, all) << n;
    }
  }
}

TEST(SortKernels, HeapSortSortsEveryOrder) {
  for (const test::Order& order : test::Orders())
    for (std::size_t n : {0u, 1u, 2u, 3u, 100u, 1000u}) {
      std::vector<double> v = order.make(n, 3);
      for (double& x : v)
        if (x != x || x == 0) x = 0.0;
      std::vector<double> want = v;
      std::sort(want.begin(), want.end());
      sorting::HeapSort(v.data(), n);
      EXPECT_TRUE(test::SameBits(v, want)) << order.name << " " << n;
    }
  EXPECT_EQ(sorting::DepthLimit(1), 4);
  EXPECT_EQ(sorting::DepthLimit(1024), 24);
}

}  // namespace
}  // namespace zeph::kernels
