// SPDX-License-Identifier: MIT
//
/// @file
/// The dynamic array of doubles, CZEPHDoubleArray.
//
//   storage      constructors, Resize, operator=
//   access       operator[], GetEntry, CheckBound, SetEntry, Reset, GetData, GetSize, Size
//   arithmetic   += -= and the free + - * /, element by element; ZEPH_ArrayDotProduct
//   text         << >> Display Trace
//   sorts        BubbleSort, InsertionSort, ListInsertSort, ShellSort, QuickSort, recQuickSort
//   their parts  MedianOf3, Partition, QuickPartition, ManualSort, Swap, CheckSorted
//   searches     Find, BinarySearch, Remove, MergeSortedArray
//   norms        OneNorm, TwoNorm, MaxNorm; Random
//   additions    move construction, begin and end, more argument types (at the foot)
//
// Misuse that the interface calls fatal prints "@@@@( Error: ", a message and a line feed on
// std::cout and ends the process with status 1. What is called unchecked is not checked at all.
#ifndef ZEPH_DOUBLE_ARRAY_H
#define ZEPH_DOUBLE_ARRAY_H

#include <cstddef>
#include <iosfwd>
#include <type_traits>
#include <utility>

#include "frame.h"

/// A counted block of doubles with arithmetic, text in and out, sorts, searches and norms.
///
/// The array owns `data`; copies copy the elements. An array whose `data` is null (allocation
/// failed, or nothing was asked for) counts as empty in every whole-array operation, whatever
/// `size` says. One object is for one thread at a time; different objects are independent.
///
///     double v[] = {9, 7, 8};
///     CZEPHDoubleArray a(3, v);
///     a.QuickSort(3);               // a is (7, 8, 9)
///     int at;
///     a.BinarySearch(8, at);        // 1, at == 1
///     CZEPHDoubleArray b = 2 * a;   // (14, 16, 18)
class ZEPH_API CZEPHDoubleArray {
 public:
  // --- storage ---

  /// No elements, no storage.
  CZEPHDoubleArray();

  /// `n` elements of value `v`.
  ///
  /// When memory runs out, or `n` is negative, the array has `size` == `n` and no storage; nothing
  /// is thrown or printed. The same holds for the other constructors.
  CZEPHDoubleArray(int n, double v);

  /// A copy of the `n` values at `src`, which is read only; null leaves the elements unspecified.
  CZEPHDoubleArray(int n, double* src);

  /// A copy of the elements; `sorted` starts at 0. Elements copied from an array without storage
  /// are unspecified.
  CZEPHDoubleArray(const CZEPHDoubleArray& other);

  /// Releases the storage.
  virtual ~CZEPHDoubleArray();

  /// Changes the count to `n`; below 1 releases the storage.
  ///
  /// With `keep` non-zero the first min(size, n) elements stay; all others are unspecified. Always
  /// moves to a new block; `sorted` stays as it is. When memory runs out the allocation operator's
  /// exception passes to the caller and the array is unchanged.
  ///
  ///     CZEPHDoubleArray a(2, 1.5);
  ///     a.Resize(4, 1);
  ///     a[2] = a[3] = 0.0;
  ///     a;              // (1.5, 1.5, 0, 0)
  void Resize(int n, int keep);

  /// Copies the elements of `other` into this array and returns it; `sorted` stays as it is, except
  /// that allocating clears it.
  ///
  /// Self-assignment does nothing. An array without storage or with `size` 0 allocates first (a
  /// block held with `size` 0 is not released; when memory runs out nothing is copied). Otherwise
  /// the sizes must agree: fatal, "Bad vector sizes:CZEPHDoubleArray::operator=()".
  ///
  ///     CZEPHDoubleArray a(2, 1.5), b;
  ///     b = a;
  ///     b;  // (1.5, 1.5)
  CZEPHDoubleArray& operator=(const CZEPHDoubleArray& other);

  /// Prints "@@@@( Error: ", `message` and a line feed on `os` and ends the process with status 1.
  ///
  ///     char message[] = "too many numbers";
  ///     CZEPHDoubleArray a(3, 0.0);
  ///     if (a.GetSize() > 1000) CZEPHDoubleArray::ErrorMessage(message, std::cerr);
  [[noreturn]] static void ErrorMessage(char* message, std::ostream& os);

  // --- access ---

