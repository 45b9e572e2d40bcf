// SPDX-License-Identifier: MIT
//
// Ordered sums over the rows of a matrix given by row pointers.
//
// One ordered sum waits for each of its additions. The rows do not depend on each other, so several
// run side by side, each in its own order, hence with its own bits.
#ifndef ZEPH_SRC_KERNELS_ROW_SUMS_H
#define ZEPH_SRC_KERNELS_ROW_SUMS_H

#include <cstddef>

#include "kernels/level.h"

namespace zeph::kernels {

/// The sums of one form, for `rows` rows of `cols` elements; `sums` overlaps no input. Each sum
/// starts at 0.0 and takes up its terms from column 0 upward.
struct RowSums {
  /// sums[i] = 0.0 + m[i][0] + m[i][1] + ...
  void (*sum)(double* sums, const double* const* m, std::size_t rows, std::size_t cols);
  /// sums[i] = 0.0 + m[i][0] * v[0] + m[i][1] * v[1] + ...
  void (*dot)(double* sums, const double* const* m, const double* v, std::size_t rows,
              std::size_t cols);
};

/// The sums' form for `level`.
const RowSums& RowSumsAt(Level level);

/// The form in use.
inline const RowSums& ActiveRowSums() {
  return RowSumsAt(Active());
}

namespace portable {
extern const RowSums kRowSums;
}
#if ZEPH_X64
namespace avx2 {
extern const RowSums kRowSums;
}
#endif

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_ROW_SUMS_H
