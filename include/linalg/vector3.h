// SPDX-License-Identifier: MIT
//
/// @file
/// CZEPHVector3: 3 doubles, live objects counted; Bisect; ZEPH_MathClamp of a vector.
#ifndef ZEPH_LINALG_VECTOR3_H
#define ZEPH_LINALG_VECTOR3_H

#include <istream>
#include <ostream>

#include "../platform.h"
#include "read_into.h"

/// A vector of three doubles. Counts its live objects as CZEPHMatrix4 does; HowMany() tells.
///
/// Nothing is checked. Scalars are taken by value when an operation begins, so `v /= v.x()` divides
/// all three components by the same number.
///
/// Three setters store where their names do not say, and programs rely on it: SetZ, Set(a, b, c)
/// and Set(v). To set all components, assign: `v = CZEPHVector3(1, 2, 3)`.
///
///     CZEPHVector3 v(1, 2, 3), w;
///     w = v;
///     w[2] = 4;
///     w;                // (1, 2, 4)
///     w.y() + w.GetZ();  // 6
class ZEPH_API CZEPHVector3 {
 public:
  /// (0, 0, 0).
  CZEPHVector3();
  CZEPHVector3(const double& x, const double& y, const double& z);
  /// The vector from one point to another: to - from.
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
  ///
  ///     CZEPHVector3 v;
  ///     v.x() = 1, v.y() = 2, v.z() = 3;
  ///     v;  // (1, 2, 3)
  ZEPH_EMIT double& x() { return m_x; }
  ZEPH_EMIT double& y() { return m_y; }
  ZEPH_EMIT double& z() { return m_z; }
  ZEPH_EMIT double x() const { return m_x; }
  ZEPH_EMIT double y() const { return m_y; }
  ZEPH_EMIT double z() const { return m_z; }
  /// One component; x(), y() and z() serve constants as well.
  ///
  ///     CZEPHVector3 v(1, 2, 3);
  ///     v.GetX() + v.GetY() + v.GetZ();  // 6
  ZEPH_EMIT double GetX() { return m_x; }
  ZEPH_EMIT double GetY() { return m_y; }
  ZEPH_EMIT double GetZ() { return m_z; }

  /// Stores one component; the others stay.
  ///
  ///     CZEPHVector3 v(1, 2, 3);
  ///     v.SetX(7);
  ///     v.SetY(8);  // v is (7, 8, 3)
  ZEPH_EMIT void SetX(double v) { m_x = v; }
  ZEPH_EMIT void SetY(double v) { m_y = v; }
  /// Stores `v` as x; z stays. `v.z() = ...` sets z.
  ///
  ///     CZEPHVector3 v(1, 2, 3);
  ///     v.SetZ(7);  // v is (7, 2, 3)
  ZEPH_EMIT void SetZ(double v) { m_x = v; }
  /// Stores `b` as y and `c` as x; `a` is not read, z stays.
  ///
  ///     CZEPHVector3 v(1, 2, 3);
  ///     v.Set(7, 8, 9);  // v is (9, 8, 3)
  ZEPH_EMIT void Set(double, double b, double c) {
    m_y = b;
    m_x = c;
  }
  /// Stores the x of `v` as x and its z as y; z stays.
  ///
  ///     CZEPHVector3 v(1, 2, 3);
  ///     v.Set(CZEPHVector3(7, 8, 9));  // v is (7, 9, 3)
  ZEPH_EMIT void Set(const CZEPHVector3& v) {
    m_x = v.m_x;
    m_y = v.m_z;
  }

  /// The address of x, typed as a pointer to float; the storage still holds doubles.
  ///
  ///     CZEPHVector3 v(1.5, 0, 0);
  ///     double first;
  ///     std::memcpy(&first, static_cast<float*>(v), sizeof first);
  ///     first;  // 1.5
  ZEPH_EMIT operator float*() {  // NOLINT: implicit on purpose
    return reinterpret_cast<float*>(this);
  }

  /// The dot product with itself, and its square root.
  ///
  ///     CZEPHVector3 v(2, 3, 6);
  ///     v.GetLength2();  // 49
  ///     v.GetLength();   // 7
  double GetLength2() const;
  double GetLength() const;

  /// Divides each component by the length, in place, and returns the length.
  ///
  /// The null vector becomes three NaN.
  ///
  ///     CZEPHVector3 v(0, 0, -2);
  ///     const double length = v.Normalize();  // 2
  ///     v;                                    // (0, 0, -1)
  double Normalize();
  /// A vector of length 1 in the same direction; three NaN for the null vector.
  ///
  ///     CZEPHVector3(0, 0, -2).Normalized();  // (0, 0, -1)
  CZEPHVector3 Normalized() const;

  /// Takes the components of `fallback` if all of its own are below 1e-8 in magnitude.
  ///
  /// A NaN component keeps the vector as it is.
  ///
  ///     CZEPHVector3 v(1e-9, 0, 0);
  ///     v.EpsilonCorrect(CZEPHVector3(0, 0, 1));  // v is (0, 0, 1)
  void EpsilonCorrect(const CZEPHVector3& fallback);

  /// Component by component, in place.
  ///
  ///     CZEPHVector3 v(1, 2, 3);
  ///     v += CZEPHVector3(1, 1, 1);  // v is (2, 3, 4)
  ///     v -= CZEPHVector3(0, 1, 2);  // v is (2, 2, 2)
  ///     v *= 3;                      // v is (6, 6, 6)
  ///     v /= 4;                      // v is (1.5, 1.5, 1.5)
  CZEPHVector3& operator+=(const CZEPHVector3& other);
  CZEPHVector3& operator-=(const CZEPHVector3& other);
  CZEPHVector3& operator*=(const double& s);
  CZEPHVector3& operator/=(const double& s);

