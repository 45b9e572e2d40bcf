// SPDX-License-Identifier: MIT
//
/// @file
/// CZEPHDoubleMatrix: a dense matrix with checked access, whose misuse ends the process.
#ifndef ZEPH_LINALG_DOUBLE_MATRIX_H
#define ZEPH_LINALG_DOUBLE_MATRIX_H

#include <cstddef>
#include <istream>
#include <ostream>
#include <type_traits>

#include "../double_array.h"

/// A dense matrix of doubles whose size and bound errors are fatal.
///
/// "Fatal" below means: "@@@@( Error: ", the quoted message and a line feed go to `std::cout`, and
/// the process ends with status 1. Nothing else is reported: where memory runs out, operations
/// return 0 or carry on without storage, silently.
///
///     CZEPHDoubleMatrix a(2, 2, 1.0), b(2, 2, 3.0);
///     a[0][1] = 5.0;
///     CZEPHDoubleMatrix sum = a + b;        // (4, 8, 4, 4)
///     a *= b;                               // a is (18, 18, 6, 6)
///     CZEPHDoubleArray y = a * CZEPHDoubleArray(2, 1.0);  // (36, 12)
///
/// Sizes: GetNoRows and GetNoColumns each return the other's count. A matrix that holds elements is
/// never resized by assignment; Create and SetData do resize.
class ZEPH_API CZEPHDoubleMatrix {
 public:
  int m_nRows;        ///< Number of rows; stays as it is when storage is released.
  int m_nColumns;     ///< Number of columns; likewise.
  double** m_ppData;  ///< Table of `m_nRows` row pointers, or null without storage.

  /// An empty matrix: 0 x 0, no storage.
  ZEPH_EMIT CZEPHDoubleMatrix() : m_nRows(0), m_nColumns(0), m_ppData(nullptr) {}
  /// A deep copy; without storage, silently, if memory runs out. As SetData(other).
  CZEPHDoubleMatrix(const CZEPHDoubleMatrix& other);
  /// `rows` x `cols` elements, each `value`. As SetData(rows, cols, value).
  CZEPHDoubleMatrix(int rows, int cols, double value);
  /// `rows` x `cols` elements, (i, j) copied from `source[i][j]`. As SetData(rows, cols, source).
  CZEPHDoubleMatrix(int rows, int cols, double** source);
  /// Releases the storage.
  ~CZEPHDoubleMatrix();
  /// Releases the storage; the counts keep their values.
  ///
  ///     CZEPHDoubleMatrix m(2, 3, 1.0);
  ///     m.Clear();
  ///     m.m_ppData == nullptr && m.m_nRows == 2;  // 1
  void Clear();

  /// Makes this a `rows` x `cols` matrix of zeros; 1, or 0 if there is no memory for it.
  ///
  ///     CZEPHDoubleMatrix m;
  ///     m.Create(1, 2);  // 1
  ///     m;               // (0, 0)
  int Create(int rows, int cols);
  /// Makes this a deep copy of `other`, of its size; 1, or 0 if there is no memory for it.
  ///
  /// A matrix given itself keeps its elements.
  int SetData(const CZEPHDoubleMatrix& other);
  /// Makes this a `rows` x `cols` matrix, each element `value`; 1, or 0 if there is no memory.
  ///
  /// The counts are stored first and stay even where the result is 0. A negative number of rows
  /// gives 0, as does a negative number of columns where there is a row. When the matrix shrinks to
  /// fewer rows, the rows past the new count are not released.
  ///
  ///     CZEPHDoubleMatrix m;
  ///     m.SetData(1, 2, 0.5);  // 1
  ///     m;                     // (0.5, 0.5)
  int SetData(int rows, int cols, double value);
  /// Makes this a `rows` x `cols` matrix with element (i, j) copied from `source[i][j]`; 1 or 0 as
  /// above. `source` may be this matrix's own table or contain rows of it; only then is the old
  /// storage kept until the elements are copied. The rest of `source` is the caller's.
  int SetData(int rows, int cols, double** source);
  /// Sets every element to `value`. (Despite its name it takes no index.)
  ///
  ///     CZEPHDoubleMatrix m(1, 2, 0.0);
  ///     m.SetEntry(0.5);  // m is (0.5, 0.5)
  void SetEntry(double value);

