// SPDX-License-Identifier: MIT
//
// Lengths, products, interpolation, packing and projection of vectors.
#include "graphics/components.h"

using namespace zeph::graphics;

#define ZEPH_DEFINE(V)                \
  float V::GetLength() const {        \
    return Length(*this);             \
  }                                   \
  float V::GetSquaredLength() const { \
    return Dot(*this, *this);         \
  }                                   \
  void V::Normalize() {               \
    *this = Normalized(*this);        \
  }                                   \
  V V::GetNormalized() const {        \
    return Normalized(*this);         \
  }
ZEPH_DEFINE(CZEPHVector2D)
ZEPH_DEFINE(CZEPHVector3D)
#undef ZEPH_DEFINE

#define ZEPH_DEFINE(V)                                                           \
  V V::LinearInterpolate(const V& other, float factor) const {                   \
    return Linear(*this, other, factor);                                         \
  }                                                                              \
  V V::QuadraticInterpolate(const V& middle, const V& end, float factor) const { \
    return Quadratic(*this, middle, end, factor);                                \
  }
ZEPH_DEFINE(CZEPHVector2D)
ZEPH_DEFINE(CZEPHVector3D)
ZEPH_DEFINE(CZEPHVector4D)
#undef ZEPH_DEFINE

float CZEPHVector3D::DotProduct(const CZEPHVector3D& other) const {
  return Dot(*this, other);
}

float CZEPHVector4D::DotProduct(const CZEPHVector4D& other) {
  return Dot(*this, other);
}

CZEPHVector3D CZEPHVector3D::CrossProduct(const CZEPHVector3D& other) const {
  return CZEPHVector3D(y * other.z - z * other.y, z * other.x - x * other.z,
                       x * other.y - y * other.x);
}

void CZEPHVector3D::Add(const CZEPHVector3D& other, CZEPHVector3D& result) {
  result = Plus(*this, other);
}

void CZEPHVector3D::Subtract(const CZEPHVector3D& other, CZEPHVector3D& result) {
  result = Minus(*this, other);
}

CZEPHVector3D CZEPHVector3D::GetPackedTo01() const {
  return Each([](float p) { return p * 0.5f + 0.5f; }, Normalized(*this));
}

void CZEPHVector3D::PackTo01() {
  *this = GetPackedTo01();
}

CZEPHVector4D::operator CZEPHVector3D() {
  const CZEPHVector3D point(x, y, z);
  return w == 0.0f || w == 1.0f ? point : Over(point, w);
}
