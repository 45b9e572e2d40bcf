// SPDX-License-Identifier: MIT
//
// The float tangent with the same bits on every system.
#ifndef ZEPH_SRC_PORTABLE_MATH_TANGENT_H
#define ZEPH_SRC_PORTABLE_MATH_TANGENT_H

namespace zeph::portable_math {

/// The tangent of an angle in radians, rounded to nearest in every rounding direction of the
/// process; infinities, NaN and flags as in SineCosine. No float's tangent overflows.
float Tangent(float radians);

/// The same in integer arithmetic, for finite angles other than 0.
float TangentInWholeNumbers(float radians);

}  // namespace zeph::portable_math

#endif  // ZEPH_SRC_PORTABLE_MATH_TANGENT_H
