// SPDX-License-Identifier: MIT
//
/// @file
/// Single-precision vectors and the 4x4 transform matrix.
//
//   CZEPHVector2D, CZEPHVector3D,   float vectors with operators, lengths, interpolation and
//   CZEPHVector4D                   rotations
//   CZEPHVector3S                   a bare record of three floats, with its free functions:
//                                   ZEPH_AddVectors, ZEPH_CopyVector, ZEPH_CrossVectors,
//                                   ZEPH_DotVectors, ZEPH_ScaleVector
//   CZEPHMatrix4x4                  column-major 4x4 transform: builders, product, vector
//                                   transforms, inverses
//
// Conventions, the same everywhere in this header:
//
//   - Angles are doubles in degrees. Radians are (angle * 3.141592653589793) / 180.0; sine and
//     cosine are taken in double and rounded to float (the Euler builder alone goes on in double).
//   - Rotations are right-handed: a positive angle turns counter-clockwise as seen from the tip of
//     the axis. A quarter turn about z takes (1, 0, 0) to (nearly 0, 1, 0).
//   - Vectors are columns and stand on the right: (A * B) * v applies B first.
//   - Storage is column-major: entry 4 * column + row. The translation is entries 12, 13, 14.
//   - Every operation on components is rounded to float, products and sums apart, and sums run left
//     to right in x, y, z, w order unless an entry below says otherwise. So results are the same to
//     the last bit with every compiler and processor; those that take a sine, cosine or tangent
//     depend on the C runtime's, or with ZEPH_PORTABLE_MATH are the same everywhere too.
//   - Comparisons are exact. Nothing here allocates, prints, throws or reports an error, and
//     nothing is checked unless an entry says so: NaN and infinities follow the ordinary rules, and
//     null pointers must not be passed.
//   - Objects are plain values with a virtual destructor; distinct objects may be used by distinct
//     threads at once.
#ifndef ZEPH_GRAPHICS_H
#define ZEPH_GRAPHICS_H

#include <cstring>

#include "platform.h"

/// A vector of two floats.
///
///     CZEPHVector2D v(3, 4);
///     v.GetLength();  // 5
class ZEPH_API CZEPHVector2D {
 public:
  /// (0, 0).
  ZEPH_EMIT CZEPHVector2D() : x(0), y(0) {}
  /// (`newX`, `newY`).
  ZEPH_EMIT CZEPHVector2D(float newX, float newY) : x(newX), y(newY) {}
  /// (p[0], p[0] + 1): only the first element is read, unlike in the larger classes.
  ///
  ///     const float p[] = {3, 7};
  ///     CZEPHVector2D v(p);  // (3, 4)
  CZEPHVector2D(const float* p);  // NOLINT: implicit, as documented
  /// A copy, bit for bit.
  ZEPH_EMIT CZEPHVector2D(const CZEPHVector2D& other) : x(other.x), y(other.y) {}
  /// Does nothing.
  ZEPH_EMIT virtual ~CZEPHVector2D() {}
  /// Copies the components.
  ///
  ///     CZEPHVector2D v, w(1, 2);
  ///     v = w;
  ///     v == w;  // 1
  ZEPH_EMIT CZEPHVector2D& operator=(const CZEPHVector2D& other) {
    x = other.x;
    y = other.y;
    return *this;
  }

  /// One component.
  ///
  ///     CZEPHVector2D v(1, 2);
  ///     v.GetX();  // 1
  ///     v.GetY();  // 2
  ZEPH_EMIT float GetX() const { return x; }
  ZEPH_EMIT float GetY() const { return y; }
  /// Stores one component; the others stay.
  ///
  ///     CZEPHVector2D v(1, 2);
  ///     v.SetX(7), v.SetY(8);
  ///     v;  // (7, 8)
  ZEPH_EMIT void SetX(float value) { x = value; }
  ZEPH_EMIT void SetY(float value) { y = value; }
  /// Stores both components.
  ///
  ///     CZEPHVector2D v;
  ///     v.Set(1, 2);  // v is (1, 2)
  ZEPH_EMIT void Set(float newX, float newY) {
    x = newX;
    y = newY;
  }

  /// Sum and difference, component by component.
  ///
  ///     const CZEPHVector2D v(1, 2);
  ///     v + CZEPHVector2D(1, 1);  // (2, 3)
  ///     v - CZEPHVector2D(1, 1);  // (0, 1)
  CZEPHVector2D operator+(const CZEPHVector2D& other) const;
  CZEPHVector2D operator-(const CZEPHVector2D& other) const;
  /// Each component multiplied by `s`.
  ///
  ///     CZEPHVector2D(1, 2) * 2;  // (2, 4)
  CZEPHVector2D operator*(float s) const;
  /// Each component divided by `s` (true divisions); the zero vector for a divisor of 0 or -0.
  ///
  ///     CZEPHVector2D v = CZEPHVector2D(1, 2) / 0.0f;  // (0, 0)
  CZEPHVector2D operator/(float s) const;
  /// Each sign flipped: 0 becomes -0.
  ///
  ///     -CZEPHVector2D(1, 2);  // (-1, -2)
  CZEPHVector2D operator-() const;
  /// A copy.
  ///
  ///     +CZEPHVector2D(1, 2);  // (1, 2)
  CZEPHVector2D operator+() const;
  /// In place, component by component.
  ///
  ///     CZEPHVector2D v(1, 2);
  ///     v += CZEPHVector2D(1, 1);  // v is (2, 3)
  ///     v -= CZEPHVector2D(1, 1);  // v is (1, 2)
  ///     v *= 2;  // v is (2, 4)
  void operator+=(const CZEPHVector2D& other);
  void operator-=(const CZEPHVector2D& other);
  void operator*=(float s);
  /// In place; a divisor of 0 or -0 leaves the vector unchanged.
  ///
  ///     CZEPHVector2D v(1, 2);
  ///     v /= 2;  // v is (0.5, 1)
  ///     v /= 0;  // v is (0.5, 1)
  void operator/=(float s);
  /// 1 when every component compares equal, else 0. Exact: 0 equals -0, NaN equals nothing.
  ///
  ///     const CZEPHVector2D v(1, 2);
  ///     v == v;     // 1
  ///     v == v * 2; // 0
  ///     v != v * 2; // 1
  int operator==(const CZEPHVector2D& other) const;
  /// The negation of `==`.
  int operator!=(const CZEPHVector2D& other) const;
  /// The address of the object itself, which is not where `x` lies. Use `&v.x` for the components.
  ///
  ///     CZEPHVector2D v(1, 2);
  ///     static_cast<float*>(v) == reinterpret_cast<float*>(&v);  // 1
  ///     const float* p = static_cast<const float*>(v);           // the same
  ///     (&v.x)[1];                                               // 2
  operator float*() const;        // NOLINT: implicit, as documented
  operator const float*() const;  // NOLINT: implicit, as documented

