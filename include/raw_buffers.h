// SPDX-License-Identifier: MIT
//
/// @file
/// Functions over plain heap buffers: arrays and matrices of double, float, int and 32-bit long
/// whose index ranges the caller chooses, their listings, norms and products, and fixed-size
/// geometry.
//
//   1  Offset arrays    ZEPH_ArrayAlloc*, ZEPH_ArrayFree
//   2  0-based blocks   ZEPH_ArrayRealloc, ZEPH_ArrayResize
//   3  Matrices         ZEPH_MatrixAlloc*, ZEPH_MatrixFree, ZEPH_MatrixResize
//   4  Listings         ZEPH_ArrayDisplay, ZEPH_MatrixPrint, ..Print3, ..Print4, ZEPH_VectorPrint3
//   5  Norms            ZEPH_Array{One,Two,Two2,Max}Norm, ZEPH_Matrix{One,Max}Norm,
//                       ZEPH_MatrixFrobNorm, ..FrobNorm2, ..FrobNorm3
//   6  Whole buffers    ZEPH_ArrayMergeSorted, ZEPH_MatrixMult, ZEPH_MatrixTranspose,
//                       ZEPH_MatrixSetIdentity
//   7  3x3 and 4x4      ZEPH_MatrixSet3, ..Multiply3, ..Mult3, ..Mult4, ..Rotate3{X,Y,Z},
//                       ..Rotate3, ..Transform3, ..Transpose3
//   8  3-vectors        ZEPH_VectorAdd3, ..Sub3, ..Scale3, ..Assign3, ..CrossProduct3,
//                       ..DotProduct3, ..GetLength3, ..Normalize3
//   9  Literal labels   the labelled functions with overloads again, for string literals
//  10  Whole numbers    ZEPH_VectorAssign3 from an int
//
//     double* x = ZEPH_ArrayAllocDouble("x", 1, 10);  // x[1] .. x[10], all 0.0
//     if (!x) return;                                 // empty range, or no memory
//     x[10] = 2.5;
//     ZEPH_ArrayDisplay(stdout, x, 1, 10, "x");
//     ZEPH_ArrayFree(x, 1, 10);                       // the same range again
//
// The caller owns every buffer. No function keeps state, throws anything of its own or reports an
// error; each is as thread-safe as the buffers it is given. Unless a function says otherwise
// nothing is checked: pointers are live, indices lie inside the buffers. `long` elements are 32
// bits wide on every system and spelled ZEPH_Long. Labels (`char* name`) are never changed.
#ifndef ZEPH_RAW_BUFFERS_H
#define ZEPH_RAW_BUFFERS_H

#include <cstddef>
#include <cstdio>
#include <type_traits>
#include <utility>

#include "platform.h"

// ---- 1  Offset arrays ---------------------------------------------------------------------------
//
// One heap block of hi - lo + 1 elements, handed out as a pointer moved back by `lo` elements, so
// that exactly p[lo] .. p[hi] are valid, whatever `lo` is. p + lo is the block; for lo = 1 the
// element p[0] does not exist.

/// A new array of doubles with the indices lo..hi, every element 0.0; null if allocation fails.
///
/// @param name  the caller's label for the array: ignored, may be null.
/// @param lo    lowest index, any int.
/// @param hi    highest index, any int; `hi == lo` gives one element.
///
/// Null without a request when the range is empty or inverted (hi < lo) or counts more than 2^31 -
/// 1 elements; null as well, quietly, when memory runs out: the allocation operator's
/// `CMemoryException*` and `std::bad_alloc` both count, any other exception passes. The block comes
/// from `operator new[]`; release it with ZEPH_ArrayFree and the same range. Cost: one allocation,
/// one fill.
///
///     double* p = ZEPH_ArrayAllocDouble("p", -3, 3);  // p[-3] .. p[3]
ZEPH_API double* ZEPH_ArrayAllocDouble(char* name, int lo, int hi);
/// As above; `bytes` receives the size of the block, (hi - lo) * 8 + 8.
///
/// The size is assigned (not added), on success only, and computed in 32-bit arithmetic: it wraps
/// for blocks of 2 GiB and more.
ZEPH_API double* ZEPH_ArrayAllocDouble(char* name, int lo, int hi, long int& bytes);
/// As ZEPH_ArrayAllocDouble, for floats.
ZEPH_API float* ZEPH_ArrayAllocFloat(char* name, int lo, int hi);
/// As above; `bytes` receives the size of the block, (hi - lo) * 4 + 4, by the same rules.
///
///     long bytes;
///     float* p = ZEPH_ArrayAllocFloat("p", 1, 10, bytes);  // p[1] .. p[10]
///     bytes;                                               // 40
///     ZEPH_ArrayFree(p, 1, 10);
ZEPH_API float* ZEPH_ArrayAllocFloat(char* name, int lo, int hi, long int& bytes);
/// As ZEPH_ArrayAllocDouble, for ints.
ZEPH_API int* ZEPH_ArrayAllocInt(char* name, int lo, int hi);
/// As above; `bytes` receives the size of the block, (hi - lo) * 4 + 4, by the same rules.
ZEPH_API int* ZEPH_ArrayAllocInt(char* name, int lo, int hi, long int& bytes);
/// As ZEPH_ArrayAllocDouble, for 32-bit longs.
ZEPH_API ZEPH_Long* ZEPH_ArrayAllocLong(char* name, int lo, int hi);
/// As above; `bytes` receives the size of the block, (hi - lo) * 4 + 4, by the same rules.
///
///     long bytes;
///     ZEPH_Long* p = ZEPH_ArrayAllocLong("p", 0, 4, bytes);  // p[0] .. p[4]
///     bytes;                                                 // 20
///     ZEPH_ArrayFree(p, 0, 4);
ZEPH_API ZEPH_Long* ZEPH_ArrayAllocLong(char* name, int lo, int hi, long int& bytes);

