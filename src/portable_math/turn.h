// SPDX-License-Identifier: MIT
//
// Sine and cosine of an angle as pairs of doubles, before they are rounded.
//
// The angle is reduced to a step a of the table and a remainder r of at most half a step, pi/1024.
// With s = sin a and c = cos a, each stored as a head of 27 bits and a tail,
//
//   sin(a + r) = s + c r + s (cos r - 1) + c (sin r - r),
//   cos(a + r) = c - s r + c (cos r - 1) - s (sin r - r);
//
// the products of the heads of s and c with the first 26 bits of r are exact; all other terms are
// smaller than the result by 2^-17 at least and are summed in one double. After S. Gal and B.
// Bachelis, "An accurate elementary mathematical library for the IEEE floating point standard", ACM
// TOMS 17 (1991), with heads of few bits in place of their chosen arguments.
#ifndef ZEPH_SRC_PORTABLE_MATH_TURN_H
#define ZEPH_SRC_PORTABLE_MATH_TURN_H

#include "portable_math/reduction.h"

namespace zeph::portable_math {

/// Sine and cosine of an angle beyond `quarters` (modulo 4) quarter turns, with a relative error
/// below 2^-66.5: in a + a (cos r - 1), at least half of which is the result, the second term is
/// below 2^-17.7 and results from eight rounded operations, one of them twice as accurate. The
/// greatest found is 2^-67.9, half a step before the table's first.
struct Turn {
  unsigned quarters;
  Sum2 sine, cosine;
};

/// The terms of the remainder r that both results use.
struct Rest {
  explicit Rest(Sum2 r) : head(HeadOf(r.head)), tail((r.head - head) + r.tail) {
    const double u = r.head * r.head;
    cosineLess1 = u * (-0.5 + u * (1.0 / 24 + u * (-1.0 / 720)));
    sineLessRest = r.head * (u * (-1.0 / 6 + u * (1.0 / 120 + u * (-1.0 / 5040))));
  }
  double head, tail;  // 26 bits, and the others
  double cosineLess1, sineLessRest;
};

/// a + slope * r + a (cos r - 1) + slope (sin r - r), where |a| >= |slope * r| or a is 0.
inline Sum2 Turned(const tables::Pair& a, const tables::Pair& slope, const Rest& r) {
  const double whole = a.head + a.rest, wholeSlope = slope.head + slope.rest;
  const Sum2 sum = FastTwoSum(a.head, slope.head * r.head);
  const double small = whole * r.cosineLess1 + wholeSlope * r.sineLessRest;
  return {sum.head, sum.tail + (a.rest + (slope.rest * r.head + wholeSlope * r.tail) + small)};
}

inline Turn TurnBy(const Reduced& angle) {
  const std::uint32_t step = angle.steps % tables::kQuarterSteps;
  const tables::Pair& s = tables::kSines[step];
  const tables::Pair& c = tables::kSines[tables::kQuarterSteps - step];
  const Rest r(angle.rest);
  return {angle.steps / tables::kQuarterSteps, Turned(s, c, r), Turned(c, {-s.head, -s.rest}, r)};
}

}  // namespace zeph::portable_math

#endif  // ZEPH_SRC_PORTABLE_MATH_TURN_H
