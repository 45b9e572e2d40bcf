// Work that threads share, on operands that end or begin at a page boundary, beside inaccessible pages: no part
// reads or writes outside.
#include "support/guarded.h"

#ifdef ZEPH_TEST_GUARDED
#include <gtest/gtest.h>

#include <cstddef>
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

TEST(ParallelGuardPages, RowsStayInTheirMatrices) {
  const ThreeThreads threads;
  for (const std::size_t n : {711u, 720u, 767u}) {
    const Guarded a(n * n * sizeof(double)), b(n * n * sizeof(double)), row(n * sizeof(double));
    for (const bool atEnd : {false, true}) {
      std::vector<double*> m = Rows(a.Copy(Values(n * n, 1.0), atEnd), n, n);
      std::vector<double*> to = Rows(b.Room<double>(n * n, atEnd), n, n);
      const auto size = static_cast<double>(n);
      const int order = static_cast<int>(n);
      double* const sums = row.Copy(Values(n, 2.0), atEnd);
      parallel::DenseProduct(to.data(), m.data(), m.data(), n, n, n);
      EXPECT_EQ(to[n - 1][n - 1], size);
      ZEPH_MatrixTranspose(order, m.data(), to.data());
      EXPECT_EQ(to[n - 1][n - 1], 1.0);
      parallel::RowsTimesVector(to[0], m.data(), sums, n, n);
      EXPECT_EQ(to[0][n - 1], 2.0 * size);
      parallel::SumsOfRows(kernels::Active().row_sums->sum, 3, sums, m.data(), n, n);
      EXPECT_EQ(sums[n - 1], size);
      EXPECT_EQ(ZEPH_MatrixOneNorm(m.data(), order, 0), size);
      EXPECT_EQ(ZEPH_MatrixMaxNorm(m.data(), order, 0), size);
    }
  }
}

}  // namespace
}  // namespace zeph::test
#endif