/// Releases an offset array: the block at p + lo, with `operator delete[]`.
///
/// `lo` is the one that allocated it (not checked); `hi` is not used. Does nothing when `p` or
/// p + lo is null.
///
///     int* p = ZEPH_ArrayAllocInt("p", -3, 3);
///     ZEPH_ArrayFree(p, -3, 3);  // the range that it was allocated with
ZEPH_API void ZEPH_ArrayFree(int* p, int lo, int hi);
ZEPH_API void ZEPH_ArrayFree(ZEPH_Long* p, int lo, int hi);
ZEPH_API void ZEPH_ArrayFree(float* p, int lo, int hi);
ZEPH_API void ZEPH_ArrayFree(double* p, int lo, int hi);

// ---- 2  0-based blocks --------------------------------------------------------------------------
//
// These two take and return blocks whose pointer is the block itself: arrays allocated with lo = 0,
// or results of these two functions.

/// A new 0-based block with the indices 0..newN, the start copied from `old`, the rest zero; `old`
/// is released.
///
/// How much is copied differs by element type, and programs rely on it:
///   - int: min(oldN, newN) elements -- the sizes are taken as counts;
///   - long, float, double: min(oldN, newN) + 1 elements -- as highest indices.
/// Growing or shrinking both work. Null, with `old` valid and still the caller's, when newN < -1 or
/// newN = 2^31 - 1 or memory runs out (as for ZEPH_ArrayAllocDouble). newN = -1 gives a block
/// without elements. A null `old` gives a zeroed block. `name` is ignored and may be null.
///
///     int* a = ZEPH_ArrayAllocInt("a", 0, 4);
///     a = ZEPH_ArrayRealloc(a, 5, 8, "a");  // 9 ints: 5 copied, 4 zero
ZEPH_API int* ZEPH_ArrayRealloc(int* old, int oldN, int newN, char* name);
ZEPH_API ZEPH_Long* ZEPH_ArrayRealloc(ZEPH_Long* old, int oldN, int newN, char* name);
ZEPH_API float* ZEPH_ArrayRealloc(float* old, int oldN, int newN, char* name);
ZEPH_API double* ZEPH_ArrayRealloc(double* old, int oldN, int newN, char* name);

/// A new 0-based block of `newCount` elements: the first `oldCount` from `old`, then zeros; `old`
/// is released.
///
/// Grows or keeps the size (which still gives a fresh block). Null, with `old` untouched and still
/// the caller's, when newCount < oldCount, newCount < 0 or memory runs out (as for
/// ZEPH_ArrayAllocDouble). A negative `oldCount` counts as 0; a null `old` has no elements to copy.
///
///     int* a = ZEPH_ArrayAllocInt("a", 0, 1);
///     a[0] = 7, a[1] = 8;
///     a = ZEPH_ArrayResize(a, 2, 4);
///     a;                              // (7, 8, 0, 0)
///     ZEPH_ArrayFree(a, 0, 3);
ZEPH_API int* ZEPH_ArrayResize(int* old, int oldCount, int newCount);
ZEPH_API ZEPH_Long* ZEPH_ArrayResize(ZEPH_Long* old, int oldCount, int newCount);
ZEPH_API float* ZEPH_ArrayResize(float* old, int oldCount, int newCount);
ZEPH_API double* ZEPH_ArrayResize(double* old, int oldCount, int newCount);

// ---- 3  Matrices --------------------------------------------------------------------------------
//
// A block of row pointers, and one block per row. Count form: m[i][j] for 0 <= i < rows and
// 0 <= j < cols. Range form: m[i][j] for nrl <= i <= nrh and ncl <= j <= nch; the pointer block is
// m + nrl, row i's block is m[i] + ncl. Rows need not be adjacent in memory.

/// A new matrix of `rows` by `cols` doubles, 0-based, every element 0.0; null when it cannot be
/// allocated.
///
/// @param name  ignored, may be null.
///
/// Null without a request when rows < 1 or cols < 1. Null, quietly, when memory runs out (the
/// allocation operator's `CMemoryException*` and `std::bad_alloc`; any other exception passes);
/// what was allocated by then, the pointer block and the rows before the failing one, is leaked.
/// Requests: the pointer block, then the rows in ascending order. Release with ZEPH_MatrixFree(m,
/// rows, cols).
ZEPH_API double** ZEPH_MatrixAllocDouble(char* name, int rows, int cols);
/// As above; `bytes` receives rows * cols * 8, the row pointers not counted.
///
/// Assigned on success only, computed in 32-bit arithmetic that wraps.
ZEPH_API double** ZEPH_MatrixAllocDouble(char* name, int rows, int cols, long int& bytes);
/// A new matrix of doubles with the rows nrl..nrh and the columns ncl..nch, every element 0.0.
///
/// Any int bounds, both inclusive. Null without a request when either range is empty, inverted or
/// counts more than 2^31 - 1; exhaustion as in the count form. Release with
/// ZEPH_MatrixFree(m, nrl, nrh, ncl, nch).
///
///     double** m = ZEPH_MatrixAllocDouble("m", 1, 3, 1, 4);  // m[1][1] .. m[3][4]
ZEPH_API double** ZEPH_MatrixAllocDouble(char* name, int nrl, int nrh, int ncl, int nch);
/// As above; `bytes` receives (nrh - nrl + 1) * (nch - ncl + 1) * 8 by the same rules.
ZEPH_API double** ZEPH_MatrixAllocDouble(char* name, int nrl, int nrh, int ncl, int nch,
                                         long int& bytes);

