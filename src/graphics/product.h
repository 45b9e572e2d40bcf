// SPDX-License-Identifier: MIT
//
// The matrix products in lanes: lane i is row i, so each entry's terms are added in the documented
// order, in every form of the lanes.
#ifndef ZEPH_SRC_GRAPHICS_PRODUCT_H
#define ZEPH_SRC_GRAPHICS_PRODUCT_H

#include "graphics/lanes.h"

namespace zeph::graphics {

/// a0 * b0 + a1 * b1 + a2 * b2 for the columns of `a` and the first three lanes of `b`.
template <class L>
inline L SumOfThree(const Columns<L>& a, L b) {
  return (a.c0 * Spread<0>(b) + a.c1 * Spread<1>(b)) + a.c2 * Spread<2>(b);
}

/// The same with the fourth term.
template <class L>
inline L SumOfFour(const Columns<L>& a, L b) {
  return SumOfThree(a, b) + a.c3 * Spread<3>(b);
}

/// The product of matrices `a` and `b`; their bottom rows select the path.
template <class L>
inline Columns<L> Product(const float* a, const float* b) {
  const bool firstAffine = IsAffine(a), secondAffine = IsAffine(b);
  const Columns<L> right = Columns<L>::Load(b);
  Columns<L> left = Columns<L>::Load(a);
  if (firstAffine) left = left.WithoutBottom();
  if (secondAffine) {  // its bottom row drops the fourth term, or adds the last column unscaled
    const Columns<L> rows = {SumOfThree(left, right.c0), SumOfThree(left, right.c1),
                             SumOfThree(left, right.c2), SumOfThree(left, right.c3) + left.c3};
    // The bottom row of two affine factors is exact, whatever the other rows hold.
    return firstAffine ? rows.WithBottom(Columns<L>::Identity()) : rows;
  }
  const Columns<L> rows = {SumOfFour(left, right.c0), SumOfFour(left, right.c1),
                           SumOfFour(left, right.c2), SumOfFour(left, right.c3)};
  return firstAffine ? rows.WithBottom(right) : rows;
}

/// The matrix `e` times the column `v`.
template <class L>
inline L Product(const float* e, L v) {
  Columns<L> columns = Columns<L>::Load(e);
  if (!IsAffine(e)) return SumOfFour(columns, v);
  return L::WithLast(SumOfFour(columns.WithoutBottom(), v), v);  // w is moved unchanged
}

}  // namespace zeph::graphics

#endif  // ZEPH_SRC_GRAPHICS_PRODUCT_H
