// SPDX-License-Identifier: MIT
//
// Arithmetic on whole arrays, element by element.
#ifndef ZEPH_SRC_KERNELS_ELEMENTWISE_H
#define ZEPH_SRC_KERNELS_ELEMENTWISE_H

#include <cstddef>

#include "kernels/level.h"

namespace zeph::kernels {

/// The operations of one form. In each, every array has `n` elements, `n` may be 0, and `out` is
/// one of the operands itself or overlaps none of them. Each element is rounded once, by itself.
struct Elementwise {
  using Binary = void (*)(double* out, const double* a, const double* b, std::size_t n);
  Binary add;                                                            // out[i] = a[i] + b[i]
  Binary subtract;                                                       // out[i] = a[i] - b[i]
  Binary multiply;                                                       // out[i] = a[i] * b[i]
  void (*scale)(double* out, double s, const double* a, std::size_t n);  // out[i] = s * a[i]
  void (*subtract_from)(double* out, double s, const double* a, std::size_t n);  // s - a[i]
  void (*fill)(double* out, double s, std::size_t n);                            // s, bit for bit
};

namespace portable {
extern const Elementwise kElementwise;
}
#if ZEPH_X64
namespace avx2 {
extern const Elementwise kElementwise;
}
namespace avx512 {
extern const Elementwise kElementwise;
}
#endif

/// The operations' form for `level`. Inline, since short arrays feel a call.
inline const Elementwise& ElementwiseAt(Level level) {
#if ZEPH_X64
  static constexpr const Elementwise* kForms[kLevels] = {
      &portable::kElementwise, &avx2::kElementwise, &avx512::kElementwise};
#else
  static constexpr const Elementwise* kForms[kLevels] = {
      &portable::kElementwise, &portable::kElementwise, &portable::kElementwise};
#endif
  return *kForms[static_cast<int>(level)];
}

/// The form in use.
inline const Elementwise& ActiveElementwise() {
  return ElementwiseAt(Active());
}

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_ELEMENTWISE_H