/// As the four ZEPH_MatrixAllocDouble, for floats; 4 bytes an element.
///
///     float** m = ZEPH_MatrixAllocFloat("m", 2, 3);  // m[0][0] .. m[1][2]
///     m[1][2];                                   // 0
///     ZEPH_MatrixFree(m, 2, 3);
ZEPH_API float** ZEPH_MatrixAllocFloat(char* name, int rows, int cols);
ZEPH_API float** ZEPH_MatrixAllocFloat(char* name, int rows, int cols, long int& bytes);
ZEPH_API float** ZEPH_MatrixAllocFloat(char* name, int nrl, int nrh, int ncl, int nch);
ZEPH_API float** ZEPH_MatrixAllocFloat(char* name, int nrl, int nrh, int ncl, int nch,
                                       long int& bytes);

/// As the four ZEPH_MatrixAllocDouble, for ints; 4 bytes an element.
///
///     int** m = ZEPH_MatrixAllocInt("m", 2, 3);  // m[0][0] .. m[1][2]
///     m[1][2];                                 // 0
///     ZEPH_MatrixFree(m, 2, 3);
ZEPH_API int** ZEPH_MatrixAllocInt(char* name, int rows, int cols);
ZEPH_API int** ZEPH_MatrixAllocInt(char* name, int rows, int cols, long int& bytes);
ZEPH_API int** ZEPH_MatrixAllocInt(char* name, int nrl, int nrh, int ncl, int nch);
ZEPH_API int** ZEPH_MatrixAllocInt(char* name, int nrl, int nrh, int ncl, int nch, long int& bytes);

/// As the four ZEPH_MatrixAllocDouble, for 32-bit longs; 4 bytes an element.
///
///     ZEPH_Long** m = ZEPH_MatrixAllocLong("m", 2, 3);  // m[0][0] .. m[1][2]
///     m[1][2];                                      // 0
///     ZEPH_MatrixFree(m, 2, 3);
ZEPH_API ZEPH_Long** ZEPH_MatrixAllocLong(char* name, int rows, int cols);
ZEPH_API ZEPH_Long** ZEPH_MatrixAllocLong(char* name, int rows, int cols, long int& bytes);
ZEPH_API ZEPH_Long** ZEPH_MatrixAllocLong(char* name, int nrl, int nrh, int ncl, int nch);
ZEPH_API ZEPH_Long** ZEPH_MatrixAllocLong(char* name, int nrl, int nrh, int ncl, int nch,
                                          long int& bytes);

/// Releases a count-form matrix: its rows from the last to the first, then the pointer block.
///
/// Null rows are skipped; `cols` is not used; with rows <= 0 only the pointer block is released. A
/// null `m` does nothing. `rows` is the one that allocated it (not checked).
///
///     double** m = ZEPH_MatrixAllocDouble("m", 2, 3);
///     ZEPH_MatrixFree(m, 2, 3);
ZEPH_API void ZEPH_MatrixFree(int** m, int rows, int cols);
ZEPH_API void ZEPH_MatrixFree(ZEPH_Long** m, int rows, int cols);
ZEPH_API void ZEPH_MatrixFree(float** m, int rows, int cols);
ZEPH_API void ZEPH_MatrixFree(double** m, int rows, int cols);

/// Releases a range-form matrix: the row blocks m[i] + ncl from nrh down to nrl, then m + nrl.
///
/// Null rows, and rows whose block is null, are skipped; `nch` is not used; with nrh < nrl only the
/// pointer block is released. A null `m` does nothing. The lower bounds are those that allocated it
/// (not checked).
///
///     double** m = ZEPH_MatrixAllocDouble("m", 1, 2, 1, 3);  // m[1][1] .. m[2][3]
///     ZEPH_MatrixFree(m, 1, 2, 1, 3);
ZEPH_API void ZEPH_MatrixFree(int** m, int nrl, int nrh, int ncl, int nch);
ZEPH_API void ZEPH_MatrixFree(ZEPH_Long** m, int nrl, int nrh, int ncl, int nch);
ZEPH_API void ZEPH_MatrixFree(float** m, int nrl, int nrh, int ncl, int nch);
ZEPH_API void ZEPH_MatrixFree(double** m, int nrl, int nrh, int ncl, int nch);

/// A new matrix 0..newRowHi by 0..newColHi with the old cells copied and zeros beside them; `old`
/// is released.
///
/// All bounds are highest indices; both matrices start at 0 on both axes. Null, with `old`
/// untouched and still the caller's, when either bound would shrink, the new range is empty or
/// memory runs out (then what was allocated of the new matrix is leaked, as in the allocation).
/// Nothing is copied for a negative old bound, and nothing from a null `old` or a null row of it.
///
///     double** m = ZEPH_MatrixAllocDouble("m", 3, 3);
///     m = ZEPH_MatrixResize(m, 2, 2, 4, 3);  // now 5 by 4
///     ZEPH_MatrixFree(m, 0, 4, 0, 3);
ZEPH_API int** ZEPH_MatrixResize(int** old, int oldRowHi, int oldColHi, int newRowHi, int newColHi);
ZEPH_API ZEPH_Long** ZEPH_MatrixResize(ZEPH_Long** old, int oldRowHi, int oldColHi, int newRowHi,
                                       int newColHi);
