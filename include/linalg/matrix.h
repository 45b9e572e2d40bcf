// SPDX-License-Identifier: MIT
//
/// @file
/// CZEPHMatrix and CZEPHVector: resizable, unchecked access, products, columns.
//
// general vector   CZEPHVector: the columns and sums of general matrices
// general matrix   CZEPHMatrix
// their functions  ZEPH_SumVector, ZEPH_RandomizeMatrix, ZEPH_GetVector*
#ifndef ZEPH_LINALG_MATRIX_H
#define ZEPH_LINALG_MATRIX_H

#include <cstddef>
#include <cstdio>

#include "../platform.h"

// --- vector -------------------------------------------------------------------------------------

/// A vector of doubles, companion of CZEPHMatrix.
///
/// Access is not checked. Where sizes disagree, operators call Check: the bare message and a line
/// end go to `std::cerr` and the process ends with status 1. Exhausted memory passes to the caller
/// as the exception that the allocation threw, and leaves an object that can be destroyed or
/// resized.
///
///     const double values[] = {3.0, 4.0};
///     CZEPHVector v(2, values);
///     double norm = ZEPH_GetVectorSquareNorm(v);  // 25: no root is taken
///     CZEPHVector half = v / 2.0;                 // (1.5, 2)
class ZEPH_API CZEPHVector {
 public:
  int m_nSize;      ///< Number of elements; stays as it is when Free releases them.
  double* m_pData;  ///< The elements, or null without storage.

  /// An empty vector: size 0, no storage.
  ZEPH_EMIT CZEPHVector() : m_nSize(0), m_pData(nullptr) {}
  /// `n` elements with undefined values; empty if `n` < 1.
  CZEPHVector(int n);  // NOLINT: implicit on purpose
  /// `n` elements copied from `data`; empty if `n` < 1.
  CZEPHVector(int n, const double* data);
  /// A deep copy.
  CZEPHVector(CZEPHVector& other);
  /// Releases the storage.
  ~CZEPHVector();

  /// Makes this a vector of `n` elements with undefined values, or an empty one if `n` < 1. The old
  /// elements are lost, even if the size stays the same.
  ///
  ///     CZEPHVector v;
  ///     v.ReSize(3);
  ///     v.GetSize();           // 3
  void ReSize(int n);
  /// Releases the storage; the size keeps its value.
  ///
  ///     CZEPHVector v(3);
  ///     v.Free();
  ///     v.m_pData == nullptr;  // 1
  ///     v.GetSize();           // 3
  void Free();

  /// Element `i`, unchecked.
  ///
  ///     CZEPHVector v(2);
  ///     v[0] = 1, v[1] = 2.5;
  ///     v;         // (1, 2.5)
  ///     v.Get(1);  // 2.5
  ZEPH_EMIT ZEPH_CHECKED double& operator[](int i) {
    ZEPH_REQUIRE_POINTER("CZEPHVector::operator[]", m_pData);
    ZEPH_REQUIRE_INSIDE("CZEPHVector::operator[]", i, 0, m_nSize - 1);
    return m_pData[i];
  }
  /// The value of element `i`, unchecked.
  ZEPH_EMIT ZEPH_CHECKED double Get(int i) const {
    ZEPH_REQUIRE_POINTER("CZEPHVector::Get", m_pData);
    ZEPH_REQUIRE_INSIDE("CZEPHVector::Get", i, 0, m_nSize - 1);
    return m_pData[i];
  }
  /// The number of elements.
  ZEPH_EMIT int GetSize() const { return m_nSize; }

  /// Takes size and elements of `other`; the result is a second copy, which costs its allocation.
  ///
  /// Storage is replaced only where the sizes differ.
  ///
  ///     const double values[] = {3, 4};
  ///     CZEPHVector v(2, values), w;
  ///     w = v;
  ///     w;      // (3, 4)
  ///     v + w;  // (6, 8)
  ///     v - w;  // (0, 0)
  CZEPHVector operator=(const CZEPHVector& other);
  /// The sum, element by element. Check: "Addition error (Not of the same size)".
  CZEPHVector operator+(const CZEPHVector& other);
  /// The difference, element by element. Check: "Subtraction error (Not of the same size)".
  CZEPHVector operator-(const CZEPHVector& other);
  /// Every element times 1.0 / d, the reciprocal rounded first; where |d| <= 1e-8 (or d is NaN)
  /// every element times 1.0, that is unchanged. No division is refused.
  CZEPHVector operator/(const double& d);

