// SPDX-License-Identifier: MIT
//
/// @file
/// CZEPHVector2D: two floats.
#ifndef ZEPH_GRAPHICS_VECTOR2D_H
#define ZEPH_GRAPHICS_VECTOR2D_H

#include "../platform.h"

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

#endif  // ZEPH_GRAPHICS_VECTOR2D_H
