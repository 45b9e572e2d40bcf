// SPDX-License-Identifier: MIT
//
// The product of two dense matrices of doubles given by row pointers.
#ifndef ZEPH_SRC_KERNELS_DENSE_PRODUCT_H
#define ZEPH_SRC_KERNELS_DENSE_PRODUCT_H

#include <cstddef>

#include "kernels/table.h"

namespace zeph::kernels {

/// One form of what follows.
struct Products {
  void (*dense)(double* const* out, const double* const* a, const double* const* b,
                std::size_t rows, std::size_t inner, std::size_t cols);
};

/// out = a * b, where `a` has rows x inner, `b` inner x cols and `out` rows x cols elements.
///
/// Entry (i, j) starts at 0.0 and gets a[i][k] * b[k][j] added in increasing k, each product and
/// each sum rounded separately: the bits of the textbook triple loop (all NaNs count as equal).
/// Every row is a block of its own; a row of `out` shares no element with another row or an input.
/// Any count may be 0. Never throws: large products allocate 96 KiB, and do without where that
/// fails. Reads and writes no element outside the rows.
inline void DenseProduct(double* const* out, const double* const* a, const double* const* b,
                         std::size_t rows, std::size_t inner, std::size_t cols) {
  Active().products->dense(out, a, b, rows, inner, cols);
}

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_DENSE_PRODUCT_H