  /// Element `i`, unchecked: 0 <= i < size.
  ZEPH_EMIT ZEPH_CHECKED double& operator[](int i) {
    ZEPH_REQUIRE_POINTER("CZEPHDoubleArray::operator[]", data);
    ZEPH_REQUIRE_INSIDE("CZEPHDoubleArray::operator[]", i, 0, size - 1);
    return data[i];
  }
  ZEPH_EMIT ZEPH_CHECKED const double& operator[](int i) const {
    ZEPH_REQUIRE_POINTER("CZEPHDoubleArray::operator[]", data);
    ZEPH_REQUIRE_INSIDE("CZEPHDoubleArray::operator[]", i, 0, size - 1);
    return data[i];
  }

  /// Element `i`, after CheckBound(i). GetEntry(size) passes the check and reads the place after
  /// the last element, which the array need not own.
  ZEPH_EMIT double GetEntry(int i) {
    if (!data || i < 0 || i > size) CheckBound(i);
    return data[i];
  }

  /// Returns 1 when there is storage and 0 <= i <= size (one past the end passes); otherwise fatal,
  /// "Vector check bound error!\n".
  ///
  ///     CZEPHDoubleArray a(3, 2.5);
  ///     a.CheckBound(3);  // 1: one past the end passes
  ///     a.GetEntry(2);    // 2.5
  int CheckBound(int i);

  /// Sets every element to `v`; takes no index despite its name.
  ///
  ///     CZEPHDoubleArray a(3, 0.0);
  ///     a.SetEntry(2.5);  // a is (2.5, 2.5, 2.5)
  ///     a.Reset(0.5);     // a is (0.5, 0.5, 0.5)
  void SetEntry(double v);

  /// The same as SetEntry.
  void Reset(double v);

  /// The storage; null when there is none.
  ///
  ///     CZEPHDoubleArray a(3, 2.5);
  ///     a.GetData();  // (2.5, 2.5, 2.5)
  ZEPH_EMIT double* GetData() const { return data; }

  /// The number of elements.
  ///
  ///     CZEPHDoubleArray a(3, 2.5);
  ///     a.GetSize();  // 3
  ///     a.Size();     // 3
  ZEPH_EMIT int GetSize() const { return size; }
  /// The number of elements.
  ZEPH_EMIT int Size() const { return size; }

  // --- arithmetic ---

  /// Adds `other`, element by element. Different sizes are fatal: "bad vector sizes". `sorted`
  /// stays as it is.
  ///
  ///     CZEPHDoubleArray a(2, 1.0), b(2, 0.25);
  ///     a += b;  // a is (1.25, 1.25)
  ///     a -= b;  // a is (1, 1)
  CZEPHDoubleArray& operator+=(const CZEPHDoubleArray& other);

  /// Subtracts `other`, element by element. Different sizes are fatal: "bad vtor sizes". `sorted`
  /// stays as it is.
  CZEPHDoubleArray& operator-=(const CZEPHDoubleArray& other);

  // --- text ---

  /// Writes each element and one blank; after elements 10, 20, 30, ... (counted from 0) a line end
  /// with flush, so the first line holds eleven elements and each later one ten. No final line end.
  ///
  ///     CZEPHDoubleArray a(3, 0.5);
  ///     a.Display(std::cout);  // prints "0.5 0.5 0.5 "
  void Display(std::ostream& os);

  /// Appends "{ ", each element by "%lf  " with "\r\n" after elements 10, 20, 30, ..., and "}\r\n".
  ///
  /// Only appends. The decimal point is that of the C locale in force.
  ///
  ///     CString out;
  ///     CZEPHDoubleArray(2, 0.5).Display(out);
  ///     out.GetString();  // "{ 0.500000  0.500000  }\r\n"
  void Display(CString& out);

  /// The same for the elements `from` to `to`, both included and unchecked; the line ends follow
  /// the count of printed elements, not the index. `from` > `to` prints none.
  void Display(CString& out, int from, int to);

  /// Does nothing.
  ///
  ///     CZEPHDoubleArray a;
  ///     a.Trace("here");  // prints ""
  void Trace(CString text);

  // --- sorts ---
  //
  // All sort in place into ascending order by plain comparison of doubles, so 0.0 and -0.0 are
  // equal and a NaN is neither above nor below anything. Equal values can differ in the sign of
  // zero, which makes stability visible. Unless said otherwise no memory is allocated.

