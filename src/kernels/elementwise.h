// SPDX-License-Identifier: MIT
//
// Arithmetic on whole arrays, element by element.
#ifndef ZEPH_SRC_KERNELS_ELEMENTWISE_H
#define ZEPH_SRC_KERNELS_ELEMENTWISE_H

#include <cstddef>

#include "kernels/table.h"

namespace zeph::kernels {

/// The operations of one form; Active().elementwise is the one in use. In each, every array has `n`
/// elements, `n` may be 0, and `out` is one of the operands itself or overlaps none of them. Each
/// element is rounded once.
struct Elementwise {
  using Binary = void (*)(double* out, const double* a, const double* b, std::size_t n);
  Binary add;                                                            // out[i] = a[i] + b[i]
  Binary subtract;                                                       // out[i] = a[i] - b[i]
  Binary multiply;                                                       // out[i] = a[i] * b[i]
  void (*scale)(double* out, double s, const double* a, std::size_t n);  // out[i] = s * a[i]
  void (*subtract_from)(double* out, double s, const double* a, std::size_t n);  // s - a[i]
  void (*fill)(double* out, double s, std::size_t n);                            // s, bit for bit
};

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_ELEMENTWISE_H
