// SPDX-License-Identifier: MIT
//
// Every form of the kernels on memory that ends where a page ends, or begins where one begins, beside pages that
// nobody may touch: an element too many ends the program.
#if defined(__unix__) && !defined(__EMSCRIPTEN__)
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <new>
#include <string>
#include <vector>

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

/// Some pages with a forbidden one on either side.
class Guarded {
 public:
  Guarded() {
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    bytes_ = (kBytes + page - 1) / page * page;
    all_ = bytes_ + 2 * page;
    void* at = mmap(nullptr, all_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (at == MAP_FAILED) throw std::bad_alloc();
    base_ = static_cast<char*>(at);
    first_ = base_ + page;
    if (mprotect(first_, bytes_, PROT_READ | PROT_WRITE) != 0) throw std::bad_alloc();
  }
  ~Guarded() { munmap(base_, all_); }
  Guarded(const Guarded&) = delete;
  Guarded& operator=(const Guarded&) = delete;

  /// Room for `n` elements that touches the forbidden page behind it, or the one before it.
  template <class T>
  T* Room(std::size_t n, bool atEnd) const {
    return reinterpret_cast<T*>(atEnd ? first_ + bytes_ - n * sizeof(T) : first_);
  }
  template <class T>
  T* Copy(const std::vector<T>& v, bool atEnd) const {
    T* to = Room<T>(v.size(), atEnd);
    std::copy(v.begin(), v.end(), to);
    return to;
  }

 private:
  static constexpr std::size_t kBytes = 16384;
  std::size_t bytes_, all_;
  char *base_, *first_;
};

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
      for (std::size_t n = 1; n <= most; n += 1 + n / 40) body(n, atEnd);
  }
  Guarded a, b, out;
};

TEST_P(GuardPages, SortsStayInside) {
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

TEST_P(GuardPages, MergesStayInside) {
  ForEachPlace(400, [&](std::size_t n, bool atEnd) {
    MergesInside<double>(a, b, out, n, atEnd);
    MergesInside<int>(a, b, out, n, atEnd);
  });
}

TEST_P(GuardPages, PartitionsStayInside) {
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

TEST_P(GuardPages, SearchesStayInside) {
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

TEST_P(GuardPages, ArithmeticStaysInside) {
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

TEST_P(GuardPages, RowsStayInside) {
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
        EXPECT_EQ(want, sums[0]);
        // The right factor: cols x rows, the same elements.
        std::vector<const double*> right;
        for (std::size_t k = 0; k < cols; ++k) right.push_back(x + k * rows);
        DenseProduct(results.data(), m.data(), right.data(), rows, cols, rows);
        want = 0.0;
        for (std::size_t k = 0; k < cols; ++k) want += m[rows - 1][k] * right[k][rows - 1];
        EXPECT_EQ(want, to[rows * rows - 1]);
      }
}

INSTANTIATE_TEST_SUITE_P(Forms, GuardPages, testing::ValuesIn(RunnableTables()),
                         [](const auto& form) { return std::string(form.param->name); });

}  // namespace
#endif
