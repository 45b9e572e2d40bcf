// SPDX-License-Identifier: MIT
//
// linalg.h -- dense double matrices and vectors.
//
//   double matrix       CZEPHDoubleMatrix: a value with checked access; misuse ends the process
//   general matrix      CZEPHMatrix: resizable, unchecked access, products, columns
//   general vector      CZEPHVector: the columns and sums of general matrices
//   their functions     ZEPH_SumVector, ZEPH_RandomizeMatrix, ZEPH_GetVector*
//   double 4x4 matrix   CZEPHMatrix4: 16 doubles by columns, live objects counted
//   double 3-vector     CZEPHVector3: 3 doubles, live objects counted; Bisect; vector
//   ZEPH_MathClamp
//
// The first three are dense, own their storage and copy it deeply. A matrix keeps a table of row
// pointers and each row as a block of its own, so `m[i][j]` is element (i, j) and a row is a
// contiguous `double*`; rows do not follow each other in memory. The last two are small values.
//
// Storage can be absent while the counts are not 0: after Clear or Free, and after an allocation
// that failed. Operations on whole objects then still compare and pass on the counts, and find no
// element to read, write or print; elements that would have come from there are 0.0 in new storage.
//
// Threads: any number may work on different objects; callers serialise the use of one object.
#ifndef ZEPH_LINALG_H
#define ZEPH_LINALG_H

#include <cstddef>
#include <cstdio>
#include <istream>
#include <ostream>
#include <type_traits>

#include "double_array.h"

// --- double matrix -----------------------------------------------------------------------------

/// A dense matrix of doubles whose size and bound errors are fatal.
///
/// "Fatal" below means: "@@@@( Error: ", the quoted message and a line feed go to `std::cout`, and
/// the process ends with status 1. Nothing else is reported: where memory runs out, operations
/// answer 0 or carry on without storage, silently.
///
///     CZEPHDoubleMatrix a(2, 2, 1.0), b(2, 2, 3.0);
///     a[0][1] = 5.0;
///     CZEPHDoubleMatrix sum = a + b;        // 4 8 / 4 4
///     a *= b;                               // 18 18 / 6 6
///     CZEPHDoubleArray y = a * CZEPHDoubleArray(2, 1.0);  // 36 12
///
/// Sizes: GetNoRows and GetNoColumns answer crosswise (see there). A matrix that holds elements is
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
  void Clear();

  /// Makes this a `rows` x `cols` matrix of zeros; 1, or 0 if there is no memory for it.
  int Create(int rows, int cols);
  /// Makes this a deep copy of `other`, of its size; 1, or 0 if there is no memory for it.
  ///
  /// A matrix given itself keeps its elements.
  int SetData(const CZEPHDoubleMatrix& other);
  /// Makes this a `rows` x `cols` matrix, each element `value`; 1, or 0 if there is no memory.
  ///
  /// The counts are stored first and stay even where the result is 0; a negative count always
  /// gives 0. Where the matrix shrinks to fewer rows, the rows past the new count are not released.
  int SetData(int rows, int cols, double value);
  /// Makes this a `rows` x `cols` matrix with element (i, j) copied from `source[i][j]`; 1 or 0 as
  /// above. `source` may hold rows of this matrix; the rest of it is the caller's.
  int SetData(int rows, int cols, double** source);
  /// Sets every element to `value`. (It takes no index, whatever its name suggests.)
  void SetEntry(double value);

  /// Element (i, j) after CheckBound(i, j). Reading at an index equal to its count reads whatever
  /// lies there, which the check lets pass.
  ZEPH_EMIT double GetEntry(int i, int j) {
    if (!m_ppData || i < 0 || i > m_nRows || j < 0 || j > m_nColumns) CheckBound(i, j);
    return m_ppData[i][j];
  }
  /// 1 if there is storage, 0 <= i <= rows and 0 <= j <= columns; else fatal
  /// "Matrix check bound error!\n". Both upper bounds are inclusive.
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

  /// The number of *columns*: the two counts answer crosswise, 3 for a 2 x 3 matrix.
  ZEPH_EMIT int GetNoRows() { return m_nColumns; }
  /// The number of *rows*: 2 for a 2 x 3 matrix.
  ZEPH_EMIT int GetNoColumns() { return m_nRows; }

  /// Copies the elements of `other`, into the storage that is there.
  ///
  /// A matrix with storage and two non-zero counts must have the size of `other`: else fatal
  /// "Bad matrix sizes in CZEPHDoubleMatrix::operator=()". Any other takes the size of `other`
  /// (and has no storage if memory runs out). Row pointers held by the caller stay valid where the
  /// size does.
  CZEPHDoubleMatrix& operator=(const CZEPHDoubleMatrix& other);
  /// Adds element by element. Sizes must agree: else fatal
  /// "Bad matrix sizes in CZEPHDoubleMatrix::operator+=()".
  CZEPHDoubleMatrix& operator+=(const CZEPHDoubleMatrix& other);
  /// Subtracts element by element. Sizes must agree: else fatal "bad matrix sizes".
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
  void Display(std::ostream& os);

  /// The fatal report itself: "@@@@( Error: ", `message` and a line feed to `os`, then `exit(1)`.
  /// One operation with CZEPHDoubleArray::ErrorMessage.
  [[noreturn]] static void ErrorMessage(char* message, std::ostream& os);

 protected:
  /// Storage for `rows` x `cols` elements, their values undefined; 1, or 0 where memory runs out.
  ///
  /// The counts are stored first. Storage that was held is released: of its rows the first `rows`
  /// only. A negative count fails. After a 0 the rows acquired so far stay, the others are null.
  int AllocMemory(int rows, int cols);
  /// Releases the first `m_nRows` rows and the table, if there is one. Counts are left alone.
  void FreeMemory();

 public:
  // Added: inline, documented in docs/additions.md.

  /// Takes the storage and counts of `other`, which becomes empty; from a matrix without storage as
  /// the copy.
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
  /// ErrorMessage with a literal.
  template <std::size_t N>
  [[noreturn]] ZEPH_ADDED static void ErrorMessage(const char (&message)[N], std::ostream& os) {
    ErrorMessage(const_cast<char*>(message), os);
  }
};

