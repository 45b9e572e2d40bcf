// SPDX-License-Identifier: MIT
//
// Translations, scales and rotations.
#include "graphics.h"
#include "graphics/rotation.h"
#include "platform/degrees.h"
#include "platform/exactness.h"

using namespace zeph::graphics;
using zeph::platform::SinCosDegrees;

void CZEPHMatrix4x4::SetTranslation(const CZEPHVector3D& v) {
  LoadIdentity();
  SetTranslationPart(v);
}

void CZEPHMatrix4x4::SetTranslationPart(const CZEPHVector3D& v) {
  entries[12] = v.x;
  entries[13] = v.y;
  entries[14] = v.z;
}

void CZEPHMatrix4x4::SetScale(const CZEPHVector3D& v) {
  LoadIdentity();
  entries[0] = v.x;
  entries[5] = v.y;
  entries[10] = v.z;
}

void CZEPHMatrix4x4::SetUniformScale(float s) {
  SetScale(CZEPHVector3D(s, s, s));
}

// A rotation in the plane of the coordinates `from` and `to`, the identity elsewhere.
static void SetTurn(CZEPHMatrix4x4& m, double angle, int from, int to) {
  const auto [sine, cosine] = TurnInFloat(angle);
  m.LoadIdentity();
  m.entries[4 * from + from] = cosine;
  m.entries[4 * from + to] = sine;
  m.entries[4 * to + from] = -sine;
  m.entries[4 * to + to] = cosine;
}

void CZEPHMatrix4x4::SetRotationX(double angle) {
  SetTurn(*this, angle, 1, 2);
}

void CZEPHMatrix4x4::SetRotationY(double angle) {
  SetTurn(*this, angle, 2, 0);
}

void CZEPHMatrix4x4::SetRotationZ(double angle) {
  SetTurn(*this, angle, 0, 1);
}

void CZEPHMatrix4x4::SetRotationAxis(double angle, const CZEPHVector3D& axis) {
  const Rotation r = RotationAbout(axis, angle);
  *this = CZEPHMatrix4x4(r.r00, r.r10, r.r20, 0,  //
                         r.r01, r.r11, r.r21, 0,  //
                         r.r02, r.r12, r.r22, 0,  //
                         0, 0, 0, 1);
}

void CZEPHMatrix4x4::SetRotationPartEuler(double angleX, double angleY, double angleZ) {
  const auto [sx, cx] = SinCosDegrees(angleX);
  const auto [sy, cy] = SinCosDegrees(angleY);
  const auto [sz, cz] = SinCosDegrees(angleZ);
  entries[0] = static_cast<float>(cz * cy);
  entries[1] = static_cast<float>(sz * cy);
  entries[2] = static_cast<float>(-sy);
  entries[4] = static_cast<float>(sy * sx * cz - sz * cx);
  entries[5] = static_cast<float>(sy * sx * sz + cz * cx);
  entries[6] = static_cast<float>(cy * sx);
  entries[8] = static_cast<float>(sy * cx * cz + sz * sx);
  entries[9] = static_cast<float>(sy * cx * sz - cz * sx);
  entries[10] = static_cast<float>(cy * cx);
}

void CZEPHMatrix4x4::SetRotationPartEuler(const CZEPHVector3D& angles) {
  SetRotationPartEuler(angles.x, angles.y, angles.z);
}

void CZEPHMatrix4x4::SetRotationEuler(double angleX, double angleY, double angleZ) {
  LoadIdentity();
  SetRotationPartEuler(angleX, angleY, angleZ);
}
