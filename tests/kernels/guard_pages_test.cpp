// SPDX-License-Identifier: MIT
//
// Every form of the kernels on memory that ends or begins at a page boundary beside inaccessible
// pages: an access outside ends the program.
#include "support/guarded.h"

#ifdef ZEPH_TEST_GUARDED
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <new>
#include <string>
#include <vector>

#include "algorithms/least_finder.h"
#include "kernels/batch.h"
#include "kernels/dense_product.h"
#include "kernels/elementwise.h"
#include "kernels/largest_magnitude.h"
#include "kernels/merge.h"
#include "kernels/partition.h"
#include "kernels/row_sums.h"
#include "kernels/search.h"
#include "kernels/sort.h"
#include "kernels/table.h"

namespace {

using namespace zeph::kernels;
using zeph::test::Guarded;

template <class T>
std::vector<T> Numbers(std::size_t n) {
  std::vector<T> v(n);
  unsigned state = 12345;
  for (T& x : v) x = static_cast<T>(1 + (state = state * 1664525u + 1013904223u) % 100'000);
  return v;
}

class GuardPages : public testing::TestWithParam<const Table*> {
 protected:
  void SetUp() override { Force(*GetParam()); }
  void TearDown() override { Force(*RunnableTables().back()); }

  /// Every length, at both ends of the pages.
  template <class Body>
  void ForEachPlace(std::size_t most, Body body) {
    for (const bool atEnd : {true, false})
      for (std::size_t n = 1; n <= most; n += 1 + n / 40) {
        SCOPED_TRACE(::testing::Message() << n << (atEnd ? " at the end" : " at the beginning"));
        body(n, atEnd);
      }
  }
  Guarded a, b, out;
};

TEST_P(GuardPages, SortsStayInBounds) {
  ForEachPlace(600, [&](std::size_t n, bool atEnd) {
    auto doubles = Numbers<double>(n);
    double* v = a.Copy(doubles, atEnd);
    EXPECT_TRUE(OrderIsUnique(v, n));
    SortAscending(v, n);
    std::sort(doubles.begin(), doubles.end());
    EXPECT_TRUE(std::equal(doubles.begin(), doubles.end(), v)) << n;
    auto ints = Numbers<int>(n);
    int* w = b.Copy(ints, atEnd);
    SortAscending(w, n);
    std::sort(ints.begin(), ints.end());
    EXPECT_TRUE(std::equal(ints.begin(), ints.end(), w)) << n;
  });
}

/// Sorts arrays that are long enough to be sampled for few values: with many and with few.
template <class T>
void SortsManyInside(const Guarded& pages, std::size_t n, bool atEnd) {
  for (const int values : {100'000, 2000, 200, 10}) {
    auto numbers = Numbers<T>(n);
    for (T& x : numbers) x = static_cast<T>(static_cast<int>(x) % values);
    T* v = pages.Copy(numbers, atEnd);
    SortAscending(v, n);
    std::sort(numbers.begin(), numbers.end());
    EXPECT_TRUE(std::equal(numbers.begin(), numbers.end(), v)) << values << " values";
  }
}

TEST_P(GuardPages, SortsOfManyElementsStayInBounds) {
  const Guarded pages(21'000 * sizeof(double));
  for (const std::size_t n : {7999u, 8000u, 8191u, 12'345u, 21'000u})
    for (const bool atEnd : {true, false}) {
      SCOPED_TRACE(::testing::Message() << n << (atEnd ? " at the end" : " at the beginning"));
      SortsManyInside<double>(pages, n, atEnd);
      SortsManyInside<int>(pages, n, atEnd);
    }
}

template <class T>
void MergesInside(const Guarded& a, const Guarded& b, const Guarded& out, std::size_t n,
                  bool atEnd) {
  auto first = Numbers<T>(n), second = Numbers<T>(n / 2 + 3);
  std::sort(first.begin(), first.end());
  std::sort(second.begin(), second.end());
  std::vector<T> want(first.size() + second.size());
  std::merge(first.begin(), first.end(), second.begin(), second.end(), want.begin());
  T* got = out.Room<T>(want.size(), atEnd);
  MergeAscending(a.Copy(first, atEnd), static_cast<std::ptrdiff_t>(first.size()),
                 b.Copy(second, atEnd), static_cast<std::ptrdiff_t>(second.size()), got);
  EXPECT_TRUE(std::equal(want.begin(), want.end(), got)) << n;
}

TEST_P(GuardPages, MergesStayInBounds) {
  ForEachPlace(400, [&](std::size_t n, bool atEnd) {
    MergesInside<double>(a, b, out, n, atEnd);
    MergesInside<int>(a, b, out, n, atEnd);
  });
}

/// Ascending: so many numbers below 0, zeros and numbers above.
std::vector<double> AroundZero(std::size_t below, std::size_t zeros, std::size_t above,
                               double shift) {
  auto v = Numbers<double>(below + zeros + above);
  for (double& x : v) x += shift;
  std::transform(v.begin(), v.begin() + static_cast<std::ptrdiff_t>(below), v.begin(),
                 [](double x) { return -x; });
  std::fill_n(v.begin() + static_cast<std::ptrdiff_t>(below), zeros, 0.0);
  std::sort(v.begin(), v.end());
  return v;
}

/// What is below, equal to and above 0 is merged separately; either block may lack any of it.
TEST_P(GuardPages, MergesOfBlocksThatLackASignStayInBounds) {
  const std::size_t counts[] = {0, 1, 70};
  std::vector<std::vector<double>> first, second;
  for (const std::size_t below : counts)
    for (const std::size_t zeros : counts)
      for (const std::size_t above : counts) {
        first.push_back(AroundZero(below, zeros, above, 0.0));
        second.push_back(AroundZero(below, zeros, above, 0.5));
      }
  for (const auto& x : first)
    for (const auto& y : second)
      for (const bool atEnd : {true, false}) {
        std::vector<double> want(x.size() + y.size());
        std::merge(x.begin(), x.end(), y.begin(), y.end(), want.begin());
        double* const got = out.Room<double>(want.size(), atEnd);
        MergeAscending(a.Copy(x, atEnd), static_cast<std::ptrdiff_t>(x.size()), b.Copy(y, atEnd),
                       static_cast<std::ptrdiff_t>(y.size()), got);
        ASSERT_TRUE(std::equal(want.begin(), want.end(), got))
            << x.size() << " with " << y.size() << (atEnd ? " at the end" : " at the beginning");
      }
}

TEST_P(GuardPages, PartitionsStayInBounds) {
  ForEachPlace(600, [&](std::size_t n, bool atEnd) {
    auto numbers = Numbers<double>(n);
    double* v = a.Copy(numbers, atEnd);
    EXPECT_EQ(0u, TakeCensus(v, n).nans);
    const Bounds bounds = BoundsOf(v, n);
    EXPECT_EQ(*std::min_element(numbers.begin(), numbers.end()), bounds.least);
    EXPECT_EQ(*std::max_element(numbers.begin(), numbers.end()), bounds.greatest);
    const std::size_t few = std::min<std::size_t>(n, 64);
    EXPECT_EQ(numbers[0] >= 50'000, NotLess(v, few, 50'000) & 1);
    EXPECT_EQ(numbers[0] <= 50'000, NotGreater(v, few, 50'000) & 1);
    if (n < 3) return;
    v[0] = 0.5;
    const double pivot = v[n - 2];
    const std::size_t at = Part(v, n, pivot);
    EXPECT_EQ(pivot, v[at]);
  });
}

TEST_P(GuardPages, SearchesStayInBounds) {
  ForEachPlace(300, [&](std::size_t n, bool atEnd) {
    const auto numbers = Numbers<double>(n);
    const double* v = a.Copy(numbers, atEnd);
    EXPECT_EQ(n, FindFirst(v, n, -1.0));
    EXPECT_EQ(n, FindLast(b.Copy(Numbers<int>(n), atEnd), n, -1));
    EXPECT_EQ(static_cast<std::size_t>(std::min_element(numbers.begin(), numbers.end()) -
                                       numbers.begin()),
              FirstLeast(v, n));
    EXPECT_EQ(std::is_sorted(numbers.begin(), numbers.end()), NoneDescends(v, n));
  });
}

/// The least element is near the end of one of several blocks, where a search for it ends.
TEST_P(GuardPages, SearchesForALateLeastStayInBounds) {
  for (const std::size_t n : {255u, 256u, 257u, 300u, 511u, 513u, 777u, 1100u})
    for (std::size_t back = 1; back <= 40; ++back) {
      std::vector<double> numbers(n, 5.0);
      numbers[n - back] = 1.0;
      EXPECT_EQ(n - back, FirstLeast(a.Copy(numbers, true), n));
      EXPECT_EQ(n - back, FindFirst(a.Copy(numbers, true), n, 1.0));
    }
}

TEST_P(GuardPages, ALeastFinderStaysInItsTable) {
  using zeph::algorithms::LeastFinder;
  for (const std::size_t n : {1u, 128u, 129u, 32'768u, 32'769u, 33'023u, 65'537u}) {
    const auto numbers = Numbers<double>(n);
    auto* const finder = new (a.Room<LeastFinder>(1, true)) LeastFinder(numbers.data(), n);
    EXPECT_EQ(finder->From(0),
              static_cast<std::size_t>(std::min_element(numbers.begin(), numbers.end()) -
                                       numbers.begin()))
        << "n " << n;
  }
}

TEST_P(GuardPages, ArithmeticStaysInBounds) {
  ForEachPlace(300, [&](std::size_t n, bool atEnd) {
    const auto numbers = Numbers<double>(n);
    const double *x = a.Copy(numbers, atEnd), *y = b.Copy(numbers, atEnd);
    double* to = out.Room<double>(n, atEnd);
    const Elementwise& all = *Active().elementwise;
    for (const auto binary : {all.add, all.subtract, all.multiply}) binary(to, x, y, n);
    EXPECT_EQ(x[n - 1] * y[n - 1], to[n - 1]);
    all.scale(to, 2.0, x, n);
    all.subtract_from(to, 2.0, x, n);
    EXPECT_EQ(2.0 - x[0], to[0]);
    all.fill(to, 3.0, n);
    EXPECT_EQ(3.0, to[n - 1]);
    const double largest = *std::max_element(numbers.begin(), numbers.end());
    EXPECT_EQ(largest, Active().magnitudes->largest(x, n));
    EXPECT_EQ(largest, Active().magnitudes->largest_or_nan(x, n));
  });
}

/// Wide forms align to the result's memory, so a result that ends at a boundary has no tail: here
/// it ends before one, between guards.
TEST_P(GuardPages, ArithmeticStaysInBoundsAtEveryAlignmentOfTheResult) {
  const Elementwise& all = *Active().elementwise;
  for (const std::size_t least : {std::size_t{1}, std::size_t{250}})
    for (std::size_t n = least; n < least + 25; ++n)
      for (std::size_t shift = 0; shift < 8; ++shift) {
        const auto numbers = Numbers<double>(n);
        const double *x = a.Copy(numbers, true), *y = b.Copy(numbers, true);
        double* to = out.Room<double>(n + shift, true);
        const auto check = [&](double last, const char* what) {
          EXPECT_EQ(last, to[n - 1]) << what << ' ' << n << ' ' << shift;
          for (std::size_t i = n; i < n + shift; ++i)
            EXPECT_EQ(-7.0, to[i]) << what << ' ' << n << ' ' << shift;
        };
        std::fill(to + n, to + n + shift, -7.0);
        all.add(to, x, y, n), check(2 * x[n - 1], "add");
        all.subtract(to, x, y, n), check(0.0, "subtract");
        all.multiply(to, x, y, n), check(x[n - 1] * x[n - 1], "multiply");
        all.scale(to, 2.0, x, n), check(2 * x[n - 1], "scale");
        all.subtract_from(to, 2.0, x, n), check(2 - x[n - 1], "subtract_from");
        all.fill(to, 3.0, n), check(3.0, "fill");
      }
}

TEST_P(GuardPages, RowSumsStayInBounds) {
  for (const bool atEnd : {true, false})
    for (std::size_t rows = 1; rows <= 13; ++rows)
      for (std::size_t cols = 1; cols <= 19; ++cols) {
        const auto numbers = Numbers<double>(rows * cols);
        double *x = a.Copy(numbers, atEnd), *to = out.Room<double>(rows * rows, atEnd);
        std::vector<double*> m, results;
        for (std::size_t i = 0; i < rows; ++i)
          m.push_back(x + i * cols), results.push_back(to + i * rows);
        std::vector<double> factors(cols, 1.0), sums(rows);
        const double* by = b.Copy(factors, atEnd);
        const RowSums& all = *Active().row_sums;
        for (const auto ofRows : {all.sum, all.magnitude, all.length})
          ofRows(sums.data(), m.data(), rows, cols);
        all.dot(sums.data(), m.data(), by, rows, cols);
        double want = 0.0;
        for (std::size_t j = 0; j < cols; ++j) want += m[0][j];
        EXPECT_EQ(want, sums[0]) << "atEnd " << atEnd << ", rows " << rows << ", cols " << cols;
        // The right factor: cols x rows, the same elements.
        std::vector<const double*> right;
        for (std::size_t k = 0; k < cols; ++k) right.push_back(x + k * rows);
        DenseProduct(results.data(), m.data(), right.data(), rows, cols, rows);
        want = 0.0;
        for (std::size_t k = 0; k < cols; ++k) want += m[rows - 1][k] * right[k][rows - 1];
        EXPECT_EQ(want, to[rows * rows - 1])
            << "atEnd " << atEnd << ", rows " << rows << ", cols " << cols;
      }
}

/// Products whose right factor is copied panel by panel and whose sums are stored in the result
/// between blocks of k.
TEST_P(GuardPages, LongProductsStayInBounds) {
  constexpr std::size_t kRows = 50, kInner = 600, kBytes = 1 << 20;
  const Guarded left(kBytes), right(kBytes), result(kBytes);
  const auto numbers = Numbers<double>(kInner * 181);
  for (const std::size_t cols : {1u, 3u, 5u, 27u, 171u, 173u, 181u})
    for (const bool atEnd : {true, false}) {
      const double* x =
          left.Copy(std::vector<double>(numbers.begin(), numbers.begin() + kRows * kInner), atEnd);
      const auto factors = static_cast<std::ptrdiff_t>(kInner * cols);
      const double* y =
          right.Copy(std::vector<double>(numbers.begin(), numbers.begin() + factors), atEnd);
      double* to = result.Room<double>(kRows * cols, atEnd);
      std::vector<const double*> rows, others;
      std::vector<double*> sums;
      for (std::size_t i = 0; i < kRows; ++i)
        rows.push_back(x + i * kInner), sums.push_back(to + i * cols);
      for (std::size_t k = 0; k < kInner; ++k) others.push_back(y + k * cols);
      DenseProduct(sums.data(), rows.data(), others.data(), kRows, kInner, cols);
      for (const std::size_t i : {std::size_t{0}, kRows - 1})
        for (const std::size_t j : {std::size_t{0}, cols - 1}) {
          double want = 0.0;
          for (std::size_t k = 0; k < kInner; ++k) want += rows[i][k] * others[k][j];
          EXPECT_EQ(want, sums[i][j]) << cols;
        }
    }
}

/// Objects as the batch operations see them: components after a virtual table pointer, padding
/// after three floats.
template <class T>
struct Objects {
  static constexpr std::size_t kStride = 24, kFirst = sizeof(T) == 4 ? 8 : 0;
  Objects(const Guarded& pages, std::size_t n, bool atEnd)
      : first(reinterpret_cast<T*>(pages.Room<char>(n * kStride, atEnd) + kFirst)) {
    const auto numbers = Numbers<T>(3 * n);
    for (std::size_t i = 0; i < n; ++i)
      for (std::size_t c = 0; c < 3; ++c) At(i)[c] = numbers[3 * i + c] / T(100'000);
  }
  T* At(std::size_t i) const {
    return reinterpret_cast<T*>(reinterpret_cast<char*>(first) + i * kStride);
  }
  T* first;
};

template <class T>
void VectorsInside(const Vectors<T>& all, const Guarded& a, const Guarded& b, const Guarded& out,
                   const Guarded& numbers, std::size_t n, bool atEnd) {
  constexpr std::size_t kStride = Objects<T>::kStride;
  const Objects<T> x(a, n, atEnd), y(b, n, atEnd), to(out, n, atEnd);
  T* dots = numbers.Room<T>(n, atEnd);
  all.dot(dots, x.first, y.first, kStride, n);
  const T *p = x.At(n - 1), *q = y.At(n - 1);
  EXPECT_NEAR(p[0] * q[0] + p[1] * q[1] + p[2] * q[2], dots[n - 1], 1e-5);
  all.cross(to.first, x.first, y.first, kStride, n);
  EXPECT_NEAR(p[1] * q[2] - p[2] * q[1], to.At(n - 1)[0], 1e-5);
  all.normalise(to.first, x.first, kStride, n);
  EXPECT_LT(to.At(n - 1)[2], T(1));
  T low[3] = {p[0], p[1], p[2]}, high[3] = {p[0], p[1], p[2]};
  all.bounds(low, high, x.first, kStride, n);
  EXPECT_LE(low[2], x.At(0)[2]);
  EXPECT_GE(high[0], x.At(n / 2)[0]);
}

TEST_P(GuardPages, BatchesStayInBounds) {
  const Batch& all = *Active().batch;
  const Guarded numbers;
  const float e[16] = {1, 0, 0, 0.5F, 0, 2, 0, 0, 0, 0, 3, 0, 4, 5, 6, 1};
  ForEachPlace(70, [&](std::size_t n, bool atEnd) {
    VectorsInside<float>(all.floats, a, b, out, numbers, n, atEnd);
    VectorsInside<double>(all.doubles, a, b, out, numbers, n, atEnd);
    const Objects<float> x(a, n, atEnd), to(out, n, atEnd);
    all.directions(to.first, x.first, 24, e, n);
    EXPECT_EQ(2 * x.At(n - 1)[1], to.At(n - 1)[1]);
    all.points(to.first, x.first, 24, e, false, n);
    EXPECT_EQ(2 * x.At(n - 1)[1] + 5, to.At(n - 1)[1]);
    all.points(to.first, x.first, 24, e, true, n);
    for (std::size_t i = 0; i < n; ++i) x.At(i)[3] = 1;  // of four components
    all.vectors(to.first, x.first, 24, e, false, n);
    all.vectors(to.first, x.first, 24, e, true, n);
    EXPECT_EQ(2 * x.At(n - 1)[1] + 5, to.At(n - 1)[1]);
  });
}

TEST_P(GuardPages, BatchProductsStayInBounds) {
  const BatchProducts& all = *Active().batch_products;
  ForEachPlace(20, [&](std::size_t n, bool atEnd) {
    const auto floats = Numbers<float>(16 * n);
    const auto doubles = Numbers<double>(16 * n);
    const float* x = a.Copy(floats, atEnd);
    float* to = out.Room<float>(16 * n, atEnd);
    const float twice[16] = {2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2};
    all.floats(to, x, 16 * sizeof(float), twice, false, false, n);
    EXPECT_EQ(2 * x[16 * n - 1], to[16 * n - 1]);
    const double* y = a.Copy(doubles, atEnd);
    double* wide = out.Room<double>(16 * n, atEnd);
    const double thrice[16] = {3, 0, 0, 0, 0, 3, 0, 0, 0, 0, 3, 0, 0, 0, 0, 3};
    all.doubles(wide, y, 16 * sizeof(double), thrice, n);
    EXPECT_EQ(3 * y[16 * n - 1], wide[16 * n - 1]);
  });
}

INSTANTIATE_TEST_SUITE_P(Forms, GuardPages, testing::ValuesIn(RunnableTables()),
                         [](const auto& form) { return std::string(form.param->name); });

}  // namespace
#endif