/// The sum as a new matrix. Sizes must agree: else fatal "Bad matrix sizes : operator-()" (the
/// message of the subtraction, in both). Serves an `a` that is const.
ZEPH_API CZEPHDoubleMatrix operator+(const CZEPHDoubleMatrix& a, const CZEPHDoubleMatrix& b);
/// The difference as a new matrix. Sizes must agree: else fatal "Bad matrix sizes : operator-()".
/// Serves an `a` that is const.
ZEPH_API CZEPHDoubleMatrix operator-(const CZEPHDoubleMatrix& a, const CZEPHDoubleMatrix& b);
/// A copy. Serves a const operand.
ZEPH_API CZEPHDoubleMatrix operator+(const CZEPHDoubleMatrix& a);
/// A new matrix with the elements 0.0 - a(i, j) (so 0.0 stays +0.0). Serves a const operand.
ZEPH_API CZEPHDoubleMatrix operator-(const CZEPHDoubleMatrix& a);
/// The member `operator*=` with the message "Matrices are not conformable : operator*=()". Reached
/// by name: `operator*=(a, b)`.
ZEPH_API CZEPHDoubleMatrix& operator*=(CZEPHDoubleMatrix& left, const CZEPHDoubleMatrix& other);
/// Writes the elements with the stream's formatting and nothing between them, a flushed line end
/// after each row: a 1 x 2 matrix of 1.5 and 2 gives "1.52\n".
ZEPH_API std::ostream& operator<<(std::ostream& os, const CZEPHDoubleMatrix& a);
/// Reads both counts, rows first, then the elements row by row into the storage that is there.
///
/// Nothing is allocated: the matrix must have storage for the counts that the stream holds. Both
/// counts become 0, silently, when an extraction fails (elements read before stay in the storage)
/// and when there is no storage for a first element.
///
///     CZEPHDoubleMatrix m(2, 2, 0.0);
///     std::istringstream("2 2  1 2 3 4") >> m;  // 1 2 / 3 4
ZEPH_API std::istream& operator>>(std::istream& is, CZEPHDoubleMatrix& a);

