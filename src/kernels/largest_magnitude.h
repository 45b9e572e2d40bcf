// SPDX-License-Identifier: MIT
//
// The largest absolute value of an array.
#ifndef ZEPH_SRC_KERNELS_LARGEST_MAGNITUDE_H
#define ZEPH_SRC_KERNELS_LARGEST_MAGNITUDE_H

#include <cstddef>

#include "kernels/level.h"

namespace zeph::kernels {

/// m = |x[0]|, then for each later element in order: if |x[i]| > m, m = |x[i]|. `n` is at least 1.
///
/// So a NaN in front stays the answer and any other is passed over: the rest is the maximum of some
/// numbers, which no order changes.
double LargestMagnitude(const double* x, std::size_t n);

/// One form of it.
using LargestMagnitudeForm = double (*)(const double* x, std::size_t n);

/// The form used at `level`.
LargestMagnitudeForm LargestMagnitudeAt(Level level);

namespace portable {
double LargestMagnitude(const double* x, std::size_t n);
}
#if ZEPH_X64
namespace avx2 {
double LargestMagnitude(const double* x, std::size_t n);
}
namespace avx512 {
double LargestMagnitude(const double* x, std::size_t n);
}
#endif

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_LARGEST_MAGNITUDE_H
