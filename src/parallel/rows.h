// SPDX-License-Identifier: MIT
//
// Operations on the rows of matrices: no row's results depend on another row's, so rows are shared
// out, and each keeps its bits.
#ifndef ZEPH_SRC_PARALLEL_ROWS_H
#define ZEPH_SRC_PARALLEL_ROWS_H

#include <cstddef>
#include <cstdint>

#include "kernels/dense_product.h"
#include "parallel/range.h"

namespace zeph::parallel {

/// From so many multiplications on two threads beat one, worker asleep or not.
constexpr std::uint64_t kProductPays = 2'000'000;

/// kernels::DenseProduct. A thread has at least a tile's height of rows, and several parts where each
/// stays high enough that copying the right factor once for each does not show.
inline void DenseProduct(double* const* out, const double* const* a, const double* const* b,
                         std::size_t rows, std::size_t inner, std::size_t cols) {
  constexpr std::size_t kTile = 8, kHigh = 256;
  const int threads = ThreadsFor(std::uint64_t{rows} * inner * cols, kProductPays);
  if (threads == 1) return kernels::DenseProduct(out, a, b, rows, inner, cols);
  ShareParts(threads, rows, kTile, kHigh, [=](std::size_t first, std::size_t count) {
    kernels::DenseProduct(out + first, a + first, b, count, inner, cols);
  });
}

}  // namespace zeph::parallel

#endif  // ZEPH_SRC_PARALLEL_ROWS_H
