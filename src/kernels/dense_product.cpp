// SPDX-License-Identifier: MIT
#include "kernels/dense_product.h"

#include <cstdlib>

namespace zeph::kernels {

std::atomic<void* (*)(std::size_t)> detail::borrow{std::malloc};

DenseProductForm DenseProductAt(Level level) {
#if ZEPH_X64
  static constexpr DenseProductForm kForms[kLevels] = {portable::DenseProduct, avx2::DenseProduct,
                                                       avx512::DenseProduct};
#else
  static constexpr DenseProductForm kForms[kLevels] = {
      portable::DenseProduct, portable::DenseProduct, portable::DenseProduct};
#endif
  return kForms[static_cast<int>(level)];
}

void DenseProduct(double* const* out, const double* const* a, const double* const* b,
                  std::size_t rows, std::size_t inner, std::size_t cols) {
  DenseProductAt(Active())(out, a, b, rows, inner, cols);
}

}  // namespace zeph::kernels