  /// Element (i, j) after CheckBound(i, j). An index equal to its count passes the check and reads
  /// whatever is there.
  ///
  ///     CZEPHDoubleMatrix m(2, 3, 0.5);
  ///     m.GetEntry(1, 2);    // 0.5
  ZEPH_EMIT double GetEntry(int i, int j) {
    if (!m_ppData || i < 0 || i > m_nRows || j < 0 || j > m_nColumns) CheckBound(i, j);
    return m_ppData[i][j];
  }
  /// 1 if there is storage, 0 <= i <= rows and 0 <= j <= columns; else fatal
  /// "Matrix check bound error!\n". Both upper bounds are inclusive.
  ///
  ///     CZEPHDoubleMatrix m(2, 3, 0.5);
  ///     m.CheckBound(2, 3);  // 1: both bounds are inclusive
  int CheckBound(int i, int j);
  /// Row `i`, after CheckBound(i, 0); the column index that follows is not checked.
  ZEPH_EMIT double* operator[](int i) {
    if (!m_ppData || i < 0 || i > m_nRows || m_nColumns < 0) CheckBound(i, 0);
    return m_ppData[i];
  }
  /// Row `i` of a const matrix, without any check. The elements can be written.
  ZEPH_EMIT ZEPH_CHECKED double* operator[](int i) const {
    ZEPH_REQUIRE_POINTER("CZEPHDoubleMatrix::operator[]", m_ppData);
    ZEPH_REQUIRE_INSIDE("CZEPHDoubleMatrix::operator[]", i, 0, m_nRows - 1);
    return m_ppData[i];
  }

  /// The number of *columns*: the two names are crossed, so 3 for a 2 x 3 matrix.
  ///
  ///     CZEPHDoubleMatrix m(2, 3, 0.0);
  ///     m.GetNoRows();     // 3
  ///     m.GetNoColumns();  // 2
  ZEPH_EMIT int GetNoRows() { return m_nColumns; }
  /// The number of *rows*: 2 for a 2 x 3 matrix.
  ZEPH_EMIT int GetNoColumns() { return m_nRows; }

  /// Copies the elements of `other`, into the storage that is there.
  ///
  /// A matrix with storage and two non-zero counts must have the size of `other`: else fatal
  /// "Bad matrix sizes in CZEPHDoubleMatrix::operator=()". Any other takes the size of `other`
  /// (and has no storage if memory runs out). Row pointers that the caller holds stay valid if the
  /// size stays the same.
  ///
  ///     CZEPHDoubleMatrix a(1, 2, 0.5), b;
  ///     b = a;
  ///     b;  // (0.5, 0.5)
  CZEPHDoubleMatrix& operator=(const CZEPHDoubleMatrix& other);
  /// Adds element by element. Sizes must agree: else fatal
  /// "Bad matrix sizes in CZEPHDoubleMatrix::operator+=()".
  ///
  ///     CZEPHDoubleMatrix a(1, 2, 1.0), b(1, 2, 0.25);
  ///     a += b;  // a is (1.25, 1.25)
  CZEPHDoubleMatrix& operator+=(const CZEPHDoubleMatrix& other);
  /// Subtracts element by element. Sizes must agree: else fatal "bad matrix sizes".
  ///
  ///     CZEPHDoubleMatrix a(1, 2, 1.0), b(1, 2, 0.25);
  ///     a -= b;  // a is (0.75, 0.75)
  CZEPHDoubleMatrix& operator-=(const CZEPHDoubleMatrix& other);
  /// Makes this the matrix product this * other.
  ///
  /// This matrix's columns must be as many as the other's rows: else fatal "Matrices are not
  /// conformable : CZEPHDoubleMatrix::operator*=()". The product is then assigned back by
  /// `operator=`, so a product with another number of columns than this matrix ends in that
  /// operator's fatal message. Entry (i, j) starts at 0.0 and adds other[k][j] * this[i][k] in
  /// increasing k, product and sum rounded apart; 2 * rows * columns * inner operations. Without
  /// memory for the product the elements stay as they are.
  ///
  /// `a *= b` calls this member where `b` is not const (see the added forms below); with a const
  /// right operand it is ambiguous with the free form: write `a.operator*=(b)`.
  CZEPHDoubleMatrix& operator*=(const CZEPHDoubleMatrix& other);

