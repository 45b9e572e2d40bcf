// Searches, sorts and listings of items that end at a page boundary, before an inaccessible page.
#include "support/guarded.h"

#ifdef ZEPH_TEST_GUARDED
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <vector>

#include "algorithms.h"

namespace {

using zeph::test::Guarded;

template <class T>
std::vector<T> Falling(std::size_t n) {
  std::vector<T> v(n);
  std::iota(v.rbegin(), v.rend(), T(1));
  return v;
}

TEST(AlgorithmGuardPages, SearchesAndSortsStayInBounds) {
  const Guarded pages;
  for (const bool atEnd : {true, false})
    for (std::size_t n = 1; n <= 600; n += 1 + n / 30) {
      SCOPED_TRACE(::testing::Message() << "atEnd " << atEnd << ", n " << n);
      const int count = static_cast<int>(n);
      int* a = pages.Copy(Falling<int>(n), atEnd);
      EXPECT_EQ(1, CZEPHSelectionSort::Run(a, count));
      EXPECT_EQ(count - 1, CZEPHIntegralSearch::BinarySearch(a, count, count));
      EXPECT_EQ(-1, CZEPHIntegralSearch::BinarySearch(a, count, count + 1));
      const int middle = (count - 1) / 2;
      EXPECT_EQ(middle, CZEPHIntegralSearch::BinarySearch(a, 0, count - 1, middle + 1));
      if (n > 1) {
        EXPECT_EQ(count - 1, CZEPHIntegralSearch::SequentialSearch(a, count - 1, count));
        EXPECT_EQ(-1, CZEPHIntegralSearch::SequentialSearch(a, count - 1, count + 1));
      }
      double* b = pages.Copy(Falling<double>(n), atEnd);
      EXPECT_EQ(1, CZEPHSelectionSort::Run(b, count));
      EXPECT_TRUE(std::is_sorted(b, b + n));
    }
}

TEST(AlgorithmGuardPages, PermutationsStayInBounds) {
  const Guarded pages;
  for (const bool atEnd : {true, false})
    for (std::size_t n = 1; n <= 5; ++n) {
      const int count = static_cast<int>(n);
      CString text;
      EXPECT_EQ(1,
                CZEPHPermutation::Run(pages.Copy(std::vector<char>(n, 'z'), atEnd), 0, count, text))
          << "atEnd " << atEnd << ", n " << n;
      EXPECT_EQ('z', text.GetAt(0)) << "atEnd " << atEnd << ", n " << n;
      EXPECT_EQ(1, CZEPHPermutation::Run(pages.Copy(Falling<int>(n), atEnd), 0, count, text))
          << "atEnd " << atEnd << ", n " << n;
    }
}

}  // namespace
#endif