  /// Bubble sort with n - 2 passes; sets `sorted` to 1.
  ///
  /// One pass short: elements 0 and 1 end up exchanged when the last element was strictly below all
  /// others (3 2 1 gives 2 1 3), and up to two elements are not sorted at all. The flag is 1 all
  /// the same. Stable: zeros of both signs keep their order. A NaN stays in its place and divides
  /// the array: the elements between two NaNs are sorted among themselves. The result is that of
  /// the O(n^2) exchanges, in O(n log n).
  ///
  ///     double v[] = {3, 2, 1};
  ///     CZEPHDoubleArray a(3, v);
  ///     a.BubbleSort();  // a is (2, 1, 3)
  void BubbleSort();

  /// Insertion sort of the whole array; sets `sorted` to 1.
  ///
  /// A key moves in front of the equal keys before it, so zeros of both signs end up in reverse
  /// order. A NaN stays in its place and divides the array: the elements between two NaNs are
  /// sorted among themselves. The result is that of inserting one by one, in O(n log n).
  ///
  ///     double v[] = {3, 2, 1};
  ///     CZEPHDoubleArray a(3, v);
  ///     a.InsertionSort();  // a is (1, 2, 3)
  void InsertionSort();

  /// The same for the elements `left` to `right`, both included and unchecked; leaves `sorted` and
  /// all other elements alone. `left` >= `right` does nothing.
  ///
  ///     double v[] = {4, 3, 2, 1};
  ///     CZEPHDoubleArray a(4, v);
  ///     a.InsertionSort(1, 2);  // a is (4, 2, 3, 1)
  void InsertionSort(int left, int right);

  /// Insertion sort through a linked list (CZEPHLinkList); sets `sorted` to 1.
  ///
  /// Each value goes before the first one that it is not greater than: zeros of both signs end up
  /// in reverse order, and a NaN goes to the front, where all later values go before it. The result
  /// is that of inserting one by one, in O(n log n) and without allocating a node.
  ///
  ///     double v[] = {3, 2, 1};
  ///     CZEPHDoubleArray a(3, v);
  ///     a.ListInsertSort();  // a is (1, 2, 3)
  void ListInsertSort();

  /// Shell sort with the gaps n/2, n/4, ..., 1; sets `sorted` to 1.
  ///
  /// Not stable. Costs O(n log n); with NaN, which never move and divide the chains, O(n log^2 n),
  /// up to nine times as long as random data without (see docs/sorts.md). With zeros of both signs
  /// it allocates up to 6 n bytes by std::malloc, with NaN 8 n, and releases them; where it gets
  /// none it takes the plain steps, at worst O(n^2), to the same result.
  ///
  ///     double v[] = {3, 2, 1};
  ///     CZEPHDoubleArray a(3, v);
  ///     a.ShellSort();  // a is (1, 2, 3)
  void ShellSort();

  /// Quicksort by median of three, with pieces of up to `cutoff` elements finished by another sort;
  /// sets `sorted` to 1.
  ///
  /// The same as recQuickSort(0, size - 1, cutoff). A cut-off around 10 is the classic choice.
  void QuickSort(int cutoff);

  /// Quicksort of the elements `left` to `right`, both included and unchecked; leaves `sorted`
  /// alone.
  ///
  /// While a piece has more than `cutoff` elements it is partitioned by MedianOf3 and
  /// QuickPartition; the rest is finished by InsertionSort for `cutoff` > 3, else by ManualSort. A
  /// cut-off below 2 counts as 2. Not stable. Costs O(n log n) on any data; the depth of recursion
  /// is at most log2(n). The result is that of the documented exchanges, which is visible with NaN
  /// and with zeros of both signs. For more than 16,384 such elements in an adversarial order it
  /// allocates 1/28 of their bytes by std::malloc; where it gets none, partitions look at up to n /
  /// 256 elements for each one moved.
  ///
  ///     double v[] = {9, 3, 7, 1, 0};
  ///     CZEPHDoubleArray a(5, v);
  ///     a.recQuickSort(1, 3, 10);  // a is (9, 1, 3, 7, 0)
  void recQuickSort(int left, int right, int cutoff);

  /// Sorts elements `left`, (left + right) / 2 and `right`, exchanges the middle one with element
  /// `right` - 1 and returns it.
  ///
  ///     double v[] = {9, 3, 5, 7, 1};
  ///     CZEPHDoubleArray a(5, v);
  ///     a.MedianOf3(0, 4);  // 5
  ///     a;                  // (1, 3, 7, 5, 9)
  double MedianOf3(int left, int right);

