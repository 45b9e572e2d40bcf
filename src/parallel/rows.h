// SPDX-License-Identifier: MIT
//
// Operations on the rows of matrices: no row's results depend on another row's, so rows are divided
// among threads, and each keeps its bits.
#ifndef ZEPH_SRC_PARALLEL_ROWS_H
#define ZEPH_SRC_PARALLEL_ROWS_H

#include <cstddef>
#include <cstdint>

#include "kernels/dense_product.h"
#include "kernels/row_sums.h"
#include "parallel/range.h"

namespace zeph::parallel {

/// From this many multiplications on two threads are faster than one, even if the worker sleeps.
constexpr std::uint64_t kProductPays = 4'000'000;

/// kernels::DenseProduct. Parts are short, so that nobody waits long for a late thread; but where
/// each part copies the right factor, they have enough rows to make that copy negligible.
inline void DenseProduct(double* const* out, const double* const* a, const double* const* b,
                         std::size_t rows, std::size_t inner, std::size_t cols) {
  constexpr std::size_t kTile = 8, kCopied = 100 * 1024, kShort = 2 * kTile, kHigh = 256;
  const int threads = ThreadsFor(std::uint64_t{rows} * inner * cols, kProductPays);
  const std::size_t enough = inner * cols < kCopied ? kShort : kHigh;
  ShareParts(threads, rows, kTile, enough, [=](std::size_t first, std::size_t count) {
    kernels::DenseProduct(out + first, a + first, b, count, inner, cols);
  });
}

/// From this many elements on: lengths, where each step divides, and the transposition, which reads
/// or writes with a stride.
constexpr std::uint64_t kLengthsPay = 250'000, kTranspositionPays = 250'000;

/// A kernel for ordered sums of rows. The kernels process twelve rows at a time.
inline void SumsOfRows(kernels::RowSums::OfRows sums, int threads, double* out,
                       const double* const* m, std::size_t rows, std::size_t cols) {
  constexpr std::size_t kGrain = 12;
  ShareParts(threads, rows, kGrain, kGrain, [=](std::size_t first, std::size_t count) {
    sums(out + first, m + first, count, cols);
  });
}

/// kernels::RowSums::dot.
inline void RowsTimesVector(double* out, const double* const* m, const double* v, std::size_t rows,
                            std::size_t cols) {
  constexpr std::size_t kGrain = 12;
  const auto dot = kernels::Active().row_sums->dot;
  const int threads = ThreadsFor(std::uint64_t{rows} * cols, kPassPays);
  ShareParts(threads, rows, kGrain, kGrain, [=](std::size_t first, std::size_t count) {
    dot(out + first, m + first, v, count, cols);
  });
}

}  // namespace zeph::parallel

#endif  // ZEPH_SRC_PARALLEL_ROWS_H