ZEPH_API float** ZEPH_MatrixResize(float** old, int oldRowHi, int oldColHi, int newRowHi,
                                   int newColHi);
ZEPH_API double** ZEPH_MatrixResize(double** old, int oldRowHi, int oldColHi, int newRowHi,
                                    int newColHi);

// ---- 4  Listings --------------------------------------------------------------------------------
//
// Text for reports and debugging. A label is data: percent signs in it are printed as they are, a
// null label as "(null)". The decimal point of the caller's locale, the digits of an exponent and
// the spelling of infinities and NaN are the C runtime's; with ZEPH_PORTABLE_MATH they are glibc's
// in the C locale everywhere. Output errors are ignored. The text is composed in blocks and written
// with few calls; writing to a stream allocates nothing.

/// Appends a listing of a[lo] .. a[hi] to `out`; lines end in "\r\n".
///
/// Each item reads `label[index]=value`: ints as "%-5d" and three blanks, doubles as "%-5.4le" and
/// four. A line ends after every index that is a multiple of 5 other than 0 (negative multiples
/// too), and once more after the last item, always; so indices 0..5 share the first line, a range
/// that ends at a multiple of 5 ends in two line ends, and an empty range (hi < lo) gives one. `a`
/// is addressed with the caller's indices, as an offset array. `out` keeps its text; it is appended
/// to once, so a label inside `out` is safe. An exception from its growth passes to the caller,
/// with `out` unchanged.
ZEPH_API void ZEPH_ArrayDisplay(CString& out, int* a, int lo, int hi, char* name);
ZEPH_API void ZEPH_ArrayDisplay(CString& out, double* a, int lo, int hi, char* name);
/// As above for a[0] .. a[n - 1]; no item when n <= 0.
ZEPH_API void ZEPH_ArrayDisplay(CString& out, int* a, int n, char* name);
ZEPH_API void ZEPH_ArrayDisplay(CString& out, double* a, int n, char* name);

/// Lists a[lo] .. a[hi] on the standard output; lines end in "\n".
///
/// As the listing to a CString, but both ints and doubles are followed by two blanks.
///
///     int a[] = {0, 7, 8};
///     ZEPH_ArrayDisplay(a, 1, 2, "a");  // prints "a[1]=7      a[2]=8      \n"
ZEPH_API void ZEPH_ArrayDisplay(int* a, int lo, int hi, char* name);
ZEPH_API void ZEPH_ArrayDisplay(double* a, int lo, int hi, char* name);
/// As above for a[0] .. a[n - 1]. There is no such overload for doubles.
ZEPH_API void ZEPH_ArrayDisplay(int* a, int n, char* name);

/// Lists a[lo] .. a[hi] on `stream`, which is open for writing; lines end in "\n".
///
/// As the listing to a CString, but ints are followed by two blanks and doubles by three.
ZEPH_API void ZEPH_ArrayDisplay(FILE* stream, int* a, int lo, int hi, char* name);
ZEPH_API void ZEPH_ArrayDisplay(FILE* stream, double* a, int lo, int hi, char* name);
/// As above for a[0] .. a[n - 1]; no item when n <= 0.
ZEPH_API void ZEPH_ArrayDisplay(FILE* stream, int* a, int n, char* name);
ZEPH_API void ZEPH_ArrayDisplay(FILE* stream, double* a, int n, char* name);

/// Prints `name = ` and a line feed, then a line per row: each value of m[0..rows-1][0..cols-1] as
/// a tab and "%3.5f".
///
/// The first line keeps a blank before its line feed. With rows <= 0 it is the only output, and `m`
/// is not read; with cols <= 0 the rows are empty lines.
///
///     ZEPH_MatrixPrint(stdout, 2, 2, m, "m"); // prints "m = \n\t1.00000\t2.00000\n\t3.00000\t4.00000\n"
ZEPH_API void ZEPH_MatrixPrint(FILE* stream, int rows, int cols, double** m, char* name);
/// As above, n by n.
ZEPH_API void ZEPH_MatrixPrint(FILE* stream, int n, double** m, char* name);
/// As above, 3 by 3.
///
///     char name[] = "I";
///     double** identity = ZEPH_MatrixAllocDouble("I", 3, 3);
///     ZEPH_MatrixSetIdentity(3, identity);
///     ZEPH_MatrixPrint3(stdout, identity, name); // prints "I = \n\t1.00000\t0.00000\t0.00000\n..."
///     ZEPH_MatrixFree(identity, 3, 3);
ZEPH_API void ZEPH_MatrixPrint3(FILE* stream, double** m, char* name);
/// As above, 4 by 4.
ZEPH_API void ZEPH_MatrixPrint4(FILE* stream, double** m, char* name);
/// As above, for 16 contiguous doubles in row order.
///
///     double identity[16];
///     ZEPH_MatrixSetIdentity(identity);
///     ZEPH_MatrixPrint4(stdout, identity, "I"); // prints "I = \n\t1.00000\t0.00000\t0.00000\t0.00000\n..."
ZEPH_API void ZEPH_MatrixPrint4(FILE* stream, double* const m, char* name);
/// Prints v[0], v[1], v[2] on one line: `name = (1.00000 2.00000 3.00000)`.
///
///     double v[] = {1, 2, 3};
///     char name[] = "v";
///     ZEPH_VectorPrint3(stdout, v, name);  // prints "v = (1.00000 2.00000 3.00000)\n"
ZEPH_API void ZEPH_VectorPrint3(FILE* stream, double* const v, char* name);

