// SPDX-License-Identifier: MIT
//
// Angles in degrees.
#ifndef ZEPH_SRC_PLATFORM_DEGREES_H
#define ZEPH_SRC_PLATFORM_DEGREES_H

#include "platform/functions.h"

namespace zeph::platform {

/// Sine and cosine of an angle in degrees: its radians are degrees * pi / 180 in double, with pi
/// rounded to double. All of the library's conversions from angles to sines and cosines are here.
SineAndCosine SinCosDegrees(double degrees);

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_DEGREES_H
