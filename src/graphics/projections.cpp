// SPDX-License-Identifier: MIT
//
// The planes are called nearPlane and farPlane here: `near` and `far` are macros on some systems.
#include "graphics.h"
#include "platform/exactness.h"
#include "platform/functions.h"

void CZEPHMatrix4x4::SetPerspective(float left, float right, float bottom, float top,
                                    float nearPlane, float farPlane) {
  LoadZero();
  if (left == right || top == bottom || nearPlane == farPlane) return;
  const float width = right - left, height = top - bottom, twoNear = nearPlane * 2.0f;
  entries[0] = twoNear / width;
  entries[5] = twoNear / height;
  entries[8] = (left + right) / width;
  entries[9] = (bottom + top) / height;
  entries[11] = -1.0f;
  if (farPlane == -1.0f) {  // stands for infinity
    entries[10] = -0.999f;
    entries[14] = nearPlane * -2.0f * 0.999f;
  } else {
    const float depth = farPlane - nearPlane;
    entries[10] = -((nearPlane + farPlane) / depth);
    entries[14] = -(farPlane * 2.0f * nearPlane / depth);
  }
}

void CZEPHMatrix4x4::SetPerspective(float fovy, float aspect, float nearPlane, float farPlane) {
  constexpr float kDegree = 0.017453292f;
  const float top = zeph::platform::Tangent(fovy * kDegree * 0.5f) * nearPlane;
  SetPerspective(-top * aspect, top * aspect, -top, top, nearPlane, farPlane);
}

void CZEPHMatrix4x4::SetOrtho(float left, float right, float bottom, float top, float nearPlane,
                              float farPlane) {
  const float width = right - left, height = top - bottom, depth = farPlane - nearPlane;
  LoadIdentity();
  entries[0] = 2.0f / width;
  entries[5] = 2.0f / height;
  entries[10] = -2.0f / depth;
  entries[12] = -((left + right) / width);
  entries[13] = -((bottom + top) / height);
  entries[14] = -((nearPlane + farPlane) / depth);
}
