// SPDX-License-Identifier: MIT
//
/// @file
/// Math utilities, permutations, searches, selection sort, stopwatch.
//
//   magnitude, range    ZEPH_MathAbs, ZEPH_MathClamp, ZEPH_MathClamped
//   angles              ZEPH_MathConvertToDeg, ...ConvertToRad, ZEPH_MathDegToRad, ...RadToDeg
//   whole numbers       ZEPH_MathGetRightMostDigit, ZEPH_MathIntegerDivision
//   rounding            ZEPH_MathRoundOff, ZEPH_RoundOffToInt
//   powers of ten       ZEPH_MathGetScientificNotationBase, ...Value, ZEPH_MathToScientificNotation
//   random numbers      ZEPH_MathRandomInit, ZEPH_MathRandom
//   without effect      ZEPH_MathGetExponent
//   CZEPHPermutation    every ordering of a short sequence, a line each
//   CZEPHIntegralSearch sequential and binary searches in arrays of int
//   CZEPHSelectionSort  selection sort of int and double blocks
//   CZEPHSortTester     random fill, and a sorting demonstration by method number
//   CZEPHDSTimer        a stopwatch in milliseconds of the wall clock
//   additions           ZEPH_MathRandomSeed, ZEPH_MathIsPortable, ZEPH_PortableMath
//
// Nothing here checks or rejects an input unless it says so. Functions are safe to call from
// several threads at once, except those that draw random numbers: they share one generator, the
// C runtime's unless ZEPH_PORTABLE_MATH gives the library its own.
#ifndef ZEPH_ALGORITHMS_H
#define ZEPH_ALGORITHMS_H

#include <cstdio>

#include "platform.h"

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

// ---- Random numbers -----------------------------------------------------------------------------
//
// From the C runtime's generator, which the application shares: a seed set by either serves both.
// (With ZEPH_PORTABLE_MATH from the library's own: see ZEPH_MathRandomSeed.) Draws are 0..32767 on
// every system. Until a seed is set, sequences repeat from run to run.

/// Seeds the generator with the current time in seconds; twice in a second gives the same sequence.
///
///     ZEPH_MathRandomInit();
///     const int die = 1 + ZEPH_MathRandom(6);  // 1 to 6
ZEPH_API void ZEPH_MathRandomInit();

/// A draw in 0..n-1 (the remainder of a raw draw by `n`); a raw draw, 0..32767, where `n <= 0`.
ZEPH_API int ZEPH_MathRandom(int n);

/// A draw between `lo` and `hi`, in either order: draw * (hi - lo) / 32767.0 + lo. The draw 0 gives
/// `lo` itself; 32767 gives `hi` as far as the three roundings of the formula do.
///
///     const double x = ZEPH_MathRandom(-1.0, 1.0);
///     x >= -1.0 && x <= 1.0;  // 1
ZEPH_API double ZEPH_MathRandom(double lo, double hi);

// ---- Without effect -----------------------------------------------------------------------------

/// Changes nothing the caller can see; kept for programs that call it.
///
/// Splits `value` with the C runtime's `frexp` into its own copy of `exponent` and drops the rest.
/// `ignored` is not read. For the exponent of a value call `frexp` itself.
///
///     double v = 8.0;
///     ZEPH_MathGetExponent(v, 0.0, 0);  // v is 8.0
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
/// when the call ends, even by an exception. Nothing else is checked: there must be `n` items.
/// `k = n - 1` lists the sequence as it stands; `k >= n` lists nothing.
///
/// All forms return 1, or 0 (and do nothing) when `s` or the stream is null. Output errors are not
/// reported: the stream's error flag shows them. All forms compose their lines in about 68 KiB of
/// stack, for any `n` up to a few hundred, plus one frame for each item. The stream forms allocate
/// nothing; the string forms may throw when memory runs out, and whole blocks of the text are then
/// appended already. (n - k)! lines are written; 10! characters take about 80 MB.
///
///     char word[] = {'a', 'b', 'c'};
///     CZEPHPermutation::Run(word, 0, 3, stdout);  // prints "a b c \na c b \nb a c \n..."
///     CString lines;
///     CZEPHPermutation::Run(word, 0, 2, lines);   // the letters run together
///     lines.GetString();                          // "ab \nba \n"
class ZEPH_API CZEPHPermutation {
 public:
  CZEPHPermutation();
  /// Copies nothing: there is nothing to copy.
  CZEPHPermutation(const CZEPHPermutation& other);
  virtual ~CZEPHPermutation();
  /// Copies nothing.
  ///
  ///     CZEPHPermutation one, other;
  ///     other = one;  // nothing to see
  CZEPHPermutation& operator=(const CZEPHPermutation& other);

