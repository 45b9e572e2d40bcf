// SPDX-License-Identifier: MIT
//
// algorithms.h -- math utilities, permutations, searches, selection sort, stopwatch.
//
//   magnitude, range    ZEPH_MathAbs, ZEPH_MathClamp, ZEPH_MathClamped
//   angles              ZEPH_MathConvertToDeg, ...ConvertToRad, ZEPH_MathDegToRad, ...RadToDeg
//   whole numbers       ZEPH_MathGetRightMostDigit, ZEPH_MathIntegerDivision
//   rounding            ZEPH_MathRoundOff, ZEPH_RoundOffToInt
//   powers of ten       ZEPH_MathGetScientificNotationBase, ...Value, ZEPH_MathToScientificNotation
//   random numbers      ZEPH_MathRandomInit, ZEPH_MathRandom
//   without effect      ZEPH_MathGetExponent
//   CZEPHPermutation    every ordering of a short sequence, a line each
//
// Nothing here checks or rejects an input unless it says so. Functions are safe to call from
// several threads at once, except those that draw random numbers: they share the C runtime's
// generator.
#ifndef ZEPH_ALGORITHMS_H
#define ZEPH_ALGORITHMS_H

#include <cstdio>

#include "platform.h"

// ---- Magnitude and range ------------------------------------------------------------------------

/// `x` if it is above 0, else `x` with its sign flipped.
///
/// So -0.0 gives +0.0, +0.0 gives -0.0, and a NaN comes back with its sign flipped.
ZEPH_API double ZEPH_MathAbs(const double& x);

/// Brings `v` into [lo, hi]: raises it to `lo` if below, then lowers it to `hi` if above.
///
/// The second test sees the outcome of the first, so with `lo > hi` a low `v` ends as `hi`, where
/// ZEPH_MathClamped gives `lo`. A NaN `v` stays. A NaN bound binds nothing.
///
///     double v = 7.0;
///     ZEPH_MathClamp(v, 0.0, 5.0);  // v is 5.0
ZEPH_API void ZEPH_MathClamp(double& v, const double& lo, const double& hi);

/// `lo` if `v` is below it, else `hi` if `v` is above that, else `v`.
///
/// With `lo > hi` a low `v` gives `lo`; ZEPH_MathClamp would leave `hi`. A NaN `v` is given back.
ZEPH_API double ZEPH_MathClamped(const double& v, const double& lo, const double& hi);

// ---- Angles -------------------------------------------------------------------------------------
//
// The factors are 57.29577951308 and 0.01745329251994: ratios of 13 digits, on purpose. There and
// back is therefore not the identity.

/// Turns `v` from radians into degrees, in place: v * 57.29577951308.
ZEPH_API void ZEPH_MathConvertToDeg(double& v);

/// Turns `v` from degrees into radians, in place: v * 0.01745329251994.
ZEPH_API void ZEPH_MathConvertToRad(double& v);

/// `v` degrees in radians: v * 0.01745329251994.
ZEPH_API double ZEPH_MathDegToRad(const double& v);

/// `v` radians in degrees: v * 57.29577951308.
ZEPH_API double ZEPH_MathRadToDeg(const double& v);

// ---- Whole numbers ------------------------------------------------------------------------------

/// The last decimal digit of `n`, with the sign of `n`: 123 gives 3, -123 gives -3.
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
/// A negative whole number goes one down: -2.0 gives -3. Outside int, and for NaN, the result is
/// the most negative int.
ZEPH_API int ZEPH_RoundOffToInt(double x);

// ---- Powers of ten ------------------------------------------------------------------------------
//
// A value is split as mantissa * 10^exponent, with up to `digits` digits before the point of the
// mantissa. 10^|n| is built by squaring: 1.0 and 10.0, 100.0, ... multiplied where |n| has a bit,
// lowest bit first, so large powers carry the rounding of that order. `digits` and `decimals` are
// numbers of one signed byte, not characters.

/// The exponent of the split of `value`.
///
/// 0 for magnitudes up to 10^digits (not below 0.1); above, the exponent that leaves `digits` whole
/// digits in the mantissa, but one digit more for an exact power of ten; below 0.1, the floor of
/// log10. For 0, infinities and NaN, log10 has no int, and the result is the most negative int.
///
///     ZEPH_MathGetScientificNotationBase(12345.0, 2);  // 3
///     ZEPH_MathGetScientificNotationBase(0.05, 2);     // -2
ZEPH_API int ZEPH_MathGetScientificNotationBase(double value, char digits);

