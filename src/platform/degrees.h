// SPDX-License-Identifier: MIT
//
// Angles in degrees.
#ifndef ZEPH_SRC_PLATFORM_DEGREES_H
#define ZEPH_SRC_PLATFORM_DEGREES_H

#include "platform/functions.h"

namespace zeph::platform {

/// Of an angle in degrees: its radians are degrees * pi / 180 in double, pi rounded to double. The
/// one place where the library turns an angle into a sine or a cosine.
SineAndCosine SinCosDegrees(double degrees);

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_DEGREES_H