  /// Float square root of GetSquaredLength().
  float GetLength() const;
  /// x * x + y * y.
  ///
  ///     CZEPHVector2D(3, 4).GetSquaredLength();  // 25
  float GetSquaredLength() const;
  /// Scales to length 1 by one reciprocal and multiplications; left alone where the rounded length
  /// is exactly 0 or 1.
  ///
  ///     CZEPHVector2D v(3, 4);
  ///     v.Normalize();  // (0.6, 0.8), rounded as 3 * (1 / 5) and 4 * (1 / 5)
  void Normalize();
  /// A copy, normalised.
  ///
  ///     CZEPHVector2D(0, -2).GetNormalized();  // (0, -1)
  CZEPHVector2D GetNormalized() const;
  /// this * (1 - factor) + other * factor. The factor is not limited to 0..1.
  ///
  ///     CZEPHVector2D a(0, 0), b(2, 4);
  ///     a.LinearInterpolate(b, 0.5f);  // (1, 2)
  CZEPHVector2D LinearInterpolate(const CZEPHVector2D& other, float factor) const;
  /// The quadratic Bezier curve from this to `end` with control point `middle`: with t the factor
  /// and u = 1 - t, ((this * u) * u + ((2 * middle) * t) * u) + (end * t) * t.
  ///
  ///     CZEPHVector2D a(0, 0), b(1, 2), c(2, 0);
  ///     a.QuadraticInterpolate(b, c, 0.5f);  // (1, 1)
  CZEPHVector2D QuadraticInterpolate(const CZEPHVector2D& middle, const CZEPHVector2D& end,
                                     float factor) const;

  float x;  ///< The first component.
  float y;  ///< The second component.
};

/// The same as `v * s`.
///
///     2.0f * CZEPHVector2D(1, 2);  // (2, 4)
ZEPH_API CZEPHVector2D operator*(float s, const CZEPHVector2D& v);

/// A vector of three floats: a point or a direction.
///
///     CZEPHVector3D right(1, 0, 0), up(0, 1, 0);
///     right.CrossProduct(up);  // (0, 0, 1)
class ZEPH_API CZEPHVector3D {
 public:
  /// (0, 0, 0).
  ZEPH_EMIT CZEPHVector3D() : x(0), y(0), z(0) {}
  /// (`newX`, `newY`, `newZ`).
  ZEPH_EMIT CZEPHVector3D(float newX, float newY, float newZ) : x(newX), y(newY), z(newZ) {}
  /// (p[0], p[1], p[2]).
  ZEPH_EMIT ZEPH_CHECKED CZEPHVector3D(const float* p)  // NOLINT: implicit, as documented
      : x((ZEPH_REQUIRE_POINTER("CZEPHVector3D::CZEPHVector3D", p), p[0])), y(p[1]), z(p[2]) {}
  /// A copy, bit for bit.
  ZEPH_EMIT CZEPHVector3D(const CZEPHVector3D& other) : x(other.x), y(other.y), z(other.z) {}
  /// Does nothing.
  ZEPH_EMIT virtual ~CZEPHVector3D() {}
  /// Copies the components.
  ///
  ///     CZEPHVector3D v, w(1, 2, 3);
  ///     v = w;
  ///     v == w;  // 1
  ZEPH_EMIT CZEPHVector3D& operator=(const CZEPHVector3D& other) {
    x = other.x;
    y = other.y;
    z = other.z;
    return *this;
  }

  /// One component.
  ///
  ///     CZEPHVector3D v(1, 2, 3);
  ///     v.GetX();  // 1
  ///     v.GetY();  // 2
  ///     v.GetZ();  // 3
  ZEPH_EMIT float GetX() const { return x; }
  ZEPH_EMIT float GetY() const { return y; }
  ZEPH_EMIT float GetZ() const { return z; }
  /// Stores one component; the others stay.
  ///
  ///     CZEPHVector3D v(1, 2, 3);
  ///     v.SetX(7), v.SetY(8), v.SetZ(9);
  ///     v;  // (7, 8, 9)
  ZEPH_EMIT void SetX(float value) { x = value; }
  ZEPH_EMIT void SetY(float value) { y = value; }
  ZEPH_EMIT void SetZ(float value) { z = value; }
  /// Stores all three components.
  ///
  ///     CZEPHVector3D v;
  ///     v.Set(1, 2, 3);  // v is (1, 2, 3)
  ZEPH_EMIT void Set(float newX, float newY, float newZ) {
    x = newX;
    y = newY;
    z = newZ;
  }
  /// Every component 0, or 1.
  ///
  ///     CZEPHVector3D v;
  ///     v.LoadOne();   // v is (1, 1, 1)
  ///     v.LoadZero();  // v is (0, 0, 0)
  ZEPH_EMIT void LoadZero() { Set(0, 0, 0); }
  ZEPH_EMIT void LoadOne() { Set(1, 1, 1); }