  /// Writes each ordering as its characters, a blank after every one, and a line feed.
  static int Run(char* s, int k, int n, FILE* f);

  /// Appends each ordering as its characters run together, one blank and a line feed.
  static int Run(char* s, int k, int n, CString& out);

  /// Writes each ordering as its numbers, a blank after every one, and a line feed.
  static int Run(int* s, int k, int n, FILE* f);

  /// Appends each ordering as its numbers, a blank after every one, and a line feed.
  static int Run(int* s, int k, int n, CString& out);

  /// Writes a demonstration of all four forms to `f` and returns 1; writes nothing and returns 0
  /// when `f` is null.
  ///
  /// The closing banner comes before the integer part, on purpose.
  ///
  ///     CZEPHPermutation::Test1(stdout);  // prints "\n@@@( CZEPHPermutation::Test1()..."
  static int Test1(FILE* f);
};

// ---- Integer searches ---------------------------------------------------------------------------

/// Searches in arrays of int, by index. Static operations only; objects have no data.
///
/// All of them return an index, -1 for a miss, and -1000 for a null array (and, where there is a
/// count, for one below 1). Nothing is allocated.
///
///     int a[] = {2, 3, 5, 7};
///     CZEPHIntegralSearch::BinarySearch(a, 4, 5);  // 2
///     CZEPHIntegralSearch search, other(search);
///     other = search;  // objects hold nothing
class ZEPH_API CZEPHIntegralSearch {
 public:
  CZEPHIntegralSearch();
  /// Copies nothing: there is nothing to copy.
  CZEPHIntegralSearch(const CZEPHIntegralSearch& other);
  virtual ~CZEPHIntegralSearch();
  /// Copies nothing.
  CZEPHIntegralSearch& operator=(const CZEPHIntegralSearch& other);

  /// The highest index in 1..n whose element equals `key`; n + 1 elements must be there.
  ///
  /// `a[0]` is the scan's sentinel: overwritten with `key`, and 0 is never returned. The scan runs
  /// down from `n`; linear time.
  ///
  ///     int a[] = {9, 5, 6, 5};
  ///     CZEPHIntegralSearch::SequentialSearch(a, 3, 5);  // 3, and a[0] is 5
  static int SequentialSearch(int* a, int n, int key);

  /// An index of `key` in the ascending `a[0]`..`a[n-1]`, by halving; logarithmic time.
  ///
  /// Of several equal elements the first one probed, not the lowest index. In an array that does
  /// not ascend the result is an index of `key` or -1.
  static int BinarySearch(int* a, int n, int key);

  /// The recursive form over `a[low]`..`a[high]`, which finds `key` reliably only in the first
  /// middle.
  ///
  /// Each step passes (key, low, middle - 1) or (key, middle + 1, high) on as the next (low, high,
  /// key): the arguments are in the wrong order, and programs print what comes of it. The result is
  /// the index of `key` where it is in the first middle, (low + high) / 2 truncated toward zero;
  /// otherwise -1, or an index that the exchanged arguments lead to. For a search that works, call
  /// the form with a count.
  ///
  /// Returns -1 where `low > high` and where the same (low, high, key) recurs, which would never
  /// end; -1000 for a null array only. Indices are not checked, and the exchanged arguments can
  /// lead any distance from `low`, `high` and `key`: there must be elements wherever they lead.
  /// Offset arrays are legal, so indices may be negative. Uses constant stack.
  ///
  ///     int a[] = {2, 4, 5, 7, 10, 12, 14, 15, 17, 25};
  ///     CZEPHIntegralSearch::BinarySearch(a, 0, 9, 10);  // 4
  ///     CZEPHIntegralSearch::BinarySearch(a, 0, 9, 12);  // -1
  static int BinarySearch(int* a, int low, int high, int key);

  /// Writes a demonstration to `f`, with timings by CZEPHDSTimer, and returns 1; returns 0 when `f`
  /// is null.
  ///
  /// The times (columns RunTime and Total, in milliseconds) are the machine's, the rest is fixed.
  ///
  ///     CZEPHIntegralSearch::Test1(stdout);  // prints "\n@@@( CZEPHIntegralSearch::Test1()..."
  static int Test1(FILE* f);

