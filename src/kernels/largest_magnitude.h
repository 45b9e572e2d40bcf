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
  /// So a NaN in front stays the answer and any other is passed over: the rest is the maximum of
  /// some numbers, which no order changes.
  OfArray largest;
  /// A NaN if there is one anywhere; else m = |x[0]|, then for each later element in order: unless
  /// m > |x[i]|, m = |x[i]|.
  ///
  /// The two differ where all elements equal 0.0 and, as denormals in a host that counts them as
  /// zeros, are not the same: there the first stays the answer, here the last.
  OfArray largest_or_nan;
};

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_LARGEST_MAGNITUDE_H