  /// Sum and difference, component by component.
  ///
  ///     const CZEPHVector3D v(1, 2, 3);
  ///     v + CZEPHVector3D(1, 1, 1);  // (2, 3, 4)
  ///     v - CZEPHVector3D(1, 1, 1);  // (0, 1, 2)
  CZEPHVector3D operator+(const CZEPHVector3D& other) const;
  CZEPHVector3D operator-(const CZEPHVector3D& other) const;
  /// Each component multiplied by `s`.
  ///
  ///     CZEPHVector3D(1, 2, 3) * 2;  // (2, 4, 6)
  CZEPHVector3D operator*(float s) const;
  /// Each component divided by `s` (true divisions); the zero vector for a divisor of 0 or -0.
  ///
  ///     CZEPHVector3D v = CZEPHVector3D(1, 2, 3) / 0.0f;  // (0, 0, 0)
  CZEPHVector3D operator/(float s) const;
  /// Each sign flipped: 0 becomes -0.
  ///
  ///     -CZEPHVector3D(1, 2, 3);  // (-1, -2, -3)
  CZEPHVector3D operator-() const;
  /// A copy.
  ///
  ///     +CZEPHVector3D(1, 2, 3);  // (1, 2, 3)
  CZEPHVector3D operator+() const;
  /// In place, component by component.
  ///
  ///     CZEPHVector3D v(1, 2, 3);
  ///     v += CZEPHVector3D(1, 1, 1);  // v is (2, 3, 4)
  ///     v -= CZEPHVector3D(1, 1, 1);  // v is (1, 2, 3)
  ///     v *= 2;  // v is (2, 4, 6)
  void operator+=(const CZEPHVector3D& other);
  void operator-=(const CZEPHVector3D& other);
  void operator*=(float s);
  /// In place; a divisor of 0 or -0 leaves the vector unchanged.
  ///
  ///     CZEPHVector3D v(1, 2, 3);
  ///     v /= 2;  // v is (0.5, 1, 1.5)
  ///     v /= 0;  // v is (0.5, 1, 1.5)
  void operator/=(float s);
  /// 1 when every component compares equal, else 0. Exact: 0 equals -0, NaN equals nothing.
  ///
  ///     const CZEPHVector3D v(1, 2, 3);
  ///     v == v;     // 1
  ///     v == v * 2; // 0
  ///     v != v * 2; // 1
  int operator==(const CZEPHVector3D& other) const;
  /// The negation of `==`.
  int operator!=(const CZEPHVector3D& other) const;
  /// The address of the object itself, which is not where `x` lies. Use `&v.x` for the components.
  ///
  ///     CZEPHVector3D v(1, 2, 3);
  ///     static_cast<float*>(v) == reinterpret_cast<float*>(&v);  // 1
  ///     const float* p = static_cast<const float*>(v);           // the same
  ///     (&v.x)[1];                                               // 2
  operator float*() const;        // NOLINT: implicit, as documented
  operator const float*() const;  // NOLINT: implicit, as documented

  /// Float square root of GetSquaredLength().
  ///
  ///     CZEPHVector3D(2, 3, 6).GetLength();  // 7
  float GetLength() const;
  /// (x * x + y * y) + z * z.
  ///
  ///     CZEPHVector3D(2, 3, 6).GetSquaredLength();  // 49
  float GetSquaredLength() const;
  /// Scales to length 1 by one reciprocal and multiplications; left alone where the rounded length
  /// is exactly 0 or 1. A squared length that overflows scales everything to 0.
  ///
  ///     CZEPHVector3D v(0, 0, -2);
  ///     v.Normalize();  // (0, 0, -1)
  void Normalize();
  /// A copy, normalised.
  ///
  ///     CZEPHVector3D(0, -2, 0).GetNormalized();  // (0, -1, 0)
  CZEPHVector3D GetNormalized() const;
  /// (x * x' + y * y') + z * z'.
  ///
  ///     CZEPHVector3D(1, 2, 3).DotProduct(CZEPHVector3D(4, 5, 6));  // 32
  float DotProduct(const CZEPHVector3D& other) const;
  /// (y * z' - z * y', z * x' - x * z', x * y' - y * x').
  ///
  ///     CZEPHVector3D(0, 1, 0).CrossProduct(CZEPHVector3D(0, 0, 1));  // (1, 0, 0)
  CZEPHVector3D CrossProduct(const CZEPHVector3D& other) const;
  /// `result` = this + `other`; this is unchanged, unless it is `result`.
  ///
  ///     CZEPHVector3D a(1, 2, 3), b(1, 1, 1), out;
  ///     a.Add(b, out);  // out is (2, 3, 4)
  void Add(const CZEPHVector3D& other, CZEPHVector3D& result);
  /// `result` = this - `other`; this is unchanged, unless it is `result`.
  ///
  ///     CZEPHVector3D a(1, 2, 3), b(1, 1, 1), out;
  ///     a.Subtract(b, out);  // out is (0, 1, 2)
  void Subtract(const CZEPHVector3D& other, CZEPHVector3D& result);
  /// this * (1 - factor) + other * factor. The factor is not limited to 0..1.
  ///
  ///     CZEPHVector3D a(0, 0, 0), b(2, 4, 6);
  ///     a.LinearInterpolate(b, 0.5f);  // (1, 2, 3)
  CZEPHVector3D LinearInterpolate(const CZEPHVector3D& other, float factor) const;
  /// The quadratic Bezier curve from this to `end` with control point `middle`: with t the factor
  /// and u = 1 - t, ((this * u) * u + ((2 * middle) * t) * u) + (end * t) * t.
  ///
  ///     CZEPHVector3D a(0, 0, 0), b(1, 2, 0), c(2, 0, 0);
  ///     a.QuadraticInterpolate(b, c, 0.5f);  // (1, 1, 0)
  CZEPHVector3D QuadraticInterpolate(const CZEPHVector3D& middle, const CZEPHVector3D& end,
                                     float factor) const;
  /// Becomes GetPackedTo01().
  ///
  ///     CZEPHVector3D v(0, 0, -2);
  ///     v.PackTo01();  // v is (0.5, 0.5, 0)
  void PackTo01();
  /// The direction as a point of the unit cube 0..1: normalised, halved, moved by (0.5, 0.5, 0.5).
  ///
  ///     CZEPHVector3D v(0, 0, -2);
  ///     v.GetPackedTo01();  // (0.5, 0.5, 0)
  CZEPHVector3D GetPackedTo01() const;