 protected:
  /// '>', '=' or '<', as `x` is above, equal to or below `y`.
  ///
  ///     struct Search : CZEPHIntegralSearch {
  ///       static char Of(int x, int y) { return Compare(x, y); }
  ///     };
  ///     Search::Of(1, 2);  // "<"
  static char Compare(int x, int y);
};

// ---- Selection sort -----------------------------------------------------------------------------

/// Sorts plain blocks into ascending order, with the result of a selection sort: pass i exchanges
/// the first of the smallest values from position i on with the value at position i, even where it
/// is there already. Ints take O(n log n) time. A pass over doubles, whose exchange changes values,
/// looks at 128 elements, or at n / 256 where that is more. Neither allocates memory.
///
///     int a[] = {3, 1, 2};
///     CZEPHSelectionSort::Run(a, 3);  // a is (1, 2, 3)
///     CZEPHSelectionSort silent(nullptr), other(silent);
///     other = silent;  // objects hold nothing
class ZEPH_API CZEPHSelectionSort {
 public:
  /// Writes "@@@( Selection Sorting Algorithm...by CZEPHSelectionSort\n" to `f` unless it is null.
  CZEPHSelectionSort(FILE* f = stdout);  // NOLINT: implicit on purpose
  /// Writes and copies nothing.
  CZEPHSelectionSort(const CZEPHSelectionSort& other);
  virtual ~CZEPHSelectionSort();
  /// Copies nothing.
  CZEPHSelectionSort& operator=(const CZEPHSelectionSort& other);

  /// Sorts `a[0]`..`a[n-1]` and returns 1; does nothing and returns 0 when `a` is null or `n < 1`.
  static int Run(int* a, int n);

  /// The same for doubles, but every exchange passes the displaced value through an int.
  ///
  /// The value that leaves position i loses its fraction (outside int, and NaN: it becomes the most
  /// negative int), and an element that stays where it is counts as displaced: the last always
  /// loses its fraction. Programs print what comes of it; for a plain sort use CZEPHDoubleArray.
  ///
  ///     double a[] = {2.5, 1.25};
  ///     CZEPHSelectionSort::Run(a, 2);  // 1.25, 2.0
  static int Run(double* a, int n);

  /// Fills `n` ints and `n` doubles at random, writes, sorts and writes them again, to `f`.
  ///
  /// Returns 1, or 0 (and writes nothing) when `f` is null. Allocates one block at a time; when
  /// memory runs out or `n` is negative, the allocation operator's exception passes to the caller,
  /// after the text written so far.
  ///
  ///     CZEPHSelectionSort::Test1(10, stdout);  // prints "\n@@@( CZEPHSelectionSort::Test1()..."
  static int Test1(int n, FILE* f);
};

// ---- Sort tester --------------------------------------------------------------------------------

/// Fills blocks at random and runs a sorting demonstration chosen by number.
///
///     double values[100];
///     CZEPHSortTester::Randomize(values, 100, 1);  // 1: -999.9 to 999.9
///     CZEPHSortTester tester, other(tester);  // objects hold nothing
///     tester.Run(CZEPHSortTester::SORT_METHOD_TYPE(1), 5, stdout);  // 1, and says "undefined"
class ZEPH_API CZEPHSortTester {
 public:
  /// The available methods. Any other number is reported as undefined.
  enum SORT_METHOD_TYPE : int {
    SELECTION_SORT = 0  ///< CZEPHSelectionSort
  };

  CZEPHSortTester();
  /// Copies nothing: there is nothing to copy.
  CZEPHSortTester(const CZEPHSortTester& other);
  virtual ~CZEPHSortTester();

  /// Fills `a[0]`..`a[n-1]` with 0..32767; with a `sign` other than 0, about half of them negative.
  ///
  /// Returns 1, or 0 (and does nothing) when `a` is null or `n <= 0`. Each call seeds the
  /// generator, which the application shares (see ZEPH_MathRandomSeed), with the time in seconds
  /// plus one draw from it.
  static int Randomize(int* a, int n, int sign);

  /// The same for doubles: 0.0 to 999.9 in steps of 0.1.
  static int Randomize(double* a, int n, int sign);