  /// The number of live objects of this class.
  ///
  ///     const int before = CZEPHVector3::HowMany();
  ///     CZEPHVector3 a, b;
  ///     CZEPHVector3::HowMany() - before;  // 2
  static int HowMany();

  double m_x;  ///< component 0
  double m_y;  ///< component 1
  double m_z;  ///< component 2

 private:
  static int m_nObject;

  // Our addition, listed in docs/additions.md.
 public:
  /// The vector from one point to another, for constants and temporaries.
  ZEPH_ADDED CZEPHVector3(const CZEPHVector3& from, const CZEPHVector3& to)
      : CZEPHVector3(const_cast<CZEPHVector3&>(from), const_cast<CZEPHVector3&>(to)) {}
};

/// Component by component.
///
///     CZEPHVector3 a(1, 2, 3), b(1, 1, 1);
///     a + b;    // (2, 3, 4)
///     a - b;    // (0, 1, 2)
///     -b;       // (-1, -1, -1)
///     2.0 * a;  // (2, 4, 6)
///     a * 2.0;  // (2, 4, 6)
///     a / 2.0;  // (0.5, 1, 1.5)
ZEPH_API CZEPHVector3 operator+(const CZEPHVector3& a, const CZEPHVector3& b);
ZEPH_API CZEPHVector3 operator-(const CZEPHVector3& a, const CZEPHVector3& b);
ZEPH_API CZEPHVector3 operator-(const CZEPHVector3& a);
ZEPH_API CZEPHVector3 operator*(const double& s, const CZEPHVector3& v);
ZEPH_API CZEPHVector3 operator*(const CZEPHVector3& v, const double& s);
ZEPH_API CZEPHVector3 operator/(const CZEPHVector3& v, const double& s);

/// Dot product: a.y * b.y + a.x * b.x + a.z * b.z, added in this order.
///
///     CZEPHVector3(1, 2, 3) * CZEPHVector3(4, 5, 6);  // 32
ZEPH_API double operator*(const CZEPHVector3& a, const CZEPHVector3& b);

/// Cross product a x b; `^` binds weaker than `+` and `==`, so parenthesise it.
///
///     CZEPHVector3(1, 0, 0) ^ CZEPHVector3(0, 1, 0);  // (0, 0, 1)
ZEPH_API CZEPHVector3 operator^(const CZEPHVector3& a, const CZEPHVector3& b);

/// 1 or 0: exact comparison of all components; 0.0 equals -0.0, NaN differs from everything.
///
///     CZEPHVector3(0, 1, 2) == CZEPHVector3(-0.0, 1, 2);  // 1
///     CZEPHVector3(0, 1, 2) != CZEPHVector3(0, 1, 3);     // 1
ZEPH_API int operator==(const CZEPHVector3& a, const CZEPHVector3& b);
ZEPH_API int operator!=(const CZEPHVector3& a, const CZEPHVector3& b);

/// Writes "[ x ; y ; z ]", numbers in the stream's formatting, without a line end.
///
///     std::cout << CZEPHVector3(1, 2.5, 3);  // prints "[ 1 ; 2.5 ; 3 ]"
ZEPH_API std::ostream& operator<<(std::ostream& os, const CZEPHVector3& v);

/// The direction half-way between two: the sum, scaled to length 1.
///
/// (0, 0, 1) where the squared length of the sum is below 1e-5: for opposite or null vectors.
///
///     Bisect(CZEPHVector3(0, 2, 0), CZEPHVector3(0, 1, 0));   // (0, 1, 0)
///     Bisect(CZEPHVector3(1, 0, 0), CZEPHVector3(-1, 0, 0));  // (0, 0, 1)
ZEPH_API CZEPHVector3 Bisect(CZEPHVector3 a, CZEPHVector3 b);

/// Brings x, then y, then z into [lo, hi] by the rule of the scalar ZEPH_MathClamp (algorithms.h).
///
/// Bounds that are components of `v` itself are read as they change.
///
///     CZEPHVector3 v(-1, 0.5, 7);
///     ZEPH_MathClamp(v, 0, 1);  // v is (0, 0.5, 1)
ZEPH_API void ZEPH_MathClamp(CZEPHVector3& v, const double& lo, const double& hi);

// --- added --------------------------------------------------------------------------------------

/// Reads what operator<< wrote, "[ x ; y ; z ]". Any white space may separate brackets, semicolons
/// and numbers; anything else sets failbit and leaves the vector unchanged. Standard streams do not
/// read infinities and NaN. A program's own `operator>>` for the class is always preferred.
ZEPH_ADDED inline std::istream& operator>>(std::istream& is, ZEPH_ReadInto<CZEPHVector3> v) {
  double read[3];
  char sign = 0;
  for (int i = 0; i < 3; ++i) {
    if (is >> sign && sign != (i == 0 ? '[' : ';')) is.setstate(std::ios_base::failbit);
    is >> read[i];
  }
  if (is >> sign && sign != ']') is.setstate(std::ios_base::failbit);
  if (is) {
    v.target.m_x = read[0];
    v.target.m_y = read[1];
    v.target.m_z = read[2];
  }
  return is;
}

#endif  // ZEPH_LINALG_VECTOR3_H