// --- general vector ----------------------------------------------------------------------------

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
///     CZEPHVector half = v / 2.0;                 // 1.5 2
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

  /// Makes this a vector of `n` elements with undefined values, or an empty one if `n` < 1. What
  /// was held is lost, even where the size stays.
  void ReSize(int n);
  /// Releases the storage; the size keeps its value.
  void Free();

  /// Element `i`, unchecked.
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
  CZEPHVector operator=(const CZEPHVector& other);
  /// The sum, element by element. Check: "Addition error (Not of the same size)".
  CZEPHVector operator+(const CZEPHVector& other);
  /// The difference, element by element. Check: "Subtraction error (Not of the same size)".
  CZEPHVector operator-(const CZEPHVector& other);
  /// Every element times 1.0 / d, the reciprocal rounded first; where |d| <= 1e-8 (or d is NaN)
  /// every element times 1.0, that is unchanged. No division is refused.
  CZEPHVector operator/(const double& d);

  /// If `failed`, writes `message` and a flushed line end to `std::cerr` and calls `exit(1)`.
  /// One operation with CZEPHMatrix::Check.
  void Check(bool failed, char* message);

  /// Prints each element with "%12.4lf%c " (the element, `separator`, a blank), then "\n". A null
  /// stream prints nothing.
  void Display(std::FILE* stream, char separator);
  /// Writes the elements to `std::cout`, 12 wide with 4 decimals and nothing between them, then a
  /// flushed line end. The flags right, fixed and showpoint and the precision stay set on the
  /// stream, unless the vector is empty.
  void Display();

 protected:
  /// ReSize under its other name.
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
  /// Check with a literal.
  template <std::size_t N>
  ZEPH_ADDED void Check(bool failed, const char (&message)[N]) {
    Check(failed, const_cast<char*>(message));
  }
};

/// Every element times `s`, as a new vector.
ZEPH_API CZEPHVector operator*(const double& s, const CZEPHVector& v);
/// The same.
ZEPH_API CZEPHVector operator*(const CZEPHVector& v, const double& s);

// --- general matrix ----------------------------------------------------------------------------

/// A resizable dense matrix of doubles with unchecked access, companion of CZEPHVector.
///
/// A matrix has at least one row and one column, or is empty: 0 x 0 without storage. Errors are
/// handled as in CZEPHVector: sizes that disagree end the process through Check, exhausted memory
/// passes to the caller as an exception.
///
///     const double values[] = {1, 2, 3, 4, 5, 6};
///     CZEPHMatrix m(2, 3, values);          // 1 2 3 / 4 5 6
///     CZEPHVector sums = ZEPH_SumVector(m);  // 6 15
///     CZEPHVector column = m.PickCol(1);     // 2 5
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
  /// 1. What was held is lost, even where the size stays.
  void ReSize(int rows, int cols);
  /// Releases the storage; the counts keep their values.
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
  /// Storage is replaced only where a count differs, so row pointers stay valid where the size
  /// does.
  CZEPHMatrix operator=(const CZEPHMatrix& other);
  /// The sum, element by element. Check: "Addition error (Not of the same size)".
  CZEPHMatrix operator+(const CZEPHMatrix& other);
  /// The matrix product. Check (columns here, rows there): "Multiplication error!(size)".
  ///
  /// Entry (i, j) starts at 0.0 and adds other(k, j) * this(i, k) in increasing k, product and sum
  /// rounded apart: the bits of the textbook triple loop, at several times its speed.
  CZEPHMatrix operator*(const CZEPHMatrix& other);

  /// Column `j` as a new vector; `j` is not checked.
  CZEPHVector PickCol(int j);
  /// Writes column `j` to the first GetNoRow() elements of `out`; neither `j` nor the size of `out`
  /// is checked or changed.
  void PickCol(int j, CZEPHVector& out);
  /// Sets column `j` from the first GetNoRow() elements of `v`; unchecked.
  void SetCol(int j, CZEPHVector& v);

  /// If `failed`, writes `message` and a flushed line end to `std::cerr` and calls `exit(1)`.
  /// One operation with CZEPHVector::Check.
  void Check(bool failed, char* message);

  /// Prints each element with "%12.4lf%c " (the element, `separator`, a blank) and "\n" after each
  /// row, then one more "\n"; just "\n" for an empty matrix. A null stream prints nothing.
  void Display(std::FILE* stream, char separator);
  /// Writes the elements to `std::cout`, 10 wide with 4 decimals and a blank after each, a flushed
  /// line end after each row. The flags right, fixed and showpoint and the precision stay set on
  /// the stream, for an empty matrix too.
  void Display();

 protected:
  /// ReSize under its other name.
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
  /// SetCol from a temporary or a const vector.
  ZEPH_ADDED void SetCol(int j, const CZEPHVector& v) { SetCol(j, const_cast<CZEPHVector&>(v)); }
  /// Check with a literal.
  template <std::size_t N>
  ZEPH_ADDED void Check(bool failed, const char (&message)[N]) {
    Check(failed, const_cast<char*>(message));
  }
};