// ---- 5  Norms -----------------------------------------------------------------------------------
//
// `n` counts elements and `start` is the first index: start .. start + n - 1. Sums run in ascending
// index order, to the last bit. The array norms read a[start] for every `n`, and for n <= 1 return
// the norm of that element, never 0.0 for an empty count.
//
// The scaled step behind three of the norms extends a length r by x >= 0: sqrt(r*r + x*x) where
// both are below 100.0; otherwise the larger of them times sqrt(1 + q*q), q the smaller over the
// larger. Large entries cannot overflow; the cost is a division and a square root per element.

/// Sum of absolute values, |a[start]| first.
///
///     double a[] = {9, -2, 3};
///     ZEPH_ArrayOneNorm(a, 2, 1);  // 5
ZEPH_API double ZEPH_ArrayOneNorm(double* a, int n, int start);
/// Euclidean norm: the square root of the plain sum of squares, which may overflow.
///
///     double a[] = {9, 3, -4};
///     ZEPH_ArrayTwoNorm(a, 2, 1);  // 5
ZEPH_API double ZEPH_ArrayTwoNorm(double* a, int n, int start);
/// Euclidean norm by scaled steps, |a[start]| first.
///
///     double a[] = {9, 3, -4};
///     ZEPH_ArrayTwoNorm2(a, 2, 1);  // 5
ZEPH_API double ZEPH_ArrayTwoNorm2(double* a, int n, int start);
/// Largest absolute value.
///
/// The running maximum is replaced unless it is strictly greater, so a NaN counts only if it is the
/// last element; the elements before a NaN are lost.
///
///     double a[] = {9, 3, -4};
///     ZEPH_ArrayMaxNorm(a, 2, 1);  // 4
ZEPH_API double ZEPH_ArrayMaxNorm(double* a, int n, int start);

/// Largest column sum of absolute values over rows and columns start .. start + n - 1.
///
/// 0.0 for n <= 0, reading nothing. Columns in ascending order; the running maximum is replaced
/// unless it is strictly greater.
///
///     ZEPH_MatrixOneNorm(m, 2, 0);  // 6, of the rows (1, 2), (3, 4)
ZEPH_API double ZEPH_MatrixOneNorm(double** m, int n, int start);
/// Largest row sum of absolute values over rows start .. start + n - 1 but columns 0 .. n - 1.
///
/// The row sums are ZEPH_ArrayOneNorm(m[i], n, 0); row `start` is read for every `n`, and for n <=
/// 0 the result is |m[start][0]|. The running maximum is replaced unless it is strictly greater.
///
///     ZEPH_MatrixMaxNorm(m, 2, 0);  // 7, of the rows (1, 2), (3, 4)
ZEPH_API double ZEPH_MatrixMaxNorm(double** m, int n, int start);
/// Frobenius norm: the row norms combined by scaled steps, rows from `start` but columns from 0.
///
/// The row norms are ZEPH_ArrayTwoNorm2(m[i], n, 0); for n <= 1 that of row `start` is the result.
///
///     double row0[] = {1, 4}, row1[] = {2, 2};
///     double* rows[] = {row0, row1};
///     ZEPH_MatrixFrobNorm(rows, 2, 0);  // 5
ZEPH_API double ZEPH_MatrixFrobNorm(double** m, int n, int start);
/// Frobenius norm: scaled steps over every element of rows and columns start .. start + n - 1, row
/// by row. 0.0 for n <= 0, reading nothing.
///
///     double row0[] = {1, 4}, row1[] = {2, 2};
///     double* rows[] = {row0, row1};
///     ZEPH_MatrixFrobNorm2(rows, 2, 0);  // 5
ZEPH_API double ZEPH_MatrixFrobNorm2(double** m, int n, int start);
/// Frobenius norm: square root of the plain sum of squares over rows and columns
/// start .. start + n - 1, row by row. 0.0 for n <= 0, reading nothing.
///
///     double row0[] = {1, 4}, row1[] = {2, 2};
///     double* rows[] = {row0, row1};
///     ZEPH_MatrixFrobNorm3(rows, 2, 0);  // 5
ZEPH_API double ZEPH_MatrixFrobNorm3(double** m, int n, int start);

// ---- 6  Whole buffers ---------------------------------------------------------------------------

/// Merges a[0..na-1] and b[0..nb-1], both ascending, into out[0..na+nb-1].
///
/// Of equal elements the one of `b` goes first (so does `b`'s where either is a NaN). A count <= 0
/// is an empty input. `out` must not overlap `a` or `b`. Cost: na + nb moves.
///
///     int a[] = {1, 5}, b[] = {2, 3, 9}, out[5];
///     ZEPH_ArrayMergeSorted(a, 2, b, 3, out);
///     out;  // (1, 2, 3, 5, 9)
ZEPH_API void ZEPH_ArrayMergeSorted(int* const a, int na, int* const b, int nb, int* const out);
ZEPH_API void ZEPH_ArrayMergeSorted(double* const a, int na, double* const b, int nb,
                                    double* const out);