  /// Turns about a coordinate axis by `angle` degrees. An angle of exactly 0 takes no sine and
  /// gives an exact copy.
  ///
  ///     CZEPHVector3D v(1, 0, 0);
  ///     v.RotateZ(90);  // about (6.1e-17, 1, 0): the cosine of a rounded pi / 2 is not quite 0
  ///     CZEPHVector3D w(0, 0, 2);
  ///     w.RotateX(180);
  ///     w.z;                  // -2
  ///     w.RotateY(180);
  ///     w.z;                  // 2
  ///     w.GetRotatedX(180).z;  // -2
  ///     w.GetRotatedY(180).z;  // -2
  ///     CZEPHVector3D(0, 0, 2).GetRotatedZ(30);  // (0, 0, 2)
  void RotateX(double angle);
  void RotateY(double angle);
  void RotateZ(double angle);
  CZEPHVector3D GetRotatedX(double angle) const;
  CZEPHVector3D GetRotatedY(double angle) const;
  CZEPHVector3D GetRotatedZ(double angle) const;
  /// Turns about `axis`, which is normalised first, by `angle` degrees; the same bits as a matrix
  /// of SetRotationAxis gives. A zero axis scales by the cosine. An angle of exactly 0 gives a
  /// copy.
  ///
  ///     CZEPHVector3D v(1, 2, 3);
  ///     v.RotateAxis(120, CZEPHVector3D(1, 1, 1));  // about (3, 1, 2)
  ///     CZEPHVector3D(0, 0, 2).GetRotatedAxis(30, CZEPHVector3D(0, 0, 1));  // (0, 0, 2)
  void RotateAxis(double angle, const CZEPHVector3D& axis);
  CZEPHVector3D GetRotatedAxis(double angle, const CZEPHVector3D& axis) const;

  float x;  ///< The first component.
  float y;  ///< The second component.
  float z;  ///< The third component.
};

/// The same as `v * s`.
///
///     2.0f * CZEPHVector3D(1, 2, 3);  // (2, 4, 6)
ZEPH_API CZEPHVector3D operator*(float s, const CZEPHVector3D& v);

/// A vector of four floats: a homogeneous point (w = 1) or direction (w = 0).
///
///     CZEPHVector4D v(2, 4, 6, 2);
///     CZEPHVector3D p = v;  // (1, 2, 3)
class ZEPH_API CZEPHVector4D {
 public:
  /// (0, 0, 0, 0).
  ZEPH_EMIT CZEPHVector4D() : x(0), y(0), z(0), w(0) {}
  /// (`newX`, `newY`, `newZ`, `newW`).
  ZEPH_EMIT CZEPHVector4D(float newX, float newY, float newZ, float newW)
      : x(newX), y(newY), z(newZ), w(newW) {}
  /// (p[0], p[1], p[2], p[3]).
  ZEPH_EMIT ZEPH_CHECKED CZEPHVector4D(const float* p)  // NOLINT: implicit, as documented
      : x((ZEPH_REQUIRE_POINTER("CZEPHVector4D::CZEPHVector4D", p), p[0])),
        y(p[1]),
        z(p[2]),
        w(p[3]) {}
  /// A copy, bit for bit.
  ZEPH_EMIT CZEPHVector4D(const CZEPHVector4D& other)
      : x(other.x), y(other.y), z(other.z), w(other.w) {}
  /// The point (v.x, v.y, v.z, 1).
  ZEPH_EMIT CZEPHVector4D(const CZEPHVector3D& v)  // NOLINT: implicit, as documented
      : x(v.x), y(v.y), z(v.z), w(1) {}
  /// Does nothing.
  ZEPH_EMIT virtual ~CZEPHVector4D() {}
  /// Copies the components.
  ///
  ///     CZEPHVector4D v, w(1, 2, 3, 4);
  ///     v = w;
  ///     v == w;  // 1
  ZEPH_EMIT CZEPHVector4D& operator=(const CZEPHVector4D& other) {
    x = other.x;
    y = other.y;
    z = other.z;
    w = other.w;
    return *this;
  }

  /// One component.
  ///
  ///     CZEPHVector4D v(1, 2, 3, 4);
  ///     v.GetX();  // 1
  ///     v.GetY();  // 2
  ///     v.GetZ();  // 3
  ///     v.GetW();  // 4
  ZEPH_EMIT float GetX() const { return x; }
  ZEPH_EMIT float GetY() const { return y; }
  ZEPH_EMIT float GetZ() const { return z; }
  ZEPH_EMIT float GetW() const { return w; }
  /// Stores one component; the others stay.
  ///
  ///     CZEPHVector4D v(1, 2, 3, 4);
  ///     v.SetX(7), v.SetY(8), v.SetZ(9), v.SetW(6);
  ///     v;  // (7, 8, 9, 6)
  ZEPH_EMIT void SetX(float value) { x = value; }
  ZEPH_EMIT void SetY(float value) { y = value; }
  ZEPH_EMIT void SetZ(float value) { z = value; }
  ZEPH_EMIT void SetW(float value) { w = value; }
  /// Stores all four components.
  ///
  ///     CZEPHVector4D v;
  ///     v.Set(1, 2, 3, 4);  // v is (1, 2, 3, 4)
  ZEPH_EMIT void Set(float newX, float newY, float newZ, float newW) {
    x = newX;
    y = newY;
    z = newZ;
    w = newW;
  }
  /// Every component 0, or 1; w too.
  ///
  ///     CZEPHVector4D v;
  ///     v.LoadOne();   // v is (1, 1, 1, 1)
  ///     v.LoadZero();  // v is (0, 0, 0, 0)
  ZEPH_EMIT void LoadZero() { Set(0, 0, 0, 0); }
  ZEPH_EMIT void LoadOne() { Set(1, 1, 1, 1); }

