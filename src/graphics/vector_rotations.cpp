// SPDX-License-Identifier: MIT
#include "graphics/components.h"
#include "graphics/rotation.h"

using namespace zeph::graphics;

CZEPHVector3D CZEPHVector3D::GetRotatedX(double angle) const {
  if (angle == 0.0) return *this;
  const auto [sine, cosine] = TurnInFloat(angle);
  return CZEPHVector3D(x, y * cosine - z * sine, z * cosine + y * sine);
}

CZEPHVector3D CZEPHVector3D::GetRotatedY(double angle) const {
  if (angle == 0.0) return *this;
  const auto [sine, cosine] = TurnInFloat(angle);
  return CZEPHVector3D(x * cosine + z * sine, y, z * cosine - x * sine);
}

CZEPHVector3D CZEPHVector3D::GetRotatedZ(double angle) const {
  if (angle == 0.0) return *this;
  const auto [sine, cosine] = TurnInFloat(angle);
  return CZEPHVector3D(x * cosine - y * sine, y * cosine + x * sine, z);
}

CZEPHVector3D CZEPHVector3D::GetRotatedAxis(double angle, const CZEPHVector3D& axis) const {
  if (angle == 0.0) return *this;
  const Rotation r = RotationAbout(axis, angle);
  return CZEPHVector3D(r.r00 * x + r.r01 * y + r.r02 * z,  //
                       r.r10 * x + r.r11 * y + r.r12 * z,  //
                       r.r20 * x + r.r21 * y + r.r22 * z);
}

// The larger class rotates its first three components and keeps w.
static CZEPHVector4D WithW(const CZEPHVector3D& turned, float w) {
  return CZEPHVector4D(turned.x, turned.y, turned.z, w);
}

#define ZEPH_DEFINE(X)                                             \
  CZEPHVector4D CZEPHVector4D::GetRotated##X(double angle) const { \
    return WithW(CZEPHVector3D(x, y, z).GetRotated##X(angle), w);  \
  }                                                                \
  void CZEPHVector3D::Rotate##X(double angle) {                    \
    *this = GetRotated##X(angle);                                  \
  }                                                                \
  void CZEPHVector4D::Rotate##X(double angle) {                    \
    *this = GetRotated##X(angle);                                  \
  }
ZEPH_DEFINE(X)
ZEPH_DEFINE(Y)
ZEPH_DEFINE(Z)
#undef ZEPH_DEFINE

CZEPHVector4D CZEPHVector4D::GetRotatedAxis(double angle, const CZEPHVector3D& axis) const {
  return WithW(CZEPHVector3D(x, y, z).GetRotatedAxis(angle, axis), w);
}

void CZEPHVector3D::RotateAxis(double angle, const CZEPHVector3D& axis) {
  *this = GetRotatedAxis(angle, axis);
}

void CZEPHVector4D::RotateAxis(double angle, const CZEPHVector3D& axis) {
  *this = GetRotatedAxis(angle, axis);
}
