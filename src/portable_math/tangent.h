// SPDX-License-Identifier: MIT
//
// The float tangent with the same bits on every system.
#ifndef ZEPH_SRC_PORTABLE_MATH_TANGENT_H
#define ZEPH_SRC_PORTABLE_MATH_TANGENT_H

namespace zeph::portable_math {

/// Of an angle in radians, rounded to nearest whatever direction the process rounds in; infinities,
/// NaN and flags as with SineCosine. No float's tangent overflows.
float Tangent(float radians);

/// The same in whole numbers, for finite angles, 0 left out.
float TangentInWholeNumbers(float radians);

}  // namespace zeph::portable_math

#endif  // ZEPH_SRC_PORTABLE_MATH_TANGENT_H