  /// Sum and difference, component by component, w included.
  ///
  ///     const CZEPHVector4D v(1, 2, 3, 4);
  ///     v + CZEPHVector4D(1, 1, 1, 1);  // (2, 3, 4, 5)
  ///     v - CZEPHVector4D(1, 1, 1, 1);  // (0, 1, 2, 3)
  CZEPHVector4D operator+(const CZEPHVector4D& other) const;
  CZEPHVector4D operator-(const CZEPHVector4D& other) const;
  /// Each component multiplied by `s`.
  ///
  ///     CZEPHVector4D(1, 2, 3, 4) * 2;  // (2, 4, 6, 8)
  CZEPHVector4D operator*(float s) const;
  /// Each component divided by `s` (true divisions); the zero vector for a divisor of 0 or -0.
  ///
  ///     CZEPHVector4D(1, 2, 3, 4) / 2;  // (0.5, 1, 1.5, 2)
  CZEPHVector4D operator/(float s) const;
  /// Each sign flipped: 0 becomes -0.
  ///
  ///     -CZEPHVector4D(1, 2, 3, 4);  // (-1, -2, -3, -4)
  CZEPHVector4D operator-() const;
  /// A copy.
  ///
  ///     +CZEPHVector4D(1, 2, 3, 4);  // (1, 2, 3, 4)
  CZEPHVector4D operator+() const;
  /// In place, component by component.
  ///
  ///     CZEPHVector4D v(1, 2, 3, 4);
  ///     v += CZEPHVector4D(1, 1, 1, 1);  // v is (2, 3, 4, 5)
  ///     v -= CZEPHVector4D(1, 1, 1, 1);  // v is (1, 2, 3, 4)
  ///     v *= 2;  // v is (2, 4, 6, 8)
  void operator+=(const CZEPHVector4D& other);
  void operator-=(const CZEPHVector4D& other);
  void operator*=(float s);
  /// In place; a divisor of 0 or -0 leaves the vector unchanged.
  ///
  ///     CZEPHVector4D v(1, 2, 3, 4);
  ///     v /= 2;  // v is (0.5, 1, 1.5, 2)
  ///     v /= 0;  // v is (0.5, 1, 1.5, 2)
  void operator/=(float s);
  /// 1 when every component compares equal, else 0. Exact: 0 equals -0, NaN equals nothing.
  ///
  ///     const CZEPHVector4D v(1, 2, 3, 4);
  ///     v == v;     // 1
  ///     v == v * 2; // 0
  ///     v != v * 2; // 1
  int operator==(const CZEPHVector4D& other) const;
  /// The negation of `==`.
  int operator!=(const CZEPHVector4D& other) const;
  /// The address of the object itself, which is not where `x` lies. Use `&v.x` for the components.
  ///
  ///     CZEPHVector4D v(1, 2, 3, 4);
  ///     static_cast<float*>(v) == reinterpret_cast<float*>(&v);  // 1
  ///     const float* p = static_cast<const float*>(v);           // the same
  ///     (&v.x)[1];                                               // 2
  operator float*() const;        // NOLINT: implicit, as documented
  operator const float*() const;  // NOLINT: implicit, as documented
  /// Homogeneous projection: (x / w, y / w, z / w), or (x, y, z) as it is where w is exactly 0
  /// or 1.
  operator CZEPHVector3D();  // NOLINT: implicit, as documented

  /// ((x * x' + y * y') + z * z') + w * w'.
  ///
  ///     CZEPHVector4D v(1, 2, 3, 4);
  ///     v.DotProduct(v);  // 30
  float DotProduct(const CZEPHVector4D& other);
  /// this * (1 - factor) + other * factor. The factor is not limited to 0..1.
  ///
  ///     CZEPHVector4D a(0, 0, 0, 1), b(2, 4, 6, 1);
  ///     a.LinearInterpolate(b, 0.5f);  // (1, 2, 3, 1)
  CZEPHVector4D LinearInterpolate(const CZEPHVector4D& other, float factor) const;
  /// The quadratic Bezier curve from this to `end` with control point `middle`: with t the factor
  /// and u = 1 - t, ((this * u) * u + ((2 * middle) * t) * u) + (end * t) * t.
  ///
  ///     CZEPHVector4D a(0, 0, 0, 1), b(1, 2, 0, 1), c(2, 0, 0, 1);
  ///     a.QuadraticInterpolate(b, c, 0.5f);  // (1, 1, 0, 1)
  CZEPHVector4D QuadraticInterpolate(const CZEPHVector4D& middle, const CZEPHVector4D& end,
                                     float factor) const;

  /// Turns (x, y, z) about a coordinate axis by `angle` degrees, as CZEPHVector3D does; w is kept.
  ///
  ///     CZEPHVector4D v(0, 0, 2, 5);
  ///     v.RotateZ(30);         // v is (0, 0, 2, 5)
  ///     v.GetRotatedZ(30);     // (0, 0, 2, 5)
  ///     v.GetRotatedX(180).z;  // -2
  ///     v.GetRotatedY(180).z;  // -2
  ///     v.RotateX(180);
  ///     v.RotateY(180);
  ///     v.z;                   // 2
  void RotateX(double angle);
  void RotateY(double angle);
  void RotateZ(double angle);
  CZEPHVector4D GetRotatedX(double angle) const;
  CZEPHVector4D GetRotatedY(double angle) const;
  CZEPHVector4D GetRotatedZ(double angle) const;
  /// Turns (x, y, z) about `axis` by `angle` degrees, as CZEPHVector3D does; w is kept.
  ///
  ///     CZEPHVector4D v(0, 0, 2, 5);
  ///     v.RotateAxis(30, CZEPHVector3D(0, 0, 1));      // v is (0, 0, 2, 5)
  ///     v.GetRotatedAxis(30, CZEPHVector3D(0, 0, 1));  // (0, 0, 2, 5)
  void RotateAxis(double angle, const CZEPHVector3D& axis);
  CZEPHVector4D GetRotatedAxis(double angle, const CZEPHVector3D& axis) const;

  float x;  ///< The first component.
  float y;  ///< The second component.
  float z;  ///< The third component.
  float w;  ///< The fourth component, the divisor of a homogeneous point.
};