  /// The sum as a new matrix; sizes and message of `operator+=`. `a + b` with an `a` that is not
  /// const is this member.
  CZEPHDoubleMatrix operator+(const CZEPHDoubleMatrix& other);
  /// The difference as a new matrix; sizes and message of `operator-=`. `a - b` with an `a` that is
  /// not const is this member.
  CZEPHDoubleMatrix operator-(const CZEPHDoubleMatrix& other);
  /// This matrix itself.
  ZEPH_EMIT CZEPHDoubleMatrix& operator+() { return *this; }
  /// A matrix with the elements 0.0 - this(i, j) (so 0.0 stays +0.0); this one is unchanged.
  ///
  /// The result belongs to the library: a reference stays valid until the calling thread has
  /// negated 16 more matrices in this way, or ends. Copy what is to last:
  ///
  ///     CZEPHDoubleMatrix negated = -a;
  CZEPHDoubleMatrix& operator-();

  /// The matrix-vector product: entry i starts at 0.0 and adds this[i][j] * v[j] in increasing j.
  ///
  /// `v` must have as many elements as this matrix has columns: else fatal "matrix and vector sizes
  /// do not match". The result has one element per row, none for a matrix without rows.
  CZEPHDoubleArray operator*(const CZEPHDoubleArray& v) const;

  /// Writes a line "Mat[i][j]=" and the element, with the stream's formatting, for each element in
  /// row order; each line end flushes. Nothing for an empty matrix.
  ///
  ///     CZEPHDoubleMatrix m(1, 2, 0.5);
  ///     m.Display(std::cout);  // prints "Mat[0][0]=0.5\nMat[0][1]=0.5\n"
  void Display(std::ostream& os);

  /// The fatal report itself: "@@@@( Error: ", `message` and a line feed to `os`, then `exit(1)`.
  /// The same operation as CZEPHDoubleArray::ErrorMessage.
  ///
  ///     char message[] = "no square matrix";
  ///     CZEPHDoubleMatrix m(2, 2, 0.0);
  ///     if (m.m_nRows != m.m_nColumns) CZEPHDoubleMatrix::ErrorMessage(message, std::cerr);
  [[noreturn]] static void ErrorMessage(char* message, std::ostream& os);

 protected:
  /// Storage for `rows` x `cols` elements, their values undefined; 1, or 0 where memory runs out.
  ///
  /// The counts are stored first. Storage that was held is released: of its rows the first `rows`
  /// only. A negative number of rows fails, as does a negative number of columns where there is a
  /// row. After a result of 0 the rows allocated so far stay; the others are null.
  int AllocMemory(int rows, int cols);
  /// Releases the first `m_nRows` rows and the table, if there is one. Counts are left alone.
  ///
  ///     struct Pool : CZEPHDoubleMatrix {
  ///       int Renew(int rows, int cols) { return FreeMemory(), AllocMemory(rows, cols); }
  ///     };
  ///     Pool pool;
  ///     pool.Renew(2, 3);  // 1
  ///     pool.m_nColumns;   // 3
  void FreeMemory();

 public:
  // Added: inline, documented in docs/additions.md.