/// The additive routine: assigns out[i][j] = b[k][j] + a[i][k] for every i < rowsA, j < colsB,
/// k < colsA, in this nesting.
///
/// Despite its name this is no matrix product: nothing is multiplied or accumulated, and the last k
/// determines the result. For an `out` separate from `a` and `b` it is out[i][j] = a[i][colsA-1] +
/// b[colsA-1][j]. Later reads see each assignment, so `out` may share rows or parts of rows with
/// `a`, `b` or itself, and gets exactly these cells. Does nothing unless colsA == rowsB, rowsA >= 1
/// and no pointer is null; writes nothing with colsA <= 0 or colsB <= 0.
///
/// Cost: one step per cell; a cell that is its own last operand takes the steps it depends on.
/// CZEPHDoubleMatrix and CZEPHMatrix multiply.
///
///     double cells[2][2];
///     double* out[] = {cells[0], cells[1]};
///     ZEPH_MatrixMult(2, 2, m, 2, 2, m, out);  // m has the rows (1, 2), (3, 4)
///     cells[0];                                // (5, 6): 2 + 3, 2 + 4
ZEPH_API void ZEPH_MatrixMult(int rowsA, int colsA, double** a, int rowsB, int colsB, double** b,
                              double** out);

/// b = transpose of a, flat: b[i*n + j] = a[j*n + i], filled row by row. Nothing for n < 1.
///
/// `a` and `b` must be distinct: in place, the plain row-by-row copy loses half of the matrix.
///
///     double a[] = {1, 2, 3, 4}, b[4];
///     ZEPH_MatrixTranspose(2, a, b);
///     b;  // (1, 3, 2, 4)
ZEPH_API void ZEPH_MatrixTranspose(int n, double* a, double* b);
/// b[i][j] = a[j][i] for i, j in 0 .. n - 1. Nothing for n < 1.
///
/// The rows of `b` must share no storage with those of `a` (in place, half of the matrix is lost).
ZEPH_API void ZEPH_MatrixTranspose(int n, double** a, double** b);

/// m becomes the n-by-n identity: every row zeroed first, then m[i][i] = 1.0. Nothing for n < 1.
///
///     double cells[2][2];
///     double* rows[] = {cells[0], cells[1]};
///     ZEPH_MatrixSetIdentity(2, rows);
///     cells[1];  // (0, 1)
ZEPH_API void ZEPH_MatrixSetIdentity(int n, double** m);

// ---- 7  3x3 and 4x4 -----------------------------------------------------------------------------
//
// A 3x3 matrix is `double m[3][3]`; a 4x4 one is 16 contiguous doubles, element (i, j) at 4*i + j.
// Angles are degrees, converted as angle * 3.141592653589793 / 180.0; sine and cosine are the C
// runtime's, or with ZEPH_PORTABLE_MATH our own.

/// Stores the nine values row by row.
///
///     double m[3][3];
///     ZEPH_MatrixSet3(m, 1, 2, 3, 4, 5, 6, 7, 8, 9);
///     m[1];  // (4, 5, 6)
ZEPH_API void ZEPH_MatrixSet3(double m[3][3], double m00, double m01, double m02, double m10,
                              double m11, double m12, double m20, double m21, double m22);
/// The 4x4 identity: 16 doubles.
ZEPH_API void ZEPH_MatrixSetIdentity(double* const m);

/// out = a * b, each partial sum snapped to 0.0 where its magnitude is at most 1.0e-8.
///
/// A NaN is kept. `out` may be `a` or `b`.
///
///     double a[3][3] = {{1, 2, 0}, {3, 4, 0}, {0, 0, 1}}, out[3][3];
///     ZEPH_MatrixMultiply3(a, a, out);
///     out[0];  // (7, 10, 0)
///     out[1];  // (15, 22, 0)
ZEPH_API void ZEPH_MatrixMultiply3(double a[3][3], double b[3][3], double out[3][3]);
/// The additive routine on 3x3: assigns out[i][j] = b[k][j] + a[i][k] for i, then k, then j.
///
/// Not a matrix product. For an `out` separate from `a` and `b` it is out[i][j] = a[i][2] +
/// b[2][j]. Later reads see each assignment, so any overlap gets exactly these cells. Note the
/// nesting: k before j, unlike in ZEPH_MatrixMult. ZEPH_MatrixMultiply3 multiplies.
///
///     double a[3][3] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}, out[3][3];
///     ZEPH_MatrixMult3(a, a, out);
///     out[0];  // (10, 11, 12): 3 + 7, 3 + 8, 3 + 9
ZEPH_API void ZEPH_MatrixMult3(double a[3][3], double b[3][3], double out[3][3]);
/// out = a * b on 4x4 matrices, terms summed left to right, no snapping.
///
/// Written row by row straight into `out`, which must not share storage with `a` or `b`.
///
///     double a[16], b[16], out[16];
///     ZEPH_MatrixSetIdentity(a);
///     ZEPH_MatrixSetIdentity(b);
///     a[3] = 5, b[3] = 2;  // two translations along x
///     ZEPH_MatrixMult4(a, b, out);
///     out;                 // (1, 0, 0, 7)
ZEPH_API void ZEPH_MatrixMult4(double* const a, double* const b, double* const out);