/// The same as `v * s`.
///
///     2.0f * CZEPHVector4D(1, 2, 3, 4);  // (2, 4, 6, 8)
ZEPH_API CZEPHVector4D operator*(float s, const CZEPHVector4D& v);

/// Three contiguous floats and nothing else: an array of three floats can be handled as one.
///
///     CZEPHVector3S a, b;
///     a.x = 1, a.y = 2, a.z = 3;
///     b = a;
///     b;  // (1, 2, 3)
class ZEPH_API CZEPHVector3S {
 public:
  /// (0, 0, 0).
  ZEPH_EMIT CZEPHVector3S() : x(0), y(0), z(0) {}
  CZEPHVector3S(const CZEPHVector3S&) = default;
  /// Does nothing.
  ZEPH_EMIT ~CZEPHVector3S() {}
  /// Copies the components.
  ZEPH_EMIT CZEPHVector3S& operator=(const CZEPHVector3S& other) {
    x = other.x;
    y = other.y;
    z = other.z;
    return *this;
  }

  float x;  ///< The first component.
  float y;  ///< The second component.
  float z;  ///< The third component.
};

// Functions on records. Pointers may be equal; components are written in x, y, z order, each before
// the next is computed, so an output that is also an input changes on the way. Null is not checked.

/// `out` = `a` + `b`.
///
///     CZEPHVector3S a, b, out;
///     a.x = 1, a.y = 2, a.z = 3, b.x = b.y = b.z = 1;
///     ZEPH_AddVectors(&a, &b, &out);  // out is (2, 3, 4)
ZEPH_API void ZEPH_AddVectors(CZEPHVector3S* a, CZEPHVector3S* b, CZEPHVector3S* out);
/// Copies `source` into `destination`: destination first.
///
///     CZEPHVector3S a, b, out;
///     a.x = 1, a.y = 2, a.z = 3, b.x = b.y = b.z = 1;
///     ZEPH_CopyVector(&out, &a);  // out is (1, 2, 3)
ZEPH_API void ZEPH_CopyVector(CZEPHVector3S* destination, CZEPHVector3S* source);
/// `out` = `a` x `b`. With `out` equal to `a` or `b` the y and z components use the new x (and y).
///
///     CZEPHVector3S a, b, out;
///     a.x = 1, a.y = 0, a.z = 0, b.x = 0, b.y = 1, b.z = 0;
///     ZEPH_CrossVectors(&a, &b, &out);  // out is (0, 0, 1)
ZEPH_API void ZEPH_CrossVectors(CZEPHVector3S* a, CZEPHVector3S* b, CZEPHVector3S* out);
/// (a.x * b.x + a.y * b.y) + a.z * b.z.
///
///     CZEPHVector3S a, b, out;
///     a.x = 1, a.y = 2, a.z = 3, b.x = b.y = b.z = 1;
///     ZEPH_DotVectors(&a, &b);  // 6
ZEPH_API float ZEPH_DotVectors(CZEPHVector3S* a, CZEPHVector3S* b);
/// Multiplies each component of `v` by `s`, in place.
///
///     CZEPHVector3S v;
///     v.x = 1, v.y = 2, v.z = 3;
///     ZEPH_ScaleVector(&v, 2);  // v is (2, 4, 6)
ZEPH_API void ZEPH_ScaleVector(CZEPHVector3S* v, float s);

/// A 4x4 matrix of floats that transforms column vectors.
///
/// Entry 4 * column + row, so entries 0..3 are the first column and 12, 13, 14 the translation. A
/// matrix whose bottom row (entries 3, 7, 11, 15) is exactly 0, 0, 0, 1 is called affine; the
/// products take shortcuts for it.
///
///     CZEPHMatrix4x4 turn, move;
///     turn.SetRotationZ(90), move.SetTranslation(CZEPHVector3D(5, 0, 0));
///     CZEPHVector3D p = (move * turn) * CZEPHVector4D(1, 0, 0, 1);  // turned, moved: (5, 1, 0)
class ZEPH_API CZEPHMatrix4x4 {
 public:
  /// The identity.
  ZEPH_EMIT CZEPHMatrix4x4() { LoadIdentity(); }
  /// A copy, bit for bit.
  ZEPH_EMIT CZEPHMatrix4x4(const CZEPHMatrix4x4& other) {
    std::memcpy(entries, other.entries, sizeof entries);
  }
  /// Entries 0 to 15 in argument order: the first four are the first column.
  ///
  ///     CZEPHMatrix4x4 m(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
  ///     m.GetRow(0);  // (1, 5, 9, 13)
  ZEPH_EMIT CZEPHMatrix4x4(float e0, float e1, float e2, float e3, float e4, float e5, float e6,
                           float e7, float e8, float e9, float e10, float e11, float e12, float e13,
                           float e14, float e15)
      : entries{e0, e1, e2, e3, e4, e5, e6, e7, e8, e9, e10, e11, e12, e13, e14, e15} {}
  /// Sixteen floats copied in order.
  ZEPH_EMIT ZEPH_CHECKED CZEPHMatrix4x4(const float* p) {  // NOLINT: implicit, as documented
    ZEPH_REQUIRE_POINTER("CZEPHMatrix4x4::CZEPHMatrix4x4", p);
    std::memcpy(entries, p, sizeof entries);
  }
  /// Does nothing.
  ZEPH_EMIT virtual ~CZEPHMatrix4x4() {}
  /// Copies the entries.
  ///
  ///     CZEPHMatrix4x4 a, b;
  ///     b.SetUniformScale(2);
  ///     a = b;
  ///     a == b;  // 1
  ZEPH_EMIT CZEPHMatrix4x4& operator=(const CZEPHMatrix4x4& other) {
    if (this != &other) std::memcpy(entries, other.entries, sizeof entries);
    return *this;
  }

  /// Ones on the diagonal, zeros elsewhere.
  ZEPH_EMIT void LoadIdentity() {
    LoadZero();
    entries[0] = entries[5] = entries[10] = entries[15] = 1;
  }
  /// All entries 0.
  ZEPH_EMIT void LoadZero() {
    for (float& entry : entries) entry = 0;
  }

