// The sine, cosine, tangent and logarithm that the library uses: the runtime's, or the correctly
// rounded ones, which tests/portable_math and the long proof compare with MPFR's.
#ifndef ZEPH_TESTS_ORACLE_FUNCTIONS_H
#define ZEPH_TESTS_ORACLE_FUNCTIONS_H

#include <cmath>

#ifdef ZEPH_PORTABLE_MATH
#include "portable_math/logarithm.h"
#include "portable_math/sine_cosine.h"
#include "portable_math/tangent.h"
#endif

namespace oracle {

#ifdef ZEPH_PORTABLE_MATH

inline double Sin(double x) {
  return zeph::portable_math::SineCosine(x).sine;
}
inline double Cos(double x) {
  return zeph::portable_math::SineCosine(x).cosine;
}
inline float Tan(float x) {
  return zeph::portable_math::Tangent(x);
}
inline double Log10(double x) {
  return zeph::portable_math::DecimalLogarithm(x);
}

#else

inline double Sin(double x) {
  return std::sin(x);
}
inline double Cos(double x) {
  return std::cos(x);
}
inline float Tan(float x) {
  return std::tan(x);
}
inline double Log10(double x) {
  return std::log10(x);
}

#endif

}  // namespace oracle

#endif  // ZEPH_TESTS_ORACLE_FUNCTIONS_H
