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
  /// One component; x(), y() and z() serve constants as well.
  ZEPH_EMIT double GetX() { return m_x; }
  ZEPH_EMIT double GetY() { return m_y; }
  ZEPH_EMIT double GetZ() { return m_z; }

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

  /// Divides each component by the length, in place, and returns the length.
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

// --- added --------------------------------------------------------------------------------------

/// Reads what operator<< wrote, "[ x ; y ; z ]". White space between the signs and numbers is free;
/// anything else sets failbit and leaves the vector as it was. Infinities and NaN are not read by
/// standard streams. A program's own `operator>>` for the class is always preferred.
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
