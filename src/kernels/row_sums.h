// SPDX-License-Identifier: MIT
//
// Ordered sums and lengths over the rows of a matrix given by row pointers.
//
// An ordered sum is one chain of additions. The rows are independent, so several run side by side,
// each in its own order and so with its own bits.
#ifndef ZEPH_SRC_KERNELS_ROW_SUMS_H
#define ZEPH_SRC_KERNELS_ROW_SUMS_H

#include <cstddef>

#include "kernels/table.h"

namespace zeph::kernels {

/// The sums of one form, for `rows` rows of `cols` elements; Active().row_sums is the one in use.
/// `sums` overlaps no input. Each sum adds its terms from column 0 upward.
struct RowSums {
  using OfRows = void (*)(double* sums, const double* const* m, std::size_t rows, std::size_t cols);
  OfRows sum;        // sums[i] = 0.0 + m[i][0] + m[i][1] + ...
  OfRows magnitude;  // sums[i] = |m[i][0]| + |m[i][1]| + ..., or 0.0 where `cols` is 0
  /// lengths[i] = |m[i][0]|, extended by Hypotenuse with |m[i][1]|, |m[i][2]| ...; `cols` is not 0.
  OfRows length;
  /// sums[i] = 0.0 + m[i][0] * v[0] + m[i][1] * v[1] + ...
  void (*dot)(double* sums, const double* const* m, const double* v, std::size_t rows,
              std::size_t cols);
};

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_ROW_SUMS_H
