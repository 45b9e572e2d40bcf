// Threads of hosts may have small stacks: the operations run on 64 KiB, except the one that is
// documented to take more.
#if defined(__unix__) && !defined(__EMSCRIPTEN__)
#include "support/small_stack.h"
#include "support/not_finite.h"

#include <gtest/gtest.h>

#include <functional>
#include <numeric>
#include <vector>

#include "ZEPHDataStructureEngine.h"
#include "support/scale.h"
#include "support/temporary_file.h"

namespace {

using zeph::test::kNaN;
using zeph::test::RunOnSmallStack;

/// This holds for the frames of an optimising g++; sanitizers enlarge them, and an unoptimised
/// build gives every temporary a place of its own.
#if defined(ZEPH_TEST_SANITIZED) || !defined(__OPTIMIZE__)
constexpr std::size_t kSmall = std::size_t{512} * 1024, kPermutations = kSmall;
#elif defined(__clang__)
constexpr std::size_t kSmall = std::size_t{128} * 1024, kPermutations = kSmall;
#else
constexpr std::size_t kSmall = std::size_t{64} * 1024, kPermutations = std::size_t{96} * 1024;
#endif

class SmallStack : public testing::Test {
 protected:
  void SetUp() override {
    if (!RunOnSmallStack(kSmall, [] {}))
      GTEST_SKIP() << "this system starts no threads with so small a stack";
  }
};

void OnSmallStack(const std::function<void()>& body) {
  ASSERT_TRUE(RunOnSmallStack(kSmall, body)) << "no thread could be started";
}

/// Unordered, with zeros of both signs and a NaN, so that no shortcut is taken; or with few
/// distinct values.
std::vector<double> Mixed(int n, unsigned distinct) {
  std::vector<double> v(static_cast<std::size_t>(n));
  unsigned state = 1;
  for (double& x : v) x = static_cast<double>((state = state * 1664525u + 1013904223u) % distinct);
  if (distinct > 1000) v[v.size() / 3] = -0.0, v[v.size() / 2] = 0.0, v[0] = -kNaN;
  return v;
}

TEST_F(SmallStack, SufficesForEverySort) {
  for (const int n : {30, 1000, 20'000})
    for (const unsigned distinct : {4u, 1u << 30}) {
      const std::vector<double> v = Mixed(n, distinct);
      void (*const sorts[])(CZEPHDoubleArray&) = {[](CZEPHDoubleArray& a) { a.InsertionSort(); },
                                                  [](CZEPHDoubleArray& a) { a.ListInsertSort(); },
                                                  [](CZEPHDoubleArray& a) { a.ShellSort(); },
                                                  [](CZEPHDoubleArray& a) { a.QuickSort(3); },
                                                  [](CZEPHDoubleArray& a) { a.QuickSort(12); },
                                                  [](CZEPHDoubleArray& a) { a.BubbleSort(); }};
      for (const auto sort : sorts) {
        CZEPHDoubleArray a(n, const_cast<double*>(v.data()));
        OnSmallStack([&] { sort(a); });
        EXPECT_EQ(1, a.sorted) << "n " << n << ", distinct " << distinct;
      }
      std::vector<double> selected = v;
      OnSmallStack([&] { CZEPHSelectionSort::Run(selected.data(), n); });
      std::vector<int> ints(v.size());
      std::iota(ints.rbegin(), ints.rend(), 0);
      OnSmallStack([&] { CZEPHSelectionSort::Run(ints.data(), n); });
      EXPECT_EQ(0, ints[0]) << "n " << n << ", distinct " << distinct;
    }
}

TEST_F(SmallStack, SufficesForMatricesAndNorms) {
  for (const int n : {3, 20, 130}) {
    CZEPHDoubleMatrix a(n, n, 0.5), b(n, n, 2.0);
    CZEPHDoubleArray v(n, 1.0);
    double sum = 0;
    OnSmallStack([&] {
      a *= b;
      sum = ZEPH_MatrixOneNorm(a.m_ppData, n, 0) + ZEPH_MatrixMaxNorm(a.m_ppData, n, 0) +
            ZEPH_MatrixFrobNorm(a.m_ppData, n, 0) + ZEPH_ArrayMaxNorm(a.m_ppData[0], n, 0);
      v = a * v;
    });
    EXPECT_EQ(n, a[0][0]) << "n " << n;
    EXPECT_EQ(1.0 * n * n, v[n - 1]) << "n " << n;
    EXPECT_GT(sum, 2.0 * n * n) << "n " << n;
  }
}

TEST_F(SmallStack, SufficesForListings) {
  const zeph::test::TemporaryFile file;
  std::FILE* f = std::fopen(file.Path().c_str(), "w");
  ASSERT_TRUE(f);
  CZEPHDoubleArray a(3000, 1.25);
  CString text;
  char name[] = "a";
  OnSmallStack([&] {
    ZEPH_ArrayDisplay(f, a.data, 0, 2999, name);
    ZEPH_ArrayDisplay(text, a.data, 0, 2999, name);
    CZEPHIntegralSearch::Test1(f);
    CZEPHSelectionSort::Test1(20, f);
  });
  EXPECT_EQ(0, std::fclose(f));
  EXPECT_GT(text.GetLength(), 3000 * 6);
}

/// As include/algorithms.h says.
TEST_F(SmallStack, PermutationsNeed64KiBMore) {
  CString text;
  std::vector<char> letters = {'a', 'b', 'c', 'd', 'e'};
  ASSERT_TRUE(
      RunOnSmallStack(kPermutations, [&] { CZEPHPermutation::Run(letters.data(), 0, 5, text); }));
  EXPECT_EQ(120 * 7, text.GetLength());
  std::vector<int> numbers = {1, 2, 3, 4};
  CString lines;
  ASSERT_TRUE(
      RunOnSmallStack(kPermutations, [&] { CZEPHPermutation::Run(numbers.data(), 0, 4, lines); }));
  EXPECT_EQ(24 * 9, lines.GetLength());
}

}  // namespace
#endif