/// The mantissa of `value` for an exponent: value / 10^exponent, or value / (1 / 10^|exponent|)
/// where it is negative.
ZEPH_API double ZEPH_MathGetScientificNotationValue(double value, int exponent);

/// The split of `value` as text, such as "12.346xE3"; also gives `exponent` and `mantissa`.
///
/// `decimals` is the number of decimals of the mantissa in the text. Digits, decimal point and the
/// spelling of infinities and NaN are those of the C runtime's `%f`; so is what a negative
/// `decimals` gives. Both results are written before the text is built, which may throw what
/// memory exhaustion throws.
///
///     int exponent;
///     double mantissa;
///     ZEPH_MathToScientificNotation(12345.678, exponent, mantissa, 2, 3);  // "12.346xE3"
ZEPH_API CString ZEPH_MathToScientificNotation(double value, int& exponent, double& mantissa,
                                               char digits, char decimals);

// ---- Random numbers -----------------------------------------------------------------------------
//
// From the C runtime's generator, which the application shares: a seed set by either serves both.
// Draws are 0..32767 on every system. Until a seed is set, sequences repeat from run to run.

/// Seeds the generator with the current time in seconds; twice in a second gives the same sequence.
ZEPH_API void ZEPH_MathRandomInit();

/// A draw in 0..n-1 (the remainder of a raw draw by `n`); a raw draw, 0..32767, where `n <= 0`.
ZEPH_API int ZEPH_MathRandom(int n);

/// A draw between `lo` and `hi`, both reached, in either order: draw * (hi - lo) / 32767.0 + lo.
ZEPH_API double ZEPH_MathRandom(double lo, double hi);

// ---- Without effect -----------------------------------------------------------------------------

/// Changes nothing the caller can see; kept for programs that call it.
///
/// Splits `value` with the C runtime's `frexp` into its own copy of `exponent` and drops the rest.
/// `ignored` is not read. For the exponent of a value call `frexp` itself.
ZEPH_API void ZEPH_MathGetExponent(double& value, double ignored, int exponent);

// ---- Permutations -------------------------------------------------------------------------------

/// Lists every ordering of the first `n` items of a sequence, a line each.
///
/// Static operations only; objects of the class hold nothing. Orderings come in the order of the
/// swap-and-recurse method: abc, acb, bac, bca, cba, cab. Items are told apart by position, so
/// equal items give equal lines.
///
/// `s` points to the items, of which positions `k` to `n - 1` are permuted (callers pass `k` = 0)
/// and positions 0 to `n - 1` are listed. They are permuted in place and are back in their order
/// when the call ends, by an exception too. Nothing else is checked: there must be `n` items.
/// `k = n - 1` lists the sequence as it stands; `k >= n` lists nothing.
///
/// All forms return 1, or 0 (and do nothing) when `s` or the stream is null. Whatever could not be
/// written to a stream is lost silently; its error flag tells. The stream forms use constant
/// memory and no heap; the string forms may throw what memory exhaustion throws, with complete
/// blocks of the text appended. (n - k)! lines are written; 10! characters take about 80 MB.
///
///     char word[] = {'a', 'b', 'c'};
///     CZEPHPermutation::Run(word, 0, 3, stdout);  // "a b c \na c b \nb a c \n..."
class ZEPH_API CZEPHPermutation {
 public:
  CZEPHPermutation();
  CZEPHPermutation(const CZEPHPermutation& other);
  virtual ~CZEPHPermutation();
  /// Copies nothing.
  CZEPHPermutation& operator=(const CZEPHPermutation& other);

  /// Writes each ordering as its characters, a blank after every one, and a line feed.
  static int Run(char* s, int k, int n, FILE* f);

  /// Appends each ordering as its characters run together, one blank and a line feed.
  static int Run(char* s, int k, int n, CString& out);

  /// Writes each ordering as its numbers, a blank after every one, and a line feed.
  static int Run(int* s, int k, int n, FILE* f);

  /// Appends each ordering as its numbers, a blank after every one, and a line feed.
  static int Run(int* s, int k, int n, CString& out);

  /// Writes a demonstration of all four forms to `f`; 1, or 0 and nothing when `f` is null.
  ///
  /// The closing banner stands before the integer part, on purpose.
  static int Test1(FILE* f);
};

#endif  // ZEPH_ALGORITHMS_H