// --- functions of general matrices and vectors -------------------------------------------------

/// The sum of each *row*, as a vector of GetNoRow() elements; each is added from column 0 upward,
/// starting at 0.0.
ZEPH_API CZEPHVector ZEPH_SumVector(CZEPHMatrix& m);
/// The same sums into the first GetNoRow() elements of `out`, whose size is not checked or changed.
ZEPH_API void ZEPH_SumVector(CZEPHMatrix& m, CZEPHVector& out);

/// Sets every element, row by row, to r * scale / 32767.0 with r the next `rand()`, 0 to 32767, of
/// the C runtime (the high 15 bits where the runtime's numbers are larger). Does not seed.
ZEPH_API void ZEPH_RandomizeMatrix(CZEPHMatrix& m, double scale);

/// Index of the first largest element; 0 where there are fewer than two.
///
/// A NaN never wins a comparison, so it is passed over, except that a NaN at index 0 stays the
/// answer. Method: linear scan.
ZEPH_API int ZEPH_GetVectorMaxSite(CZEPHVector& v);
/// Index of the first smallest element; 0 where there are fewer than two. NaN as above.
ZEPH_API int ZEPH_GetVectorMinSite(CZEPHVector& v);
/// The sum of the squares, added in index order from 0.0. No square root is taken.
ZEPH_API double ZEPH_GetVectorSquareNorm(CZEPHVector& v);
/// The largest absolute value; 0.0 for an empty vector. A NaN at index 0 is the answer, any other
/// is passed over. (The name is spelled so.)
ZEPH_API double ZEPH_GetVectorInfititeNorm(CZEPHVector& v);

// --- double 4x4 matrix -------------------------------------------------------------------------

/// A 4x4 matrix of doubles, stored by columns: element (row i, column j) is `m_data[i + 4 * j]`.
///
/// A plain value of 16 doubles without heap storage, checks or error reports: a division by zero
/// gives what the processor gives. Every sum and product rounds once, in the order stated. Scalars
/// are taken by value when an operation begins, so `m /= m(0, 0)` divides every element by the
/// same number.
///
/// The class counts its live objects, copies and temporaries included; howMany() tells. The
/// counter is process-wide and unguarded: programs that make objects on several threads at once
/// may lose counts, and nothing else.
///
///     CZEPHMatrix4 m;
///     m.loadIdentity();
///     m(0, 3) = 5.0;  // translation by 5 along x
///     CZEPHMatrix4 twice = m * m;
class ZEPH_API CZEPHMatrix4 {
 public:
  /// How a source array of 16 doubles lists its elements. Any value but RowMajor is ColumnMajor.
  enum ordermode : int {
    ColumnMajor = 0,  ///< column 0, then column 1, ...: the order of storage
    RowMajor = 1      ///< row 0, then row 1, ...
  };

  /// A matrix whose elements are not set.
  CZEPHMatrix4();
  /// A matrix of 16 equal elements.
  CZEPHMatrix4(const double& value);  // NOLINT: implicit on purpose
  /// The 16 elements of `data`, listed as `mode` says.
  CZEPHMatrix4(const double* const data, ordermode mode);
  CZEPHMatrix4(const CZEPHMatrix4& other);
  ~CZEPHMatrix4();

