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

/// Of an angle in radians, rounded to nearest whatever direction the process rounds in. Infinity
/// gives NaN and raises FE_INVALID, as the runtime's functions do; a NaN stays one. No other flag
/// than FE_INEXACT is raised.
SineAndCosine SineCosine(double radians);

/// The same in whole numbers: slower, and the judge wherever SineCosine cannot tell which way to
/// round. Finite angles only.
SineAndCosine SineCosineInWholeNumbers(double radians);

/// An angle as quarter turns and what is left, at most an eighth of a turn in either direction.
struct WholeNumberTurn {
  unsigned quarters;   ///< modulo 4
  bool negative;       ///< what is left
  Fixed sine, cosine;  ///< of the magnitude of what is left, off by less than 2^-245
};
WholeNumberTurn TurnInWholeNumbers(double magnitude);

}  // namespace zeph::portable_math

#endif  // ZEPH_SRC_PORTABLE_MATH_SINE_COSINE_H
