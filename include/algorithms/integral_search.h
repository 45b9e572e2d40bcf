// SPDX-License-Identifier: MIT
//
/// @file
/// CZEPHIntegralSearch: sequential and binary searches in arrays of int.
#ifndef ZEPH_ALGORITHMS_INTEGRAL_SEARCH_H
#define ZEPH_ALGORITHMS_INTEGRAL_SEARCH_H

#include <cstdio>

#include "../platform.h"

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

#endif  // ZEPH_ALGORITHMS_INTEGRAL_SEARCH_H