  /// Takes the storage and counts of `other`, which becomes empty. A matrix without storage is
  /// copied.
  ZEPH_ADDED CZEPHDoubleMatrix(CZEPHDoubleMatrix&& other) noexcept
      : m_nRows(other.m_nRows), m_nColumns(other.m_nColumns), m_ppData(other.m_ppData) {
    if (m_ppData) {
      other.m_nRows = other.m_nColumns = 0;
      other.m_ppData = nullptr;
    } else {
      SetData(other);
    }
  }
  /// Whole numbers as value: `CZEPHDoubleMatrix(2, 2, 0)` means 0.0, not a null source.
  template <class Whole, std::enable_if_t<std::is_integral_v<Whole>, int> = 0>
  ZEPH_ADDED CZEPHDoubleMatrix(int rows, int cols, Whole value)
      : CZEPHDoubleMatrix(rows, cols, static_cast<double>(value)) {}
  template <class Whole, std::enable_if_t<std::is_integral_v<Whole>, int> = 0>
  ZEPH_ADDED int SetData(int rows, int cols, Whole value) {
    return SetData(rows, cols, static_cast<double>(value));
  }
  /// The documented member again, so that `a *= b` is not ambiguous with the free form.
  ZEPH_ADDED CZEPHDoubleMatrix& operator*=(CZEPHDoubleMatrix& other) {
    return operator*=(static_cast<const CZEPHDoubleMatrix&>(other));
  }
  ZEPH_ADDED CZEPHDoubleMatrix& operator*=(CZEPHDoubleMatrix&& other) {
    return operator*=(static_cast<const CZEPHDoubleMatrix&>(other));
  }
};

/// The sum as a new matrix. Sizes must agree: else fatal "Bad matrix sizes : operator-()" (the
/// message of the subtraction, in both). Serves an `a` that is const.
///
///     const CZEPHDoubleMatrix a(1, 2, 1.0), b(1, 2, 0.25);
///     a + b;  // (1.25, 1.25)
ZEPH_API CZEPHDoubleMatrix operator+(const CZEPHDoubleMatrix& a, const CZEPHDoubleMatrix& b);
/// The difference as a new matrix. Sizes must agree: else fatal "Bad matrix sizes : operator-()".
/// Serves an `a` that is const.
///
///     const CZEPHDoubleMatrix a(1, 2, 1.0), b(1, 2, 0.25);
///     a - b;  // (0.75, 0.75)
ZEPH_API CZEPHDoubleMatrix operator-(const CZEPHDoubleMatrix& a, const CZEPHDoubleMatrix& b);
/// A copy. Serves a const operand.
ZEPH_API CZEPHDoubleMatrix operator+(const CZEPHDoubleMatrix& a);
/// A new matrix with the elements 0.0 - a(i, j) (so 0.0 stays +0.0). Serves a const operand.
///
///     const CZEPHDoubleMatrix a(1, 2, 0.5);
///     -a;  // (-0.5, -0.5)
///     +a;  // (0.5, 0.5)
ZEPH_API CZEPHDoubleMatrix operator-(const CZEPHDoubleMatrix& a);
/// The member `operator*=` with the message "Matrices are not conformable : operator*=()". Reached
/// by name: `operator*=(a, b)`.
///
///     CZEPHDoubleMatrix a(2, 2, 1.0);
///     const CZEPHDoubleMatrix b(2, 2, 3.0);
///     operator*=(a, b);  // a is (6, 6, 6, 6)
ZEPH_API CZEPHDoubleMatrix& operator*=(CZEPHDoubleMatrix& left, const CZEPHDoubleMatrix& other);
/// Writes the elements with the stream's formatting and nothing between them, a flushed line end
/// after each row: a 1 x 2 matrix of 1.5 and 2 gives "1.52\n".
///
///     std::cout << CZEPHDoubleMatrix(1, 2, 0.5);  // prints "0.50.5\n"
ZEPH_API std::ostream& operator<<(std::ostream& os, const CZEPHDoubleMatrix& a);
/// Reads both counts, rows first, then the elements row by row into the storage that is there.
///
/// Nothing is allocated: the matrix must have storage for the counts that the stream holds. Both
/// counts become 0, silently, when an extraction fails (elements read before stay in the storage)
/// and when there is no storage for a first element; also where a stream that is told to throws.
///
///     CZEPHDoubleMatrix m(2, 2, 0.0);
///     std::istringstream("2 2  1 2 3 4") >> m;  // m is (1, 2, 3, 4)
ZEPH_API std::istream& operator>>(std::istream& is, CZEPHDoubleMatrix& a);

#endif  // ZEPH_LINALG_DOUBLE_MATRIX_H
