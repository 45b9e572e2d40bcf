// SPDX-License-Identifier: MIT
//
// Every form of the kernels at every length about its vectors' and blocks' edges, on memory beside
// inaccessible pages, with what decides the result at every place in turn.
#include "support/guarded.h"

#ifdef ZEPH_TEST_GUARDED
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "kernels/chains.h"
#include "kernels/dense_product.h"
#include "kernels/halving.h"
#include "kernels/merge.h"
#include "kernels/partition.h"
#include "kernels/row_sums.h"
#include "kernels/search.h"
#include "kernels/sort.h"
#include "support/bits.h"
#include "support/not_finite.h"
#include "support/random.h"
#include "support/scale.h"

namespace zeph::kernels {
namespace {

using test::Guarded;
using test::kInfinity;
using test::kNaN;
using test::Random;

/// Twice the most elements that any form sorts in registers, and a vector.
constexpr std::size_t kMost = 264;

template <class T>
std::vector<T> Drawn(std::size_t n, std::uint64_t seed, int most = 1000) {
  Random random(seed);
  std::vector<T> v(n);
  for (T& x : v) x = static_cast<T>(random.Int(1, most));
  return v;
}
template <class T>
std::vector<T> Ascending(std::size_t n, std::uint64_t seed, int most = 1000) {
  std::vector<T> v = Drawn<T>(n, seed, most);
  std::sort(v.begin(), v.end());
  return v;
}

class KernelEdges : public testing::TestWithParam<const Table*> {
 protected:
  void SetUp() override { Force(*GetParam()); }
  void TearDown() override { Force(*RunnableTables().back()); }
  static constexpr bool kEnds[] = {true, false};
  Guarded a_, b_, out_;
};

INSTANTIATE_TEST_SUITE_P(Forms, KernelEdges, testing::ValuesIn(RunnableTables()),
                         [](const auto& form) { return std::string(form.param->name); });

template <class T>
void SortsInside(const Guarded& pages, std::size_t n, bool atEnd) {
  for (const int most : {1000, 3}) {
    std::vector<T> want = Drawn<T>(n, n, most);
    T* v = pages.Copy(want, atEnd);
    SortAscending(v, n);
    std::sort(want.begin(), want.end());
    ASSERT_TRUE(std::equal(want.begin(), want.end(), v)) << n;
  }
}

TEST_P(KernelEdges, SortsOfAnyLengthStayInBounds) {
  for (const bool atEnd : kEnds)
    for (std::size_t n = 1; n <= kMost; ++n) {
      ASSERT_NO_FATAL_FAILURE(SortsInside<double>(a_, n, atEnd));
      ASSERT_NO_FATAL_FAILURE(SortsInside<int>(b_, n, atEnd));
      const double* v = a_.Copy(Drawn<double>(n, n), atEnd);
      ASSERT_TRUE(OrderIsUnique(v, n)) << n;
    }
}

template <class T, class Split>
void SplitsInside(const Guarded& pages, std::size_t n, bool atEnd, Split split) {
  const std::vector<T> before = Drawn<T>(n, n, 50);
  for (const T pivot : {T(1), T(25), T(51)}) {  // all stay right, some, all go left
    T* v = pages.Copy(before, atEnd);
    const auto less = [pivot](T x) { return x < pivot; };
    const auto want = std::count_if(before.begin(), before.end(), less);
    ASSERT_EQ(static_cast<std::size_t>(want), split(v, n, pivot)) << n;
    ASSERT_TRUE(std::all_of(v, v + want, less) && std::none_of(v + want, v + n, less)) << n;
    ASSERT_TRUE(std::is_permutation(before.begin(), before.end(), v)) << n;
  }
}

TEST_P(KernelEdges, SplitsOfAnyLengthStayInBounds) {
  const Sorting& form = *Active().sorting;
  for (const bool atEnd : kEnds)
    for (std::size_t n = kSplitFrom; n <= kSplitFrom + 70; ++n) {
      ASSERT_NO_FATAL_FAILURE(SplitsInside<double>(a_, n, atEnd, form.split_doubles));
      ASSERT_NO_FATAL_FAILURE(SplitsInside<int>(b_, n, atEnd, form.split_ints));
    }
}

/// The lengths of a block about the edges of what a merge moves at once.
std::vector<std::size_t> MergeLengths() {
  std::vector<std::size_t> lengths;
  for (std::size_t n = 0; n <= 36; ++n) lengths.push_back(n);
  for (const std::size_t edge : {48u, 64u, 80u, 96u})
    for (std::size_t n = edge - 1; n <= edge + 1; ++n) lengths.push_back(n);
  return lengths;
}

template <class T>
void MergesInside(const Guarded& pages, const Guarded& others, const Guarded& results,
                  std::size_t na, std::size_t nb, bool atEnd) {
  const auto a = Ascending<T>(na, na + 1, 90), b = Ascending<T>(nb, nb + 7, 90);
  std::vector<T> want(na + nb);
  std::merge(a.begin(), a.end(), b.begin(), b.end(), want.begin());
  T* got = results.Room<T>(na + nb, atEnd);
  MergeAscending(pages.Copy(a, atEnd), static_cast<std::ptrdiff_t>(na), others.Copy(b, atEnd),
                 static_cast<std::ptrdiff_t>(nb), got);
  ASSERT_TRUE(std::equal(want.begin(), want.end(), got)) << na << " and " << nb;
}

TEST_P(KernelEdges, MergesOfAnyLengthsStayInBounds) {
  for (const bool atEnd : kEnds)
    for (const std::size_t na : MergeLengths())
      for (const std::size_t nb : MergeLengths()) {
        ASSERT_NO_FATAL_FAILURE(MergesInside<double>(a_, b_, out_, na, nb, atEnd));
        ASSERT_NO_FATAL_FAILURE(MergesInside<int>(a_, b_, out_, na, nb, atEnd));
      }
}

TEST_P(KernelEdges, PassesOverChainsStayInBounds) {
  const std::size_t lanes = ChainsAbreast();
  if (lanes == 1) GTEST_SKIP() << "this form leaves chains to the caller";
  for (const bool atEnd : kEnds)
    for (std::size_t gap = lanes; gap <= lanes + 9; ++gap)
      for (std::size_t n = gap + 1; n <= 10 * gap; n += 1 + n / 60) {
        std::vector<double> want = Drawn<double>(n, n + gap);
        want[n / 3] = kNaN;
        double* v = a_.Copy(want, atEnd);
        while (!SortChains(v, n, gap)) {
        }
        for (std::size_t i = gap; i < n; ++i)
          for (std::size_t j = i; j >= gap && want[j - gap] > want[j]; j -= gap)
            std::swap(want[j - gap], want[j]);
        ASSERT_TRUE(test::SameBits(v, want.data(), n)) << n << " by " << gap;
      }
}

TEST_P(KernelEdges, PartitionsOfAnyLengthStayInBounds) {
  for (const bool atEnd : kEnds)
    for (std::size_t n = 3; n <= 210; ++n) {
      std::vector<double> before = Drawn<double>(n, n, 60);
      before[0] = 0.5;
      double* v = a_.Copy(before, atEnd);
      const double pivot = before[n - 2];
      const std::size_t at = Part(v, n, pivot);
      ASSERT_EQ(pivot, v[at]) << n;
      ASSERT_TRUE(std::all_of(v, v + at, [=](double x) { return x <= pivot; })) << n;
      ASSERT_TRUE(std::all_of(v + at, v + n - 1, [=](double x) { return x >= pivot; })) << n;
    }
}

TEST_P(KernelEdges, MasksBoundsAndCensusReadEveryElementAndNoOther) {
  using Limits = std::numeric_limits<double>;
  for (const bool atEnd : kEnds)
    for (std::size_t n = 1; n <= 140; ++n) {
      double* v = a_.Copy(std::vector<double>(n, 3.0), atEnd);
      for (std::size_t at = 0; at < n; at += 1 + n / test::Scaled<std::size_t>(70, 14)) {
        for (const double x :
             {kNaN, -kNaN, 0.0, -0.0, Limits::denorm_min(), -1e300, 5.0, kInfinity, -kInfinity}) {
          v[at] = x;
          const bool nan = x != x;
          const Bounds bounds = BoundsOf(v, n);
          ASSERT_EQ(nan      ? -kInfinity
                    : n == 1 ? x
                             : std::min(x, 3.0),
                    bounds.least)
              << n << ' ' << at;
          ASSERT_EQ(nan      ? kInfinity
                    : n == 1 ? x
                             : std::max(x, 3.0),
                    bounds.greatest)
              << n << ' ' << at;
          const Census census = TakeCensus(v, n);
          ASSERT_EQ(std::size_t{nan}, census.nans) << n << ' ' << at;
          ASSERT_EQ(std::size_t{x == 0}, census.zeros) << n << ' ' << at;
          ASSERT_EQ(std::size_t{test::SameBits(x, 0.0)}, census.plus) << n << ' ' << at;
          ASSERT_EQ(std::size_t{test::SameBits(x, -0.0)}, census.minus) << n << ' ' << at;
          if (n > 64) continue;
          const std::uint64_t all = ~std::uint64_t{0} >> (64 - n), bit = std::uint64_t{1} << at;
          ASSERT_EQ(x < 3 ? all & ~bit : all, NotLess(v, n, 3.0)) << n << ' ' << at << ' ' << x;
          ASSERT_EQ(x > 3 ? all & ~bit : all, NotGreater(v, n, 3.0)) << n << ' ' << at << ' ' << x;
          ASSERT_EQ(x < 4 ? 0 : bit, NotLess(v, n, 4.0)) << n << ' ' << at << ' ' << x;
          ASSERT_EQ(x > 2 ? 0 : bit, NotGreater(v, n, 2.0)) << n << ' ' << at << ' ' << x;
        }
        v[at] = 3.0;
      }
    }
}

TEST_P(KernelEdges, SearchesOfAnyLengthStayInBounds) {
  for (const bool atEnd : kEnds)
    for (std::size_t n = 1; n <= 200; ++n) {
      const double* v = a_.Copy(std::vector<double>(n, 3.0), atEnd);
      const int* w = b_.Copy(std::vector<int>(n, 3), atEnd);
      ASSERT_EQ(n, FindFirst(v, n, 4.0));
      ASSERT_EQ(0u, FindFirst(v, n, 3.0));
      ASSERT_EQ(n, Active().searching->find_last(w, n, 4));
      ASSERT_EQ(n - 1, Active().searching->find_last(w, n, 3));
      ASSERT_EQ(0u, FirstLeast(v, n));
      ASSERT_TRUE(NoneDescends(v, n));
      ASSERT_EQ((n - 1) / 2, FindByHalving(v, n, 3.0));
      ASSERT_EQ(n, FindByHalving(v, n, 4.0));
      ASSERT_EQ(n, FindByHalving(w, n, 2));
    }
}

/// Rows of `cols` elements, each at the end of pages of its own.
class GuardedRows {
 public:
  explicit GuardedRows(std::size_t rows) {
    for (std::size_t i = 0; i < rows; ++i) pages_.push_back(std::make_unique<Guarded>(1));
  }
  std::vector<double*> Fill(std::size_t rows, std::size_t cols, bool atEnd) const {
    std::vector<double*> m;
    for (std::size_t i = 0; i < rows; ++i)
      m.push_back(pages_[i]->Copy(Drawn<double>(cols, i + 31 * cols), atEnd));
    return m;
  }

