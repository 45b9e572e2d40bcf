// SPDX-License-Identifier: MIT
//
// Sine, cosine, tangent and logarithm: the runtime's, or with ZEPH_PORTABLE_MATH our own, whose bits
// are the same on every system.
#ifndef ZEPH_SRC_PLATFORM_FUNCTIONS_H
#define ZEPH_SRC_PLATFORM_FUNCTIONS_H

namespace zeph::platform {

/// Whether functions, random numbers and the texts of numbers are our own.
#ifdef ZEPH_PORTABLE_MATH
constexpr bool kPortableMath = true;
#else
constexpr bool kPortableMath = false;
#endif

struct SineAndCosine {
  double sine, cosine;
};

/// Of an angle in radians.
SineAndCosine SineCosine(double radians);

/// Of an angle in radians.
float Tangent(float radians);

double DecimalLogarithm(double x);

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_FUNCTIONS_H