  /// Copies the elements; the count of live objects stays.
  ZEPH_EMIT CZEPHMatrix4& operator=(const CZEPHMatrix4& other) {
    for (int k = 0; k < 16; ++k) m_data[k] = other.m_data[k];
    return *this;
  }

  /// The element in row `i`, column `j`, each 0..3; not checked.
  ZEPH_EMIT ZEPH_CHECKED double& operator()(const int& i, const int& j) {
    ZEPH_REQUIRE_INSIDE("CZEPHMatrix4::operator()", i, 0, 3);
    ZEPH_REQUIRE_INSIDE("CZEPHMatrix4::operator()", j, 0, 3);
    return m_data[i + 4 * j];
  }

  /// The address of the first stored element, typed as a pointer to float.
  ///
  /// The storage holds doubles all the same: a reader sees their bytes, not their values.
  ZEPH_EMIT operator float*() {  // NOLINT: implicit on purpose
    return reinterpret_cast<float*>(m_data);
  }

  /// Makes this the identity: 1.0 on the diagonal, 0.0 elsewhere.
  void loadIdentity();

  /// Element-wise, in place.
  CZEPHMatrix4& operator+=(const CZEPHMatrix4& other);
  CZEPHMatrix4& operator-=(const CZEPHMatrix4& other);
  CZEPHMatrix4& operator*=(const double& s);
  CZEPHMatrix4& operator/=(const double& s);

  /// this = this * b; `m *= m` squares.
  CZEPHMatrix4& operator*=(const CZEPHMatrix4& b);

  /// Flips the sign of every element of this very matrix and refers to it.
  ///
  /// So `-m` changes `m`. For a negated copy write `m * -1.0`.
  CZEPHMatrix4& operator-();

  /// The number of live objects of this class.
  static int howMany();

  double m_data[16];  ///< the elements, by columns

 private:
  static int m_nObject;
};

/// Element-wise sum and difference.
ZEPH_API CZEPHMatrix4 operator+(const CZEPHMatrix4& a, const CZEPHMatrix4& b);
ZEPH_API CZEPHMatrix4 operator-(const CZEPHMatrix4& a, const CZEPHMatrix4& b);

/// Matrix product: r(i, j) = a(i,0) * b(0,j) + a(i,1) * b(1,j) + a(i,2) * b(2,j) + a(i,3) * b(3,j),
/// added left to right.
ZEPH_API CZEPHMatrix4 operator*(const CZEPHMatrix4& a, const CZEPHMatrix4& b);

/// Every element times, or divided by, `s`.
ZEPH_API CZEPHMatrix4 operator*(const double& s, const CZEPHMatrix4& a);
ZEPH_API CZEPHMatrix4 operator*(const CZEPHMatrix4& a, const double& s);
ZEPH_API CZEPHMatrix4 operator/(const CZEPHMatrix4& a, const double& s);

/// Writes four lines, row by row, "[ a b c d ]\n", numbers in the stream's formatting.
ZEPH_API std::ostream& operator<<(std::ostream& os, const CZEPHMatrix4& a);

// --- double 3-vector ---------------------------------------------------------------------------

/// A vector of three doubles. Counts its live objects as CZEPHMatrix4 does; HowMany() tells.
///
/// Nothing is checked. Scalars are taken by value when an operation begins, so `v /= v.x()` divides
/// all three components by the same number.
///
/// Three setters store where their names do not say, and programs rely on it: SetZ, Set(a, b, c)
/// and Set(v). To set all components, assign: `v = CZEPHVector3(1, 2, 3)`.
class ZEPH_API CZEPHVector3 {
 public:
  /// (0, 0, 0).
  CZEPHVector3();
  CZEPHVector3(const double& x, const double& y, const double& z);
  /// The way from one point to another: to - from.
  CZEPHVector3(CZEPHVector3& from, CZEPHVector3& to);
  CZEPHVector3(const CZEPHVector3& other);
  ~CZEPHVector3();

