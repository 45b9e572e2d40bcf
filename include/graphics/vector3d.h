// SPDX-License-Identifier: MIT
//
/// @file
/// CZEPHVector3D: three floats, a point or a direction; rotations.
#ifndef ZEPH_GRAPHICS_VECTOR3D_H
#define ZEPH_GRAPHICS_VECTOR3D_H

#include "../platform.h"

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

#endif  // ZEPH_GRAPHICS_VECTOR3D_H