  /// Announces a test on `f` and runs the demonstration of `method` with `n` values. Returns 1, for
  /// an unknown method too (reported on `f`), or 0 when `f` is null.
  ///
  /// The demonstration itself goes to the standard output, whatever stream is given.
  static int Run(SORT_METHOD_TYPE method, int n, FILE* f);

  /// Our addition, so that assignment compiles without a warning. Copies nothing.
  ZEPH_ADDED CZEPHSortTester& operator=(const CZEPHSortTester&) { return *this; }
};

// ---- Stopwatch ----------------------------------------------------------------------------------

/// A stopwatch: whole milliseconds of the wall clock between a start and a stop.
///
/// Follows the wall clock where it is set or stepped, so a reading can be too long, or negative. A
/// negative reading counts as "never started" until the next Start: Stop then returns it again
/// without looking at the clock. Seconds are taken modulo 2^32 and times computed in 32 bits, so
/// readings wrap after 24 days. For intervals that must not step use std::chrono::steady_clock.
///
///     CZEPHDSTimer watch;
///     watch.Start();
///     Work();
///     std::printf("%ld ms\n", watch.Stop());
///     watch.GetProcessTime();    // the same reading, if it is 1 ms or more
///     CZEPHDSTimer other(watch), third;
///     third = other;             // copies hold the reading
///     third.Begin();             // other names of Start
///     third.End();               // and Stop
class ZEPH_API CZEPHDSTimer {
 public:
  /// A watch that was never started: `elapsed` is -1000, the records are not set.
  CZEPHDSTimer();
  CZEPHDSTimer(const CZEPHDSTimer& other);
  virtual ~CZEPHDSTimer();
  /// Copies the reading and both records.
  CZEPHDSTimer& operator=(const CZEPHDSTimer& other);

  /// Starts, or starts again: `elapsed` is 0, `start` is now.
  void Start();

  /// The milliseconds since Start, kept in `elapsed`; `stop` is now. May be called again: each call
  /// measures from the same start. -1000 from a watch never started.
  long Stop();

  /// The last reading if it is 1 ms or more, without looking at the clock; otherwise the same as
  /// Stop().
  long GetProcessTime();

  /// The same as Start.
  void Begin();

  /// The same as Stop.
  long End();

  /// Writes a report of the reading around a sleep of `ms` milliseconds to `f` and returns 1;
  /// returns 0 without sleeping when `f` is null. A negative `ms` is read as an unsigned 32-bit
  /// number.
  ///
  ///     CZEPHDSTimer::Test1(5, stdout);  // prints "@@@( CZEPHDSTimer::Test1()...BEGIN\n..."
  static int Test1(long ms, FILE* f);

  ZEPH_TimeOfDay start;  ///< taken by Start
  ZEPH_TimeOfDay stop;   ///< taken by Stop
  int elapsed;           ///< -1000 never started, 0 running, else the last reading
};

// ---- Additions: portable mathematics ------------------------------------------------------------

/// Seeds the generator of all the random numbers here.
///
/// That is the C runtime's, seeded as by its `srand`; with ZEPH_PORTABLE_MATH it is one of the
/// library's own, which only the library's functions draw from and seed, and a seed gives the same
/// numbers on every system: the linear congruential generator that the C standard shows as an
/// example, with 32 bits of state and 15 bits a draw, seeded with 1.
///
///     ZEPH_MathRandomSeed(7);
///     const int first = ZEPH_MathRandom(1000);
///     ZEPH_MathRandomSeed(7);
///     ZEPH_MathRandom(1000) == first;  // 1
ZEPH_API void ZEPH_MathRandomSeed(unsigned seed);

/// 1 if the loaded library was built with ZEPH_PORTABLE_MATH, else 0.
///
/// With that option sine, cosine, tangent, decimal logarithm, random numbers and the texts of numbers
/// are the library's own, the same on every system, instead of the C runtime's.
///
///     ZEPH_MathIsPortable() == int(ZEPH_PortableMath);  // 1: the library is the one compiled for
ZEPH_API int ZEPH_MathIsPortable();

/// The same, as known when this program was compiled: what the package it was built with says.
#ifdef ZEPH_PORTABLE_MATH
ZEPH_ADDED inline constexpr bool ZEPH_PortableMath = true;
#else
ZEPH_ADDED inline constexpr bool ZEPH_PortableMath = false;
#endif

#endif  // ZEPH_ALGORITHMS_H
