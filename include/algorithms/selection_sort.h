// SPDX-License-Identifier: MIT
//
/// @file
/// CZEPHSelectionSort: selection sort of int and double blocks; CZEPHSortTester.
#ifndef ZEPH_ALGORITHMS_SELECTION_SORT_H
#define ZEPH_ALGORITHMS_SELECTION_SORT_H

#include <cstdio>

#include "../platform.h"

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

#endif  // ZEPH_ALGORITHMS_SELECTION_SORT_H
