// SPDX-License-Identifier: MIT
//
// The product of two dense matrices of doubles given by row pointers.
#ifndef ZEPH_SRC_KERNELS_DENSE_PRODUCT_H
#define ZEPH_SRC_KERNELS_DENSE_PRODUCT_H

#include <atomic>
#include <cstddef>

#include "kernels/level.h"

namespace zeph::kernels {

namespace detail {
/// Where large products borrow their memory, to be released with std::free: std::malloc, unless a
/// test put something else here. Not the allocation operators: their handlers need not hear of
/// memory that a product can do without.
extern std::atomic<void* (*)(std::size_t)> borrow;
}  // namespace detail

/// out = a * b, where `a` has rows x inner, `b` inner x cols and `out` rows x cols elements.
///
/// Entry (i, j) starts at 0.0 and gets a[i][k] * b[k][j] added in increasing k, each product and
/// each sum rounded by itself: the bits of the textbook triple loop (any NaN counts as any NaN).
/// Every row is a block of its own; a row of `out` shares no element with another row or an input.
/// Any count may be 0. Never throws: large products borrow 96 KiB and do without if there
/// are none. Reads and writes no element outside the rows.
using DenseProductForm = void (*)(double* const* out, const double* const* a,
                                  const double* const* b, std::size_t rows, std::size_t inner,
                                  std::size_t cols);

namespace portable {
void DenseProduct(double* const* out, const double* const* a, const double* const* b,
                  std::size_t rows, std::size_t inner, std::size_t cols);
}
#if ZEPH_X64
namespace avx2 {
void DenseProduct(double* const* out, const double* const* a, const double* const* b,
                  std::size_t rows, std::size_t inner, std::size_t cols);
}
namespace avx512 {
void DenseProduct(double* const* out, const double* const* a, const double* const* b,
                  std::size_t rows, std::size_t inner, std::size_t cols);
}
#endif

/// The form used at `level`.
inline DenseProductForm DenseProductAt(Level level) {
#if ZEPH_X64
  static constexpr DenseProductForm kForms[kLevels] = {portable::DenseProduct, avx2::DenseProduct,
                                                       avx512::DenseProduct};
#else
  static constexpr DenseProductForm kForms[kLevels] = {
      portable::DenseProduct, portable::DenseProduct, portable::DenseProduct};
#endif
  return kForms[static_cast<int>(level)];
}

/// The form in use.
inline void DenseProduct(double* const* out, const double* const* a, const double* const* b,
                         std::size_t rows, std::size_t inner, std::size_t cols) {
  DenseProductAt(Active())(out, a, b, rows, inner, cols);
}

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_DENSE_PRODUCT_H