  /// Partitions the elements `left` to `right` around `pivot` (any value; nothing outside the range
  /// is read) and returns the first index of the part that is not below it. Hoare's partition with
  /// bounds checks.
  ///
  ///     double v[] = {9, 3, 5, 7, 1};
  ///     CZEPHDoubleArray a(5, v);
  ///     a.Partition(0, 4, 4.0);  // 2: 1 and 3 are below 4
  int Partition(int left, int right, double pivot);

  /// Partitions a piece prepared by MedianOf3, with `pivot` at `right` - 1, puts the pivot in its
  /// final place and returns that index.
  ///
  /// Its scans check no bounds: they rely on element `left` <= pivot and on element `right` - 1.
  ///
  ///     double v[] = {9, 3, 5, 7, 1};
  ///     CZEPHDoubleArray a(5, v);
  ///     const double pivot = a.MedianOf3(0, 4);
  ///     a.QuickPartition(0, 4, pivot);  // 2
  ///     a;                              // (1, 3, 5, 7, 9)
  int QuickPartition(int left, int right, double pivot);

  /// Sorts a piece of up to three elements by compare and exchange; of a longer piece only elements
  /// `left`, `right` - 1 and `right` are read.
  ///
  ///     double v[] = {9, 3, 5};
  ///     CZEPHDoubleArray a(3, v);
  ///     a.ManualSort(0, 2);  // a is (3, 5, 9)
  void ManualSort(int left, int right);

  /// Exchanges elements `i` and `j`, unchecked.
  ///
  ///     double v[] = {9, 3, 5};
  ///     CZEPHDoubleArray a(3, v);
  ///     a.Swap(0, 2);  // a is (5, 3, 9)
  void Swap(int i, int j);

  /// Sets `sorted` to whether the array is in ascending order, and returns it.
  ///
  /// A descent at the very last pair still counts as sorted: 1 2 4 3 gives 1. A pair with a NaN is
  /// no descent.
  ///
  ///     double v[] = {1, 2, 4, 3};
  ///     CZEPHDoubleArray a(4, v);
  ///     a.CheckSorted();  // 1
  ///     a.Swap(0, 1);
  ///     a.CheckSorted();  // 0
  int CheckSorted();

  // --- searches ---

  /// Index of the first element equal to `x`, scanning from 0, or -1 when none is.
  ///
  /// Equality is `==`: 0.0 finds -0.0, and a NaN finds nothing. Changes nothing.
  ///
  ///     double v[] = {9, 3, 5};
  ///     CZEPHDoubleArray a(3, v);
  ///     a.Find(3);  // 1
  ///     a.Find(4);  // -1
  int Find(double x);

  /// Returns 1 and sets `index` to that of an element equal to `x`; returns 0 when there is none.
  ///
  /// With `sorted` 0 it is Find, and a miss sets `index` to -1. Otherwise it is a binary search: of
  /// several equal elements it finds the one it probes first, and a miss leaves `index` unchanged.
  /// It trusts the flag: elements changed since the sort may not be found.
  int BinarySearch(double x, int& index);

  /// Removes the first element equal to `x`; returns 1, or 0 when there is none.
  ///
  /// Later elements move down by one, `size` drops by 1, the block stays; `sorted` stays as it is.
  ///
  ///     double v[] = {9, 3, 5};
  ///     CZEPHDoubleArray a(3, v);
  ///     a.Remove(3);  // 1
  ///     a;            // (9, 5)
  int Remove(double x);

  /// Merges the ascending blocks `a` (`na` values) and `b` (`nb` values) into `out`, which holds
  /// `na` + `nb`; of equal values that of `b` comes first. This array itself is not used.
  ///
  /// Where `out` overlaps a block, the result is that of reading and writing one value at a time,
  /// front to back; otherwise the order of the writes is unspecified. Nothing is checked.
  ///
  ///     double a[] = {1, 5}, b[] = {2, 3, 9}, out[5];
  ///     CZEPHDoubleArray().MergeSortedArray(a, 2, b, 3, out);
  ///     out;  // (1, 2, 3, 5, 9)
  void MergeSortedArray(double* const a, int na, double* const b, int nb, double* const out);

  // --- norms and random fill ---

