// SPDX-License-Identifier: MIT
#include "graphics/rotation.h"

#include <cmath>

#include "graphics/components.h"

namespace zeph::graphics {

Turn<double> TurnInDouble(double degrees) {
  const double radians = degrees * 3.141592653589793 / 180.0;
  // Read again, so that no compiler merges the calls into one for both, which some runtimes round
  // otherwise.
  const volatile double again = radians;
  return {std::sin(radians), std::cos(again)};
}

Turn<float> TurnInFloat(double degrees) {
  const Turn<double> turn = TurnInDouble(degrees);
  return {static_cast<float>(turn.sine), static_cast<float>(turn.cosine)};
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
