// SPDX-License-Identifier: MIT
//
// The one conversion that C++ leaves undefined and the interface does not.
#ifndef ZEPH_SRC_PLATFORM_NARROW_H
#define ZEPH_SRC_PLATFORM_NARROW_H

#include <climits>

namespace zeph::platform {

/// `x` cut off toward zero; the most negative int for NaN and for what no int can hold, as the x86
/// conversion instruction answers. A float may be passed as well: it widens exactly.
constexpr int TruncateToInt(double x) {
  return x > -2147483649.0 && x < 2147483648.0 ? static_cast<int>(x) : INT_MIN;
}

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_NARROW_H
