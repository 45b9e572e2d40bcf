// SPDX-License-Identifier: MIT
//
/// @file
/// CZEPHMatrix4: 16 doubles by columns, live objects counted.
#ifndef ZEPH_LINALG_MATRIX4_H
#define ZEPH_LINALG_MATRIX4_H

#include <istream>
#include <ostream>

#include "../platform.h"
#include "read_into.h"

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
///     m(0, 3) = 5.0;             // translation by 5 along x
///     CZEPHMatrix4 twice = m * m;
///     twice(0, 3);               // 10
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
  ///
  ///     CZEPHMatrix4 a(1.5), b;
  ///     b = a;
  ///     b(1, 2);  // 1.5
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
  /// The storage still holds doubles: a reader sees their bytes, not their values.
  ///
  ///     CZEPHMatrix4 m(1.5);
  ///     double first;
  ///     std::memcpy(&first, static_cast<float*>(m), sizeof first);
  ///     first;  // 1.5
  ZEPH_EMIT operator float*() {  // NOLINT: implicit on purpose
    return reinterpret_cast<float*>(m_data);
  }

  /// Makes this the identity: 1.0 on the diagonal, 0.0 elsewhere.
  void loadIdentity();

  /// Element-wise, in place.
  ///
  ///     CZEPHMatrix4 a(3.0), b(1.0);
  ///     a += b;
  ///     a -= b;
  ///     a *= 4.0;
  ///     a /= 2.0;
  ///     a(1, 2);  // 6
  CZEPHMatrix4& operator+=(const CZEPHMatrix4& other);
  CZEPHMatrix4& operator-=(const CZEPHMatrix4& other);
  CZEPHMatrix4& operator*=(const double& s);
  CZEPHMatrix4& operator/=(const double& s);

  /// this = this * b; `m *= m` squares.
  ///
  ///     CZEPHMatrix4 m(1.0);
  ///     m *= m;
  ///     m(1, 2);  // 4
  CZEPHMatrix4& operator*=(const CZEPHMatrix4& b);

  /// Flips the sign of every element of this matrix itself and returns a reference to it.
  ///
  /// So `-m` changes `m`. For a negated copy write `m * -1.0`.
  ///
  ///     CZEPHMatrix4 m(1.5);
  ///     -m;
  ///     m(1, 2);  // -1.5
  CZEPHMatrix4& operator-();

  /// The number of live objects of this class.
  ///
  ///     const int before = CZEPHMatrix4::howMany();
  ///     CZEPHMatrix4 a, b;
  ///     CZEPHMatrix4::howMany() - before;  // 2
  static int howMany();

  double m_data[16];  ///< the elements, by columns

 private:
  static int m_nObject;
};

/// Element-wise sum and difference.
///
///     CZEPHMatrix4 a(3.0), b(1.0);
///     (a + b)(0, 0);    // 4
///     (a - b)(0, 0);    // 2
ZEPH_API CZEPHMatrix4 operator+(const CZEPHMatrix4& a, const CZEPHMatrix4& b);
ZEPH_API CZEPHMatrix4 operator-(const CZEPHMatrix4& a, const CZEPHMatrix4& b);

/// Matrix product: r(i, j) = a(i,0) * b(0,j) + a(i,1) * b(1,j) + a(i,2) * b(2,j) + a(i,3) * b(3,j),
/// added left to right.
ZEPH_API CZEPHMatrix4 operator*(const CZEPHMatrix4& a, const CZEPHMatrix4& b);

/// Every element times, or divided by, `s`.
///
///     CZEPHMatrix4 m(3.0);
///     (2.0 * m)(0, 0);  // 6
///     (m * 2.0)(0, 0);  // 6
///     (m / 2.0)(0, 0);  // 1.5
ZEPH_API CZEPHMatrix4 operator*(const double& s, const CZEPHMatrix4& a);
ZEPH_API CZEPHMatrix4 operator*(const CZEPHMatrix4& a, const double& s);
ZEPH_API CZEPHMatrix4 operator/(const CZEPHMatrix4& a, const double& s);

/// Writes four lines, row by row, "[ a b c d ]\n", numbers in the stream's formatting.
///
///     std::cout << CZEPHMatrix4(0.5);  // prints "[ 0.5 0.5 0.5 0.5 ]\n[ 0.5 0.5 0.5 0.5 ]\n..."
ZEPH_API std::ostream& operator<<(std::ostream& os, const CZEPHMatrix4& a);

// --- added --------------------------------------------------------------------------------------

/// Reads what operator<< wrote, four rows "[ a b c d ]". Any white space may separate brackets and
/// numbers; anything else sets failbit and leaves the matrix unchanged. Standard streams do not
/// read infinities and NaN. A program's own `operator>>` for the class is always preferred.
ZEPH_ADDED inline std::istream& operator>>(std::istream& is, ZEPH_ReadInto<CZEPHMatrix4> a) {
  double read[16];
  char sign = 0;
  for (int i = 0; i < 4; ++i) {
    if (is >> sign && sign != '[') is.setstate(std::ios_base::failbit);
    for (int j = 0; j < 4; ++j) is >> read[i + 4 * j];
    if (is >> sign && sign != ']') is.setstate(std::ios_base::failbit);
  }
  if (is)
    for (int k = 0; k < 16; ++k) a.target.m_data[k] = read[k];
  return is;
}

#endif  // ZEPH_LINALG_MATRIX4_H