  /// The sum of absolute values, added in index order; 0.0 when empty.
  ///
  ///     double v[] = {3, -4};
  ///     CZEPHDoubleArray(2, v).OneNorm();  // 7
  double OneNorm() const;

  /// The square root of the sum of squares, added in index order without scaling; 0.0 when empty.
  ///
  ///     double v[] = {3, -4};
  ///     CZEPHDoubleArray(2, v).TwoNorm();  // 5
  double TwoNorm() const;

  /// The largest absolute value; 0.0 when empty.
  ///
  /// A NaN in element 0 is the result; NaNs elsewhere are skipped.
  ///
  ///     double v[] = {3, -4};
  ///     CZEPHDoubleArray(2, v).MaxNorm();  // 4
  double MaxNorm() const;

  /// Fills the array with pseudo-random whole numbers from 0 to 998; sets `sorted` to 0.
  ///
  /// Seeds the C runtime's generator (with ZEPH_PORTABLE_MATH the library's), which the whole process
  /// shares, with the time in seconds on every call: two calls within a second give the same numbers.
  ///
  ///     CZEPHDoubleArray a(100, 0.0);
  ///     a.Random();
  ///     a.MaxNorm() <= 998;  // 1
  void Random();

  int sorted;    ///< 1 when the elements are known to be in ascending order. BinarySearch reads it.
  int size;      ///< The number of elements in use.
  double* data;  ///< The storage, from `new[]`; null when there is none.

 protected:
  /// Sets `size` to `n`, then asks for a block of `n` doubles: 1, or 0 when memory runs out.
  ///
  /// On success `data` is the new block, uninitialised, and `sorted` is 0; a block held before is
  /// not released. On failure `data` and `sorted` are unchanged. A negative count fails.
  int AllocMemory(int n);

  /// Releases the storage and sets `data` to null; `size` stays as it is.
  ///
  ///     struct Pool : CZEPHDoubleArray {
  ///       int Renew(int n) { return FreeMemory(), AllocMemory(n); }
  ///     };
  ///     Pool pool;
  ///     pool.Renew(7);   // 1
  ///     pool.GetSize();  // 7
  void FreeMemory();

  // --- additions ---
 public:
  /// As CZEPHDoubleArray(int, double), from a whole number; makes `CZEPHDoubleArray(3, 0)` compile.
  template <class Whole, std::enable_if_t<std::is_integral_v<Whole>, int> = 0>
  ZEPH_ADDED CZEPHDoubleArray(int n, Whole v) : CZEPHDoubleArray(n, static_cast<double>(v)) {}

  /// As CZEPHDoubleArray(int, double*), from a block of constants.
  template <class T, std::enable_if_t<std::is_same_v<T, const double>, int> = 0>
  ZEPH_ADDED CZEPHDoubleArray(int n, T* src) : CZEPHDoubleArray(n, const_cast<double*>(src)) {}

  /// Takes over the elements of `other`, which is left empty; `sorted` starts at 0, as in a copy.
  ZEPH_ADDED CZEPHDoubleArray(CZEPHDoubleArray&& other) noexcept
      : sorted(0), size(other.size), data(other.data) {
    if (data) {
      other.size = 0;
      other.data = nullptr;
    } else {
      AllocMemory(other.size);  // as the copy of an array without storage
    }
  }

  /// The elements as an iterator range; empty without storage or with a count below 1.
  ZEPH_ADDED double* begin() { return data; }
  ZEPH_ADDED double* end() { return data && size > 0 ? data + size : data; }
  ZEPH_ADDED const double* begin() const { return data; }
  ZEPH_ADDED const double* end() const { return data && size > 0 ? data + size : data; }
};

// --- arithmetic: results are new arrays with `sorted` 0 ------------------------------------------
//
// Where memory runs out, the result has its size and no storage.