  /// Copies the components; the count of live objects stays.
  ZEPH_EMIT CZEPHVector3& operator=(const CZEPHVector3& other) {
    m_x = other.m_x;
    m_y = other.m_y;
    m_z = other.m_z;
    return *this;
  }

  /// Component `i`: 0 is x, 1 is y, 2 is z; not checked.
  ZEPH_EMIT ZEPH_CHECKED double& operator[](const int& i) {
    ZEPH_REQUIRE_INSIDE("CZEPHVector3::operator[]", i, 0, 2);
    return reinterpret_cast<double*>(this)[i];
  }

  /// One component, also to assign to.
  ZEPH_EMIT double& x() { return m_x; }
  ZEPH_EMIT double& y() { return m_y; }
  ZEPH_EMIT double& z() { return m_z; }
  ZEPH_EMIT double x() const { return m_x; }
  ZEPH_EMIT double y() const { return m_y; }
  ZEPH_EMIT double z() const { return m_z; }
  /// One component.
  ZEPH_EMIT double GetX() const { return m_x; }
  ZEPH_EMIT double GetY() const { return m_y; }
  ZEPH_EMIT double GetZ() const { return m_z; }

  /// Stores one component; the others stay.
  ZEPH_EMIT void SetX(double v) { m_x = v; }
  ZEPH_EMIT void SetY(double v) { m_y = v; }
  /// Stores `v` as x; z stays. `v.z() = ...` sets z.
  ZEPH_EMIT void SetZ(double v) { m_x = v; }
  /// Stores `b` as y and `c` as x; `a` is not read, z stays.
  ZEPH_EMIT void Set(double, double b, double c) {
    m_y = b;
    m_x = c;
  }
  /// Stores the x of `v` as x and its z as y; z stays.
  ZEPH_EMIT void Set(const CZEPHVector3& v) {
    m_x = v.m_x;
    m_y = v.m_z;
  }

  /// The address of x, typed as a pointer to float; the storage holds doubles all the same.
  ZEPH_EMIT operator float*() {  // NOLINT: implicit on purpose
    return reinterpret_cast<float*>(this);
  }

  /// The dot product with itself, and its square root.
  double GetLength2() const;
  double GetLength() const;

  /// Divides each component by the length, in place, and gives the length.
  ///
  /// The null vector becomes three NaN.
  double Normalize();
  /// A vector of length 1 in the same direction; three NaN for the null vector.
  CZEPHVector3 Normalized() const;

  /// Takes the components of `fallback` if all of its own are below 1e-8 in magnitude.
  ///
  /// A NaN component keeps the vector as it is.
  void EpsilonCorrect(const CZEPHVector3& fallback);

  /// Component by component, in place.
  CZEPHVector3& operator+=(const CZEPHVector3& other);
  CZEPHVector3& operator-=(const CZEPHVector3& other);
  CZEPHVector3& operator*=(const double& s);
  CZEPHVector3& operator/=(const double& s);

  /// The number of live objects of this class.
  static int HowMany();

  double m_x;  ///< component 0
  double m_y;  ///< component 1
  double m_z;  ///< component 2

 private:
  static int m_nObject;

  // Our addition, listed in docs/additions.md.
 public:
  /// The way from one point to another, for constants and temporaries.
  ZEPH_ADDED CZEPHVector3(const CZEPHVector3& from, const CZEPHVector3& to)
      : CZEPHVector3(const_cast<CZEPHVector3&>(from), const_cast<CZEPHVector3&>(to)) {}
};

/// Component by component.
ZEPH_API CZEPHVector3 operator+(const CZEPHVector3& a, const CZEPHVector3& b);
ZEPH_API CZEPHVector3 operator-(const CZEPHVector3& a, const CZEPHVector3& b);
ZEPH_API CZEPHVector3 operator-(const CZEPHVector3& a);
ZEPH_API CZEPHVector3 operator*(const double& s, const CZEPHVector3& v);
ZEPH_API CZEPHVector3 operator*(const CZEPHVector3& v, const double& s);
ZEPH_API CZEPHVector3 operator/(const CZEPHVector3& v, const double& s);

/// Dot product: a.y * b.y + a.x * b.x + a.z * b.z, added in this order.
ZEPH_API double operator*(const CZEPHVector3& a, const CZEPHVector3& b);

