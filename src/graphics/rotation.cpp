// SPDX-License-Identifier: MIT
#include "graphics/rotation.h"

#include "graphics/components.h"
#include "platform/degrees.h"

namespace zeph::graphics {

FloatTurn TurnInFloat(double degrees) {
  const auto [sine, cosine] = platform::SinCosDegrees(degrees);
  return {static_cast<float>(sine), static_cast<float>(cosine)};
}

Rotation RotationAbout(const CZEPHVector3D& axis, double degrees) {
  const CZEPHVector3D unit = Normalized(axis);
  const float a = unit.x, b = unit.y, d = unit.z;
  const auto [sine, cosine] = TurnInFloat(degrees);
  const float k = 1.0f - cosine;
  return {(1.0f - a * a) * cosine + a * a,
          b * a * k - d * sine,
          d * a * k + b * sine,
          b * a * k + d * sine,
          (1.0f - b * b) * cosine + b * b,
          d * b * k - a * sine,
          d * a * k - b * sine,
          d * b * k + a * sine,
          (1.0f - d * d) * cosine + d * d};
}

}  // namespace zeph::graphics