  /// Stores an entry; an index outside 0..15 is ignored.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetEntry(12, 5);
  ///     m.GetEntry(12);  // 5
  ///     m.GetEntry(16);  // 0
  ZEPH_EMIT void SetEntry(int index, float value) {
    if (index >= 0 && index < 16) entries[index] = value;
  }
  /// An entry; 0 for an index outside 0..15.
  ZEPH_EMIT float GetEntry(int index) const {
    return index >= 0 && index < 16 ? entries[index] : 0.0f;
  }
  /// Row or column 0..3; (0, 0, 0, 0) for any other index.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetTranslation(CZEPHVector3D(5, 6, 7));
  ///     m.GetRow(0);     // (1, 0, 0, 5)
  ///     m.GetColumn(3);  // (5, 6, 7, 1)
  ZEPH_EMIT CZEPHVector4D GetRow(int index) const {
    if (index < 0 || index > 3) return CZEPHVector4D();
    return CZEPHVector4D(entries[index], entries[index + 4], entries[index + 8],
                         entries[index + 12]);
  }
  ZEPH_EMIT CZEPHVector4D GetColumn(int index) const {
    if (index < 0 || index > 3) return CZEPHVector4D();
    return CZEPHVector4D(entries + 4 * index);
  }
  /// The address of the object itself, which is not where the entries lie. Use `m.entries` for
  /// those.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     static_cast<float*>(m) == reinterpret_cast<float*>(&m);  // 1
  ///     const float* p = static_cast<const float*>(m);           // the same
  ///     m.entries[5];                                            // 1
  operator float*() const;        // NOLINT: implicit, as documented
  operator const float*() const;  // NOLINT: implicit, as documented

  /// Entry by entry.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     (m + m).GetEntry(0);  // 2
  ///     (m - m).GetEntry(0);  // 0
  CZEPHMatrix4x4 operator+(const CZEPHMatrix4x4& other) const;
  CZEPHMatrix4x4 operator-(const CZEPHMatrix4x4& other) const;
  /// Each sign flipped: 0 becomes -0.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     (-m).GetEntry(0);  // -1
  ///     (+m).GetEntry(0);  // 1
  CZEPHMatrix4x4 operator-() const;
  /// A copy.
  CZEPHMatrix4x4 operator+() const;
  /// Every entry multiplied by `s`.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     (m * 3).GetEntry(0);  // 3
  CZEPHMatrix4x4 operator*(float s) const;
  /// Every entry multiplied by 1 / `s`; an unchanged copy where `s` is exactly 0 or 1.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     (m / 2).GetEntry(0);  // 0.5
  CZEPHMatrix4x4 operator/(float s) const;
  /// The product: applying it applies `other` first.
  ///
  /// Entry (i, j) is the sum over k = 0..3 of this(i, k) * other(k, j), in that order. Where a
  /// factor is affine, the terms that the zeros of its bottom row cancel are left out, so an
  /// infinity or NaN elsewhere is not multiplied by those zeros; two affine factors give an exactly
  /// affine product.
  CZEPHMatrix4x4 operator*(const CZEPHMatrix4x4& other) const;
  /// The transformed vector: e[i] * x + e[4 + i] * y + e[8 + i] * z + e[12 + i] * w for each row i.
  /// An affine matrix copies w.
  CZEPHVector4D operator*(CZEPHVector4D v) const;
  /// The matching operator's result, copied into this. `m *= n` is m = m * n.
  ///
  ///     CZEPHMatrix4x4 m, n;
  ///     m *= 8;
  ///     m += n;
  ///     m -= n;
  ///     m /= 2;
  ///     m *= m;
  ///     m.GetEntry(0);  // 16
  void operator*=(const CZEPHMatrix4x4& other);
  void operator*=(float s);
  void operator+=(const CZEPHMatrix4x4& other);
  void operator-=(const CZEPHMatrix4x4& other);
  void operator/=(float s);
  /// 1 when all entries compare equal, else 0. Exact: 0 equals -0, NaN equals nothing.
  int operator==(const CZEPHMatrix4x4& other) const;
  /// The negation of `==`.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m != m * 2;  // 1
  int operator!=(const CZEPHMatrix4x4& other) const;

  /// The upper-left 3x3 part times the vector, without translation.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetRotationZ(180);
  ///     CZEPHVector3D w(0, 0, 2);
  ///     m.RotateVector3D(w);         // w is (0, 0, 2)
  ///     m.InverseRotateVector3D(w);  // w is (0, 0, 2)
  CZEPHVector3D GetRotatedVector3D(const CZEPHVector3D& v) const;
  void RotateVector3D(CZEPHVector3D& v) const;
  /// The transposed 3x3 part times the vector: the inverse rotation where that part is a rotation,
  /// which is not checked.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetRotationX(30), m.GetInverseRotatedVector3D(m.GetRotatedVector3D(v));  // about v
  CZEPHVector3D GetInverseRotatedVector3D(const CZEPHVector3D& v) const;
  void InverseRotateVector3D(CZEPHVector3D& v) const;
  /// The vector plus, or minus, the translation; the 3x3 part is not used.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetTranslation(CZEPHVector3D(5, 6, 7));
  ///     CZEPHVector3D w(1, 2, 3);
  ///     m.GetTranslatedVector3D(w);         // (6, 8, 10)
  ///     m.GetInverseTranslatedVector3D(w);  // (-4, -4, -4)
  ///     m.TranslateVector3D(w);             // w is (6, 8, 10)
  ///     m.InverseTranslateVector3D(w);      // w is (1, 2, 3)
  CZEPHVector3D GetTranslatedVector3D(const CZEPHVector3D& v) const;
  void TranslateVector3D(CZEPHVector3D& v) const;
  CZEPHVector3D GetInverseTranslatedVector3D(const CZEPHVector3D& v) const;
  void InverseTranslateVector3D(CZEPHVector3D& v) const;

  /// Rows and columns exchanged.
  ///
  ///     CZEPHMatrix4x4 m(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
  ///     m.GetTranspose().GetRow(0);  // (1, 2, 3, 4)
  ///     m.Transpose();
  ///     m.GetRow(0);                 // (1, 2, 3, 4)
  CZEPHMatrix4x4 GetTranspose() const;
  void Transpose();

