// SPDX-License-Identifier: MIT
//
// The inverses in lanes. Four cofactors at a time have the same form: six products of three
// entries, three added and three subtracted, strictly left to right.
#ifndef ZEPH_SRC_GRAPHICS_INVERSE_H
#define ZEPH_SRC_GRAPHICS_INVERSE_H

#include "graphics/lanes.h"

namespace zeph::graphics {

/// The twelve products x[i] * y[k], i != k, of two columns: the halves that a 2x2 determinant adds
/// and subtracts, arranged as the four cofactors of one column need them.
template <class L>
struct PairProducts {
  L plus1, plus2, plus3, minus1, minus2, minus3;

  PairProducts(L x, L y)
      : plus1(x.template Pick<2, 3, 1, 2>() * y.template Pick<3, 2, 3, 1>()),
        plus2(x.template Pick<3, 0, 3, 0>() * y.template Pick<1, 3, 0, 2>()),
        plus3(x.template Pick<1, 2, 0, 1>() * y.template Pick<2, 0, 1, 0>()),
        minus1(x.template Pick<3, 2, 3, 1>() * y.template Pick<2, 3, 1, 2>()),
        minus2(x.template Pick<1, 3, 0, 2>() * y.template Pick<3, 0, 3, 0>()),
        minus3(x.template Pick<2, 0, 1, 0>() * y.template Pick<1, 2, 0, 1>()) {}
};

/// The same products, each multiplied by its entry of a third column.
template <class L>
struct TripleProducts {
  L plus1, plus2, plus3, minus1, minus2, minus3;

  TripleProducts(const PairProducts<L>& pairs, L column) {
    const L first = column.template Pick<1, 0, 0, 0>();
    const L second = column.template Pick<2, 2, 1, 1>();
    const L third = column.template Pick<3, 3, 3, 2>();
    plus1 = pairs.plus1 * first;
    plus2 = pairs.plus2 * second;
    plus3 = pairs.plus3 * third;
    minus1 = pairs.minus1 * first;
    minus2 = pairs.minus2 * second;
    minus3 = pairs.minus3 * third;
  }
};

/// The sixteen cofactors of column-major `m`.
template <class L>
inline Columns<L> Cofactors(const Columns<L>& m) {
  Columns<L> r;
  const PairProducts<L> right(m.c2, m.c3);
  const TripleProducts<L> p(right, m.c1);
  r.c0 = ((((p.plus1 + p.plus2) + p.plus3) - p.minus1) - p.minus2) - p.minus3;
  const TripleProducts<L> q(right, m.c0);
  r.c1 = ((((q.minus1 + q.minus2) + q.minus3) - q.plus1) - q.plus2) - q.plus3;
  const PairProducts<L> left(m.c0, m.c1);
  const TripleProducts<L> s(left, m.c3);
  r.c2 = ((((s.plus1 + s.plus2) + s.plus3) - s.minus1) - s.minus2) - s.minus3;
  // The last column adds its products in another order, and rows 0 and 2 in another than rows 1 and
  // 3: 2, 3, 1 in the former and 3, 1, 2 in the latter. Both begin with product 3 and one other,
  // and addition of two terms commutes.
  const TripleProducts<L> t(left, m.c2);
  r.c3 = (((((t.minus3 + L::Alternate(t.minus2, t.minus1)) + L::Alternate(t.minus1, t.minus2)) -
            L::Alternate(t.plus3, t.plus2)) -
           L::Alternate(t.plus1, t.plus3)) -
          L::Alternate(t.plus2, t.plus1));
  return r;
}

/// ((r0 * e0 + r1 * e1) + r2 * e2) + r3 * e3: the determinant, from the first column's cofactors.
template <class L>
inline float Determinant(L cofactors, L column) {
  const L term = cofactors * column;
  // Computed as single floats: the sums in other lanes might raise exceptions of their own.
  return ((term.First() + Spread<1>(term).First()) + Spread<2>(term).First()) +
         Spread<3>(term).First();
}

enum class Form { kInverse, kInverseTranspose };

/// The general inverse of `e`, or its transpose; the identity where the determinant is exactly 0.
/// With a determinant of exactly 1 the cofactors are not scaled: multiplying by 1 would flush
/// denormals where the host has set that mode.
template <class L, Form kForm>
inline Columns<L> GeneralInverse(const float* e) {
  const Columns<L> m = Columns<L>::Load(e);
  Columns<L> r = Cofactors(m);
  const float determinant = Determinant(r.c0, m.c0);
  if (determinant == 0.0f) return Columns<L>::Identity();
  if constexpr (kForm == Form::kInverse) r = r.Transposed();
  if (determinant == 1.0f) return r;
  const L scale = L::All(1.0f / determinant);
  return {r.c0 * scale, r.c1 * scale, r.c2 * scale, r.c3 * scale};
}

/// The inverse of a rigid motion, or its transpose.
template <class L, Form kForm>
inline Columns<L> RigidInverse(const float* e) {
  const Columns<L> m = Columns<L>::Load(e);
  // Lane 3 holds zeros throughout, which are never multiplied by an infinity.
  const L zero = L::All(0), one = L::All(1), t = L::WithLast(m.c3, zero);
  const Columns<L> rotation = {L::WithLast(m.c0, zero), L::WithLast(m.c1, zero),
                               L::WithLast(m.c2, zero), zero};
  const Columns<L> turned = rotation.Transposed();
  const L t0 = t.template Pick<0, 0, 0, 3>(), t1 = t.template Pick<1, 1, 1, 3>(),
          t2 = t.template Pick<2, 2, 2, 3>();
  const L back = -((turned.c0 * t0 + turned.c1 * t1) + turned.c2 * t2);
  if constexpr (kForm == Form::kInverse)
    return {turned.c0, turned.c1, turned.c2, L::WithLast(back, one)};
  else
    return {L::WithLast(m.c0, Spread<0>(back)), L::WithLast(m.c1, Spread<1>(back)),
            L::WithLast(m.c2, Spread<2>(back)), L::WithLast(zero, one)};
}

}  // namespace zeph::graphics

#endif  // ZEPH_SRC_GRAPHICS_INVERSE_H
