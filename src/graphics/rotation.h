// SPDX-License-Identifier: MIT
//
// Angles in degrees, and the rotation about an axis that vectors and matrices share.
#ifndef ZEPH_SRC_GRAPHICS_ROTATION_H
#define ZEPH_SRC_GRAPHICS_ROTATION_H

#include "graphics.h"

namespace zeph::graphics {

/// Sine and cosine of an angle in degrees, computed in double, then rounded to float.
struct FloatTurn {
  float sine, cosine;
};
FloatTurn TurnInFloat(double degrees);

/// The 3x3 matrix that rotates column vectors: r21 is in row 2, column 1.
struct Rotation {
  float r00, r01, r02, r10, r11, r12, r20, r21, r22;
};

/// The rotation about `axis`, which need not have length 1. A zero axis stays zero.
Rotation RotationAbout(const CZEPHVector3D& axis, double degrees);

}  // namespace zeph::graphics

#endif  // ZEPH_SRC_GRAPHICS_ROTATION_H
