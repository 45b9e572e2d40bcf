// SPDX-License-Identifier: MIT
//
// What a 4x4 matrix does to 3D vectors by its rotation and translation parts.
#include "graphics.h"
#include "platform/exactness.h"

CZEPHVector3D CZEPHMatrix4x4::GetRotatedVector3D(const CZEPHVector3D& v) const {
  const float* e = entries;
  return CZEPHVector3D(e[0] * v.x + e[4] * v.y + e[8] * v.z,  //
                       e[1] * v.x + e[5] * v.y + e[9] * v.z,  //
                       e[2] * v.x + e[6] * v.y + e[10] * v.z);
}

CZEPHVector3D CZEPHMatrix4x4::GetInverseRotatedVector3D(const CZEPHVector3D& v) const {
  const float* e = entries;
  return CZEPHVector3D(e[0] * v.x + e[1] * v.y + e[2] * v.z,  //
                       e[4] * v.x + e[5] * v.y + e[6] * v.z,  //
                       e[8] * v.x + e[9] * v.y + e[10] * v.z);
}

CZEPHVector3D CZEPHMatrix4x4::GetTranslatedVector3D(const CZEPHVector3D& v) const {
  return CZEPHVector3D(v.x + entries[12], v.y + entries[13], v.z + entries[14]);
}

CZEPHVector3D CZEPHMatrix4x4::GetInverseTranslatedVector3D(const CZEPHVector3D& v) const {
  return CZEPHVector3D(v.x - entries[12], v.y - entries[13], v.z - entries[14]);
}

void CZEPHMatrix4x4::RotateVector3D(CZEPHVector3D& v) const {
  v = GetRotatedVector3D(v);
}

void CZEPHMatrix4x4::InverseRotateVector3D(CZEPHVector3D& v) const {
  v = GetInverseRotatedVector3D(v);
}

void CZEPHMatrix4x4::TranslateVector3D(CZEPHVector3D& v) const {
  v = GetTranslatedVector3D(v);
}

void CZEPHMatrix4x4::InverseTranslateVector3D(CZEPHVector3D& v) const {
  v = GetInverseTranslatedVector3D(v);
}