 private:
  std::vector<std::unique_ptr<Guarded>> pages_;
};

/// The tables of rows too.
TEST_P(KernelEdges, RowSumsStayInBoundsOfEveryRow) {
  constexpr std::size_t kRows = 26;
  const GuardedRows pages(kRows);
  const RowSums& all = *Active().row_sums;
  for (const bool atEnd : kEnds)
    for (std::size_t rows = 1; rows <= kRows; ++rows)
      for (std::size_t cols = 1; cols <= 13; ++cols) {
        const std::vector<double*> m = pages.Fill(rows, cols, atEnd);
        double** const table = a_.Copy(m, atEnd);
        double* sums = out_.Room<double>(rows, atEnd);
        const double* factors = b_.Copy(std::vector<double>(cols, 2.0), atEnd);
        const auto check = [&](double scale) {
          for (std::size_t i = 0; i < rows; ++i) {
            double want = 0.0;
            for (std::size_t j = 0; j < cols; ++j) want += m[i][j];
            ASSERT_EQ(scale * want, sums[i]) << rows << " by " << cols << ", row " << i;
          }
        };
        all.sum(sums, table, rows, cols), check(1);
        all.magnitude(sums, table, rows, cols), check(1);
        all.dot(sums, table, factors, rows, cols), check(2);
        all.length(sums, table, rows, cols);
        ASSERT_GE(sums[rows - 1], m[rows - 1][cols - 1]);
      }
}

TEST_P(KernelEdges, ProductsStayInBoundsOfEveryRow) {
  constexpr std::size_t kRows = 18, kInner = 3;
  const GuardedRows left(kRows), right(kInner), results(kRows);
  for (const bool atEnd : kEnds)
    for (std::size_t rows = 1; rows <= kRows; rows += rows < 3 ? 1 : 5)
      for (std::size_t cols = 1; cols <= 50; ++cols) {
        const auto a = left.Fill(rows, kInner, atEnd), b = right.Fill(kInner, cols, atEnd),
                   c = results.Fill(rows, cols, atEnd);
        DenseProduct(out_.Copy(c, atEnd), a_.Copy(a, atEnd), b_.Copy(b, atEnd), rows, kInner, cols);
        for (std::size_t i = 0; i < rows; ++i)
          for (std::size_t j = 0; j < cols; ++j)
            ASSERT_EQ(a[i][0] * b[0][j] + a[i][1] * b[1][j] + a[i][2] * b[2][j], c[i][j])
                << rows << " by " << cols << " at " << i << ", " << j;
      }
}

}  // namespace
}  // namespace zeph::kernels
#endif