  /// If `failed`, writes `message` and a flushed line end to `std::cerr` and calls `exit(1)`.
  /// The same operation as CZEPHMatrix::Check.
  ///
  ///     char message[] = "not of this size";
  ///     CZEPHVector v(2);
  ///     v.Check(v.GetSize() != 2, message);  // goes on
  void Check(bool failed, char* message);

  /// Prints each element with "%12.4lf%c " (the element, `separator`, a blank), then "\n". A null
  /// stream prints nothing.
  ///
  ///     const double values[] = {3, 4};
  ///     CZEPHVector v(2, values);
  ///     v.Display(stdout, ';');  // prints "      3.0000;       4.0000; \n"
  void Display(std::FILE* stream, char separator);
  /// Writes the elements to `std::cout`, 12 wide with 4 decimals and nothing between them, then a
  /// flushed line end. The flags right, fixed and showpoint and the precision stay set on the
  /// stream, unless the vector is empty.
  void Display();

 protected:
  /// ReSize under its other name.
  ///
  ///     struct Pool : CZEPHVector {
  ///       void Renew(int n) { Create(n); }
  ///     };
  ///     Pool pool;
  ///     pool.Renew(3);
  ///     pool.GetSize();  // 3
  void Create(int n);

 public:
  // Added: inline, documented in docs/additions.md.

  /// Takes the storage and size of `other`, which becomes empty.
  ZEPH_ADDED CZEPHVector(CZEPHVector&& other) noexcept
      : m_nSize(other.m_nSize), m_pData(other.m_pData) {
    other.m_nSize = 0;
    other.m_pData = nullptr;
  }
  /// A deep copy of a const vector.
  ZEPH_ADDED CZEPHVector(const CZEPHVector& other) : CZEPHVector(const_cast<CZEPHVector&>(other)) {}
  /// Element `i` of a const vector, unchecked.
  ZEPH_ADDED ZEPH_CHECKED const double& operator[](int i) const {
    ZEPH_REQUIRE_POINTER("CZEPHVector::operator[]", m_pData);
    ZEPH_REQUIRE_INSIDE("CZEPHVector::operator[]", i, 0, m_nSize - 1);
    return m_pData[i];
  }
  /// The elements as a contiguous range: for range-for, the standard algorithms and std::span.
  /// Empty without storage.
  ZEPH_ADDED double* data() { return m_pData; }
  ZEPH_ADDED const double* data() const { return m_pData; }
  /// The number of elements; 0 without storage.
  ZEPH_ADDED std::size_t size() const {
    return m_pData && m_nSize > 0 ? static_cast<std::size_t>(m_nSize) : 0;
  }
  /// The elements as an iterator range; empty without storage.
  ZEPH_ADDED double* begin() { return m_pData; }
  ZEPH_ADDED double* end() { return m_pData + size(); }
  ZEPH_ADDED const double* begin() const { return m_pData; }
  ZEPH_ADDED const double* end() const { return m_pData + size(); }
};

/// Every element times `s`, as a new vector.
///
///     const double values[] = {3, 4};
///     const CZEPHVector v(2, values);
///     2.0 * v;  // (6, 8)
///     v * 2.0;  // (6, 8)
ZEPH_API CZEPHVector operator*(const double& s, const CZEPHVector& v);
/// The same.
ZEPH_API CZEPHVector operator*(const CZEPHVector& v, const double& s);

// --- matrix -------------------------------------------------------------------------------------

/// A resizable dense matrix of doubles with unchecked access, companion of CZEPHVector.
///
/// A matrix has at least one row and one column, or is empty: 0 x 0 without storage. Errors are
/// handled as in CZEPHVector: sizes that disagree end the process through Check, exhausted memory
/// passes to the caller as an exception.
///
///     const double values[] = {1, 2, 3, 4, 5, 6};
///     CZEPHMatrix m(2, 3, values);           // (1, 2, 3, 4, 5, 6)
///     CZEPHVector sums = ZEPH_SumVector(m);  // (6, 15)
///     CZEPHVector column = m.PickCol(1);     // (2, 5)
class ZEPH_API CZEPHMatrix {
 public:
  int m_nRows;        ///< Number of rows; stays as it is when Free releases them.
  int m_nColumns;     ///< Number of columns; likewise.
  double** m_ppData;  ///< Table of `m_nRows` row pointers, or null without storage.