/// Cross product a x b; `^` binds weaker than `+` and `==`, so parenthesise it.
ZEPH_API CZEPHVector3 operator^(const CZEPHVector3& a, const CZEPHVector3& b);

/// 1 or 0: exact comparison of all components; 0.0 equals -0.0, NaN differs from everything.
ZEPH_API int operator==(const CZEPHVector3& a, const CZEPHVector3& b);
ZEPH_API int operator!=(const CZEPHVector3& a, const CZEPHVector3& b);

/// Writes "[ x ; y ; z ]", numbers in the stream's formatting, without a line end.
ZEPH_API std::ostream& operator<<(std::ostream& os, const CZEPHVector3& v);

/// The direction half-way between two: the sum, scaled to length 1.
///
/// (0, 0, 1) where the squared length of the sum is below 1e-5: for opposite or null vectors.
ZEPH_API CZEPHVector3 Bisect(CZEPHVector3 a, CZEPHVector3 b);

/// Brings x, then y, then z into [lo, hi] by the rule of the scalar ZEPH_MathClamp (algorithms.h).
///
/// Bounds that are components of `v` itself are read as they change.
ZEPH_API void ZEPH_MathClamp(CZEPHVector3& v, const double& lo, const double& hi);

// --- added forms -------------------------------------------------------------------------------

// The functions above for temporaries and const operands: `ZEPH_SumVector(a * b)`.
ZEPH_ADDED inline CZEPHVector ZEPH_SumVector(const CZEPHMatrix& m) {
  return ZEPH_SumVector(const_cast<CZEPHMatrix&>(m));
}
ZEPH_ADDED inline void ZEPH_SumVector(const CZEPHMatrix& m, CZEPHVector& out) {
  ZEPH_SumVector(const_cast<CZEPHMatrix&>(m), out);
}
ZEPH_ADDED inline int ZEPH_GetVectorMaxSite(const CZEPHVector& v) {
  return ZEPH_GetVectorMaxSite(const_cast<CZEPHVector&>(v));
}
ZEPH_ADDED inline int ZEPH_GetVectorMinSite(const CZEPHVector& v) {
  return ZEPH_GetVectorMinSite(const_cast<CZEPHVector&>(v));
}
ZEPH_ADDED inline double ZEPH_GetVectorSquareNorm(const CZEPHVector& v) {
  return ZEPH_GetVectorSquareNorm(const_cast<CZEPHVector&>(v));
}
ZEPH_ADDED inline double ZEPH_GetVectorInfititeNorm(const CZEPHVector& v) {
  return ZEPH_GetVectorInfititeNorm(const_cast<CZEPHVector&>(v));
}

// Reading what operator<< wrote. White space between the signs and numbers is free; anything else
// sets failbit and leaves the object as it was. Infinities and NaN are not read by standard
// streams.

/// Reads "[ x ; y ; z ]".
ZEPH_ADDED inline std::istream& operator>>(std::istream& is, CZEPHVector3& v) {
  double read[3];
  char sign = 0;
  for (int i = 0; i < 3; ++i) {
    if (is >> sign && sign != (i == 0 ? '[' : ';')) is.setstate(std::ios_base::failbit);
    is >> read[i];
  }
  if (is >> sign && sign != ']') is.setstate(std::ios_base::failbit);
  if (is) {
    v.m_x = read[0];
    v.m_y = read[1];
    v.m_z = read[2];
  }
  return is;
}

/// Reads four rows "[ a b c d ]".
ZEPH_ADDED inline std::istream& operator>>(std::istream& is, CZEPHMatrix4& a) {
  double read[16];
  char sign = 0;
  for (int i = 0; i < 4; ++i) {
    if (is >> sign && sign != '[') is.setstate(std::ios_base::failbit);
    for (int j = 0; j < 4; ++j) is >> read[i + 4 * j];
    if (is >> sign && sign != ']') is.setstate(std::ios_base::failbit);
  }
  if (is)
    for (int k = 0; k < 16; ++k) a.m_data[k] = read[k];
  return is;
}

#endif  // ZEPH_LINALG_H