  /// The identity with translation `v`.
  void SetTranslation(const CZEPHVector3D& v);
  /// Sets entries 12, 13, 14 and no other.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetUniformScale(2);
  ///     m.SetTranslationPart(CZEPHVector3D(5, 6, 7));
  ///     m.GetRow(0);  // (2, 0, 0, 5)
  void SetTranslationPart(const CZEPHVector3D& v);
  /// The identity with diagonal (v.x, v.y, v.z, 1), or (s, s, s, 1).
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetScale(CZEPHVector3D(2, 3, 4));
  ///     m.GetRow(1);  // (0, 3, 0, 0)
  void SetScale(const CZEPHVector3D& v);
  void SetUniformScale(float s);
  /// The rotation about a coordinate axis by `angle` degrees. The sine and cosine of 0 are computed
  /// too.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetRotationZ(90);  // takes (1, 0, 0) to (6.1e-17, 1, 0)
  ///     m.SetRotationY(180);
  ///     m.GetRow(1);  // (0, 1, 0, 0)
  void SetRotationX(double angle);
  void SetRotationY(double angle);
  void SetRotationZ(double angle);
  /// The rotation about `axis`, normalised first, by `angle` degrees; rotates a vector to the same
  /// bits as CZEPHVector3D::GetRotatedAxis does. A zero axis gives a scale by the cosine.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetRotationAxis(30, CZEPHVector3D(0, 0, 2));
  ///     m.GetRow(2);  // (0, 0, 1, 0)
  void SetRotationAxis(double angle, const CZEPHVector3D& axis);
  /// Sets the upper-left 3x3 part to the rotation about x by `angleX`, then about y, then about z
  /// (the matrix Rz * Ry * Rx), computed in double; the other entries keep their values.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetTranslation(CZEPHVector3D(5, 6, 7));
  ///     m.SetRotationPartEuler(0, 0, 30);
  ///     m.GetRow(2);  // (0, 0, 1, 7)
  void SetRotationPartEuler(double angleX, double angleY, double angleZ);
  /// The same, with the components of `angles` as degrees.
  void SetRotationPartEuler(const CZEPHVector3D& angles);
  /// The identity with that rotation.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetRotationEuler(0, 0, 90);  // the quarter turn about z
  void SetRotationEuler(double angleX, double angleY, double angleZ);

  /// The perspective projection of a frustum whose near rectangle is left..right, bottom..top at
  /// distance `near`, looking along -z, onto -1..1 in x, y and z. Names and signs follow the
  /// classic frustum call of graphics libraries.
  ///
  /// `far` exactly -1 stands for infinity, with 0.999 in place of 1 in the depth entries. Where
  /// left equals right, top equals bottom or near equals far, the matrix is all zeros.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetPerspective(-1, 1, -1, 1, 1, 100);  // e0 = e5 = 1, e10 = -101/99, e14 = -200/99
  void SetPerspective(float left, float right, float bottom, float top, float near, float far);
  /// The same for a full vertical field of view of `fovy` degrees and `aspect` = width / height.
  /// Here alone degrees are converted in single precision and the float tangent is taken.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetPerspective(60, 16.0f / 9, 0.1f, 1000);
  void SetPerspective(float fovy, float aspect, float near, float far);
  /// The orthographic projection of the box onto -1..1. Nothing is checked: equal planes give
  /// infinities or NaN.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetOrtho(0, 640, 480, 0, -1, 1);  // pixels, y down
  void SetOrtho(float left, float right, float bottom, float top, float near, float far);

  /// The transposed inverse, which transforms surface normals. The identity for a singular matrix.
  ///
  /// Cramer's rule with shared 2x2 products; the cofactors are multiplied by the rounded reciprocal
  /// of the determinant (not scaled where it is exactly 1). Singular means a determinant of exactly
  /// 0, so a nearly singular matrix gives an inverse with whatever accuracy single precision
  /// leaves.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetTranslation(CZEPHVector3D(5, 6, 7));
  ///     m.GetInverseTranspose().GetRow(3);  // (-5, -6, -7, 1)
  CZEPHMatrix4x4 GetInverseTranspose() const;
  /// The inverse: GetInverseTranspose(), transposed. The identity for a singular matrix.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetUniformScale(2), m.GetInverse();  // 0.5 on the diagonal, then 1
  ///     m.Invert();
  ///     m.GetEntry(0);           // 0.5
  ///     m.InvertTranspose();
  ///     m.GetEntry(0);           // 2
  CZEPHMatrix4x4 GetInverse() const;
  void InvertTranspose();
  void Invert();
  /// The inverse of a rotation followed by a translation: the 3x3 part transposed, the translation
  /// -(transposed * translation), the bottom row 0, 0, 0, 1. Not checked: with scale or shear in
  /// the 3x3 part the result is not the inverse, and the bottom row is not read.
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetRotationZ(30), m.SetTranslationPart(CZEPHVector3D(1, 2, 3)), m.AffineInvert();
  ///     CZEPHMatrix4x4 n;
  ///     n.SetTranslation(CZEPHVector3D(5, 6, 7));
  ///     n.GetAffineInverse().GetRow(0);  // (1, 0, 0, -5)
  CZEPHMatrix4x4 GetAffineInverse() const;
  /// The transpose of GetAffineInverse().
  ///
  ///     CZEPHMatrix4x4 m;
  ///     m.SetTranslation(CZEPHVector3D(5, 6, 7));
  ///     m.GetAffineInverseTranspose().GetRow(3);  // (-5, -6, -7, 1)
  ///     m.AffineInvertTranspose();
  ///     m.GetRow(3);                              // (-5, -6, -7, 1)
  CZEPHMatrix4x4 GetAffineInverseTranspose() const;
  void AffineInvert();
  void AffineInvertTranspose();

  float entries[16];  ///< By columns: element (row, column) is entries[4 * column + row].
};

#endif  // ZEPH_GRAPHICS_H
