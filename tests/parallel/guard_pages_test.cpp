// Work that threads share, on operands that end or begin at a page boundary, beside inaccessible pages: no part
// reads or writes outside.
#include "support/guarded.h"

#ifdef ZEPH_TEST_GUARDED
#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <vector>

#include "parallel/elementwise.h"
#include "parallel/rows.h"
#include "parallel/sort.h"
#include "parallel/threads.h"
#include "raw_buffers.h"
#include "support/numbers.h"

namespace zeph::test {
namespace {

using Values = std::vector<double>;

TEST(ParallelGuardPages, ArithmeticStaysInItsOperands) {
  const ThreeThreads threads;
  for (const std::size_t n : {500'000u, 500'001u, 512'000u, 600'007u}) {
    const Guarded a(n * sizeof(double)), b(n * sizeof(double)), out(n * sizeof(double));
    for (const bool atEnd : {false, true}) {
      const double *x = a.Copy(Values(n, 3.0), atEnd), *y = b.Copy(Values(n, 2.0), atEnd);
      double* const z = out.Room<double>(n, atEnd);
      parallel::Add(z, x, y, n);
      EXPECT_EQ(z[n - 1], 5.0);
      parallel::Subtract(z, x, y, n);
      EXPECT_EQ(z[n - 1], 1.0);
      parallel::Multiply(z, x, y, n);
      EXPECT_EQ(z[n - 1], 6.0);
      parallel::Scale(z, 0.5, x, n);
      EXPECT_EQ(z[n - 1], 1.5);
      parallel::SubtractFrom(z, 7.0, x, n);
      EXPECT_EQ(z[n - 1], 4.0);
      EXPECT_TRUE(parallel::OrderIsUnique(x, n));
    }
  }
}

/// A matrix with contiguous rows.
std::vector<double*> Rows(double* cells, std::size_t rows, std::size_t cols) {
  std::vector<double*> pointers;
  for (std::size_t i = 0; i < rows; ++i) pointers.push_back(cells + i * cols);
  return pointers;
}

/// Calls body(n, m, to, row) with square matrices of ones and of nothing yet, and n times 2.0.
template <class Body>
void ForEachSquare(std::initializer_list<std::size_t> sizes, Body body) {
  const ThreeThreads threads;
  for (const std::size_t n : sizes) {
    const Guarded a(n * n * sizeof(double)), b(n * n * sizeof(double)), c(n * sizeof(double));
    for (const bool atEnd : {false, true}) {
      std::vector<double*> m = Rows(a.Copy(Values(n * n, 1.0), atEnd), n, n);
      std::vector<double*> to = Rows(b.Room<double>(n * n, atEnd), n, n);
      body(n, m.data(), to.data(), c.Copy(Values(n, 2.0), atEnd));
    }
  }
}

TEST(ParallelGuardPages, ProductsStayInTheirMatrices) {
  ForEachSquare({159, 161, 176}, [](std::size_t n, double** m, double** to, double*) {
    parallel::DenseProduct(to, m, m, n, n, n);
    EXPECT_EQ(to[n - 1][n - 1], static_cast<double>(n));
  });
}

TEST(ParallelGuardPages, RowsStayInTheirMatrices) {
  ForEachSquare({711, 720, 767}, [](std::size_t n, double** m, double** to, double* row) {
    const auto size = static_cast<double>(n);
    const int order = static_cast<int>(n);
    parallel::RowsTimesVector(to[n - 1], m, row, n, n);
    EXPECT_EQ(to[n - 1][n - 1], 2.0 * size);
    ZEPH_MatrixTranspose(order, m, to);
    EXPECT_EQ(to[n - 1][n - 1], 1.0);
    parallel::SumsOfRows(kernels::Active().row_sums->sum, 3, row, m, n, n);
    EXPECT_EQ(row[n - 1], size);
    EXPECT_EQ(ZEPH_MatrixOneNorm(m, order, 0), size);
    EXPECT_EQ(ZEPH_MatrixMaxNorm(m, order, 0), size);
  });
}

}  // namespace
}  // namespace zeph::test
#endif
