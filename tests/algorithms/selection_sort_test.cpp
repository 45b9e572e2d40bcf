#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "algorithms.h"
#include "oracle/selection_sort.h"
#include "support/allocation.h"
#include "support/bits.h"
#include "support/child.h"
#include "support/not_finite.h"
#include "support/numbers.h"
#include "support/scale.h"
#include "support/selection_report.h"
#include "support/stream.h"

using namespace zeph::test;

TEST(SelectionSortOfInts, SortsInAscendingOrder) {
  int a[] = {3, 1, 2};
  EXPECT_EQ(CZEPHSelectionSort::Run(a, 3), 1);
  EXPECT_EQ(std::vector<int>(a, a + 3), (std::vector<int>{1, 2, 3}));
}

TEST(SelectionSortOfInts, LeavesElementsAfterTheCountAlone) {
  int a[] = {3, 1, 2, 0, -5};
  EXPECT_EQ(CZEPHSelectionSort::Run(a, 3), 1);
  EXPECT_EQ(std::vector<int>(a, a + 5), (std::vector<int>{1, 2, 3, 0, -5}));
}

// From 32,768 elements on, the sort keeps the minima of blocks of more than 128 elements.
TEST(SelectionSortOfDoubles, SortsMoreWholeNumbersThanFitItsUsualBlocks) {
  Random random(8);
  for (const int n : {32767, 32768, 32769, 40000, 70001}) {
    std::vector<double> a(static_cast<std::size_t>(n));
    for (double& x : a) x = random.Int(-1000000, 1000000);
    std::vector<double> b = a;
    EXPECT_EQ(CZEPHSelectionSort::Run(a.data(), n), 1) << "n " << n;
    for (double& x : b)
      if (x == 0) x = 0.0;
    std::sort(b.begin(), b.end());
    EXPECT_TRUE(SameBits(a, b)) << n;
  }
}

TEST(SelectionSort, DoesNothingWithoutElements) {
  int a[] = {3, 1};
  double b[] = {3.5, 1.5};
  for (const int n : {0, -1, INT_MIN}) {
    EXPECT_EQ(CZEPHSelectionSort::Run(a, n), 0) << "n " << n;
    EXPECT_EQ(CZEPHSelectionSort::Run(b, n), 0) << "n " << n;
  }
  EXPECT_EQ(CZEPHSelectionSort::Run(static_cast<int*>(nullptr), 2), 0);
  EXPECT_EQ(CZEPHSelectionSort::Run(static_cast<double*>(nullptr), 2), 0);
  EXPECT_EQ(a[0], 3);
  EXPECT_EQ(b[0], 3.5);
}

TEST(SelectionSortOfInts, AgreesWithTheOracle) {
  Random random(1);
  for (const int n : {1, 2, 3, 5, 17, 31, 32, 33, 127, 128, 129, 255, 256, 257, 700})
    for (const int span : {1, 3, 1000, INT_MAX}) {
      std::vector<int> a(static_cast<std::size_t>(n));
      for (int& x : a) x = random.Int(-span, span);
      if (n > 2) a[static_cast<std::size_t>(n) / 2] = INT_MIN;
      std::vector<int> b = a;
      EXPECT_EQ(CZEPHSelectionSort::Run(a.data(), n), 1) << "n " << n << ", span " << span;
      oracle::SelectionSort(b);
      EXPECT_EQ(a, b) << "n " << n << ", span " << span;
      EXPECT_TRUE(std::is_sorted(a.begin(), a.end())) << "n " << n << ", span " << span;
    }
}

TEST(SelectionSortOfDoubles, TruncatesTheElementsItExchangesToInt) {
  double a[] = {2.5, 1.25};
  EXPECT_EQ(CZEPHSelectionSort::Run(a, 2), 1);
  EXPECT_SAME_BITS(a[0], 1.25);
  EXPECT_SAME_BITS(a[1], 2.0);
  double single[] = {3.7};
  EXPECT_EQ(CZEPHSelectionSort::Run(single, 1), 1);
  EXPECT_SAME_BITS(single[0], 3.0);
}

TEST(SelectionSortOfDoubles, StoresIntMinForExchangedElementsOutOfRange) {
  double a[] = {1e300, 1.0};
  CZEPHSelectionSort::Run(a, 2);
  EXPECT_EQ(a[0], 1.0);
  EXPECT_EQ(a[1], -2147483648.0);
  double nan[] = {kNaN};
  CZEPHSelectionSort::Run(nan, 1);
  EXPECT_EQ(nan[0], -2147483648.0);
}

