// SPDX-License-Identifier: MIT
#include "platform/functions.h"

#include "platform/exactness.h"

#ifdef ZEPH_PORTABLE_MATH

#include "portable_math/logarithm.h"
#include "portable_math/sine_cosine.h"
#include "portable_math/tangent.h"

namespace zeph::platform {

SineAndCosine SineCosine(double radians) {
  const auto [sine, cosine] = portable_math::SineCosine(radians);
  return {sine, cosine};
}

float Tangent(float radians) {
  return portable_math::Tangent(radians);
}

double DecimalLogarithm(double x) {
  return portable_math::DecimalLogarithm(x);
}

}  // namespace zeph::platform

#else

#include <cmath>

namespace zeph::platform {

SineAndCosine SineCosine(double radians) {
  // Reads the angle again, so that no compiler merges both calls into one sincos, which some
  // runtimes round differently.
  const volatile double again = radians;
  return {std::sin(radians), std::cos(again)};
}

float Tangent(float radians) {
  return std::tan(radians);
}

double DecimalLogarithm(double x) {
  return std::log10(x);
}

}  // namespace zeph::platform

#endif  // ZEPH_PORTABLE_MATH
