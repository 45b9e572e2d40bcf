// SPDX-License-Identifier: MIT
//
// The decimal logarithm with the same bits on every system.
#ifndef ZEPH_SRC_PORTABLE_MATH_LOGARITHM_H
#define ZEPH_SRC_PORTABLE_MATH_LOGARITHM_H

namespace zeph::portable_math {

/// The logarithm of any double, rounded to nearest in every rounding direction of the process; for
/// a power of ten its exponent. Zeros give -infinity and raise FE_DIVBYZERO, negative numbers give
/// NaN and raise FE_INVALID, as the runtime's function does; infinity and NaN are returned
/// unchanged. No other flag than FE_INEXACT is raised.
double DecimalLogarithm(double x);

/// The same in integer arithmetic, for finite positive numbers.
double DecimalLogarithmInWholeNumbers(double x);

}  // namespace zeph::portable_math

#endif  // ZEPH_SRC_PORTABLE_MATH_LOGARITHM_H