  /// An empty matrix.
  ZEPH_EMIT CZEPHMatrix() : m_nRows(0), m_nColumns(0), m_ppData(nullptr) {}
  /// `rows` x `cols` elements with undefined values; empty if a count is below 1.
  CZEPHMatrix(int rows, int cols);
  /// `rows` x `cols` elements, (i, j) copied from `data[i * cols + j]`; empty if a count is
  /// below 1.
  CZEPHMatrix(int rows, int cols, const double* data);
  /// A deep copy.
  CZEPHMatrix(CZEPHMatrix& other);
  /// Releases the storage.
  ~CZEPHMatrix();

  /// Makes this a `rows` x `cols` matrix with undefined values, or an empty one if a count is below
  /// 1. The old elements are lost, even if the size stays the same.
  ///
  ///     CZEPHMatrix m;
  ///     m.ReSize(2, 3);
  ///     m.GetNoRow();           // 2
  ///     m.GetNoColumn();        // 3
  void ReSize(int rows, int cols);
  /// Releases the storage; the counts keep their values.
  ///
  ///     CZEPHMatrix m(2, 3);
  ///     m.Free();
  ///     m.m_ppData == nullptr;  // 1
  void Free();

  /// Row `i`, unchecked: `m[i][j]` is element (i, j).
  ZEPH_EMIT ZEPH_CHECKED double* operator[](int i) {
    ZEPH_REQUIRE_POINTER("CZEPHMatrix::operator[]", m_ppData);
    ZEPH_REQUIRE_INSIDE("CZEPHMatrix::operator[]", i, 0, m_nRows - 1);
    return m_ppData[i];
  }
  /// The number of rows.
  ZEPH_EMIT int GetNoRow() const { return m_nRows; }
  /// The number of columns.
  ZEPH_EMIT int GetNoColumn() const { return m_nColumns; }

  /// Takes size and elements of `other`; the result is a second copy, which costs its allocations.
  ///
  /// Storage is replaced only where a count differs, so row pointers stay valid if the size stays
  /// the same.
  ///
  ///     const double values[] = {1, 2, 3, 4};
  ///     CZEPHMatrix a(2, 2, values), b;
  ///     b = a;
  ///     b[1][0] = 0;
  ///     b;  // (1, 2, 0, 4)
  CZEPHMatrix operator=(const CZEPHMatrix& other);
  /// The sum, element by element. Check: "Addition error (Not of the same size)".
  ///
  ///     const double values[] = {1, 2, 3, 4};
  ///     CZEPHMatrix a(2, 2, values);
  ///     a + a;  // (2, 4, 6, 8)
  CZEPHMatrix operator+(const CZEPHMatrix& other);
  /// The matrix product. Check (columns here, rows there): "Multiplication error!(size)".
  ///
  /// Entry (i, j) starts at 0.0 and adds other(k, j) * this(i, k) in increasing k, product and sum
  /// rounded apart: the bits of the textbook triple loop, at several times its speed.
  ///
  ///     const double values[] = {1, 2, 3, 4};
  ///     CZEPHMatrix a(2, 2, values);
  ///     a * a;  // (7, 10, 15, 22)
  CZEPHMatrix operator*(const CZEPHMatrix& other);

  /// Column `j` as a new vector; `j` is not checked.
  CZEPHVector PickCol(int j);
  /// Writes column `j` to the first GetNoRow() elements of `out`; neither `j` nor the size of `out`
  /// is checked or changed.
  void PickCol(int j, CZEPHVector& out);
  /// Sets column `j` from the first GetNoRow() elements of `v`; unchecked.
  ///
  ///     const double values[] = {1, 2, 3, 4}, column[] = {8, 9};
  ///     CZEPHMatrix m(2, 2, values);
  ///     CZEPHVector v(2, column);
  ///     m.SetCol(1, v);  // m is (1, 8, 3, 9)
  void SetCol(int j, CZEPHVector& v);

  /// If `failed`, writes `message` and a flushed line end to `std::cerr` and calls `exit(1)`.
  /// The same operation as CZEPHVector::Check.
  ///
  ///     char message[] = "no square matrix";
  ///     CZEPHMatrix m(2, 2);
  ///     m.Check(m.GetNoRow() != m.GetNoColumn(), message);  // goes on
  void Check(bool failed, char* message);

  /// Prints each element with "%12.4lf%c " (the element, `separator`, a blank) and "\n" after each
  /// row, then one more "\n"; just "\n" for an empty matrix. A null stream prints nothing.
  ///
  ///     const double values[] = {3, 4};
  ///     CZEPHMatrix m(1, 2, values);
  ///     m.Display(stdout, ';');  // prints "      3.0000;       4.0000; \n\n"
  void Display(std::FILE* stream, char separator);
  /// Writes the elements to `std::cout`, 10 wide with 4 decimals and a blank after each, a flushed
  /// line end after each row. The flags right, fixed and showpoint and the precision stay set on
  /// the stream, for an empty matrix too.
  void Display();

