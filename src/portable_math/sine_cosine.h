// SPDX-License-Identifier: MIT
//
// Sine and cosine with the same bits on every system.
#ifndef ZEPH_SRC_PORTABLE_MATH_SINE_COSINE_H
#define ZEPH_SRC_PORTABLE_MATH_SINE_COSINE_H

#include "portable_math/fixed_point.h"

namespace zeph::portable_math {

struct SineAndCosine {
  double sine, cosine;
};

/// Sine and cosine of an angle in radians, rounded to nearest in every rounding direction of the
/// process. Infinity gives NaN and raises FE_INVALID, as the runtime's functions do; NaN gives NaN.
/// No other flag than FE_INEXACT is raised.
SineAndCosine SineCosine(double radians);

/// The same in integer arithmetic: slower, and used wherever SineCosine cannot decide the rounding.
/// Finite angles only.
SineAndCosine SineCosineInWholeNumbers(double radians);

/// An angle as quarter turns and a remainder of at most an eighth of a turn in either direction.
struct WholeNumberTurn {
  unsigned quarters;   ///< modulo 4
  bool negative;       ///< of the remainder
  Fixed sine, cosine;  ///< of the remainder's magnitude, with an error below 2^-245
};
WholeNumberTurn TurnInWholeNumbers(double magnitude);

}  // namespace zeph::portable_math

#endif  // ZEPH_SRC_PORTABLE_MATH_SINE_COSINE_H
