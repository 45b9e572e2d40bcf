// Sorts have the same result, to the bit, on any number of threads.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <functional>
#include <iterator>
#include <numeric>
#include <string>
#include <vector>

#include "algorithms.h"
#include "double_array.h"
#include "parallel/sort.h"
#include "parallel/threads.h"
#include "support/guarded.h"
#include "support/numbers.h"
#include "support/scale.h"

namespace zeph::test {
namespace {

using Values = std::vector<double>;

struct Method {
  const char* name;
  void (*sort)(CZEPHDoubleArray& a);
};
const Method kMethods[] = {
    {"QuickSort(10)", [](CZEPHDoubleArray& a) { a.QuickSort(10); }},
    {"QuickSort(3)", [](CZEPHDoubleArray& a) { a.QuickSort(3); }},
    {"ShellSort", [](CZEPHDoubleArray& a) { a.ShellSort(); }},
    {"BubbleSort", [](CZEPHDoubleArray& a) { a.BubbleSort(); }},
    {"InsertionSort", [](CZEPHDoubleArray& a) { a.InsertionSort(); }},
    {"ListInsertSort", [](CZEPHDoubleArray& a) { a.ListInsertSort(); }},
};

Values Sorted(const Method& method, Values v) {
  CZEPHDoubleArray a(static_cast<int>(v.size()), v.data());
  method.sort(a);
  return Values(a.data, a.data + a.size);
}

/// Numbers of threads that reach every way of dividing the work.
const std::vector<int> kThreads = Scaled<std::vector<int>>({2, 3, 4, 5, 6, 7, 8}, {2, 3, 8});

void ExpectOneOutcome(const Method& method, const Values& v, const std::string& what) {
  ZEPH_SetThreads(1);
  const Values want = Sorted(method, v);
  for (const int threads : kThreads) {
    ZEPH_SetThreads(threads);
    ASSERT_TRUE(SameBits(Sorted(method, v), want))
        << method.name << ", " << what << ", " << threads << " threads";
  }
  ZEPH_SetThreads(1);
}

Values RandomValues(std::size_t n) {
  Random random(n);
  Values v(n);
  for (double& x : v) x = random.Real();
  return v;
}

}  // namespace

TEST(ParallelSorts, HostileInputHasOneOutcomeForAnyNumberOfThreads) {
  std::size_t content = 0;
  ForEachHostile(130'000, 1, [&content](const Values& v, const std::string& what) {
    ++content;
    for (std::size_t k = 0; k < std::size(kMethods); ++k)  // a sample: one sort for each content
      if ((kFullScale || content % std::size(kMethods) == k) && !HasFatalFailure())
        ExpectOneOutcome(kMethods[k], v, what);
  });
}

TEST(ParallelSorts, LongArraysInEveryOrderHaveOneOutcome) {
  for (const Order& order : Orders()) {
    const Values v = order.make(Scaled<std::size_t>(900'001, 200'001), 7);
    ASSERT_NO_FATAL_FAILURE(ExpectOneOutcome(kMethods[0], v, order.name));
  }
}

