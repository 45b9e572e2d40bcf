// SPDX-License-Identifier: MIT
//
/// @file
/// ZEPH_Math*: magnitude, range, angles, whole numbers, rounding, powers of ten.
#ifndef ZEPH_ALGORITHMS_MATHEMATICS_H
#define ZEPH_ALGORITHMS_MATHEMATICS_H

#include "../platform.h"

// ---- Magnitude and range ------------------------------------------------------------------------

/// `x` if it is above 0, else `x` with its sign flipped.
///
/// So -0.0 gives +0.0, +0.0 gives -0.0, and a NaN comes back with its sign flipped.
///
///     ZEPH_MathAbs(-2.5);  // 2.5
ZEPH_API double ZEPH_MathAbs(const double& x);

/// Brings `v` into [lo, hi]: raises it to `lo` if below, then lowers it to `hi` if above.
///
/// The second test sees the outcome of the first, so with `lo > hi` a low `v` ends as `hi`, where
/// ZEPH_MathClamped gives `lo`. A NaN `v` stays. A NaN bound has no effect.
///
///     double v = 7.0;
///     ZEPH_MathClamp(v, 0.0, 5.0);  // v is 5.0
ZEPH_API void ZEPH_MathClamp(double& v, const double& lo, const double& hi);

/// `lo` if `v` is below it, else `hi` if `v` is above that, else `v`.
///
/// With `lo > hi` a low `v` gives `lo`; ZEPH_MathClamp would leave `hi`. A NaN `v` is returned.
///
///     ZEPH_MathClamped(7.0, 0.0, 5.0);  // 5.0
ZEPH_API double ZEPH_MathClamped(const double& v, const double& lo, const double& hi);

// ---- Angles -------------------------------------------------------------------------------------
//
// The factors are 57.29577951308 and 0.01745329251994: ratios of 13 digits, on purpose. There and
// back is therefore not the identity.

/// Turns `v` from radians into degrees, in place: v * 57.29577951308.
///
///     double v = 2.0;
///     ZEPH_MathConvertToDeg(v);  // v is 114.59155902616
ZEPH_API void ZEPH_MathConvertToDeg(double& v);

/// Turns `v` from degrees into radians, in place: v * 0.01745329251994.
///
///     double v = 100.0;
///     ZEPH_MathConvertToRad(v);  // v is 1.745329251994
ZEPH_API void ZEPH_MathConvertToRad(double& v);

/// `v` degrees in radians: v * 0.01745329251994.
///
///     ZEPH_MathDegToRad(100.0);  // 1.745329251994
ZEPH_API double ZEPH_MathDegToRad(const double& v);

/// `v` radians in degrees: v * 57.29577951308.
///
///     ZEPH_MathRadToDeg(2.0);  // 114.59155902616
ZEPH_API double ZEPH_MathRadToDeg(const double& v);

// ---- Whole numbers ------------------------------------------------------------------------------

/// The last decimal digit of `n`, with the sign of `n`: 123 gives 3, -123 gives -3.
///
///     ZEPH_MathGetRightMostDigit(-123);  // -3
ZEPH_API int ZEPH_MathGetRightMostDigit(int n);

/// Division of `a` by `b`: the quotient truncated toward zero, the remainder with the sign of `a`.
///
/// This is the C runtime's `div`, whose preconditions are the caller's: `b` is not 0, and the
/// quotient is an int (INT_MIN / -1 is not). Processors stop the process otherwise.
///
///     int q, r;
///     ZEPH_MathIntegerDivision(-7, 2, q, r);  // q is -3, r is -1
ZEPH_API void ZEPH_MathIntegerDivision(int a, int b, int& quotient, int& remainder);

// ---- Rounding -----------------------------------------------------------------------------------

/// `value` rounded to `places` decimals; to tens, hundreds, ... where `places` is negative.
///
/// Computes m = 10^places (1 / 10^|places| for negative places), then m * value + 0.5 truncated
/// toward zero to an int, then divided by m. Truncation makes negative values uneven: to 0 places,
/// -2.6 gives -2 and -2.4 gives -1. Where m * value + 0.5 is outside int, or NaN, the truncated
/// value is the most negative int.
///
///     ZEPH_MathRoundOff(2.3456, 2);   // 2.35
///     ZEPH_MathRoundOff(1234.0, -2);  // 1200.0
ZEPH_API double ZEPH_MathRoundOff(double value, int places);

/// `x` rounded to the nearest int, halves upward: 2.5 gives 3, -2.5 gives -2, -2.7 gives -3.
///
/// A negative whole number is lowered by one: -2.0 gives -3. Outside int, and for NaN, the result
/// is the most negative int.
///
///     ZEPH_RoundOffToInt(2.5);   // 3
///     ZEPH_RoundOffToInt(-2.0);  // -3
ZEPH_API int ZEPH_RoundOffToInt(double x);

// ---- Powers of ten ------------------------------------------------------------------------------
//
// A value is split as mantissa * 10^exponent, with up to `digits` digits before the point of the
// mantissa. 10^|n| is built by squaring: 1.0 and 10.0, 100.0, ... multiplied where |n| has a bit,
// lowest bit first, so large powers carry the rounding of that order. `digits` and `decimals` are
// numbers of one signed byte, not characters.

/// The exponent of the split of `value`.
///
/// 0 for magnitudes from 1 up to 10^digits; above, the exponent that leaves `digits` whole digits
/// in the mantissa, but one digit more for an exact power of ten; below 1, the floor of log10, so
/// -1 from 0.1 on. For 0, infinities and NaN no int holds log10, and the result is the most
/// negative int.
///
///     ZEPH_MathGetScientificNotationBase(12345.0, 2);  // 3
///     ZEPH_MathGetScientificNotationBase(0.05, 2);     // -2
ZEPH_API int ZEPH_MathGetScientificNotationBase(double value, char digits);

/// The mantissa of `value` for an exponent: value / 10^exponent, or value / (1 / 10^|exponent|)
/// where it is negative.
///
///     ZEPH_MathGetScientificNotationValue(12345.0, 3);  // 12.345
ZEPH_API double ZEPH_MathGetScientificNotationValue(double value, int exponent);

/// The split of `value` as text, such as "12.346xE3"; also sets `exponent` and `mantissa`.
///
/// `decimals` is the number of decimals of the mantissa in the text. Digits, decimal point and the
/// spelling of infinities and NaN are those of the C runtime's `%f` (with ZEPH_PORTABLE_MATH of
/// glibc's); so is what a negative `decimals` gives. Both results are written before the text is
/// built, which may throw what memory exhaustion throws.
///
///     int exponent;
///     double mantissa;
///     ZEPH_MathToScientificNotation(12345.678, exponent, mantissa, 2, 3);  // "12.346xE3"
ZEPH_API CString ZEPH_MathToScientificNotation(double value, int& exponent, double& mantissa,
                                               char digits, char decimals);

// ---- Without effect -----------------------------------------------------------------------------

/// Changes nothing the caller can see; kept for programs that call it.
///
/// Splits `value` with the C runtime's `frexp` into its own copy of `exponent` and drops the rest.
/// `ignored` is not read. For the exponent of a value call `frexp` itself.
///
///     double v = 8.0;
///     ZEPH_MathGetExponent(v, 0.0, 0);  // v is 8.0
ZEPH_API void ZEPH_MathGetExponent(double& value, double ignored, int exponent);

#endif  // ZEPH_ALGORITHMS_MATHEMATICS_H