/// m = m * Rx(angle), in degrees, by the snapped product of ZEPH_MatrixMultiply3.
///
/// Rx has the rows (1, 0, 0), (0, cos, -sin), (0, sin, cos). A rotation never resets `m`: set the
/// identity first for a pure rotation.
///
///     double m[3][3];
///     ZEPH_MatrixSet3(m, 1, 0, 0, 0, 1, 0, 0, 0, 1);
///     ZEPH_MatrixRotate3Z(m, 90);  // rows (0, -1, 0), (1, 0, 0), (0, 0, 1)
///     m[0];                         // (0, -1, 0)
///     ZEPH_MatrixRotate3X(m, 180);
///     m[0];                         // (0, 1, 0)
ZEPH_API void ZEPH_MatrixRotate3X(double m[3][3], double angle);
/// m = m * Ry(angle); Ry has the rows (cos, 0, sin), (0, 1, 0), (-sin, 0, cos).
///
///     double m[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
///     ZEPH_MatrixRotate3Y(m, 90);
///     m[0];  // (0, 0, 1)
ZEPH_API void ZEPH_MatrixRotate3Y(double m[3][3], double angle);
/// m = m * Rz(angle); Rz has the rows (cos, -sin, 0), (sin, cos, 0), (0, 0, 1).
ZEPH_API void ZEPH_MatrixRotate3Z(double m[3][3], double angle);
/// m = ((m * Rx(ax)) * Ry(ay)) * Rz(az), three snapped products.
///
///     double m[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
///     ZEPH_MatrixRotate3(m, 90, 0, 90);
///     m[2];  // (1, 0, 0)
ZEPH_API void ZEPH_MatrixRotate3(double m[3][3], double ax, double ay, double az);

/// (*x, *y, *z) = m * (*x, *y, *z), a column vector.
///
/// All three are computed from the values read first, then stored as x, y, z: where outputs alias,
/// the last one stored stays.
///
///     double m[3][3] = {{0, -1, 0}, {1, 0, 0}, {0, 0, 1}}, x = 1, y = 2, z = 3;
///     ZEPH_MatrixTransform3(m, &x, &y, &z);
///     y;  // 1
///     x;  // -2
ZEPH_API void ZEPH_MatrixTransform3(double m[3][3], double* x, double* y, double* z);
/// Transposes in place.
///
///     double m[3][3] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}};
///     ZEPH_MatrixTranspose3(m);
///     m[0];  // (1, 4, 7)
ZEPH_API void ZEPH_MatrixTranspose3(double m[3][3]);

// ---- 8  3-vectors -------------------------------------------------------------------------------
//
// Three contiguous doubles. Components are worked on in the order 0, 1, 2, each stored before the
// next is read; `out` may be an input where a component reads only its own.

/// out[k] = a[k] + b[k].
///
///     double a[] = {1, 2, 3}, b[] = {4, 6, 8};
///     ZEPH_VectorAdd3(a, b, b);  // b is (5, 8, 11)
ZEPH_API void ZEPH_VectorAdd3(double* const a, double* const b, double* const out);
/// out[k] = a[k] - b[k].
///
///     double a[] = {1, 2, 3}, b[] = {4, 6, 8};
///     ZEPH_VectorSub3(b, a, b);  // b is (3, 4, 5)
ZEPH_API void ZEPH_VectorSub3(double* const a, double* const b, double* const out);
/// out[k] = s * a[k].
///
///     double a[] = {1, 2, 3};
///     ZEPH_VectorScale3(a, 2, a);  // a is (2, 4, 6)
ZEPH_API void ZEPH_VectorScale3(double* const a, double s, double* const out);

/// dst[k] = src[k]. The source comes first, the destination second: programs rely on it.
///
///     double a[] = {1, 2, 3}, b[3];
///     ZEPH_VectorAssign3(a, b);  // b is (1, 2, 3)
ZEPH_API void ZEPH_VectorAssign3(double* const src, double* const dst);
/// v[k] = s.
///
///     double v[3];
///     ZEPH_VectorAssign3(v, 2.5);  // v is (2.5, 2.5, 2.5)
ZEPH_API void ZEPH_VectorAssign3(double* const v, double s);
/// v = (x, y, z).
///
///     double v[3];
///     ZEPH_VectorAssign3(v, 1, 2, 3);  // v is (1, 2, 3)
ZEPH_API void ZEPH_VectorAssign3(double* const v, double x, double y, double z);

/// out = a x b, each component stored before the next is computed; `out` must be neither input.
///
///     double x[] = {1, 0, 0}, y[] = {0, 1, 0}, out[3];
///     ZEPH_VectorCrossProduct3(x, y, out);  // out is (0, 0, 1)
ZEPH_API void ZEPH_VectorCrossProduct3(double* const a, double* const b, double* const out);
/// Dot product, evaluated as (a[1]*b[1] + a[0]*b[0]) + a[2]*b[2].
///
///     double a[] = {1, 2, 3}, b[] = {4, 6, 8};
///     ZEPH_VectorDotProduct3(a, b);  // 40
ZEPH_API double ZEPH_VectorDotProduct3(double* const a, double* const b);
/// Length: sqrt(v[0]^2 + v[1]^2 + v[2]^2), summed left to right.
///
///     double v[] = {2, 3, 6};
///     ZEPH_VectorGetLength3(v);  // 7
ZEPH_API double ZEPH_VectorGetLength3(double* const v);
/// Divides `v` by its length where that is above 0.0; a zero vector, or one whose length is NaN, is
/// left as it was.
///
///     double v[] = {0, 0, -2};
///     ZEPH_VectorNormalize3(v);  // v is (0, 0, -1)
ZEPH_API void ZEPH_VectorNormalize3(double* const v);

// ---- 9  Literal labels --------------------------------------------------------------------------
//
// A string literal does not convert to `char*` without a warning (or at all). Each template below
// takes one in the label's place, converts the rest as the documented function does, and calls it.
// `char*` labels and null select the documented functions directly.