TEST(ParallelSorts, SizesAroundTheThresholdsHaveOneOutcome) {
  for (std::size_t n : {99'999u, 100'000u, 100'001u, 131'071u, 499'999u, 500'000u, 500'001u})
    ASSERT_NO_FATAL_FAILURE(ExpectOneOutcome(kMethods[0], RandomValues(n), std::to_string(n)));
}

namespace {

void ExpectSorted(const std::vector<int>& v, const std::string& what) {
  std::vector<int> want = v;
  std::sort(want.begin(), want.end());
  ForEachNumberOfThreads([&](int threads) {
    std::vector<int> got = v;
    CZEPHSelectionSort::Run(got.data(), static_cast<int>(got.size()));
    ASSERT_EQ(got, want) << threads << " threads, " << what;
  });
}

}  // namespace

TEST(ParallelSorts, IntsMatchTheStandardSort) {
  for (const int most : {INT_MAX, 1000, 3, 0})
    for (std::size_t n : {100'000u, 450'000u}) {
      Random random(n);
      std::vector<int> v(n);
      for (int& x : v) x = random.Int(-most, most);
      ExpectSorted(v, "up to " + std::to_string(most));
    }
}

/// Long enough that several threads look for order, and each must notice where it ends.
TEST(ParallelSorts, SortedAndNearlySortedIntsMatchTheStandardSort) {
  for (const int n : {600'000, 600'001}) {
    std::vector<int> v(static_cast<std::size_t>(n));
    std::iota(v.begin(), v.end(), -n / 2);
    ExpectSorted(v, "in order");
    std::vector<int> turned = v;  // out of order only where one thread's part ends
    std::rotate(turned.begin(), turned.begin() + 3 * 16'384, turned.begin() + 8 * 16'384);
    ExpectSorted(turned, "in order within parts");
    std::reverse(v.begin(), v.end());
    ExpectSorted(v, "in reverse");
    std::swap(v[v.size() - 1], v[v.size() - 2]);
    ExpectSorted(v, "in reverse but for the last two");
    std::reverse(v.begin(), v.end());
    std::swap(v[v.size() - 1], v[v.size() - 2]);
    ExpectSorted(v, "in order but for both ends");
  }
}

/// Too few equal elements for counting, too many for a partition into even halves.
TEST(ParallelSorts, IntsOfWhichNearlyHalfAreTheGreatestMatchTheStandardSort) {
  for (const int greatest : {INT_MAX, -1'000'001}) {
    Random random(45);
    std::vector<int> v(300'000);
    for (int& x : v) x = random.Below(100) < 45 ? greatest : random.Int(-1'000'000, 1'000'000);
    ExpectSorted(v, "45 % of them " + std::to_string(greatest));
  }
}

TEST(ParallelSorts, MostlyOneValueHasOneOutcome) {
  for (const std::size_t n : {150'000u, 600'000u})
    for (const std::size_t others : {1u, 2u, 1000u, 70'000u}) {
      Values v(n, 7.0);
      Random random(others);
      for (std::size_t k = 0; k < others; ++k) v[random.Below(n)] = random.Real();
      ASSERT_NO_FATAL_FAILURE(ExpectOneOutcome(kMethods[0], v, std::to_string(others)));
    }
}

TEST(ParallelSorts, TwoZerosFarApartHaveOneOutcome) {
  for (const double one : {0.0, -0.0})
    for (const double other : {0.0, -0.0}) {
      Values v = RandomValues(Scaled<std::size_t>(700'000, 200'000));
      v[3] = one;
      v[v.size() - 10] = other;
      for (const Method& method : kMethods)
        ASSERT_NO_FATAL_FAILURE(ExpectOneOutcome(method, v, "zeros"));
    }
}

TEST(ParallelSorts, UniqueOrderIsDetectedForAnyNumberOfThreads) {
  ForEachHostile(
      Scaled<std::size_t>(600'000, 200'000), 2, [](const Values& v, const std::string& what) {
        const bool want = kernels::OrderIsUnique(v.data(), v.size());
        for (const int threads : kThreads)
          ASSERT_EQ(parallel::detail::OrderIsUnique(v.data(), v.size(), threads), want) << what;
      });
}

TEST(ParallelSorts, FollowTheCallersFloatingPointModes) {
  Values v = RandomValues(600'000);
  for (std::size_t k = 0; k < v.size(); k += 1000) v[k] = 1e-310;  // equals 0.0 in some modes
  for (const Mode& mode : Modes()) {
    Values want, got;
    ZEPH_SetThreads(1);
    RaisedBy(mode, [&] { want = Sorted(kMethods[0], v); });
    ZEPH_SetThreads(4);
    const int raised = RaisedBy(mode, [&] { got = Sorted(kMethods[0], v); });
    EXPECT_TRUE(SameBits(got, want)) << mode.name;
    EXPECT_EQ(raised, 0) << mode.name << ": " << ExceptionNames(raised);
  }
  ZEPH_SetThreads(1);
}

/// Where the host treats denormals as zeros, several that differ have an order that only one thread's steps give.
TEST(ParallelSorts, KeepTheOrderOfDenormalsTreatedAsZeros) {
  for (const bool alike : {false, true}) {
    Values v = RandomValues(Scaled<std::size_t>(600'000, 150'000));
    for (std::size_t k = 0; k < v.size(); k += 1000)
      v[k] = 1e-310 * (alike ? 1.0 : static_cast<double>(1 + k / 1000 * 37 % 100));
    for (const Mode& mode : Modes()) {
      Values want, got;
      ZEPH_SetThreads(1);
      RaisedBy(mode, [&] { want = Sorted(kMethods[0], v); });
      ZEPH_SetThreads(4);
      RaisedBy(mode, [&] { got = Sorted(kMethods[0], v); });
      EXPECT_TRUE(SameBits(got, want)) << mode.name;
    }
  }
  ZEPH_SetThreads(1);
}

TEST(ParallelSorts, AskAboutDenormalsTreatedAsZerosAsOneThreadDoes) {
  for (const bool alike : {false, true}) {
    Values v = RandomValues(100'000);
    for (std::size_t k = 0; k < v.size(); k += 1000)
      v[k] = alike ? 1e-310 : 1e-310 * static_cast<double>(1 + k / 1000);
    for (const Mode& mode : Modes()) {
      bool want = false, got = false;
      RaisedBy(mode, [&] { want = kernels::OrderIsUnique(v.data(), v.size()); });
      RaisedBy(mode, [&] { got = parallel::detail::OrderIsUnique(v.data(), v.size(), 3); });
      EXPECT_EQ(got, want) << mode.name << (alike ? ", alike" : "");
    }
  }
}

#ifdef ZEPH_TEST_GUARDED
TEST(ParallelSorts, ReadNothingAfterTheirLastPart) {
  for (const std::size_t n : {32'769u, 40'000u, 65'535u, 100'003u, 500'007u}) {
    const Guarded pages(n * sizeof(double));
    Values values = RandomValues(n);
    const Values want = Sorted(kMethods[0], values);
    for (const char* order : {"random", "descending", "ascending"}) {
      if (*order == 'd') values.assign(want.rbegin(), want.rend());
      if (*order == 'a') values = want;
      double* const v = pages.Copy(values, true);
      EXPECT_EQ(parallel::detail::OrderIsUnique(v, n, 3), kernels::OrderIsUnique(v, n));
      const ThreeThreads threads;
      parallel::SortAscending(v, n);
      EXPECT_TRUE(SameBits(Values(v, v + n), want)) << n << ' ' << order;
    }
  }
  ZEPH_SetThreads(1);
}
#endif

}  // namespace zeph::test
