// The array's own operations on storage between inaccessible pages.
#include "support/guarded.h"

#ifdef ZEPH_TEST_GUARDED

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>

#include "double_array/arrays.h"
#include "support/random.h"

namespace zeph::test {
namespace {

using Values = std::vector<double>;
using Operation = std::function<void(CZEPHDoubleArray&)>;

/// Calls `run` with an array of these elements, whose storage touches the page behind it or the one before.
void InGuardedStorage(const Guarded& pages, const Values& v, const Operation& run) {
  for (const bool atEnd : {true, false}) {
    SCOPED_TRACE(::testing::Message() << v.size() << (atEnd ? " at the end" : " at the beginning"));
    CZEPHDoubleArray a;
    a.data = pages.Copy(v, atEnd);
    a.size = static_cast<int>(v.size());
    run(a);
    a.data = nullptr;
    a.size = 0;
  }
}

/// Ascending, descending, equal and random elements, and two zeros among them.
void ForEachOrder(std::size_t n, const std::function<void(const Values&)>& body) {
  Values v(n);
  std::iota(v.begin(), v.end(), 1.0);
  body(v);
  std::reverse(v.begin(), v.end());
  body(v);
  body(Values(n, 3.0));
  Random random(n);
  for (double& x : v) x = random.Int(-9, 9) * (random.Below(2) != 0 ? 1.0 : -1.0);
  body(v);
}

void SortsIn(const Guarded& pages, const Values& v) {
  const int last = static_cast<int>(v.size()) - 1;
  const Operation sorts[] = {
      [](CZEPHDoubleArray& a) { a.InsertionSort(); },
      [last](CZEPHDoubleArray& a) { a.InsertionSort(0, last); },
      [](CZEPHDoubleArray& a) { a.ListInsertSort(); },
      [](CZEPHDoubleArray& a) { a.ShellSort(); },
      [](CZEPHDoubleArray& a) { a.QuickSort(3); },
      [](CZEPHDoubleArray& a) { a.QuickSort(10); },
      [last](CZEPHDoubleArray& a) { a.recQuickSort(0, last, 10); },
  };
  InGuardedStorage(pages, v,
                   [](CZEPHDoubleArray& a) { a.BubbleSort(); });  // leaves one out of place
  for (const Operation& sort : sorts)
    InGuardedStorage(pages, v, [&sort](CZEPHDoubleArray& a) {
      sort(a);
      EXPECT_TRUE(std::is_sorted(a.begin(), a.end()));
    });
}

void LooksIn(const Guarded& pages, const Values& v) {
  const double most = *std::max_element(v.begin(), v.end()),
               least = *std::min_element(v.begin(), v.end());
  InGuardedStorage(pages, v, [&](CZEPHDoubleArray& a) {
    EXPECT_EQ(a.Find(most + 1), -1);
    EXPECT_EQ(a.Find(v.back()), std::find(v.begin(), v.end(), v.back()) - v.begin());
    EXPECT_EQ(a.CheckSorted() != 0, std::is_sorted(v.begin(), v.end() - 1));
    EXPECT_EQ(a.MaxNorm(), std::max(std::abs(most), std::abs(least)));
    EXPECT_GE(a.OneNorm(), a.TwoNorm() * 0.999);
  });
}

void PartsIn(const Guarded& pages, const Values& v) {
  const int last = static_cast<int>(v.size()) - 1;
  const double most = *std::max_element(v.begin(), v.end()),
               least = *std::min_element(v.begin(), v.end());
  for (const double pivot : {least - 1, least, v[v.size() / 2], most, most + 1})
    InGuardedStorage(pages, v, [=](CZEPHDoubleArray& a) {
      const int at = a.Partition(0, last, pivot);
      EXPECT_GE(at, 0);
      EXPECT_LE(at, last);
    });
  if (last < 2) return;
  InGuardedStorage(pages, v, [last](CZEPHDoubleArray& a) {
    const int at = a.QuickPartition(0, last, a.MedianOf3(0, last));
    EXPECT_EQ(a[at], *std::max_element(a.begin(), a.begin() + at + 1));
  });
}

}  // namespace

TEST(DoubleArrayGuardPages, SortsSearchesNormsAndPartitionsStayInTheStorage) {
  const Guarded pages;
  for (std::size_t n = 1; n <= 700; n += 1 + n / 12)
    ForEachOrder(n, [&pages](const Values& v) {
      SortsIn(pages, v);
      LooksIn(pages, v);
      PartsIn(pages, v);
    });
}

}  // namespace zeph::test

#endif
