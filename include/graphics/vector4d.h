// SPDX-License-Identifier: MIT
//
/// @file
/// CZEPHVector4D: four floats, a homogeneous point or direction.
#ifndef ZEPH_GRAPHICS_VECTOR4D_H
#define ZEPH_GRAPHICS_VECTOR4D_H

#include "../platform.h"
#include "vector3d.h"

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

#endif  // ZEPH_GRAPHICS_VECTOR4D_H
