// SPDX-License-Identifier: MIT
//
// Exact sums and products of doubles as unevaluated pairs, and the rounding test, for arithmetic
// that rounds to nearest. Sources: T. J. Dekker, "A floating-point technique for extending the
// available precision", Numer. Math. 18 (1971); D. E. Knuth, "The Art of Computer Programming"
// 2, 4.2.2; A. Ziv, "Fast evaluation of elementary mathematical functions with correctly rounded
// last bit", ACM TOMS 17 (1991).
#ifndef ZEPH_SRC_PORTABLE_MATH_DOUBLE_DOUBLE_H
#define ZEPH_SRC_PORTABLE_MATH_DOUBLE_DOUBLE_H

#include "platform/exactness.h"
#include "portable_math/bits.h"

namespace zeph::portable_math {

/// head + tail.
struct Sum2 {
  double head, tail;
};

/// a + b, exactly, where |a| >= |b| or a is 0.
inline Sum2 FastTwoSum(double a, double b) {
  const double head = a + b;
  return {head, b - (head - a)};
}

/// a + b, exactly.
inline Sum2 TwoSum(double a, double b) {
  const double head = a + b, of_b = head - a;
  return {head, (a - (head - of_b)) + (b - of_b)};
}

/// a in two halves of 26 bits.
inline Sum2 Halves(double a) {
  const double scaled = a * 0x1.0000002p27;
  const double head = scaled - (scaled - a);
  return {head, a - head};
}

/// a * b, exactly, far from overflow and underflow.
inline Sum2 TwoProduct(double a, double b) {
  const Sum2 x = Halves(a), y = Halves(b);
  const double head = a * b;
  return {head, ((x.head * y.head - head) + x.head * y.tail + x.tail * y.head) + x.tail * y.tail};
}

/// The first 26 bits of a, the others 0.
inline double HeadOf(double a) {
  return DoubleOf(BitsOf(a) & ~std::uint64_t{0x7ffffff});
}

/// Whether the process currently rounds to nearest: in every other direction one of the two sums is
/// not 1.
inline bool RoundsToNearest() {
  static const volatile double kTiny = 0x1p-60;
  const double tiny = kTiny;
  return 1.0 + tiny == 1.0 - tiny;
}

/// Ziv's rounding test: rounds head + tail if everything within error * |head| of it rounds to the
/// same value; otherwise returns false.
inline bool RoundsSafely(Sum2 x, double error, double& rounded) {
  const double margin = x.head * error;
  rounded = x.head + (x.tail + margin);
  return rounded == x.head + (x.tail - margin);
}

}  // namespace zeph::portable_math

#endif  // ZEPH_SRC_PORTABLE_MATH_DOUBLE_DOUBLE_H