 protected:
  /// ReSize under its other name.
  ///
  ///     struct Pool : CZEPHMatrix {
  ///       void Renew(int rows, int cols) { Create(rows, cols); }
  ///     };
  ///     Pool pool;
  ///     pool.Renew(2, 3);
  ///     pool.GetNoColumn();  // 3
  void Create(int rows, int cols);

 public:
  // Added: inline, documented in docs/additions.md.

  /// Takes the storage and counts of `other`, which becomes empty.
  ZEPH_ADDED CZEPHMatrix(CZEPHMatrix&& other) noexcept
      : m_nRows(other.m_nRows), m_nColumns(other.m_nColumns), m_ppData(other.m_ppData) {
    other.m_nRows = other.m_nColumns = 0;
    other.m_ppData = nullptr;
  }
  /// A deep copy of a const matrix.
  ZEPH_ADDED CZEPHMatrix(const CZEPHMatrix& other) : CZEPHMatrix(const_cast<CZEPHMatrix&>(other)) {}
  /// Row `i` of a const matrix, unchecked.
  ZEPH_ADDED ZEPH_CHECKED const double* operator[](int i) const {
    ZEPH_REQUIRE_POINTER("CZEPHMatrix::operator[]", m_ppData);
    ZEPH_REQUIRE_INSIDE("CZEPHMatrix::operator[]", i, 0, m_nRows - 1);
    return m_ppData[i];
  }
};

// --- functions ----------------------------------------------------------------------------------

/// The sum of each *row*, as a vector of GetNoRow() elements; each is added from column 0 upward,
/// starting at 0.0.
ZEPH_API CZEPHVector ZEPH_SumVector(CZEPHMatrix& m);
/// The same sums into the first GetNoRow() elements of `out`, whose size is not checked or changed.
ZEPH_API void ZEPH_SumVector(CZEPHMatrix& m, CZEPHVector& out);

/// Sets every element, row by row, to r * scale / 32767.0 with r the next raw draw of ZEPH_MathRandom,
/// 0 to 32767. Does not seed.
///
///     const double zeros[4] = {};
///     CZEPHMatrix m(2, 2, zeros);
///     ZEPH_RandomizeMatrix(m, 10);
///     m[1][1] >= 0 && m[1][1] <= 10;  // 1
ZEPH_API void ZEPH_RandomizeMatrix(CZEPHMatrix& m, double scale);

/// Index of the first largest element; 0 where there are fewer than two.
///
/// Every comparison with a NaN is false, so it is skipped, except that a NaN at index 0 stays the
/// result. Method: linear scan.
///
///     const double values[] = {3, -7, 5};
///     CZEPHVector v(3, values);
///     ZEPH_GetVectorMaxSite(v);       // 2
///     ZEPH_GetVectorMinSite(v);       // 1
ZEPH_API int ZEPH_GetVectorMaxSite(CZEPHVector& v);
/// Index of the first smallest element; 0 where there are fewer than two. NaN as above.
ZEPH_API int ZEPH_GetVectorMinSite(CZEPHVector& v);
/// The sum of the squares, added in index order from 0.0. No square root is taken.
ZEPH_API double ZEPH_GetVectorSquareNorm(CZEPHVector& v);
/// The largest absolute value; 0.0 for an empty vector. A NaN at index 0 is the result, any other
/// is skipped. (The spelling of the name is the documented one.)
///
///     const double values[] = {3, -7, 5};
///     CZEPHVector v(3, values);
///     ZEPH_GetVectorInfititeNorm(v);  // 7
ZEPH_API double ZEPH_GetVectorInfititeNorm(CZEPHVector& v);

// --- added forms --------------------------------------------------------------------------------

/// The function above for temporaries and const operands: `ZEPH_SumVector(a * b)`.
ZEPH_ADDED inline CZEPHVector ZEPH_SumVector(const CZEPHMatrix& m) {
  return ZEPH_SumVector(const_cast<CZEPHMatrix&>(m));
}
ZEPH_ADDED inline void ZEPH_SumVector(const CZEPHMatrix& m, CZEPHVector& out) {
  ZEPH_SumVector(const_cast<CZEPHMatrix&>(m), out);
}

#endif  // ZEPH_LINALG_MATRIX_H
