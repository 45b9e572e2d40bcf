// SPDX-License-Identifier: MIT
//
// The decimal logarithm with the same bits on every system.
#ifndef ZEPH_SRC_PORTABLE_MATH_LOGARITHM_H
#define ZEPH_SRC_PORTABLE_MATH_LOGARITHM_H

namespace zeph::portable_math {

/// Of any double, rounded to nearest whatever direction the process rounds in; of a power of ten
/// its exponent. Zeros give -infinity and raise FE_DIVBYZERO, numbers below zero NaN and
/// FE_INVALID, as the runtime's function does; infinity and NaN stay what they are. No other flag
/// than FE_INEXACT.
double DecimalLogarithm(double x);

/// The same in whole numbers, for finite numbers above zero.
double DecimalLogarithmInWholeNumbers(double x);

}  // namespace zeph::portable_math

#endif  // ZEPH_SRC_PORTABLE_MATH_LOGARITHM_H
