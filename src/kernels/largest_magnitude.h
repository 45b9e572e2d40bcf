// SPDX-License-Identifier: MIT
//
// The largest absolute value of an array.
#ifndef ZEPH_SRC_KERNELS_LARGEST_MAGNITUDE_H
#define ZEPH_SRC_KERNELS_LARGEST_MAGNITUDE_H

#include <cstddef>

#include "kernels/table.h"

namespace zeph::kernels {

/// Two maxima of absolute values, of one form; Active().magnitudes is the one in use. `n` is at
/// least 1.
struct Magnitudes {
  using OfArray = double (*)(const double* x, std::size_t n);
  /// m = |x[0]|, then for each later element in order: if |x[i]| > m, m = |x[i]|.
  ///
  /// So a NaN in front is the result and any other is skipped: the rest is a maximum of numbers,
  /// which does not depend on the order.
  OfArray largest;
  /// A NaN if there is one; else m = |x[0]|, then for each later element in order: unless m >
  /// |x[i]|, m = |x[i]|.
  ///
  /// The two differ where all elements compare equal to 0.0 but differ in their bits, as denormals
  /// do in a host that treats them as zeros: then the result of the former is the first element,
  /// that of the latter the last.
  OfArray largest_or_nan;
};

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_LARGEST_MAGNITUDE_H
