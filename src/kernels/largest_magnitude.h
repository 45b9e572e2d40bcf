// SPDX-License-Identifier: MIT
//
// The largest absolute value of an array.
#ifndef ZEPH_SRC_KERNELS_LARGEST_MAGNITUDE_H
#define ZEPH_SRC_KERNELS_LARGEST_MAGNITUDE_H

#include <cstddef>

#include "kernels/level.h"

namespace zeph::kernels {

/// Two maxima of absolute values, of one form. `n` is at least 1.
struct Magnitudes {
  using OfArray = double (*)(const double* x, std::size_t n);
  /// m = |x[0]|, then for each later element in order: if |x[i]| > m, m = |x[i]|.
  ///
  /// So a NaN in front stays the answer and any other is passed over: the rest is the maximum of
  /// some numbers, which no order changes.
  OfArray largest;
  /// The largest |x[i]|, or a NaN if there is one anywhere.
  OfArray largest_or_nan;
};

namespace portable {
extern const Magnitudes kMagnitudes;
}
#if ZEPH_X64
namespace avx2 {
extern const Magnitudes kMagnitudes;
}
namespace avx512 {
extern const Magnitudes kMagnitudes;
}
#endif

/// The maxima's form for `level`.
inline const Magnitudes& MagnitudesAt(Level level) {
#if ZEPH_X64
  static constexpr const Magnitudes* kForms[kLevels] = {&portable::kMagnitudes, &avx2::kMagnitudes,
                                                        &avx512::kMagnitudes};
#else
  static constexpr const Magnitudes* kForms[kLevels] = {
      &portable::kMagnitudes, &portable::kMagnitudes, &portable::kMagnitudes};
#endif
  return *kForms[static_cast<int>(level)];
}

/// The form in use.
inline const Magnitudes& ActiveMagnitudes() {
  return MagnitudesAt(Active());
}

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_LARGEST_MAGNITUDE_H