/// The allocators with a literal label; defined here only.
#define ZEPH_LABELLED(T, arrayAlloc, matrixAlloc)                                                \
  template <std::size_t N>                                                                       \
  ZEPH_ADDED inline T* arrayAlloc(const char(&name)[N], int lo, int hi) {                        \
    return arrayAlloc(const_cast<char*>(name), lo, hi);                                          \
  }                                                                                              \
  template <std::size_t N>                                                                       \
  ZEPH_ADDED inline T* arrayAlloc(const char(&name)[N], int lo, int hi, long int& bytes) {       \
    return arrayAlloc(const_cast<char*>(name), lo, hi, bytes);                                   \
  }                                                                                              \
  template <std::size_t N>                                                                       \
  ZEPH_ADDED inline T** matrixAlloc(const char(&name)[N], int rows, int cols) {                  \
    return matrixAlloc(const_cast<char*>(name), rows, cols);                                     \
  }                                                                                              \
  template <std::size_t N>                                                                       \
  ZEPH_ADDED inline T** matrixAlloc(const char(&name)[N], int rows, int cols, long int& bytes) { \
    return matrixAlloc(const_cast<char*>(name), rows, cols, bytes);                              \
  }                                                                                              \
  template <std::size_t N>                                                                       \
  ZEPH_ADDED inline T** matrixAlloc(const char(&name)[N], int nrl, int nrh, int ncl, int nch) {  \
    return matrixAlloc(const_cast<char*>(name), nrl, nrh, ncl, nch);                             \
  }                                                                                              \
  template <std::size_t N>                                                                       \
  ZEPH_ADDED inline T** matrixAlloc(const char(&name)[N], int nrl, int nrh, int ncl, int nch,    \
                                    long int& bytes) {                                           \
    return matrixAlloc(const_cast<char*>(name), nrl, nrh, ncl, nch, bytes);                      \
  }
ZEPH_LABELLED(double, ZEPH_ArrayAllocDouble, ZEPH_MatrixAllocDouble)
ZEPH_LABELLED(float, ZEPH_ArrayAllocFloat, ZEPH_MatrixAllocFloat)
ZEPH_LABELLED(int, ZEPH_ArrayAllocInt, ZEPH_MatrixAllocInt)
ZEPH_LABELLED(ZEPH_Long, ZEPH_ArrayAllocLong, ZEPH_MatrixAllocLong)
#undef ZEPH_LABELLED

/// The same with a literal label.
template <class T, std::size_t N>
ZEPH_ADDED inline T* ZEPH_ArrayRealloc(T* old, int oldN, int newN, const char (&name)[N]) {
  return ZEPH_ArrayRealloc(old, oldN, newN, const_cast<char*>(name));
}

/// The same with a literal label, after two to four arguments: where to, what, one or two indices.
template <class T, std::size_t N>
ZEPH_ADDED inline auto ZEPH_ArrayDisplay(T* a, int n, const char (&name)[N])
    -> decltype(ZEPH_ArrayDisplay(a, n, const_cast<char*>(name))) {
  ZEPH_ArrayDisplay(a, n, const_cast<char*>(name));
}
/// The same with a literal label.
template <class T, std::size_t N>
ZEPH_ADDED inline auto ZEPH_ArrayDisplay(T* a, int lo, int hi, const char (&name)[N])
    -> decltype(ZEPH_ArrayDisplay(a, lo, hi, const_cast<char*>(name))) {
  ZEPH_ArrayDisplay(a, lo, hi, const_cast<char*>(name));
}
/// The same with a literal label.
template <class Out, class T, std::size_t N>
ZEPH_ADDED inline auto ZEPH_ArrayDisplay(Out&& out, T* a, int n, const char (&name)[N])
    -> decltype(ZEPH_ArrayDisplay(std::forward<Out>(out), a, n, const_cast<char*>(name))) {
  ZEPH_ArrayDisplay(std::forward<Out>(out), a, n, const_cast<char*>(name));
}
/// The same with a literal label.
template <class Out, class T, std::size_t N>
ZEPH_ADDED inline auto ZEPH_ArrayDisplay(Out&& out, T* a, int lo, int hi, const char (&name)[N])
    -> decltype(ZEPH_ArrayDisplay(std::forward<Out>(out), a, lo, hi, const_cast<char*>(name))) {
  ZEPH_ArrayDisplay(std::forward<Out>(out), a, lo, hi, const_cast<char*>(name));
}

/// The same with a literal label.
template <std::size_t N>
ZEPH_ADDED inline void ZEPH_MatrixPrint(FILE* stream, int rows, int cols, double** m,
                                        const char (&name)[N]) {
  ZEPH_MatrixPrint(stream, rows, cols, m, const_cast<char*>(name));
}
/// The same with a literal label.
template <std::size_t N>
ZEPH_ADDED inline void ZEPH_MatrixPrint(FILE* stream, int n, double** m, const char (&name)[N]) {
  ZEPH_MatrixPrint(stream, n, m, const_cast<char*>(name));
}
/// The same with a literal label.
template <class M, std::size_t N>
ZEPH_ADDED inline auto ZEPH_MatrixPrint4(FILE* stream, M m, const char (&name)[N])
    -> decltype(ZEPH_MatrixPrint4(stream, m, const_cast<char*>(name))) {
  ZEPH_MatrixPrint4(stream, m, const_cast<char*>(name));
}

// ---- 10  Whole numbers --------------------------------------------------------------------------

/// The form with one number, given as an int: `ZEPH_VectorAssign3(v, 0)` means 0.0, not a null
/// destination.
template <class Whole, std::enable_if_t<std::is_integral_v<Whole>, int> = 0>
ZEPH_ADDED inline void ZEPH_VectorAssign3(double* const v, Whole s) {
  ZEPH_VectorAssign3(v, static_cast<double>(s));
}

#endif  // ZEPH_RAW_BUFFERS_H