/// The sums `a[i] + b[i]`. Different sizes are fatal: "bad vector sizes".
///
///     const CZEPHDoubleArray a(2, 1.0), b(2, 0.25);
///     a + b;  // (1.25, 1.25)
ZEPH_API CZEPHDoubleArray operator+(const CZEPHDoubleArray& a, const CZEPHDoubleArray& b);
/// The differences `a[i] - b[i]`. Different sizes are fatal: "bad vtor sizes".
///
///     const CZEPHDoubleArray a(2, 1.0), b(2, 0.25);
///     a - b;  // (0.75, 0.75)
ZEPH_API CZEPHDoubleArray operator-(const CZEPHDoubleArray& a, const CZEPHDoubleArray& b);
/// A copy of `a`.
ZEPH_API CZEPHDoubleArray operator+(const CZEPHDoubleArray& a);
/// The differences `0.0 - a[i]`; so 0.0 gives 0.0.
///
///     const CZEPHDoubleArray a(2, 1.5);
///     -a;  // (-1.5, -1.5)
///     +a;  // (1.5, 1.5)
ZEPH_API CZEPHDoubleArray operator-(const CZEPHDoubleArray& a);
/// The products `a[i] * b[i]`, as many as `a` has; `b` must hold at least that many (unchecked).
/// The dot product is ZEPH_ArrayDotProduct.
///
///     const CZEPHDoubleArray a(2, 1.5), b(2, 3.0);
///     a * b;  // (4.5, 4.5)
ZEPH_API CZEPHDoubleArray operator*(const CZEPHDoubleArray& a, const CZEPHDoubleArray& b);
/// The products `s * a[i]`.
ZEPH_API CZEPHDoubleArray operator*(double s, const CZEPHDoubleArray& a);
/// The same as `s * a`.
ZEPH_API CZEPHDoubleArray operator*(const CZEPHDoubleArray& a, double s);
/// `(1.0 / s) * a`: multiplied by the reciprocal, not divided. `s` may be zero.
///
///     const CZEPHDoubleArray a(2, 1.5);
///     a * 2.0;  // (3, 3)
///     a / 2.0;  // (0.75, 0.75)
ZEPH_API CZEPHDoubleArray operator/(const CZEPHDoubleArray& a, double s);

/// The sum of `a[i] * b[i]` over the elements of `a`, added in index order; 0.0 when either is
/// empty.
///
/// `b` must hold at least as many elements as `a`; that is unchecked.
///
///     const CZEPHDoubleArray a(2, 1.5), b(2, 3.0);
///     ZEPH_ArrayDotProduct(a, b);  // 9
ZEPH_API double ZEPH_ArrayDotProduct(const CZEPHDoubleArray& a, const CZEPHDoubleArray& b);

// --- text ----------------------------------------------------------------------------------------

/// Writes "Elements of the vector are: \n" and the elements: up to four on one line, two blanks
/// after each; five or more on a line each.
///
///     std::cout << CZEPHDoubleArray(2, 0.5); // prints "Elements of the vector are: \n0.5  0.5  \n"
ZEPH_API std::ostream& operator<<(std::ostream& os, const CZEPHDoubleArray& a);

/// Reads a count and that many values into the storage that the array has.
///
/// Allocates nothing: the array must have storage for as many values as the stream announces, which
/// is not checked. Without storage for a count above 0, or when a read fails, `size` becomes 0;
/// a negative count is stored. `sorted` stays as it is.
///
///     CZEPHDoubleArray a(3, 0.0);
///     std::istringstream("3  1 2.5 4") >> a;
///     a;  // (1, 2.5, 4)
ZEPH_API std::istream& operator>>(std::istream& is, CZEPHDoubleArray& a);

// --- additions -----------------------------------------------------------------------------------

/// As the forms for constants; the result takes over the storage of a temporary operand, so that
/// `a + b + c + d` allocates once.
inline ZEPH_ADDED CZEPHDoubleArray operator+(CZEPHDoubleArray&& a, const CZEPHDoubleArray& b) {
  if (!a.data || !b.data) return static_cast<const CZEPHDoubleArray&>(a) + b;
  return std::move(a += b);
}
inline ZEPH_ADDED CZEPHDoubleArray operator+(const CZEPHDoubleArray& a, CZEPHDoubleArray&& b) {
  if (!a.data || !b.data) return a + static_cast<const CZEPHDoubleArray&>(b);
  return std::move(b += a);
}
inline ZEPH_ADDED CZEPHDoubleArray operator+(CZEPHDoubleArray&& a, CZEPHDoubleArray&& b) {
  return std::move(a) + static_cast<const CZEPHDoubleArray&>(b);
}
inline ZEPH_ADDED CZEPHDoubleArray operator-(CZEPHDoubleArray&& a, const CZEPHDoubleArray& b) {
  if (!a.data || !b.data) return static_cast<const CZEPHDoubleArray&>(a) - b;
  return std::move(a -= b);
}

#endif  // ZEPH_DOUBLE_ARRAY_H