TEST(SelectionSortOfDoubles, AgreesWithTheOracle) {
  for (const auto& order : Orders())
    for (const std::size_t n : {1u, 2u, 3u, 4u, 7u, 30u, 200u}) {
      std::vector<double> a = order.make(n, n), b = a;
      EXPECT_EQ(CZEPHSelectionSort::Run(a.data(), static_cast<int>(n)), 1)
          << order.name << ", n " << n;
      oracle::SelectionSort(b);
      EXPECT_TRUE(SameBits(a, b)) << order.name << " n=" << n;
    }
  for (std::size_t n = 1; n <= 5; ++n)
    ForEachArray<double>({-1.5, -0.0, 0.0, 2.5, kNaN}, n, [n](std::vector<double> a) {
      std::vector<double> b = a;
      CZEPHSelectionSort::Run(a.data(), static_cast<int>(n));
      oracle::SelectionSort(b);
      EXPECT_TRUE(SameBits(a, b)) << "n " << n;
    });
}

TEST(SelectionSortOfDoubles, AgreesWithTheOracleOnLongArrays) {
  // Long enough for several sizes of the blocks whose minima are kept.
  for (const std::size_t n : {1000u, 16'384u, 17'000u}) {
    if (n > 1000 && !kFullScale) continue;
    for (const auto& order : Orders()) {
      if (n > 1000 && order.name != std::string("awkward")) continue;
      std::vector<double> a = order.make(n, n), b = a;
      CZEPHSelectionSort::Run(a.data(), static_cast<int>(n));
      oracle::SelectionSort(b);
      EXPECT_TRUE(SameBits(a, b)) << order.name << " n=" << n;
    }
  }
}

TEST(SelectionSort, WritesItsBannerOnConstructionButNotOnCopying) {
  const std::string text = Written([](FILE* f) {
    CZEPHSelectionSort made(f);
    CZEPHSelectionSort copy(made);
    copy = made;
  });
  EXPECT_EQ(text, "@@@( Selection Sorting Algorithm...by CZEPHSelectionSort\n");
  CZEPHSelectionSort silent(nullptr);
  EXPECT_EQ(sizeof silent, sizeof(void*));
}

TEST(SelectionSort, PrintsItsBannerToTheStandardOutputByDefault) {
  CaptureStdout capture;
  CZEPHSelectionSort made;
  EXPECT_EQ(capture.Text(), "@@@( Selection Sorting Algorithm...by CZEPHSelectionSort\n");
}

TEST(SelectionSort, PrintsItsDemonstrationReport) {
  for (const int n : {0, 1, 2, 12, 105}) {
    const std::string text =
        Written([n](FILE* f) { EXPECT_EQ(CZEPHSelectionSort::Test1(n, f), 1) << "n " << n; });
    EXPECT_EQ(text, ExpectedSelectionReport(text, n)) << "n " << n;
  }
}

TEST(SelectionSort, DemonstratesNegativeValuesToo) {
  const std::string text = Written([](FILE* f) { CZEPHSelectionSort::Test1(200, f); });
  EXPECT_NE(text.find("]= -"), std::string::npos);
}

TEST(SelectionSort, PrintsNothingToANullStream) {
  EXPECT_EQ(CZEPHSelectionSort::Test1(5, nullptr), 0);
}

TEST(SelectionSort, PropagatesMemoryExhaustionAndKeepsTheTextWritten) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  const std::string opening =
      "\n@@@( CZEPHSelectionSort::Test1()...BEGIN\n@@@( Interger array sorting...\n";
  for (const Failure how : {Failure::kBadAlloc, Failure::kMemoryException}) {
    SCOPED_TRACE(::testing::Message() << how);
    const TemporaryFile file;
    const long live = LiveBlocks();
    FILE* f = std::fopen(file.Path().c_str(), "wb");
    int thrown = 0;
    const long failures = FailEachAllocation(
        how, false,
        [&] {
          try {
            CZEPHSelectionSort::Test1(3, f);
          } catch (const std::bad_alloc&) {
            ++thrown;
          } catch (CMemoryException* exception) {
            exception->Delete();
            ++thrown;
          }
        },
        [](long) {});
    std::fclose(f);
    EXPECT_EQ(LiveBlocks(), live);
    EXPECT_EQ(failures, 2);  // a block of ints, a block of doubles
    EXPECT_EQ(thrown, 2);
    EXPECT_EQ(ReadFile(file.Path()).substr(0, 2 * opening.size()), opening + opening);
  }
}

TEST(SelectionSort, ThrowsBadAllocForANegativeCount) {
  const std::string text =
      Written([](FILE* f) { EXPECT_THROW(CZEPHSelectionSort::Test1(-1, f), std::bad_alloc); });
  EXPECT_EQ(text, "\n@@@( CZEPHSelectionSort::Test1()...BEGIN\n@@@( Interger array sorting...\n");
}
